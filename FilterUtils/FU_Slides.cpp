#include <FilterUtils/FU_Slides.h>

#include <utility>

#include <DOM/Public/Document.h>
#include <DOM/Public/ShapeStyle.h>
#include <DOM/Public/Styles.h>
#include <FilterUtils/FU_NamedStylesFactory.h>
#include <Utils/Public/Ptr/PtrUtils.h>

namespace QV::FilterUtils {
namespace {

using SlideStyleNames = boost::unordered_map<std::string, UUID>;

enum class BlankStyleKind
{
    Master,
    Layout,
};

const std::string EmptyMasterName = "EMPTY_MASTER_NAME";
const std::string EmptyLayoutName = "EMPTY_LAYOUT_NAME";

void registerSlideStyle(
    DOM::Document& document, SlideStyleNames& names, DOM::NamedShapeStyle style, const std::string& name)
{
    names[name] = style.getUUID();
    document.getStyles().getShapeStyles().insert(std::move(style));
}

UUID getOrMakeBlankStyle(DOM::Document& document, SlideStyleNames& names, BlankStyleKind kind)
{
    const bool isLayout = kind == BlankStyleKind::Layout;
    const std::string& name = isLayout ? EmptyLayoutName : EmptyMasterName;
    const auto found = names.find(name);
    if (found != names.end())
        return found->second;
    DOM::NamedShapeStyle style;
    if (isLayout)
        style.setParentUUID(getOrMakeBlankStyle(document, names, BlankStyleKind::Master));
    const UUID uuid = style.getUUID();
    registerSlideStyle(document, names, std::move(style), name);
    return uuid;
}

UUID getSlideParentUUID(
    DOM::Document& document, SlideStyleNames& names, const std::string& name, BlankStyleKind blank)
{
    const UUID uuid = findParentUUID(names, name);
    return uuid ? uuid : getOrMakeBlankStyle(document, names, blank);
}

} // namespace

void moveSlideMasterToDocumentStyles(DOM::Document& document, boost::unordered_map<std::string, UUID>& names,
    DOM::NamedShapeStyle master, const std::string& masterName)
{
    registerSlideStyle(document, names, std::move(master), masterName);
}

void moveSlideLayoutToDocumentStyles(DOM::Document& document, boost::unordered_map<std::string, UUID>& names,
    DOM::NamedShapeStyle layout, const std::string& layoutName, const std::string& masterName)
{
    layout.setParentUUID(getSlideParentUUID(document, names, masterName, BlankStyleKind::Master));
    registerSlideStyle(document, names, std::move(layout), layoutName);
}

void moveSlideToDocument(DOM::Document& document, boost::unordered_map<std::string, UUID>& names,
    std::vector<std::unique_ptr<DOM::Block>>& blocks, std::unique_ptr<DOM::Shape> slide,
    const std::string& layoutName)
{
    DOM::SharedShapeStyle& style = deref(slide).getSharedStyle();
    const UUID layout = getSlideParentUUID(document, names, layoutName, BlankStyleKind::Layout);
    DOM::setToSharedStyle(document.getSharedObjectFactory(), style, DOM::ParentUUID(layout));
    blocks.push_back(std::move(slide));
}

} // namespace QV::FilterUtils
