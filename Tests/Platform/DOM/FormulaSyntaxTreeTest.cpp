#include <DOM/Public/FormulaSyntaxTree.h>

#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <boost/variant/get.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/Formula.h>
#include <Tests/Support/RecordedAssertions.h>
#include <Utils/Public/Visitor.h>

namespace QV::DOM::FormulaSyntaxTree {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Tests::RecordedAssertions;

constexpr int DeepLevels = 100000;

// The number that a kind has in the list of kinds.
template <typename Kind, typename List>
struct PlaceIn;
template <typename Kind, typename... Rest>
struct PlaceIn<Kind, TypeList<Kind, Rest...>> : std::integral_constant<int, 0>
{
};
template <typename Kind, typename First, typename... Rest>
struct PlaceIn<Kind, TypeList<First, Rest...>>
    : std::integral_constant<int, 1 + PlaceIn<Kind, TypeList<Rest...>>::value>
{
};

template <typename Kind>
constexpr int PlaceOf = PlaceIn<Kind, Expr::Kinds>::value;

template <int Value>
using Unary = UnaryOp<static_cast<UnaryOpType>(Value)>;
template <int Value>
using Binary = BinaryOp<static_cast<BinaryOpType>(Value)>;

// Callers elsewhere were built with this order.
static_assert(std::is_same_v<Expr::Kinds,
    TypeList<String, Number, Label, Bool, Error, Empty, CellAddress, CellRange, Unary<0>, Unary<1>, Unary<2>,
        Binary<0>, Binary<1>, Binary<2>, Binary<3>, Binary<4>, Binary<5>, Binary<6>, Binary<7>, Binary<8>,
        Binary<9>, Binary<10>, Binary<11>, FunctionCall, Array, Binary<12>, Binary<13>, ArgumentsList>>);
static_assert(std::is_same_v<TableAddress, boost::variant<std::string, QV::UUID>>);
static_assert(RowAxis::Max.get() == 1048575 && ColumnAxis::Max.get() == 16383);

struct PlaceTeller
{
    template <typename Kind>
    int operator()(const Kind&) const
    {
        return PlaceOf<Kind>;
    }
};

std::unique_ptr<Expr> makeNumber(double value)
{
    return std::make_unique<Number>(value);
}

std::unique_ptr<Expr> makeCell(const std::string& table, unsigned long column, unsigned long row)
{
    return std::make_unique<CellAddress>(
        EmptyDocumentAddress, table, ColumnAxisIndex(ColumnIndex(column), true), RowAxisIndex(RowIndex(row)));
}

// SUM(Sheet1!$A1,-2%)+{1,2}
std::unique_ptr<Expr> makeTree()
{
    auto call = std::make_unique<FunctionCall>("SUM");
    call->appendChild(makeCell("Sheet1", 0, 0));
    call->appendChild(
        std::make_unique<UnaryOp<UnaryMinus>>(std::make_unique<UnaryOp<Percent>>(makeNumber(2))));
    auto array = std::make_unique<Array>(2);
    array->appendChild(makeNumber(1));
    array->appendChild(makeNumber(2));
    return std::make_unique<BinaryOp<Add>>(std::move(call), std::move(array));
}

std::unique_ptr<Expr> makeDeepTree(int levels)
{
    std::unique_ptr<Expr> tree = makeNumber(1);
    for (int i = 0; i < levels; ++i)
        tree = std::make_unique<UnaryOp<UnaryMinus>>(std::move(tree));
    return tree;
}

std::vector<int> listPlaces(const Expr& root)
{
    std::vector<int> places;
    for (const Expr* node : toExprStack(root))
        places.push_back(applyVisitor(PlaceTeller(), *node));
    return places;
}

TEST(ToExprStack, ListsEachNodeOnceFromTheRootAndFromTheLeft)
{
    EXPECT_THAT(listPlaces(*makeTree()),
        ElementsAre(PlaceOf<BinaryOp<Add>>, PlaceOf<FunctionCall>, PlaceOf<CellAddress>,
            PlaceOf<UnaryOp<UnaryMinus>>, PlaceOf<UnaryOp<Percent>>, PlaceOf<Number>, PlaceOf<Array>,
            PlaceOf<Number>, PlaceOf<Number>));
}

TEST(ToExprStack, ALeafIsItsOwnList)
{
    Number number(1);
    EXPECT_THAT(toExprStack(static_cast<Expr&>(number)), ElementsAre(&number));
}

TEST(ToExprStack, GivesNodesToChange)
{
    const std::unique_ptr<Expr> tree = makeTree();
    for (Expr* node : toExprStack(*tree))
        visitNode(
            *node, [](CellAddress& cell) { cell.setTableAddress(UUID(1, 2)); }, [](Expr&) {});
    const auto& cell = dynamic_cast<const CellAddress&>(*tree->getChildren()[0]->getChildren()[0]);
    EXPECT_EQ(boost::get<UUID>(cell.getTableAddress()), UUID(1, 2));
}

int placeOf(const Expr& node)
{
    return applyVisitor(PlaceTeller(), node);
}

TEST(Expr, EveryKindIsVisitedAsItself)
{
    EXPECT_EQ(placeOf(String("a")), 0);
    EXPECT_EQ(placeOf(Label(EmptyDocumentAddress, "Sheet1", "Rate")), 2);
    EXPECT_EQ(placeOf(Bool(true)), 3);
    EXPECT_EQ(placeOf(Error("#REF!")), 4);
    EXPECT_EQ(placeOf(Empty()), 5);
    EXPECT_EQ(
        placeOf(CellRange(EmptyDocumentAddress, "", "", ColumnAxis::makeWhole(), RowAxis::makeWhole())), 7);
    EXPECT_EQ(placeOf(BinaryOp<RangeOp>()), 25);
    EXPECT_EQ(placeOf(BinaryOp<Intersection>()), 26);
    EXPECT_EQ(placeOf(ArgumentsList()), 27);
}

TEST(Expr, ReferencesShareWhatTellsTheDocument)
{
    const auto urlOf = [](const Expr& node) {
        return visitNode(
            node, [](const BaseReferenceExpr& reference) { return reference.getDocURL(); },
            [](const Expr&) { return std::string("none"); });
    };
    EXPECT_EQ(urlOf(Label(DocumentAddress("b.xlsx"), "", "Rate")), "b.xlsx");
    EXPECT_EQ(urlOf(CellAddress(DocumentAddress("c.xlsx"), "", {}, {})), "c.xlsx");
    EXPECT_EQ(urlOf(*makeCell("Sheet1", 0, 0)), "");
    EXPECT_EQ(urlOf(Number(1)), "none");
}

TEST(Expr, CopiesAreDeepAndEqual)
{
    const std::unique_ptr<Expr> tree = makeTree();
    const std::unique_ptr<Expr> copy = tree->clone();
    EXPECT_EQ(*tree, *copy);
    EXPECT_EQ(listPlaces(*tree), listPlaces(*copy));
    dynamic_cast<CellAddress&>(*copy->getChildren()[0]->getChildren()[0]).setTableAddress(std::string("B"));
    EXPECT_NE(*tree, *copy);
    EXPECT_EQ(*tree, *makeTree());
}

struct ComparedRow
{
    const char* name;
    std::unique_ptr<Expr> (*make)();
};

// No two of them are equal.
const ComparedRow ComparedRows[] = {
    {"Number",      [] { return makeNumber(1); }                                                 },
    {"Other",       [] { return makeNumber(2); }                                                 },
    {"Text",        []() -> std::unique_ptr<Expr> { return std::make_unique<String>("1"); }      },
    {"Error",       []() -> std::unique_ptr<Expr> { return std::make_unique<Error>("1"); }       },
    {"True",        []() -> std::unique_ptr<Expr> { return std::make_unique<Bool>(true); }       },
    {"False",       []() -> std::unique_ptr<Expr> { return std::make_unique<Bool>(false); }      },
    {"Nothing",     []() -> std::unique_ptr<Expr> { return std::make_unique<Empty>(); }          },
    {"Call",        []() -> std::unique_ptr<Expr> { return std::make_unique<FunctionCall>("A"); }},
    {"OtherCall",   []() -> std::unique_ptr<Expr> { return std::make_unique<FunctionCall>("B"); }},
    {"Narrow",      []() -> std::unique_ptr<Expr> { return std::make_unique<Array>(1); }         },
    {"Wide",        []() -> std::unique_ptr<Expr> { return std::make_unique<Array>(2); }         },
    {"List",        []() -> std::unique_ptr<Expr> { return std::make_unique<ArgumentsList>(); }  },
    {"Cell",        [] { return makeCell("A", 0, 0); }                                           },
    {"OtherTable",  [] { return makeCell("B", 0, 0); }                                           },
    {"OtherRow",    [] { return makeCell("A", 0, 1); }                                           },
    {"OtherColumn", [] { return makeCell("A", 1, 0); }                                           },
    {"Minus",       [] { return makeDeepTree(1); }                                               },
    {"MinusMinus",  [] { return makeDeepTree(2); }                                               },
    {"Tree",        [] { return makeTree(); }                                                    },
};

TEST(Expr, DiffersByKindValueAndChildren)
{
    for (const ComparedRow& a : ComparedRows)
        for (const ComparedRow& b : ComparedRows)
            EXPECT_EQ(*a.make() == *b.make(), &a == &b) << a.name << ", " << b.name;
}

TEST(Expr, DeepTreesNeedNoStack)
{
    Formula formula(makeDeepTree(DeepLevels));
    const Formula copy = formula;
    EXPECT_TRUE(copy == formula);
    EXPECT_EQ(toExprStack(formula.getSyntaxTree()).size(), DeepLevels + 1U);
    formula = Formula(makeNumber(1));
    EXPECT_FALSE(copy == formula);
}

TEST(Expr, DeepListsOfListsNeedNoStack)
{
    auto tree = std::make_unique<FunctionCall>("A");
    for (int i = 0; i < DeepLevels; ++i) {
        auto outer = std::make_unique<FunctionCall>("A");
        outer->appendChild(makeNumber(i));
        outer->appendChild(std::move(tree));
        outer->appendChild(makeNumber(i));
        tree = std::move(outer);
    }
    EXPECT_EQ(toExprStack(*tree->clone()).size(), 3U * DeepLevels + 1);
}

TEST(CompoundExpr, LeavesOutANullChild)
{
    const RecordedAssertions recorded;
    ArgumentsList list;
    list.appendChild(nullptr);
    EXPECT_THAT(list.getChildren(), IsEmpty());
    EXPECT_THAT(recorded.getExpressions(), ElementsAre("child"));
}

TEST(CompoundExpr, ChildrenAreReplaced)
{
    FunctionCall call("F");
    call.appendChild(std::make_unique<Number>(1));
    call.appendChild(std::make_unique<Number>(2));
    call.setChild(1, std::make_unique<Bool>(true));
    EXPECT_TRUE(*call.getChildren()[0] == Number(1));
    EXPECT_TRUE(*call.getChildren()[1] == Bool(true));
    const RecordedAssertions recorded;
    call.setChild(0, nullptr);
    call.setChild(2, std::make_unique<Number>(3));
    EXPECT_TRUE(*call.getChildren()[0] == Number(1));
    EXPECT_EQ(call.getChildren().size(), 2U);
    EXPECT_THAT(recorded.getExpressions(), ElementsAre("child", "index < _children.size()"));
}

TEST(Formula, IsTextWhereItWasNotRead)
{
    const Formula formula = Formula::makeUnread("1+");
    EXPECT_EQ(formula.getUnreadText(), "1+");
    EXPECT_EQ(applyVisitor(PlaceTeller(), formula.getSyntaxTree()), PlaceOf<Empty>);
    EXPECT_TRUE(Formula(formula) == formula);
    EXPECT_FALSE(formula == Formula::makeUnread("1-"));
    EXPECT_FALSE(formula == Formula(std::make_unique<Empty>()));
    EXPECT_EQ(Formula(makeTree()).getUnreadText(), "");
}

TEST(Formula, OfAnArrayKnowsItsCells)
{
    Formula formula(makeTree());
    const Formula plain = formula;
    EXPECT_FALSE(formula.getArrayRange());
    formula.setArrayRange(TableRange(0, 0, 2, 3));
    EXPECT_EQ(formula.getArrayRange()->getEndColumn(), 3U);
    EXPECT_TRUE(Formula(formula) == formula);
    EXPECT_FALSE(formula == plain);
}

TEST(Formula, ANullTreeIsAnEmptyArgument)
{
    const RecordedAssertions recorded;
    const Formula formula(nullptr);
    EXPECT_EQ(applyVisitor(PlaceTeller(), formula.getSyntaxTree()), PlaceOf<Empty>);
    EXPECT_THAT(recorded.getExpressions(), ElementsAre("_root"));
}

TEST(Formula, IsAValue)
{
    Formula first(makeTree());
    Formula second = first;
    EXPECT_NE(&first.getSyntaxTree(), &second.getSyntaxTree());
    dynamic_cast<CellAddress&>(*second.getSyntaxTree().getChildren()[0]->getChildren()[0])
        .setTableAddress(std::string("B"));
    EXPECT_FALSE(first == second);
    first = second;
    EXPECT_TRUE(first == second);
    const Formula& self = first;
    first = self;
    EXPECT_TRUE(first == second);
    const Formula moved = std::move(first);
    EXPECT_TRUE(moved == second);
}

} // namespace
} // namespace QV::DOM::FormulaSyntaxTree
