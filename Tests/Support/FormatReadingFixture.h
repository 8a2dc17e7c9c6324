#pragma once

// Reading formats of word processing in tests: a reader with a theme, what it told, and results as short
// text.

#include <memory>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include <boost/optional.hpp>
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/Color.h>
#include <DOM/Public/LineProps.h>
#include <DOM/Public/ParaProps.h>
#include <DOM/Public/RunProps.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/Colors.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Text/FormatReader.h>
#include <Filters/Text/TextTheme.h>
#include <Utils/Public/OperationReport.h>

#include <Tests/Support/Printers.h>
#include <Tests/Support/XercesEnvironment.h>

namespace QV::Filters {

inline const std::string ThemeNamespace = "http://schemas.openxmlformats.org/drawingml/2006/main";

inline FilterUtils::XMLElement parseXml(const std::string& xml)
{
    std::istringstream stream(xml);
    return FilterUtils::XMLElement::getRootElement(stream, boost::none);
}

/// An element with some content, in the word-processing vocabulary of a dialect.
inline FilterUtils::XMLElement parseWord(
    const std::string& element, const std::string& content, Dialect dialect = Dialect::Transitional)
{
    return parseXml("<w:" + element + " xmlns:w='" + getNamespace(Vocabulary::WordProcessing, dialect) +
                    "'>" + content + "</w:" + element + ">");
}

inline TextTheme makeTheme()
{
    TextTheme theme;
    theme.readFonts(
        parseXml("<a:theme xmlns:a='" + ThemeNamespace +
                 "'><a:themeElements><a:fontScheme>"
                 "<a:majorFont><a:latin typeface='Major'/><a:ea typeface=''/></a:majorFont>"
                 "<a:minorFont><a:latin typeface='Minor'/><a:ea typeface='East'/>"
                 "<a:cs typeface='Complex'/></a:minorFont></a:fontScheme></a:themeElements></a:theme>"));
    return theme;
}

/// A reader of its own for each test, and what it told.
class Formats : public testing::Test
{
protected:
    explicit Formats(Dialect dialect = Dialect::Transitional)
        : _names(dialect)
        , _theme(makeTheme())
        , _reader(_names, _colors, _theme, _report)
    {
    }

    RunFormat readRun(const std::string& content)
    {
        return _reader.readRun(parseWord("rPr", content, _names.getDialect()));
    }

    /// Never null.
    DOM::RunProps readRunProps(const std::string& content)
    {
        const auto props = readRun(content).props;
        return props ? *props : DOM::RunProps();
    }

    ParaFormat readPara(const std::string& content)
    {
        return _reader.readPara(parseWord("pPr", content, _names.getDialect()));
    }

    DOM::ParaProps readParaProps(const std::string& content)
    {
        const auto props = readPara(content).props;
        return props ? *props : DOM::ParaProps();
    }

    std::vector<std::string> getMessages() const
    {
        std::vector<std::string> messages;
        for (const OperationReport::Message& message : _report.getMessages())
            messages.push_back(message.toString());
        return messages;
    }

    Names _names;
    Colors _colors;
    TextTheme _theme;
    OperationReport _report;
    FormatReader _reader;
};

/// Colours as RRGGBB; empty for none.
inline std::string toText(const boost::optional<DOM::Color::RGBA>& rgba)
{
    return rgba ? fmt::format("{:02X}{:02X}{:02X}", rgba->r, rgba->g, rgba->b) : std::string();
}

inline std::string toText(const boost::optional<DOM::Color>& color)
{
    if (color && color->getRGBA().a == 0)
        return "transparent";
    return color ? toText(boost::make_optional(color->getRGBA())) : std::string();
}

inline std::string toText(const std::shared_ptr<const DOM::LineProps>& line)
{
    if (!line)
        return "null";
    return fmt::format(
        "{} {} {}", static_cast<int>(line->getStyle()), line->getWidth(), toText(line->getColor()));
}

/// One row: an element's text, what becomes of it, and the only message, or null for none.
template <typename Value>
struct FormatRow
{
    const char* name;
    const char* xml;
    Value value;
    const char* message;
};

template <typename Value>
void PrintTo(const FormatRow<Value>& row, std::ostream* out)
{
    *out << row.xml;
}

template <typename Value>
class FormatRows : public Formats, public testing::WithParamInterface<FormatRow<Value>>
{
protected:
    void expectMessage()
    {
        const char* const message = this->GetParam().message;
        if (message)
            EXPECT_THAT(getMessages(), testing::ElementsAre(message));
        else
            EXPECT_THAT(getMessages(), testing::IsEmpty());
    }
};

} // namespace QV::Filters
