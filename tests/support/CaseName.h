// The names of table-driven tests.
#pragma once

#include <string>

namespace customstyle_test {

/// For INSTANTIATE_TEST_SUITE_P: each case is named by its member `name`.
inline constexpr auto caseName = [](const auto& info) -> std::string { return info.param.name; };

}  // namespace customstyle_test
