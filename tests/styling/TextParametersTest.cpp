// Which functions receive a copy of the text: engines link against these signatures.
#include <gtest/gtest.h>

#include <type_traits>

#include "customstyle/CustomConfig.h"

namespace customstyle_test {
namespace {

using _orvik_framework::CustomConfig;
using _orvik_framework::stFeatureTypeStyleRecorder;
using _orvik_vi::cJSON;
using _orvik_vi::CVString;

template <typename Signature, typename Member>
constexpr bool isDeclaredAs(Member CustomConfig::*) {
    return std::is_same_v<Signature, Member>;
}

using Setter = void(int, CVString, const cJSON*, int, stFeatureTypeStyleRecorder*, int, int);
using VisibilitySetter = void(int, CVString, const cJSON*, int, stFeatureTypeStyleRecorder*, int, int, int);
using ColorWriter = void(int, const CVString&, std::uint64_t, int, int);
using TextColorWriter = void(int, CVString, std::uint64_t, int, int);

TEST(Dispatchers, ReceiveACopyOfTheElementType) {
    EXPECT_TRUE(isDeclaredAs<Setter>(&CustomConfig::SetCustomColorStyle));
    EXPECT_TRUE(isDeclaredAs<VisibilitySetter>(&CustomConfig::SetCustomVisibilityStyle));
    EXPECT_TRUE(isDeclaredAs<Setter>(&CustomConfig::SetCustomWeightStyle));
    EXPECT_TRUE(isDeclaredAs<Setter>(&CustomConfig::SetCustomFontSizeStyle));
}

TEST(ColorWriters, ReceiveACopyOfTheElementTypeForTextsOnly) {
    EXPECT_TRUE(isDeclaredAs<ColorWriter>(&CustomConfig::SetTypeColor));
    EXPECT_TRUE(isDeclaredAs<TextColorWriter>(&CustomConfig::SetFontColorStyle));
}

TEST(TheLogAndTheTestForDigits, ReceiveACopyOfTheirText) {
    EXPECT_TRUE(isDeclaredAs<void(CVString) const>(&CustomConfig::CustomMapPrintLog));
    EXPECT_TRUE(isDeclaredAs<int(std::string) const>(&CustomConfig::IsValueAllDigit));
}

}  // namespace
}  // namespace customstyle_test
