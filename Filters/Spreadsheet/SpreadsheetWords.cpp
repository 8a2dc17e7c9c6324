#include <Filters/Spreadsheet/SpreadsheetWords.h>

#include <limits>

#include <Filters/Package/Namespaces.h>
#include <Filters/Package/XmlParts.h>

namespace QV::Filters {
namespace {

FilterUtils::XMLVocabulary makeWords()
{
    return FilterUtils::XMLVocabulary(
        {
            makeXmlNamespace("x", Vocabulary::Spreadsheet),
            makeXmlNamespace("r", Vocabulary::Relationships),
            makeXmlNamespace("mc", Vocabulary::MarkupCompatibility),
    },
        {
            {Words::Worksheet, "x:worksheet"},
            {Words::SheetFormatProps, "x:sheetFormatPr"},
            {Words::Columns, "x:cols"},
            {Words::Column, "x:col"},
            {Words::SheetData, "x:sheetData"},
            {Words::Row, "x:row"},
            {Words::Cell, "x:c"},
            {Words::Value, "x:v"},
            {Words::Formula, "x:f"},
            {Words::InlineString, "x:is"},
            {Words::MergeCells, "x:mergeCells"},
            {Words::MergeCell, "x:mergeCell"},
            {Words::Drawing, "x:drawing"},
            {Words::AutoFilter, "x:autoFilter"},
            {Words::ConditionalFormatting, "x:conditionalFormatting"},
            {Words::Controls, "x:controls"},
            {Words::DataValidations, "x:dataValidations"},
            {Words::HeaderFooter, "x:headerFooter"},
            {Words::Hyperlinks, "x:hyperlinks"},
            {Words::Hyperlink, "x:hyperlink"},
            {Words::OleObjects, "x:oleObjects"},
            {Words::Picture, "x:picture"},
            {Words::SheetProtection, "x:sheetProtection"},
            {Words::SortState, "x:sortState"},
            {Words::TableParts, "x:tableParts"},
            {Words::TablePart, "x:tablePart"},
            {Words::SharedStrings, "x:sst"},
            {Words::StringItem, "x:si"},
            {Words::Text, "x:t"},
            {Words::Run, "x:r"},
            {Words::RunProps, "x:rPr"},
            {Words::PhoneticRun, "x:rPh"},
            {Words::AlternateContent, "mc:AlternateContent"},
            {Words::Choice, "mc:Choice"},
            {Words::Fallback, "mc:Fallback"},
            {Words::BaseColumnWidth, "baseColWidth"},
            {Words::CustomFormat, "customFormat"},
            {Words::DefaultColumnWidth, "defaultColWidth"},
            {Words::DefaultRowHeight, "defaultRowHeight"},
            {Words::FirstInput, "r1"},
            {Words::Height, "ht"},
            {Words::Hidden, "hidden"},
            {Words::Location, "location"},
            {Words::Max, "max"},
            {Words::Min, "min"},
            {Words::Ref, "ref"},
            {Words::Reference, "r"},
            {Words::RelationshipId, "r:id"},
            {Words::RowInput, "dtr"},
            {Words::SecondInput, "r2"},
            {Words::SharedIndex, "si"},
            {Words::Style, "s"},
            {Words::ColumnStyle, "style"},
            {Words::Type, "t"},
            {Words::Width, "width"},
            {Words::ZeroHeight, "zeroHeight"},
        });
}

} // namespace

const FilterUtils::XMLVocabulary& getSpreadsheetWords()
{
    static const FilterUtils::XMLVocabulary words = makeWords();
    return words;
}

boost::optional<unsigned long> readUnsigned(const boost::optional<std::u16string_view>& text)
{
    if (!text || text->empty())
        return boost::none;
    unsigned long number = 0;
    for (const char16_t c : *text) {
        if (c < u'0' || c > u'9')
            return boost::none;
        number = number * 10 + (c - u'0');
        if (number > std::numeric_limits<unsigned>::max())
            return boost::none;
    }
    return number;
}

} // namespace QV::Filters
