// The smallest parts of JSON text.
#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "tests/support/CaseName.h"
#include "tools/json/JsonScalars.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;
using namespace std::string_view_literals;

TEST(Letters, AreThoseOfAsciiInEitherCase) {
    constexpr auto kSmall = "abcdefghijklmnopqrstuvwxyz"sv;
    constexpr auto kCapital = "ABCDEFGHIJKLMNOPQRSTUVWXYZ"sv;
    for (int value = 0; value < 256; ++value) {
        const char byte = static_cast<char>(value);
        const std::size_t capital = kCapital.find(byte);
        EXPECT_EQ(isLetter(byte), kSmall.find(byte) != kSmall.npos || capital != kCapital.npos) << value;
        EXPECT_EQ(lowerCase(byte), capital == kCapital.npos ? byte : kSmall[capital]) << value;
    }
}

struct StrictCase {
    const char* name;
    std::string_view number;
    bool isStrict;
};

class StrictNumber : public testing::TestWithParam<StrictCase> {};

TEST_P(StrictNumber, IsWrittenAsTheStandardHasIt) {
    EXPECT_EQ(isStrictNumber(GetParam().number), GetParam().isStrict);
}

INSTANTIATE_TEST_SUITE_P(
    JsonScalars, StrictNumber,
    testing::Values(StrictCase{"Zero", "0", true}, StrictCase{"ANegativeFraction", "-0.05", true},
                    StrictCase{"AnExponent", "1e5", true}, StrictCase{"ANegativeExponent", "1e-5", true},
                    StrictCase{"ZerosBeforeTheExponent", "1.5E+007", true}, StrictCase{"AZeroInFront", "01", false},
                    StrictCase{"AZeroInFrontOfANegativeNumber", "-01", false},
                    StrictCase{"NoDigitBeforeThePoint", ".5", false},
                    StrictCase{"NoDigitBehindThePoint", "1.e5", false}, StrictCase{"NoDigitInTheExponent", "1e", false},
                    StrictCase{"TwoSigns", "1e+-5", false}, StrictCase{"MoreThanANumber", "1e5x", false},
                    StrictCase{"AnotherLetter", "1x5", false}, StrictCase{"OnlyASign", "-", false},
                    StrictCase{"Nothing", "", false}),
    caseName);

TEST(DecodedText, ReplacesWhatWasThere) {
    std::string decoded = "before";
    EXPECT_FALSE(decodeText(R"(a\nb)", decoded).has_value());
    EXPECT_EQ(decoded, "a\nb");
}

}  // namespace
}  // namespace customstyle_test
