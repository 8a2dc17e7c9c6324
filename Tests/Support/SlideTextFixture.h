#pragma once

#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include <boost/optional.hpp>
#include <gtest/gtest.h>

#include <DOM/Public/CellText.h>
#include <DOM/Public/Color.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/TextLevels.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/DrawingTheme.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/ListLabels.h>
#include <Filters/Package/Package.h>
#include <Filters/Package/Relationships.h>
#include <Filters/Presentation/PresentationContext.h>
#include <Filters/Presentation/SlideText.h>
#include <Tests/Support/PresentationBuilder.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Tests {

/// Writes what is set as words with blanks between them.
class PropsText
{
public:
    template <typename T>
    PropsText& add(const char* name, const boost::optional<T>& value)
    {
        if (value)
            word(name) << *value;
        return *this;
    }
    PropsText& add(const char* name, const boost::optional<DOM::Color>& color)
    {
        if (color) {
            const DOM::Color::RGBA& c = color->getRGBA();
            word(name) << int(c.r) << ',' << int(c.g) << ',' << int(c.b) << ',' << int(c.a);
        }
        return *this;
    }
    template <typename T>
    PropsText& addNumber(const char* name, const boost::optional<T>& value)
    {
        if (value)
            word(name) << static_cast<int>(*value);
        return *this;
    }
    std::ostream& word(const char* name)
    {
        if (_out.tellp() > 0)
            _out << ' ';
        return _out << name << '=';
    }
    std::string get() const { return _out.str(); }

private:
    std::ostringstream _out;
};

inline std::string toText(const DOM::RunProps& props)
{
    return PropsText()
        .add("b", props.getBold())
        .add("i", props.getItalic())
        .add("size", props.getFontSize())
        .add("font", props.getFontName())
        .add("color", props.getColor())
        .add("back", props.getBackgroundColor())
        .addNumber("u", props.getUnderline())
        .add("strike", props.getStrikethrough())
        .addNumber("position", props.getVerticalPosition())
        .addNumber("case", props.getLetterCase())
        .get();
}

inline std::string toText(const DOM::ParaProps& props)
{
    PropsText text;
    text.addNumber("align", props.getAlignment())
        .add("left", props.getLeftIndent())
        .add("right", props.getRightIndent())
        .add("first", props.getFirstLineIndent())
        .add("before", props.getSpaceBefore())
        .add("after", props.getSpaceAfter())
        .add("rtl", props.getRightToLeft());
    if (const auto& line = props.getLineSpacing())
        text.word("line") << (line->getKind() == DOM::LineSpacing::Kind::Exact ? "pt" : "x")
                          << line->getValue();
    if (props.getTabStops()) {
        text.word("tabs");
        for (const DOM::TabStop& stop : *props.getTabStops())
            text.word("") << stop.getPosition() << ':' << static_cast<int>(stop.getKind());
    }
    return text.get();
}

inline std::string toText(const DOM::TextBullet& bullet)
{
    PropsText text;
    if (bullet.marker) {
        text.addNumber("type", boost::make_optional(bullet.marker->type));
        text.word("text") << bullet.marker->text;
        text.word("start") << bullet.marker->start;
    }
    return text.add("font", bullet.fontName)
        .add("color", bullet.color)
        .add("share", bullet.sizeShare)
        .add("size", bullet.size)
        .get();
}

/// A slide with relationships "web" (to a page), "next" (to another slide) and "picture", and a theme with
/// the font "Body" and the usual colours. The text that a test writes is the root of the slide.
class SlideTextFixture : public testing::Test
{
protected:
    SlideTextFixture()
        : package(Filters::Package::openBytes(makeZip({
              {"ppt/slides/slide1.xml", "<x/>"      },
              {"ppt/slides/slide2.xml", "<x/>"      },
              {"ppt/media/a.png",       "no picture"},
              makeRelationships("ppt/slides/_rels/slide1.xml.rels",
                  makeRelationship("web", TransitionalTypes + "hyperlink", "http://a.example/#b",
                      "TargetMode=\"External\"") +
                      makeRelationship(
                          "place", TransitionalTypes + "hyperlink", "#there", "TargetMode=\"External\"") +
                      makeRelationship("long", TransitionalTypes + "hyperlink",
                          "http://" + std::string(8192, 'x'), "TargetMode=\"External\"") +
                      makeRelationship("next", TransitionalTypes + "slide", "slide2.xml") +
                      makeRelationship("picture", TransitionalTypes + "image", "../media/a.png")),
              {"ppt/theme/theme1.xml",
               "<a:theme" + makePresentationDeclarations() +
                      "><a:themeElements><a:fontScheme name=''><a:majorFont><a:latin typeface='Head'/>"
                      "</a:majorFont><a:minorFont><a:latin typeface='Body'/></a:minorFont></a:fontScheme>"
                      "</a:themeElements></a:theme>"},
    })))
        , context(package, run)
        , theme(std::make_shared<Filters::DrawingTheme>(package, "ppt/theme/theme1.xml", run.getReport()))
    {
    }

    /// An element of the root, with the usual prefixes.
    FilterUtils::XMLElement parse(const std::string& content, bool isStrict = false)
    {
        std::istringstream stream(
            "<p:txBody" + makePresentationDeclarations(isStrict) + ">" + content + "</p:txBody>");
        const auto root = FilterUtils::XMLElement::getRootElement(stream, boost::none);
        EXPECT_TRUE(root.isValid()) << content;
        part = std::make_unique<Filters::SlidePart>("ppt/slides/slide1.xml", root,
            Filters::Relationships::read(package, "ppt/slides/slide1.xml", run.getReport()), theme);
        return root;
    }

    DOM::TextLevels readLevels(const std::string& content, bool isStrict = false)
    {
        const auto root = parse(content, isStrict);
        return Filters::readTextLevels(root, *part, context);
    }

    /// Reads a text, and takes its lists into the document.
    void read(const std::string& content, bool isStrict = false)
    {
        const auto root = parse(content, isStrict);
        text = Filters::readSlideText(root, {context, *part, levels});
        const auto& lists = context.lists.getNumberedLists();
        for (; listsCount < lists.size(); ++listsCount)
            run.getDocument().addNumberedList(lists[listsCount]);
    }

    const DOM::Paragraph& getParagraph(std::size_t number = 0) const
    {
        return dynamic_cast<const DOM::Paragraph&>(*text->getBlocks().at(number));
    }

    /// The labels of the paragraphs, joined by "|"; "-" for the nil list, and nothing for no numbering.
    std::string joinLabels() const
    {
        Filters::ListLabels labels(run.getDocument());
        std::string all;
        for (std::size_t i = 0; i < text->getBlocks().size(); ++i) {
            const auto& reference = getParagraph(i).getNumRef();
            all += i == 0 ? "" : "|";
            if (reference && *reference->getNumListUUID() == UUID())
                all += "-";
            else if (reference)
                all += labels.next(*reference);
        }
        return all;
    }

    std::string joinMessages() const
    {
        std::string all;
        for (const OperationReport::Message& message : run.getReport().getMessages())
            if (message.getText() != Filters::FilterRun::LeftOutMessage &&
                message.getText() != Filters::Relationships::NotFollowedMessage)
                all += (all.empty() ? "" : "|") + message.toString();
        return all;
    }

    Filters::FilterRun run;
    Filters::Package package;
    Filters::PresentationContext context;
    std::shared_ptr<const Filters::DrawingTheme> theme;
    std::unique_ptr<Filters::SlidePart> part;
    DOM::TextLevels levels;
    DOM::SharedCellText text;
    std::size_t listsCount = 0;
};

} // namespace QV::Tests
