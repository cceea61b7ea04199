// What holds for the layout of every document.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <variant>
#include <vector>

#include "tools/layout/Layout.h"
#include "tools/minify/Compact.h"

namespace {

namespace fs = std::filesystem;
using namespace customstyle_tool;

JsonDocument parsedText(const std::string& text) {
    return std::get<JsonDocument>(parseJson(text));
}

void expectInvariants(const std::string& text) {
    const JsonDocument document = parsedText(text);
    const std::string once = laidOut(document);
    const JsonDocument again = parsedText(once);
    EXPECT_EQ(compactText(again), compactText(document)) << text;
    EXPECT_EQ(laidOut(again), once) << text;
    EXPECT_FALSE(again.ignoredTextBegin()) << text;
}

class RandomDocument {
public:
    explicit RandomDocument(unsigned seed) : m_random(seed) {}

    std::string value(int depth) {
        const int kind = below(depth > 3 ? 3 : 6);
        if (kind == 0) return scalar();
        if (kind < 3) return quoted();
        return kind == 3 ? list(depth) : object(depth);
    }

private:
    int below(int bound) { return static_cast<int>(m_random() % static_cast<unsigned>(bound)); }

    std::string blanks() {
        static const char* const kBlanks[] = {"", "", "", " ", "\n", "\n\n", "\r\n", "\r\n \r\n", "\t", "\x01"};
        return kBlanks[below(std::size(kBlanks))];
    }

    std::string scalar() {
        static const char* const kScalars[] = {"null", "true", "false", "0", "-1.50", "1E5", "007"};
        return kScalars[below(std::size(kScalars))];
    }

    std::string quoted() {
        static const char* const kPieces[] = {"a", "stylers", "é", "\\u00e9", "\\n", "\n", "\\\"", ", ", "漢", "\xff"};
        std::string text = "\"";
        for (int i = below(40); i > 0; --i) text += kPieces[below(std::size(kPieces))];
        return text + "\"";
    }

    std::string list(int depth) {
        std::string text = "[" + blanks();
        for (int i = below(5); i > 0; --i) text += value(depth + 1) + blanks() + (i > 1 ? "," + blanks() : "");
        return text + "]";
    }

    std::string object(int depth) {
        std::string text = "{" + blanks();
        for (int i = below(5); i > 0; --i) {
            text += quoted() + blanks() + ":" + blanks() + value(depth + 1) + blanks() + (i > 1 ? "," + blanks() : "");
        }
        return text + "}";
    }

    std::mt19937 m_random;
};

TEST(LayoutInvariants, HoldForRandomDocuments) {
    for (unsigned seed = 0; seed < 3000; ++seed) expectInvariants(RandomDocument(seed).value(0));
}

TEST(LayoutInvariants, HoldAtTheDeepestNesting) {
    expectInvariants(std::string(1000, '[') + std::string(1000, ']'));
}

std::vector<std::string> exampleStyles() {
    std::vector<std::string> texts;
    for (const auto& entry : fs::directory_iterator(fs::path(CUSTOMSTYLE_EXAMPLES) / "styles")) {
        std::ifstream stream(entry.path(), std::ios::binary);
        texts.emplace_back(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
    }
    return texts;
}

TEST(LayoutInvariants, HoldForTheExampleStyles) {
    const std::vector<std::string> styles = exampleStyles();
    ASSERT_FALSE(styles.empty());
    for (const std::string& text : styles) expectInvariants(text);
}

}  // namespace
