#pragma once

/// @file
/// Masters, layouts and slides of a presentation into a document. Masters come before the layouts that name
/// them, and layouts before the slides that name them.
///
/// The names are those of the file, in one map for masters and layouts, which lives as long as one import:
/// where a layout has the name of a master, the one that came later has the name.

#include <memory>
#include <string>
#include <vector>

#include <boost/unordered_map.hpp>

#include <DOM/Public/Block.h>
#include <DOM/Public/NamedShapeStyle.h>
#include <DOM/Public/Shape.h>
#include <FilterUtils/FU_Export.h>
#include <Utils/Public/UUID.h>

namespace QV::DOM {
class Document;
} // namespace QV::DOM

namespace QV::FilterUtils {

/// Names @p master @p masterName in @p names, and moves it into the document's shape styles.
///
/// A style whose identifier is there already fails the assertion of DOM::UUIDContainer::insert.
FILTERUTILS_API void moveSlideMasterToDocumentStyles(DOM::Document& document,
    boost::unordered_map<std::string, UUID>& names, DOM::NamedShapeStyle master,
    const std::string& masterName);

/// Makes the master of that name the parent of @p layout, or a blank master where none has it; names the
/// layout @p layoutName in @p names, and moves it into the document's shape styles, as for masters.
///
/// The blank master is made once for each map, under the name "EMPTY_MASTER_NAME".
FILTERUTILS_API void moveSlideLayoutToDocumentStyles(DOM::Document& document,
    boost::unordered_map<std::string, UUID>& names, DOM::NamedShapeStyle layout,
    const std::string& layoutName, const std::string& masterName);

/// Makes the layout of that name the parent of the slide's style, or a blank layout where none has it, and
/// appends the slide to @p blocks. The slide's style becomes a shared one of the document; what shared the
/// old one keeps that.
///
/// The blank layout is made once for each map, under the name "EMPTY_LAYOUT_NAME"; its parent is the blank
/// master.
///
/// @param slide not null
FILTERUTILS_API void moveSlideToDocument(DOM::Document& document,
    boost::unordered_map<std::string, UUID>& names, std::vector<std::unique_ptr<DOM::Block>>& blocks,
    std::unique_ptr<DOM::Shape> slide, const std::string& layoutName);

} // namespace QV::FilterUtils
