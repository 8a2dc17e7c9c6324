#pragma once

#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <boost/optional.hpp>
#include <gtest/gtest.h>

#include <DOM/Public/Block.h>
#include <DOM/Public/BordersProps.h>
#include <DOM/Public/Cell.h>
#include <DOM/Public/CellProps.h>
#include <DOM/Public/CellRow.h>
#include <DOM/Public/CellStyle.h>
#include <DOM/Public/CellText.h>
#include <DOM/Public/Color.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Table.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Package.h>
#include <Filters/Text/TextContext.h>
#include <Filters/Text/TextTable.h>
#include <Tests/Support/TextPackageBuilder.h>
#include <Tests/Support/XercesEnvironment.h>
#include <Utils/Public/OperationReport.h>
#include <Utils/Public/TableIndices/RowColumnIndices.h>

namespace QV::Tests {

struct CellOfTest
{
    std::string text;
    std::string props;
};

struct RowOfTest
{
    std::vector<CellOfTest> cells;
    std::string props;
    std::string exceptions;
};

/// A table of a text document, put together from the elements of its file.
class TextTableFixture : public testing::Test
{
protected:
    FilterUtils::XMLElement parse(const std::string& name, const std::string& content) const
    {
        std::istringstream in(
            "<w:" + name + makeTextDeclarations(isStrict) + ">" + content + "</w:" + name + ">");
        return FilterUtils::XMLElement::getRootElement(in, boost::none);
    }

    static std::vector<std::unique_ptr<DOM::Block>> makeBlocks(const std::string& text)
    {
        std::vector<std::unique_ptr<DOM::Block>> blocks;
        auto paragraph = std::make_unique<DOM::Paragraph>();
        if (!text.empty())
            paragraph->appendText(text);
        blocks.push_back(std::move(paragraph));
        return blocks;
    }

    void makeTable(const std::vector<RowOfTest>& rows)
    {
        Filters::TextTable gathered(context);
        if (!tableProps.empty())
            gathered.readTableProps(parse("tblPr", tableProps));
        gathered.readGrid(parse("tblGrid", grid));
        for (const RowOfTest& row : rows) {
            gathered.beginRow();
            if (!row.props.empty())
                gathered.readRowProps(parse("trPr", row.props));
            if (!row.exceptions.empty())
                gathered.readRowExceptions(parse("tblPrEx", row.exceptions));
            for (const CellOfTest& cell : row.cells) {
                gathered.beginCell();
                if (!cell.props.empty())
                    gathered.readCellProps(parse("tcPr", cell.props));
                gathered.endCell(makeBlocks(cell.text));
            }
            gathered.endRow();
        }
        table = gathered.finish();
    }

    std::string getText(unsigned long row, unsigned long column) const
    {
        const DOM::Cell* const cell = table->findCell(RowIndex(row), ColumnIndex(column));
        if (!cell)
            return "-";
        return cell->getText() ? cell->getText()->getPlainText() : std::string();
    }

    /// The texts of a row's cells, "-" for a cell that is not there.
    std::vector<std::string> listRow(unsigned long row) const
    {
        std::vector<std::string> texts;
        for (unsigned long column = 0; column < table->getLiveColsCount(); ++column)
            texts.push_back(getText(row, column));
        return texts;
    }

    const DOM::CellProps& getProps(unsigned long row, unsigned long column) const
    {
        static const DOM::CellProps none;
        const auto& props = table->findCell(RowIndex(row), ColumnIndex(column))->getStyle().getCellProps();
        return props ? *props : none;
    }

    /// The red part of an opaque filling; -1 for none.
    int getRed(unsigned long row, unsigned long column) const
    {
        const auto& color = getProps(row, column).getBackgroundColor();
        return color && color->getRGBA().a == 255 ? color->getRGBA().r : -1;
    }

    const DOM::BordersProps& getBorders(unsigned long row, unsigned long column) const
    {
        static const DOM::BordersProps none;
        const auto& borders = getProps(row, column).getBorders();
        return borders ? *borders : none;
    }

    boost::optional<float> getWidth(unsigned long column) const
    {
        return table->getColumnProps(ColumnIndex(column)).getWidth();
    }

    boost::optional<float> getHeight(unsigned long row) const
    {
        return table->getRowProps(RowIndex(row)).getHeight();
    }

    std::vector<std::string> listMessages() const
    {
        std::vector<std::string> texts;
        for (const OperationReport::Message& message : run.getReport().getMessages())
            texts.push_back(message.toString());
        return texts;
    }

    static std::shared_ptr<const DOM::CellProps> makeFilling(unsigned char red)
    {
        DOM::CellProps props;
        props.setBackgroundColor(DOM::Color(DOM::Color::RGBA(red, 0, 0, 255)));
        return std::make_shared<DOM::CellProps>(props);
    }

    bool isStrict = false;
    std::string tableProps;
    std::string grid;
    Filters::FilterRun run;
    Filters::Package package = Filters::Package::openBytes(TextPackageBuilder().make());
    Filters::TextContext context{package, run};
    std::unique_ptr<DOM::Table> table;
};

} // namespace QV::Tests
