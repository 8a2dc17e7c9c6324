#include <Filters/Text/StyleParents.h>

namespace QV::Filters {
namespace {

constexpr std::size_t NotMeasured = 0;
constexpr std::size_t OnThePath = std::numeric_limits<std::size_t>::max();

} // namespace

CutStyles cutStyleParents(StyleParents& parents)
{
    CutStyles cuts;
    std::vector<std::size_t> lengths(parents.size(), NotMeasured); // of the chain that ends with the style
    std::vector<std::size_t> path;
    for (std::size_t start = 0; start < parents.size(); ++start) {
        for (std::size_t style = start; style != NoStyleParent && lengths[style] == NotMeasured;
             style = parents[style]) {
            lengths[style] = OnThePath;
            path.push_back(style);
        }
        while (!path.empty()) {
            const std::size_t style = path.back();
            path.pop_back();
            std::size_t& parent = parents[style];
            if (parent != NoStyleParent && lengths[parent] == OnThePath) {
                cuts.circular.push_back(style);
                parent = NoStyleParent;
            } else if (parent != NoStyleParent && lengths[parent] == MaxStyleChain) {
                cuts.tooDeep.push_back(style);
                parent = NoStyleParent;
            }
            lengths[style] = parent == NoStyleParent ? 1 : lengths[parent] + 1;
        }
    }
    return cuts;
}

} // namespace QV::Filters
