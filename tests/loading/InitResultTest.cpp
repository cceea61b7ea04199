// What Init does with the rule parser's answer, with a parser of rules in place of the component's.
#include <gtest/gtest.h>

#include "tests/support/LogCapture.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/TestStore.h"

namespace {

int g_answer = 1;
int g_ruleCount = 0;

}  // namespace

namespace _orvik_framework {

int CustomConfig::ParseCustomConfig(const cJSON* root) {
    g_ruleCount = cJSON_GetArraySize(root);
    return g_answer;
}

}  // namespace _orvik_framework

namespace customstyle_test {
namespace {

TEST(InitResult, DoesNotDependOnWhatTheRuleParserAnswers) {
    const LogCapture silent;
    const TemporaryDirectory directory;
    directory.write("CustomIndex", testMapping());
    const std::string style = directory.write("style.json", styleOf({rule("a", "b"), rule("c", "d")}));
    for (const int answer : {1, 0, -1, 2}) {
        g_answer = answer;
        g_ruleCount = 0;
        EXPECT_EQ(CustomConfig().Init(directory.prefix().c_str(), style.c_str()), 1) << answer;
        EXPECT_EQ(g_ruleCount, 2);
    }
}

}  // namespace
}  // namespace customstyle_test
