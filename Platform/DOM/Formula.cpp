#include <DOM/Public/Formula.h>

#include <utility>

#include <DOM/Public/FormulaSyntaxTree.h>
#include <Utils/Public/Assertions.h>
#include <Utils/Public/Ptr/PtrUtils.h>

namespace QV::DOM {

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
    formula._unreadText = std::move(text);
    return formula;
}

Formula::Formula(const Formula& other)
    : _root(clonePtr(other._root))
    , _unreadText(other._unreadText)
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

} // namespace QV::DOM
