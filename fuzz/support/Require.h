// What a fuzzer expects of every input.
#pragma once

#include <string>

namespace customstyle_fuzz {

/// Ends the program with a message where the condition does not hold.
void require(bool condition, const std::string& otherwise);

}  // namespace customstyle_fuzz
