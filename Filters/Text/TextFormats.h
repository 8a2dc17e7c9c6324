#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <unordered_map>

#include <DOM/Public/NumberingRef.h>
#include <DOM/Public/ParagraphStyle.h>
#include <DOM/Public/RunStyle.h>
#include <Filters/Package/Export.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Text/FormatReader.h>
#include <Utils/Public/CaseInsensitiveLess.h>
#include <Utils/Public/UUID.h>

namespace QV::DOM {
class Paragraph;
}

namespace QV::Filters {

struct TextContext;

/// The formats of paragraphs and runs in a document's stories, each read once however often it is there:
/// formats are told apart by the text of their elements (see PropertyText). Of each kind TextsMax are kept;
/// others are read again each time,
/// and so are those whose texts would be more than TextBytesMax together.
///
/// A style that the document does not have is reported once: "Style {} is not defined".
///
/// Made once the styles and lists of the document are read.
class FILTERS_API TextFormats
{
public:
    static constexpr std::size_t TextsMax = 50000;
    static constexpr std::size_t TextBytesMax = std::size_t{32} << 20U;

    explicit TextFormats(TextContext& context);

    struct Paragraph
    {
        DOM::SharedParagraphStyle style; ///< null where nothing is set
        DOM::SharedRunStyle mark;        ///< of the mark at the end; null where nothing is set
        /// Without what the style gives as well (see FilterUtils::stripNumRef); null for none.
        std::unique_ptr<DOM::NumberingRef> numRef;
    };

    /// @param text of a "pPr" element; empty for none. Valid until the next call.
    const Paragraph& getParagraph(const std::string& text);

    /// What a run of this "rPr" sets: named style, properties, those before a tracked change. The caller adds
    /// links, changes and fields to a copy. Valid until the next call.
    const DOM::RunStyle& getRun(const std::string& text);

    /// Paragraph and character styles by what a person calls them.
    using StyleNames = std::map<std::string, UUID, CaseInsensitiveLess>;
    const StyleNames& getStyleNames();

    /// Looks whether a paragraph of a story has text that is hidden by itself or by its styles.
    void noteHidden(const DOM::Paragraph& paragraph);
    /// Whether there was such a paragraph.
    bool hasHiddenText() const { return _hasHiddenText; }

private:
    Paragraph makeParagraph(const std::string& text);
    DOM::RunStyle makeRunStyle(const RunFormat& format);
    void stripNumbering(Paragraph& format);
    UUID findStyle(const std::string& id);
    bool takeTextRoom(std::size_t count, const std::string& text);
    bool spendStyleVisits();

    TextContext& _context;
    Names _names; // those in which PropertyText writes
    FormatReader _reader;
    std::unordered_map<std::string, Paragraph> _paragraphs; // by text
    std::unordered_map<std::string, DOM::RunStyle> _runs;   // the same
    std::size_t _textBytes = 0;                             // of all these texts
    Paragraph _lastParagraph;                               // where it is not kept
    DOM::RunStyle _lastRun;                                 // the same
    std::set<std::string> _unknownStyles;                   // that were reported
    StyleNames _styleNames;                                 // once they were asked for
    std::size_t _styleVisits = 0;                           // see spendStyleVisits
    bool _hasHiddenText = false;
};

} // namespace QV::Filters
