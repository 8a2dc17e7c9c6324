#include <DOM/Public/Run.h>

namespace QV::DOM {

RunVisitor::~RunVisitor() = default;

Run::~Run() = default;

const RunStyle& Run::getStyle() const
{
    static const RunStyle empty;
    return _style ? *_style : empty;
}

void TextRun::accept(RunVisitor& visitor) const
{
    visitor.visit(*this);
}

void TabRun::accept(RunVisitor& visitor) const
{
    visitor.visit(*this);
}

void BreakRun::accept(RunVisitor& visitor) const
{
    visitor.visit(*this);
}

void DrawingRun::accept(RunVisitor& visitor) const
{
    visitor.visit(*this);
}

void BookmarkRun::accept(RunVisitor& visitor) const
{
    visitor.visit(*this);
}

void FieldRun::accept(RunVisitor& visitor) const
{
    visitor.visit(*this);
}

void AnchorRun::accept(RunVisitor& visitor) const
{
    visitor.visit(*this);
}

} // namespace QV::DOM
