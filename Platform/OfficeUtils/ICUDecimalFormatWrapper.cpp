#include <OfficeUtils/Public/ICUDecimalFormatWrapper.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

#include <unicode/dcfmtsym.h>
#include <unicode/decimfmt.h>
#include <unicode/locid.h>
#include <unicode/unistr.h>

namespace QV::OfficeUtils {
namespace {

// The shortest decimal of a double has at most 17 digits, the last of them at 10^-324 or above.
constexpr int MaxFractionDigits = 340;

std::unique_ptr<const icu::DecimalFormat> makeFormat(const std::string& localeName, int precision)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::DecimalFormatSymbols symbols(icu::Locale(localeName.c_str()), status);
    auto format = std::make_unique<icu::DecimalFormat>(icu::UnicodeString(u"0.#"), symbols, status);
    if (U_FAILURE(status))
        throw std::runtime_error(std::string("No decimal format: ") + u_errorName(status));
    format->setRoundingMode(icu::DecimalFormat::kRoundHalfEven);
    format->setMaximumFractionDigits(precision);
    return format;
}

// The formatters that one thread used last. Changing the precision of an ICU formatter costs as much as
// making one, so each precision has its own.
class FormatCache
{
public:
    const icu::DecimalFormat& get(const std::string& localeName, int precision)
    {
        for (const Entry& entry : _entries)
            if (entry.precision == precision && entry.localeName == localeName)
                return *entry.format;
        Entry made{localeName, precision, makeFormat(localeName, precision)};
        if (_entries.size() < Capacity)
            return *_entries.emplace_back(std::move(made)).format;
        Entry& oldest = _entries[_next];
        _next = (_next + 1) % Capacity;
        oldest = std::move(made);
        return *oldest.format;
    }

private:
    static constexpr std::size_t Capacity = 32;

    struct Entry
    {
        std::string localeName;
        int precision;
        std::unique_ptr<const icu::DecimalFormat> format;
    };

    std::vector<Entry> _entries;
    std::size_t _next = 0; // the oldest entry, once there are Capacity of them
};

} // namespace

ICUDecimalFormatWrapper::ICUDecimalFormatWrapper(const LocaleContext& context)
    : _localeName(context.getName())
{
}

void ICUDecimalFormatWrapper::setPrecision(int digits)
{
    _precision = std::clamp(digits, 0, MaxFractionDigits);
}

std::string ICUDecimalFormatWrapper::toString(double value) const
{
    thread_local FormatCache cache;
    icu::UnicodeString text;
    cache.get(_localeName, _precision).format(value, text);
    std::string utf8;
    text.toUTF8String(utf8);
    return utf8;
}

} // namespace QV::OfficeUtils
