#pragma once

/// @file
/// Numbers in English words.

#include <string>

namespace QV::Filters {

constexpr long ListNumberWordsMax = 999999999;

/// @param number from 0 to ListNumberWordsMax
/// @return such as "Twenty-one"
std::string makeCardinalWords(long number);

/// The same for the place in an order, such as "Twenty-first".
std::string makeOrdinalWords(long number);

} // namespace QV::Filters
