#pragma once

/// @file
/// Runs: the pieces of a paragraph, each with one style.

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include <DOM/Public/Export.h>
#include <DOM/Public/RunStyle.h>
#include <Utils/Public/UUID.h>

namespace QV::DOM {

class Frame;

class TextRun;
class TabRun;
class BreakRun;
class DrawingRun;
class BookmarkRun;
class FieldRun;
class AnchorRun;

/// Does one thing for each kind of run.
class DOM_API RunVisitor
{
public:
    virtual void visit(const TextRun& run) = 0;
    virtual void visit(const TabRun& run) = 0;
    virtual void visit(const BreakRun& run) = 0;
    virtual void visit(const DrawingRun& run) = 0;
    virtual void visit(const BookmarkRun& run) = 0;
    virtual void visit(const FieldRun& run) = 0;
    virtual void visit(const AnchorRun& run) = 0;

protected:
    virtual ~RunVisitor();
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

/// A break inside a paragraph: what follows stands in a new line, column or page.
class DOM_API BreakRun final : public Run
{
public:
    enum class Kind : std::uint8_t
    {
        Line,
        Column,
        Page,
    };

    explicit BreakRun(SharedRunStyle style = nullptr)
        : Run(std::move(style))
    {
    }
    explicit BreakRun(Kind kind, SharedRunStyle style = nullptr)
        : Run(std::move(style))
        , _kind(kind)
    {
    }

    void accept(RunVisitor& visitor) const override;

    Kind getKind() const { return _kind; }

private:
    Kind _kind = Kind::Line;
};

/// A frame that stands in the text like a large character.
class DOM_API DrawingRun final : public Run
{
public:
    /// @param frame may be null
    explicit DrawingRun(std::shared_ptr<const Frame> frame, SharedRunStyle style = nullptr)
        : Run(std::move(style))
        , _frame(std::move(frame))
    {
    }

    void accept(RunVisitor& visitor) const override;

    const std::shared_ptr<const Frame>& getFrame() const { return _frame; }

private:
    std::shared_ptr<const Frame> _frame;
};

/// One end of a stretch of text that has a name.
class DOM_API BookmarkRun final : public Run
{
public:
    enum class Kind : std::uint8_t
    {
        Start,
        End,
    };

    /// @param isGenerated whether a program made the bookmark for itself, such as for a table of contents
    BookmarkRun(Kind kind, std::string name, bool isGenerated = false)
        : _name(std::move(name))
        , _kind(kind)
        , _isGenerated(isGenerated)
    {
    }

    void accept(RunVisitor& visitor) const override;

    Kind getKind() const { return _kind; }
    const std::string& getName() const { return _name; }
    bool isGenerated() const { return _isGenerated; }

private:
    std::string _name;
    Kind _kind;
    bool _isGenerated;
};

/// Text that is computed: the instruction, such as "PAGE", and what it last came to.
class DOM_API FieldRun final : public Run
{
public:
    FieldRun(std::string instruction, std::string result, SharedRunStyle style = nullptr)
        : Run(std::move(style))
        , _instruction(std::move(instruction))
        , _result(std::move(result))
    {
    }

    void accept(RunVisitor& visitor) const override;

    const std::string& getInstruction() const { return _instruction; }
    const std::string& getResult() const { return _result; }

private:
    std::string _instruction;
    std::string _result;
};

/// The place in the text that something kept elsewhere belongs to, such as a note or a comment.
class DOM_API AnchorRun final : public Run
{
public:
    /// @param target the object that is anchored here
    explicit AnchorRun(const UUID& target, SharedRunStyle style = nullptr)
        : Run(std::move(style))
        , _target(target)
    {
    }

    void accept(RunVisitor& visitor) const override;

    const UUID& getTargetUUID() const { return _target; }

private:
    UUID _target;
};

} // namespace QV::DOM
