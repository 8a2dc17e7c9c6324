#include <FilterUtils/FU_DocumentLinks.h>

#include <memory>
#include <ostream>
#include <set>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <boost/filesystem/operations.hpp>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <DOM/Public/ChartSpace.h>
#include <DOM/Public/Document.h>
#include <DOM/Public/Frame.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Table.h>
#include <Tests/Support/FormulaNodes.h>
#include <Tests/Support/TemporaryFolder.h>

namespace QV::FilterUtils {
namespace {

using namespace Tests; // the builders of trees and folders
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

using DocURLs = boost::unordered_set<std::string>;

// Callers elsewhere were built with these types.
static_assert(std::is_same_v<decltype(findDocURLs), DocURLs(const DOM::Document&)>);
static_assert(
    std::is_same_v<decltype(findFileURL), std::string(const boost::string_ref&, boost::string_ref)>);

ExprPtr makeReference(const std::string& document)
{
    return makeCellNode(std::string("Sheet1"), document);
}

void setFormula(DOM::Table& table, unsigned long row, ExprPtr root)
{
    DOM::Cell& cell = table.getOrMakeCell(RowIndex(row), ColumnIndex(0));
    cell.setFormula(DOM::Formula(std::move(root)));
}

template <typename TableType = DOM::Table>
TableType& appendTable(DOM::Document& document)
{
    auto table = std::make_unique<TableType>();
    TableType& appended = *table;
    document.getBlocks().append(std::move(table));
    return appended;
}

std::set<std::string> findIn(ExprPtr root)
{
    DOM::Document document;
    setFormula(appendTable(document), 0, std::move(root));
    const DocURLs urls = findDocURLs(document);
    return {urls.begin(), urls.end()};
}

class OtherTable final : public DOM::Table
{
};

TEST(FindDocURLs, ADocumentWithoutFormulasHasNone)
{
    DOM::Document document;
    EXPECT_THAT(findDocURLs(document), IsEmpty());
    document.getBlocks().append(std::make_unique<DOM::Paragraph>());
    appendTable(document).getOrMakeCell(RowIndex(3), ColumnIndex(3)).setNumber(1);
    EXPECT_THAT(findDocURLs(document), IsEmpty());
}

TEST(FindDocURLs, FindsEachReferenceKind)
{
    EXPECT_THAT(findIn(makeCellNode(UUID(1, 1), "a.xlsx")), ElementsAre("a.xlsx"));
    EXPECT_THAT(findIn(makeRangeNode(std::string("A"), std::string("B"), "a.xlsx")), ElementsAre("a.xlsx"));
    EXPECT_THAT(findIn(makeLabelNode(std::string(), "a.xlsx")), ElementsAre("a.xlsx"));
}

TEST(FindDocURLs, ReferencesWithinTheDocumentAddNothing)
{
    EXPECT_THAT(findIn(makeCellNode(std::string("Sheet1"))), IsEmpty());
    EXPECT_THAT(findIn(makeRangeNode(std::string("A"), std::string("B"))), IsEmpty());
    EXPECT_THAT(findIn(makeLabelNode(UUID(1, 1))), IsEmpty());
}

TEST(FindDocURLs, ConstantsAddNothing)
{
    for (ExprPtr& node : makeConstantNodes("a.xlsx"))
        EXPECT_THAT(findIn(std::move(node)), IsEmpty());
}

TEST(FindDocURLs, ReachesBelowEveryKindButTheArray)
{
    std::vector<CompoundPtr> compounds = makeCompoundNodes();
    ASSERT_EQ(compounds.size(), 19U);
    for (CompoundPtr& node : compounds) {
        ExprPtr below =
            putBelow(std::make_unique<Tree::FunctionCall>("ABS"), makeReference("a"), makeReference("b"));
        EXPECT_THAT(findIn(putBelow(std::move(node), std::move(below), makeReference("c"))),
            ElementsAre("a", "b", "c"));
    }
    EXPECT_THAT(findIn(putBelow(std::make_unique<Tree::Array>(2), makeReference("a"),
                    putBelow(std::make_unique<Tree::FunctionCall>("ABS"), makeReference("b")))),
        IsEmpty());
    EXPECT_THAT(findIn(putBelow(std::make_unique<Tree::FunctionCall>("SUM"),
                    putBelow(std::make_unique<Tree::Array>(1), makeReference("a")), makeReference("b"))),
        ElementsAre("b"));
}

TEST(FindDocURLs, GathersEachURLOnceFromAllCellsOfAllTables)
{
    DOM::Document document;
    DOM::Table& first = appendTable(document);
    DOM::Table& second = appendTable(document);
    for (unsigned long row = 0; row < 3; ++row)
        setFormula(first, row * 1000, makeReference("same.xlsx"));
    setFormula(second, 5, makeReference("same.xlsx"));
    setFormula(second, 6, makeReference("Same.xlsx"));
    setFormula(second, 7, makeReference(std::string("a\0b", 3)));
    setFormula(second, 8, makeReference("../\xC3\xA9 x.xlsx"));
    EXPECT_THAT(findDocURLs(document),
        UnorderedElementsAre("same.xlsx", "Same.xlsx", std::string("a\0b", 3), "../\xC3\xA9 x.xlsx"));
}

TEST(FindDocURLs, OtherBlocksAndChartsAreNotSearched)
{
    DOM::Document document;
    setFormula(appendTable<OtherTable>(document), 0, makeReference("derived.xlsx"));
    auto removed = std::make_unique<DOM::Table>();
    setFormula(*removed, 0, makeReference("removed.xlsx"));
    document.getBlocks().remove(document.getBlocks().append(std::move(removed)));

    DOM::Chart chart(DOM::ChartType::Pie);
    chart.setCategories({DOM::Formula(makeReference("chart.xlsx"))});
    auto space = std::make_unique<DOM::ChartSpace>();
    space->getPlotArea().appendChart(chart);
    auto frame = std::make_unique<DOM::Frame>();
    frame->setGraphicalObject(std::move(space));
    appendTable(document).appendFrame(std::move(frame));
    EXPECT_THAT(findDocURLs(document), IsEmpty());
}

// What is gathered while the trees are made, arrays left out, is the model to compare with.
TEST(FindDocURLs, AgreesWithTheMakingOfTrees)
{
    for (unsigned seed = 0; seed < 300; ++seed) {
        std::set<std::string> expected;
        DOM::Document document;
        RandomTree trees(seed, [&](bool isInArray, unsigned random) {
            const std::string url = random % 3 == 0 ? "" : std::to_string(random % 50);
            if (!isInArray && !url.empty())
                expected.insert(url);
            if (random % 2 == 0)
                return makeRangeNode(std::string("A"), std::string(), url);
            return random % 5 == 0 ? makeLabelNode(std::string(), url) : makeReference(url);
        });
        DOM::Table& table = appendTable(document);
        for (unsigned long row = 0; row < 4; ++row)
            setFormula(table, row, trees.make());
        const DocURLs urls = findDocURLs(document);
        ASSERT_EQ(std::set<std::string>(urls.begin(), urls.end()), expected) << seed;
    }
}

TEST(FindDocURLs, DepthCostsNoStack)
{
    EXPECT_THAT(findIn(makeDeepTree(makeReference("a.xlsx"), 200000)), ElementsAre("a.xlsx"));
}

struct FileRow
{
    const char* name;
    const char* document; // below the test's folder
    const char* url;      // "@" stands for the test's folder
    const char* file;     // likewise; empty where nothing is found
};

void PrintTo(const FileRow& row, std::ostream* out)
{
    *out << row.name;
}

const FileRow FileRows[] = {
    {"Absolute",           "/book.xlsx",      "@/a.xlsx",             "@/a.xlsx"        },
    {"AbsoluteURL",        "/book.xlsx",      "file://@/a.xlsx",      "@/a.xlsx"        },
    {"AbsoluteFolder",     "/book.xlsx",      "@/deep",               "@/deep"          },
    {"AbsoluteMissing",    "/book.xlsx",      "file://@/none.xlsx",   ""                },
    {"Beside",             "/book.xlsx",      "a.xlsx",               "@/a.xlsx"        },
    {"BesideAsURL",        "/book.xlsx",      "file://a.xlsx",        "@/a.xlsx"        },
    {"BesideAMissingBook", "/deep/none.xlsx", "b.xlsx",               "@/deep/b.xlsx"   },
    {"Missing",            "/book.xlsx",      "b.xlsx",               ""                },
    {"Below",              "/book.xlsx",      "deep/b.xlsx",          "@/deep/b.xlsx"   },
    {"Above",              "/deep/c.xlsx",    "../a.xlsx",            "@/deep/../a.xlsx"},
    {"RootOfTheFolder",    "/book.xlsx",      "/a.xlsx",              "@/a.xlsx"        },
    {"ThreeSlashes",       "/book.xlsx",      "file:///a.xlsx",       "@/a.xlsx"        },
    {"FolderBeside",       "/book.xlsx",      "deep",                 "@/deep"          },
    {"Nothing",            "/book.xlsx",      "",                     "@"               },
    {"NothingAsURL",       "/book.xlsx",      "file://",              "@"               },
    {"OneSlash",           "/book.xlsx",      "file:/a.xlsx",         ""                },
    {"CapitalScheme",      "/book.xlsx",      "FILE://a.xlsx",        ""                },
    {"SchemeTwice",        "/book.xlsx",      "file://file://a.xlsx", ""                },
    {"BlankBeforeScheme",  "/book.xlsx",      " file://a.xlsx",       ""                },
    {"OtherScheme",        "/book.xlsx",      "https://host/a.xlsx",  ""                },
    {"NothingIsDecoded",   "/book.xlsx",      "two%20words.xlsx",     ""                },
    {"Blank",              "/book.xlsx",      "two words.xlsx",       "@/two words.xlsx"},
    {"BeyondASCII",        "/book.xlsx",      "\xC3\xA9.xlsx",        "@/\xC3\xA9.xlsx" },
    {"NoUTF8",             "/book.xlsx",      "\xFF.xlsx",            ""                },
    {"FileOnTheWay",       "/book.xlsx",      "a.xlsx/b.xlsx",        ""                },
    {"FolderWithSlash",    "/deep/",          "b.xlsx",               "@/deep/b.xlsx"   },
};

class FindFileURL : public testing::TestWithParam<FileRow>
{
protected:
    FindFileURL()
    {
        _folder.write("a.xlsx", "");
        _folder.write("two words.xlsx", "");
        _folder.write("\xC3\xA9.xlsx", "");
        boost::filesystem::create_directory(_folder.getPath("deep"));
        _folder.write("deep/b.xlsx", "");
    }

    std::string expand(const std::string& text) const
    {
        const std::size_t place = text.find('@');
        return place == std::string::npos ? text : std::string(text).replace(place, 1, _folder.getPath());
    }

private:
    TemporaryFolder _folder;
};

TEST_P(FindFileURL, KeepsRow)
{
    const FileRow& row = GetParam();
    EXPECT_EQ(findFileURL(expand(std::string("@") + row.document), expand(row.url)), expand(row.file));
}

INSTANTIATE_TEST_SUITE_P(Rows, FindFileURL, testing::ValuesIn(FileRows),
    [](const auto& row) { return std::string(row.param.name); });

/// The working directory is another one while it lives.
class WorkingFolder
{
public:
    explicit WorkingFolder(const std::string& folder)
        : _before(boost::filesystem::current_path())
    {
        boost::filesystem::current_path(folder);
    }
    ~WorkingFolder() { boost::filesystem::current_path(_before); }

    WorkingFolder(const WorkingFolder&) = delete;
    WorkingFolder& operator=(const WorkingFolder&) = delete;

private:
    boost::filesystem::path _before;
};

TEST(FindFileURLs, TheWorkingDirectoryComesBeforeTheDocumentsFolder)
{
    const TemporaryFolder folder;
    boost::filesystem::create_directory(folder.getPath("deep"));
    folder.write("both.xlsx", "");
    folder.write("deep/both.xlsx", "");
    folder.write("deep/beside.xlsx", "");
    const WorkingFolder here(folder.getPath());
    EXPECT_EQ(findFileURL("deep/book.xlsx", "both.xlsx"), "both.xlsx");
    EXPECT_EQ(findFileURL("deep/book.xlsx", "file://both.xlsx"), "both.xlsx");
    EXPECT_EQ(findFileURL("deep/book.xlsx", "./both.xlsx"), "./both.xlsx");
    EXPECT_EQ(findFileURL("deep/book.xlsx", "beside.xlsx"), "deep/beside.xlsx");
    EXPECT_EQ(findFileURL("book.xlsx", "beside.xlsx"), "");
    EXPECT_EQ(findFileURL("book.xlsx", ""), "") << "a document without a folder";
    EXPECT_EQ(findFileURL("", "both.xlsx"), "both.xlsx");
    EXPECT_EQ(findFileURL("", ""), "");
}

TEST(FindFileURLs, TextsOfAnyKindNeverHarm)
{
    const TemporaryFolder folder;
    folder.write("a", "");
    const std::string book = folder.getPath("book.xlsx");
    EXPECT_EQ(findFileURL(book, boost::string_ref("a\0b", 3)), "");
    EXPECT_EQ(findFileURL(book, std::string(5000, 'a')), "");
    std::string path;
    for (int i = 0; i < 3000; ++i)
        path += "../";
    EXPECT_EQ(findFileURL(book, path + "no such file"), "");
    EXPECT_EQ(findFileURL(boost::string_ref(book).substr(0, 0), "no such file"), "");
}

} // namespace
} // namespace QV::FilterUtils
