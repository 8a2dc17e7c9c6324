#pragma once

#include <string>

#include <FilterUtils/FU_Errors.h>

#include <Filters/Package/Export.h>

namespace QV::Filters {

/// A package that cannot be read as a document, or no longer read on. what() is one line for a person, in
/// printable UTF-8 whatever the package holds, with the part, and for a limit its name, its value and what
/// was met:
///
///     part "xl/media/image1.png" unpacks to 1073807360 bytes or more; the limit for a part is 1073741824
class FILTERS_API PackageError : public BaseRuntimeError
{
public:
    enum class Kind
    {
        NotAPackage,   ///< something else: no zip archive, or a file that cannot be read at all
        Encrypted,     ///< needs a password
        Damaged,       ///< a zip archive that breaks off, contradicts itself or fails its checksums
        LimitExceeded, ///< costs more than PackageLimits or the XML limits allow
        Refused,       ///< breaks a rule that guards the reader: duplicate or escaping names, a DOCTYPE
        MissingPart,   ///< the part is not there
        Unsupported    ///< a package, but of a kind that no filter reads
    };

    /// @param part the part concerned, or empty where the whole package is
    PackageError(Kind kind, const std::string& message, std::string part = {});
    ~PackageError() override;

    Kind getKind() const { return _kind; }
    const std::string& getPart() const { return _part; }

private:
    Kind _kind;
    std::string _part;
};

/// Makes a text from outside fit for one line of a terminal: control characters, invalid UTF-8, quotes and
/// backslashes become "\xNN", and more than 200 bytes are cut, which "..." shows.
FILTERS_API std::string makePrintable(const std::string& text);

} // namespace QV::Filters
