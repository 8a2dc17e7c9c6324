#include <csignal>
#include <exception>
#include <iostream>
#include <new>

#include <CLI/CLI.hpp>
#include <boost/filesystem/operations.hpp>
#include <fmt/format.h>
#include <xercesc/util/PlatformUtils.hpp>

#include <ConvertCommand.h>
#include <Filters/Package/PackageError.h>
#include <ImportCommand.h>
#include <LinksCommand.h>
#include <OutputFile.h>
#include <PreviewCommand.h>
#include <UsageError.h>
#include <Utils/Public/Assertions.h>

namespace {

namespace fs = boost::filesystem;

enum ExitStatus
{
    Done = 0,
    UnreadableInput = 1,
    WrongUsage = 2,
    UnwritableOutput = 4,
};

constexpr const char* ExitStatuses =
    "Exit status: 0 done; 1 the input cannot be read; 2 wrong usage; 4 an output cannot be written.";

int fail(const std::string& what, ExitStatus status)
{
    std::cerr << "qvfilter: " << what << '\n';
    return status;
}

/// Whether writing one of two files would replace the other; devices can be written to twice.
bool isSameFile(const std::string& left, const std::string& right)
{
    if (left.empty() || right.empty() || left == "-" || right == "-")
        return false;
    boost::system::error_code error;
    if (fs::exists(left, error) && fs::exists(right, error))
        return fs::is_regular_file(left, error) && fs::equivalent(left, right, error);
    const auto normalize = [](const std::string& name) { return fs::absolute(name).lexically_normal(); };
    return normalize(left) == normalize(right);
}

void addImport(CLI::App& app, QV::Tool::ImportArguments& arguments)
{
    CLI::App* const command = app.add_subcommand("import",
        "Read a workbook, text document or presentation; without --model or --report, print a summary");
    command->add_option("FILE", arguments.file, "The document; - is standard input")->required();
    command->add_option("--model", arguments.model, "Write the model as JSON; - is standard output");
    command->add_option("--report", arguments.report, "Write the messages as JSON; - is standard output");
    command->add_option("--media", arguments.media, "Keep pictures in this folder");
    command
        ->add_option_function<std::string>(
            "--ids", [&](const std::string& kind) { arguments.areIdsSequential = kind == "sequential"; },
            "How generated ids look: uuid (the default), or sequential: id1, id2, ...")
        ->check(CLI::IsMember({"uuid", "sequential"}));
    command->add_flag(
        "--follow-links", arguments.followsLinks, "Read linked pictures that lie beside the document too");
    command->callback([&] {
        if (arguments.model == "-" && arguments.report == "-")
            throw CLI::ValidationError("--model and --report cannot both be standard output");
        if (isSameFile(arguments.model, arguments.report))
            throw CLI::ValidationError("--model and --report name the same file");
        if (isSameFile(arguments.file, arguments.model) || isSameFile(arguments.file, arguments.report))
            throw CLI::ValidationError("an output cannot replace the document that it is made from");
    });
    command->footer(ExitStatuses);
}

void addConvert(CLI::App& app, QV::Tool::ConvertArguments& arguments)
{
    CLI::App* const command = app.add_subcommand("convert",
        "Write a document in another format: .txt and .md (not of workbooks), .html, .json (the model)");
    command->add_option("IN", arguments.file, "The document; - is standard input")->required();
    command->add_option("OUT", arguments.output, "The output; its extension tells the format")->required();
    command->add_option("--media", arguments.media, "Keep pictures in this folder");
    command->add_option("--report", arguments.report, "Write the messages as JSON; - is standard output");
    command->add_flag(
        "--follow-links", arguments.followsLinks, "Read linked pictures that lie beside the document too");
    command->callback([&] {
        if (!QV::Tool::isConvertible(arguments.output))
            throw CLI::ValidationError("OUT must end with .txt, .md, .html or .json");
        if (isSameFile(arguments.output, arguments.report))
            throw CLI::ValidationError("OUT and --report name the same file");
        if (isSameFile(arguments.file, arguments.output) || isSameFile(arguments.file, arguments.report))
            throw CLI::ValidationError("an output cannot replace the document that it is made from");
    });
    command->footer(ExitStatuses);
}

void addPreview(CLI::App& app, QV::Tool::PreviewArguments& arguments)
{
    CLI::App* const command =
        app.add_subcommand("preview", "Write a workbook, text document or presentation as one page of HTML");
    command->add_option("FILE", arguments.file, "The document; - is standard input")->required();
    command->add_option("-o,--output", arguments.output, "The page; - is standard output")->required();
    command->add_flag(
        "--follow-links", arguments.followsLinks, "Show linked pictures that lie beside the document too");
    command->callback([&] {
        if (isSameFile(arguments.file, arguments.output))
            throw CLI::ValidationError("an output cannot replace the document that it is made from");
    });
    command->footer(ExitStatuses);
}

void addLinks(CLI::App& app, QV::Tool::LinksArguments& arguments)
{
    CLI::App* const command =
        app.add_subcommand("links", "List what a document refers to, and the local files that this is");
    command
        ->add_option("FILE", arguments.file, "A workbook, text document or presentation; - is standard input")
        ->required();
    command->add_flag("--json", arguments.isJson, "Write JSON instead of lines for a person");
    command->footer(ExitStatuses);
}

int run(int count, char** texts)
{
    CLI::App app("Turns documents into the model and back.", "qvfilter");
    app.set_version_flag("--version", "qvfilter " QV_VERSION);
    app.require_subcommand(1);
    QV::Tool::ImportArguments import;
    QV::Tool::ConvertArguments convert;
    QV::Tool::LinksArguments links;
    QV::Tool::PreviewArguments preview;
    addImport(app, import);
    addConvert(app, convert);
    addPreview(app, preview);
    addLinks(app, links);
    try {
        app.parse(count, texts);
    } catch (const CLI::ParseError& error) {
        return app.exit(error, std::cout, std::cerr) == 0 ? Done : WrongUsage;
    }
    try {
        if (app.got_subcommand("convert"))
            QV::Tool::runConvert(convert);
        else if (app.got_subcommand("preview"))
            QV::Tool::runPreview(preview);
        else if (app.got_subcommand("links"))
            QV::Tool::runLinks(links);
        else
            QV::Tool::runImport(import);
    } catch (const QV::Filters::PackageError& error) {
        std::string file = import.file + convert.file + preview.file + links.file; // all but one are empty
        if (file == "-")
            file = "standard input";
        return fail(QV::Filters::makePrintable(file) + ": " + error.what(), UnreadableInput);
    } catch (const QV::Tool::UsageError& error) {
        return fail(error.what(), WrongUsage);
    }
    return Done;
}

} // namespace

int main(int count, char** texts)
{
    (void)std::signal(SIGPIPE, SIG_IGN); // a reader that goes away is an output that cannot be written
    std::ios::sync_with_stdio(false);
    xercesc::XMLPlatformUtils::Initialize();
    QV::setFailAssertHandler(
        [](const char* file, int line, const char* expression, boost::string_ref message) {
            std::cerr << fmt::format("{}:{}: {} {}\n", file, line, expression, message.to_string());
        });
    try {
        return run(count, texts);
    } catch (const QV::Tool::OutputError& error) {
        return fail(error.what(), UnwritableOutput);
    } catch (const std::bad_alloc&) {
        return fail("there is not enough memory for this document", UnreadableInput);
    } catch (const std::exception& error) {
        return fail(error.what(), UnreadableInput);
    }
}
