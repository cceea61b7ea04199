// Colours beside their numbers.
#include <gtest/gtest.h>

#include <string>

#include "tests/study/LoadedText.h"
#include "tests/support/TestStore.h"
#include "tools/explain/ExplanationText.h"

namespace customstyle_test {
namespace {

using customstyle_tool::Swatches;

std::string textOf(const RuleBuilder& one, const char* topic, Swatches swatches) {
    const QueriesEnabled enabled;
    const auto style = loadedText(testMapping(), styleOf({one}));
    customstyle_tool::Explainer explainer(*style);
    const auto explanation = explainer.explain(firstStyleId(13), 10);
    return topicText(explainer, explanation, *customstyle_tool::findTopic(topic), swatches);
}

std::string firstLine(const std::string& text) {
    return text.substr(0, text.find('\n'));
}

TEST(Swatch, IsABlockInTheColour) {
    const std::string text = textOf(rule("highway", "geometry.fill").color("#112233"), "fill", Swatches::Shown);
    EXPECT_EQ(firstLine(text), "fill                \033[48;2;17;34;51m  \033[0m #112233 alpha ff");
}

TEST(Swatch, IsLeftOutOfPlainText) {
    const std::string text = textOf(rule("highway", "geometry.fill").color("#112233"), "fill", Swatches::None);
    EXPECT_EQ(firstLine(text), "fill                #112233 alpha ff");
}

TEST(Swatch, IsLeftOutWhereNothingIsVisible) {
    const std::string text = textOf(rule("highway", "geometry.fill").color("#11223300"), "fill", Swatches::Shown);
    EXPECT_EQ(firstLine(text), "fill                #112233 alpha 00 (invisible)");
}

TEST(Swatch, IsLeftOutOfNumbers) {
    const std::string text = textOf(rule("highway", "geometry.fill").weight("7"), "fill weight", Swatches::Shown);
    EXPECT_EQ(firstLine(text), "fill weight         7");
}

TEST(ExplanationText, ShowsControlCharactersOfTheFileAsEscapes) {
    const std::string text =
        textOf(rule("highway", "geometry.fill").styler("color", "\"#112233\x1b[2J\""), "fill", Swatches::None);
    EXPECT_EQ(text.find('\x1b'), std::string::npos);
    EXPECT_NE(text.find("\\u001b[2J"), std::string::npos);
}

}  // namespace
}  // namespace customstyle_test
