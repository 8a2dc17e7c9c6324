#include <FilterUtils/FU_CellQueries.h>

#include <vector>

#include <DOM/Public/Block.h>
#include <DOM/Public/Cell.h>
#include <DOM/Public/FieldBlock.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/Styles.h>
#include <DOM/Public/TrackChangesViewMode.h>
#include <FilterUtils/FU_StyleHierarchy.h>
#include <Utils/Public/Ptr/PtrUtils.h>

namespace QV::FilterUtils {
namespace {

using Link = std::shared_ptr<const DOM::Hyperlink>;

bool isParagraphEmpty(const DOM::Paragraph& paragraph)
{
    const DOM::SharedRunStyle& markStyle = paragraph.getSharedParaMarkStyle();
    return paragraph.getStyle().isEmpty() && paragraph.getRuns().empty() &&
           (!markStyle || markStyle->isEmpty());
}

Link getParagraphHyperlink(const DOM::Paragraph& paragraph)
{
    if (const Link& link = paragraph.getParaMarkStyle().getHyperlink())
        return link;
    const auto runs = paragraph.getRuns();
    if (runs.empty() || isExactly<DOM::DrawingRun>(runs.front()))
        return nullptr;
    return runs.front().getStyle().getHyperlink();
}

class CommonPropsFinder final : public DOM::RunVisitor
{
public:
    explicit CommonPropsFinder(const DOM::Styles& styles)
        : _styles(styles)
    {
    }

    void startParagraph(const DOM::Paragraph& paragraph) { _paragraph = &paragraph; }

    void visit(const DOM::TextRun& run) override { compareRun(run); }
    void visit(const DOM::TabRun& run) override { compareRun(run); }
    void visit(const DOM::BreakRun& run) override { compareRun(run); }
    void visit(const DOM::DrawingRun&) override { forgetProps(); }
    void visit(const DOM::BookmarkRun&) override { forgetProps(); }
    void visit(const DOM::FieldRun&) override { forgetProps(); }
    void visit(const DOM::AnchorRun&) override { forgetProps(); }

    const CellPropsFromRuns& getCommon() const { return _common; }

private:
    std::shared_ptr<const DOM::RunProps> resolveProps(const DOM::Run& run) const
    {
        constexpr auto mode = DOM::TrackChangesViewMode::FollowTrackedParents;
        std::shared_ptr<DOM::RunProps> props;
        overrideRunPropsWithTracked(_styles, props, _paragraph->getStyle(), mode);
        overrideRunPropsWithTracked(_styles, props, run.getStyle(), mode);
        return props;
    }

    void compareRun(const DOM::Run& run)
    {
        const std::shared_ptr<const DOM::RunProps> props = resolveProps(run);
        const boost::optional<DOM::Color> color = props ? props->getBackgroundColor() : boost::none;
        if (_isFirst) {
            _common = {props, color};
            _isFirst = false;
            return;
        }
        if (!pointeesEqual(props, _common.runProps))
            _common.runProps = nullptr;
        if (color != _common.backgroundColor)
            _common.backgroundColor = boost::none;
    }

    /// A run that has no properties to compare has none in common with any other.
    void forgetProps()
    {
        _common.runProps = nullptr;
        _isFirst = false;
    }

    const DOM::Styles& _styles;
    const DOM::Paragraph* _paragraph = nullptr;
    CellPropsFromRuns _common;
    bool _isFirst = true;
};

} // namespace

bool isCellEmpty(const DOM::Cell& cell)
{
    if (!cell.getStyle().isEmpty() || cell.getMergeProps() != DOM::MergeProps())
        return false;
    const auto blocks = cell.getTextBlocks();
    if (!blocks)
        return false;
    if (blocks->empty())
        return true;
    const auto* const paragraph = blocks->size() == 1 ? exactCast<DOM::Paragraph>(&blocks->front()) : nullptr;
    return paragraph && isParagraphEmpty(*paragraph);
}

Link getCellHyperlink(const DOM::Cell& cell)
{
    const auto* const blocks = cell.getRawBlocks();
    if (!blocks || blocks->empty())
        return nullptr;
    const DOM::Block* const first = checkPtr(blocks->front().get());
    if (const auto* const paragraph = exactCast<DOM::Paragraph>(first))
        return getParagraphHyperlink(*paragraph);
    const auto* const field = exactCast<DOM::FieldBlock>(first);
    return field ? field->getHyperlink() : nullptr;
}

CellPropsFromRuns getCellPropsFromRuns(const DOM::Cell& cell, const DOM::Styles& styles)
{
    const auto blocks = cell.getTextBlocks();
    if (!blocks)
        return {};
    CommonPropsFinder finder(styles);
    for (const DOM::Block& block : *blocks) {
        const auto* const paragraph = exactCast<DOM::Paragraph>(&block);
        if (!paragraph)
            continue;
        finder.startParagraph(*paragraph);
        for (const DOM::Run& run : paragraph->getRuns())
            run.accept(finder);
    }
    return finder.getCommon();
}

} // namespace QV::FilterUtils
