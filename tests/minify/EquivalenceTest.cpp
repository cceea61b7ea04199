#include <gtest/gtest.h>

#include <numeric>
#include <random>
#include <string>
#include <vector>

#include "tests/minify/RandomStyle.h"
#include "tests/support/LogCapture.h"
#include "tests/support/StyleBuilder.h"
#include "tests/support/TestStore.h"
#include "tools/minify/Equivalence.h"
#include "tools/study/DefaultMapping.h"
#include "tools/study/StoreDifference.h"
#include "tools/study/StyleStudy.h"

namespace {

using namespace customstyle_tool;
using customstyle_test::LogSilence;
using customstyle_test::QueriesEnabled;
using customstyle_test::rule;
using customstyle_test::styleOf;

std::vector<int> everyType() {
    std::vector<int> types(72);
    std::iota(types.begin(), types.end(), 0);
    return types;
}

// The log is to be silenced by the caller.
bool areSame(const std::string& left, const std::string& right) {
    return haveSameStyles(*storeOf(defaultMapping(), left), *storeOf(defaultMapping(), right), everyType());
}

const auto kBlue = rule("water", "geometry.fill").color("#0000ff");

bool areSameEverywhere(const std::string& left, const std::string& right) {
    const LogSilence quiet;
    return areSame(left, right);
}

TEST(SameStyles, AreThoseOfTheSameText) {
    EXPECT_TRUE(areSameEverywhere(styleOf({kBlue}), styleOf({kBlue})));
    EXPECT_TRUE(areSameEverywhere("[]", "[]"));
}

TEST(SameStyles, DifferInOneField) {
    EXPECT_FALSE(areSameEverywhere(styleOf({kBlue}), styleOf({rule("water", "geometry.fill").color("#0000fe")})));
}

TEST(SameStyles, DifferAtOneLevel) {
    const auto weighty = rule("water", "geometry.fill").weight("3").level("21");
    EXPECT_FALSE(areSameEverywhere(styleOf({kBlue}), styleOf({kBlue, weighty})));
}

TEST(SameStyles, DoNotMindAKeyThatRepeatsAllLevels) {
    const auto again = rule("water", "geometry.fill").color("#0000ff").level("12");
    EXPECT_TRUE(areSameEverywhere(styleOf({kBlue}), styleOf({kBlue, again})));
}

TEST(SameStyles, DifferWhereARecordOnlyShadowsOthers) {
    // Nothing of it is drawn, but it keeps the types behind from being asked for the icon.
    const auto shadow = rule("highwaylabel", "labels.text.topsurface").color("#0000ff");
    EXPECT_FALSE(areSameEverywhere("[]", styleOf({shadow})));
}

TEST(SameStyles, DifferInTheGrid) {
    EXPECT_FALSE(areSameEverywhere("[]", styleOf({rule("grid", "all").color("#0000ff")})));
}

TEST(SameStyles, DifferInTheIconsOfTheMap) {
    EXPECT_FALSE(areSameEverywhere("[]", styleOf({rule("all", "icon").visibility("off")})));
}

TEST(SameStyles, LookAtTheNamedTypesOnly) {
    const LogSilence quiet;
    const auto empty = storeOf(defaultMapping(), "[]");
    const auto blue = storeOf(defaultMapping(), styleOf({kBlue}));
    EXPECT_TRUE(haveSameStyles(*empty, *blue, {0, 1, 3}));
    EXPECT_FALSE(haveSameStyles(*empty, *blue, {2}));
}

// A mapping in which types share style ids at random.
std::string randomMapping(std::mt19937& random) {
    const _orvik_framework::CustomConfig catalogue;
    std::string text = "{";
    for (int type = 0; type < 72; ++type) {
        text += (type == 0 ? "\"" : ",\"") + catalogue.GetFeatureTypeName(type) + "\":[";
        for (int i = 0; i < 4; ++i) text += (i == 0 ? "" : ",") + std::to_string(1 + random() % 60);
        text += "]";
    }
    return text + "}";
}

TEST(SameStyles, GiveEqualAnswersOnEveryMapping) {
    const LogSilence quiet;
    const QueriesEnabled enabled;
    std::mt19937 random(3);
    int same = 0;
    for (int i = 0; i < 60; ++i) {
        const std::string style = customstyle_test::randomStyle(random, 8);
        const std::string shorter = customstyle_test::withoutOneRule(random, style);
        if (!areSame(style, shorter)) continue;
        ++same;
        const std::string mapping = randomMapping(random);
        EXPECT_FALSE(fullDifferenceBetween(*storeOf(mapping, style), *storeOf(mapping, shorter)).any()) << style;
        EXPECT_FALSE(differenceBetween(*storeOf(Mapping::everyMap().text(), style),
                                       *storeOf(Mapping::everyMap().text(), shorter))
                         .any())
            << style;
    }
    EXPECT_GT(same, 10);
}

TEST(MappingOfAllPairs, TellsApartWhatAnyMappingTells) {
    const LogSilence quiet;
    const QueriesEnabled enabled;
    std::mt19937 random(4);
    int told = 0;
    for (int i = 0; i < 60; ++i) {
        const std::string style = customstyle_test::randomStyle(random, 6);
        const std::string shorter = customstyle_test::withoutOneRule(random, style);
        const std::string mapping = randomMapping(random);
        if (!fullDifferenceBetween(*storeOf(mapping, style), *storeOf(mapping, shorter)).any()) continue;
        ++told;
        EXPECT_TRUE(differenceBetween(*storeOf(Mapping::everyMap().text(), style),
                                      *storeOf(Mapping::everyMap().text(), shorter))
                        .any())
            << style;
    }
    EXPECT_GT(told, 10);
}

}  // namespace
