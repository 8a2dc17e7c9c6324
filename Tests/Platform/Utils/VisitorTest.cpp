#include <Utils/Public/Visitor.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Tests/Support/RecordedAssertions.h>

namespace QV {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Tests::RecordedAssertions;

struct Text;
struct Tab;
template <int Number>
struct Break;

struct Piece
{
    using Kinds = TypeList<Text, Tab, Break<0>, Break<1>>;

    virtual ~Piece() = default;
    virtual void accept(Visitor<Piece, Kinds>& visitor) = 0;
    virtual void accept(Visitor<const Piece, Kinds>& visitor) const = 0;
};

struct Text : Visitable<Text, Piece>
{
    explicit Text(std::string value)
        : text(std::move(value))
    {
    }
    std::string text;
};

struct Tab : Visitable<Tab, Piece>
{
};

template <int Number>
struct Break : Visitable<Break<Number>, Piece>
{
};

std::vector<std::unique_ptr<Piece>> makePieces()
{
    std::vector<std::unique_ptr<Piece>> pieces;
    pieces.push_back(std::make_unique<Text>("abc"));
    pieces.push_back(std::make_unique<Tab>());
    pieces.push_back(std::make_unique<Break<0>>());
    pieces.push_back(std::make_unique<Break<1>>());
    return pieces;
}

struct Namer
{
    std::string operator()(const Text& text) const { return text.text; }
    const char* operator()(const Tab&) const { return "tab"; } // converts to what Text gives
    template <int Number>
    std::string operator()(const Break<Number>&) const
    {
        return "break" + std::to_string(Number);
    }
};

struct Shortener
{
    template <typename Kind>
    void operator()(Kind&)
    {
        ++othersCount;
    }
    void operator()(Text& text) { text.text.pop_back(); }

    int othersCount = 0;
};

// A piece whose accept operation forgets to call the visitor.
struct DeafPiece : Piece
{
    void accept(Visitor<Piece, Kinds>&) override {}
    void accept(Visitor<const Piece, Kinds>&) const override {}
};

TEST(ApplyVisitor, ChoosesByTheKindOfTheNode)
{
    std::vector<std::string> names;
    for (const std::unique_ptr<Piece>& piece : makePieces())
        names.push_back(applyVisitor(Namer(), static_cast<const Piece&>(*piece)));
    EXPECT_THAT(names, ElementsAre("abc", "tab", "break0", "break1"));
}

TEST(ApplyVisitor, TakesNodesOfAKnownKind)
{
    const Text text("xyz");
    Tab tab;
    EXPECT_EQ(applyVisitor(Namer(), text), "xyz");
    EXPECT_EQ(applyVisitor(Namer(), tab), "tab");
}

TEST(ApplyVisitor, ChangesNodesAndItself)
{
    Shortener shortener;
    const auto pieces = makePieces();
    for (const std::unique_ptr<Piece>& piece : pieces)
        applyVisitor(shortener, *piece);
    EXPECT_EQ(applyVisitor(Namer(), *pieces[0]), "ab");
    EXPECT_EQ(shortener.othersCount, 3);
}

TEST(ApplyVisitor, LetsExceptionsPass)
{
    Text text("");
    const auto fail = [](auto&) -> int { throw std::runtime_error("unreadable"); };
    EXPECT_THROW(applyVisitor(fail, text), std::runtime_error);
}

TEST(ApplyVisitor, TellsAVisitThatDidNotHappen)
{
    const DeafPiece deaf;
    const RecordedAssertions recorded;
    EXPECT_EQ(applyVisitor(Namer(), static_cast<const Piece&>(deaf)), "");
    EXPECT_THAT(recorded.getExpressions(), ElementsAre("result"));
}

TEST(VisitNode, ChoosesTheFunctionOfTheKind)
{
    std::string all;
    for (const std::unique_ptr<Piece>& piece : makePieces())
        visitNode(
            static_cast<const Piece&>(*piece), [&](const Text& text) { all += text.text; },
            [&](const Tab&) { all += '\t'; }, [&](const auto&) { all += '\n'; });
    EXPECT_EQ(all, "abc\t\n\n");
}

TEST(VisitNode, GivesTheResult)
{
    Tab tab;
    const auto sizeOf = [](const Piece& piece) {
        return visitNode(
            piece, [](const Text& text) { return text.text.size(); },
            [](const auto&) { return std::size_t(1); });
    };
    EXPECT_EQ(sizeOf(Text("four")), 4U);
    EXPECT_EQ(sizeOf(tab), 1U);
}

TEST(StaticVisitorBinder, TellsVisitsBeforeItIsBound)
{
    Shortener shortener;
    StaticVisitorBinder<Piece, Shortener> binder;
    Tab tab;
    Text text("ab");
    {
        const RecordedAssertions recorded;
        tab.accept(binder);
        text.accept(binder);
        EXPECT_THAT(recorded.getExpressions(), ElementsAre("this->staticVisitor", "this->staticVisitor"));
        EXPECT_EQ(text.text, "ab");
    }
    binder.bind(shortener);
    tab.accept(binder);
    text.accept(binder);
    EXPECT_EQ(shortener.othersCount, 1);
    EXPECT_EQ(text.text, "a");
}

TEST(FunctorsBinder, TellsVisitsBeforeItIsBound)
{
    const auto getSize = [](const auto&) { return 8; };
    FunctorsBinder<const Piece, const decltype(getSize)> binder;
    const Tab tab;
    const RecordedAssertions recorded;
    tab.accept(binder);
    EXPECT_EQ(binder.take(), 0);
    EXPECT_THAT(recorded.getExpressions(), ElementsAre("this->functors", "result"));
    binder.bind(getSize);
    tab.accept(binder);
    EXPECT_EQ(binder.take(), 8);
}

// One object that travels through many nodes.
class BreakCounter final : public Visitor<const Piece, Piece::Kinds>
{
public:
    void visit(const Text&) override {}
    void visit(const Tab&) override {}
    void visit(const Break<0>&) override { ++count; }
    void visit(const Break<1>&) override { ++count; }

    int count = 0;
};

TEST(Visitor, IsDerivedFromDirectly)
{
    BreakCounter counter;
    for (const std::unique_ptr<Piece>& piece : makePieces())
        static_cast<const Piece&>(*piece).accept(counter);
    EXPECT_EQ(counter.count, 2);
}

struct Leaf;
struct Twig;

struct Plant
{
    using Kinds = TypeList<Leaf, Twig>;

    virtual ~Plant() = default;
    virtual void accept(Visitor<Plant, Kinds>& visitor) = 0;
    virtual void accept(Visitor<const Plant, Kinds>& visitor) const = 0;
};

struct GreenPlant : Plant
{
    explicit GreenPlant(int value)
        : shade(value)
    {
    }
    int shade;
};

struct Leaf : Visitable<Leaf, Plant, GreenPlant>
{
    using Visitable::Visitable;
};

struct Twig : Visitable<Twig, Plant>
{
};

TEST(Visitable, MayDeriveFromAPartThatKindsShare)
{
    const Leaf leaf(7);
    const Plant& plant = leaf;
    const auto shadeOf = [](const Plant& visited) {
        return visitNode(
            visited, [](const GreenPlant& green) { return green.shade; }, [](const Twig&) { return 0; });
    };
    EXPECT_EQ(shadeOf(plant), 7);
    EXPECT_EQ(shadeOf(Twig()), 0);
}

} // namespace
} // namespace QV
