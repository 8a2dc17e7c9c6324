#pragma once

#include <FilterUtils/FU_XMLVocabulary.h>
#include <Filters/Package/Export.h>

namespace QV::Filters {

/// The names in the parts of text documents that their readers tell apart.
struct TextWords
{
    enum Word : int
    {
        // Stories and blocks.
        Body,
        Footnote,
        Endnote,
        Comment,
        Paragraph,
        ParagraphProps,
        SectionProps,
        Table,
        TableProps,
        TableGrid,
        Row,
        RowProps,
        RowExceptions,
        Cell,
        CellProps,
        AltChunk,
        SdtProps,
        SdtEndProps,
        CustomXmlProps,
        // Runs and what stands around them.
        Run,
        RunProps,
        Hyperlink,
        SimpleField,
        Inserted,
        Deleted,
        MovedFrom,
        MovedTo,
        BookmarkStart,
        BookmarkEnd,
        RubyText,
        // What stands in runs.
        Text,
        DeletedText,
        InstructionText,
        DeletedInstructionText,
        MathRun,
        MathText,
        Tab,
        PositionedTab,
        Break,
        CarriageReturn,
        NoBreakHyphen,
        SoftHyphen,
        Symbol,
        FieldCharacter,
        FootnoteReference,
        EndnoteReference,
        CommentReference,
        // Drawings.
        Drawing,
        VmlPicture,
        EmbeddedObject,
        Inline,
        Anchor,
        Extent,
        HorizontalPosition,
        VerticalPosition,
        SimplePosition,
        GraphicData,
        Picture,
        Blip,
        WordShape,
        WordGroup,
        WordGroupChild,
        WordCanvas,
        ShapeStyle,
        Chart,
        Diagram,
        TextBoxContent,
        // VML.
        VmlShape,
        VmlGroup,
        VmlImageData,
        VmlFill,
        VmlTextPath,
        OleObject,
        // Markup compatibility.
        AlternateContent,
        Choice,
        Fallback,

        // Attributes.
        Id,
        Type,
        Name,
        Author,
        Date,
        RelationshipId,
        RelationshipEmbed,
        RelationshipLink,
        LinkAnchor,
        Instruction,
        FieldCharacterType,
        SymbolFont,
        SymbolCharacter,
        Requires,
        PlainName,
        VmlStyle,
        VmlFillColor,
        VmlFilled,
        VmlSource,
        VmlTitle,
        VmlText,
        VmlTypeId,
        VmlSpType,
        VmlCoordinateSize,
        VmlCoordinateOrigin,
        VmlRelationshipId,
    };
};

/// In both dialects.
FILTERS_API const FilterUtils::XMLVocabulary& getTextWords();

} // namespace QV::Filters
