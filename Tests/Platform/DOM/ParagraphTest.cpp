#include <DOM/Public/Paragraph.h>

#include <cstddef>
#include <memory>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include <DOM/Public/Hyperlink.h>
#include <DOM/Public/NumberingRef.h>
#include <DOM/Public/Run.h>

namespace QV::DOM {
namespace {

class KindsCollector final : public RunVisitor
{
public:
    void visit(const TextRun&) override { kinds += 'x'; }
    void visit(const TabRun&) override { kinds += 't'; }
    void visit(const BreakRun& run) override { kinds += "bcp"[static_cast<std::size_t>(run.getKind())]; }
    void visit(const DrawingRun&) override { kinds += 'D'; }
    void visit(const BookmarkRun&) override { kinds += 'K'; }
    void visit(const FieldRun&) override { kinds += 'F'; }
    void visit(const AnchorRun&) override { kinds += 'N'; }

    std::string kinds;
};

TEST(Paragraph, HandsEachKindOfRunToItsVisitor)
{
    Paragraph paragraph;
    paragraph.appendText("a\tb\nc");
    paragraph.appendRun(std::make_unique<BookmarkRun>(BookmarkRun::Kind::Start, "here"));
    paragraph.appendRun(std::make_unique<FieldRun>("PAGE", "12"));
    paragraph.appendRun(std::make_unique<AnchorRun>(UUID(1, 1)));
    paragraph.appendRun(std::make_unique<DrawingRun>(nullptr));
    paragraph.appendRun(std::make_unique<BookmarkRun>(BookmarkRun::Kind::End, "here"));
    KindsCollector collector;
    for (const DOM::Run& run : paragraph.getRuns())
        run.accept(collector);
    EXPECT_EQ(collector.kinds, "xtxbxKFNDK");
    EXPECT_EQ(paragraph.getPlainText(), "a\tb\nc12");
}

TEST(Paragraph, BreaksOfEachKindAreALineFeed)
{
    RunStyle style;
    style.setParentUUID(UUID(1, 1));
    const SharedRunStyle shared(new RunStyle(style));
    Paragraph paragraph;
    paragraph.appendRun(std::make_unique<BreakRun>());
    paragraph.appendRun(std::make_unique<BreakRun>(BreakRun::Kind::Column));
    paragraph.appendRun(std::make_unique<BreakRun>(BreakRun::Kind::Page, shared));
    paragraph.appendRun(std::make_unique<BreakRun>(shared));
    KindsCollector collector;
    for (const DOM::Run& run : paragraph.getRuns())
        run.accept(collector);
    EXPECT_EQ(collector.kinds, "bcpb");
    EXPECT_EQ(paragraph.getPlainText(), "\n\n\n\n");
    EXPECT_EQ(paragraph.getRuns()[1].getSharedStyle(), nullptr);
    EXPECT_EQ(paragraph.getRuns()[2].getSharedStyle(), shared);
    EXPECT_EQ(paragraph.getRuns()[3].getSharedStyle(), shared);
}

TEST(Paragraph, IsInNoListUntilItIsPutThere)
{
    Paragraph paragraph;
    EXPECT_EQ(paragraph.getNumRef(), nullptr);
    auto reference = std::make_unique<NumberingRef>();
    const NumberingRef* const kept = reference.get();
    paragraph.setNumRef(std::move(reference));
    EXPECT_EQ(paragraph.getNumRef().get(), kept);
    paragraph.getNumRef()->setLevel(2UL);
    const Paragraph& constant = paragraph;
    ASSERT_TRUE(constant.getNumRef()->getLevel());
    EXPECT_EQ(*constant.getNumRef()->getLevel(), 2U);
}

TEST(Paragraph, HasEmptyStylesUntilItGetsOthers)
{
    Paragraph paragraph;
    EXPECT_TRUE(paragraph.getStyle().isEmpty());
    EXPECT_EQ(paragraph.getSharedStyle(), nullptr);
    EXPECT_TRUE(paragraph.getParaMarkStyle().isEmpty());
    EXPECT_EQ(paragraph.getSharedParaMarkStyle(), nullptr);

    ParagraphStyle style;
    style.setParentUUID(UUID(1, 1));
    paragraph.setStyle(style);
    EXPECT_EQ(paragraph.getStyle(), style);
    Paragraph other;
    other.setSharedStyle(paragraph.getSharedStyle());
    EXPECT_EQ(&other.getStyle(), &paragraph.getStyle());

    RunStyle mark;
    mark.setHyperlink(std::make_shared<Hyperlink>("u"));
    const SharedRunStyle shared(new RunStyle(mark));
    paragraph.setSharedParaMarkStyle(shared);
    EXPECT_EQ(&paragraph.getParaMarkStyle(), shared.get());
}

} // namespace
} // namespace QV::DOM
