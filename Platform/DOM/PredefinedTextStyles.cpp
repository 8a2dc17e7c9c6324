#include <DOM/Public/PredefinedTextStyles.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <stdexcept>

#include <boost/blank.hpp>
#include <boost/variant.hpp>

#include <DOM/Public/Color.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/Properties.h>
#include <DOM/Public/RunProps.h>
#include <Utils/Public/Assertions.h>
#include <Utils/Public/CaseInsensitiveLess.h>

namespace QV::DOM {
namespace {

using PredefinedName = PredefinedStyleName;

constexpr std::size_t PredefinedStylesCount = static_cast<std::size_t>(PredefinedName::Emphasis) + 1;

struct PredefinedIdentity
{
    PredefinedName name;
    const char* text;
    std::uint64_t uuidHigh;
    std::uint64_t uuidLow;
};

// Random numbers, drawn once: documents refer to them, so none ever changes.
constexpr PredefinedIdentity PredefinedIdentities[] = {
    {PredefinedName::Normal,                 "Normal",             0xcb3dc2be974a4d17, 0xbf189d29590ce8f1},
    {PredefinedName::Title,                  "Title",              0x4b44ca1220f446dd, 0x9a4b954f88f6cfd6},
    {PredefinedName::Subtitle,               "Subtitle",           0x61ad61dbc6d645df, 0xb9ca03e5a7054063},
    {PredefinedName::Heading1,               "heading 1",          0x58b73de53dfc4f3a, 0x92b703fbb297f869},
    {PredefinedName::Heading2,               "heading 2",          0xd8708e34b3ac4ad1, 0xafbb1bf7fea935ca},
    {PredefinedName::Heading3,               "heading 3",          0xd7d02fe012574bd0, 0x9d3ed969d2dd9cfd},
    {PredefinedName::Heading4,               "heading 4",          0xd27e7fd2583444df, 0xbc1501c977d99787},
    {PredefinedName::Heading5,               "heading 5",          0x06d84b588db24969, 0xaa6aa7ac0c82f232},
    {PredefinedName::Heading6,               "heading 6",          0x97e52698c7064902, 0x9a45fafb58b927ae},
    {PredefinedName::Heading7,               "heading 7",          0xb9a3120df4a943bd, 0xafdfd3ddf5c6a2e7},
    {PredefinedName::Heading8,               "heading 8",          0xa949f94a22c54d0e, 0xb2d81ce26df3759b},
    {PredefinedName::Heading9,               "heading 9",          0x0e01f982d358463b, 0xae824ae8f645d9b4},
    {PredefinedName::ListParagraph,          "List Paragraph",     0xd8c4eebb55294001, 0xadb82d0737d34e1a},
    {PredefinedName::Quote,                  "Quote",              0xb23b14d37bf04ec9, 0x8c533a8c9af9b5c1},
    {PredefinedName::Caption,                "caption",            0x9e36d16f6bed4063, 0xad88968b7647651c},
    {PredefinedName::Header,                 "header",             0x7bf053246994472f, 0xa066a9dac9eb1484},
    {PredefinedName::Footer,                 "footer",             0x77afc6325d3845f9, 0x9f6fb3142ddee5d0},
    {PredefinedName::Hyperlink,              "Hyperlink",          0xc6186ae1c3924c66, 0xa34941459d8501f7},
    {PredefinedName::FootnoteText,           "footnote text",      0x04b10ed3a8d0436e, 0x8789f8d2e4c6894c},
    {PredefinedName::FootnoteReference,      "footnote reference", 0xe21b45300a2548b0, 0xb9f55603ac144549},
    {PredefinedName::EndnoteText,            "endnote text",       0x63e2af4e905a405c, 0x97dd91a8a38f4f12},
    {PredefinedName::EndnoteReference,       "endnote reference",  0x94ed05f215484095, 0x918b3dc637a0610e},
    {PredefinedName::TableOfContents1,       "toc 1",              0x8f1898cb7ba24127, 0xb9a083e5551d403a},
    {PredefinedName::TableOfContents2,       "toc 2",              0xd036a08cd72c407f, 0xbb6097140eed9d32},
    {PredefinedName::TableOfContents3,       "toc 3",              0x5e418437ae9541e9, 0xb87010dd09ab8850},
    {PredefinedName::TableOfContents4,       "toc 4",              0x1422a394cbe041ea, 0x82883e419a1612ee},
    {PredefinedName::TableOfContents5,       "toc 5",              0xf0e2e4d4ea154019, 0xae9390a1d243d381},
    {PredefinedName::TableOfContents6,       "toc 6",              0x470afb02a38f469b, 0xade48cd11e4ab340},
    {PredefinedName::TableOfContents7,       "toc 7",              0xa112dfa279cf4f32, 0xb9d8fa3e42c1952e},
    {PredefinedName::TableOfContents8,       "toc 8",              0x4366135b8f804a3b, 0xa5993d8717303e12},
    {PredefinedName::TableOfContents9,       "toc 9",              0x1ce981f8b7c14947, 0xb90748e5b81b83e0},
    {PredefinedName::TableOfContentsHeading, "TOC Heading",        0x607aa002e5f1428c, 0x8aac3d22e0a11991},
    {PredefinedName::BodyText,               "Body Text",          0x67f0bdd1c6e546c4, 0xb540c5b698c4f04e},
    {PredefinedName::List,                   "List",               0xb2a9c233184b4011, 0x872eb836a1ad1b88},
    {PredefinedName::Strong,                 "Strong",             0x8cb9304ae1484520, 0xacff1fe73e972f44},
    {PredefinedName::Emphasis,               "Emphasis",           0xcaad79bca67a40ae, 0x9b90c52f398bf69a},
};

void setNormalLook(ParaProps& para, RunProps& run, unsigned long)
{
    para.setSpaceAfter(8.0F);
    para.setLineSpacing(LineSpacing(LineSpacing::Kind::Multiple, 1.08F));
    run.setBold(false);
    run.setFontSize(11.0F);
}

void setSingleLines(ParaProps& para, float spaceAfter)
{
    para.setSpaceAfter(spaceAfter);
    para.setLineSpacing(LineSpacing(LineSpacing::Kind::Multiple, 1.0F));
}

void setTitleLook(ParaProps& para, RunProps& run, unsigned long)
{
    setSingleLines(para, 4);
    run.setFontSize(28.0F);
}

void setSubtitleLook(ParaProps& para, RunProps& run, unsigned long)
{
    para.setSpaceAfter(12.0F);
    run.setFontSize(14.0F);
    run.setColor(Color(Color::RGBA(0x59, 0x59, 0x59, 255)));
}

// A line of its own size stands above a heading, and less below: it belongs to what follows.
void setHeadingLook(ParaProps& para, RunProps& run, unsigned long level)
{
    constexpr std::array<float, 9> Sizes = {20, 16, 14, 12, 11, 11, 11, 11, 11};
    para.setSpaceBefore(Sizes.at(level));
    para.setSpaceAfter(4.0F);
    para.setOutlineLevel(level);
    run.setBold(true);
    run.setFontSize(Sizes.at(level));
}

void setListParagraphLook(ParaProps& para, RunProps&, unsigned long)
{
    para.setLeftIndent(36.0F);
    para.setContextualSpacing(true);
}

void setQuoteLook(ParaProps& para, RunProps& run, unsigned long)
{
    para.setLeftIndent(36.0F);
    para.setRightIndent(36.0F);
    run.setItalic(true);
}

void setCaptionLook(ParaProps& para, RunProps& run, unsigned long)
{
    setSingleLines(para, 10);
    run.setItalic(true);
    run.setFontSize(9.0F);
}

// The stops halve and end the lines of a letter page with margins of an inch.
void setHeaderLook(ParaProps& para, RunProps&, unsigned long)
{
    setSingleLines(para, 0);
    para.setTabStops(std::make_shared<TabStops>(
        TabStops{TabStop(TabStop::Kind::Center, 234), TabStop(TabStop::Kind::Right, 468)}));
}

void setHyperlinkLook(ParaProps&, RunProps& run, unsigned long)
{
    run.setUnderline(Underline::Single);
    run.setColor(Color(Color::RGBA(0x05, 0x63, 0xc1, 255)));
}

void setNoteTextLook(ParaProps& para, RunProps& run, unsigned long)
{
    setSingleLines(para, 0);
    run.setFontSize(10.0F);
}

void setNoteReferenceLook(ParaProps&, RunProps& run, unsigned long)
{
    run.setVerticalPosition(VerticalPosition::Superscript);
}

void setContentsLook(ParaProps& para, RunProps&, unsigned long level)
{
    para.setLeftIndent(11.0F * static_cast<float>(level));
    para.setSpaceAfter(5.0F);
}

// Looks like a heading and is none, or the table would list itself.
void setContentsHeadingLook(ParaProps& para, RunProps&, unsigned long)
{
    para.setOutlineLevel(9UL);
}

void setBodyTextLook(ParaProps& para, RunProps&, unsigned long)
{
    para.setSpaceAfter(6.0F);
}

void setListLook(ParaProps& para, RunProps&, unsigned long)
{
    para.setLeftIndent(18.0F);
    para.setFirstLineIndent(-18.0F);
    para.setContextualSpacing(true);
}

void setStrongLook(ParaProps&, RunProps& run, unsigned long)
{
    run.setBold(true);
}

void setEmphasisLook(ParaProps&, RunProps& run, unsigned long)
{
    run.setItalic(true);
}

// What a style is for, and what it derives from.
enum class PredefinedBase : std::uint8_t
{
    None,     // for paragraphs
    Normal,   // for paragraphs
    Heading1, // for paragraphs
    Text,     // for runs, and from none
};

struct PredefinedLook
{
    PredefinedName name;
    PredefinedBase base;
    void (*set)(ParaProps& para, RunProps& run, unsigned long level);
    unsigned long level;
};

constexpr PredefinedLook PredefinedLooks[] = {
    {PredefinedName::Normal,                 PredefinedBase::None,     setNormalLook,          0},
    {PredefinedName::Title,                  PredefinedBase::Normal,   setTitleLook,           0},
    {PredefinedName::Subtitle,               PredefinedBase::Normal,   setSubtitleLook,        0},
    {PredefinedName::Heading1,               PredefinedBase::Normal,   setHeadingLook,         0},
    {PredefinedName::Heading2,               PredefinedBase::Normal,   setHeadingLook,         1},
    {PredefinedName::Heading3,               PredefinedBase::Normal,   setHeadingLook,         2},
    {PredefinedName::Heading4,               PredefinedBase::Normal,   setHeadingLook,         3},
    {PredefinedName::Heading5,               PredefinedBase::Normal,   setHeadingLook,         4},
    {PredefinedName::Heading6,               PredefinedBase::Normal,   setHeadingLook,         5},
    {PredefinedName::Heading7,               PredefinedBase::Normal,   setHeadingLook,         6},
    {PredefinedName::Heading8,               PredefinedBase::Normal,   setHeadingLook,         7},
    {PredefinedName::Heading9,               PredefinedBase::Normal,   setHeadingLook,         8},
    {PredefinedName::ListParagraph,          PredefinedBase::Normal,   setListParagraphLook,   0},
    {PredefinedName::Quote,                  PredefinedBase::Normal,   setQuoteLook,           0},
    {PredefinedName::Caption,                PredefinedBase::Normal,   setCaptionLook,         0},
    {PredefinedName::Header,                 PredefinedBase::Normal,   setHeaderLook,          0},
    {PredefinedName::Footer,                 PredefinedBase::Normal,   setHeaderLook,          0},
    {PredefinedName::Hyperlink,              PredefinedBase::Text,     setHyperlinkLook,       0},
    {PredefinedName::FootnoteText,           PredefinedBase::Normal,   setNoteTextLook,        0},
    {PredefinedName::FootnoteReference,      PredefinedBase::Text,     setNoteReferenceLook,   0},
    {PredefinedName::EndnoteText,            PredefinedBase::Normal,   setNoteTextLook,        0},
    {PredefinedName::EndnoteReference,       PredefinedBase::Text,     setNoteReferenceLook,   0},
    {PredefinedName::TableOfContents1,       PredefinedBase::Normal,   setContentsLook,        0},
    {PredefinedName::TableOfContents2,       PredefinedBase::Normal,   setContentsLook,        1},
    {PredefinedName::TableOfContents3,       PredefinedBase::Normal,   setContentsLook,        2},
    {PredefinedName::TableOfContents4,       PredefinedBase::Normal,   setContentsLook,        3},
    {PredefinedName::TableOfContents5,       PredefinedBase::Normal,   setContentsLook,        4},
    {PredefinedName::TableOfContents6,       PredefinedBase::Normal,   setContentsLook,        5},
    {PredefinedName::TableOfContents7,       PredefinedBase::Normal,   setContentsLook,        6},
    {PredefinedName::TableOfContents8,       PredefinedBase::Normal,   setContentsLook,        7},
    {PredefinedName::TableOfContents9,       PredefinedBase::Normal,   setContentsLook,        8},
    {PredefinedName::TableOfContentsHeading, PredefinedBase::Heading1, setContentsHeadingLook, 0},
    {PredefinedName::BodyText,               PredefinedBase::Normal,   setBodyTextLook,        0},
    {PredefinedName::List,                   PredefinedBase::Normal,   setListLook,            0},
    {PredefinedName::Strong,                 PredefinedBase::Text,     setStrongLook,          0},
    {PredefinedName::Emphasis,               PredefinedBase::Text,     setEmphasisLook,        0},
};

// Rows are found by the value of their enumerator.
template <typename Row, std::size_t Size>
constexpr bool holdsPredefinedNamesInOrder(const Row (&rows)[Size])
{
    for (std::size_t i = 0; i < Size; ++i)
        if (static_cast<std::size_t>(rows[i].name) != i)
            return false;
    return Size == PredefinedStylesCount;
}

static_assert(holdsPredefinedNamesInOrder(PredefinedIdentities));
static_assert(holdsPredefinedNamesInOrder(PredefinedLooks));

/// Asserts that there is a style of that name; throws where there is none and the handler returns.
std::size_t getPredefinedIndex(PredefinedName name)
{
    const auto index = static_cast<std::size_t>(name);
    QV_ASSERT(index < PredefinedStylesCount);
    if (index >= PredefinedStylesCount)
        throw std::out_of_range("there is no predefined style of this name");
    return index;
}

UUID getPredefinedParentUUID(PredefinedBase base)
{
    if (base == PredefinedBase::Normal)
        return makePredefinedTextStyleUUID(PredefinedName::Normal);
    if (base == PredefinedBase::Heading1)
        return makePredefinedTextStyleUUID(PredefinedName::Heading1);
    return UUID();
}

template <typename Props>
std::shared_ptr<const Props> shareUnlessEmpty(const Props& props)
{
    return isEmpty(props) ? nullptr : std::make_shared<const Props>(props);
}

using PredefinedNamesByText = std::map<std::string, PredefinedName, CaseInsensitiveLess>;

PredefinedNamesByText makePredefinedNamesByText()
{
    PredefinedNamesByText names;
    for (const PredefinedIdentity& identity : PredefinedIdentities)
        names.emplace(identity.text, identity.name);
    return names;
}

std::array<std::string, PredefinedStylesCount> makePredefinedTexts()
{
    std::array<std::string, PredefinedStylesCount> texts;
    for (std::size_t i = 0; i < PredefinedStylesCount; ++i)
        texts[i] = PredefinedIdentities[i].text;
    return texts;
}

class StyleNameTextMaker final : public boost::static_visitor<std::string>
{
public:
    std::string operator()(const boost::blank&) const { return {}; }
    std::string operator()(PredefinedName name) const { return getPredefinedStyleText(name); }
    std::string operator()(const std::string& name) const { return name; }
};

} // namespace

UUID makePredefinedTextStyleUUID(PredefinedStyleName name)
{
    const PredefinedIdentity& identity = PredefinedIdentities[getPredefinedIndex(name)];
    return UUID(identity.uuidHigh, identity.uuidLow);
}

NamedTextStyle makePredefinedTextStyle(PredefinedStyleName name)
{
    const PredefinedLook& look = PredefinedLooks[getPredefinedIndex(name)];
    ParaProps para;
    RunProps run;
    look.set(para, run, look.level);

    NamedTextStyle style;
    style.setUUID(makePredefinedTextStyleUUID(name));
    style.setName(name);
    style.setKind(look.base == PredefinedBase::Text ? NamedTextStyle::Kind::Character
                                                    : NamedTextStyle::Kind::Paragraph);
    style.setParentUUID(getPredefinedParentUUID(look.base));
    style.setParaProps(shareUnlessEmpty(para));
    style.setRunProps(shareUnlessEmpty(run));
    return style;
}

const std::string& getPredefinedStyleText(PredefinedStyleName name)
{
    static const auto texts = makePredefinedTexts();
    return texts[getPredefinedIndex(name)];
}

boost::optional<PredefinedStyleName> findPredefinedStyleName(boost::string_ref text)
{
    static const PredefinedNamesByText names = makePredefinedNamesByText();
    const auto found = names.find(text);
    if (found == names.end())
        return boost::none;
    return found->second;
}

std::string getStyleNameText(const NamedTextStyle& style)
{
    return boost::apply_visitor(StyleNameTextMaker(), style.getName());
}

} // namespace QV::DOM
