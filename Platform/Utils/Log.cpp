#include <Utils/Public/Log.h>

#include <atomic>
#include <memory>
#include <mutex>
#include <utility>

namespace QV {
namespace {

struct SinkSlot
{
    std::mutex mutex;
    std::shared_ptr<const LogSink> sink;
    std::atomic<bool> isSet{false};
};

SinkSlot& getSinkSlot()
{
    static SinkSlot slot;
    return slot;
}

} // namespace

void setLogSink(LogSink sink)
{
    std::shared_ptr<const LogSink> shared;
    if (sink)
        shared = std::make_shared<const LogSink>(std::move(sink));
    SinkSlot& slot = getSinkSlot();
    const std::lock_guard<std::mutex> lock(slot.mutex);
    slot.isSet = shared != nullptr;
    slot.sink = std::move(shared);
}

bool isLogSinkSet()
{
    return getSinkSlot().isSet;
}

void writeLog(boost::string_ref line)
{
    SinkSlot& slot = getSinkSlot();
    std::shared_ptr<const LogSink> sink;
    {
        const std::lock_guard<std::mutex> lock(slot.mutex);
        sink = slot.sink;
    }
    if (sink)
        (*sink)(line);
}

} // namespace QV
