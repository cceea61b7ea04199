// Texts at the border between what the component's JSON parser accepts and what it refuses.
#pragma once

#include <string>
#include <vector>

namespace customstyle_test {

/// Small texts, one peculiarity each; deep nesting and long numbers among them.
std::vector<std::string> hardTexts();

/// Documents that hold every construct, to be cut short and mutated.
std::vector<std::string> seedTexts();

}  // namespace customstyle_test
