// What the texts of stylers mean.
#include <gtest/gtest.h>

#include <cstdint>

#include "customstyle/CustomConfig.h"
#include "tests/support/CaseName.h"
#include "tests/support/StyleBuilder.h"

namespace customstyle_test {
namespace {

using _orvik_framework::CustomConfig;

// ---- "level" --------------------------------------------------------------------------------------------------------

struct LevelCase {
    const char* name;
    std::string text;
    int level;
};

const LevelCase kLevels[] = {
    {"Usual", "16", 16},
    {"Lowest", "4", 4},
    {"Highest", "21", 21},
    {"JustBelowTheLowest", "3", 4},
    {"BelowTheLowest", "2", 4},
    {"Zero", "0", 4},
    {"Negative", "-5", 4},
    {"JustAboveTheHighest", "22", 21},
    {"AboveTheHighest", "25", 21},
    {"FarAboveTheHighest", "99", 21},
    {"NoDigits", "abc", 4},
    {"NoText", "", 4},
    {"EndsAtThePoint", "10.9", 10},
    {"EndsAtALetter", "12abc", 12},
    {"EndsAtADash", "12-14", 12},
    {"LeadingBlanks", "  12", 12},
    {"LeadingTab", "\t12", 12},
    {"LeadingLineEnd", "\n12", 12},
    {"LeadingVerticalTab", "\v12", 12},
    {"LeadingFormFeed", "\f12", 12},
    {"LeadingCarriageReturn", "\r12", 12},
    {"BlanksOfAllKinds", " \t\n\v\f\r12", 12},
    {"LeadingNoBreakSpace",
     "\xC2\xA0"
     "12",
     4},
    {"PlusSign", "+12", 12},
    {"BlankBehindTheSign", "+ 12", 4},
    {"LeadingZeros", "00000000000012", 12},
    {"NotHexadecimal", "0x10", 4},
    {"NotOctal", "012", 12},
    {"BeyondInt", "2147483648", 21},
    {"TwelveIfItWrappedAt32Bits", "4294967308", 21},
    {"BelowInt", "-2147483649", 4},
    {"TwelveIfItWrappedAt32BitsFromBelow", "-4294967284", 4},
    {"BeyondLong", "9223372036854775808", 21},
    {"TwelveIfItWrappedAt64Bits", "18446744073709551628", 21},
    {"BelowLong", "-9223372036854775809", 4},
    {"ThousandsOfDigits", std::string(4000, '1'), 21},
    {"ThousandsOfZeros", std::string(4000, '0') + "9", 9},
};

class Level : public testing::TestWithParam<LevelCase> {};

TEST_P(Level, IsReadAndClamped) {
    const Tree stylers = parsed("{\"level\":" + customstyle_test::quoted(GetParam().text) + "}");
    int level = -7;
    EXPECT_EQ(CustomConfig().ParseCustomStyleGivenLevel(stylers.get(), &level), 0);
    EXPECT_EQ(level, GetParam().level);
}

INSTANTIATE_TEST_SUITE_P(StylerValues, Level, testing::ValuesIn(kLevels), caseName);

struct NoLevelCase {
    const char* name;
    const char* stylers;
};

const NoLevelCase kNoLevels[] = {
    {"Absent", "{}"},
    {"Number", R"({"level":16})"},
    {"Null", R"({"level":null})"},
    {"Boolean", R"({"level":true})"},
    {"Array", R"({"level":["16"]})"},
    {"Object", R"({"level":{"a":1}})"},
    {"NumberBeforeAText", R"({"level":9,"level":"10"})"},
};

class NoLevel : public testing::TestWithParam<NoLevelCase> {};

TEST_P(NoLevel, MeansAllLevels) {
    const CustomConfig config;
    int level = -7;
    EXPECT_EQ(config.ParseCustomStyleGivenLevel(parsed(GetParam().stylers).get(), &level), 1);
    EXPECT_EQ(level, 0);
}

INSTANTIATE_TEST_SUITE_P(StylerValues, NoLevel, testing::ValuesIn(kNoLevels), caseName);

// ---- The styler list ------------------------------------------------------------------------------------------------

struct ListCase {
    const char* name;
    const char* stylers;
    const char* list;
};

const ListCase kLists[] = {
    {"Nothing", "{}", ";;;"},
    {"Everything", R"({"color":"","visibility":"","weight":"","fontsize":""})", "color;visibility;weight;fontsize"},
    {"AnyOrder", R"({"fontsize":"1","weight":"2","visibility":"on","color":"#"})", "color;visibility;weight;fontsize"},
    {"Color", R"({"color":"x"})", "color;;;"},
    {"Visibility", R"({"visibility":"x"})", ";visibility;;"},
    {"Weight", R"({"weight":"x"})", ";;weight;"},
    {"FontSize", R"({"fontsize":"x"})", ";;;fontsize"},
    {"WeightBesideANumber", R"({"weight":"3","color":255})", ";;weight;"},
    {"NoTexts", R"({"color":1,"visibility":true,"weight":null,"fontsize":{}})", ";;;"},
    {"LevelOnly", R"({"level":"10"})", ";;;"},
    {"OtherNames", R"({"colour":"x","font":"y"})", ";;;"},
    {"TheFilesOwnSpelling", R"({"Color":"x","WEIGHT":"y"})", "Color;;WEIGHT;"},
    {"TheFirstOfTwo", R"({"COLOR":"x","color":"y"})", "COLOR;;;"},
    {"TheFirstOfTwoIsNoText", R"({"color":1,"color":"y"})", ";;;"},
};

class StylerList : public testing::TestWithParam<ListCase> {};

TEST_P(StylerList, NamesTheStylersThatAreTexts) {
    const CustomConfig config;
    EXPECT_EQ(config.ParseCustomStyler(parsed(GetParam().stylers).get()).ToUtf8(), GetParam().list);
}

INSTANTIATE_TEST_SUITE_P(StylerValues, StylerList, testing::ValuesIn(kLists), caseName);

// ---- Colours --------------------------------------------------------------------------------------------------------

constexpr int kBoundary = 46;

struct ColorCase {
    const char* name;
    std::string text;
    std::uint32_t packed;
    int featureType = 13;
};

const ColorCase kColors[] = {
    {"OpaqueRed", "#ff0000", 0xff0000ff},
    {"HalfTransparentGreen", "#00ff0080", 0x8000ff00},
    {"EachByteItsOwn", "#11223344", 0x44332211},
    {"EachDigitItsOwn", "#12345678", 0x78563412},
    {"LowerCase", "#abcdef98", 0x98efcdab},
    {"UpperCase", "#ABCDEF98", 0x98efcdab},
    {"Transparent", "#00000000", 0x00000000},
    {"OpaqueWhite", "#ffffffff", 0xffffffff},
    {"NoHexDigitsCountZero", "#gg0000", 0xff000000},
    {"NeighboursOfTheDigitsCountZero", "#/1:2@3", 0xff030201},
    {"NeighboursOfTheLettersCountZero", "#`1G2g4", 0xff040201},
    {"NeighboursOfTheDigitsCountZeroBehindADigit", "#1/2:3@", 0xff302010},
    {"NeighboursOfTheLettersCountZeroBehindADigit", "#1`2G3g", 0xff302010},
    {"LastDigitsAndLetters", "#9afF9A", 0xff9aff9a},
    {"NoHexDigitsInTheAlphaCountZero", "#112233xy", 0x00332211},
    {"BytesBeyondAsciiCountZero",
     "#\xC3\xA9\xFF\x80"
     "12",
     0xff120000},
    {"BlanksCountZero", "# 1 2 3 4", 0x04030201},
    {"TheSignIsNotLookedAt", "x112233", 0xff332211},
    {"WithoutASignTheFirstDigitIsLost", "112233", 0xff302312},
    {"AWord", "red", 0xff0000ed},
    {"WhatFollowsIsIgnored", "#1122334455", 0x44332211},
    {"ThousandsOfCharacters", "#112233" + std::string(4000, '4'), 0x44332211},
    {"NoText", "", 0xff000000},
    {"TheSignAlone", "#", 0xff000000},
    {"OneDigit", "#1", 0xff000010},
    {"TwoDigits", "#12", 0xff000012},
    {"ThreeDigits", "#123", 0xff003012},
    {"FourDigits", "#1234", 0xff003412},
    {"FiveDigits", "#12345", 0xff503412},
    {"SixDigits", "#123456", 0xff563412},
    {"SevenDigits", "#1234567", 0x70563412},
    {"ABoundaryIsOpaque", "#ff0000", 0xff0000ff, kBoundary},
    {"ABoundaryIsOpaqueInSpiteOfItsAlpha", "#ff000010", 0xff0000ff, kBoundary},
    {"ABoundaryIsOpaqueInSpiteOfHalfAnAlpha", "#ff00001", 0xff0000ff, kBoundary},
    {"ABoundaryWithoutText", "", 0xff000000, kBoundary},
    {"NextToABoundary", "#ff000010", 0x100000ff, 47},
    {"TheLand", "#ff000010", 0x100000ff, 0},
    {"TheWildcard", "#ff000010", 0x100000ff, 72},
    {"NoFeatureType", "#ff000010", 0x100000ff, -1},
};

class ColorValue : public testing::TestWithParam<ColorCase> {};

TEST_P(ColorValue, IsPacked) {
    const CustomConfig config;
    const int packed = config.CalculateColorValue(GetParam().text.c_str(), GetParam().featureType);
    EXPECT_EQ(static_cast<std::uint32_t>(packed), GetParam().packed);
}

INSTANTIATE_TEST_SUITE_P(StylerValues, ColorValue, testing::ValuesIn(kColors), caseName);

TEST(StylerValues, AnOpaqueColourIsANegativeInt) {
    EXPECT_EQ(CustomConfig().CalculateColorValue("#ff0000", 13), -16776961);
}

// ---- Weights --------------------------------------------------------------------------------------------------------

struct WeightCase {
    const char* name;
    std::string text;
    int weight;
};

const WeightCase kWeights[] = {
    {"NoText", "", 0},
    {"Zero", "0", 0},
    {"Usual", "12", 12},
    {"JustBelowTheEnd", "254", 254},
    {"TheEnd", "255", 255},
    {"JustAboveTheEnd", "256", 255},
    {"Above", "300", 255},
    {"FarAbove", "1000", 255},
    {"AThousandAndNothingElse", "1000000000", 255},
    {"ANonDigitStillTakesAPlace", "1.5", 105},
    {"TheSignIsNoDigit", "-5", 5},
    {"TheSignDoesNotSubtract", "-300", 255},
    {"NoDigits", "abc", 0},
    {"LettersBehind", "3px", 255},
    {"OneLetterBehind", "1x", 10},
    {"ABlankInFront", " 7", 7},
    {"ABlankBetween", "1 1", 101},
    {"ACharacterOfTwoBytesTakesTwoPlaces", "2\xC3\xA9", 200},
    {"LeadingZeros", "0000000007", 7},
    {"ThousandsOfZeros", std::string(4000, '0') + "9", 9},
    {"ThousandsOfLettersInFront", std::string(4000, 'x') + "9", 9},
    {"ThousandsOfLettersBehind", "9" + std::string(4000, 'x'), 255},
    {"ThousandsOfDigits", std::string(4000, '9'), 255},
    {"BeyondInt", "2147483648", 255},
    {"ZeroIfItWrappedAt32Bits", "4294967296", 255},
    {"SevenIfItWrappedAt32Bits", "4294967303", 255},
    {"SevenIfItWrappedAt64Bits", "18446744073709551623", 255},
};

class WeightValue : public testing::TestWithParam<WeightCase> {};

TEST_P(WeightValue, IsReadFromTheLastDigitOn) {
    EXPECT_EQ(CustomConfig().CalculateWeightValue(GetParam().text.c_str()), GetParam().weight);
}

INSTANTIATE_TEST_SUITE_P(StylerValues, WeightValue, testing::ValuesIn(kWeights), caseName);

// ---- Digits ---------------------------------------------------------------------------------------------------------

struct DigitsCase {
    const char* name;
    std::string text;
    int allDigits;
};

const DigitsCase kDigits[] = {
    {"NoText", "", 0},
    {"OneDigit", "0", 1},
    {"Digits", "123", 1},
    {"EveryDigit", "0123456789", 1},
    {"ThousandsOfDigits", std::string(4000, '7'), 1},
    {"ALetterBehind", "12a", 0},
    {"ALetterInFront", "a12", 0},
    {"ALetterBehindThousandsOfDigits", std::string(4000, '7') + "a", 0},
    {"Minus", "-2", 0},
    {"Plus", "+2", 0},
    {"Point", "2.5", 0},
    {"BlankInFront", " 3", 0},
    {"BlankBehind", "3 ", 0},
    {"BeforeTheDigits", "/", 0},
    {"BehindTheDigits", ":", 0},
    {"HexDigit", "f", 0},
    {"NulBehind", std::string("12\0", 3), 0},
    {"NulAlone", std::string("\0", 1), 0},
    {"SuperscriptTwo", "1\xC2\xB2", 0},
    {"ArabicDigit", "\xD9\xA3", 0},
    {"DigitWithTheTopBit", "\xB1", 0},
};

class AllDigits : public testing::TestWithParam<DigitsCase> {};

TEST_P(AllDigits, AreAsciiAndAtLeastOne) {
    EXPECT_EQ(CustomConfig().IsValueAllDigit(GetParam().text), GetParam().allDigits);
}

INSTANTIATE_TEST_SUITE_P(StylerValues, AllDigits, testing::ValuesIn(kDigits), caseName);

}  // namespace
}  // namespace customstyle_test
