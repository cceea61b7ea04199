// The tools' JSON reader beside the parser that the component uses.
#pragma once

#include <string>
#include <string_view>

namespace customstyle_test {

/// What the two make of a text differently: accepting, the end of the value, kinds, order, names, texts, numbers.
/// @return the first difference in words; empty when there is none
std::string differenceToComponent(std::string_view text);

/// Checks the places: each value's own bytes, read by the component's parser, have to give that value and nothing more.
/// @return the first difference in words; empty when there is none or when the text is not JSON
std::string misplacedValue(std::string_view text);

}  // namespace customstyle_test
