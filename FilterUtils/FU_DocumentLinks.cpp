#include <FilterUtils/FU_DocumentLinks.h>

#include <deque>
#include <memory>

#include <DOM/Public/Document.h>
#include <DOM/Public/Formula.h>
#include <DOM/Public/FormulaReferences.h>
#include <DOM/Public/FormulaSyntaxTree.h>
#include <DOM/Public/Table.h>
#include <Utils/Public/FileSystem.h>
#include <Utils/Public/Ptr/PtrUtils.h>
#include <Utils/Public/Visitor.h>

namespace QV::FilterUtils {
namespace {

namespace Tree = DOM::FormulaSyntaxTree;

using DocURLs = boost::unordered_set<std::string>;
using WorkList = std::deque<const Tree::Expr*>;

class DocumentNamesFinder
{
public:
    DocumentNamesFinder(DocURLs& urls, WorkList& pending)
        : _urls(&urls)
        , _pending(&pending)
    {
    }

    void operator()(const Tree::BaseReferenceExpr& reference) const
    {
        if (!reference.getDocURL().empty())
            _urls->insert(reference.getDocURL());
    }
    void operator()(const Tree::CompoundExpr& compound) const
    {
        for (const std::unique_ptr<Tree::Expr>& child : compound.getChildren())
            _pending->push_back(child.get());
    }
    void operator()(const Tree::Array&) const {} // constants, which refer to nothing
    void operator()(const Tree::Expr&) const {}

private:
    DocURLs* _urls;
    WorkList* _pending;
};

WorkList listFormulas(const DOM::Document& document)
{
    WorkList roots;
    for (const DOM::Block& block : document.getBlocks())
        if (const auto* const table = exactCast<DOM::Table>(&block))
            for (const DOM::Cell& cell : table->getTableIterators())
                if (const DOM::Formula* const formula = cell.getFormula())
                    roots.push_back(&formula->getSyntaxTree());
    return roots;
}

} // namespace

boost::unordered_set<std::string> findDocURLs(const DOM::Document& document)
{
    DocURLs urls;
    WorkList pending = listFormulas(document);
    DocumentNamesFinder finder(urls, pending);
    StaticVisitorBinder<const Tree::Expr, DocumentNamesFinder> binder;
    binder.bind(finder);
    while (!pending.empty()) {
        const Tree::Expr* const node = checkPtr(pending.front());
        pending.pop_front();
        if (node)
            node->accept(binder);
    }
    return urls;
}

std::string findFileURL(const boost::string_ref& documentPath, boost::string_ref url)
{
    static const std::string Scheme = "file://";
    if (url.starts_with(Scheme))
        url.remove_prefix(Scheme.size());
    if (FileSystem::exists(FileSystem::Path(url)))
        return url.to_string();
    FileSystem::Path path(documentPath);
    path.remove_filename();
    path /= FileSystem::Path(url);
    return FileSystem::exists(path) ? path.string(FileSystem::Path::getCvt()) : std::string();
}

} // namespace QV::FilterUtils
