#include <Filters/Text/TextFormats.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <boost/none.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/NamedTextStyle.h>
#include <DOM/Public/NumberingRef.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/ParagraphStyle.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/RunStyle.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Package.h>
#include <Filters/Text/TextContext.h>
#include <Tests/Support/Printers.h>
#include <Tests/Support/TextPackageBuilder.h>
#include <Utils/Public/OperationReport.h>
#include <Utils/Public/UUID.h>

namespace QV::Filters {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TextFormatsTest : public testing::Test
{
protected:
    TextFormatsTest()
        : package(Package::openBytes(Tests::TextPackageBuilder().make()))
        , context(package, run)
        , formats(context)
        , own(addStyle("Own"))
        , other(addStyle("Other"))
    {
    }

    UUID addStyle(const std::string& id)
    {
        const auto style = context.styles.factory.makeNamedTextStyle(boost::none);
        style->setName("Name of " + id);
        context.styles.textStyleIds[id] = style->getUUID();
        return style->getUUID();
    }

    static std::string makePara(const std::string& content) { return "<w:pPr>" + content + "</w:pPr>"; }
    static std::string makeRun(const std::string& content) { return "<w:rPr>" + content + "</w:rPr>"; }

    std::vector<std::string> listMessages() const
    {
        std::vector<std::string> texts;
        for (const OperationReport::Message& message : run.getReport().getMessages())
            texts.push_back(message.toString());
        return texts;
    }

    FilterRun run;
    Package package;
    TextContext context;
    TextFormats formats;
    UUID own;
    UUID other;
};

TEST_F(TextFormatsTest, NothingIsNull)
{
    for (const std::string& text : {std::string(), makePara(""), makePara("<w:rPr/>")}) {
        const TextFormats::Paragraph& paragraph = formats.getParagraph(text);
        EXPECT_FALSE(paragraph.style) << text;
        EXPECT_FALSE(paragraph.mark) << text;
        EXPECT_FALSE(paragraph.numRef) << text;
    }
    EXPECT_TRUE(formats.getRun("").isEmpty());
    EXPECT_TRUE(formats.getRun(makeRun("")).isEmpty());
}

TEST_F(TextFormatsTest, EqualFormatsAreShared)
{
    const DOM::SharedParagraphStyle a =
        formats.getParagraph(makePara("<w:jc w:val=\"center\"/><w:keepNext/>")).style;
    const DOM::SharedParagraphStyle b = formats.getParagraph(makePara("<w:jc w:val=\"center\"/>")).style;
    ASSERT_TRUE(a);
    EXPECT_EQ(a, b) << "the same values from other texts";
    EXPECT_NE(a, formats.getParagraph(makePara("<w:jc w:val=\"right\"/>")).style);
}

TEST_F(TextFormatsTest, ReadsEachTextOnce)
{
    for (int i = 0; i < 3; ++i) {
        formats.getRun(makeRun("<w:rStyle w:val=\"None\"/>"));
        formats.getParagraph(makePara("<w:jc w:val=\"nonsense\"/>"));
    }
    EXPECT_EQ(listMessages().size(), 2U);
}

TEST_F(TextFormatsTest, FindsStyles)
{
    const auto& paragraph =
        formats.getParagraph(makePara("<w:pStyle w:val=\"Own\"/><w:rPr><w:rStyle w:val=\"Other\"/></w:rPr>"));
    EXPECT_EQ(paragraph.style->getParentUUID(), own);
    EXPECT_EQ(paragraph.mark->getParentUUID(), other);
    EXPECT_EQ(formats.getRun(makeRun("<w:rStyle w:val=\"Own\"/>")).getParentUUID(), own);
    EXPECT_THAT(listMessages(), IsEmpty());
}

TEST_F(TextFormatsTest, ReportsUnknownStylesOnce)
{
    EXPECT_FALSE(formats.getParagraph(makePara("<w:pStyle w:val=\"None\"/>")).style);
    EXPECT_TRUE(formats.getRun(makeRun("<w:rStyle w:val=\"None\"/>")).isEmpty());
    EXPECT_THAT(listMessages(), ElementsAre("Style None is not defined"));
}

TEST_F(TextFormatsTest, KeepsStylesBeforeChanges)
{
    const auto change = [](const std::string& style) {
        return "<w:pPrChange><w:pPr>" + style + "</w:pPr></w:pPrChange>";
    };
    const std::string ownStyle = "<w:pStyle w:val=\"Own\"/>";
    const std::string otherStyle = "<w:pStyle w:val=\"Other\"/>";
    const auto readTracked = [&](const std::string& content) {
        return formats.getParagraph(makePara(content)).style->getTrackedParent();
    };
    EXPECT_EQ(readTracked(ownStyle + change(otherStyle)).value_or(UUID()), other);
    EXPECT_FALSE(readTracked(ownStyle + change(ownStyle)));
    context.styles.factory.setDefaultParagraphStyleUUID(other);
    EXPECT_EQ(readTracked(ownStyle + change("")).value_or(UUID()), other);
    const DOM::RunStyle& style = formats.getRun(makeRun(
        "<w:rStyle w:val=\"Own\"/><w:rPrChange><w:rPr><w:rStyle w:val=\"Other\"/></w:rPr></w:rPrChange>"));
    EXPECT_EQ(style.getTrackedParent().value_or(UUID()), other);
}

TEST_F(TextFormatsTest, RemembersHiddenProps)
{
    const DOM::RunStyle hidden = formats.getRun(makeRun("<w:vanish/>"));
    EXPECT_EQ(context.styles.hiddenProps.count(hidden.getRunProps()), 1U);
    const DOM::RunStyle shown = formats.getRun(makeRun("<w:vanish w:val=\"0\"/>"));
    EXPECT_EQ(context.styles.hiddenProps.size(), 1U);

    DOM::Paragraph paragraph;
    paragraph.appendRun(
        std::make_unique<DOM::TextRun>("seen", DOM::SharedRunStyle(new DOM::RunStyle(shown))));
    formats.noteHidden(paragraph);
    EXPECT_FALSE(formats.hasHiddenText());
    paragraph.appendRun(
        std::make_unique<DOM::TextRun>("unseen", DOM::SharedRunStyle(new DOM::RunStyle(hidden))));
    formats.noteHidden(paragraph);
    EXPECT_TRUE(formats.hasHiddenText());
}

TEST_F(TextFormatsTest, RemovedNumberingStays)
{
    const auto& paragraph = formats.getParagraph(makePara("<w:numPr><w:numId w:val=\"0\"/></w:numPr>"));
    ASSERT_TRUE(paragraph.numRef);
    ASSERT_TRUE(paragraph.numRef->getNumListUUID());
    EXPECT_EQ(*paragraph.numRef->getNumListUUID(), UUID());
}

TEST_F(TextFormatsTest, NumberingThatStylesGiveIsStripped)
{
    const auto style = context.styles.factory.makeNamedTextStyle(boost::none);
    auto numbering = std::make_unique<DOM::NumberingRef>();
    numbering->setNumListUUID(UUID());
    numbering->setLevel(2);
    style->setNumRef(std::move(numbering));
    context.styles.textStyleIds["List"] = style->getUUID();
    const auto makeItem = [](const std::string& level) {
        return makePara("<w:pStyle w:val=\"List\"/><w:numPr><w:ilvl w:val=\"" + level + "\"/></w:numPr>");
    };
    EXPECT_FALSE(formats.getParagraph(makeItem("2")).numRef);
    const auto& deeper = formats.getParagraph(makeItem("3"));
    ASSERT_TRUE(deeper.numRef);
    EXPECT_EQ(deeper.numRef->getLevel(), 3UL);
}

TEST_F(TextFormatsTest, GivesStyleNames)
{
    const TextFormats::StyleNames& names = formats.getStyleNames();
    EXPECT_EQ(names.size(), 2U);
    EXPECT_EQ(names.at("NAME OF OWN"), own);
}

TEST_F(TextFormatsTest, ReadsOnWhereTextsAreTooMany)
{
    for (std::size_t i = 0; i <= TextFormats::TextsMax; ++i)
        formats.getRun(makeRun("<w:lang w:val=\"x" + std::to_string(i) + "\"/>"));
    EXPECT_EQ(formats.getRun(makeRun("<w:i/>")).getRunProps()->getItalic(), true);
    EXPECT_EQ(formats.getRun(makeRun("<w:b/>")).getRunProps()->getBold(), true);
}

} // namespace
} // namespace QV::Filters
