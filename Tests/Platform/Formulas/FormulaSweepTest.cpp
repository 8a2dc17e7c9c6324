// Generated trees and texts: what is printed reads back to the same.

#include <Formulas/Public/FormulaText.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <memory>
#include <random>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include <DOM/Public/FormulaSyntaxTree.h>
#include <Formulas/Public/TableContext.h>
#include <Tests/Support/FormulaTrees.h>
#include <Utils/Public/Ptr/PtrUtils.h>

namespace QV::Formulas {
namespace {

using namespace DOM::FormulaSyntaxTree;
using Tests::describeTree;
using ExprPtr = std::unique_ptr<Expr>;

/// Makes trees that a text could have given: no lists of nothing, and no calls of one empty argument.
class TreeMaker
{
public:
    explicit TreeMaker(unsigned seed)
        : _random(seed)
    {
    }

    ExprPtr make(int depth)
    {
        switch (depth == 0 ? 0 : pick(12)) {
        case 0:
        case 1:
            return makeLeaf();
        case 2:
            return makeCompound<FunctionCall>(
                depth, pick(4), true, Names[pick(std::size(Names))] + std::string("F"));
        case 3:
            return makeCompound<ArgumentsList>(depth, pick(3) + 1, false);
        case 4:
            return makeArray();
        case 5:
            return makeUnary(depth);
        default:
            return makeBinary(depth);
        }
    }

private:
    static constexpr const char* Names[] = {"A", "XFD", "R", "Rate", "TRUE.", "_x", "Sheet1"};
    static constexpr const char* Tables[] = {
        "", "", "", "Sheet1", "My sheet", "It's", "A", "A1", "R1C1", "2019"};
    static constexpr const char* Documents[] = {"", "", "", "", "1", "b.xlsx", "file:///a b/c.xlsx"};

    std::size_t pick(std::size_t count) { return _random() % count; }

    template <typename Kind, typename... Arguments>
    ExprPtr makeCompound(int depth, std::size_t count, bool canBeEmpty, Arguments... arguments)
    {
        auto node = std::make_unique<Kind>(arguments...);
        for (std::size_t i = 0; i < count; ++i)
            node->appendChild(
                canBeEmpty && count > 1 && pick(5) == 0 ? std::make_unique<Empty>() : make(depth - 1));
        return node;
    }

    template <std::size_t... Types>
    ExprPtr makeBinary(int depth, std::index_sequence<Types...>)
    {
        ExprPtr (*const makers[])(ExprPtr, ExprPtr) = {[](ExprPtr a, ExprPtr b) -> ExprPtr {
            return std::make_unique<BinaryOp<static_cast<BinaryOpType>(Types)>>(std::move(a), std::move(b));
        }...};
        ExprPtr left = make(depth - 1);
        // References are in need of more care than the others.
        return makers[pick(2) == 0 ? RangeOp + pick(2) : pick(sizeof...(Types))](
            std::move(left), make(depth - 1));
    }
    ExprPtr makeBinary(int depth) { return makeBinary(depth, std::make_index_sequence<14>()); }

    ExprPtr makeUnary(int depth)
    {
        ExprPtr operand = make(depth - 1);
        switch (pick(3)) {
        case 0:
            return std::make_unique<UnaryOp<UnaryPlus>>(std::move(operand));
        case 1:
            return std::make_unique<UnaryOp<UnaryMinus>>(std::move(operand));
        default:
            return std::make_unique<UnaryOp<Percent>>(std::move(operand));
        }
    }

    ExprPtr makeArray()
    {
        const std::size_t columns = pick(3) + 1;
        auto array = std::make_unique<Array>(columns);
        for (std::size_t i = columns * (pick(3) + 1); i > 0; --i)
            array->appendChild(pick(2) == 0 ? std::make_unique<Number>(-makeNumber()) : makeConstant());
        return array;
    }

    double makeNumber()
    {
        return std::ldexp(static_cast<double>(_random()), static_cast<int>(pick(200)) - 100) + 1e-200;
    }

    ExprPtr makeConstant()
    {
        switch (pick(4)) {
        case 0:
            return std::make_unique<Number>(makeNumber());
        case 1:
            return std::make_unique<Bool>(pick(2) == 0);
        case 2:
            return std::make_unique<String>(pick(2) == 0 ? "a\"b" : "',;");
        default:
            return std::make_unique<Error>(pick(2) == 0 ? "#REF!" : "#N/A");
        }
    }

    ExprPtr makeLeaf()
    {
        const DocumentAddress document(Documents[pick(std::size(Documents))]);
        const std::string table = Tables[pick(std::size(Tables))];
        const ColumnAxisIndex column(ColumnIndex(pick(3)), pick(4) == 0);
        const RowAxisIndex row(RowIndex(pick(3)), pick(4) == 0);
        switch (pick(6)) {
        case 0:
            return makeConstant();
        case 1: // a document has tables or names
            return std::make_unique<CellAddress>(
                table.empty() ? EmptyDocumentAddress : document, table, column, row);
        case 2:
            return std::make_unique<CellRange>(table.empty() ? EmptyDocumentAddress : document, table,
                table.empty() || pick(2) == 0 ? "" : "Sheet3",
                pick(3) == 0 ? ColumnAxis::makeWhole() : ColumnAxis(column, column), RowAxis(row, row));
        case 3:
            return std::make_unique<CellRange>(
                EmptyDocumentAddress, table, std::string(), ColumnAxis(column, column), RowAxis::makeWhole());
        case 4:
            return std::make_unique<Label>(EmptyDocumentAddress, std::string(), "T[[a],[b]]");
        default:
            return std::make_unique<Label>(document, table, Names[pick(std::size(Names))]);
        }
    }

    std::mt19937 _random;
};

TEST(FormulaSweep, ReadsTreesThatItPrints)
{
    constexpr unsigned TreesCount = 20000;
    const TableContext context;
    std::size_t longest = 0;
    for (unsigned i = 0; i < TreesCount; ++i) {
        const DOM::Formula formula(TreeMaker(i).make(static_cast<int>(i % 6)));
        const std::string text = toText(formula, context);
        const auto parsed = parseFormula(text);
        ASSERT_TRUE(parsed) << text << " of " << describeTree(formula);
        ASSERT_TRUE(parsed->formula == formula)
            << text << " of " << describeTree(formula) << " gave " << describeTree(parsed->formula);
        ASSERT_EQ(toText(parsed->formula, context), text);
        longest = std::max(longest, text.size());
    }
    EXPECT_GT(longest, 300U);
}

// Parentheses that a printed text has are needed: without any pair of them the tree is another one.
TEST(FormulaSweep, PrintsNoParenthesesWithoutNeed)
{
    constexpr unsigned TreesCount = 20000;
    const TableContext context;
    unsigned pairs = 0;
    for (unsigned i = 0; i < TreesCount; ++i) {
        const DOM::Formula formula(TreeMaker(i).make(2));
        const std::string text = toText(formula, context);
        for (std::size_t open = text.find('('); open != std::string::npos; open = text.find('(', open + 1)) {
            std::size_t close = open;
            for (int depth = 0; close < text.size(); ++close)
                if ((depth += text[close] == '(' ? 1 : text[close] == ')' ? -1 : 0) == 0)
                    break;
            if (close == text.size())
                continue;
            if (close == text.size() - 1 && open == 0 && isExactly<ArgumentsList>(formula.getSyntaxTree()))
                continue; // a list is read without them, too
            std::string without = text;
            without.erase(close, 1).erase(open, 1);
            const auto parsed = parseFormula(without);
            EXPECT_FALSE(parsed && parsed->formula == formula) << text;
            ++pairs;
        }
    }
    EXPECT_GT(pairs, TreesCount / 10);
}

const char* const Pieces[] = {"A1", "$B$2", "A", "1", "2.5", "1:2", "A:B", "Rate", "F(", "F(", ")", ")", "(",
    "(", "+", "-", "*", "/", "^", "&", "=", "<>", "<", ">=", "%", ":", ":", " ", " ", ",", ",", "\"a\"", "\"",
    "TRUE", "#REF!", "#N/A", "{1,2}", "{", "}", ";", "Sheet1!", "'a b'!", "[1]", "T[a]", "[", "]", "'", "!",
    "@", "#", "\n", "\xC3\xA4", "."};

TEST(FormulaSweep, PrintsTextsStably)
{
    constexpr int TextsCount = 60000;
    constexpr unsigned MaxPieces = 9;
    const TableContext context;
    std::mt19937 random(7); // always the same texts
    int accepted = 0;
    for (int i = 0; i < TextsCount; ++i) {
        std::string text;
        for (auto count = random() % MaxPieces + 1; count > 0; --count)
            text += Pieces[random() % std::size(Pieces)];
        const auto parsed = parseFormula(text);
        if (!parsed)
            continue;
        ++accepted;
        const std::string printed = toText(parsed->formula, context);
        const auto again = parseFormula(printed);
        ASSERT_TRUE(again) << text << " printed as " << printed;
        ASSERT_TRUE(again->formula == parsed->formula)
            << text << " printed as " << printed << ": " << describeTree(parsed->formula);
        ASSERT_EQ(toText(again->formula, context), printed) << text;
    }
    EXPECT_GT(accepted, TextsCount / 50);
}

std::string repeat(const std::string& piece, std::size_t count)
{
    std::string text;
    for (std::size_t i = 0; i < count; ++i)
        text += piece;
    return text;
}

TEST(FormulaDepth, IsOfNoConcern)
{
    constexpr std::size_t Depth = 100000;
    constexpr std::size_t Less = 20000; // where there is more to each level
    const TableContext context;
    const std::string texts[] = {
        repeat("(", Depth) + "1" + repeat(")", Depth),
        repeat("-", Depth) + "1",
        "1" + repeat("%", Depth),
        repeat("F(", Depth) + repeat(")", Depth),
        repeat("1+", Depth) + "1",
        repeat("2^(", Less) + "1^1" + repeat(")", Less),
        repeat("F():", Less) + "F()",
        repeat("(A1,", Less) + "B2" + repeat(")", Less),
        repeat("IF(A1,\"a\",-(", Less) + "1%" + repeat("))", Less),
        "F(" + repeat(",", Depth) + ")",
        "{" + repeat("1;", Depth) + "1}",
    };
    for (const std::string& text : texts) {
        const auto parsed = parseFormula(text);
        ASSERT_TRUE(parsed) << text.substr(0, 20);
        const DOM::Formula copy = parsed->formula;
        EXPECT_TRUE(copy == parsed->formula);
        EXPECT_EQ(toText(copy, context), text) << text.substr(0, 20);
    }
    for (const char* open : {"(", "F(", "-", "1+", "{", "[", "'", "@(", "A1:", "1,", "A:'", "[1]", "#"})
        EXPECT_FALSE(parseFormula(repeat(open, Depth))) << open;
}

} // namespace
} // namespace QV::Formulas
