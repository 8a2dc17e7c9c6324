#include <Filters/Package/ChartSeriesReader.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <utility>

#include <DOM/Public/FormulaSyntaxTree.h>
#include <Filters/Package/ChartReport.h>
#include <Formulas/Public/FormulaText.h>
#include <OfficeUtils/Public/NumberParsing.h>
#include <Utils/Public/NumberText.h>
#include <Utils/Public/Ptr/PtrUtils.h>
#include <Utils/Public/TableIndices/RowColumnIndices.h>

namespace QV::Filters {
namespace {

constexpr std::size_t ReferenceBytesMax = 8192;               // the longest formula that a cell may have
constexpr std::size_t LevelsMax = 64;                         // of categories within categories
constexpr std::size_t JoinedBytesMax = std::size_t{16} << 20; // of outer categories before inner ones

using FilterUtils::XMLElement;

struct ReferenceKind
{
    const char* element;
    const char* cache; // null: the element itself holds the points, and refers to nothing
};

const ReferenceKind ReferenceKinds[] = {
    {"numRef",         "numCache"        },
    {"strRef",         "strCache"        },
    {"multiLvlStrRef", "multiLvlStrCache"},
    {"numLit",         nullptr           },
    {"strLit",         nullptr           },
};

std::string trim(const std::string& text)
{
    constexpr const char* Blanks = " \t\r\n";
    const std::size_t begin = text.find_first_not_of(Blanks);
    return begin == std::string::npos ? std::string()
                                      : text.substr(begin, text.find_last_not_of(Blanks) - begin + 1);
}

/// No more points than a column has cells.
boost::optional<unsigned long> readPointIndex(const std::string& text)
{
    std::size_t end = 0;
    const auto index = strToUlong(text, &end, 10);
    const bool isPlain = !text.empty() && '0' <= text.front() && text.front() <= '9' && end == text.size();
    return isPlain && index && *index <= MaxRowIndex.get() ? index : boost::none;
}

bool isBefore(const DOM::ChartPoint<std::string>& a, const DOM::ChartPoint<std::string>& b)
{
    return a.index < b.index;
}

} // namespace

/// Where the points of a name, of categories or of values come from.
struct ChartSeriesReader::Source
{
    XMLElement reference; // invalid for constants
    XMLElement cache;
    bool isMultiLevel = false;
    bool isNumeric = false;
};

XMLElement ChartSeriesReader::getChild(const XMLElement& parent, const char* name) const
{
    return parent.getElement(_names(Vocabulary::Chart, name));
}

ChartSeriesReader::Source ChartSeriesReader::findSource(const XMLElement& parent) const
{
    Source source;
    for (const ReferenceKind& kind : ReferenceKinds) {
        const XMLElement element = getChild(parent, kind.element);
        if (!element.isValid())
            continue;
        if (kind.cache)
            source.reference = element;
        source.cache = kind.cache ? getChild(element, kind.cache) : element;
        source.isMultiLevel = std::string(kind.element) == "multiLvlStrRef";
        source.isNumeric = kind.element[0] == 'n';
        break;
    }
    return source;
}

ReadSeries ChartSeriesReader::read(const XMLElement& series)
{
    ReadSeries result;
    result.series = std::make_unique<DOM::Series>();
    readName(getChild(series, "tx"), *result.series);

    XMLElement categories = getChild(series, "cat");
    if (!categories.isValid())
        categories = getChild(series, "xVal");
    const Source along = findSource(categories);
    result.categories = readFormulas(along.reference);
    result.series->setCategoryTexts(along.isMultiLevel ? readLevels(along.cache) : readTexts(along.cache));

    XMLElement values = getChild(series, "val");
    if (!values.isValid())
        values = getChild(series, "yVal");
    const Source across = findSource(values);
    auto formulas = readFormulas(across.reference);
    if (formulas && formulas->front().getUnreadText().empty()) // others would take the series along
        result.series->setValues(std::move(*formulas));
    if (across.isNumeric)
        result.series->setNumbers(readNumbers(across.cache));
    return result;
}

void ChartSeriesReader::readName(const XMLElement& name, DOM::Series& series)
{
    const XMLElement reference = getChild(name, "strRef");
    if (auto formulas = readFormulas(reference))
        series.setName(std::move(*formulas));
    series.setNameText(reference.isValid() ? readCachedText(reference) : getChild(name, "v").getText());
}

DOM::Series::Formulas ChartSeriesReader::readFormulas(const XMLElement& reference)
{
    namespace Tree = DOM::FormulaSyntaxTree;

    const std::string text = trim(getChild(reference, "f").getText().value_or(std::string()));
    if (text.empty())
        return boost::none;
    // What no application would take as a formula would be printed for each series that shares it.
    auto parsed = text.size() <= ReferenceBytesMax ? Formulas::parseFormula(text, _documents) : boost::none;
    std::vector<DOM::Formula> formulas;
    if (!parsed) {
        const std::string kept = text.substr(0, ReferenceBytesMax);
        _report.add("Chart {} has an unreadable reference {}", kept);
        formulas.push_back(DOM::Formula::makeUnread(kept));
        return formulas;
    }
    const Tree::Expr& root = parsed->formula.getSyntaxTree();
    if (isExactly<Tree::ArgumentsList>(root)) // each item may lie in another place, and be lost by itself
        for (const auto& item : root.getChildren())
            formulas.emplace_back(item->clone());
    else
        formulas.push_back(std::move(parsed->formula));
    return formulas;
}

boost::optional<std::string> ChartSeriesReader::readCachedText(const XMLElement& reference)
{
    boost::optional<std::string> text;
    for (const DOM::ChartPoint<std::string>& point : readTexts(getChild(reference, "strCache")))
        if (text)
            text->append(1, ' ').append(point.value);
        else
            text = point.value;
    return text;
}

DOM::ChartTexts ChartSeriesReader::readTexts(const XMLElement& cache)
{
    DOM::ChartTexts points;
    cache.processElements(_names(Vocabulary::Chart, "pt"), [&](const XMLElement& point) {
        const std::string indexText = point.getAttributeValue("idx").value_or(std::string());
        const auto index = readPointIndex(indexText);
        if (index)
            points.push_back({*index, getChild(point, "v").getText().value_or(std::string())});
        else
            _report.add("Chart {} has a point with a bad index {}", indexText);
    });
    return points;
}

DOM::ChartTexts ChartSeriesReader::readLevels(const XMLElement& cache)
{
    std::vector<DOM::ChartTexts> levels; // the innermost first
    bool isWhole = true;
    cache.processElements(_names(Vocabulary::Chart, "lvl"), [&](const XMLElement& level) {
        isWhole = levels.size() < LevelsMax;
        if (!isWhole)
            return;
        levels.push_back(readTexts(level));
        std::stable_sort(levels.back().begin(), levels.back().end(), isBefore);
    });
    if (levels.empty())
        return {};
    DOM::ChartTexts points = std::move(levels.front());
    std::size_t room = JoinedBytesMax; // an outer text is copied for each point under it
    for (std::size_t i = 1; i < levels.size(); ++i) {
        for (DOM::ChartPoint<std::string>& point : points) {
            // An outer text stands over its own point and those that follow, up to the next outer text.
            const auto next = std::upper_bound(levels[i].begin(), levels[i].end(), point, isBefore);
            if (next == levels[i].begin())
                continue;
            const std::string& outer = std::prev(next)->value;
            isWhole = isWhole && outer.size() < room;
            if (!isWhole)
                break;
            room -= outer.size() + 1;
            point.value.insert(0, outer + ' ');
        }
    }
    if (!isWhole)
        _report.add(
            "Chart {} has outer categories beyond {}; they are left out", "64 levels or 16777216 bytes");
    return points;
}

DOM::ChartNumbers ChartSeriesReader::readNumbers(const XMLElement& cache)
{
    DOM::ChartNumbers numbers;
    for (const DOM::ChartPoint<std::string>& point : readTexts(cache)) {
        const std::string text = trim(point.value);
        const auto number = OfficeUtils::stringToDouble(text);
        if (number && std::isfinite(*number))
            numbers.push_back({point.index, *number});
        else if (!text.empty() && text.front() != '#') // errors of cells are gaps
            _report.add("Chart {} has a bad number {}", text);
    }
    return numbers;
}

} // namespace QV::Filters
