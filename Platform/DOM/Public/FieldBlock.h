#pragma once

#include <memory>
#include <string>
#include <utility>

#include <DOM/Public/Block.h>
#include <DOM/Public/Export.h>
#include <DOM/Public/Hyperlink.h>

namespace QV::DOM {

/// A field that takes the place of a whole block, such as one that shows the value of another cell.
class DOM_API FieldBlock final : public Block
{
public:
    explicit FieldBlock(std::string instruction)
        : _instruction(std::move(instruction))
    {
    }
    ~FieldBlock() override;

    const std::string& getInstruction() const { return _instruction; }

    /// Where a click on the block leads; null when it leads nowhere.
    const std::shared_ptr<const Hyperlink>& getHyperlink() const { return _hyperlink; }
    void setHyperlink(std::shared_ptr<const Hyperlink> link) { _hyperlink = std::move(link); }

private:
    std::string _instruction;
    std::shared_ptr<const Hyperlink> _hyperlink;
};

} // namespace QV::DOM
