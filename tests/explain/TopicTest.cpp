#include <gtest/gtest.h>

#include "tests/support/CaseName.h"
#include "tools/explain/ExplanationText.h"
#include "tools/support/Spelling.h"

namespace customstyle_test {
namespace {

struct NameCase {
    const char* name;
    const char* written;
    const char* nearest;  // empty for none
};

class NearestTopic : public testing::TestWithParam<NameCase> {};

TEST_P(NearestTopic, IsTheOneWithTheFewestChanges) {
    EXPECT_EQ(customstyle_tool::nearestTopic(GetParam().written).value_or(""), GetParam().nearest);
}

INSTANTIATE_TEST_SUITE_P(FieldNames, NearestTopic,
                         testing::Values(NameCase{"ALetterTooMany", "filll", "fill"},
                                         NameCase{"ALetterTooFew", "strok", "stroke"},
                                         NameCase{"AWrongLetter", "text-fyll", "text fill"},
                                         NameCase{"SomeWrongLettersOfMany", "text_strike_wait", "text stroke weight"},
                                         NameCase{"NothingNear", "opacity", ""},  //
                                         NameCase{"NoLetters", "", ""}),
                         caseName);

TEST(Topic, IsFoundWithBlanksHyphensAndUnderscores) {
    const customstyle_tool::TopicName* topic = customstyle_tool::findTopic("text fill weight");
    ASSERT_NE(topic, nullptr);
    EXPECT_EQ(customstyle_tool::findTopic("text-fill-weight"), topic);
    EXPECT_EQ(customstyle_tool::findTopic("text_fill_weight"), topic);
}

}  // namespace
}  // namespace customstyle_test
