#include <DOM/Public/Formula.h>

#include <utility>

#include <DOM/Public/FormulaSyntaxTree.h>
#include <Utils/Public/Assertions.h>
#include <Utils/Public/Ptr/PtrUtils.h>

namespace QV::DOM {

struct Formula::Extras
{
    std::string unreadText;
    boost::optional<TableRange> arrayRange;
};

Formula::Formula(std::unique_ptr<FormulaSyntaxTree::Expr> root)
    : _root(std::move(root))
{
    QV_ASSERT(_root);
    if (!_root)
        _root = std::make_unique<FormulaSyntaxTree::Empty>();
}

Formula::~Formula() = default;
Formula::Formula(Formula&& other) noexcept = default;
Formula& Formula::operator=(Formula&& other) noexcept = default;

Formula Formula::makeUnread(std::string text)
{
    Formula formula(std::make_unique<FormulaSyntaxTree::Empty>());
    formula.getOrMakeExtras().unreadText = std::move(text);
    return formula;
}

Formula::Formula(const Formula& other)
    : _root(clonePtr(other._root))
    , _extras(other._extras ? std::make_unique<Extras>(*other._extras) : nullptr)
{
}

Formula& Formula::operator=(const Formula& other)
{
    return *this = Formula(other);
}

const FormulaSyntaxTree::Expr& Formula::getSyntaxTree() const
{
    return deref(_root);
}

FormulaSyntaxTree::Expr& Formula::getSyntaxTree()
{
    return deref(_root);
}

const std::string& Formula::getUnreadText() const
{
    static const std::string none;
    return _extras ? _extras->unreadText : none;
}

boost::optional<TableRange> Formula::getArrayRange() const
{
    return _extras ? _extras->arrayRange : boost::none;
}

void Formula::setArrayRange(const TableRange& range)
{
    getOrMakeExtras().arrayRange = range;
}

Formula::Extras& Formula::getOrMakeExtras()
{
    if (!_extras)
        _extras = std::make_unique<Extras>();
    return *_extras;
}

bool operator==(const Formula& a, const Formula& b)
{
    return a.getUnreadText() == b.getUnreadText() && a.getArrayRange() == b.getArrayRange() &&
           a.getSyntaxTree() == b.getSyntaxTree();
}

} // namespace QV::DOM
