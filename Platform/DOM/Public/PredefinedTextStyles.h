#pragma once

/// @file
/// The named text styles that applications know: their fixed identifiers, names and looks.
///
/// A name is one of the enumeration's: any other value asserts "index < PredefinedStylesCount", and throws
/// std::out_of_range where the handler returns.

#include <string>

#include <boost/optional.hpp>
#include <boost/utility/string_ref.hpp>

#include <DOM/Public/Export.h>
#include <DOM/Public/NamedTextStyle.h>
#include <DOM/Public/PredefinedStyleName.h>
#include <Utils/Public/UUID.h>

namespace QV::DOM {

/// The identifier that a predefined style has in every document.
DOM_API UUID makePredefinedTextStyleUUID(PredefinedStyleName name);

/// A predefined style as it looks where a document does not say: complete, with its identifier, its name, its
/// kind, and the identifier of the predefined style that it derives from.
DOM_API NamedTextStyle makePredefinedTextStyle(PredefinedStyleName name);

/// The name that word processors write for it in any language, such as "heading 1" or "toc 3".
DOM_API const std::string& getPredefinedStyleText(PredefinedStyleName name);

/// The predefined style of such a name, compared without the case of ASCII letters; nothing for any other.
DOM_API boost::optional<PredefinedStyleName> findPredefinedStyleName(boost::string_ref text);

/// What a person calls the style: the text of its predefined name, its own name, or nothing.
DOM_API std::string getStyleNameText(const NamedTextStyle& style);

} // namespace QV::DOM
