#include <Filters/Package/MainPart.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <istream>
#include <memory>

#include <fmt/format.h>

#include <Filters/Package/ContentTypes.h>
#include <Filters/Package/Package.h>
#include <Filters/Package/PackageError.h>
#include <Filters/Package/PartNames.h>
#include <Filters/Package/Relationships.h>

namespace QV::Filters {
namespace {

using Kind = PackageError::Kind;

struct KindRow
{
    DocumentKind kind;
    boost::string_ref contentType;
};

const KindRow KindRows[] = {
    {DocumentKind::Spreadsheet,  "application/vnd.openxmlformats-officedocument.spreadsheetml.sheet.main+xml"      },
    {DocumentKind::Spreadsheet,
     "application/vnd.openxmlformats-officedocument.spreadsheetml.template.main+xml"                               },
    {DocumentKind::Spreadsheet,  "application/vnd.ms-excel.sheet.macroEnabled.main+xml"                            },
    {DocumentKind::Spreadsheet,  "application/vnd.ms-excel.template.macroEnabled.main+xml"                         },
    {DocumentKind::Spreadsheet,  "application/vnd.ms-excel.addin.macroEnabled.main+xml"                            },
    {DocumentKind::Text,         "application/vnd.openxmlformats-officedocument.wordprocessingml.document.main+xml"},
    {DocumentKind::Text,         "application/vnd.openxmlformats-officedocument.wordprocessingml.template.main+xml"},
    {DocumentKind::Text,         "application/vnd.ms-word.document.macroEnabled.main+xml"                          },
    {DocumentKind::Text,         "application/vnd.ms-word.template.macroEnabledTemplate.main+xml"                  },
    {DocumentKind::Presentation,
     "application/vnd.openxmlformats-officedocument.presentationml.presentation.main+xml"                          },
    {DocumentKind::Presentation,
     "application/vnd.openxmlformats-officedocument.presentationml.slideshow.main+xml"                             },
    {DocumentKind::Presentation,
     "application/vnd.openxmlformats-officedocument.presentationml.template.main+xml"                              },
    {DocumentKind::Presentation, "application/vnd.ms-powerpoint.presentation.macroEnabled.main+xml"                },
    {DocumentKind::Presentation, "application/vnd.ms-powerpoint.slideshow.macroEnabled.main+xml"                   },
    {DocumentKind::Presentation, "application/vnd.ms-powerpoint.template.macroEnabled.main+xml"                    },
    {DocumentKind::Presentation, "application/vnd.ms-powerpoint.addin.macroEnabled.main+xml"                       },
};

const boost::string_ref BinaryWorkbook = "application/vnd.ms-excel.sheet.binary.macroEnabled.main";

// What packers write who do not know what they pack.
const boost::string_ref PlainTypes[] = {"", "application/xml", "text/xml", "application/octet-stream"};

struct FolderRow
{
    DocumentKind kind;
    boost::string_ref folder;
};

const FolderRow FolderRows[] = {
    {DocumentKind::Spreadsheet,  "xl/"  },
    {DocumentKind::Text,         "word/"},
    {DocumentKind::Presentation, "ppt/" },
};

boost::string_ref removeParameters(boost::string_ref contentType)
{
    boost::string_ref type = contentType.substr(0, contentType.find(';'));
    while (!type.empty() && type.back() == ' ')
        type.remove_suffix(1);
    return type;
}

boost::optional<DocumentKind> findKindOfFolder(const std::string& part)
{
    const std::string key = makePartKey(part);
    for (const FolderRow& row : FolderRows)
        if (boost::string_ref(key).starts_with(row.folder))
            return row.kind;
    return boost::none;
}

bool isPlain(boost::string_ref contentType)
{
    return std::any_of(std::begin(PlainTypes), std::end(PlainTypes),
        [contentType](boost::string_ref plain) { return equalWithoutCase(contentType, plain); });
}

DocumentKind getKind(const std::string& part, const std::string& contentType)
{
    const boost::string_ref type = removeParameters(contentType);
    if (const auto kind = findDocumentKind(type))
        return *kind;
    if (equalWithoutCase(type, BinaryWorkbook))
        throw PackageError(Kind::Unsupported, "binary workbooks (xlsb) are not supported", part);
    const auto kind = isPlain(type) ? findKindOfFolder(part) : boost::none;
    if (!kind)
        throw PackageError(Kind::Unsupported,
            fmt::format("documents whose main part, \"{}\", is of the type \"{}\" are not supported",
                makePrintable(part), makePrintable(contentType)),
            part);
    return *kind;
}

// Archives of other families start with an item of this name that says what they are.
[[noreturn]] void refuseWithoutMainPart(Package& package)
{
    if (package.findPart("mimetype")) {
        std::array<char, 100> text = {};
        const std::unique_ptr<std::istream> stream = package.openPart("mimetype");
        stream->read(text.data(), text.size());
        throw PackageError(Kind::Unsupported,
            fmt::format("documents of the type \"{}\" are not supported",
                makePrintable(std::string(text.data(), static_cast<std::size_t>(stream->gcount())))));
    }
    throw PackageError(Kind::MissingPart, "the package has no main part");
}

bool isStrict(const Relationship& relationship)
{
    return boost::string_ref(relationship.type)
        .starts_with(getNamespace(Vocabulary::Relationships, Dialect::Strict));
}

} // namespace

MainPart findMainPart(Package& package, const ContentTypes& types, const Relationships& relationships)
{
    const Relationship* const relationship = relationships.findByType("officeDocument");
    if (relationship && !relationship->isExternal) {
        const std::string& type = types.getType(relationship->target);
        const Dialect dialect = isStrict(*relationship) ? Dialect::Strict : Dialect::Transitional;
        return {relationship->target, type, getKind(relationship->target, type), dialect};
    }
    for (const std::string& part : package.getPartNames()) {
        const std::string& type = types.getType(part);
        if (const auto kind = findDocumentKind(type))
            return {part, type, *kind, Dialect::Transitional};
    }
    refuseWithoutMainPart(package);
}

boost::optional<DocumentKind> findDocumentKind(boost::string_ref contentType)
{
    const boost::string_ref type = removeParameters(contentType);
    for (const KindRow& row : KindRows)
        if (equalWithoutCase(type, row.contentType))
            return row.kind;
    return boost::none;
}

} // namespace QV::Filters
