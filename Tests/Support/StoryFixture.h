#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include <DOM/Public/Block.h>
#include <DOM/Public/Hyperlink.h>
#include <DOM/Public/Paragraph.h>
#include <DOM/Public/Run.h>
#include <DOM/Public/RunStyle.h>
#include <DOM/Public/TableOfContents.h>
#include <DOM/Public/TrackedChange.h>
#include <Filters/Package/FilterRun.h>
#include <Filters/Package/Package.h>
#include <Filters/Package/Relationships.h>
#include <Filters/Text/StoryReader.h>
#include <Filters/Text/TextContext.h>
#include <Filters/Text/TextFormats.h>
#include <Tests/Support/TextPackageBuilder.h>
#include <Tests/Support/XercesEnvironment.h>
#include <Utils/Public/OperationReport.h>

namespace QV::Tests {

/// Writes runs as text: "text", "<tab>", "<br>", "<column>", "<page>", "<frame>", "<note>", "<+bookmark>",
/// "<-bookmark>", "{instruction:result}"; behind them "@url#anchor" of a link, "~kind author" of a change and
/// "=instruction" of a field whose result they are.
class RunsText final : public DOM::RunVisitor
{
public:
    void visit(const DOM::TextRun& run) override { add(run.getText(), run); }
    void visit(const DOM::TabRun& run) override { add("<tab>", run); }
    void visit(const DOM::BreakRun& run) override
    {
        const char* const names[] = {"<br>", "<column>", "<page>"};
        add(names[static_cast<unsigned>(run.getKind())], run);
    }
    void visit(const DOM::DrawingRun& run) override { add("<frame>", run); }
    void visit(const DOM::BookmarkRun& run) override
    {
        add((run.getKind() == DOM::BookmarkRun::Kind::Start ? "<+" : "<-") + run.getName() + ">", run);
    }
    void visit(const DOM::FieldRun& run) override
    {
        add("{" + run.getInstruction() + ":" + run.getResult() + "}", run);
    }
    void visit(const DOM::AnchorRun& run) override { add("<note>", run); }

    std::vector<std::string> texts;

private:
    void add(std::string text, const DOM::Run& run)
    {
        const DOM::RunStyle& style = run.getStyle();
        if (const auto& link = style.getHyperlink())
            text += "@" + link->getURL() + "#" + link->getAnchor();
        if (const auto& change = style.getChange()) {
            const char* const kinds[] = {"~inserted ", "~deleted ", "~movedFrom ", "~movedTo "};
            text += kinds[static_cast<unsigned>(change->getKind())] + change->getAuthor();
        }
        if (const auto& instruction = style.getFieldInstruction())
            text += "=" + *instruction;
        texts.push_back(std::move(text));
    }
};

inline std::vector<std::string> listRuns(const DOM::Paragraph& paragraph)
{
    RunsText runs;
    for (const DOM::Run& run : paragraph.getRuns())
        run.accept(runs);
    return runs.texts;
}

/// The blocks of a part that a test writes, as the story reader hands them over.
class StoryFixture : public testing::Test
{
protected:
    void read(const std::string& body)
    {
        builder.body = body;
        readPackage();
    }

    void readPackage()
    {
        run = std::make_unique<Filters::FilterRun>();
        package = std::make_unique<Filters::Package>(Filters::Package::openBytes(builder.make()));
        context = std::make_unique<Filters::TextContext>(*package, *run);
        formats = std::make_unique<Filters::TextFormats>(*context);
        relationships = Filters::Relationships::read(*package, builder.mainPart, run->getReport());
        blocks.clear();
        sections.clear();
        Filters::StorySink sink;
        sink.takeBlock = [&](std::unique_ptr<DOM::Block> block) { blocks.push_back(std::move(block)); };
        sink.takeSection = [&](const std::string& text) { sections.emplace_back(blocks.size(), text); };
        isWellFormed = Filters::readStory(*context, *formats, builder.mainPart, relationships, sink);
    }

    template <typename T>
    const T& getBlock(std::size_t number) const
    {
        return dynamic_cast<const T&>(*blocks.at(number));
    }

    std::vector<std::string> listRunsOf(std::size_t block) const
    {
        return listRuns(getBlock<DOM::Paragraph>(block));
    }

    /// The plain texts of paragraphs; of a table of contents "contents(" with those inside, and "#" for other
    /// blocks.
    static std::vector<std::string> listTexts(const std::vector<std::unique_ptr<DOM::Block>>& all)
    {
        std::vector<std::string> texts;
        for (const auto& block : all) {
            if (const auto* const paragraph = dynamic_cast<const DOM::Paragraph*>(block.get())) {
                texts.push_back(paragraph->getPlainText());
            } else if (const auto* const contents = dynamic_cast<const DOM::TableOfContents*>(block.get())) {
                std::string text = "contents(";
                for (const std::string& inside : listTexts(contents->getBlocks()))
                    text += inside + ",";
                texts.push_back(text + ")");
            } else {
                texts.emplace_back("#");
            }
        }
        return texts;
    }
    std::vector<std::string> listTexts() const { return listTexts(blocks); }

    std::vector<std::string> listMessages() const
    {
        std::vector<std::string> texts;
        for (const OperationReport::Message& message : run->getReport().getMessages())
            if (message.getText() != Filters::FilterRun::LeftOutMessage)
                texts.push_back(message.toString());
        return texts;
    }

    TextPackageBuilder builder;
    bool isWellFormed = false;
    std::unique_ptr<Filters::FilterRun> run;
    std::unique_ptr<Filters::Package> package;
    std::unique_ptr<Filters::TextContext> context;
    std::unique_ptr<Filters::TextFormats> formats;
    Filters::Relationships relationships;
    std::vector<std::unique_ptr<DOM::Block>> blocks;
    std::vector<std::pair<std::size_t, std::string>> sections; // with the count of the blocks before
};

} // namespace QV::Tests
