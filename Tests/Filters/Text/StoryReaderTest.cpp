#include <Filters/Text/StoryReader.h>

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/Cell.h>
#include <DOM/Public/CellText.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/Note.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/RunStyle.h>
#include <DOM/Public/Shape.h>
#include <DOM/Public/Table.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Text/TextContext.h>
#include <Tests/Support/OoxmlBuilder.h>
#include <Tests/Support/Printers.h>
#include <Tests/Support/StoryFixture.h>
#include <Tests/Support/TextPackageBuilder.h>
#include <Utils/Public/TableIndices/RowColumnIndices.h>

namespace QV::Filters {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using Tests::makeTextParagraph;

class StoryReader : public Tests::StoryFixture
{
protected:
    /// Reads the content of one paragraph and lists its runs.
    std::vector<std::string> readRuns(const std::string& content)
    {
        read("<w:p>" + content + "</w:p>");
        EXPECT_EQ(blocks.size(), 1U);
        return listRunsOf(0);
    }

    /// A table of one cell.
    static std::string makeTable(const std::string& content)
    {
        return "<w:tbl><w:tr><w:tc>" + content + "</w:tc></w:tr></w:tbl>";
    }

    const std::vector<std::unique_ptr<DOM::Block>>& getCellBlocks(std::size_t table) const
    {
        return getBlock<DOM::Table>(table).findCell(RowIndex(0), ColumnIndex(0))->getText()->getBlocks();
    }
};

TEST_F(StoryReader, ReadsParagraphsInBothDialects)
{
    for (const bool isStrict : {false, true}) {
        builder.isStrict = isStrict;
        read(makeTextParagraph("one") + "<w:p/>" + makeTextParagraph("two"));
        EXPECT_TRUE(isWellFormed);
        EXPECT_THAT(listTexts(), ElementsAre("one", "", "two"));
        EXPECT_THAT(listMessages(), IsEmpty());
    }
}

TEST_F(StoryReader, PiecesOfOneLookAreOneRun)
{
    EXPECT_THAT(readRuns("<w:r><w:t xml:space='preserve'> a </w:t><w:t>b</w:t></w:r><w:r><w:t>c</w:t></w:r>"
                         "<w:r><w:rPr><w:b/></w:rPr><w:t>d</w:t></w:r><w:r><w:rPr><w:b/></w:rPr><w:t>e</w:t>"
                         "</w:r><w:r><w:t>f</w:t></w:r>"),
        ElementsAre(" a bc", "de", "f"));
    const auto runs = getBlock<DOM::Paragraph>(0).getRuns();
    EXPECT_EQ(runs[0].getSharedStyle(), nullptr);
    EXPECT_EQ(runs[1].getStyle().getRunProps()->getBold(), true);
}

TEST_F(StoryReader, ReadsCharactersThatAreElements)
{
    EXPECT_THAT(readRuns("<w:r><w:tab/><w:ptab/><w:br/><w:br w:type='textWrapping' w:clear='all'/>"
                         "<w:br w:type='column'/><w:br w:type='page'/><w:cr/></w:r>"),
        ElementsAre("<tab>", "<tab>", "<br>", "<br>", "<column>", "<page>", "<br>"));
    EXPECT_THAT(
        readRuns("<w:r><w:t>a</w:t><w:noBreakHyphen/><w:softHyphen/>"
                 "<w:sym w:font='Symbol' w:char='F061'/><w:lastRenderedPageBreak/><w:t>b</w:t></w:r>"),
        ElementsAre("a\xE2\x80\x91\xC2\xAD\xCE\xB1"
                    "b"));
    EXPECT_THAT(readRuns("<w:r><w:sym w:font='Arial' w:char='x'/><w:sym w:font='A' w:char='110000'/></w:r>"),
        IsEmpty());
    EXPECT_THAT(listMessages(), ElementsAre("Symbol x is no character", "Symbol 110000 is no character"));
}

TEST_F(StoryReader, KeepsTextOfFormulas)
{
    EXPECT_THAT(readRuns("<m:oMath><m:f><m:num><m:r><m:rPr/><w:rPr><w:i/></w:rPr><m:t>x</m:t></m:r></m:num>"
                         "<m:den><m:ctrlPr><w:rPr><w:b/></w:rPr></m:ctrlPr><m:r><m:t>y</m:t></m:r></m:den>"
                         "</m:f></m:oMath>"),
        ElementsAre("x", "y"));
    EXPECT_THAT(run->getLeftOut(), ElementsAre("layout of formulas (their text is kept)"));
}

TEST_F(StoryReader, KeepsBaseOfPhoneticGuides)
{
    EXPECT_THAT(
        readRuns("<w:r><w:rPr><w:b/></w:rPr><w:ruby><w:rubyPr/><w:rt><w:r><w:t>guide</w:t></w:r></w:rt>"
                 "<w:rubyBase><w:r><w:t>base</w:t></w:r></w:rubyBase></w:ruby><w:t>x</w:t></w:r>"),
        ElementsAre("base", "x"));
    EXPECT_EQ(getBlock<DOM::Paragraph>(0).getRuns()[1].getStyle().getRunProps()->getBold(), true);
    EXPECT_THAT(run->getLeftOut(), ElementsAre("phonetic text"));
}

TEST_F(StoryReader, ReadsHyperlinks)
{
    builder.relationships = Tests::makeRelationship("l", Tests::TransitionalTypes + "hyperlink",
                                "https://a.example/", "TargetMode=\"External\"") +
                            Tests::makeRelationship("i", Tests::TransitionalTypes + "hyperlink", "#inside",
                                "TargetMode=\"External\"");
    const auto link = [](const std::string& attributes) {
        return "<w:hyperlink " + attributes + "><w:r><w:t>x</w:t></w:r></w:hyperlink>";
    };
    EXPECT_THAT(readRuns(link("r:id='l'") + link("w:anchor='a'") + "<w:r><w:t>y</w:t></w:r>" +
                         link("r:id='l' w:anchor='b'") + link("r:id='i'") + link("r:id='n'") + link("")),
        ElementsAre("x@https://a.example/#", "x@#a", "y", "x@https://a.example/#b", "x@#inside", "xx"));
    EXPECT_THAT(listMessages(), ElementsAre("Hyperlink has an unknown relationship n"));
}

TEST_F(StoryReader, RefersToNotes)
{
    EXPECT_THAT(readRuns("<w:r><w:footnoteReference w:id='2'/><w:endnoteReference w:id='2'/>"
                         "<w:commentReference w:id='0'/><w:footnoteReference w:id='2'/></w:r>"),
        ElementsAre("<note>", "<note>", "<note>", "<note>"));
    const auto runs = getBlock<DOM::Paragraph>(0).getRuns();
    const auto target = [&](std::size_t i) {
        return dynamic_cast<const DOM::AnchorRun&>(runs[i]).getTargetUUID();
    };
    EXPECT_EQ(context->notes.size(), 3U);
    EXPECT_EQ(target(0), context->notes.at(NoteKey(DOM::Note::Kind::Footnote, "2")));
    EXPECT_EQ(target(1), context->notes.at(NoteKey(DOM::Note::Kind::Endnote, "2")));
    EXPECT_EQ(target(2), context->notes.at(NoteKey(DOM::Note::Kind::Comment, "0")));
    EXPECT_EQ(target(3), target(0));
}

TEST_F(StoryReader, ReadsBookmarks)
{
    const std::string name(1025, 'n');
    read("<w:bookmarkStart w:id='0' w:name='before'/><w:p><w:r><w:t>a</w:t></w:r>"
         "<w:bookmarkStart w:id='1' w:name='in'/><w:r><w:t>b</w:t></w:r><w:bookmarkEnd w:id='1'/>"
         "<w:bookmarkStart w:id='2' w:name='" +
         name +
         "'/><w:bookmarkEnd w:id='2'/><w:bookmarkEnd w:id='9'/></w:p><w:bookmarkEnd w:id='0'/><w:p>"
         "<w:bookmarkStart w:id='3' w:name='" +
         name.substr(1) + "'/></w:p><w:bookmarkStart w:id='4' w:name='last'/>");
    EXPECT_THAT(listRunsOf(0), ElementsAre("<+before>", "a", "<+in>", "b", "<-in>", "<-before>"));
    EXPECT_THAT(listRunsOf(1), ElementsAre("<+" + name.substr(1) + ">", "<+last>"));
    EXPECT_THAT(listMessages(), ElementsAre("Bookmark 2 has a name of more than 1024 bytes"));
}

TEST_F(StoryReader, HandsSectionsOverBehindTheirBlocks)
{
    read(
        "<w:p><w:pPr><w:jc w:val='center'/><w:sectPr w:rsidR='1'><w:pgSz w:w='2'/></w:sectPr></w:pPr></w:p>" +
        makeTextParagraph("x") + "<w:sectPr><w:headerReference r:id='h'/></w:sectPr>");
    EXPECT_THAT(sections, ElementsAre(Pair(1U, "<w:sectPr w:rsidR=\"1\"><w:pgSz w:w=\"2\"/></w:sectPr>"),
                              Pair(2U, "<w:sectPr><w:headerReference r:id=\"h\"/></w:sectPr>")));
    EXPECT_NE(getBlock<DOM::Paragraph>(0).getSharedStyle(), nullptr);
}

TEST_F(StoryReader, ReadsTables)
{
    read(makeTextParagraph("a") + makeTable(makeTextParagraph("b") + makeTable(makeTextParagraph("c"))) +
         makeTextParagraph("d"));
    EXPECT_THAT(listTexts(), ElementsAre("a", "#", "d"));
    EXPECT_THAT(listTexts(getCellBlocks(1)), ElementsAre("b", "#"));
}

TEST_F(StoryReader, EntersControlsAndUnknownElements)
{
    read(
        "<w:sdt><w:sdtPr><w:rPr/><w:placeholder><w:p><w:r><w:t>no</w:t></w:r></w:p></w:placeholder></w:sdtPr>"
        "<w:sdtEndPr><w:r><w:t>no</w:t></w:r></"
        "w:sdtEndPr><w:sdtContent><w:p><w:sdt><w:sdtContent><w:smartTag>"
        "<w:r><w:t>a</w:t></w:r></w:smartTag></w:sdtContent></w:sdt></w:p></w:sdtContent></w:sdt>"
        "<w:customXml><w:customXmlPr><w:r><w:t>no</w:t></w:r></w:customXmlPr><w:p><x><w:r><w:t>b</w:t></"
        "w:r></x>"
        "</w:p></w:customXml><w:altChunk r:id='c'/>");
    EXPECT_THAT(listTexts(), ElementsAre("a", "b"));
    EXPECT_THAT(run->getLeftOut(), ElementsAre("embedded documents in other formats"));
}

TEST_F(StoryReader, LosesNoTextInWrongPlaces)
{
    read("<w:r><w:t>a</w:t></w:r><w:p><w:r><w:t>b</w:t></w:r>" + makeTextParagraph("c") +
         "<w:r><w:t>d</w:t></w:r></w:p><w:tr><w:tc>" + makeTextParagraph("e") +
         "</w:tc></w:tr><w:p><w:r><w:t>f</w:t></w:r>" + makeTable(makeTextParagraph("g")) + "</w:p>" +
         "<w:tbl>" + makeTextParagraph("h") + "</w:tbl><w:r><w:t>i</w:t></w:r>");
    EXPECT_THAT(listTexts(), ElementsAre("a", "b", "c", "d", "e", "f", "#", "h", "#", "i"));
}

TEST_F(StoryReader, ChoosesAmongAlternateContent)
{
    const auto text = [](const char* name) { return "<w:r><w:t>" + std::string(name) + "</w:t></w:r>"; };
    const auto choose = [&](const std::string& prefixes) {
        return readRuns("<mc:AlternateContent xmlns:q='urn:q'><mc:Choice Requires='" + prefixes + "'>" +
                        text("choice") + "</mc:Choice><mc:Choice Requires='w14'>" + text("second") +
                        "</mc:Choice><mc:Fallback>" + text("fallback") +
                        "</mc:Fallback></mc:AlternateContent>");
    };
    for (const char* const prefixes :
        {"wps", "wpg", "wpc", "wp14", "w14", "w15", "a14", "pic", "wp", "w", "v", "wps  w14"})
        EXPECT_THAT(choose(prefixes), ElementsAre("choice")) << prefixes;
    for (const char* const prefixes : {"q", "wps q", "undeclared", "", " "})
        EXPECT_THAT(choose(prefixes), ElementsAre("second")) << prefixes;
    EXPECT_THAT(readRuns("<mc:AlternateContent xmlns:q='urn:q'><mc:Choice Requires='q'>" + text("no") +
                         "</mc:Choice><mc:Fallback><mc:AlternateContent><mc:Choice Requires='w'>" +
                         text("in") + "</mc:Choice></mc:AlternateContent></mc:Fallback><mc:Fallback>" +
                         text("twice") + "</mc:Fallback></mc:AlternateContent>"),
        ElementsAre("in"));
    read("<mc:AlternateContent><mc:Choice Requires='w'>" + makeTextParagraph("block") +
         "</mc:Choice></mc:AlternateContent>");
    EXPECT_THAT(listTexts(), ElementsAre("block"));
}

TEST_F(StoryReader, TextBoxesAreStoriesOfTheirOwn)
{
    read("<w:p><w:r><w:t>a</w:t></w:r><w:hyperlink w:anchor='x'><w:r><w:pict><v:shape "
         "style='width:10pt;height:"
         "10pt'><v:textbox><w:txbxContent>" +
         makeTextParagraph("in") + makeTable(makeTextParagraph("cell")) +
         "</w:txbxContent></v:textbox></v:shape></w:pict></w:r></w:hyperlink><w:r><w:t>b</w:t></w:r></w:p>");
    EXPECT_THAT(listRunsOf(0), ElementsAre("a", "<frame>@#x", "b"));
    const auto& drawing = dynamic_cast<const DOM::DrawingRun&>(getBlock<DOM::Paragraph>(0).getRuns()[1]);
    const auto* const shape = dynamic_cast<const DOM::Shape*>(drawing.getFrame()->getGraphicalObject());
    ASSERT_TRUE(shape && shape->getText());
    EXPECT_THAT(listTexts(shape->getText()->getBlocks()), ElementsAre("in", "#"));
}

TEST_F(StoryReader, ChoosesInsideOfDrawings)
{
    const auto makeBox = [](const std::string& text) {
        return "<v:textbox><w:txbxContent>" + makeTextParagraph(text) + "</w:txbxContent></v:textbox>";
    };
    read("<w:p><w:r><w:pict><v:shape style='width:10pt;height:10pt'><mc:AlternateContent xmlns:q='urn:q'>"
         "<mc:Choice Requires='q'>" +
         makeBox("choice") + "</mc:Choice><mc:Fallback>" + makeBox("fallback") +
         "</mc:Fallback></mc:AlternateContent></v:shape></w:pict></w:r></w:p>");
    ASSERT_THAT(listRunsOf(0), ElementsAre("<frame>"));
    const auto& drawing = dynamic_cast<const DOM::DrawingRun&>(getBlock<DOM::Paragraph>(0).getRuns()[0]);
    const auto* const shape = dynamic_cast<const DOM::Shape*>(drawing.getFrame()->getGraphicalObject());
    ASSERT_TRUE(shape && shape->getText());
    EXPECT_THAT(listTexts(shape->getText()->getBlocks()), ElementsAre("fallback"));
}

TEST_F(StoryReader, BoundsDepth)
{
    const auto nest = [&](std::size_t depth) {
        std::string text = makeTextParagraph("deep");
        for (std::size_t i = 0; i < depth; ++i)
            text = makeTable(text);
        return text;
    };
    const auto measure = [&] {
        std::size_t depth = 0;
        const auto* all = &blocks;
        while (!all->empty() && dynamic_cast<const DOM::Table*>(all->front().get())) {
            const auto& table = dynamic_cast<const DOM::Table&>(*all->front());
            all = &table.findCell(RowIndex(0), ColumnIndex(0))->getText()->getBlocks();
            ++depth;
        }
        return std::make_pair(depth, listTexts(*all));
    };
    read(nest(50));
    EXPECT_THAT(measure(), Pair(50U, ElementsAre("deep")));
    EXPECT_THAT(listMessages(), IsEmpty());
    read(nest(51) + makeTextParagraph("behind"));
    EXPECT_THAT(listTexts(), ElementsAre("#", "behind"));
    EXPECT_THAT(
        listMessages(), ElementsAre("Content in word/document.xml deeper than 50 levels is left out"));
}

TEST_F(StoryReader, ReadsUpToWhereThePartIsMalformed)
{
    builder.body = makeTextParagraph("a") + "<w:p><w:r><w:t>b</w:t></w:r>" +
                   makeTable("<w:p><w:r><w:t>c</w:t></w:r><oops>");
    readPackage();
    EXPECT_FALSE(isWellFormed);
    EXPECT_THAT(listTexts(), ElementsAre("a", "b", "#"));
    EXPECT_THAT(listTexts(getCellBlocks(2)), ElementsAre("c"));
    EXPECT_THAT(listMessages(), ElementsAre("Part word/document.xml is not well-formed XML, line 1"));
}

TEST_F(StoryReader, ReadsNotes)
{
    builder.footnotes =
        "<w:footnote w:type='separator' w:id='-1'><w:p><w:r><w:separator/></w:r></w:p>"
        "</w:footnote><w:footnote w:id='2'><w:p><w:r><w:footnoteRef/><w:t>two</w:t></w:r></w:p>"
        "<w:p/></w:footnote>";
    builder.comments = "<w:comment w:id='0' w:author='Ann'>" + makeTextParagraph("said") + "</w:comment>";
    read("<w:p/>");
    std::vector<NoteStory> notes;
    const auto take = [&](NoteStory note) { notes.push_back(std::move(note)); };
    readNotes(*context, *formats, "word/footnotes.xml", relationships, take);
    readNotes(*context, *formats, "word/comments.xml", relationships, take);
    ASSERT_EQ(notes.size(), 3U);
    EXPECT_EQ(notes[0].id + notes[0].type, "-1separator");
    EXPECT_EQ(notes[1].id + notes[1].type, "2");
    EXPECT_THAT(listTexts(notes[1].blocks), ElementsAre("two", ""));
    EXPECT_EQ(notes[2].author, "Ann");
    EXPECT_THAT(listTexts(notes[2].blocks), ElementsAre("said"));
}

} // namespace
} // namespace QV::Filters
