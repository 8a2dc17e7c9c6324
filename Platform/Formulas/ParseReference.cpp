#include <Formulas/Public/References.h>

#include <memory>
#include <utility>
#include <vector>

#include <DOM/Public/FormulaSyntaxTree.h>
#include <Formulas/ReferenceParser.h>
#include <Formulas/ReferenceScanner.h>

namespace QV::Formulas {
namespace {

using namespace DOM::FormulaSyntaxTree;

/// Null where there is no list of references.
std::unique_ptr<Expr> parseList(ReferenceScanner& scanner)
{
    std::vector<std::unique_ptr<Expr>> items;
    do {
        scanner.skipBlanks();
        items.push_back(takeReference(scanner));
        if (!items.back())
            return nullptr;
        scanner.skipBlanks();
    } while (scanner.skip(','));
    if (items.size() == 1)
        return std::move(items.front());
    auto list = std::make_unique<ArgumentsList>();
    for (std::unique_ptr<Expr>& item : items)
        list->appendChild(std::move(item));
    return list;
}

} // namespace

boost::optional<DOM::Formula> parseReference(boost::string_ref text)
{
    ReferenceScanner scanner(text);
    scanner.skipBlanks();
    const bool isEnclosed = scanner.skip('(');
    std::unique_ptr<Expr> root = parseList(scanner);
    if (!root || (isEnclosed && !scanner.skip(')')))
        return boost::none;
    scanner.skipBlanks();
    if (!scanner.isAtEnd())
        return boost::none;
    return DOM::Formula(std::move(root));
}

} // namespace QV::Formulas
