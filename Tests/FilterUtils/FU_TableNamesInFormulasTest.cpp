#include <FilterUtils/FU_TableNamesInFormulas.h>

#include <functional>
#include <map>
#include <memory>
#include <ostream>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <boost/variant/get.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Tests/Support/FormulaNodes.h>
#include <Utils/Public/UUID.h>

namespace QV::FilterUtils {
namespace {

using namespace Tests; // the builders of trees
using testing::ElementsAre;
using testing::ElementsAreArray;

using Resolver = std::function<const UUID*(const std::string&)>;
using Texts = std::vector<std::string>;
using Tree::TableAddress;

// Callers elsewhere were built with these types.
static_assert(std::is_same_v<decltype(replaceTableNamesWithUUIDs), void(Resolver, Tree::Expr&)>);

const UUID First(1, 1);
const UUID Second(2, 2);

/// Knows Sheet1 and Sheet2, and keeps the names that it was asked about.
class Tables
{
public:
    Resolver getResolver()
    {
        return [this](const std::string& name) {
            asked.push_back(name);
            const auto found = _uuids.find(name);
            return found == _uuids.end() ? nullptr : &found->second;
        };
    }

    Texts asked;

private:
    const std::map<std::string, UUID> _uuids = {
        {"Sheet1", First },
        {"Sheet2", Second},
    };
};

struct AddressRow
{
    const char* name;
    TableAddress given;
    TableAddress result;
    bool isAsked;

    Texts getAsked() const { return isAsked ? Texts{boost::get<std::string>(given)} : Texts(); }
};

void PrintTo(const AddressRow& row, std::ostream* out)
{
    *out << row.name;
}

const std::string NoTable;
const std::string Blank = " ";
const std::string Known = "Sheet2";
const std::string Unknown = "Sheet9";
const std::string OtherCase = "sheet1";
const std::string WithNul = {"Sheet1\0", 7};

const AddressRow AddressRows[] = {
    {"Known",      Known,   Second,  true         },
    {"Unknown",    Unknown, Unknown, true         },
    {"NoTable",    NoTable, NoTable, false        },
    {"Identifier", First,   First,   false        },
    {"OtherOne",   UUID(9,  9),      UUID(9,        9), false},
    {"Nil",       UUID(),              UUID(),                 false                 },
    {"Blank",       Blank,              Blank,true},
    {"OtherCase",        OtherCase,               OtherCase,              true                           },
    {"Nul",        WithNul,               WithNul,     true},
};

class ReplaceTableNames : public testing::TestWithParam<AddressRow>
{
};

void expectReplaced(const ExprPtr& given, const ExprPtr& result, const Texts& asked)
{
    Tables tables;
    replaceTableNamesWithUUIDs(tables.getResolver(), *given);
    EXPECT_TRUE(*given == *result);
    EXPECT_THAT(tables.asked, ElementsAreArray(asked));
}

TEST_P(ReplaceTableNames, KeepsRowInCellsAndLabels)
{
    const AddressRow& row = GetParam();
    expectReplaced(makeCellNode(row.given), makeCellNode(row.result), row.getAsked());
    expectReplaced(makeLabelNode(row.given), makeLabelNode(row.result), row.getAsked());
    expectReplaced(makeCellNode(row.given, "1"), makeCellNode(row.result, "1"), row.getAsked());
}

TEST_P(ReplaceTableNames, KeepsRowInBothAddressesOfRanges)
{
    const AddressRow& first = GetParam();
    for (const AddressRow& second : AddressRows) {
        Texts asked = first.getAsked();
        for (const std::string& name : second.getAsked())
            asked.push_back(name);
        expectReplaced(
            makeRangeNode(first.given, second.given), makeRangeNode(first.result, second.result), asked);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, ReplaceTableNames, testing::ValuesIn(AddressRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(ReplaceTableNames, LeavesConstantsAndFunctionsAlone)
{
    for (const ExprPtr& node : makeConstantNodes("Sheet1"))
        expectReplaced(node->clone(), node, {});
    expectReplaced(
        std::make_unique<Tree::FunctionCall>("Sheet1"), std::make_unique<Tree::FunctionCall>("Sheet1"), {});
    expectReplaced(std::make_unique<Tree::Label>(Tree::EmptyDocumentAddress, std::string(), "Sheet1"),
        std::make_unique<Tree::Label>(Tree::EmptyDocumentAddress, std::string(), "Sheet1"), {});
}

TEST(ReplaceTableNames, ReachesBelowEveryKind)
{
    std::vector<CompoundPtr> compounds = makeCompoundNodes();
    compounds.push_back(std::make_unique<Tree::Array>(2));
    EXPECT_EQ(compounds.size(), 20U);
    for (CompoundPtr& node : compounds) {
        const ExprPtr plain = node->clone();
        const ExprPtr root = putBelow(
            std::move(node), makeCellNode(std::string("Sheet1")), makeLabelNode(std::string("Sheet2")));
        auto* const expected = static_cast<Tree::CompoundExpr*>(plain.get());
        expected->appendChild(makeCellNode(First));
        expected->appendChild(makeLabelNode(Second));
        expectReplaced(root, plain, {"Sheet1", "Sheet2"});
    }
}

TEST(ReplaceTableNames, GoesFromTheRootAndFromTheLeft)
{
    const ExprPtr root = putBelow(std::make_unique<Tree::BinaryOp<Tree::Add>>(),
        putBelow(std::make_unique<Tree::FunctionCall>("SUM"), makeCellNode(std::string("a")),
            makeRangeNode(std::string("b"), std::string("c"))),
        putBelow(std::make_unique<Tree::UnaryOp<Tree::Percent>>(), makeLabelNode(std::string("d"))));
    Tables tables;
    replaceTableNamesWithUUIDs(tables.getResolver(), *root);
    EXPECT_THAT(tables.asked, ElementsAre("a", "b", "c", "d"));
}

// The same tree made with the addresses that the replacement gives is the model to compare with.
TEST(ReplaceTableNames, AgreesWithTreesMadeOfIdentifiers)
{
    const auto makeTree = [](unsigned seed, bool isReplaced, Texts& names) {
        const auto makeAddress = [&, isReplaced](unsigned random) -> TableAddress {
            const std::string name = random % 4 == 0 ? "" : "Sheet" + std::to_string(random % 4);
            if (!name.empty())
                names.push_back(name);
            if (isReplaced && name == "Sheet1")
                return First;
            return isReplaced && name == "Sheet2" ? TableAddress(Second) : TableAddress(name);
        };
        return RandomTree(seed, [makeAddress](bool, unsigned random) {
            if (random % 3 == 0)
                return makeCellNode(makeAddress(random / 3));
            if (random % 3 == 1)
                return makeLabelNode(makeAddress(random / 3));
            const TableAddress first = makeAddress(random / 3);
            return makeRangeNode(first, makeAddress(random / 12));
        }).make();
    };
    for (unsigned seed = 0; seed < 500; ++seed) {
        Texts names;
        Texts ignored;
        const ExprPtr tree = makeTree(seed, false, names);
        Tables tables;
        replaceTableNamesWithUUIDs(tables.getResolver(), *tree);
        ASSERT_TRUE(*tree == *makeTree(seed, true, ignored)) << seed;
        ASSERT_EQ(tables.asked, names) << seed;
    }
}

TEST(ReplaceTableNames, TheIdentifierIsCopiedAtOnce)
{
    UUID given;
    const ExprPtr root = putBelow(std::make_unique<Tree::ArgumentsList>(), makeCellNode(std::string("a")),
        makeCellNode(std::string("b")));
    replaceTableNamesWithUUIDs(
        [&](const std::string& name) {
            given = name == "a" ? First : Second;
            return &given;
        },
        *root);
    given = UUID();
    EXPECT_TRUE(*root->getChildren()[0] == *makeCellNode(First));
    EXPECT_TRUE(*root->getChildren()[1] == *makeCellNode(Second));
}

TEST(ReplaceTableNames, WhatTheResolverThrowsLeavesEarlierNodesChanged)
{
    const ExprPtr root =
        putBelow(std::make_unique<Tree::ArgumentsList>(), makeCellNode(std::string("Sheet1")),
            makeRangeNode(std::string("Sheet2"), std::string("harm")), makeCellNode(std::string("Sheet1")));
    const Resolver resolver = [](const std::string& name) -> const UUID* {
        if (name == "harm")
            throw std::range_error(name);
        return name == "Sheet1" ? &First : &Second;
    };
    EXPECT_THROW(replaceTableNamesWithUUIDs(resolver, *root), std::range_error);
    EXPECT_TRUE(*root->getChildren()[0] == *makeCellNode(First));
    EXPECT_TRUE(*root->getChildren()[1] == *makeRangeNode(Second, std::string("harm")));
    EXPECT_TRUE(*root->getChildren()[2] == *makeCellNode(std::string("Sheet1")));
}

TEST(ReplaceTableNames, AnEmptyResolverThrowsAtTheFirstName)
{
    const ExprPtr nameless = putBelow(std::make_unique<Tree::ArgumentsList>(), makeCellNode(std::string()),
        makeRangeNode(First, std::string()), makeLabelNode(Second), std::make_unique<Tree::Number>(1));
    EXPECT_NO_THROW(replaceTableNamesWithUUIDs(Resolver(), *nameless));
    for (const ExprPtr& named : {makeCellNode(std::string("a")), makeLabelNode(std::string("a")),
             makeRangeNode(std::string("a"), std::string()), makeRangeNode(First, std::string("a"))}) {
        const ExprPtr before = named->clone();
        EXPECT_THROW(replaceTableNamesWithUUIDs(Resolver(), *named), std::bad_function_call);
        EXPECT_TRUE(*named == *before);
    }
}

TEST(ReplaceTableNames, DepthCostsNoStack)
{
    const ExprPtr root = makeDeepTree(makeCellNode(std::string("Sheet1")), 200000);
    Tables tables;
    replaceTableNamesWithUUIDs(tables.getResolver(), *root);
    EXPECT_THAT(tables.asked, ElementsAre("Sheet1"));
}

} // namespace
} // namespace QV::FilterUtils
