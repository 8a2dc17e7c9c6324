#pragma once

#include <string>
#include <vector>

#include <boost/utility/string_ref.hpp>

#include <Utils/Public/Assertions.h>

namespace QV::Tests {

/// While it lives, failed assertions are recorded and return; afterwards the default handler is back.
class RecordedAssertions
{
public:
    struct Failure
    {
        std::string file;
        int line;
        std::string expression;
        std::string message;
    };

    RecordedAssertions()
    {
        setFailAssertHandler(
            [this](const char* file, int line, const char* expression, boost::string_ref message) {
                _failures.push_back({
                    file, line, expression, {message.begin(), message.end()}
                });
            });
    }
    ~RecordedAssertions() { setFailAssertHandler({}); }

    RecordedAssertions(const RecordedAssertions&) = delete;
    RecordedAssertions& operator=(const RecordedAssertions&) = delete;

    const std::vector<Failure>& getFailures() const { return _failures; }

    /// The texts of the failed expressions, in order.
    std::vector<std::string> getExpressions() const
    {
        std::vector<std::string> expressions;
        for (const Failure& failure : _failures)
            expressions.push_back(failure.expression);
        return expressions;
    }

private:
    std::vector<Failure> _failures;
};

} // namespace QV::Tests
