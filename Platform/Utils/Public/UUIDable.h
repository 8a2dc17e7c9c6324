#pragma once

#include <Utils/Public/UUID.h>

namespace QV {

/// The base of model objects that others refer to by identifier.
///
/// A new object gets a fresh identifier. A copy keeps the identifier of its original, as a value does: who
/// puts both into one document gives one of them another with setUUID. A moved-from object keeps its own.
class UUIDable
{
public:
    const UUID& getUUID() const { return _uuid; }
    void setUUID(const UUID& uuid) { _uuid = uuid; }

protected:
    UUIDable()
        : _uuid(UUID::generate())
    {
    }
    explicit UUIDable(const UUID& uuid)
        : _uuid(uuid)
    {
    }
    UUIDable(const UUIDable&) = default;
    UUIDable& operator=(const UUIDable&) = default;
    ~UUIDable() = default;

private:
    UUID _uuid;
};

} // namespace QV
