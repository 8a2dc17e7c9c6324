#include <Utils/Public/MIME.h>

#include <ostream>
#include <set>
#include <string>
#include <vector>

#include <boost/optional/optional_io.hpp>
#include <gtest/gtest.h>

namespace QV {
namespace {

using Texts = std::vector<std::string>;

struct KindRow
{
    std::string mimeType;  // the one that we write
    std::string extension; // the usual one
    Texts otherTypes;
    Texts otherExtensions;
};

void PrintTo(const KindRow& row, std::ostream* out)
{
    *out << row.mimeType;
}

const std::string OOXML = "application/vnd.openxmlformats-officedocument.";
const std::string ODF = "application/vnd.oasis.opendocument.";

const KindRow Kinds[] = {
    {"image/png",                                                  "png",   {"image/x-png"},                   {}                     },
    {"image/jpeg",                                                 "jpg",   {"image/jpg", "image/pjpeg"},      {"jpeg", "jpe", "jfif"}},
    {"image/gif",                                                  "gif",   {},                                {}                     },
    {"image/bmp",                                                  "bmp",   {"image/x-bmp", "image/x-ms-bmp"}, {"dib"}                },
    {"image/tiff",                                                 "tiff",  {},                                {"tif"}                },
    {"image/webp",                                                 "webp",  {},                                {}                     },
    {"image/svg+xml",                                              "svg",   {"image/svg"},                     {}                     },
    {"image/x-emf",                                                "emf",   {"image/emf"},                     {}                     },
    {"image/x-wmf",                                                "wmf",   {"image/wmf"},                     {}                     },
    {"image/x-emz",                                                "emz",   {},                                {}                     },
    {"image/x-wmz",                                                "wmz",   {},                                {}                     },
    {"image/vnd.ms-photo",                                         "wdp",   {"image/jxr"},                     {"hdp", "jxr"}         },
    {"image/heic",                                                 "heic",  {},                                {}                     },
    {"image/heif",                                                 "heif",  {},                                {"hif"}                },
    {"image/avif",                                                 "avif",  {},                                {}                     },
    {"image/vnd.microsoft.icon",                                   "ico",   {"image/x-icon"},                  {}                     },
    {"image/vnd.adobe.photoshop",                                  "psd",   {},                                {}                     },
    {"image/x-pict",                                               "pct",   {"image/pct"},                     {"pict"}               },
    {"image/x-pcx",                                                "pcx",   {},                                {}                     },
    {"audio/wav",                                                  "wav",   {"audio/wave", "audio/x-wav"},     {}                     },
    {"audio/mpeg",                                                 "mp3",   {"audio/mp3"},                     {}                     },
    {"audio/mp4",                                                  "m4a",   {"audio/x-m4a"},                   {"m4b"}                },
    {"audio/aac",                                                  "aac",   {"audio/x-aac"},                   {"adts"}               },
    {"audio/aiff",                                                 "aiff",  {"audio/x-aiff"},                  {"aif", "aifc"}        },
    {"audio/amr",                                                  "amr",   {},                                {}                     },
    {"audio/basic",                                                "au",    {},                                {"snd"}                },
    {"audio/flac",                                                 "flac",  {"audio/x-flac"},                  {}                     },
    {"audio/midi",                                                 "mid",   {"audio/x-midi"},                  {"midi"}               },
    {"audio/ogg",                                                  "ogg",   {},                                {"oga"}                },
    {"audio/x-ms-wma",                                             "wma",   {},                                {}                     },
    {"video/mp4",                                                  "mp4",   {},                                {}                     },
    {"video/x-m4v",                                                "m4v",   {},                                {}                     },
    {"video/mpeg",                                                 "mpg",   {},                                {"mpeg", "mpe", "m1v"} },
    {"video/quicktime",                                            "mov",   {},                                {"qt"}                 },
    {"video/3gpp",                                                 "3gp",   {},                                {"3gpp"}               },
    {"video/ogg",                                                  "ogv",   {},                                {}                     },
    {"video/webm",                                                 "webm",  {},                                {}                     },
    {"video/x-matroska",                                           "mkv",   {},                                {}                     },
    {"video/x-flv",                                                "flv",   {},                                {}                     },
    {"video/x-ms-asf",                                             "asf",   {},                                {}                     },
    {"video/x-ms-wmv",                                             "wmv",   {},                                {}                     },
    {"video/x-msvideo",                                            "avi",   {"video/avi", "video/msvideo"},    {}                     },
    {"application/pdf",                                            "pdf",   {},                                {}                     },
    {"application/postscript",                                     "eps",   {},                                {"ps"}                 },
    {"application/rtf",                                            "rtf",   {"text/rtf"},                      {}                     },
    {"application/zip",                                            "zip",   {},                                {}                     },
    {"application/gzip",                                           "gz",    {"application/x-gzip"},            {}                     },
    {"application/json",                                           "json",  {},                                {}                     },
    {"application/xml",                                            "xml",   {"text/xml"},                      {}                     },
    {"application/xhtml+xml",                                      "xhtml", {},                                {}                     },
    {"application/octet-stream",                                   "bin",   {},                                {}                     },
    {"text/plain",                                                 "txt",   {},                                {}                     },
    {"text/html",                                                  "html",  {},                                {"htm"}                },
    {"text/css",                                                   "css",   {},                                {}                     },
    {"text/csv",                                                   "csv",   {},                                {}                     },
    {"application/msword",                                         "doc",   {},                                {"dot"}                },
    {"application/vnd.ms-excel",                                   "xls",   {},                                {"xlt", "xla"}         },
    {"application/vnd.ms-powerpoint",                              "ppt",   {},                                {"pot", "pps"}         },
    {OOXML + "wordprocessingml.document",                          "docx",  {},                                {}                     },
    {OOXML + "wordprocessingml.template",                          "dotx",  {},                                {}                     },
    {"application/vnd.ms-word.document.macroEnabled.12",           "docm",  {},                                {}                     },
    {"application/vnd.ms-word.template.macroEnabled.12",           "dotm",  {},                                {}                     },
    {OOXML + "spreadsheetml.sheet",                                "xlsx",  {},                                {}                     },
    {OOXML + "spreadsheetml.template",                             "xltx",  {},                                {}                     },
    {"application/vnd.ms-excel.sheet.macroEnabled.12",             "xlsm",  {},                                {}                     },
    {"application/vnd.ms-excel.template.macroEnabled.12",          "xltm",  {},                                {}                     },
    {"application/vnd.ms-excel.addin.macroEnabled.12",             "xlam",  {},                                {}                     },
    {"application/vnd.ms-excel.sheet.binary.macroEnabled.12",      "xlsb",  {},                                {}                     },
    {OOXML + "presentationml.presentation",                        "pptx",  {},                                {}                     },
    {OOXML + "presentationml.template",                            "potx",  {},                                {}                     },
    {OOXML + "presentationml.slideshow",                           "ppsx",  {},                                {}                     },
    {"application/vnd.ms-powerpoint.presentation.macroEnabled.12", "pptm",  {},                                {}                     },
    {"application/vnd.ms-powerpoint.template.macroEnabled.12",     "potm",  {},                                {}                     },
    {"application/vnd.ms-powerpoint.slideshow.macroEnabled.12",    "ppsm",  {},                                {}                     },
    {ODF + "text",                                                 "odt",   {},                                {}                     },
    {ODF + "text-template",                                        "ott",   {},                                {}                     },
    {ODF + "spreadsheet",                                          "ods",   {},                                {}                     },
    {ODF + "spreadsheet-template",                                 "ots",   {},                                {}                     },
    {ODF + "presentation",                                         "odp",   {},                                {}                     },
    {ODF + "presentation-template",                                "otp",   {},                                {}                     },
    {ODF + "graphics",                                             "odg",   {},                                {}                     },
};

std::string raise(std::string text)
{
    for (char& c : text)
        c = static_cast<char>('a' <= c && c <= 'z' ? c - 'a' + 'A' : c);
    return text;
}

class MIMETypeTables : public testing::TestWithParam<KindRow>
{
};

TEST_P(MIMETypeTables, LeadThereAndBack)
{
    const KindRow& row = GetParam();
    EXPECT_EQ(getFileExtensionByMIMEType(row.mimeType), row.extension);
    EXPECT_EQ(getMIMETypeByExtension(row.extension), row.mimeType);
    for (const std::string& type : row.otherTypes)
        EXPECT_EQ(getFileExtensionByMIMEType(type), row.extension) << type;
    for (const std::string& extension : row.otherExtensions)
        EXPECT_EQ(getMIMETypeByExtension(extension), row.mimeType) << extension;
}

TEST_P(MIMETypeTables, LettersOfEitherCase)
{
    const KindRow& row = GetParam();
    EXPECT_EQ(getFileExtensionByMIMEType(raise(row.mimeType)), row.extension);
    EXPECT_EQ(getMIMETypeByExtension(raise(row.extension)), row.mimeType);
}

INSTANTIATE_TEST_SUITE_P(Kinds, MIMETypeTables, testing::ValuesIn(Kinds),
    [](const auto& row) { return "Of_" + row.param.extension; });

TEST(MIMETypeTables, NoNameStandsTwice)
{
    std::set<std::string> types;
    std::set<std::string> extensions;
    for (const KindRow& row : Kinds) {
        EXPECT_TRUE(types.insert(row.mimeType).second) << row.mimeType;
        EXPECT_TRUE(extensions.insert(row.extension).second) << row.extension;
        for (const std::string& type : row.otherTypes)
            EXPECT_TRUE(types.insert(type).second) << type;
        for (const std::string& extension : row.otherExtensions)
            EXPECT_TRUE(extensions.insert(extension).second) << extension;
    }
}

TEST(MIMETypeTables, ShortExtensionsThatAreNotListedAreUnknown)
{
    std::set<std::string> listed;
    for (const KindRow& row : Kinds) {
        listed.insert(row.extension);
        listed.insert(row.otherExtensions.begin(), row.otherExtensions.end());
    }
    const std::string alphabet = "abcdefghijklmnopqrstuvwxyz0123456789";
    for (const char a : alphabet)
        for (const char b : alphabet) {
            EXPECT_EQ(getMIMETypeByExtension({a, b}).has_value(), listed.count({a, b}) != 0) << a << b;
            for (const char c : alphabet)
                EXPECT_EQ(getMIMETypeByExtension({a, b, c}).has_value(), listed.count({a, b, c}) != 0)
                    << a << b << c;
        }
}

TEST(MIMETypeTables, OtherTextsAreUnknown)
{
    for (const std::string& type : Texts{"", "png", "image/", "image/pn", "image/pngx", " image/png",
             "image/png ", "image/png;q=1", "a", "zzz", "video/zzz", std::string("image/png\0", 10)})
        EXPECT_EQ(getFileExtensionByMIMEType(type), boost::none) << type;
    for (const std::string& extension :
        Texts{"", ".png", "png ", "pn", "pngx", "..", "/", "image/png", "\xff", std::string("png\0", 4)})
        EXPECT_EQ(getMIMETypeByExtension(extension), boost::none) << extension;
}

} // namespace
} // namespace QV
