#include <DOM/Public/PredefinedTextStyles.h>

#include <algorithm>
#include <cstddef>
#include <iomanip>
#include <memory>
#include <ostream>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <boost/optional.hpp>
#include <boost/utility/string_ref.hpp>
#include <boost/variant.hpp>
#include <gtest/gtest.h>

#include <DOM/Public/Color.h>
#include <DOM/Public/NamedTextStyle.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/PredefinedStyleName.h>
#include <DOM/Public/Properties.h>
#include <DOM/Public/RunProps.h>
#include <Tests/Support/RecordedAssertions.h>
#include <Utils/Public/UUID.h>

namespace QV::DOM {
namespace {

using Name = PredefinedStyleName;

std::vector<Name> listNames()
{
    std::vector<Name> names;
    for (std::size_t i = 0; i <= static_cast<std::size_t>(Name::Emphasis); ++i)
        names.push_back(static_cast<Name>(i));
    return names;
}

boost::optional<Name> findNameOf(const UUID& uuid)
{
    for (const Name name : listNames())
        if (makePredefinedTextStyleUUID(name) == uuid)
            return name;
    return boost::none;
}

// What is set, in short: "after 8 line x1.08".
class LookText
{
public:
    void add(const std::string& text)
    {
        if (!_text.empty())
            _text += ' ';
        _text += text;
    }
    void add(const char* label, const boost::optional<float>& value, const char* unit = "")
    {
        if (!value)
            return;
        std::ostringstream out;
        out << label << *value << unit;
        add(out.str());
    }
    void add(const char* label, const boost::optional<bool>& value)
    {
        if (value)
            add((*value ? "" : "not ") + std::string(label));
    }

    const std::string& get() const { return _text; }

private:
    std::string _text;
};

const char* getTabKindText(TabStop::Kind kind)
{
    switch (kind) {
    case TabStop::Kind::Center:
        return "tab C ";
    case TabStop::Kind::Right:
        return "tab R ";
    default:
        return "tab ? ";
    }
}

void addParaProps(LookText& text, ParaProps props)
{
    text.add("left ", props.getLeftIndent());
    text.add("right ", props.getRightIndent());
    text.add("first ", props.getFirstLineIndent());
    text.add("before ", props.getSpaceBefore());
    text.add("after ", props.getSpaceAfter());
    text.add("contextual", props.getContextualSpacing());
    if (const auto& spacing = props.getLineSpacing())
        text.add(spacing->getKind() == LineSpacing::Kind::Multiple ? "line x" : "other line ",
            boost::optional<float>(spacing->getValue()));
    if (props.getOutlineLevel())
        text.add("level " + std::to_string(*props.getOutlineLevel()));
    if (props.getTabStops())
        for (const TabStop& stop : *props.getTabStops())
            text.add(getTabKindText(stop.getKind()), boost::optional<float>(stop.getPosition()));
    props.setLeftIndent(boost::none);
    props.setRightIndent(boost::none);
    props.setFirstLineIndent(boost::none);
    props.setSpaceBefore(boost::none);
    props.setSpaceAfter(boost::none);
    props.setContextualSpacing(boost::none);
    props.setLineSpacing(boost::none);
    props.setOutlineLevel(boost::none);
    props.setTabStops(nullptr);
    if (!isEmpty(props))
        text.add("more");
}

std::string makeColorText(const Color& color)
{
    const Color::RGBA& rgba = color.getRGBA();
    std::ostringstream out;
    out << '#' << std::hex << std::uppercase << std::setfill('0');
    for (const unsigned value : {rgba.r, rgba.g, rgba.b, rgba.a})
        out << std::setw(2) << value;
    return out.str();
}

void addRunProps(LookText& text, RunProps props)
{
    text.add("", props.getFontSize(), "pt");
    text.add("bold", props.getBold());
    text.add("italic", props.getItalic());
    if (props.getUnderline() == Underline::Single)
        text.add("underlined");
    if (props.getColor())
        text.add(makeColorText(*props.getColor()));
    if (props.getVerticalPosition() == VerticalPosition::Superscript)
        text.add("superscript");
    props.setFontSize(boost::none);
    props.setBold(boost::none);
    props.setItalic(boost::none);
    if (props.getUnderline() == Underline::Single)
        props.setUnderline(boost::none);
    props.setColor(boost::none);
    if (props.getVerticalPosition() == VerticalPosition::Superscript)
        props.setVerticalPosition(boost::none);
    if (!isEmpty(props))
        text.add("more");
}

std::string describe(const ParaProps& para, const RunProps& run)
{
    LookText text;
    addParaProps(text, para);
    addRunProps(text, run);
    return text.get();
}

std::string describe(const NamedTextStyle& style)
{
    return describe(style.getParaProps() ? *style.getParaProps() : ParaProps(),
        style.getRunProps() ? *style.getRunProps() : RunProps());
}

// The look with all that the parents give.
std::string describeResolved(Name name)
{
    std::vector<NamedTextStyle> chain = {makePredefinedTextStyle(name)};
    while (const auto parent = findNameOf(chain.back().getParentUUID()))
        chain.push_back(makePredefinedTextStyle(*parent));
    ParaProps para;
    RunProps run;
    std::for_each(chain.rbegin(), chain.rend(), [&](const NamedTextStyle& style) {
        if (style.getParaProps())
            override(para, *style.getParaProps());
        if (style.getRunProps())
            override(run, *style.getRunProps());
    });
    return describe(para, run);
}

struct StyleRow
{
    Name name;
    const char* text;
    const char* base; // the parent; "run" for a character style, which has none
    const char* look;
};

void PrintTo(const StyleRow& row, std::ostream* out)
{
    *out << row.text;
}

const StyleRow StyleRows[] = {
    {Name::Normal,                 "Normal",             "",          "after 8 line x1.08 11pt not bold"   },
    {Name::Title,                  "Title",              "Normal",    "after 4 line x1 28pt"               },
    {Name::Subtitle,               "Subtitle",           "Normal",    "after 12 14pt #595959FF"            },
    {Name::Heading1,               "heading 1",          "Normal",    "before 20 after 4 level 0 20pt bold"},
    {Name::Heading2,               "heading 2",          "Normal",    "before 16 after 4 level 1 16pt bold"},
    {Name::Heading3,               "heading 3",          "Normal",    "before 14 after 4 level 2 14pt bold"},
    {Name::Heading4,               "heading 4",          "Normal",    "before 12 after 4 level 3 12pt bold"},
    {Name::Heading5,               "heading 5",          "Normal",    "before 11 after 4 level 4 11pt bold"},
    {Name::Heading6,               "heading 6",          "Normal",    "before 11 after 4 level 5 11pt bold"},
    {Name::Heading7,               "heading 7",          "Normal",    "before 11 after 4 level 6 11pt bold"},
    {Name::Heading8,               "heading 8",          "Normal",    "before 11 after 4 level 7 11pt bold"},
    {Name::Heading9,               "heading 9",          "Normal",    "before 11 after 4 level 8 11pt bold"},
    {Name::ListParagraph,          "List Paragraph",     "Normal",    "left 36 contextual"                 },
    {Name::Quote,                  "Quote",              "Normal",    "left 36 right 36 italic"            },
    {Name::Caption,                "caption",            "Normal",    "after 10 line x1 9pt italic"        },
    {Name::Header,                 "header",             "Normal",    "after 0 line x1 tab C 234 tab R 468"},
    {Name::Footer,                 "footer",             "Normal",    "after 0 line x1 tab C 234 tab R 468"},
    {Name::Hyperlink,              "Hyperlink",          "run",       "underlined #0563C1FF"               },
    {Name::FootnoteText,           "footnote text",      "Normal",    "after 0 line x1 10pt"               },
    {Name::FootnoteReference,      "footnote reference", "run",       "superscript"                        },
    {Name::EndnoteText,            "endnote text",       "Normal",    "after 0 line x1 10pt"               },
    {Name::EndnoteReference,       "endnote reference",  "run",       "superscript"                        },
    {Name::TableOfContents1,       "toc 1",              "Normal",    "left 0 after 5"                     },
    {Name::TableOfContents2,       "toc 2",              "Normal",    "left 11 after 5"                    },
    {Name::TableOfContents3,       "toc 3",              "Normal",    "left 22 after 5"                    },
    {Name::TableOfContents4,       "toc 4",              "Normal",    "left 33 after 5"                    },
    {Name::TableOfContents5,       "toc 5",              "Normal",    "left 44 after 5"                    },
    {Name::TableOfContents6,       "toc 6",              "Normal",    "left 55 after 5"                    },
    {Name::TableOfContents7,       "toc 7",              "Normal",    "left 66 after 5"                    },
    {Name::TableOfContents8,       "toc 8",              "Normal",    "left 77 after 5"                    },
    {Name::TableOfContents9,       "toc 9",              "Normal",    "left 88 after 5"                    },
    {Name::TableOfContentsHeading, "TOC Heading",        "heading 1", "level 9"                            },
    {Name::BodyText,               "Body Text",          "Normal",    "after 6"                            },
    {Name::List,                   "List",               "Normal",    "left 18 first -18 contextual"       },
    {Name::Strong,                 "Strong",             "run",       "bold"                               },
    {Name::Emphasis,               "Emphasis",           "run",       "italic"                             },
};

class PredefinedTextStyle : public testing::TestWithParam<StyleRow>
{
};

TEST_P(PredefinedTextStyle, IsComplete)
{
    const StyleRow& row = GetParam();
    const NamedTextStyle style = makePredefinedTextStyle(row.name);
    EXPECT_EQ(style.getUUID(), makePredefinedTextStyleUUID(row.name));
    const auto* const name = boost::get<Name>(&style.getName());
    ASSERT_NE(name, nullptr);
    EXPECT_TRUE(*name == row.name);
    EXPECT_EQ(style.getNumRef(), nullptr);
    EXPECT_EQ(describe(style), row.look);
    EXPECT_FALSE(style.getParaProps() && isEmpty(*style.getParaProps()));
    EXPECT_FALSE(style.getRunProps() && isEmpty(*style.getRunProps()));

    const bool isForRuns = style.getKind() == NamedTextStyle::Kind::Character;
    const auto parent = findNameOf(style.getParentUUID());
    EXPECT_EQ(parent ? getPredefinedStyleText(*parent) : isForRuns ? "run" : "", row.base);
    EXPECT_FALSE(parent && isForRuns);
    EXPECT_EQ(static_cast<bool>(style.getParentUUID()), parent.has_value());
}

TEST_P(PredefinedTextStyle, IsFoundByItsName)
{
    const StyleRow& row = GetParam();
    EXPECT_EQ(getPredefinedStyleText(row.name), row.text);
    EXPECT_EQ(getStyleNameText(makePredefinedTextStyle(row.name)), row.text);

    std::string upper = row.text;
    std::string lower = row.text;
    for (std::size_t i = 0; i < upper.size(); ++i) {
        if (upper[i] >= 'a' && upper[i] <= 'z')
            upper[i] = static_cast<char>(upper[i] - 'a' + 'A');
        if (lower[i] >= 'A' && lower[i] <= 'Z')
            lower[i] = static_cast<char>(lower[i] - 'A' + 'a');
    }
    for (const std::string& text : {std::string(row.text), upper, lower})
        EXPECT_TRUE(findPredefinedStyleName(text) == row.name) << text;
    EXPECT_FALSE(findPredefinedStyleName(upper + ' '));
    EXPECT_FALSE(findPredefinedStyleName(lower.substr(1)));
}

TEST_P(PredefinedTextStyle, IsMadeAnewByEachCall)
{
    const StyleRow& row = GetParam();
    NamedTextStyle changed = makePredefinedTextStyle(row.name);
    changed.setName(std::string("mine"));
    changed.setParaProps(nullptr);
    changed.setRunProps(nullptr);
    const NamedTextStyle style = makePredefinedTextStyle(row.name);
    EXPECT_EQ(describe(style), row.look);
    EXPECT_EQ(getStyleNameText(style), row.text);
}

INSTANTIATE_TEST_SUITE_P(Rows, PredefinedTextStyle, testing::ValuesIn(StyleRows), [](const auto& row) {
    std::string name = row.param.text;
    name.erase(std::remove(name.begin(), name.end(), ' '), name.end());
    return name;
});

TEST(PredefinedTextStyles, RowsAreAllOfThem)
{
    std::vector<Name> names;
    for (const StyleRow& row : StyleRows)
        names.push_back(row.name);
    EXPECT_TRUE(names == listNames());
}

TEST(PredefinedTextStyles, IdentifiersAreDistinctAndOfVersion4)
{
    std::set<UUID> uuids;
    for (const Name name : listNames()) {
        SCOPED_TRACE(getPredefinedStyleText(name));
        const UUID uuid = makePredefinedTextStyleUUID(name);
        EXPECT_TRUE(uuids.insert(uuid).second);
        const std::string text = uuid.toString();
        EXPECT_EQ(text[14], '4') << text;
        EXPECT_NE(std::string("89ab").find(text[19]), std::string::npos) << text;
    }
}

TEST(PredefinedTextStyles, IdentifiersStayWhatTheyAre)
{
    EXPECT_EQ(makePredefinedTextStyleUUID(Name::Normal).toString(), "cb3dc2be-974a-4d17-bf18-9d29590ce8f1");
    EXPECT_EQ(makePredefinedTextStyleUUID(Name::Heading1).toString(), "58b73de5-3dfc-4f3a-92b7-03fbb297f869");
    EXPECT_EQ(
        makePredefinedTextStyleUUID(Name::Hyperlink).toString(), "c6186ae1-c392-4c66-a349-41459d8501f7");
    EXPECT_EQ(makePredefinedTextStyleUUID(Name::Emphasis).toString(), "caad79bc-a67a-40ae-9b90-c52f398bf69a");
}

TEST(PredefinedTextStyles, AssertsThatThereIsTheName)
{
    const Tests::RecordedAssertions assertions;
    NamedTextStyle style;
    for (const unsigned value : {36U, 255U}) {
        const auto name = static_cast<Name>(value);
        EXPECT_THROW(makePredefinedTextStyleUUID(name), std::out_of_range);
        EXPECT_THROW(makePredefinedTextStyle(name), std::out_of_range);
        EXPECT_THROW(getPredefinedStyleText(name), std::out_of_range);
        style.setName(name);
        EXPECT_THROW(getStyleNameText(style), std::out_of_range);
    }
    EXPECT_EQ(assertions.getExpressions(), std::vector<std::string>(8, "index < PredefinedStylesCount"));
}

TEST(PredefinedTextStyles, ParentsGiveWhatAStyleDoesNotSet)
{
    EXPECT_EQ(describeResolved(Name::Heading3), "before 14 after 4 line x1.08 level 2 14pt bold");
    EXPECT_EQ(
        describeResolved(Name::TableOfContentsHeading), "before 20 after 4 line x1.08 level 9 20pt bold");
    EXPECT_EQ(describeResolved(Name::TableOfContents3), "left 22 after 5 line x1.08 11pt not bold");
    EXPECT_EQ(describeResolved(Name::Caption), "after 10 line x1 9pt not bold italic");
    EXPECT_EQ(describeResolved(Name::Strong), "bold");
}

TEST(PredefinedTextStyles, SizesOfHeadingsNeverRise)
{
    for (auto level = static_cast<int>(Name::Heading1); level < static_cast<int>(Name::Heading9); ++level) {
        const auto outer = makePredefinedTextStyle(static_cast<Name>(level)).getRunProps();
        const auto inner = makePredefinedTextStyle(static_cast<Name>(level + 1)).getRunProps();
        EXPECT_GE(*outer->getFontSize(), *inner->getFontSize()) << level;
    }
}

TEST(FindPredefinedStyleName, FindsNoOtherName)
{
    const std::string withNul("Normal\0", 7);
    // The last one ends in a sign whose small letter is an ASCII "k" to those who know all alphabets.
    for (const std::string& text : {std::string(), std::string(" "), std::string("heading"),
             std::string("heading 0"), std::string("heading 10"), std::string("heading1"),
             std::string("toc 10"), std::string(" Normal"), withNul, std::string("Hyperlin\xE2\x84\xAA")})
        EXPECT_FALSE(findPredefinedStyleName(text)) << text;
    EXPECT_FALSE(findPredefinedStyleName(boost::string_ref()));
    EXPECT_TRUE(findPredefinedStyleName(boost::string_ref("Title page", 5)) == Name::Title);
}

TEST(GetStyleNameText, TellsWhateverTheNameIs)
{
    NamedTextStyle style;
    EXPECT_EQ(getStyleNameText(style), "");
    style.setName(Name::TableOfContents4);
    EXPECT_EQ(getStyleNameText(style), "toc 4");
    style.setName(std::string("My Style"));
    EXPECT_EQ(getStyleNameText(style), "My Style");
}

} // namespace
} // namespace QV::DOM
