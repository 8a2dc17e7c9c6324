#include <FilterUtils/FU_HeadersFootersFactory.h>

#include <memory>
#include <ostream>
#include <string>

#include <boost/optional.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/HeaderFooterPair.h>
#include <DOM/Public/PageProps.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/ParagraphStyle.h>
#include <FilterUtils/FU_Errors.h>
#include <Tests/Support/Printers.h>

namespace QV::FilterUtils {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Points = boost::optional<float>;

const Points None;

TEST(HeadersFootersFactory, KeepsTheOrderAndSharesThePairs)
{
    HeadersFootersFactory factory;
    EXPECT_THAT(factory.getHeadersFooters(), IsEmpty());
    const std::shared_ptr<DOM::HeaderFooterPair> first = factory.makeHeaderFooterPair();
    const std::shared_ptr<DOM::HeaderFooterPair> second = factory.makeHeaderFooterPair();
    EXPECT_FALSE(first->getPageProps() || first->getHeader() || first->getFooter());
    EXPECT_NE(first, second);
    EXPECT_THAT(factory.getHeadersFooters(), ElementsAre(first, second));
    const HeadersFootersFactory& constant = factory;
    EXPECT_EQ(&constant.getHeadersFooters(), &factory.getHeadersFooters());
    second->setPageProps(std::make_shared<DOM::PageProps>());
    EXPECT_TRUE(constant.getHeadersFooters().back()->getPageProps());
}

enum class Page
{
    NotKnown,
    WithoutMargins,
    WithMargins,
};

struct TabRow
{
    const char* name;
    Page page;
    Points width;
    Points left;
    Points right;
    Points indent;
    bool subtractIndent;
    float position;
};

void PrintTo(const TabRow& row, std::ostream* out)
{
    *out << row.name << ": width " << row.width << ", indent " << row.indent;
}

// name, page, width, left, right, indent, subtractIndent, position
const TabRow TabRows[] = {
    {"WithinMargins",        Page::WithMargins,    Points(595.0F), Points(60.0F), Points(50.0F), None,           false, 485.0F },
    {"WithoutIndent",        Page::WithMargins,    Points(595.0F), Points(60.0F), Points(50.0F), Points(20.0F),  true,
     465.0F                                                                                                                    },
    {"IndentNotAskedFor",    Page::WithMargins,    Points(595.0F), Points(60.0F), Points(50.0F), Points(20.0F),
     false,                                                                                                             485.0F },
    {"NoIndentToSubtract",   Page::WithMargins,    Points(595.0F), Points(60.0F), Points(50.0F), None,           true,
     485.0F                                                                                                                    },
    {"NegativeIndent",       Page::WithMargins,    Points(595.0F), Points(60.0F), Points(50.0F), Points(-20.0F), true,
     505.0F                                                                                                                    },
    {"LeftMarginAlone",      Page::WithMargins,    Points(595.0F), Points(60.0F), None,          None,           false, 535.0F },
    {"RightMarginAlone",     Page::WithMargins,    Points(595.0F), None,          Points(50.0F), None,           false, 545.0F },
    {"EmptyMargins",         Page::WithMargins,    Points(595.0F), None,          None,          None,           false, 595.0F },
    {"NoMargins",            Page::WithoutMargins, Points(595.0F), None,          None,          None,           false, 595.0F },
    {"NegativePosition",     Page::WithMargins,    Points(100.0F), Points(60.0F), Points(50.0F), Points(20.0F),  true,
     -30.0F                                                                                                                    },
    {"WidthZero",            Page::WithMargins,    Points(0.0F),   Points(60.0F), Points(50.0F), None,           false, -110.0F},
    {"NoWidth",              Page::WithMargins,    None,           Points(60.0F), Points(50.0F), None,           false, 467.5F },
    {"NoWidthWithIndent",    Page::WithMargins,    None,           Points(60.0F), Points(50.0F), Points(20.0F),  true,  447.5F },
    {"NoPage",               Page::NotKnown,       None,           None,          None,          None,           false, 467.5F },
    {"NoPageWithIndent",     Page::NotKnown,       None,           None,          None,          Points(20.0F),  true,  447.5F },
    {"NoPageIndentNotAsked", Page::NotKnown,       None,           None,          None,          Points(20.0F),  false, 467.5F },
};

class GetJustifiedTabPosition : public testing::TestWithParam<TabRow>
{
};

TEST_P(GetJustifiedTabPosition, KeepsRow)
{
    const TabRow& row = GetParam();
    DOM::HeaderFooterPair pair;
    if (row.page != Page::NotKnown) {
        auto page = std::make_shared<DOM::PageProps>();
        page->setWidth(row.width);
        if (row.page == Page::WithMargins) {
            auto margins = std::make_shared<DOM::Insets>();
            margins->setLeft(row.left);
            margins->setRight(row.right);
            page->setMargins(margins);
        }
        pair.setPageProps(page);
    }
    DOM::ParaProps paraProps;
    paraProps.setLeftIndent(row.indent);
    EXPECT_EQ(getJustifiedTabPosition(&pair, paraProps, row.subtractIndent), row.position);
}

INSTANTIATE_TEST_SUITE_P(Rows, GetJustifiedTabPosition, testing::ValuesIn(TabRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(GetJustifiedTabPosition, ThrowsWithoutAPair)
{
    for (const bool subtractIndent : {false, true}) {
        try {
            getJustifiedTabPosition(nullptr, {}, subtractIndent);
            FAIL() << "nothing was thrown";
        } catch (const InternalFilterError& error) {
            EXPECT_STREQ(error.what(), "No header/footer pair (even default) found for current section.");
        }
    }
}

unsigned convertAlignment(unsigned alignment)
{
    auto props = std::make_shared<DOM::ParaProps>();
    props->setAlignment(static_cast<DOM::HorizontalAlignment>(alignment));
    DOM::ParagraphStyle style;
    style.setParaProps(props);
    DOM::Paragraph paragraph;
    paragraph.setStyle(style);
    return static_cast<unsigned>(convertParagraphAlignment(paragraph));
}

TEST(ConvertParagraphAlignment, KnowsCenterAndRight)
{
    for (unsigned alignment = 0; alignment < 256; ++alignment) {
        const unsigned expected = alignment == 2 ? 1 : alignment == 3 ? 2 : 0;
        EXPECT_EQ(convertAlignment(alignment), expected) << "alignment " << alignment;
    }
}

TEST(ConvertParagraphAlignment, IsLeftWhereNothingIsSaid)
{
    DOM::Paragraph paragraph;
    EXPECT_EQ(convertParagraphAlignment(paragraph), DOM::HeaderFooterAlignment::Left);
    DOM::ParagraphStyle style;
    paragraph.setStyle(style);
    EXPECT_EQ(convertParagraphAlignment(paragraph), DOM::HeaderFooterAlignment::Left);
    style.setParaProps(std::make_shared<DOM::ParaProps>());
    paragraph.setStyle(style);
    EXPECT_EQ(convertParagraphAlignment(paragraph), DOM::HeaderFooterAlignment::Left);
}

TEST(ConvertHeaderFooterAlignment, KnowsCenterAndRight)
{
    for (unsigned alignment = 0; alignment < 256; ++alignment) {
        const unsigned expected = alignment == 1 ? 2 : alignment == 2 ? 3 : 1;
        const auto code = convertHeaderFooterAlignment(static_cast<DOM::HeaderFooterAlignment>(alignment));
        EXPECT_EQ(static_cast<unsigned>(code), expected) << "alignment " << alignment;
    }
}

TEST(ConvertHeaderFooterAlignment, IsLeftWhereNothingIsSaid)
{
    EXPECT_EQ(convertHeaderFooterAlignment(boost::none), DOM::HorizontalAlignment::Left);
    EXPECT_EQ(static_cast<unsigned>(DOM::HorizontalAlignment::Left), 1U);
}

TEST(ConvertHeaderFooterAlignment, IsUndoneByTheOther)
{
    using DOM::HeaderFooterAlignment;
    for (const auto alignment :
        {HeaderFooterAlignment::Left, HeaderFooterAlignment::Center, HeaderFooterAlignment::Right}) {
        const auto converted = static_cast<unsigned>(convertHeaderFooterAlignment(alignment));
        EXPECT_EQ(convertAlignment(converted), static_cast<unsigned>(alignment));
    }
}

} // namespace
} // namespace QV::FilterUtils
