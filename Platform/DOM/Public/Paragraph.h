#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <DOM/Public/Block.h>
#include <DOM/Public/Export.h>
#include <DOM/Public/NumberingRef.h>
#include <DOM/Public/ParagraphStyle.h>
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

    /// The text of the runs; a tab is "\t", a break "\n", and a field what it shows.
    std::string getPlainText() const;

    /// The empty style where the paragraph has none.
    const ParagraphStyle& getStyle() const;
    /// Null where the paragraph has none.
    const SharedParagraphStyle& getSharedStyle() const { return _style; }
    void setSharedStyle(SharedParagraphStyle style) { _style = std::move(style); }
    /// Gives the paragraph a style of its own.
    void setStyle(const ParagraphStyle& style);

    /// The style of the mark that ends the paragraph: the empty one where there is none.
    const RunStyle& getParaMarkStyle() const;
    /// Null where there is none.
    const SharedRunStyle& getSharedParaMarkStyle() const { return _paraMarkStyle; }
    void setSharedParaMarkStyle(SharedRunStyle style) { _paraMarkStyle = std::move(style); }

    /// Which list the paragraph is an item of by itself; null where it says nothing.
    const std::unique_ptr<NumberingRef>& getNumRef() const { return _numRef; }
    std::unique_ptr<NumberingRef>& getNumRef() { return _numRef; }
    void setNumRef(std::unique_ptr<NumberingRef> reference) { _numRef = std::move(reference); }

private:
    std::vector<std::unique_ptr<Run>> _runs; // no null entries
    SharedParagraphStyle _style;
    SharedRunStyle _paraMarkStyle;
    std::unique_ptr<NumberingRef> _numRef;
};

/// The paragraph's own style; every container of named styles may hold its parents.
template <typename C>
const ParagraphStyle& getStyleFromContainer(const Paragraph& paragraph, const C&)
{
    return paragraph.getStyle();
}

} // namespace QV::DOM
