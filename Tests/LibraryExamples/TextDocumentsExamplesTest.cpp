// The examples of Docs/library.md about text documents: what stands between two marks is there word for word.

#include <memory>
#include <utility>

#include <boost/none.hpp>
#include <gtest/gtest.h>

#include <DOM/Public/HeaderFooterPair.h>
#include <DOM/Public/NamedTextStyle.h>
#include <DOM/Public/NumberedList.h>
#include <DOM/Public/NumberingRef.h>
#include <DOM/Public/PageProps.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/ParagraphStyle.h>
#include <DOM/Public/PredefinedStyleName.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/TableOfContents.h>
#include <DOM/Public/TrackChangesViewMode.h>
#include <FilterUtils/FU_HeadersFootersFactory.h>
#include <FilterUtils/FU_NamedStylesFactory.h>
#include <FilterUtils/FU_NumberedListsFactory.h>
#include <FilterUtils/FU_StyleHierarchy.h>
#include <FilterUtils/FU_TableOfContentsLevelsFiller.h>

namespace QV::FilterUtils {
namespace {

TEST(Example, NamedStylesFactory)
{
    // example: FU_NamedStylesFactory
    NamedStylesFactory styles;
    const auto heading = styles.makeNamedTextStyle(DOM::PredefinedStyleName::Heading1);
    const auto own = styles.makeNamedTextStyle(boost::none); // blank, with an identifier of its own
    own->setName("Chapter");
    own->setParentUUID(heading->getUUID());
    styles.setDefaultParagraphStyleUUID(own->getUUID());
    EXPECT_EQ(styles.getTextStyles().size(), 2U);
    EXPECT_EQ(styles.getDefaultParagraphStyle().getParentUUID(), own->getUUID());
    // end
}

TEST(Example, StyleHierarchy)
{
    // example: FU_StyleHierarchy
    NamedStylesFactory styles; // or the DOM::Styles of a document that is whole
    const auto base = styles.makeNamedTextStyle(boost::none);
    auto bold = std::make_shared<DOM::RunProps>();
    bold->setBold(true);
    base->setRunProps(bold);

    DOM::ParagraphStyle style;
    style.setParentUUID(base->getUUID());
    std::shared_ptr<DOM::RunProps> props; // stays null where no style of the chain sets anything
    overrideRunPropsWithTracked(styles, props, style, DOM::TrackChangesViewMode::Final);
    ASSERT_TRUE(props);
    EXPECT_TRUE(*props->getBold());
    // end
}

TEST(Example, NumberedListsFactory)
{
    // example: FU_NumberedListsFactory
    NumberedListsFactory lists;
    const auto list = lists.makeNumberedList();
    auto marker = std::make_shared<DOM::NumListMarker>();
    marker->setType(DOM::NumListMarkerType::Bullet);
    auto level = std::make_unique<DOM::NumberingLevel>();
    level->setListMarker(marker);
    list->appendLevel(std::move(level));
    EXPECT_EQ(*getNumberedListNameType(list->getLevels()), DOM::NumListNameType::Bulleted);

    const auto none = makeRemovedNumRef(); // on a paragraph whose style has numbering, and it has not
    EXPECT_TRUE(isRemovedNumRef(*none));
    // end
}

TEST(Example, HeadersFootersFactory)
{
    // example: FU_HeadersFootersFactory
    HeadersFootersFactory factory;
    const auto pair = factory.makeHeaderFooterPair();
    auto page = std::make_shared<DOM::PageProps>();
    page->setWidth(595.0F);
    page->setMargins(std::make_shared<DOM::Insets>());
    page->getMargins()->setLeft(60.0F);
    page->getMargins()->setRight(50.0F);
    pair->setPageProps(page);
    EXPECT_EQ(getJustifiedTabPosition(pair.get(), DOM::ParaProps(), false), 485.0F); // points
    // end
}

TEST(Example, TableOfContentsLevelsFiller)
{
    // example: FU_TableOfContentsLevelsFiller
    NamedStylesFactory styles;
    TableOfContentsLevelsFiller::NewStyles newStyles;
    TableOfContentsLevelsFiller::PredefinedStyles predefinedStyles; // those of the document so far
    DOM::TableOfContents contents;
    TableOfContentsLevelsFiller filler(contents.getInfo(), styles, newStyles, predefinedStyles);
    filler.addTableOfContentsLevel(filler.findOrCreatePredefinedStyle(DOM::PredefinedStyleName::Heading1), 1);
    filler.addTableOfContentsLevel(4); // a level without a style
    EXPECT_EQ(contents.getInfo().getLevelsStyleInfo().size(), 2U);
    EXPECT_EQ(newStyles.size(), 1U); // the document had no such heading
    EXPECT_TRUE(isTableOfContentsBookmark("_Toc123456"));
    // end
}

} // namespace
} // namespace QV::FilterUtils
