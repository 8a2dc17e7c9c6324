#include <Filters/Preview/GuideFormulas.h>

#include <cmath>
#include <limits>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

namespace QV::Filters {
namespace {

struct FormulaRow
{
    const char* formula;
    double value;
};

void PrintTo(const FormulaRow& row, std::ostream* stream)
{
    *stream << row.formula;
}

class GuideFormula : public testing::TestWithParam<FormulaRow>
{
};

TEST_P(GuideFormula, HasValue)
{
    GuideFormulas guides(2000, 1000);
    guides.addAdjustValue("adj", "val 25");
    guides.addGuide("half", "*/ w 1 2");
    guides.addGuide("result", GetParam().formula);
    EXPECT_NEAR(guides.evaluate("?result"), GetParam().value, 1e-6);
}

const FormulaRow FormulaRows[] = {
    {"*/ 6 7 4",         10.5    },
    {"*/ 6 7 0",         0       },
    {"*/ 0 0 0",         0       },
    {"+- 6 7 4",         9       },
    {"+/ 6 7 4",         3.25    },
    {"+/ 6 7 0",         0       },
    {"?: 1 6 7",         6       },
    {"?: 0.5 6 7",       6       },
    {"?: 0 6 7",         7       },
    {"?: -1 6 7",        7       },
    {"abs -6",           6       },
    {"abs 6",            6       },
    {"at2 1 1",          2700000 },
    {"at2 0 1",          5400000 },
    {"at2 -1 0",         10800000},
    {"at2 1 -1",         -2700000},
    {"at2 0 0",          0       },
    {"cat2 10 3 4",      6       },
    {"cat2 10 0 0",      10      },
    {"cos 10 0",         10      },
    {"cos 10 3600000",   5       },
    {"cos 10 10800000",  -10     },
    {"max 6 7",          7       },
    {"max -6 -7",        -6      },
    {"min 6 7",          6       },
    {"min -6 -7",        -7      },
    {"mod 2 3 6",        7       },
    {"mod 0 0 0",        0       },
    {"pin 2 1 4",        2       },
    {"pin 2 2 4",        2       },
    {"pin 2 3 4",        3       },
    {"pin 2 4 4",        4       },
    {"pin 2 5 4",        4       },
    {"pin 2 1 0",        2       }, // the lower bound is looked at first
    {"sat2 10 3 4",      8       },
    {"sat2 10 0 0",      0       },
    {"sin 10 0",         0       },
    {"sin 10 1800000",   5       },
    {"sin 10 16200000",  -10     },
    {"sqrt 49",          7       },
    {"sqrt -49",         0       },
    {"tan 10 2700000",   10      },
    {"tan 10 0",         0       },
    {"val 6",            6       },
    {"val -1.5e3",       -1500   },
    {"val $adj",         25      },
    {"val ?half",        1000    },
    {"+- w $adj ?half",  1025    },
    {"val $half",        0       },
    {"val ?adj",         0       },
    {"val adj",          0       },
    {"val $none",        0       },
    {"val 1e999",        0       },
    {"*/ 1e300 1e300 1", 0       },
    {"val 0x10",         0       },
    {"val",              0       },
    {"+- 6",             6       },
    {" +-  6\t7   4 8",  9       },
    {"+-6 7 4",          0       },
    {"pow 6 7",          0       },
    {"VAL 6",            0       },
    {"6",                0       },
    {"",                 0       },
};
INSTANTIATE_TEST_SUITE_P(All, GuideFormula, testing::ValuesIn(FormulaRows));

TEST(GuideNames, AreThoseOfEveryShape)
{
    const GuideFormulas guides(9600, 4800);
    const FormulaRow rows[] = {
        {"w",     9600    },
        {"h",     4800    },
        {"l",     0       },
        {"t",     0       },
        {"r",     9600    },
        {"b",     4800    },
        {"hc",    4800    },
        {"vc",    2400    },
        {"ss",    4800    },
        {"ls",    9600    },
        {"wd2",   4800    },
        {"wd3",   3200    },
        {"wd4",   2400    },
        {"wd5",   1920    },
        {"wd6",   1600    },
        {"wd8",   1200    },
        {"wd10",  960     },
        {"wd12",  800     },
        {"wd32",  300     },
        {"hd2",   2400    },
        {"hd3",   1600    },
        {"hd4",   1200    },
        {"hd5",   960     },
        {"hd6",   800     },
        {"hd8",   600     },
        {"hd10",  480     },
        {"hd12",  400     },
        {"ssd2",  2400    },
        {"ssd4",  1200    },
        {"ssd6",  800     },
        {"ssd8",  600     },
        {"ssd16", 300     },
        {"ssd32", 150     },
        {"cd2",   10800000},
        {"cd4",   5400000 },
        {"cd8",   2700000 },
        {"3cd4",  16200000},
        {"3cd8",  8100000 },
        {"5cd8",  13500000},
        {"7cd8",  18900000},
        {"wd7",   0       },
        {"W",     0       },
        {"",      0       },
        {"$",     0       },
        {"?",     0       }
    };
    for (const FormulaRow& row : rows)
        EXPECT_DOUBLE_EQ(guides.evaluate(row.formula), row.value) << row.formula;
}

TEST(GuideNames, LastOneStands)
{
    GuideFormulas guides(100, 100);
    guides.addAdjustValue("a", "val 1");
    guides.addAdjustValue("a", "val 2");
    guides.addGuide("g", "val $a");
    guides.addGuide("g", "+- ?g ?g 1"); // refers to the one before
    EXPECT_EQ(guides.evaluate("$a"), 2);
    EXPECT_EQ(guides.evaluate("?g"), 3);
}

TEST(GuideNames, AreFiniteAtAnySize)
{
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double size : {0.0, infinity, -infinity, std::nan("")}) {
        GuideFormulas guides(size, size);
        guides.addGuide("g", "*/ w h ss");
        for (const char* const name : {"w", "hd2", "ss", "ls", "?g"})
            EXPECT_EQ(guides.evaluate(name), 0) << name << " at " << size;
    }
}

} // namespace
} // namespace QV::Filters
