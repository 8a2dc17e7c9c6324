#pragma once

#include <cstdint>
#include <string>
#include <utility>

#include <DOM/Public/CellText.h>
#include <DOM/Public/Export.h>
#include <Utils/Public/UUIDable.h>

namespace QV::DOM {

/// What is said apart from the text: anchor runs of the text lead to it.
class DOM_API Note : public UUIDable
{
public:
    enum class Kind : std::uint8_t
    {
        Footnote,
        Endnote,
        Comment,
    };

    /// @param text not null
    Note(Kind kind, SharedCellText text)
        : _kind(kind)
        , _text(std::move(text))
    {
    }

    Kind getKind() const { return _kind; }
    const SharedCellText& getText() const { return _text; }

    /// Who wrote a comment; may be empty.
    const std::string& getAuthor() const { return _author; }
    void setAuthor(std::string author) { _author = std::move(author); }

private:
    Kind _kind;
    SharedCellText _text;
    std::string _author;
};

} // namespace QV::DOM
