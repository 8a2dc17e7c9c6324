#include <FilterUtils/FU_GeometryParserUtils.h>

#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include <Tests/Support/RecordedAssertions.h>

namespace QV::FilterUtils {
namespace {

using Tests::RecordedAssertions;

constexpr const char* File = "FilterUtils/FU_GeometryParserUtils.cpp";

// One of the three markers, and what goes with it.
struct Marker
{
    std::string text;
    bool (*looksLike)(boost::string_ref);
    std::string (*make)(boost::string_ref);
    std::string (*makePlain)(boost::string_ref);
    const char* expression;
    int line;
};

const Marker Modifier = {"$", looksLikeModifierReference, makeModifierReference, makeModifierPlainName,
    "looksLikeModifierReference(name)", 36};
const Marker Formula = {"?", looksLikeFormulaReference, makeFormulaReference, makeFormulaPlainName,
    "looksLikeFormulaReference(name)", 53};
const Marker Preset = {"ooxml-", looksLikeOOXMLPresetType, makeOOXMLPresetType, makePlainPresetType,
    "looksLikeOOXMLPresetType(type)", 70};
const Marker* const Markers[] = {&Modifier, &Formula, &Preset};

struct MarkerRow
{
    const char* name;
    std::string text;
    const Marker* marker; // null for a plain text
    std::string plain;
};

void PrintTo(const MarkerRow& row, std::ostream* out)
{
    *out << row.name;
}

const MarkerRow MarkerRows[] = {
    {"Nothing",              "",              nullptr,   ""        },
    {"Word",                 "adj",           nullptr,   ""        },
    {"BareModifier",         "$",             &Modifier, ""        },
    {"Modifier",             "$adj",          &Modifier, "adj"     },
    {"ModifierTwice",        "$$adj",         &Modifier, "$adj"    },
    {"ModifierOfFormula",    "$?f",           &Modifier, "?f"      },
    {"ModifierLater",        "a$",            nullptr,   ""        },
    {"ModifierAfterBlank",   " $adj",         nullptr,   ""        },
    {"BareFormula",          "?",             &Formula,  ""        },
    {"Formula",              "?f1",           &Formula,  "f1"      },
    {"FormulaTwice",         "??f1",          &Formula,  "?f1"     },
    {"FormulaOfModifier",    "?$adj",         &Formula,  "$adj"    },
    {"FormulaLater",         "f?",            nullptr,   ""        },
    {"BarePreset",           "ooxml-",        &Preset,   ""        },
    {"Preset",               "ooxml-ellipse", &Preset,   "ellipse" },
    {"PresetTwice",          "ooxml-ooxml-",  &Preset,   "ooxml-"  },
    {"PresetOfModifier",     "ooxml-$adj",    &Preset,   "$adj"    },
    {"PresetWithoutHyphen",  "ooxml",         nullptr,   ""        },
    {"PresetLater",          "xooxml-rect",   nullptr,   ""        },
    {"PresetInCapitals",     "OOXML-rect",    nullptr,   ""        },
    {"PresetWithOneCapital", "ooxmL-rect",    nullptr,   ""        },
    {"PlainType",            "rect",          nullptr,   ""        },
    {"NulAfterMarker",       {"$\0a", 3},     &Modifier, {"\0a", 2}},
    {"NulBeforeMarker",      {"\0?", 2},      nullptr,   ""        },
    {"BeyondASCII",          "?\xC3\xA9",     &Formula,  "\xC3\xA9"},
    {"NoUTF8",               "ooxml-\xFF",    &Preset,   "\xFF"    },
};

class GeometryMarkers : public testing::TestWithParam<MarkerRow>
{
};

TEST_P(GeometryMarkers, AreToldApart)
{
    for (const Marker* marker : Markers)
        EXPECT_EQ(marker->looksLike(GetParam().text), marker == GetParam().marker) << marker->text;
}

TEST_P(GeometryMarkers, GoInFrontOfAnything)
{
    for (const Marker* marker : Markers)
        EXPECT_EQ(marker->make(GetParam().text), marker->text + GetParam().text);
}

TEST_P(GeometryMarkers, ComeOffAgain)
{
    for (const Marker* marker : Markers)
        EXPECT_EQ(marker->makePlain(marker->make(GetParam().text)), GetParam().text);
}

TEST_P(GeometryMarkers, ComeOffTheirOwnNamesAlone)
{
    for (const Marker* marker : Markers) {
        const RecordedAssertions recorded;
        const std::string plain = marker->makePlain(GetParam().text);
        if (marker == GetParam().marker) {
            EXPECT_EQ(plain, GetParam().plain);
            EXPECT_TRUE(recorded.getFailures().empty());
            continue;
        }
        ASSERT_EQ(recorded.getFailures().size(), 1U);
        const RecordedAssertions::Failure& failure = recorded.getFailures()[0];
        EXPECT_EQ(failure.file, File);
        EXPECT_EQ(failure.line, marker->line);
        EXPECT_EQ(failure.expression, marker->expression);
        EXPECT_EQ(failure.message, "");
        const std::string& text = GetParam().text;
        EXPECT_EQ(plain, text.size() < marker->text.size() ? "" : text.substr(marker->text.size()));
    }
}

INSTANTIATE_TEST_SUITE_P(Rows, GeometryMarkers, testing::ValuesIn(MarkerRows),
    [](const auto& row) { return std::string(row.param.name); });

// What looks at a part of a text must not see what follows it.
TEST(GeometryMarkers, EndWithTheView)
{
    const std::string text = "ooxml-rect";
    EXPECT_FALSE(looksLikeOOXMLPresetType(boost::string_ref(text).substr(0, 5)));
    EXPECT_TRUE(looksLikeOOXMLPresetType(boost::string_ref(text).substr(0, 6)));
    EXPECT_EQ(makePlainPresetType(boost::string_ref(text).substr(0, 8)), "re");
    EXPECT_FALSE(looksLikeModifierReference(boost::string_ref("$", 0)));
}

} // namespace
} // namespace QV::FilterUtils
