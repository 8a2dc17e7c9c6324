#include <Utils/MIMESniffers.h>

#include <cstddef>

namespace QV::MIMESniffers {
namespace {

// Offsets and values of a local header (APPNOTE.TXT of the zip format, section 4.3.7).
constexpr std::size_t FlagsOffset = 6;
constexpr std::size_t MethodOffset = 8;
constexpr std::size_t CompressedSizeOffset = 18;
constexpr std::size_t NameSizeOffset = 26;
constexpr std::size_t ExtraSizeOffset = 28;
constexpr std::size_t HeaderSize = 30;
constexpr std::size_t SizeFollowsFlag = 8;
constexpr const char* LocalHeader = "PK\x03\x04";
constexpr const char* EndOfEmptyArchive = "PK\x05\x06";

std::size_t readShort(boost::string_ref head, std::size_t offset)
{
    return readByte(head, offset) + std::size_t(readByte(head, offset + 1)) * 256;
}

boost::string_ref cut(boost::string_ref head, std::size_t offset, std::size_t size)
{
    return offset < head.size() ? head.substr(offset, size) : boost::string_ref();
}

struct Entry
{
    boost::string_ref name;
    boost::string_ref storedContent; // empty where it is compressed, or where its size follows it
    std::size_t end;                 // where the next header may stand
};

Entry readEntry(boost::string_ref head, std::size_t begin)
{
    const std::size_t nameSize = readShort(head, begin + NameSizeOffset);
    const std::size_t content = begin + HeaderSize + nameSize + readShort(head, begin + ExtraSizeOffset);
    const bool isSizeKnown = (readShort(head, begin + FlagsOffset) & SizeFollowsFlag) == 0;
    const std::size_t size = isSizeKnown ? readShort(head, begin + CompressedSizeOffset) +
                                               readShort(head, begin + CompressedSizeOffset + 2) * 65536
                                         : 0;
    const bool isStored = readShort(head, begin + MethodOffset) == 0;
    return {cut(head, begin + HeaderSize, nameSize), cut(head, content, isStored ? size : 0), content + size};
}

// Types that a stored entry "mimetype", the first of an OpenDocument package, holds.
constexpr const char* OpenDocumentTypes[] = {
    "application/vnd.oasis.opendocument.text",
    "application/vnd.oasis.opendocument.text-template",
    "application/vnd.oasis.opendocument.spreadsheet",
    "application/vnd.oasis.opendocument.spreadsheet-template",
    "application/vnd.oasis.opendocument.presentation",
    "application/vnd.oasis.opendocument.presentation-template",
    "application/vnd.oasis.opendocument.graphics",
};

struct PackageRow
{
    const char* sign;
    const char* mimeType;
};

// Types of main parts, as a list of content types that is not compressed shows them.
constexpr PackageRow MainPartTypes[] = {
    {"wordprocessingml.document.main+xml",
     "application/vnd.openxmlformats-officedocument.wordprocessingml.document"                                              },
    {"wordprocessingml.template.main+xml",
     "application/vnd.openxmlformats-officedocument.wordprocessingml.template"                                              },
    {"ms-word.document.macroEnabled.main+xml",           "application/vnd.ms-word.document.macroEnabled.12"                 },
    {"ms-word.template.macroEnabledTemplate.main+xml",   "application/vnd.ms-word.template.macroEnabled.12"                 },
    {"spreadsheetml.sheet.main+xml",                     "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet"},
    {"spreadsheetml.template.main+xml",
     "application/vnd.openxmlformats-officedocument.spreadsheetml.template"                                                 },
    {"ms-excel.sheet.macroEnabled.main+xml",             "application/vnd.ms-excel.sheet.macroEnabled.12"                   },
    {"ms-excel.template.macroEnabled.main+xml",          "application/vnd.ms-excel.template.macroEnabled.12"                },
    {"ms-excel.addin.macroEnabled.main+xml",             "application/vnd.ms-excel.addin.macroEnabled.12"                   },
    {"ms-excel.sheet.binary.macroEnabled.main",          "application/vnd.ms-excel.sheet.binary.macroEnabled.12"            },
    {"presentationml.presentation.main+xml",
     "application/vnd.openxmlformats-officedocument.presentationml.presentation"                                            },
    {"presentationml.template.main+xml",
     "application/vnd.openxmlformats-officedocument.presentationml.template"                                                },
    {"presentationml.slideshow.main+xml",
     "application/vnd.openxmlformats-officedocument.presentationml.slideshow"                                               },
    {"ms-powerpoint.presentation.macroEnabled.main+xml",
     "application/vnd.ms-powerpoint.presentation.macroEnabled.12"                                                           },
    {"ms-powerpoint.template.macroEnabled.main+xml",
     "application/vnd.ms-powerpoint.template.macroEnabled.12"                                                               },
    {"ms-powerpoint.slideshow.macroEnabled.main+xml",
     "application/vnd.ms-powerpoint.slideshow.macroEnabled.12"                                                              },
};

// Names of parts, for packages whose list is compressed. Those of macros outweigh those of main parts.
constexpr PackageRow MacroParts[] = {
    {"word/vbaProject.bin", "application/vnd.ms-word.document.macroEnabled.12"          },
    {"xl/vbaProject.bin",   "application/vnd.ms-excel.sheet.macroEnabled.12"            },
    {"ppt/vbaProject.bin",  "application/vnd.ms-powerpoint.presentation.macroEnabled.12"},
};
constexpr PackageRow MainParts[] = {
    {"word/document.xml",    "application/vnd.openxmlformats-officedocument.wordprocessingml.document"  },
    {"xl/workbook.xml",      "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet"        },
    {"xl/workbook.bin",      "application/vnd.ms-excel.sheet.binary.macroEnabled.12"                    },
    {"ppt/presentation.xml", "application/vnd.openxmlformats-officedocument.presentationml.presentation"},
};

template <std::size_t Size>
const char* findByPart(const PackageRow (&rows)[Size], boost::string_ref name)
{
    for (const PackageRow& row : rows)
        if (name == row.sign)
            return row.mimeType;
    return nullptr;
}

// What the content of one entry says of the package, if anything.
const char* sniffContent(const Entry& entry)
{
    if (entry.name == "mimetype")
        for (const char* const mimeType : OpenDocumentTypes)
            if (entry.storedContent == mimeType)
                return mimeType;
    if (entry.name == "[Content_Types].xml")
        for (const PackageRow& row : MainPartTypes)
            if (entry.storedContent.find(row.sign) != boost::string_ref::npos)
                return row.mimeType;
    return nullptr;
}

} // namespace

const char* sniffZip(boost::string_ref head)
{
    if (!head.starts_with(LocalHeader))
        return head.starts_with(EndOfEmptyArchive) ? "application/zip" : nullptr;
    const char* mainType = nullptr;
    for (std::size_t begin = 0; begin != boost::string_ref::npos;) {
        const Entry entry = readEntry(head, begin);
        if (const char* const mimeType = sniffContent(entry))
            return mimeType;
        if (const char* const mimeType = findByPart(MacroParts, entry.name))
            return mimeType;
        if (!mainType)
            mainType = findByPart(MainParts, entry.name);
        const boost::string_ref rest = cut(head, entry.end, head.size());
        const std::size_t next = rest.find(LocalHeader);
        begin = next == boost::string_ref::npos ? next : entry.end + next;
    }
    return mainType ? mainType : "application/zip";
}

} // namespace QV::MIMESniffers
