#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include <Filters/ModelJson/SpreadsheetJson.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Package.h>
#include <Filters/Spreadsheet/SpreadsheetImport.h>
#include <Tests/Support/XercesEnvironment.h>

namespace QV::Filters {
namespace {

std::string importSample(const char* path)
{
    ImportOptions options;
    options.areIdsSequential = true;
    FilterRun run(options);
    Package package = Package::openFile(path);
    importSpreadsheet(package, run);
    std::ostringstream out;
    writeSpreadsheetJson(run, out);
    return out.str();
}

TEST(Concurrency, RunsOnSeveralThreadsShareNothing)
{
    const char* const Samples[] = {"Samples/orders.xlsx", "Samples/bad-values.xlsx", "Samples/strict.xlsx"};
    std::vector<std::string> expected;
    for (const char* const sample : Samples)
        expected.push_back(importSample(sample));

    constexpr std::size_t ThreadsCount = 4;
    constexpr int Rounds = 5;
    std::vector<std::string> failures(ThreadsCount);
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < ThreadsCount; ++i)
        threads.emplace_back([&, i] {
            for (int round = 0; round < Rounds; ++round)
                for (std::size_t sample = 0; sample < std::size(Samples); ++sample)
                    if (importSample(Samples[sample]) != expected[sample])
                        failures[i] = Samples[sample];
        });
    for (std::thread& thread : threads)
        thread.join();
    for (const std::string& failure : failures)
        EXPECT_EQ(failure, "");
}

} // namespace
} // namespace QV::Filters
