#include <DOM/Public/FormulaSyntaxTree.h>

#include <typeinfo>

#include <Utils/Public/Assertions.h>

namespace QV::DOM::FormulaSyntaxTree {
namespace {

// ExprType is Expr or const Expr.
template <typename ExprType>
std::vector<ExprType*> listNodes(ExprType& root)
{
    std::vector<ExprType*> nodes;
    std::vector<ExprType*> pending = {&root};
    while (!pending.empty()) {
        ExprType* const node = pending.back();
        pending.pop_back();
        nodes.push_back(node);
        const Expr::Children& children = node->getChildren();
        for (auto child = children.rbegin(); child != children.rend(); ++child)
            pending.push_back(child->get());
    }
    return nodes;
}

} // namespace

Expr::~Expr() = default;

const Expr::Children& Expr::getChildren() const
{
    static const Children none;
    return none;
}

std::unique_ptr<Expr> Expr::clone() const
{
    std::unique_ptr<Expr> copy = cloneNode();
    std::vector<std::pair<const Expr*, Expr*>> pending = {
        {this, copy.get()}
    };
    while (!pending.empty()) {
        const auto [source, target] = pending.back();
        pending.pop_back();
        for (const std::unique_ptr<Expr>& child : source->getChildren()) {
            auto* const parent = static_cast<CompoundExpr*>(target); // since the source has children
            parent->appendChild(child->cloneNode());
            pending.emplace_back(child.get(), parent->getChildren().back().get());
        }
    }
    return copy;
}

bool operator==(const Expr& a, const Expr& b)
{
    std::vector<std::pair<const Expr*, const Expr*>> pending = {
        {&a, &b}
    };
    while (!pending.empty()) {
        const Expr& first = *pending.back().first;
        const Expr& second = *pending.back().second;
        pending.pop_back();
        const Expr::Children& children = first.getChildren();
        if (typeid(first) != typeid(second) || !first.isSameNode(second) ||
            children.size() != second.getChildren().size())
            return false;
        for (std::size_t i = 0; i < children.size(); ++i)
            pending.emplace_back(children[i].get(), second.getChildren()[i].get());
    }
    return true;
}

// Takes the tree apart from the top, so that no node that is destroyed has any below it.
CompoundExpr::~CompoundExpr()
{
    Children pending = std::move(_children);
    while (!pending.empty()) {
        const std::unique_ptr<Expr> node = std::move(pending.back());
        pending.pop_back();
        if (node->getChildren().empty())
            continue;
        Children& children = static_cast<CompoundExpr&>(*node)._children;
        for (std::unique_ptr<Expr>& child : children)
            pending.push_back(std::move(child));
        children.clear();
    }
}

void CompoundExpr::appendChild(std::unique_ptr<Expr> child)
{
    QV_ASSERT(child);
    if (child)
        _children.push_back(std::move(child));
}

void CompoundExpr::setChild(std::size_t index, std::unique_ptr<Expr> child)
{
    QV_ASSERT(child);
    QV_ASSERT(index < _children.size());
    if (child && index < _children.size())
        _children[index] = std::move(child);
}

std::unique_ptr<Expr> FunctionCall::cloneNode() const
{
    return std::make_unique<FunctionCall>(_name);
}

bool FunctionCall::isSameNode(const Expr& other) const
{
    return _name == static_cast<const FunctionCall&>(other)._name;
}

std::unique_ptr<Expr> Array::cloneNode() const
{
    return std::make_unique<Array>(_columnsCount);
}

bool Array::isSameNode(const Expr& other) const
{
    return _columnsCount == static_cast<const Array&>(other)._columnsCount;
}

std::vector<Expr*> toExprStack(Expr& root)
{
    return listNodes(root);
}

std::vector<const Expr*> toExprStack(const Expr& root)
{
    return listNodes(root);
}

} // namespace QV::DOM::FormulaSyntaxTree
