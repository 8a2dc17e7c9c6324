#include <Filters/Spreadsheet/NumberFormats.h>

#include <cstddef>
#include <utility>

#include <boost/optional.hpp>

#include <FilterUtils/FU_DateTimeFormatCodes.h>
#include <Filters/Package/Namespaces.h>
#include <OfficeUtils/Public/Parser.h>
#include <Utils/Public/NumberText.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Filters {
namespace {

using FilterUtils::XMLElement;
using OfficeUtils::Parser;

constexpr const char* GeneralCode = "General";
constexpr unsigned long GeneralId = 0;
constexpr unsigned long OwnIdsBegin = 164; // the numbers below are the applications'

struct KnownFormat
{
    unsigned long id;
    const char* code;
    const char* shown; ///< as in US English, where applications do not show what the code says; else null
};

const KnownFormat KnownFormats[] = {
    {1,  "0",                                                             nullptr        },
    {2,  "0.00",                                                          nullptr        },
    {3,  "#,##0",                                                         nullptr        },
    {4,  "#,##0.00",                                                      nullptr        },
    {5,  R"("$"#,##0_);\("$"#,##0\))",                                    nullptr        },
    {6,  R"("$"#,##0_);[Red]\("$"#,##0\))",                               nullptr        },
    {7,  R"("$"#,##0.00_);\("$"#,##0.00\))",                              nullptr        },
    {8,  R"("$"#,##0.00_);[Red]\("$"#,##0.00\))",                         nullptr        },
    {9,  "0%",                                                            nullptr        },
    {10, "0.00%",                                                         nullptr        },
    {11, "0.00E+00",                                                      nullptr        },
    {12, "# ?/?",                                                         nullptr        },
    {13, "# ?\?/?\?",                                                     nullptr        },
    {14, "mm-dd-yy",                                                      "m/d/yyyy"     },
    {15, "d-mmm-yy",                                                      nullptr        },
    {16, "d-mmm",                                                         nullptr        },
    {17, "mmm-yy",                                                        nullptr        },
    {18, "h:mm AM/PM",                                                    nullptr        },
    {19, "h:mm:ss AM/PM",                                                 nullptr        },
    {20, "h:mm",                                                          nullptr        },
    {21, "h:mm:ss",                                                       nullptr        },
    {22, "m/d/yy h:mm",                                                   "m/d/yyyy h:mm"},
    {37, "#,##0_);(#,##0)",                                               nullptr        },
    {38, "#,##0_);[Red](#,##0)",                                          nullptr        },
    {39, "#,##0.00_);(#,##0.00)",                                         nullptr        },
    {40, "#,##0.00_);[Red](#,##0.00)",                                    nullptr        },
    {41, R"(_(* #,##0_);_(* \(#,##0\);_(* "-"_);_(@_))",                  nullptr        },
    {42, R"(_("$"* #,##0_);_("$"* \(#,##0\);_("$"* "-"_);_(@_))",         nullptr        },
    {43, R"(_(* #,##0.00_);_(* \(#,##0.00\);_(* "-"??_);_(@_))",          nullptr        },
    {44, R"(_("$"* #,##0.00_);_("$"* \(#,##0.00\);_("$"* "-"??_);_(@_))", nullptr        },
    {45, "mm:ss",                                                         nullptr        },
    {46, "[h]:mm:ss",                                                     nullptr        },
    {47, "mmss.0",                                                        "mm:ss.0"      },
    {48, "##0.0E+0",                                                      nullptr        },
    {49, "@",                                                             nullptr        },
};

/// Formats that are another one by all but their number: of East Asian applications (27 to 36, 50 to 58),
/// whose dates and times others show in their own way, and of Thai ones (59 to 81), whose digits others do
/// not have.
struct LikeFormat
{
    unsigned long id;
    unsigned long likeId;
};

const LikeFormat LikeFormats[] = {
    {27, 14},
    {28, 14},
    {29, 14},
    {30, 14},
    {31, 14},
    {32, 21},
    {33, 21},
    {34, 21},
    {35, 21},
    {36, 14},
    {50, 14},
    {51, 14},
    {52, 14},
    {53, 14},
    {54, 14},
    {55, 14},
    {56, 14},
    {57, 14},
    {58, 14},
    {59, 1 },
    {60, 2 },
    {61, 3 },
    {62, 4 },
    {63, 5 },
    {64, 6 },
    {65, 7 },
    {66, 8 },
    {67, 9 },
    {68, 10},
    {69, 12},
    {70, 13},
    {71, 14},
    {72, 14},
    {73, 15},
    {74, 16},
    {75, 17},
    {76, 20},
    {77, 21},
    {78, 22},
    {79, 45},
    {80, 46},
    {81, 47},
};

bool isGeneral(const DOM::CellFormatModel::Expression& expression)
{
    const auto& rule = expression.getDefaultNumberRule();
    return rule && expression.getRules().empty() && !expression.getDefaultTextRule() &&
           Parser::toRegEx(expression, Parser::ParserType::Spreadsheet) == GeneralCode;
}

/// Null for the general format.
std::shared_ptr<const DOM::CellFormat> makeFormat(const std::string& code, OperationReport& report)
{
    auto expression = Parser::parse(code, Parser::ParserType::Spreadsheet);
    if (!expression) {
        report.emplace_back("Can't parse number format {}", code);
        return std::make_shared<DOM::CellFormat>(code, boost::none);
    }
    if (isGeneral(*expression))
        return nullptr;
    if (auto localized = FilterUtils::convertCellFormatExpressionToLocalizedDateTime(*expression))
        return std::make_shared<DOM::CellFormat>(code, std::move(*localized));
    return std::make_shared<DOM::CellFormat>(code, std::move(expression));
}

boost::optional<unsigned long> readId(const XMLElement& element)
{
    const auto text = element.getAttributeValue("numFmtId");
    if (!text)
        return boost::none;
    std::size_t position = 0;
    const auto id = strToUlong(*text, &position, 10);
    return id && position == text->size() ? id : boost::none;
}

} // namespace

NumberFormats::NumberFormats(const XMLElement& styleSheet, const Names& names, OperationReport& report)
{
    for (const KnownFormat& known : KnownFormats)
        _formats.emplace(known.id,
            std::make_shared<DOM::CellFormat>(known.code,
                Parser::parse(known.shown ? known.shown : known.code, Parser::ParserType::Spreadsheet)));
    for (const LikeFormat& like : LikeFormats)
        _formats.emplace(like.id, _formats.at(like.likeId));
    const auto named = [&](const char* name) { return names(Vocabulary::Spreadsheet, name); };
    styleSheet.getElement(named("numFmts")).processElements(named("numFmt"), [&](const XMLElement& element) {
        const auto id = readId(element);
        if (id && *id != GeneralId)
            _formats[*id] = makeNumberFormat(element, report);
    });
}

std::shared_ptr<const DOM::CellFormat> NumberFormats::find(
    const XMLElement& xf, OperationReport& report) const
{
    const std::string text = xf.getAttributeValue("numFmtId").value_or("0");
    const auto id = text == "0" ? GeneralId : readId(xf);
    if (id == GeneralId)
        return nullptr;
    const auto found = id ? _formats.find(*id) : _formats.end();
    if (found != _formats.end())
        return found->second;
    if (!id || *id >= OwnIdsBegin)
        report.emplace_back("Cell format has an unknown numFmtId {}", text);
    return nullptr;
}

std::shared_ptr<const DOM::CellFormat> makeNumberFormat(
    const XMLElement& numberFormat, OperationReport& report)
{
    const auto code = numberFormat.getAttributeValue("formatCode");
    return code && !code->empty() ? makeFormat(*code, report) : nullptr;
}

const std::shared_ptr<const DOM::CellFormat>& getGeneralFormat()
{
    static const auto format = std::make_shared<const DOM::CellFormat>(
        GeneralCode, Parser::parse(GeneralCode, Parser::ParserType::Spreadsheet));
    return format;
}

} // namespace QV::Filters
