#include <Filters/Text/TextContext.h>

#include <Filters/Package/FilterRun.h>

namespace QV::Filters {

OperationReport& TextContext::getReport()
{
    return run.getReport();
}

const UUID& TextContext::referToNote(const NoteKey& key)
{
    const auto [note, isNew] = notes.try_emplace(key);
    if (isNew) {
        note->second = UUID::generate();
        noteOrder.push_back(key);
    }
    return note->second;
}

} // namespace QV::Filters
