#include <gtest/gtest.h>

#include <cstdint>
#include <optional>

#include "tests/support/CaseName.h"
#include "tools/support/Numbers.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;

struct NumberCase {
    const char* name;
    const char* text;
    int base;
    std::optional<std::uint8_t> number;
};

class NumberIn : public testing::TestWithParam<NumberCase> {};

TEST_P(NumberIn, IsTheWholeText) {
    EXPECT_EQ(numberIn<std::uint8_t>(GetParam().text, GetParam().base), GetParam().number);
}

INSTANTIATE_TEST_SUITE_P(Texts, NumberIn,
                         testing::Values(NumberCase{"Digits", "042", 10, 42}, NumberCase{"HexDigits", "fF", 16, 255},
                                         NumberCase{"TheLargest", "255", 10, 255},
                                         NumberCase{"OneThatTheTypeCannotHold", "256", 10, std::nullopt},
                                         NumberCase{"DigitsAndMore", "12px", 10, std::nullopt},
                                         NumberCase{"DigitsAfterABlank", " 12", 10, std::nullopt},
                                         NumberCase{"ASign", "-1", 10, std::nullopt},
                                         NumberCase{"NoText", "", 10, std::nullopt}),
                         caseName);

}  // namespace
}  // namespace customstyle_test
