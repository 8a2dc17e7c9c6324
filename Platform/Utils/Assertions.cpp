#include <Utils/Public/Assertions.h>

#include <cstdio>
#include <cstdlib>
#include <memory>
#include <mutex>
#include <utility>

#include <fmt/format.h>

namespace QV {
namespace {

void writeAndAbort(const char* file, int line, const char* expression, boost::string_ref message)
{
    const std::string text = fmt::format("{}:{}: assertion failed: {}{}{}\n", file, line, expression,
        message.empty() ? "" : ": ", std::string(message.data(), message.size()));
    static_cast<void>(std::fwrite(text.data(), 1, text.size(), stderr)); // nothing left to tell a failure to
    std::abort();
}

struct HandlerSlot
{
    std::mutex mutex;
    std::shared_ptr<const FailAssertHandler> handler = std::make_shared<FailAssertHandler>(writeAndAbort);
};

HandlerSlot& getHandlerSlot()
{
    static HandlerSlot slot;
    return slot;
}

} // namespace

void setFailAssertHandler(FailAssertHandler handler)
{
    if (!handler)
        handler = writeAndAbort;
    auto shared = std::make_shared<const FailAssertHandler>(std::move(handler));
    HandlerSlot& slot = getHandlerSlot();
    const std::lock_guard<std::mutex> lock(slot.mutex);
    slot.handler = std::move(shared);
}

void doFailAssert(const char* file, int line, const char* expression)
{
    doFailAssert(file, line, expression, boost::string_ref());
}

void doFailAssert(const char* file, int line, const char* expression, boost::string_ref message)
{
    HandlerSlot& slot = getHandlerSlot();
    std::shared_ptr<const FailAssertHandler> handler;
    {
        const std::lock_guard<std::mutex> lock(slot.mutex);
        handler = slot.handler;
    }
    (*handler)(
        file, line, expression, message); // outside the lock: a handler may throw, or install another one
}

} // namespace QV
