#pragma once

#include <memory>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <DOM/Public/Cell.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Styles.h>
#include <DOM/Public/Table.h>
#include <DOM/Public/TableStyle.h>
#include <Filters/ModelJson/SpreadsheetJson.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Package.h>
#include <Filters/Spreadsheet/SpreadsheetImport.h>
#include <Tests/Support/WorkbookBuilder.h>
#include <Tests/Support/XercesEnvironment.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Tests {

/// A workbook that a test puts together, and what its import makes of it.
class ImportedWorkbook : public testing::Test
{
protected:
    void import()
    {
        run = std::make_unique<Filters::FilterRun>();
        Filters::Package package = Filters::Package::openBytes(builder.make());
        Filters::importSpreadsheet(package, *run);
    }

    DOM::Table& getTable() const
    {
        return dynamic_cast<DOM::Table&>(*run->getDocument().getBlocks().begin());
    }

    const DOM::Cell* findCell(unsigned long row, unsigned long column) const
    {
        return getTable().findCell(RowIndex(row), ColumnIndex(column));
    }

    const DOM::NamedTableStyle* findStyle(const std::string& name) const
    {
        for (const auto& style : run->getDocument().getStyles().getTableStyles())
            if (style.second.getName() == name)
                return &style.second;
        return nullptr;
    }

    std::vector<std::string> listMessages() const
    {
        std::vector<std::string> texts;
        for (const OperationReport::Message& message : run->getReport().getMessages())
            if (message.getText() != Filters::FilterRun::LeftOutMessage)
                texts.push_back(message.toString());
        return texts;
    }

    std::string writeJson() const
    {
        std::ostringstream out;
        Filters::writeSpreadsheetJson(*run, out);
        return out.str();
    }

    WorkbookBuilder builder;
    std::unique_ptr<Filters::FilterRun> run;
};

} // namespace QV::Tests
