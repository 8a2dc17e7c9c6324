#pragma once

// Syntax trees for tests: references, every kind that has others below it, and trees at random.

#include <cstddef>
#include <functional>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <DOM/Public/FormulaSyntaxTree.h>

namespace QV::Tests {

namespace Tree = DOM::FormulaSyntaxTree;
using ExprPtr = std::unique_ptr<Tree::Expr>;
using CompoundPtr = std::unique_ptr<Tree::CompoundExpr>;

inline ExprPtr makeCellNode(Tree::TableAddress table, const std::string& document = {})
{
    return std::make_unique<Tree::CellAddress>(Tree::DocumentAddress(document), std::move(table),
        Tree::ColumnAxisIndex(ColumnIndex(0)), Tree::RowAxisIndex(RowIndex(0)));
}

inline ExprPtr makeRangeNode(
    Tree::TableAddress first, Tree::TableAddress second, const std::string& document = {})
{
    return std::make_unique<Tree::CellRange>(Tree::DocumentAddress(document), std::move(first),
        std::move(second), Tree::ColumnAxis::makeWhole(), Tree::RowAxis(RowIndex(1), RowIndex(2)));
}

inline ExprPtr makeLabelNode(Tree::TableAddress table, const std::string& document = {})
{
    return std::make_unique<Tree::Label>(Tree::DocumentAddress(document), std::move(table), "Rate");
}

/// @p parent with these nodes below it.
template <typename Parent, typename... Children>
ExprPtr putBelow(std::unique_ptr<Parent> parent, Children... children)
{
    (parent->appendChild(std::move(children)), ...);
    return parent;
}

template <std::size_t... Types>
std::vector<CompoundPtr> makeOperators(std::index_sequence<Types...> /*types*/)
{
    std::vector<CompoundPtr> operators;
    (operators.push_back(std::make_unique<Tree::BinaryOp<static_cast<Tree::BinaryOpType>(Types)>>()), ...);
    return operators;
}

/// One of each kind that has operands or arguments below it: all compound kinds but the array.
inline std::vector<CompoundPtr> makeCompoundNodes()
{
    std::vector<CompoundPtr> nodes = makeOperators(std::make_index_sequence<14>());
    nodes.push_back(std::make_unique<Tree::UnaryOp<Tree::UnaryPlus>>());
    nodes.push_back(std::make_unique<Tree::UnaryOp<Tree::UnaryMinus>>());
    nodes.push_back(std::make_unique<Tree::UnaryOp<Tree::Percent>>());
    nodes.push_back(std::make_unique<Tree::FunctionCall>("SUM"));
    nodes.push_back(std::make_unique<Tree::ArgumentsList>());
    return nodes;
}

/// One of each kind that refers to nothing and has nothing below it.
inline std::vector<ExprPtr> makeConstantNodes(const std::string& text)
{
    std::vector<ExprPtr> nodes;
    nodes.push_back(std::make_unique<Tree::String>(text));
    nodes.push_back(std::make_unique<Tree::Number>(1));
    nodes.push_back(std::make_unique<Tree::Bool>(true));
    nodes.push_back(std::make_unique<Tree::Error>(text));
    nodes.push_back(std::make_unique<Tree::Empty>());
    return nodes;
}

/// A tree of any shape from a number, always the same.
class RandomTree
{
public:
    /// @param makeReference called for each reference in the order in which a walk meets it, with whether an
    ///     array stands above it, and a random number
    RandomTree(unsigned seed, std::function<ExprPtr(bool isInArray, unsigned random)> makeReference)
        : _random(seed)
        , _makeReference(std::move(makeReference))
    {
    }

    ExprPtr make(int depth = 5, bool isInArray = false)
    {
        const unsigned kind = pick(10);
        if (depth == 0 || kind < 3)
            return _makeReference(isInArray, pick(1000));
        if (kind == 3)
            return std::move(makeConstantNodes("Sheet1").at(pick(5)));
        CompoundPtr node;
        if (kind == 4)
            node = std::make_unique<Tree::Array>(1);
        else
            node = std::move(makeCompoundNodes().at(pick(19)));
        for (unsigned i = pick(4); i > 0; --i)
            node->appendChild(make(depth - 1, isInArray || kind == 4));
        return node;
    }

private:
    unsigned pick(unsigned count) { return static_cast<unsigned>(_random()) % count; }

    std::mt19937 _random;
    std::function<ExprPtr(bool isInArray, unsigned random)> _makeReference;
};

/// A formula of very many operators, each below the one before.
inline ExprPtr makeDeepTree(ExprPtr leaf, int levels)
{
    for (int i = 0; i < levels; ++i)
        leaf = std::make_unique<Tree::UnaryOp<Tree::UnaryMinus>>(std::move(leaf));
    return leaf;
}

} // namespace QV::Tests
