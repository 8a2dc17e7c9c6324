#include <Versioning/Public/CoreVersion.h>

#include <ostream>
#include <string>

#include <gtest/gtest.h>

namespace QV::Versioning {
namespace {

const CoreVersion Release({2, 1, 5, 0}, "", "", "");
const CoreVersion Rebuilt({2, 1, 5, 7}, "", "", "");
const CoreVersion Beta({2, 1, 5, 7}, "beta", "683da49", "dirty");
const CoreVersion Revised({2, 1, 5, 0}, "", "683da49", "");
const CoreVersion Changed({0, 0, 0, 0}, "", "", "dirty");

struct VersionRow
{
    const char* name;
    const CoreVersion& version;
    unsigned mask;
    bool isPermanent;
    const char* text;
};

void PrintTo(const VersionRow& row, std::ostream* out)
{
    *out << row.name << " with mask " << row.mask;
}

const VersionRow VersionRows[] = {
    {"ReleaseWhole",            Release, 127,   true,  "2.1.5"                     },
    {"ReleaseMajor",            Release, 1,     true,  "2"                         },
    {"ReleaseNothing",          Release, 0,     true,  ""                          },
    {"BuildOfZeroIsLeftOut",    Release, 8,     true,  ""                          },
    {"RebuiltWhole",            Rebuilt, 127,   true,  "2.1.5.7"                   },
    {"MinorAlone",              Rebuilt, 2,     true,  "1"                         },
    {"PatchAlone",              Rebuilt, 4,     true,  "5"                         },
    {"BuildAlone",              Rebuilt, 8,     true,  "7"                         },
    {"Gap",                     Rebuilt, 1 | 4, true,  "2.5"                       },
    {"BetaWhole",               Beta,    127,   false, "2.1.5.7-beta+683da49+dirty"},
    {"BetaNumbers",             Beta,    15,    true,  "2.1.5.7"                   },
    {"BetaStage",               Beta,    16,    false, "-beta"                     },
    {"BetaRevision",            Beta,    32,    false, "+683da49"                  },
    {"BetaChanges",             Beta,    64,    false, "+dirty"                    },
    {"RevisedWhole",            Revised, 127,   false, "2.1.5+683da49"             },
    {"RevisedStageIsNone",      Revised, 16,    true,  ""                          },
    {"ZerosAreNumbers",         Changed, 127,   false, "0.0.0+dirty"               },
    {"BitsBeyondMeanNothing",   Beta,    128,   true,  ""                          },
    {"BitsBeyondChangeNothing", Release, ~0U,   true,  "2.1.5"                     },
};

class CoreVersions : public testing::TestWithParam<VersionRow>
{
};

TEST_P(CoreVersions, KeepsRow)
{
    const VersionRow& row = GetParam();
    EXPECT_EQ(row.version.isPermanent(row.mask), row.isPermanent);
    EXPECT_EQ(row.version.toString(row.mask), row.text);
}

INSTANTIATE_TEST_SUITE_P(Rows, CoreVersions, testing::ValuesIn(VersionRows),
    [](const auto& row) { return std::string(row.param.name); });

TEST(CurrentVersion, IsOneAndHasItsNumbers)
{
    EXPECT_EQ(&CoreVersion::getCurrent(), &CoreVersion::getCurrent());
    EXPECT_NE(CoreVersion::getCurrent().toString(CoreVersion::Major), "");
}

} // namespace
} // namespace QV::Versioning
