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
};

const KnownFormat KnownFormats[] = {
    {1,  "0"                                                            },
    {2,  "0.00"                                                         },
    {3,  "#,##0"                                                        },
    {4,  "#,##0.00"                                                     },
    {5,  R"("$"#,##0_);\("$"#,##0\))"                                   },
    {6,  R"("$"#,##0_);[Red]\("$"#,##0\))"                              },
    {7,  R"("$"#,##0.00_);\("$"#,##0.00\))"                             },
    {8,  R"("$"#,##0.00_);[Red]\("$"#,##0.00\))"                        },
    {9,  "0%"                                                           },
    {10, "0.00%"                                                        },
    {11, "0.00E+00"                                                     },
    {12, "# ?/?"                                                        },
    {13, "# ?\?/?\?"                                                    },
    {14, "mm-dd-yy"                                                     },
    {15, "d-mmm-yy"                                                     },
    {16, "d-mmm"                                                        },
    {17, "mmm-yy"                                                       },
    {18, "h:mm AM/PM"                                                   },
    {19, "h:mm:ss AM/PM"                                                },
    {20, "h:mm"                                                         },
    {21, "h:mm:ss"                                                      },
    {22, "m/d/yy h:mm"                                                  },
    {37, "#,##0_);(#,##0)"                                              },
    {38, "#,##0_);[Red](#,##0)"                                         },
    {39, "#,##0.00_);(#,##0.00)"                                        },
    {40, "#,##0.00_);[Red](#,##0.00)"                                   },
    {41, R"(_(* #,##0_);_(* \(#,##0\);_(* "-"_);_(@_))"                 },
    {42, R"(_("$"* #,##0_);_("$"* \(#,##0\);_("$"* "-"_);_(@_))"        },
    {43, R"(_(* #,##0.00_);_(* \(#,##0.00\);_(* "-"??_);_(@_))"         },
    {44, R"(_("$"* #,##0.00_);_("$"* \(#,##0.00\);_("$"* "-"??_);_(@_))"},
    {45, "mm:ss"                                                        },
    {46, "[h]:mm:ss"                                                    },
    {47, "mmss.0"                                                       },
    {48, "##0.0E+0"                                                     },
    {49, "@"                                                            },
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

/// What dates of the reader's own form look like in US English, whose code is another.
const char* getShownCode(const KnownFormat& format)
{
    switch (format.id) {
    case 14:
        return "m/d/yyyy";
    case 22:
        return "m/d/yyyy h:mm";
    default:
        return format.code;
    }
}

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
        _formats.emplace(known.id, std::make_shared<DOM::CellFormat>(known.code,
                                       Parser::parse(getShownCode(known), Parser::ParserType::Spreadsheet)));
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
