#include <Utils/Public/OperationReport.h>

#include <utility>

#include <fmt/args.h>
#include <fmt/format.h>

#include <Utils/Public/Log.h>

namespace QV {

OperationReport::Message::Message(std::string text, const std::string& argument)
    : _text(std::move(text))
    , _arguments{argument}
{
    log();
}

OperationReport::Message::Message(std::string text, const std::string& first, const std::string& second)
    : _text(std::move(text))
    , _arguments{first, second}
{
    log();
}

std::string OperationReport::Message::toString() const
{
    fmt::dynamic_format_arg_store<fmt::format_context> store;
    for (const Argument& argument : _arguments)
        boost::apply_visitor([&store](const auto& value) { store.push_back(value); }, argument);
    try {
        return fmt::vformat(_text, store);
    } catch (const fmt::format_error&) {
        return _text;
    }
}

void OperationReport::Message::log() const
{
    if (isLogSinkSet())
        writeLog(toString());
}

} // namespace QV
