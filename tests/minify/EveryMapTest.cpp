#include <gtest/gtest.h>

#include <random>
#include <string>
#include <utility>

#include "tests/minify/RandomStyle.h"
#include "tests/study/Sources.h"
#include "tests/support/LogCapture.h"
#include "tests/support/StyleBuilder.h"
#include "tests/support/TestStore.h"
#include "tools/minify/EveryMap.h"
#include "tools/study/Mapping.h"
#include "tools/study/StoreDifference.h"
#include "tools/study/StyleStudy.h"

namespace {

using namespace customstyle_tool;
using customstyle_test::LogSilence;
using customstyle_test::QueriesEnabled;
using customstyle_test::rule;

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

bool areSame(const std::string& mapping, const std::string& left, const std::string& right) {
    return !differenceBetween(*storeOf(mapping, left), *storeOf(mapping, right)).any();
}

class EveryMap : public testing::Test {
protected:
    std::pair<std::string, std::string> styles(int rules) {
        const std::string style = customstyle_test::randomStyle(m_random, rules);
        return {style, customstyle_test::withoutOneRule(m_random, style)};
    }

    const LogSilence m_quiet;
    const QueriesEnabled m_enabled;
    std::mt19937 m_random{3};
};

TEST_F(EveryMap, IsSpokenForByAllPairs) {
    int different = 0;
    for (int i = 0; i < 60; ++i) {
        const auto [style, shorter] = styles(6);
        if (areSame(randomMapping(m_random), style, shorter)) continue;
        ++different;
        EXPECT_FALSE(areSame(Mapping::everyMap().text(), style, shorter)) << style;
    }
    EXPECT_GT(different, 10);
}

TEST_F(EveryMap, IsSpokenForByFewerPairsForTheSameRules) {
    int same = 0;
    for (int i = 0; i < 60; ++i) {
        const auto [style, shorter] = styles(8);
        const bool isSame = areSame(Mapping::everyMap().text(), style, shorter);
        same += isSame ? 1 : 0;
        EXPECT_EQ(areSame(mappingFor(minimalRules(customstyle_test::StyleText(style).source())), style, shorter),
                  isSame)
            << style << shorter;
    }
    EXPECT_GT(same, 10);
}

TEST_F(EveryMap, TellsAnIconThatAnotherTypeShows) {
    // Nothing of the first rule is drawn, but where the types share a style id it keeps the icon shown.
    const std::string shadow = rule("highwaylabel", "labels.text.topsurface").color("#0000ff").json();
    const std::string hidden = rule("poilabel", "icon").visibility("off").json();
    const std::string both = "[" + shadow + "," + hidden + "]";
    const std::string mapping = mappingFor(minimalRules(customstyle_test::StyleText(both).source()));
    EXPECT_FALSE(areSame(mapping, both, "[" + hidden + "]"));
    EXPECT_TRUE(areSame(mapping, "[" + shadow + "]", "[]"));
}

}  // namespace
