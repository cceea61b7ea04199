// Colours beside their numbers: in terminals only.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstdlib>
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

// Puts a terminal in the place of standard output.
class TerminalOutput {
public:
    TerminalOutput() : m_saved(dup(STDOUT_FILENO)), m_terminal(posix_openpt(O_RDWR | O_NOCTTY)) {
        if (m_saved == -1 || m_terminal == -1 || dup2(m_terminal, STDOUT_FILENO) == -1) std::abort();
    }
    ~TerminalOutput() {
        dup2(m_saved, STDOUT_FILENO);
        close(m_saved);
        close(m_terminal);
        unsetenv("NO_COLOR");
    }
    TerminalOutput(const TerminalOutput&) = delete;
    TerminalOutput& operator=(const TerminalOutput&) = delete;

private:
    int m_saved;
    int m_terminal;
};

Swatches swatchesInTerminal(const char* noColor) {
    const TerminalOutput terminal;
    noColor == nullptr ? unsetenv("NO_COLOR") : setenv("NO_COLOR", noColor, 1);
    return customstyle_tool::swatchesForOutput();
}

TEST(SwatchesForOutput, AreShownInATerminal) {
    EXPECT_EQ(swatchesInTerminal(nullptr), Swatches::Shown);
}

TEST(SwatchesForOutput, AreNotShownWhereTheAuthorWantsNoColour) {
    EXPECT_EQ(swatchesInTerminal("1"), Swatches::None);
}

TEST(SwatchesForOutput, AreShownWhereTheVariableIsEmpty) {
    EXPECT_EQ(swatchesInTerminal(""), Swatches::Shown);
}

}  // namespace
}  // namespace customstyle_test
