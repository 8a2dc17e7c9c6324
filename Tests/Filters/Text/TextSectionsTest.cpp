#include <Filters/Text/TextSections.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <boost/optional.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/BlockCollection.h>
#include <DOM/Public/CellText.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/HeaderFooterPair.h>
#include <DOM/Public/PageProps.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/ParagraphStyle.h>
#include <DOM/Public/Section.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Text/TextLeftOut.h>
#include <Tests/Support/OoxmlBuilder.h>
#include <Tests/Support/Printers.h>
#include <Tests/Support/TextPackageBuilder.h>

namespace QV::Filters {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Tests::makeTextParagraph;

/// A section that ends with a paragraph, and one that ends with the body.
std::string makeSectionEnd(const std::string& text, const std::string& section)
{
    return makeTextParagraph(text, "<w:sectPr>" + section + "</w:sectPr>");
}
std::string makeLastSection(const std::string& section)
{
    return "<w:sectPr>" + section + "</w:sectPr>";
}

std::string makeHeaderReference(const std::string& id, const std::string& type = "default")
{
    return "<w:headerReference w:type='" + type + "' r:id='" + id + "'/>";
}
std::string makeFooterReference(const std::string& id, const std::string& type = "default")
{
    return "<w:footerReference w:type='" + type + "' r:id='" + id + "'/>";
}

class TextSectionsTest : public Tests::ImportedText
{
protected:
    const std::vector<DOM::Section>& getSections() const { return run->getDocument().getSections(); }

    std::vector<std::size_t> listFirstBlocks() const
    {
        std::vector<std::size_t> blocks;
        for (const DOM::Section& section : getSections())
            blocks.push_back(section.getFirstBlock().get());
        return blocks;
    }

    /// The texts of a pair's header and footer; "-" for what is not there.
    static std::string describe(const std::shared_ptr<DOM::HeaderFooterPair>& pair)
    {
        if (!pair)
            return "none";
        const auto getText = [](const DOM::SharedCellText& text) {
            return text ? text->getPlainText() : std::string("-");
        };
        return getText(pair->getHeader()) + " " + getText(pair->getFooter());
    }

    /// One more header, of which builder.header has but one.
    void addHeader(const std::string& id, const std::string& text)
    {
        builder.relationships +=
            Tests::makeRelationship(id, Tests::TransitionalTypes + "header", id + ".xml");
        builder.items.push_back({"word/" + id + ".xml",
            "<w:hdr" + Tests::makeTextDeclarations() + ">" + makeTextParagraph(text) + "</w:hdr>"});
    }
};

TEST_F(TextSectionsTest, DocumentWithoutSectionsIsOne)
{
    importBody(makeTextParagraph("a"));
    ASSERT_THAT(getSections(), SizeIs(1));
    EXPECT_THAT(listFirstBlocks(), ElementsAre(0U));
    EXPECT_EQ(getSections()[0].getPageProps(), nullptr);
    EXPECT_EQ(getSections()[0].getDefaultPair(), nullptr);
    EXPECT_EQ(getSections()[0].getFirstPair(), nullptr);
    EXPECT_EQ(getSections()[0].getEvenPair(), nullptr);
}

TEST_F(TextSectionsTest, EmptyBodyHasOneSection)
{
    importBody("");
    EXPECT_THAT(listFirstBlocks(), ElementsAre(0U));
}

TEST_F(TextSectionsTest, SectionsEndWithTheirParagraphs)
{
    importBody(
        makeTextParagraph("a") + makeSectionEnd("b", "") + makeTextParagraph("c") + makeLastSection(""));
    EXPECT_THAT(listTexts(), ElementsAre("a", "b", "c"));
    EXPECT_THAT(listFirstBlocks(), ElementsAre(0U, 2U));
}

TEST_F(TextSectionsTest, BlocksBehindTheLastEndAreASectionToo)
{
    importBody(makeSectionEnd("a", "<w:pgSz w:w='200' w:h='400'/>") + makeTextParagraph("b"));
    EXPECT_THAT(listFirstBlocks(), ElementsAre(0U, 1U));
    EXPECT_NE(getSections()[0].getPageProps(), nullptr);
    EXPECT_EQ(getSections()[1].getPageProps(), nullptr);
}

TEST_F(TextSectionsTest, SectionWithoutBlocksIsNone)
{
    importBody(makeSectionEnd("a", "") + makeLastSection("<w:pgSz w:w='200' w:h='400'/>"));
    EXPECT_THAT(listFirstBlocks(), ElementsAre(0U));
}

TEST_F(TextSectionsTest, PagesAreRead)
{
    importBody(makeTextParagraph("a") +
               makeLastSection("<w:pgSz w:w='15840' w:h='12240' w:orient='landscape'/>"
                               "<w:pgMar w:top='-1440' w:right='720' w:bottom='1000' w:left='1440' "
                               "w:header='700' w:footer='600' w:gutter='200'/>"));
    const DOM::PageProps& pages = *getSections().at(0).getPageProps();
    EXPECT_EQ(pages.getWidth(), 792.0F);
    EXPECT_EQ(pages.getHeight(), 612.0F);
    EXPECT_EQ(pages.getMargins()->getLeft(), 82.0F); // the gutter lies there
    EXPECT_EQ(pages.getMargins()->getTop(), 72.0F);
    EXPECT_EQ(pages.getMargins()->getRight(), 36.0F);
    EXPECT_EQ(pages.getMargins()->getBottom(), 50.0F);
    EXPECT_EQ(pages.getHeaderDistance(), 35.0F);
    EXPECT_EQ(pages.getFooterDistance(), 30.0F);
    EXPECT_THAT(listMessages(), IsEmpty());
}

TEST_F(TextSectionsTest, WhatIsNotSaidOfPagesIsNotKnown)
{
    importBody(makeTextParagraph("a") + makeLastSection("<w:pgSz w:w='wide' w:h='400'/>"));
    const DOM::PageProps& pages = *getSections().at(0).getPageProps();
    EXPECT_EQ(pages.getWidth(), boost::none);
    EXPECT_EQ(pages.getHeight(), 20.0F);
    EXPECT_EQ(pages.getMargins(), nullptr);
    EXPECT_THAT(listMessages(), ElementsAre("Can't parse length value wide"));
}

TEST_F(TextSectionsTest, HeadersComeFromTheSectionBefore)
{
    builder.header = makeTextParagraph("head");
    builder.footer = makeTextParagraph("foot");
    addHeader("other", "other");
    importBody(makeSectionEnd("a", makeHeaderReference("header1")) +
               makeSectionEnd("b", makeFooterReference("footer1")) +
               makeSectionEnd("c", makeHeaderReference("other") + "<w:pgSz w:w='200' w:h='400'/>") +
               makeTextParagraph("d"));
    ASSERT_THAT(getSections(), SizeIs(4));
    EXPECT_EQ(describe(getSections()[0].getDefaultPair()), "head -");
    EXPECT_EQ(describe(getSections()[1].getDefaultPair()), "head foot");
    EXPECT_EQ(describe(getSections()[2].getDefaultPair()), "other foot");
    EXPECT_EQ(describe(getSections()[3].getDefaultPair()), "other foot");
    // A part is read once, and pairs know the pages that they stand on.
    EXPECT_EQ(getSections()[0].getDefaultPair()->getHeader(), getSections()[1].getDefaultPair()->getHeader());
    EXPECT_EQ(getSections()[2].getDefaultPair()->getPageProps(), getSections()[2].getPageProps());
    EXPECT_EQ(getSections()[3].getDefaultPair()->getPageProps(), nullptr);
}

TEST_F(TextSectionsTest, FirstPagesDifferWhereTheyAreToldTo)
{
    builder.header = makeTextParagraph("head");
    addHeader("first", "first");
    const std::string references = makeHeaderReference("header1") + makeHeaderReference("first", "first");
    importBody(makeSectionEnd("a", references) + makeSectionEnd("b", "<w:titlePg/>") +
               makeSectionEnd("c", "<w:titlePg w:val='0'/>") + makeTextParagraph("d"));
    ASSERT_THAT(getSections(), SizeIs(4));
    EXPECT_EQ(getSections()[0].getFirstPair(), nullptr);
    EXPECT_EQ(describe(getSections()[1].getFirstPair()), "first -");
    EXPECT_EQ(describe(getSections()[1].getDefaultPair()), "head -");
    EXPECT_EQ(getSections()[2].getFirstPair(), nullptr);
}

TEST_F(TextSectionsTest, FirstPageWithoutAHeaderShowsNone)
{
    builder.header = makeTextParagraph("head");
    importBody(makeTextParagraph("a") + makeLastSection(makeHeaderReference("header1") + "<w:titlePg/>"));
    EXPECT_EQ(describe(getSections().at(0).getFirstPair()), "- -");
}

TEST_F(TextSectionsTest, EvenPagesDifferWhereTheSettingsSaySo)
{
    builder.header = makeTextParagraph("head");
    addHeader("even", "even");
    builder.body = makeTextParagraph("a") +
                   makeLastSection(makeHeaderReference("header1") + makeHeaderReference("even", "even"));
    import();
    EXPECT_EQ(getSections().at(0).getEvenPair(), nullptr);
    builder.settings = "<w:evenAndOddHeaders/>";
    import();
    EXPECT_EQ(describe(getSections().at(0).getEvenPair()), "even -");
    EXPECT_EQ(describe(getSections().at(0).getDefaultPair()), "head -");
}

TEST_F(TextSectionsTest, MissingHeaderIsReported)
{
    builder.footer = makeTextParagraph("foot");
    importBody(makeTextParagraph("a") +
               makeLastSection(makeHeaderReference("nothing") + makeHeaderReference("footer1") +
                               makeFooterReference("footer1")));
    EXPECT_EQ(describe(getSections().at(0).getDefaultPair()), "- foot");
    EXPECT_THAT(listMessages(), ElementsAre("Header or footer nothing is not there",
                                    "Header or footer footer1 is not there")); // a footer is no header
}

TEST_F(TextSectionsTest, ColumnsAndKindsOfBreaksAreLeftOut)
{
    importBody(makeTextParagraph("a") + makeLastSection("<w:type w:val='nextPage'/><w:cols w:num='1'/>"));
    EXPECT_THAT(run->getLeftOut(), IsEmpty());
    importBody(makeTextParagraph("a") + makeLastSection("<w:cols w:num='2'/>"));
    EXPECT_THAT(run->getLeftOut(), ElementsAre(TextLeftOut::Columns));
    importBody(makeTextParagraph("a") + makeLastSection("<w:type w:val='continuous'/>"));
    EXPECT_THAT(run->getLeftOut(), ElementsAre(TextLeftOut::Columns));
}

class HeaderTabsTest : public TextSectionsTest
{
protected:
    /// The positions of the tab stops of the header's only paragraph.
    std::vector<float> listStops(const std::string& paraProps, const std::string& content)
    {
        builder.header = "<w:p><w:pPr>" + paraProps + "</w:pPr><w:r>" + content + "</w:r></w:p>";
        importBody(makeTextParagraph("a") + makeLastSection(makeHeaderReference("header1") +
                                                            "<w:pgSz w:w='12240' w:h='15840'/>"
                                                            "<w:pgMar w:left='1440' w:right='1440'/>"));
        const auto& blocks = getSections().at(0).getDefaultPair()->getHeader()->getBlocks();
        const auto& paragraph = dynamic_cast<const DOM::Paragraph&>(*blocks.at(0));
        std::vector<float> positions;
        if (const auto& props = paragraph.getStyle().getParaProps())
            if (props->getTabStops())
                for (const DOM::TabStop& stop : *props->getTabStops())
                    positions.push_back(stop.getPosition());
        return positions;
    }

    static constexpr const char* ThreeParts = "<w:t>a</w:t><w:tab/><w:t>b</w:t><w:tab/><w:t>c</w:t>";
};

TEST_F(HeaderTabsTest, ThreePartsStandAtTheEdgesAndInTheMiddle)
{
    EXPECT_THAT(listStops("<w:jc w:val='left'/>", ThreeParts), ElementsAre(234.0F, 468.0F));
    EXPECT_THAT(listStops("", ThreeParts), ElementsAre(234.0F, 468.0F));
}

TEST_F(HeaderTabsTest, OtherCountsOfPartsStay)
{
    EXPECT_THAT(listStops("", "<w:t>a</w:t><w:tab/><w:t>b</w:t>"), IsEmpty());
    EXPECT_THAT(listStops("", "<w:tab/><w:tab/><w:tab/>"), IsEmpty());
}

TEST_F(HeaderTabsTest, StopsOfTheParagraphStay)
{
    EXPECT_THAT(
        listStops("<w:tabs><w:tab w:val='right' w:pos='2000'/></w:tabs>", ThreeParts), ElementsAre(100.0F));
}

TEST_F(HeaderTabsTest, StopsOfTheStyleStay)
{
    builder.styles = "<w:style w:type='paragraph' w:styleId='Base'><w:name w:val='Base'/>"
                     "<w:pPr><w:tabs><w:tab w:val='right' w:pos='2000'/></w:tabs></w:pPr></w:style>"
                     "<w:style w:type='paragraph' w:styleId='Own'><w:name w:val='Own'/>"
                     "<w:basedOn w:val='Base'/></w:style>";
    EXPECT_THAT(listStops("<w:pStyle w:val='Own'/>", ThreeParts), IsEmpty());
}

} // namespace
} // namespace QV::Filters
