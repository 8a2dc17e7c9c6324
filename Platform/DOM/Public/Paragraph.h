#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <DOM/Public/Block.h>
#include <DOM/Public/Export.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/RunStyle.h>
#include <Utils/Public/ReadonlyVector.h>

namespace QV::DOM {

/// A paragraph: runs in reading order.
class DOM_API Paragraph final : public Block
{
public:
    Paragraph();
    ~Paragraph() override;

    ReadonlyVector<std::unique_ptr<Run>> getRuns() const
    {
        return ReadonlyVector<std::unique_ptr<Run>>(_runs);
    }
    void appendRun(std::unique_ptr<Run> run) { _runs.push_back(std::move(run)); }

    /// Appends @p text as runs of one style: line feeds become break runs, tabs become tab runs, all else
    /// text runs.
    void appendText(const std::string& text, const SharedRunStyle& style = nullptr);

    /// The text of the runs; a tab is "\t" and a break "\n".
    std::string getPlainText() const;

private:
    std::vector<std::unique_ptr<Run>> _runs; // no null entries
};

} // namespace QV::DOM
