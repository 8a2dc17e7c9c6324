#include <Filters/Text/TextImport.h>

#include <cstddef>
#include <initializer_list>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <boost/variant.hpp>

#include <DOM/Public/Block.h>
#include <DOM/Public/BlockCollection.h>
#include <DOM/Public/CellText.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/NamedTextStyle.h>
#include <DOM/Public/Note.h>
#include <DOM/Public/PredefinedStyleName.h>
#include <DOM/Public/PredefinedTextStyles.h>
#include <DOM/Public/Styles.h>
#include <DOM/Public/TableStyle.h>
#include <FilterUtils/FU_NamedStylesFactory.h>
#include <FilterUtils/FU_NumberedListsFactory.h>
#include <FilterUtils/FU_XMLElement.h>
#include <Filters/Package/ContentTypes.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/MainPart.h>
#include <Filters/Package/Namespaces.h>
#include <Filters/Package/Package.h>
#include <Filters/Package/PackageError.h>
#include <Filters/Package/Relationships.h>
#include <Filters/Package/XmlParts.h>
#include <Filters/Text/FormatReader.h>
#include <Filters/Text/FormatValues.h>
#include <Filters/Text/StoryReader.h>
#include <Filters/Text/TextContext.h>
#include <Filters/Text/TextFormats.h>
#include <Filters/Text/TextLeftOut.h>
#include <Filters/Text/TextNumbering.h>
#include <Filters/Text/TextSections.h>
#include <Filters/Text/TextStyles.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;

/// A root element does not tell its name, but its children are in its own namespace.
Names findPartNames(const XMLElement& root, Dialect expected, std::initializer_list<const char*> children)
{
    for (const Dialect dialect : {Dialect::Transitional, Dialect::Strict})
        for (const char* const child : children)
            if (root.getElement(Names(dialect)(Vocabulary::WordProcessing, child)).isValid())
                return Names(dialect);
    return Names(expected);
}

class TextImporter
{
public:
    TextImporter(Package& package, FilterRun& run)
        : _package(package)
        , _run(run)
        , _context(package, run)
    {
    }

    void import()
    {
        _mainPart = findDocumentPart();
        _relationships =
            std::make_unique<Relationships>(Relationships::read(_package, _mainPart.name, _run.getReport()));
        readTheme();
        readSettings();
        readStyles();
        readNumbering();
        noteLeftOut();

        TextFormats formats(_context);
        TextSections sections(_context, formats, *_relationships, _hasEvenPages);
        readBody(formats, sections);
        sections.finish();
        readNotesPart(formats, DOM::Note::Kind::Footnote, "footnotes");
        readNotesPart(formats, DOM::Note::Kind::Endnote, "endnotes");
        readNotesPart(formats, DOM::Note::Kind::Comment, "comments"); // other notes may have comments
        appendNotes();
        // Readers of text look at the styles where they are made, so they move last.
        moveStyles();
        if (formats.hasHiddenText()) // whoever hands the document on may want to know
            _run.getReport().emplace_back("{} is kept, and not shown", "Hidden text");
        _context.messages.finish(_run.getReport());
    }

private:
    MainPart findDocumentPart()
    {
        const ContentTypes types = ContentTypes::read(_package, _run.getReport());
        const Relationships relationships = Relationships::read(_package, {}, _run.getReport());
        MainPart mainPart = findMainPart(_package, types, relationships);
        if (mainPart.kind != DocumentKind::Text)
            throw PackageError(PackageError::Kind::Unsupported,
                mainPart.kind == DocumentKind::Spreadsheet
                    ? "a workbook; only text documents can be read"
                    : "a presentation; only text documents can be read",
                mainPart.name);
        return mainPart;
    }

    /// The part of that kind; null for none.
    const Relationship* findPart(const char* family) const
    {
        for (const Relationship& relationship : _relationships->getAll())
            if (!relationship.isExternal && relationship.isType(family))
                return &relationship;
        return nullptr;
    }

    /// Its root; the invalid view where it is not there or cannot be read.
    XMLElement readPart(const char* family)
    {
        const Relationship* const part = findPart(family);
        return part ? readXml(_package, part->target, _run.getReport()) : XMLElement();
    }

    FormatReader makeFormatReader(const Names& names, const XMLElement& root)
    {
        return FormatReader(
            names, _context.colors, _context.theme, _run.getReport(), &_context.messages, root);
    }

    void readTheme()
    {
        const XMLElement theme = readPart("theme");
        if (!theme.isValid())
            return;
        _context.colors.readTheme(theme, _run.getReport());
        _context.theme.readFonts(theme);
    }

    void readSettings()
    {
        const XMLElement settings = readPart("settings");
        if (!settings.isValid())
            return;
        const Names names = findPartNames(settings, _mainPart.dialect,
            {"clrSchemeMapping", "evenAndOddHeaders", "zoom", "compat", "defaultTabStop", "rsids"});
        const FormatReader formats = makeFormatReader(names, settings);
        _context.theme.readColorMapping(formats.getValues().find(settings, "clrSchemeMapping"), names);
        _hasEvenPages = formats.getValues().readSwitch(settings, "evenAndOddHeaders").value_or(false);
    }

    void readStyles()
    {
        const XMLElement root = readPart("styles");
        if (root.isValid()) {
            const Names names =
                findPartNames(root, _mainPart.dialect, {"docDefaults", "style", "latentStyles"});
            readTextStyles(root, names, makeFormatReader(names, root), _context.numbering, _context.styles,
                _run.getReport());
            return;
        }
        TextStyles& styles = _context.styles;
        constexpr auto Normal = DOM::PredefinedStyleName::Normal;
        const auto normal = styles.factory.makeNamedTextStyle(Normal);
        styles.factory.setDefaultParagraphStyleUUID(normal->getUUID());
        styles.predefinedStyles.emplace(Normal, normal);
    }

    void readNumbering()
    {
        const XMLElement root = readPart("numbering");
        if (root.isValid()) {
            const Names names = findPartNames(root, _mainPart.dialect, {"abstractNum", "num"});
            _context.numbering.read(root, names, makeFormatReader(names, root), _run.getReport());
        }
        _context.numbering.applyStyleNumbering(_context.styles, _run.getReport());
    }

    /// What else hangs on the document.
    void noteLeftOut()
    {
        for (const Relationship& relationship : _relationships->getAll()) {
            if (relationship.isType("aFChunk"))
                _run.leaveOut(TextLeftOut::AltChunks);
            else if (relationship.type.find("vbaProject") != std::string::npos)
                _run.leaveOut(TextLeftOut::Macros);
            else if (relationship.isExternal && isDocumentLink(relationship))
                _run.addLink(relationship.target);
        }
        const Relationship* const settings = findPart("settings");
        if (!settings)
            return;
        OperationReport unused; // that an external target is not followed is what the link says
        const Relationships relationships = Relationships::read(_package, settings->target, unused);
        for (const Relationship& relationship : relationships.getAll())
            if (relationship.isExternal && isDocumentLink(relationship))
                _run.addLink(relationship.target);
    }

    /// Whether it leads to a document that this one is made with, other than pictures and what readers click.
    static bool isDocumentLink(const Relationship& relationship)
    {
        for (const char* const family : {"attachedTemplate", "subDocument", "oleObject", "frame",
                 "mailMergeSource", "mailMergeHeaderSource"})
            if (relationship.isType(family))
                return !relationship.target.empty();
        return false;
    }

    void readBody(TextFormats& formats, TextSections& sections)
    {
        StorySink sink;
        sink.takeBlock = [&](std::unique_ptr<DOM::Block> block) {
            _run.getDocument().getBlocks().append(std::move(block));
            sections.noteBlock();
        };
        sink.takeSection = [&](const std::string& text) { sections.noteSection(text); };
        if (!readStory(_context, formats, _mainPart.name, *_relationships, sink))
            throw PackageError(PackageError::Kind::Damaged,
                "part \"" + makePrintable(_mainPart.name) + "\" is not well-formed XML", _mainPart.name);
    }

    bool isKindReferred(DOM::Note::Kind kind) const
    {
        const auto first = _context.notes.lower_bound(NoteKey(kind, std::string()));
        return first != _context.notes.end() && first->first.first == kind;
    }

    void readNotesPart(TextFormats& formats, DOM::Note::Kind kind, const char* family)
    {
        const Relationship* const part = findPart(family);
        if (!part || !isKindReferred(kind))
            return;
        const Relationships relationships = Relationships::read(_package, part->target, _run.getReport());
        readNotes(_context, formats, part->target, relationships, [&](NoteStory&& story) {
            if (!story.type.empty() && story.type != "normal")
                return; // a separator between the text and its notes
            const std::string id = story.id;
            if (!_notes.try_emplace(NoteKey(kind, id), std::move(story)).second)
                _context.report("Note {} is there twice", id);
        });
    }

    void appendNotes()
    {
        for (const NoteKey& key : _context.noteOrder) {
            const auto found = _notes.find(key);
            if (found == _notes.end()) {
                _context.report("Note {} is not there", key.second);
                continue;
            }
            NoteStory& story = found->second;
            auto note = std::make_unique<DOM::Note>(
                key.first, DOM::SharedCellText(new DOM::CellText(std::move(story.blocks))));
            note->setUUID(_context.referToNote(key));
            note->setAuthor(std::move(story.author));
            _run.getDocument().appendNote(std::move(note));
        }
    }

    void moveStyles()
    {
        DOM::Styles& styles = _run.getDocument().getStyles();
        FilterUtils::NamedStylesFactory& factory = _context.styles.factory;
        styles.setDefaultParagraphStyle(factory.getDefaultParagraphStyle());
        styles.setDefaultTableStyle(factory.getDefaultTableStyle());
        styles.setDefaultParaProps(factory.getDefaultParaProps());
        styles.setDefaultRunProps(factory.getDefaultRunProps());
        for (const std::shared_ptr<DOM::NamedTextStyle>& style : factory.getTextStyles()) {
            if (!styles.getTextStyles().find(style->getUUID()))
                styles.getTextStyles().insert(std::move(*style));
            else
                _context.report("Style {} is there twice", DOM::getStyleNameText(*style));
        }
        for (const auto& style : _context.styles.newStyles) // most of them moved with the factory's
            if (!styles.getTextStyles().find(style->getUUID()))
                styles.getTextStyles().insert(DOM::NamedTextStyle(*style));
        for (const std::shared_ptr<DOM::NamedTableStyle>& style : factory.getTableStyles()) {
            const UUID uuid = style->getUUID();
            styles.getTableStyles().emplace(uuid, std::move(*style));
        }
        for (const auto& list : _context.numbering.getLists().getNumberedLists())
            _run.getDocument().addNumberedList(list);
    }

    Package& _package;
    FilterRun& _run;
    TextContext _context;
    MainPart _mainPart{{}, {}, DocumentKind::Text, Dialect::Transitional};
    std::unique_ptr<Relationships> _relationships; // of the main part
    bool _hasEvenPages = false;
    std::map<NoteKey, NoteStory> _notes; // as their parts have them
};

} // namespace

void importText(Package& package, FilterRun& run)
{
    TextImporter(package, run).import();
}

} // namespace QV::Filters
