// Random styles whose rules get in each other's way.
#pragma once

#include <random>
#include <string>

namespace customstyle_test {

/// A style of so many rules for a handful of feature types and levels.
std::string randomStyle(std::mt19937& random, int rules);

/// The same style without one of its rules.
std::string withoutOneRule(std::mt19937& random, const std::string& style);

}  // namespace customstyle_test
