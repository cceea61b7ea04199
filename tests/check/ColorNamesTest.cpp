// Colour names of other formats: the remedy is the colour that CSS gives them.
#include <fmt/format.h>
#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "tests/check/CheckedText.h"
#include "tests/support/CaseName.h"

namespace customstyle_test {
namespace {

struct NamedCase {
    std::string name;
    int red, green, blue;
};

void PrintTo(const NamedCase& each, std::ostream* stream) {
    *stream << each.name;
}

class ColorName : public testing::TestWithParam<NamedCase> {};

TEST_P(ColorName, IsReplacedByItsNumber) {
    const auto& [name, red, green, blue] = GetParam();
    const auto checked = checkedStyle(
        fmt::format(R"([{{"featureType":"land","elementType":"geometry","stylers":{{"color":"{}"}}}}])", name));
    ASSERT_EQ(checked.findings.size(), 1u);
    EXPECT_EQ(checked.findings[0].remedy, fmt::format(R"(write "#{:02x}{:02x}{:02x}")", red, green, blue));
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Css, ColorName, testing::Values(
    NamedCase{"black", 0, 0, 0}, NamedCase{"white", 255, 255, 255}, NamedCase{"gray", 128, 128, 128},
    NamedCase{"grey", 128, 128, 128}, NamedCase{"silver", 192, 192, 192}, NamedCase{"red", 255, 0, 0},
    NamedCase{"green", 0, 128, 0}, NamedCase{"blue", 0, 0, 255}, NamedCase{"lime", 0, 255, 0},
    NamedCase{"yellow", 255, 255, 0}, NamedCase{"aqua", 0, 255, 255}, NamedCase{"cyan", 0, 255, 255},
    NamedCase{"fuchsia", 255, 0, 255}, NamedCase{"magenta", 255, 0, 255}, NamedCase{"maroon", 128, 0, 0},
    NamedCase{"navy", 0, 0, 128}, NamedCase{"olive", 128, 128, 0}, NamedCase{"teal", 0, 128, 128},
    NamedCase{"purple", 128, 0, 128}, NamedCase{"orange", 255, 165, 0}, NamedCase{"darkgray", 169, 169, 169},
    NamedCase{"darkgrey", 169, 169, 169}, NamedCase{"lightgray", 211, 211, 211}, NamedCase{"lightgrey", 211, 211, 211},
    NamedCase{"darkblue", 0, 0, 139}, NamedCase{"darkred", 139, 0, 0}, NamedCase{"darkgreen", 0, 100, 0},
    NamedCase{"lightblue", 173, 216, 230}, NamedCase{"skyblue", 135, 206, 235}, NamedCase{"brown", 165, 42, 42},
    NamedCase{"lightgreen", 144, 238, 144}, NamedCase{"pink", 255, 192, 203}, NamedCase{"gold", 255, 215, 0},
    NamedCase{"beige", 245, 245, 220}, NamedCase{"ivory", 255, 255, 240}, NamedCase{"violet", 238, 130, 238},
    NamedCase{"indigo", 75, 0, 130}, NamedCase{"khaki", 240, 230, 140}, NamedCase{"salmon", 250, 128, 114},
    NamedCase{"tan", 210, 180, 140}), caseName);
// clang-format on

}  // namespace
}  // namespace customstyle_test
