#include <FilterUtils/FU_NamedStylesFactory.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <boost/blank.hpp>
#include <boost/container/map.hpp>
#include <boost/optional.hpp>
#include <boost/unordered_map.hpp>
#include <boost/variant.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/NamedTextStyle.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/PredefinedStyleName.h>
#include <DOM/Public/PredefinedTextStyles.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/TableStyle.h>
#include <Tests/Support/RecordedAssertions.h>
#include <Utils/Public/CaseInsensitiveLess.h>
#include <Utils/Public/Ptr/PtrUtils.h>
#include <Utils/Public/UUID.h>

namespace QV::FilterUtils {
namespace {

using DOM::PredefinedStyleName;
using testing::ElementsAre;
using testing::IsEmpty;
using Tests::RecordedAssertions;

const PredefinedStyleName* getPredefinedName(const DOM::NamedTextStyle& style)
{
    return boost::get<PredefinedStyleName>(&style.getName());
}

TEST(NamedStylesFactory, StartsEmpty)
{
    const NamedStylesFactory factory;
    EXPECT_TRUE(factory.getTextStyles().empty());
    EXPECT_TRUE(factory.getTableStyles().empty());
    EXPECT_EQ(factory.getDefaultParagraphStyleUUID(), UUID());
    EXPECT_EQ(factory.getDefaultTableStyleUUID(), UUID());
    EXPECT_EQ(factory.getDefaultCellStyleUUID(), UUID());
    EXPECT_TRUE(factory.getDefaultParagraphStyle().isEmpty());
    EXPECT_TRUE(factory.getDefaultTableStyle() == DOM::TableStyle());
    EXPECT_TRUE(factory.getDefaultCellStyle().isEmpty());
    EXPECT_EQ(factory.getDefaultParaProps(), nullptr);
    EXPECT_EQ(factory.getDefaultRunProps(), nullptr);
}

TEST(NamedStylesFactory, GivesItsListsThemselvesOrViewsOfThem)
{
    using Constant = const NamedStylesFactory&;
    using Mutable = NamedStylesFactory&;
    static_assert(std::is_same_v<decltype(std::declval<Mutable>().getTextStyles()),
        std::vector<std::shared_ptr<DOM::NamedTextStyle>>&>);
    static_assert(std::is_same_v<decltype(std::declval<Mutable>().getTableStyles()),
        std::vector<std::shared_ptr<DOM::NamedTableStyle>>&>);
    static_assert(std::is_same_v<decltype(*std::declval<Constant>().getTextStyles().begin()),
        const DOM::NamedTextStyle&>);
    static_assert(std::is_same_v<decltype(*std::declval<Constant>().getTableStyles().begin()),
        const DOM::NamedTableStyle&>);
    static_assert(std::is_same_v<decltype(std::declval<Constant>().getDefaultParaProps()),
        const std::shared_ptr<const DOM::ParaProps>&>);
    static_assert(std::is_same_v<decltype(std::declval<Constant>().getDefaultRunProps()),
        const std::shared_ptr<const DOM::RunProps>&>);
    NamedStylesFactory factory;
    const auto style = std::make_shared<DOM::NamedTextStyle>();
    factory.getTextStyles().push_back(style);
    EXPECT_EQ(&static_cast<Constant>(factory).getTextStyles().back(), style.get());
}

TEST(NamedStylesFactory, MakesBlankTextStyles)
{
    NamedStylesFactory factory;
    const std::shared_ptr<DOM::NamedTextStyle> style = factory.makeNamedTextStyle(boost::none);
    EXPECT_TRUE(boost::get<boost::blank>(&style->getName()));
    EXPECT_NE(style->getUUID(), UUID());
    EXPECT_NE(style->getUUID(), factory.makeNamedTextStyle(boost::none)->getUUID());
    EXPECT_EQ(style->getParentUUID(), UUID());
    EXPECT_FALSE(style->getRunProps() || style->getParaProps() || style->getNumRef());
}

TEST(NamedStylesFactory, MakesPredefinedTextStyles)
{
    for (int i = 0; i <= static_cast<int>(PredefinedStyleName::Emphasis); ++i) {
        const auto name = static_cast<PredefinedStyleName>(i);
        NamedStylesFactory factory;
        const std::shared_ptr<DOM::NamedTextStyle> style = factory.makeNamedTextStyle(name);
        const DOM::NamedTextStyle expected = DOM::makePredefinedTextStyle(name);
        ASSERT_TRUE(getPredefinedName(*style));
        EXPECT_EQ(*getPredefinedName(*style), name);
        EXPECT_EQ(style->getUUID(), DOM::makePredefinedTextStyleUUID(name));
        EXPECT_EQ(style->getParentUUID(), expected.getParentUUID());
        EXPECT_EQ(style->getKind(), expected.getKind());
        EXPECT_TRUE(pointeesEqual(style->getRunProps(), expected.getRunProps()));
        EXPECT_TRUE(pointeesEqual(style->getParaProps(), expected.getParaProps()));
        EXPECT_TRUE(pointeesEqual(style->getNumRef(), expected.getNumRef()));
    }
}

TEST(NamedStylesFactory, KeepsTheOrderAndSharesTheTextStyles)
{
    NamedStylesFactory factory;
    const auto first = factory.makeNamedTextStyle(boost::none);
    const auto second = factory.makeNamedTextStyle(PredefinedStyleName::Normal);
    const auto third = factory.makeNamedTextStyle(boost::none);
    EXPECT_THAT(factory.getTextStyles(), ElementsAre(first, second, third));
    const NamedStylesFactory& constant = factory;
    ASSERT_EQ(constant.getTextStyles().size(), 3U);
    EXPECT_EQ(&constant.getTextStyles()[1], second.get());
    first->setName(std::string("Own"));
    EXPECT_EQ(boost::get<std::string>(constant.getTextStyles().front().getName()), "Own");
    EXPECT_TRUE(factory.getTableStyles().empty());
}

TEST(NamedStylesFactory, StaysAsItWasWhereAStyleCannotBeMade)
{
    NamedStylesFactory factory;
    const auto style = factory.makeNamedTextStyle(boost::none);
    const RecordedAssertions assertions;
    EXPECT_THROW(factory.makeNamedTextStyle(static_cast<PredefinedStyleName>(255)), std::out_of_range);
    EXPECT_THAT(factory.getTextStyles(), ElementsAre(style));
}

TEST(NamedStylesFactory, KeepsTheOrderAndSharesTheTableStyles)
{
    NamedStylesFactory factory;
    const std::shared_ptr<DOM::NamedTableStyle> first = factory.makeNamedTableStyle();
    const std::shared_ptr<DOM::NamedTableStyle> second = factory.makeNamedTableStyle();
    EXPECT_NE(first->getUUID(), second->getUUID());
    EXPECT_EQ(first->getName(), "");
    EXPECT_THAT(factory.getTableStyles(), ElementsAre(first, second));
    const NamedStylesFactory& constant = factory;
    ASSERT_EQ(constant.getTableStyles().size(), 2U);
    EXPECT_EQ(&constant.getTableStyles().back(), second.get());
    EXPECT_TRUE(factory.getTextStyles().empty());
}

TEST(NamedStylesFactory, KeepsDefaultStylesAsParents)
{
    NamedStylesFactory factory;
    factory.setDefaultParagraphStyleUUID(UUID(0, 1));
    factory.setDefaultTableStyleUUID(UUID(0, 2));
    factory.setDefaultCellStyleUUID(UUID(0, 3));
    EXPECT_EQ(factory.getDefaultParagraphStyleUUID(), UUID(0, 1));
    EXPECT_EQ(factory.getDefaultParagraphStyle().getParentUUID(), UUID(0, 1));
    EXPECT_EQ(factory.getDefaultTableStyleUUID(), UUID(0, 2));
    EXPECT_EQ(factory.getDefaultTableStyle().getParentUUID(), UUID(0, 2));
    EXPECT_EQ(factory.getDefaultCellStyleUUID(), UUID(0, 3));
    EXPECT_EQ(factory.getDefaultCellStyle().getParentUUID(), UUID(0, 3));
    factory.setDefaultParagraphStyleUUID(UUID());
    EXPECT_TRUE(factory.getDefaultParagraphStyle().isEmpty());
}

TEST(NamedStylesFactory, SharesDefaultProperties)
{
    NamedStylesFactory factory;
    const auto paraProps = std::make_shared<const DOM::ParaProps>();
    const auto runProps = std::make_shared<const DOM::RunProps>();
    factory.setDefaultParaProps(paraProps);
    factory.setDefaultRunProps(runProps);
    EXPECT_EQ(factory.getDefaultParaProps(), paraProps);
    EXPECT_EQ(factory.getDefaultRunProps(), runProps);
    factory.setDefaultParaProps(nullptr);
    factory.setDefaultRunProps(nullptr);
    EXPECT_EQ(factory.getDefaultParaProps(), nullptr);
    EXPECT_EQ(factory.getDefaultRunProps(), nullptr);
}

class SetNamedTextStyleType : public testing::Test
{
protected:
    /// A style of that name after it was asked for its type.
    std::shared_ptr<DOM::NamedTextStyle> makeStyle(const std::string& name)
    {
        auto style = std::make_shared<DOM::NamedTextStyle>();
        style->setUUID(UUID(0, 1));
        style->setName(name);
        setNamedTextStyleType(_predefinedStyles, style, name, _namesToTypes);
        return style;
    }

    boost::container::map<PredefinedStyleName, std::shared_ptr<const DOM::NamedTextStyle>> _predefinedStyles;
    boost::container::map<std::string, PredefinedStyleName, CaseInsensitiveLess> _namesToTypes = {
        {"heading 1", PredefinedStyleName::Heading1},
        {"Title",     PredefinedStyleName::Title   },
        {"Titel",     PredefinedStyleName::Title   },
    };
};

void expectOwn(const DOM::NamedTextStyle& style, const char* name)
{
    EXPECT_EQ(style.getUUID(), UUID(0, 1));
    ASSERT_TRUE(boost::get<std::string>(&style.getName()));
    EXPECT_EQ(boost::get<std::string>(style.getName()), name);
}

TEST_F(SetNamedTextStyleType, IgnoresTheCaseOfNames)
{
    for (const char* name : {"heading 1", "Heading 1", "HEADING 1"}) {
        _predefinedStyles.clear();
        const auto style = makeStyle(name);
        EXPECT_EQ(style->getUUID(), DOM::makePredefinedTextStyleUUID(PredefinedStyleName::Heading1));
        ASSERT_TRUE(getPredefinedName(*style)) << name;
        EXPECT_EQ(*getPredefinedName(*style), PredefinedStyleName::Heading1);
        EXPECT_THAT(_predefinedStyles, ElementsAre(testing::Pair(PredefinedStyleName::Heading1, style)));
    }
}

TEST_F(SetNamedTextStyleType, LeavesOtherNames)
{
    for (const char* name : {"heading 2", "heading 1 ", "heading", ""})
        expectOwn(*makeStyle(name), name);
    EXPECT_THAT(_predefinedStyles, IsEmpty());
}

TEST_F(SetNamedTextStyleType, TheFirstToClaimATypeKeepsIt)
{
    const auto first = makeStyle("TITLE");
    expectOwn(*makeStyle("title"), "title");
    expectOwn(*makeStyle("Titel"), "Titel");
    EXPECT_THAT(_predefinedStyles, ElementsAre(testing::Pair(PredefinedStyleName::Title, first)));
    const auto heading = makeStyle("heading 1");
    EXPECT_TRUE(getPredefinedName(*heading));
    EXPECT_EQ(_predefinedStyles.size(), 2U);
}

TEST_F(SetNamedTextStyleType, AssertsTheStyle)
{
    const RecordedAssertions assertions;
    std::shared_ptr<DOM::NamedTextStyle> style;
    EXPECT_THROW(setNamedTextStyleType(_predefinedStyles, style, "Title", _namesToTypes), std::logic_error);
    EXPECT_THAT(assertions.getExpressions(), ElementsAre("plainPtr"));
    EXPECT_THAT(_predefinedStyles, IsEmpty());
}

TEST(FindParentUUID, IsNilForUnknownNames)
{
    const boost::unordered_map<std::string, UUID> names = {
        {"Base", UUID(0, 1)},
        {"base", UUID(0, 2)},
        {"",     UUID(0, 3)},
    };
    EXPECT_EQ(findParentUUID(names, "Base"), UUID(0, 1));
    EXPECT_EQ(findParentUUID(names, "base"), UUID(0, 2));
    EXPECT_EQ(findParentUUID(names, ""), UUID(0, 3));
    EXPECT_EQ(findParentUUID(names, "BASE"), UUID());
    EXPECT_EQ(findParentUUID({}, "Base"), UUID());
}

} // namespace
} // namespace QV::FilterUtils
