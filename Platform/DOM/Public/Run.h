#pragma once

/// @file
/// Runs: the pieces of a paragraph, each with one style.

#include <string>
#include <utility>

#include <DOM/Public/Export.h>
#include <DOM/Public/RunStyle.h>

namespace QV::DOM {

class TextRun;
class TabRun;
class BreakRun;

/// Does one thing for each kind of run.
class DOM_API RunVisitor
{
public:
    virtual void visit(const TextRun& run) = 0;
    virtual void visit(const TabRun& run) = 0;
    virtual void visit(const BreakRun& run) = 0;

protected:
    ~RunVisitor() = default;
};

class DOM_API Run
{
public:
    explicit Run(SharedRunStyle style = nullptr)
        : _style(std::move(style))
    {
    }
    virtual ~Run();

    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;

    virtual void accept(RunVisitor& visitor) const = 0;

    /// The empty style where the run has none.
    const RunStyle& getStyle() const;
    /// Null where the run has none.
    const SharedRunStyle& getSharedStyle() const { return _style; }
    void setSharedStyle(SharedRunStyle style) { _style = std::move(style); }

private:
    SharedRunStyle _style;
};

/// Characters, in UTF-8.
class DOM_API TextRun final : public Run
{
public:
    explicit TextRun(std::string text, SharedRunStyle style = nullptr)
        : Run(std::move(style))
        , _text(std::move(text))
    {
    }

    void accept(RunVisitor& visitor) const override;

    const std::string& getText() const { return _text; }
    void setText(std::string text) { _text = std::move(text); }

private:
    std::string _text;
};

/// A tab character.
class DOM_API TabRun final : public Run
{
public:
    using Run::Run;

    void accept(RunVisitor& visitor) const override;
};

/// A line break inside a paragraph.
class DOM_API BreakRun final : public Run
{
public:
    using Run::Run;

    void accept(RunVisitor& visitor) const override;
};

} // namespace QV::DOM
