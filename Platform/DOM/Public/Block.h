#pragma once

#include <DOM/Public/Export.h>
#include <Utils/Public/UUIDable.h>

namespace QV::DOM {

/// A part of a document's flow: a paragraph, a table. Each has an identity of its own.
class DOM_API Block : public UUIDable
{
public:
    Block() = default;
    virtual ~Block();

    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;
};

} // namespace QV::DOM
