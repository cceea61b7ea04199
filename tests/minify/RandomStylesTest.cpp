// What holds for every minified style.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <variant>

#include "tests/minify/RandomStyle.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TestStore.h"
#include "tools/minify/Minifier.h"
#include "tools/study/StoreDifference.h"
#include "tools/study/StyleStudy.h"

namespace {

namespace fs = std::filesystem;
using namespace customstyle_tool;
using customstyle_test::LogSilence;
using customstyle_test::QueriesEnabled;

Minified minifiedStyle(const std::string& style, const std::optional<std::string>& mapping) {
    const SourceFile file("style.json", style);
    return minified(StyleSource(file, std::get<JsonDocument>(parseJson(file.text()))), mapping);
}

std::string contentOf(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::string exampleMapping() {
    return contentOf(fs::path(CUSTOMSTYLE_EXAMPLES) / "map" / "CustomIndex");
}

void expectSameAnswers(const std::string& mapping, const std::string& left, const std::string& right) {
    const LogSilence quiet;
    const QueriesEnabled enabled;
    EXPECT_FALSE(fullDifferenceBetween(*storeOf(mapping, left), *storeOf(mapping, right)).any()) << left << right;
}

void expectSmallAndEqual(const std::string& style, const std::string& mapping) {
    const Minified anywhere = minifiedStyle(style, {});
    expectSameAnswers(mapping, style, anywhere.text);
    const Minified here = minifiedStyle(style, mapping);
    expectSameAnswers(mapping, style, here.text);
    EXPECT_LE(anywhere.text.size(), style.size());
    EXPECT_LE(here.text.size(), anywhere.text.size());
    EXPECT_EQ(minifiedStyle(anywhere.text, {}).text, anywhere.text) << style;
}

TEST(Minified, HasTheAnswersOfTheExampleStyles) {
    const std::string mapping = exampleMapping();
    for (const auto& entry : fs::directory_iterator(fs::path(CUSTOMSTYLE_EXAMPLES) / "styles")) {
        const std::string style = contentOf(entry.path());
        const Minified anywhere = minifiedStyle(style, {});
        expectSameAnswers(mapping, style, anywhere.text);
        EXPECT_LT(anywhere.text.size(), style.size() * 9 / 10) << entry.path();
    }
}

TEST(Minified, HasTheAnswersOfRandomStyles) {
    const std::string mapping = exampleMapping();
    std::mt19937 random(11);
    for (int i = 0; i < 8; ++i) expectSmallAndEqual(customstyle_test::randomStyle(random, 2 * i), mapping);
}

}  // namespace
