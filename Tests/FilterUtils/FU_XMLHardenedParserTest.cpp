// Documents that mean harm through their document type, and streams that fail.

#include <FilterUtils/FU_XMLElement.h>
#include <FilterUtils/FU_XMLReadOptions.h>

#include <cstddef>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <ios>
#include <ostream>
#include <sstream>
#include <stdexcept>
#include <streambuf>
#include <string>

#include <boost/filesystem.hpp>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Tests/Support/Printers.h>
#include <Tests/Support/XMLReaders.h>
#include <Tests/Support/XercesEnvironment.h>

namespace QV::FilterUtils {
namespace {

using Tests::readAsStream;
using Tests::readAsTree;

XMLElement parse(const std::string& xml, XMLReadResult& result)
{
    std::istringstream stream(xml);
    return XMLElement::getRootElement(stream, boost::none, {}, &result);
}

XMLReadOptions refuseDoctypes()
{
    XMLReadOptions options;
    options.doctypes = XMLDoctypes::Refused;
    return options;
}

std::string repeat(std::size_t count, const std::string& text)
{
    std::string result;
    for (std::size_t i = 0; i < count; ++i)
        result += text;
    return result;
}

// --- document types

struct DoctypeRow
{
    const char* name;
    const char* xml;
};

void PrintTo(const DoctypeRow& row, std::ostream* out)
{
    *out << row.xml;
}

const DoctypeRow DoctypeRows[] = {
    {"Bare",           "<!DOCTYPE a><a/>"                                         },
    {"System",         "<!DOCTYPE a SYSTEM 'no/such/file.dtd'><a/>"               },
    {"Public",         "<!DOCTYPE a PUBLIC '-//X//Y' 'http://no.such.host/x'><a/>"},
    {"EmptySubset",    "<!DOCTYPE a []><a/>"                                      },
    {"Entity",         "<!DOCTYPE a [<!ENTITY e '1'>]><a>&e;</a>"                 },
    {"ExternalUnused", "<!DOCTYPE a [<!ENTITY e SYSTEM 'no/such/file'>]><a/>"     },
    {"Notation",       "<!DOCTYPE a [<!NOTATION n SYSTEM 'n'>]><a/>"              },
    {"AfterComment",   "<?xml version='1.0'?>\n<!-- c -->\n<!DOCTYPE a>\n<a/>"    },
    {"NotThatRoot",    "<!DOCTYPE b><a/>"                                         },
    {"LineEndFollows", "<!DOCTYPE\na><a/>"                                        },
};

class XMLDoctype : public testing::TestWithParam<DoctypeRow>
{
};

TEST_P(XMLDoctype, IsAcceptedByTreesAlone)
{
    EXPECT_EQ(readAsTree(GetParam().xml).outcome, XMLOutcome::WellFormed);
    for (const XMLReadResult& result :
        {readAsTree(GetParam().xml, refuseDoctypes()), readAsStream(GetParam().xml)}) {
        EXPECT_EQ(result.outcome, XMLOutcome::DoctypeRefused);
        EXPECT_EQ(result.message, "the document has a document type declaration");
        EXPECT_GE(result.line, 1U);
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, XMLDoctype, testing::ValuesIn(DoctypeRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(XMLDoctypes, AreNotToldWhereSomethingElseIsWrong)
{
    for (const char* const xml :
        {"<!DOCTYP a><a/>", "text<a/>", "&<a/>", "<a><!DOCTYPE a></a>", "<a/><!DOCTYPE a>"})
        EXPECT_EQ(readAsStream(xml).outcome, XMLOutcome::Malformed) << xml;
}

// --- external entities

// A file that no document may make its way into.
class SecretFile
{
public:
    SecretFile()
        : _path(boost::filesystem::temp_directory_path() / boost::filesystem::unique_path())
    {
        std::ofstream(_path.string()) << "secret";
    }
    ~SecretFile() { boost::filesystem::remove(_path); }

    SecretFile(const SecretFile&) = delete;
    SecretFile& operator=(const SecretFile&) = delete;

    std::string getPath() const { return _path.string(); }

private:
    boost::filesystem::path _path;
};

TEST(ExternalEntities, AreNeverRead)
{
    const SecretFile secret;
    for (const std::string& uri : {secret.getPath(), "file://" + secret.getPath()}) {
        const std::string entity = "<!ENTITY e SYSTEM '" + uri + "'>";
        XMLReadResult result;
        EXPECT_FALSE(parse("<!DOCTYPE a [" + entity + "]><a>&e;</a>", result).isValid());
        EXPECT_EQ(result.outcome, XMLOutcome::EntityLimit);
        EXPECT_EQ(result.message, "the document refers to an external entity");
        EXPECT_FALSE(parse("<!DOCTYPE a [" + entity + "<!ENTITY f '&e;'>]><a>&f;</a>", result).isValid());
        EXPECT_FALSE(parse("<!DOCTYPE a [" + entity + "]><a k='&e;'/>", result).isValid());
    }
}

TEST(ExternalEntities, OfParametersAreNeverRead)
{
    const SecretFile secret;
    XMLReadResult result;
    EXPECT_FALSE(
        parse("<!DOCTYPE a [<!ENTITY % e SYSTEM '" + secret.getPath() + "'>%e;]><a/>", result).isValid());
    EXPECT_EQ(result.outcome, XMLOutcome::EntityLimit);
    EXPECT_EQ(result.message, "the document declares a parameter entity");
}

TEST(ExternalDoctype, IsPassedOver)
{
    const boost::filesystem::path path =
        boost::filesystem::temp_directory_path() / boost::filesystem::unique_path();
    std::ofstream(path.string()) << "<!ATTLIST a k CDATA 'secret'>";
    XMLReadResult result;
    const XMLElement root = parse("<!DOCTYPE a SYSTEM '" + path.string() + "'><a/>", result);
    boost::filesystem::remove(path);
    EXPECT_EQ(result.outcome, XMLOutcome::WellFormed);
    EXPECT_EQ(root.getAttributeValue("k"), boost::none);
}

// --- entities that multiply

std::string makeLaughs(int levels, const std::string& where)
{
    std::string xml = "<!DOCTYPE a [<!ENTITY e0 'lol'>";
    for (int i = 1; i <= levels; ++i) {
        const std::string inner = "&e" + std::to_string(i - 1) + ";";
        xml += "<!ENTITY e" + std::to_string(i) + " '" + repeat(10, inner) + "'>";
    }
    const std::string reference = "&e" + std::to_string(levels) + ";";
    return xml + "]>" + (where == "text" ? "<a>" + reference + "</a>" : "<a k='" + reference + "'/>");
}

TEST(EntityExpansion, IsBounded)
{
    for (const char* const where : {"text", "attribute"}) {
        EXPECT_EQ(readAsTree(makeLaughs(2, where)).outcome, XMLOutcome::WellFormed) << where;
        for (const int levels : {3, 9, 50}) {
            XMLReadResult result;
            EXPECT_FALSE(parse(makeLaughs(levels, where), result).isValid());
            EXPECT_EQ(result.outcome, XMLOutcome::EntityLimit) << where << levels;
            EXPECT_EQ(result.limit, 1000U);
            EXPECT_EQ(result.value, 1001U);
        }
    }
}

TEST(EntityExpansion, IsBoundedExactly)
{
    const std::string before = "<!DOCTYPE a [<!ENTITY e '1'>]><a>";
    EXPECT_EQ(readAsTree(before + repeat(999, "&e;") + "</a>").outcome, XMLOutcome::WellFormed);
    EXPECT_EQ(readAsTree(before + repeat(1000, "&e;") + "</a>").outcome, XMLOutcome::WellFormed);
    EXPECT_EQ(readAsTree(before + repeat(1001, "&e;") + "</a>").outcome, XMLOutcome::EntityLimit);
    EXPECT_EQ(readAsTree("<a>" + repeat(100'000, "&amp;&#65;") + "</a>").outcome, XMLOutcome::WellFormed);
}

TEST(EntityExpansion, IsBoundedInCharacters)
{
    const std::string before = "<!DOCTYPE a [<!ENTITY e '" + std::string(5000, 'x') + "'>]><a>";
    EXPECT_EQ(readAsTree(before + repeat(200, "&e;") + "</a>").outcome, XMLOutcome::WellFormed);
    XMLReadResult result;
    EXPECT_FALSE(parse(before + repeat(201, "&e;") + "</a>", result).isValid());
    EXPECT_EQ(result.outcome, XMLOutcome::EntityLimit);
    EXPECT_EQ(result.limit, 1'000'000U);
    EXPECT_EQ(result.value, 1'005'000U);
    EXPECT_EQ(result.message, "entities and default attributes amount to more than 1000000 characters");
}

TEST(EntityExpansion, OfItselfIsMalformed)
{
    EXPECT_EQ(readAsTree("<!DOCTYPE a [<!ENTITY e '&e;'>]><a>&e;</a>").outcome, XMLOutcome::Malformed);
    EXPECT_EQ(readAsTree("<!DOCTYPE a [<!ENTITY e '&f;'><!ENTITY f '&e;'>]><a k='&e;'/>").outcome,
        XMLOutcome::Malformed);
}

TEST(EntityExpansion, OfDefaultAttributesIsBounded)
{
    const std::string before = "<!DOCTYPE a [<!ATTLIST b k CDATA '" + std::string(9'999, 'x') + "'>]><a>";
    EXPECT_EQ(readAsTree(before + repeat(100, "<b/>") + "</a>").outcome, XMLOutcome::WellFormed);
    EXPECT_EQ(readAsTree(before + repeat(101, "<b/>") + "</a>").outcome, XMLOutcome::EntityLimit);
    EXPECT_EQ(readAsTree(before + repeat(101, "<b k=''/>") + "</a>").outcome, XMLOutcome::WellFormed);
}

TEST(EntityExpansion, OfParametersIsRefused)
{
    XMLReadResult result;
    EXPECT_FALSE(parse("<!DOCTYPE a [<!ENTITY % p '<!-- c -->'>%p;]><a/>", result).isValid());
    EXPECT_EQ(result.outcome, XMLOutcome::EntityLimit);
    EXPECT_EQ(result.message, "the document declares a parameter entity");
}

TEST(Doctype, IsBoundedInBytes)
{
    const auto make = [](std::size_t size) {
        return "<!DOCTYPE a [" + std::string(size, ' ') + "]>" +
               repeat(100, "<!-- 1000 bytes " + std::string(1000, 'c') + "-->") + "<a/>";
    };
    EXPECT_EQ(readAsTree(make(12 << 10)).outcome, XMLOutcome::WellFormed);
    XMLReadResult result;
    EXPECT_FALSE(parse(make(24 << 10), result).isValid());
    EXPECT_EQ(result.outcome, XMLOutcome::DoctypeLimit);
    EXPECT_EQ(result.limit, 16U << 10);
    EXPECT_EQ(result.message, "the document type declaration is longer than 16384 bytes");
}

TEST(Doctype, OfDeepContentModelEndsWell)
{
    for (const std::size_t depth : {400U, 5000U, 7000U}) {
        const std::string model = repeat(depth, "(") + "b" + repeat(depth, ")");
        const XMLOutcome outcome = readAsTree("<!DOCTYPE a [<!ELEMENT a " + model + ">]><a/>").outcome;
        EXPECT_THAT(outcome, testing::AnyOf(XMLOutcome::WellFormed, XMLOutcome::Malformed)) << depth;
    }
}

// --- streams that fail

struct SourceFailure : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

// Gives so many bytes of a text, one at a time at most, and then throws.
class FailingBuffer : public std::streambuf
{
public:
    FailingBuffer(const std::string& text, std::size_t size)
        : _text(text)
        , _left(size)
    {
    }

protected:
    int_type underflow() override
    {
        if (_left == 0)
            throw SourceFailure("the source failed");
        --_left;
        char* const place = &_text[_next++];
        setg(place, place, place + 1);
        return traits_type::to_int_type(*place);
    }

private:
    std::string _text;
    std::size_t _left;
    std::size_t _next = 0;
};

using Reading = std::function<XMLReadResult(std::istream&)>;

const Reading Readings[] = {
    [](std::istream& stream) { return readAsTree(stream); },
    [](std::istream& stream) { return readAsStream(stream); },
    [](std::istream& stream) { return readAsStream(stream, {}, XMLStep::Tree); },
};

const std::string Document = "<?xml version='1.0'?><a k='v'><b>text</b><b><c/></b></a>\n";

TEST(FailingStream, ExceptionPassesFromEveryByte)
{
    for (const Reading& reading : Readings)
        for (std::size_t size = 0; size <= Document.size(); ++size) {
            FailingBuffer buffer(Document, size);
            std::istream stream(&buffer);
            stream.exceptions(std::ios_base::badbit);
            try {
                reading(stream);
                ADD_FAILURE() << size;
            } catch (const SourceFailure& failure) {
                EXPECT_STREQ(failure.what(), "the source failed");
            }
            EXPECT_TRUE(stream.bad());
            EXPECT_EQ(stream.exceptions(), std::ios_base::badbit);
        }
}

TEST(FailingStream, IsUnreadableWhereItDoesNotThrow)
{
    for (const Reading& reading : Readings)
        for (std::size_t size = 0; size < Document.size() - 1; ++size) {
            FailingBuffer buffer(Document, size);
            std::istream stream(&buffer);
            const XMLReadResult result = reading(stream);
            EXPECT_EQ(result.outcome, XMLOutcome::Unreadable) << size;
            EXPECT_EQ(result.message, "the stream failed");
        }
}

TEST(FailingStream, IsUnreadableFromTheStart)
{
    for (const Reading& reading : Readings)
        for (const auto state : {std::ios_base::failbit, std::ios_base::badbit}) {
            std::istringstream stream(Document);
            stream.setstate(state);
            EXPECT_EQ(reading(stream).outcome, XMLOutcome::Unreadable);
        }
}

TEST(EndingStream, ThrowsNothingOverItsEnd)
{
    for (const Reading& reading : Readings) {
        std::istringstream stream(Document);
        stream.exceptions(std::ios_base::failbit | std::ios_base::eofbit | std::ios_base::badbit);
        EXPECT_EQ(reading(stream).outcome, XMLOutcome::WellFormed);
        EXPECT_EQ(
            stream.exceptions(), std::ios_base::failbit | std::ios_base::eofbit | std::ios_base::badbit);
        EXPECT_TRUE(stream.eof());
    }
}

TEST(EndingStream, WithNothingInItIsMalformed)
{
    for (const Reading& reading : Readings) {
        std::istringstream stream("");
        EXPECT_EQ(reading(stream).outcome, XMLOutcome::Malformed);
        EXPECT_EQ(reading(stream).outcome, XMLOutcome::Malformed); // at its end already
    }
}

// --- one parser after another

TEST(XMLReaders, KeepNothingOfABrokenReading)
{
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(readAsTree(makeLaughs(9, "text")).outcome, XMLOutcome::EntityLimit);
        EXPECT_EQ(readAsTree("<a><b></a>").outcome, XMLOutcome::Malformed);
        EXPECT_EQ(readAsStream("<a><b></a>").outcome, XMLOutcome::Malformed);
        EXPECT_EQ(readAsTree(Document).outcome, XMLOutcome::WellFormed);
        EXPECT_EQ(readAsStream(Document).outcome, XMLOutcome::WellFormed);
    }
}

} // namespace
} // namespace QV::FilterUtils
