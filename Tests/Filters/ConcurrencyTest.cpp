#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <boost/unordered_map.hpp>
#include <gtest/gtest.h>

#include <DOM/Public/Document.h>
#include <DOM/Public/NamedShapeStyle.h>
#include <DOM/Public/Shape.h>
#include <DOM/Public/ShapeProps.h>
#include <DOM/Public/ShapeStyle.h>
#include <FilterUtils/FU_Slides.h>
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

// Moves slides into a document of the thread's own, all of them with @p style at first, and returns what they
// have then.
std::vector<DOM::SharedShapeStyle> moveSlides(const DOM::SharedShapeStyle& style)
{
    DOM::Document document;
    boost::unordered_map<std::string, UUID> names;
    std::vector<std::unique_ptr<DOM::Block>> blocks;
    DOM::NamedShapeStyle master;
    master.setUUID(UUID(1, 0));
    FilterUtils::moveSlideMasterToDocumentStyles(document, names, std::move(master), "master");
    std::vector<DOM::SharedShapeStyle> styles;
    for (std::uint64_t i = 0; i < 100; ++i) {
        DOM::NamedShapeStyle layout;
        layout.setUUID(UUID(2, i));
        const std::string name = std::to_string(i);
        FilterUtils::moveSlideLayoutToDocumentStyles(document, names, std::move(layout), name, "master");
        for (const DOM::SharedShapeStyle& first : {style, DOM::SharedShapeStyle()}) {
            auto slide = std::make_unique<DOM::Shape>();
            slide->setSharedStyle(first);
            const DOM::Shape& moved = *slide;
            FilterUtils::moveSlideToDocument(document, names, blocks, std::move(slide), name);
            styles.push_back(moved.getSharedStyle());
        }
    }
    return styles;
}

std::size_t countSlidesWithoutTheirLayout(const std::vector<DOM::SharedShapeStyle>& styles)
{
    std::size_t count = 0;
    for (std::size_t i = 0; i < styles.size(); ++i)
        count += styles[i]->getParentUUID() == UUID(2, i / 2) ? 0U : 1U;
    return count;
}

void runOnThreads(const std::function<void(std::size_t thread)>& function)
{
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < 4; ++i)
        threads.emplace_back(function, i);
    for (std::thread& thread : threads)
        thread.join();
}

TEST(Concurrency, SlidesOfSeparateDocumentsMayBeginWithOneStyle)
{
    const auto props = std::make_shared<const DOM::ShapeProps>();
    const boost::intrusive_ptr<DOM::ShapeStyle> style(new DOM::ShapeStyle);
    style->setShapeProps(props);
    std::vector<std::size_t> failures(4);
    runOnThreads([&](std::size_t thread) {
        const auto styles = moveSlides(style);
        failures[thread] = countSlidesWithoutTheirLayout(styles);
        for (std::size_t i = 0; i < styles.size(); ++i)
            failures[thread] += styles[i]->getShapeProps() == (i % 2 == 0 ? props : nullptr) ? 0U : 1U;
    });
    EXPECT_EQ(failures, std::vector<std::size_t>(4));
    EXPECT_EQ(style->use_count(), 1U);
    EXPECT_EQ(props.use_count(), 2);
    EXPECT_EQ(style->getParentUUID(), UUID());
}

TEST(Concurrency, SharedStylesOfSlidesAreCountedAcrossThreads)
{
    const auto styles = moveSlides(nullptr);
    std::vector<std::size_t> failures(4);
    runOnThreads([&](std::size_t thread) {
        for (int round = 0; round < 100; ++round) {
            const std::vector<DOM::SharedShapeStyle> copies = styles;
            failures[thread] += countSlidesWithoutTheirLayout(copies);
        }
    });
    EXPECT_EQ(failures, std::vector<std::size_t>(4));
    for (const DOM::SharedShapeStyle& style : styles)
        EXPECT_EQ(style->use_count(), 2U) << "equal slides share theirs, and nothing else is left";
}

} // namespace
} // namespace QV::Filters
