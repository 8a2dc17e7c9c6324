#pragma once

#include <string>

#include <DOM/Public/CellFormatModel.h>
#include <OfficeUtils/Public/Parser.h>

namespace QV::OfficeUtils {

/// The canonical code of an expression; see Parser::toRegEx().
std::string printExpression(const DOM::CellFormatModel::Expression& expression, Parser::ParserType type);

/// The canonical code of one section.
std::string printRule(const DOM::CellFormatModel::Rule& rule, Parser::ParserType type);

} // namespace QV::OfficeUtils
