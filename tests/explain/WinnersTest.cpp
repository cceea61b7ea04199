// The winners of an explanation are what the component answers, for every style id at every level.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/explain/Accounts.h"
#include "tests/study/LoadedText.h"
#include "tests/support/RandomFiles.h"
#include "tests/support/TestStore.h"

namespace customstyle_test {
namespace {

std::string contentOf(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

class ExampleStyle : public testing::TestWithParam<const char*> {};

std::string exampleName(const testing::TestParamInfo<const char*>& example) {
    std::string name = example.param;
    std::erase(name, '-');
    return name;
}

TEST_P(ExampleStyle, IsExplained) {
    const QueriesEnabled enabled;
    const std::filesystem::path examples = CUSTOMSTYLE_EXAMPLES_DIR;
    const auto style = loadedText(contentOf(examples / "map" / "CustomIndex"),
                                  contentOf(examples / "styles" / (std::string(GetParam()) + ".json")));
    expectExplained(*style, false);
}

INSTANTIATE_TEST_SUITE_P(Examples, ExampleStyle,
                         testing::Values("main-roads", "mistakes", "night", "no-labels", "pale", "transit"),
                         exampleName);

class RandomStyle : public testing::TestWithParam<unsigned> {};

TEST_P(RandomStyle, IsExplained) {
    const QueriesEnabled enabled;
    RandomFiles files(GetParam());
    const std::string mapping = files.mapping();
    std::string rules;
    for (int count = 20 + files.below(60); count > 0; --count) rules += (rules.empty() ? "" : ",\n") + files.rule();
    expectExplained(*loadedText(mapping, "[" + rules + "]"), true);
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomStyle, testing::Range(0u, 12u));

// Few types and elements, so that rules meet: resets, refused writes and companions on the same records.
TEST_P(RandomStyle, WhoseRulesMeetIsExplained) {
    const QueriesEnabled enabled;
    RandomFiles files(GetParam() + 1000);
    const char* const types[] = {"land", "manmade", "education", "highway", "highwaylabel", "poilabel", "all", "grid"};
    const char* const elements[] = {
        "all", "labels", "geometry", "geometry.fill", "labels.text.topsurface", "labels.text.stroke", "labels.icon"};
    std::string rules;
    for (int count = 40; count > 0; --count) {
        RuleBuilder one = rule(types[files.below(files.oneIn(5) ? 8 : 6)], elements[files.below(7)]);
        if (files.oneIn(2)) one.color("#" + std::to_string(100000 + files.below(900000)));
        if (files.oneIn(3)) one.visibility(files.oneIn(2) ? "off" : "on");
        if (files.oneIn(3)) one.weight(std::to_string(files.below(300)));
        if (files.oneIn(3)) one.fontsize(std::to_string(files.below(300)));
        if (files.oneIn(2)) one.level(std::to_string(10 + files.below(2)));
        rules += (rules.empty() ? "" : ",\n") + one.json();
    }
    expectExplained(*loadedText(files.mapping(), "[" + rules + "]"), true);
}

}  // namespace
}  // namespace customstyle_test
