// What the tools do on several processors at once. Meant to run under ThreadSanitizer; elsewhere it still compares.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "tests/support/StyleBuilder.h"
#include "tools/check/StyleCheck.h"
#include "tools/host/LoadedMap.h"
#include "tools/minify/Minifier.h"
#include "tools/vocabulary/FeatureTypes.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;

// Hands everything on to the processors of this machine, and remembers how much that was.
class CountedSpread {
public:
    Spread spread() {
        const Spread host = hostSpread();
        return {host.lanes, [this, host](std::size_t items, const WorkItem& work) {
                    m_mostItems = std::max(m_mostItems, items);
                    host.run(items, work);
                }};
    }

    std::size_t mostItems() const { return m_mostItems; }

private:
    std::size_t m_mostItems = 0;
};

// For each type at some levels: a rule, one that overwrites it, and one that can be merged with it.
std::shared_ptr<const SourceFile> longStyle(const std::vector<std::string>& levels) {
    std::string text;
    for (const std::string& type : featureTypeNames()) {
        for (const std::string& level : levels) {
            for (const char* color : {"#112233", "#445566"}) {
                text += rule(type, "geometry.fill").color(color).level(level).json() + ",\n";
            }
            text += rule(type, "geometry.fill").weight("3").level(level).json() + ",\n";
        }
    }
    return std::make_shared<const SourceFile>("style.json", "[" + text.substr(0, text.size() - 2) + "]");
}

std::vector<std::string> findingsIn(const std::shared_ptr<const SourceFile>& file, const Spread& spread) {
    const CheckedStyle checked = checkStyle(file, Mapping::everyMap(), {}, spread);
    std::vector<std::string> texts;
    for (const Finding& finding : checked.findings) texts.push_back(finding.path + ": " + finding.message);
    return texts;
}

std::string minifiedText(const SourceFile& file, const Spread& spread) {
    return minified(StyleSource(file, std::get<JsonDocument>(parseJson(file.text()))), {}, spread).text;
}

TEST(CheckOnAllProcessors, FindsTheSameAsOnOne) {
    const auto file = longStyle({"5", "9", "13"});
    CountedSpread counted;
    const std::vector<std::string> findings = findingsIn(file, counted.spread());
    EXPECT_EQ(findings, findingsIn(file, {}));
    EXPECT_FALSE(findings.empty());
    EXPECT_GT(counted.mostItems(), 50U);
}

TEST(MinifyOnAllProcessors, WritesTheSameAsOnOne) {
    const auto file = longStyle({"5"});
    CountedSpread counted;
    const std::string text = minifiedText(*file, counted.spread());
    EXPECT_EQ(text, minifiedText(*file, {}));
    EXPECT_LT(text.size(), file->text().size() / 2);
    EXPECT_GT(counted.mostItems(), 50U);
}

}  // namespace
}  // namespace customstyle_test
