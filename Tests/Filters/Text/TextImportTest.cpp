#include <Filters/Text/TextImport.h>

#include <cstddef>
#include <string>
#include <vector>

#include <boost/none.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/CellText.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/NamedTextStyle.h>
#include <DOM/Public/Note.h>
#include <DOM/Public/NumberedList.h>
#include <DOM/Public/NumberingRef.h>
#include <DOM/Public/PageProps.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/ParagraphStyle.h>
#include <DOM/Public/PredefinedStyleName.h>
#include <DOM/Public/PredefinedTextStyles.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/Section.h>
#include <DOM/Public/Styles.h>
#include <DOM/Public/Table.h>
#include <DOM/Public/TableStyle.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/PackageError.h>
#include <Filters/Text/TextLeftOut.h>
#include <Tests/Support/OoxmlBuilder.h>
#include <Tests/Support/PackageRefusals.h>
#include <Tests/Support/Printers.h>
#include <Tests/Support/TextPackageBuilder.h>
#include <Utils/Public/UUID.h>

namespace QV::Filters {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using Tests::makeTextParagraph;

constexpr const char* External = "TargetMode=\"External\"";

class TextImport : public Tests::ImportedText
{
protected:
    /// The texts of the notes, with their kinds.
    std::vector<std::string> listNotes() const
    {
        std::vector<std::string> texts;
        for (const auto& note : run->getDocument().getNotes()) {
            const char* const kinds[] = {"footnote ", "endnote ", "comment "};
            texts.push_back(kinds[static_cast<int>(note->getKind())] + note->getText()->getPlainText());
        }
        return texts;
    }

    static std::string makeReference(const std::string& kind, const std::string& id)
    {
        return "<w:p><w:r><w:" + kind + "Reference w:id='" + id + "'/></w:r></w:p>";
    }

    static std::string makeNote(
        const std::string& kind, const std::string& id, const std::string& text, const std::string& more = {})
    {
        return "<w:" + kind + " w:id='" + id + "' " + more + ">" + makeTextParagraph(text) + "</w:" + kind +
               ">";
    }

    /// The note that the only run of a paragraph leads to; null for none.
    const DOM::Note* findNote(const DOM::Paragraph& paragraph) const
    {
        for (const DOM::Run& each : paragraph.getRuns())
            if (const auto* anchor = dynamic_cast<const DOM::AnchorRun*>(&each))
                return run->getDocument().findNote(anchor->getTargetUUID());
        return nullptr;
    }
};

TEST_F(TextImport, BlocksComeInOrder)
{
    importBody(
        makeTextParagraph("a") + "<w:tbl><w:tr><w:tc><w:p/></w:tc></w:tr></w:tbl>" + makeTextParagraph("b"));
    EXPECT_THAT(listTexts(), ElementsAre("a", "#", "b"));
    EXPECT_THAT(listMessages(), IsEmpty());
    EXPECT_THAT(run->getLeftOut(), IsEmpty());
}

TEST_F(TextImport, OtherDocumentsAreRefused)
{
    builder.mainType = Tests::WorkbookType;
    Tests::expectRefusal([&] { import(); }, PackageError::Kind::Unsupported, "word/document.xml",
        "a workbook; only text documents can be read");
    builder.mainType = "application/vnd.openxmlformats-officedocument.presentationml.presentation.main+xml";
    Tests::expectRefusal([&] { import(); }, PackageError::Kind::Unsupported, "word/document.xml",
        "a presentation; only text documents can be read");
}

TEST_F(TextImport, MalformedBodyIsRefused)
{
    builder.body = makeTextParagraph("a") + makeTextParagraph("b") + "<w:p>";
    Tests::expectRefusal([&] { import(); }, PackageError::Kind::Damaged, "word/document.xml",
        "part \"word/document.xml\" is not well-formed XML");
    EXPECT_EQ(listTexts().at(0), "a");
}

TEST_F(TextImport, OtherMalformedPartsAreReported)
{
    builder.styles = "<w:style>";
    builder.numbering = "<w:num>";
    builder.settings = "<w:zoom>";
    builder.theme = "<a:themeElements>";
    importBody(makeTextParagraph("a"));
    EXPECT_THAT(listTexts(), ElementsAre("a"));
    EXPECT_THAT(listMessages(), ElementsAre("Part word/theme.xml is not well-formed XML, line 1",
                                    "Part word/settings.xml is not well-formed XML, line 1",
                                    "Part word/styles.xml is not well-formed XML, line 1",
                                    "Part word/numbering.xml is not well-formed XML, line 1"));
}

TEST_F(TextImport, DocumentWithoutStylesHasTheUsualOne)
{
    importBody(makeTextParagraph("a"));
    const UUID normal = DOM::makePredefinedTextStyleUUID(DOM::PredefinedStyleName::Normal);
    const DOM::Styles& styles = run->getDocument().getStyles();
    EXPECT_EQ(styles.getDefaultParagraphStyle().getParentUUID(), normal);
    EXPECT_NE(styles.getTextStyles().find(normal), nullptr);
    EXPECT_EQ(styles.getTextStyles().size(), 1U);
}

TEST_F(TextImport, StylesStandInTheDocument)
{
    for (const bool isStrict : {false, true}) {
        builder.isStrict = isStrict;
        builder.styles =
            "<w:docDefaults><w:rPrDefault><w:rPr><w:sz w:val='30'/></w:rPr></w:rPrDefault></w:docDefaults>"
            "<w:style w:type='paragraph' w:styleId='Own' w:default='1'><w:name w:val='Own'/></w:style>"
            "<w:style w:type='table' w:styleId='Grid' w:default='1'><w:name w:val='Grid'/></w:style>";
        importBody(makeTextParagraph("a", "<w:pStyle w:val='Own'/>") +
                   "<w:tbl><w:tr><w:tc><w:p/></w:tc></w:tr></w:tbl>");
        const DOM::Styles& styles = run->getDocument().getStyles();
        const DOM::NamedTextStyle* const own =
            styles.getTextStyles().find(getParagraph(0).getStyle().getParentUUID());
        ASSERT_NE(own, nullptr);
        EXPECT_EQ(DOM::getStyleNameText(*own), "Own");
        EXPECT_EQ(styles.getDefaultParagraphStyle().getParentUUID(), own->getUUID());
        ASSERT_THAT(styles.getTableStyles(), SizeIs(1));
        const DOM::NamedTableStyle& grid = styles.getTableStyles().begin()->second;
        EXPECT_EQ(grid.getName(), "Grid");
        EXPECT_EQ(styles.getDefaultTableStyle().getParentUUID(), grid.getUUID());
        EXPECT_EQ(getTable(1).getStyle().getParentUUID(), grid.getUUID());
        ASSERT_NE(styles.getDefaultRunProps(), nullptr);
        EXPECT_EQ(styles.getDefaultRunProps()->getFontSize(), 15.0F);
        EXPECT_THAT(listMessages(), IsEmpty());
    }
}

TEST_F(TextImport, ChoosesAmongAlternateFormats)
{
    const auto choose = [](const std::string& choice, const std::string& fallback) {
        return "<mc:AlternateContent><mc:Choice Requires='w14'>" + choice + "</mc:Choice><mc:Fallback>" +
               fallback + "</mc:Fallback></mc:AlternateContent>";
    };
    const std::string bold = choose("<w:b/>", "<w:i/>");
    builder.styles = choose("<w:style w:type='paragraph' w:styleId='Own'><w:name w:val='Own'/><w:rPr>" +
                                bold + "</w:rPr></w:style>",
        "");
    builder.numbering = "<w:abstractNum w:abstractNumId='1'>" +
                        choose("<w:lvl w:ilvl='0'><w:start w:val='7'/></w:lvl>", "") +
                        "</w:abstractNum><w:num w:numId='5'><w:abstractNumId w:val='1'/></w:num>";
    importBody("<w:p><w:pPr>" + choose("<w:pStyle w:val='Own'/>", "") + "</w:pPr><w:r><w:rPr>" + bold +
               "</w:rPr><w:t>a</w:t></w:r></w:p><w:tbl><w:tr><w:tc><w:tcPr>" +
               choose("", "<w:gridSpan w:val='2'/>") + "</w:tcPr><w:p/></w:tc></w:tr></w:tbl><w:sectPr>" +
               choose("<w:pgSz w:w='2000'/>", "") + "</w:sectPr>");
    const DOM::Document& document = run->getDocument();
    const DOM::NamedTextStyle* const own =
        document.getStyles().getTextStyles().find(getParagraph(0).getStyle().getParentUUID());
    ASSERT_NE(own, nullptr);
    const DOM::Run& written = getParagraph(0).getRuns()[0];
    for (const auto& props : {own->getRunProps(), written.getStyle().getRunProps()}) {
        ASSERT_NE(props, nullptr);
        EXPECT_EQ(props->getBold(), true);
        EXPECT_EQ(props->getItalic(), boost::none);
    }
    ASSERT_THAT(document.getNumberedLists(), SizeIs(1));
    EXPECT_EQ(document.getNumberedLists().begin()->second->getLevels().front()->getStart(), 7);
    EXPECT_EQ(getTable(1).getLiveColsCount(), 2U);
    ASSERT_THAT(document.getSections(), SizeIs(1));
    ASSERT_NE(document.getSections()[0].getPageProps(), nullptr);
    EXPECT_EQ(document.getSections()[0].getPageProps()->getWidth(), 100.0F);
    EXPECT_THAT(listMessages(), IsEmpty());
}

TEST_F(TextImport, ListsStandInTheDocument)
{
    builder.numbering = "<w:abstractNum w:abstractNumId='1'><w:lvl w:ilvl='0'><w:numFmt w:val='decimal'/>"
                        "<w:lvlText w:val='%1.'/></w:lvl></w:abstractNum>"
                        "<w:num w:numId='5'><w:abstractNumId w:val='1'/></w:num>";
    importBody(makeTextParagraph("a", "<w:numPr><w:ilvl w:val='0'/><w:numId w:val='5'/></w:numPr>"));
    ASSERT_THAT(run->getDocument().getNumberedLists(), SizeIs(1));
    ASSERT_NE(getParagraph(0).getNumRef(), nullptr);
    EXPECT_EQ(
        *getParagraph(0).getNumRef()->getNumListUUID(), run->getDocument().getNumberedLists().begin()->first);
}

TEST_F(TextImport, NotesStandInTheOrderOfTheText)
{
    builder.footnotes = makeNote("footnote", "-1", "line", "w:type='separator'") +
                        makeNote("footnote", "1", "one") + makeNote("footnote", "2", "two") +
                        makeNote("footnote", "10", "ten", "w:type='normal'") +
                        makeNote("footnote", "3", "nobody's");
    builder.endnotes = makeNote("endnote", "1", "end");
    builder.comments = makeNote("comment", "1", "why?", "w:author='Ann'");
    importBody(makeReference("footnote", "10") + makeReference("comment", "1") +
               makeReference("footnote", "2") + makeReference("endnote", "1") +
               makeReference("footnote", "1") + makeReference("footnote", "2"));
    EXPECT_THAT(listNotes(),
        ElementsAre("footnote ten", "comment why?", "footnote two", "endnote end", "footnote one"));
    EXPECT_EQ(run->getDocument().getNotes()[1]->getAuthor(), "Ann");
    for (const std::size_t number : {0U, 1U, 2U, 3U, 4U})
        EXPECT_EQ(findNote(getParagraph(number)), run->getDocument().getNotes()[number].get());
    EXPECT_EQ(findNote(getParagraph(5)), findNote(getParagraph(2)));
    EXPECT_THAT(listMessages(), IsEmpty());
}

TEST_F(TextImport, NotesOfHeadersAndNotesComeLast)
{
    builder.header = makeReference("comment", "1");
    builder.footnotes = "<w:footnote w:id='1'>" + makeReference("comment", "2") + "</w:footnote>";
    builder.comments = makeNote("comment", "1", "in header") + makeNote("comment", "2", "in note");
    importBody(makeReference("footnote", "1") +
               "<w:sectPr><w:headerReference w:type='default' r:id='header1'/></w:sectPr>");
    ASSERT_THAT(run->getDocument().getNotes(), SizeIs(3));
    EXPECT_EQ(listNotes()[1], "comment in header");
    EXPECT_EQ(listNotes()[2], "comment in note");
}

TEST_F(TextImport, MissingAndRepeatedNotesAreReported)
{
    builder.footnotes = makeNote("footnote", "1", "one") + makeNote("footnote", "1", "again") +
                        makeNote("footnote", "0", "line", "w:type='separator'");
    importBody(makeReference("footnote", "1") + makeReference("footnote", "2") +
               makeReference("footnote", "0") + makeReference("endnote", "1"));
    EXPECT_THAT(listNotes(), ElementsAre("footnote one"));
    EXPECT_THAT(listMessages(), ElementsAre("Note 1 is there twice", "Note 2 is not there",
                                    "Note 0 is not there", "Note 1 is not there"));
}

TEST_F(TextImport, DocumentsThatItRefersToAreNoted)
{
    builder.settings = "<w:zoom/>";
    builder.items.push_back(Tests::makeRelationships("word/_rels/settings.xml.rels",
        Tests::makeRelationship(
            "t", Tests::TransitionalTypes + "attachedTemplate", "file:///letters/letter.dotx", External)));
    builder.relationships =
        Tests::makeRelationship("s", Tests::TransitionalTypes + "subDocument", "chapter.docx", External) +
        Tests::makeRelationship("h", Tests::TransitionalTypes + "hyperlink", "https://example.org", External);
    importBody(makeTextParagraph("a"));
    EXPECT_THAT(run->getLinks(), ElementsAre("chapter.docx", "file:///letters/letter.dotx"));
    EXPECT_THAT(listMessages(),
        ElementsAre("External target chapter.docx in word/_rels/document.xml.rels is not followed"));
}

TEST_F(TextImport, MacrosAndOtherFormatsAreLeftOut)
{
    builder.items.push_back({"word/vbaProject.bin", "x"});
    builder.items.push_back({"word/page.html", "x"});
    builder.relationships =
        Tests::makeRelationship(
            "m", "http://schemas.microsoft.com/office/2006/relationships/vbaProject", "vbaProject.bin") +
        Tests::makeRelationship("c", Tests::TransitionalTypes + "aFChunk", "page.html");
    importBody(makeTextParagraph("a"));
    EXPECT_THAT(run->getLeftOut(), ElementsAre(TextLeftOut::Macros, TextLeftOut::AltChunks));
}

TEST_F(TextImport, HiddenTextIsToldOnce)
{
    importBody("<w:p><w:r><w:rPr><w:vanish/></w:rPr><w:t>a</w:t></w:r></w:p>"
               "<w:p><w:r><w:rPr><w:vanish/></w:rPr><w:t>b</w:t></w:r></w:p>");
    EXPECT_THAT(listMessages(), ElementsAre("Hidden text is kept, and not shown"));
}

TEST_F(TextImport, TextHiddenByTheDefaultStyleIsTold)
{
    builder.styles = "<w:style w:type='paragraph' w:default='1' w:styleId='N'><w:name w:val='Normal'/>"
                     "<w:rPr><w:vanish/></w:rPr></w:style>";
    importBody(makeTextParagraph("a"));
    EXPECT_THAT(listMessages(), ElementsAre("Hidden text is kept, and not shown"));
}

TEST_F(TextImport, BookmarksThatProgramsMakeAreMarked)
{
    importBody("<w:p><w:bookmarkStart w:id='1' w:name='_Toc12'/><w:bookmarkStart w:id='2' w:name='mine'/>"
               "<w:r><w:t>a</w:t></w:r><w:bookmarkEnd w:id='1'/><w:bookmarkEnd w:id='2'/></w:p>");
    std::vector<std::string> marks;
    for (const DOM::Run& piece : getParagraph(0).getRuns())
        if (const auto* const bookmark = dynamic_cast<const DOM::BookmarkRun*>(&piece))
            marks.push_back(bookmark->getName() + (bookmark->isGenerated() ? " generated" : ""));
    EXPECT_THAT(marks, ElementsAre("_Toc12 generated", "mine", "_Toc12 generated", "mine"));
}

TEST_F(TextImport, NumberingOfAParagraphWhoseStyleChangedStays)
{
    builder.styles = "<w:style w:type='paragraph' w:styleId='A'><w:name w:val='A'/><w:pPr><w:numPr>"
                     "<w:numId w:val='1'/></w:numPr></w:pPr></w:style>"
                     "<w:style w:type='paragraph' w:styleId='B'><w:name w:val='B'/><w:pPr><w:numPr>"
                     "<w:numId w:val='2'/></w:numPr></w:pPr></w:style>";
    builder.numbering = "<w:abstractNum w:abstractNumId='0'><w:lvl w:ilvl='0'/></w:abstractNum>"
                        "<w:abstractNum w:abstractNumId='1'><w:lvl w:ilvl='0'/></w:abstractNum>"
                        "<w:num w:numId='1'><w:abstractNumId w:val='0'/></w:num>"
                        "<w:num w:numId='2'><w:abstractNumId w:val='1'/></w:num>";
    importBody("<w:p><w:pPr><w:pStyle w:val='A'/><w:numPr><w:ilvl w:val='0'/><w:numId w:val='2'/></w:numPr>"
               "<w:pPrChange w:id='1'><w:pPr><w:pStyle w:val='B'/></w:pPr></w:pPrChange></w:pPr></w:p>");
    ASSERT_NE(getParagraph(0).getNumRef(), nullptr);
    EXPECT_TRUE(getParagraph(0).getNumRef()->getNumListUUID());
}

} // namespace
} // namespace QV::Filters
