#include <Filters/Text/StoryFields.h>

#include <cstddef>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/RunProps.h>
#include <DOM/Public/RunStyle.h>
#include <DOM/Public/TableOfContents.h>
#include <Tests/Support/Printers.h>
#include <Tests/Support/StoryFixture.h>
#include <Tests/Support/TextPackageBuilder.h>

namespace QV::Filters {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Tests::makeTextParagraph;

std::string makeTextRun(const std::string& text, const std::string& props = {})
{
    return "<w:r><w:rPr>" + props + "</w:rPr><w:t>" + text + "</w:t></w:r>";
}

std::string makeFieldCharacter(const std::string& type)
{
    return "<w:r><w:fldChar w:fldCharType='" + type + "'/></w:r>";
}

std::string makeInstruction(const std::string& text)
{
    return "<w:r><w:instrText>" + text + "</w:instrText></w:r>";
}

std::string makeFieldHead(const std::string& instruction)
{
    return makeFieldCharacter("begin") + makeInstruction(instruction) + makeFieldCharacter("separate");
}

std::string makeField(const std::string& instruction, const std::string& result)
{
    return makeFieldHead(instruction) + result + makeFieldCharacter("end");
}

std::string makeEmptyField(const std::string& instruction)
{
    return makeFieldCharacter("begin") + makeInstruction(instruction) + makeFieldCharacter("end");
}

class StoryFieldsTest : public Tests::StoryFixture
{
protected:
    std::vector<std::string> readRuns(const std::string& content)
    {
        read("<w:p>" + content + "</w:p>");
        EXPECT_EQ(blocks.size(), 1U);
        return listRunsOf(0);
    }
};

TEST_F(StoryFieldsTest, ResultOfOneLookIsFieldRun)
{
    EXPECT_THAT(readRuns(makeTextRun("a") + makeField(" PAGE ", makeTextRun("1") + makeTextRun("2")) +
                         makeField("PAGE", makeTextRun("3")) + makeField("PAGE", makeTextRun("4")) +
                         makeTextRun("b")),
        ElementsAre("a", "{ PAGE :12}", "{PAGE:3}", "{PAGE:4}", "b"));
    EXPECT_THAT(readRuns(makeField("PAGE", makeTextRun("1", "<w:b/>"))), ElementsAre("{PAGE:1}"));
    EXPECT_EQ(getBlock<DOM::Paragraph>(0).getRuns()[0].getStyle().getRunProps()->getBold(), true);
}

TEST_F(StoryFieldsTest, OtherResultsAreRunsOfTheirField)
{
    EXPECT_THAT(
        readRuns(makeField("REF x", makeTextRun("a") + makeTextRun("b", "<w:b/>")) + makeTextRun("c")),
        ElementsAre("a=REF x", "b=REF x", "c"));
    EXPECT_THAT(readRuns(makeField("REF x", "<w:r><w:tab/></w:r>")), ElementsAre("<tab>=REF x"));
    read("<w:p>" + makeFieldHead("REF x") + makeTextRun("a") + "</w:p><w:p>" + makeTextRun("b") +
         makeFieldCharacter("end") + makeTextRun("c") + "</w:p>");
    EXPECT_THAT(listRunsOf(0), ElementsAre("a=REF x"));
    EXPECT_THAT(listRunsOf(1), ElementsAre("b=REF x", "c"));
}

TEST_F(StoryFieldsTest, InstructionIsGatheredFromPieces)
{
    EXPECT_THAT(readRuns(makeFieldCharacter("begin") + makeInstruction(" RE") + makeInstruction("F x ") +
                         makeFieldCharacter("separate") + makeTextRun("a") + makeFieldCharacter("end")),
        ElementsAre("{ REF x :a}"));
    EXPECT_THAT(readRuns("<w:del w:author='A'>" + makeFieldCharacter("begin") +
                         "<w:r><w:delInstrText>PAGE</w:delInstrText></w:r>" + makeFieldCharacter("separate") +
                         "<w:r><w:delText>1</w:delText></w:r>" + makeFieldCharacter("end") + "</w:del>"),
        ElementsAre("{PAGE:1}~deleted A"));
}

TEST_F(StoryFieldsTest, FieldsWithoutResult)
{
    EXPECT_THAT(readRuns(makeEmptyField("XE \"word\"") + makeEmptyField("MACROBUTTON Go press here") +
                         makeEmptyField("SYMBOL 65") + makeField("PAGE", "") + makeEmptyField("") +
                         makeField("HYPERLINK a", "")),
        ElementsAre("{XE \"word\":}", "{MACROBUTTON Go press here:press here}", "{SYMBOL 65:A}", "{PAGE:}",
            "{:}", "{HYPERLINK a:}"));
    EXPECT_THAT(
        readRuns(makeField("REF x", "<w:bookmarkStart w:id='1' w:name='n'/><w:bookmarkEnd w:id='1'/>")),
        ElementsAre("<+n>", "<-n>", "{REF x:}"));
}

TEST_F(StoryFieldsTest, HyperlinkFieldsAreLinks)
{
    EXPECT_THAT(
        readRuns(makeField("HYPERLINK \"https://a.example/\" \\l \"b\"",
                     makeTextRun("x") + makeTextRun("y", "<w:b/>") + makeField("PAGE", makeTextRun("1"))) +
                 "<w:hyperlink w:anchor='o'>" + makeTextRun("p") +
                 makeField("HYPERLINK \\l \"i\"", makeTextRun("q")) + makeTextRun("r") + "</w:hyperlink>"),
        ElementsAre("x@https://a.example/#b", "y@https://a.example/#b", "{PAGE:1}@https://a.example/#b",
            "p@#o", "q@#i", "r@#o"));
    EXPECT_THAT(readRuns(makeField("HYPERLINK", makeTextRun("x"))), ElementsAre("{HYPERLINK:x}"));
}

TEST_F(StoryFieldsTest, FieldsInResults)
{
    EXPECT_THAT(
        readRuns(makeField("A", makeTextRun("1") + makeField("B", makeTextRun("2")) + makeTextRun("3"))),
        ElementsAre("1=A", "{B:2}=A", "3=A"));
}

TEST_F(StoryFieldsTest, FieldsInInstructions)
{
    const auto outer = [](const std::string& inner) {
        return makeFieldCharacter("begin") + makeInstruction("IF ") + inner + makeInstruction(" = 1") +
               makeFieldCharacter("separate") + makeTextRun("yes") + makeFieldCharacter("end");
    };
    EXPECT_THAT(readRuns(outer(makeField("REF x", makeTextRun("1")))), ElementsAre("{IF 1 = 1:yes}"));
    EXPECT_THAT(readRuns(outer(makeField("REF x", makeInstruction("1")))), ElementsAre("{IF 1 = 1:yes}"));
    EXPECT_THAT(readRuns(outer(makeEmptyField("REF x"))), ElementsAre("{IF {REF x} = 1:yes}"));
    EXPECT_THAT(
        readRuns(outer(makeField("REF x", "<w:r><w:tab/><w:br/></w:r>"))), ElementsAre("{IF \t\n = 1:yes}"));
    EXPECT_THAT(listMessages(), IsEmpty());
}

TEST_F(StoryFieldsTest, SimpleFields)
{
    EXPECT_THAT(readRuns("<w:fldSimple w:instr=' PAGE '><w:fldData>x</w:fldData>" + makeTextRun("1") +
                         "</w:fldSimple><w:fldSimple w:instr='HYPERLINK \"u\"'>" + makeTextRun("2") +
                         "</w:fldSimple><w:fldSimple/>"),
        ElementsAre("{ PAGE :1}", "2@u#", "{:}"));
    EXPECT_THAT(readRuns("<w:fldSimple w:instr='A'>" + makeFieldHead("B") + makeTextRun("1") +
                         "</w:fldSimple>" + makeFieldCharacter("end") + makeTextRun("2")),
        ElementsAre("{B:1}=A", "2"));
    EXPECT_THAT(listMessages(), ElementsAre("Field B does not end"));
    EXPECT_THAT(readRuns("<w:fldSimple w:instr='A'>" + makeTextRun("1") + makeFieldCharacter("end") +
                         makeTextRun("2") + "</w:fldSimple>"),
        ElementsAre("{A:12}"))
        << "a stray end ends no simple field";
}

TEST_F(StoryFieldsTest, NoTextIsLostWithoutEnds)
{
    read("<w:p>" + makeFieldHead(" REF x ") + makeTextRun("a") + "</w:p>" + makeTextParagraph("b"));
    EXPECT_THAT(listTexts(), ElementsAre("a", "b"));
    EXPECT_THAT(listMessages(), ElementsAre("Field REF x does not end"));

    read("<w:p>" + makeFieldCharacter("begin") + makeInstruction("REF x") + makeTextRun("a") + "</w:p>" +
         makeTextParagraph("b"));
    EXPECT_THAT(listTexts(), ElementsAre("a", "b"));
    EXPECT_THAT(listMessages(), ElementsAre("Field REF x does not end"));

    read("<w:p>" + makeFieldCharacter("begin") + makeInstruction("IF ") +
         makeField("REF x", makeTextRun("taken")) + "</w:p>" + makeTextParagraph("b"));
    EXPECT_THAT(listTexts(), ElementsAre("", "b", "taken"));
    EXPECT_THAT(listMessages(), ElementsAre("Field IF taken does not end"));

    EXPECT_THAT(readRuns(makeFieldCharacter("separate") + makeFieldCharacter("end") +
                         makeInstruction("lost") + makeTextRun("a")),
        ElementsAre("a"));
    EXPECT_THAT(listMessages(), ElementsAre("Instruction lost is in no field"));
}

TEST_F(StoryFieldsTest, LongInstructionsAreCut)
{
    const std::string most(StoryFields::InstructionBytesMax, 'x');
    EXPECT_THAT(readRuns(makeEmptyField(most)), ElementsAre("{" + most + ":}"));
    EXPECT_THAT(listMessages(), IsEmpty());
    EXPECT_THAT(readRuns(makeFieldCharacter("begin") + makeInstruction("A " + most) + makeInstruction("y") +
                         makeFieldCharacter("end")),
        ElementsAre("{A " + most.substr(2) + ":}"));
    EXPECT_THAT(listMessages(), ElementsAre("Field A has a long instruction, which is cut"));
    EXPECT_THAT(readRuns(makeFieldCharacter("begin") + makeInstruction(std::string(201, 'z'))), IsEmpty());
    EXPECT_THAT(listMessages(), ElementsAre("Field " + std::string(200, 'z') + "... does not end"));
}

TEST_F(StoryFieldsTest, DeepFieldsAreText)
{
    const auto nest = [](std::size_t depth) {
        std::string text = makeTextRun("deep");
        for (std::size_t i = 0; i < depth; ++i)
            text = makeField("A", text);
        return text;
    };
    EXPECT_THAT(readRuns(nest(100)), ElementsAre("{A:deep}=A"));
    EXPECT_THAT(listMessages(), IsEmpty());
    EXPECT_THAT(readRuns(nest(102) + makeTextRun("behind")), ElementsAre("{A:deep}=A", "behind"));
    EXPECT_THAT(listMessages(), ElementsAre("Fields within more than 99 others are kept as text",
                                    "Fields within more than 99 others are kept as text"));
    std::string simple = makeTextRun("deep");
    for (std::size_t i = 0; i < 102; ++i)
        simple = "<w:fldSimple w:instr='A'>" + simple + "</w:fldSimple>";
    EXPECT_THAT(readRuns(simple + makeTextRun("behind")), ElementsAre("{A:deep}=A", "behind"));
}

TEST_F(StoryFieldsTest, TableOfContentsTakesItsParagraphs)
{
    read(makeTextParagraph("before") + "<w:p>" + makeFieldHead("TOC \\o \"1-2\"") + makeTextRun("one") +
         "</w:p><w:p>" +
         makeField(
             "HYPERLINK \\l \"_Toc1\"", makeTextRun("two") + makeField("PAGEREF _Toc1", makeTextRun("3"))) +
         "</w:p><w:p>" + makeFieldCharacter("end") + makeTextRun("last") + "</w:p>" +
         makeTextParagraph("behind"));
    EXPECT_THAT(listTexts(), ElementsAre("before", "contents(one,two3,last,)", "behind"));
    const auto& contents = getBlock<DOM::TableOfContents>(1);
    EXPECT_EQ(contents.getInstruction(), "TOC \\o \"1-2\"");
    EXPECT_EQ(contents.getInfo().getLevelsStyleInfo().size(), 2U);
    const auto& entry = dynamic_cast<const DOM::Paragraph&>(*contents.getBlocks()[1]);
    EXPECT_THAT(Tests::listRuns(entry), ElementsAre("two@#_Toc1", "{PAGEREF _Toc1:3}@#_Toc1"));
    EXPECT_THAT(listMessages(), IsEmpty());
}

TEST_F(StoryFieldsTest, TableOfContentsInOneParagraphAndControls)
{
    read("<w:sdt><w:sdtContent><w:p>" + makeField("TOC", makeTextRun("one")) +
         "</w:p></w:sdtContent></w:sdt><w:p>" + makeEmptyField("toc \\h") + makeTextRun("two") +
         "</w:p><w:p><w:fldSimple w:instr='TOC'>" + makeTextRun("three") + "</w:fldSimple></w:p>");
    EXPECT_THAT(listTexts(), ElementsAre("contents(one,)", "contents(two,)", "contents(three,)"));
}

TEST_F(StoryFieldsTest, TableOfContentsBeginsWithItsField)
{
    read("<w:p>" + makeFieldCharacter("begin") + makeInstruction("TOC ") + makeTextRun("one") +
         "</w:p><w:p>" + makeInstruction("\\u") + makeFieldCharacter("separate") + makeTextRun("two") +
         makeFieldCharacter("end") + "</w:p>");
    EXPECT_THAT(listTexts(), ElementsAre("contents(one,two,)"));
    const auto& contents = getBlock<DOM::TableOfContents>(0);
    EXPECT_EQ(contents.getInstruction(), "TOC \\u");
    EXPECT_TRUE(contents.getInfo().usesOutlineLevels());
}

TEST_F(StoryFieldsTest, TablesOfContentsFollowEachOther)
{
    read("<w:p>" + makeFieldHead("TOC a") + makeTextRun("one") + "</w:p><w:p>" + makeFieldCharacter("end") +
         makeField("TOC b", makeTextRun("two")) + makeFieldHead("TOC c") + makeTextRun("three") +
         "</w:p><w:p>" + makeTextRun("four") + makeFieldCharacter("end") + "</w:p>" +
         makeTextParagraph("behind"));
    EXPECT_THAT(
        listTexts(), ElementsAre("contents(one,twothree,)", "contents()", "contents(four,)", "behind"));
    EXPECT_EQ(getBlock<DOM::TableOfContents>(2).getInstruction(), "TOC c");
}

TEST_F(StoryFieldsTest, TableOfContentsInsideOfOneIsFieldLikeOthers)
{
    read("<w:p>" + makeFieldHead("TOC a") + makeField("TOC b", makeTextRun("x")) + makeFieldCharacter("end") +
         "</w:p>");
    ASSERT_EQ(listTexts(), std::vector<std::string>{"contents(x,)"});
    const auto& paragraph =
        dynamic_cast<const DOM::Paragraph&>(*getBlock<DOM::TableOfContents>(0).getBlocks()[0]);
    EXPECT_THAT(Tests::listRuns(paragraph), ElementsAre("{TOC b:x}"));
}

TEST_F(StoryFieldsTest, TableOfContentsWithoutEnd)
{
    read("<w:p>" + makeFieldHead("TOC a") + makeTextRun("one") + "</w:p>" + makeTextParagraph("two"));
    EXPECT_THAT(listTexts(), ElementsAre("contents(one,two,)"));
    EXPECT_THAT(listMessages(), ElementsAre("Field TOC a does not end"));
}

TEST_F(StoryFieldsTest, SectionsInsideOfContentsFollowThem)
{
    const std::string section = "<w:pPr><w:sectPr/></w:pPr>";
    read("<w:p>" + section + makeFieldHead("TOC") + "</w:p><w:p>" + section + makeFieldCharacter("end") +
         "</w:p><w:p/><w:sectPr/>");
    EXPECT_THAT(listTexts(), ElementsAre("contents(,,)", ""));
    ASSERT_EQ(sections.size(), 3U);
    EXPECT_EQ(sections[0].first, 1U);
    EXPECT_EQ(sections[1].first, 1U);
    EXPECT_EQ(sections[2].first, 2U);
}

TEST_F(StoryFieldsTest, EachStoryHasItsOwn)
{
    read("<w:p>" + makeFieldHead("REF x") + makeTextRun("a") + "</w:p><w:tbl><w:tr><w:tc><w:p>" +
         makeFieldCharacter("end") + makeTextRun("b") + "</w:p></w:tc></w:tr></w:tbl><w:p>" +
         makeTextRun("c") + makeFieldCharacter("end") + "</w:p>");
    EXPECT_THAT(listRunsOf(2), ElementsAre("c=REF x"));
    EXPECT_THAT(listMessages(), IsEmpty());
}

} // namespace
} // namespace QV::Filters
