#pragma once

#include <string>
#include <utility>
#include <vector>

#include <boost/variant.hpp>

#include <Utils/Public/Export.h>

namespace QV {

/// What went wrong with outside data in one conversion run, in the order in which it was met.
///
///     OperationReport report;
///     report.emplace_back("Unknown units in {}", text);
///     report.getMessages().back().toString(); // "Unknown units in 12"
///
/// Belongs to one run and one thread. Messages are only ever appended.
class UTILS_API OperationReport
{
public:
    /// One message: a pattern in the fmt library's syntax ("{}" or "{0}") and its arguments.
    /// Writes itself to the log once, when it is made from a text; copies and moves log nothing.
    class UTILS_API Message
    {
    public:
        using Argument = boost::variant<long long, unsigned long long, double, std::string>;

        Message(std::string text, const std::string& argument);
        Message(std::string text, const std::string& first, const std::string& second);

        const std::string& getText() const { return _text; }
        const std::vector<Argument>& getArguments() const { return _arguments; }

        /// The text with its arguments in their places; the bare text where the pattern does not fit them.
        std::string toString() const;

        /// Writes toString() to the log.
        void log() const;

    private:
        std::string _text;
        std::vector<Argument> _arguments;
    };

    /// Appends a message made of (text, argument) or (text, first, second).
    template <typename... Arguments>
    void emplace_back(Arguments&&... arguments)
    {
        _messages.emplace_back(std::forward<Arguments>(arguments)...);
    }

    const std::vector<Message>& getMessages() const { return _messages; }

private:
    std::vector<Message> _messages;
};

} // namespace QV
