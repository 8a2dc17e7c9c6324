#pragma once

/// @file
/// The names of sheets and shared strings that the readers of streams tell apart.

#include <string_view>

#include <boost/optional.hpp>

#include <FilterUtils/FU_XMLVocabulary.h>

namespace QV::Filters {

struct Words
{
    enum Word : int
    {
        // Sheets.
        Worksheet,
        SheetFormatProps,
        Columns,
        Column,
        SheetData,
        Row,
        Cell,
        Value,
        Formula,
        InlineString,
        MergeCells,
        MergeCell,
        Drawing,
        AutoFilter,
        ConditionalFormatting,
        Controls,
        DataValidations,
        HeaderFooter,
        Hyperlinks,
        Hyperlink,
        OleObjects,
        Picture,
        SheetProtection,
        SortState,
        TableParts,
        TablePart,
        // String items.
        SharedStrings,
        StringItem,
        Text,
        Run,
        RunProps,
        PhoneticRun,
        // Markup compatibility.
        AlternateContent,
        Choice,
        Fallback,
        // Attributes.
        BaseColumnWidth,
        CustomFormat,
        DefaultColumnWidth,
        DefaultRowHeight,
        FirstInput,
        Height,
        Hidden,
        Location,
        Max,
        Min,
        Ref,
        Reference,
        RelationshipId,
        RowInput,
        SecondInput,
        SharedIndex,
        Style,
        ColumnStyle,
        Type,
        Width,
        ZeroHeight,
    };
};

/// In both dialects.
const FilterUtils::XMLVocabulary& getSpreadsheetWords();

/// A number without a sign; nothing where there is no text, it is no such number, or the number exceeds 32
/// bits.
boost::optional<unsigned long> readUnsigned(const boost::optional<std::u16string_view>& text);

} // namespace QV::Filters
