// The table of codes: every example causes its finding, and the documentation says what the table says.
#include <fmt/format.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "customstyle/FeatureTypeTable.h"
#include "tests/check/CheckedText.h"
#include "tools/check/FindingCodes.h"
#include "tools/check/Report.h"
#include "tools/vocabulary/FeatureTypes.h"

namespace customstyle_test {
namespace {

using namespace customstyle_tool;

// Lists for all types of a mapping except some, each with an id of its own.
std::string mappingMembersWithout(std::initializer_list<std::string_view> excepted) {
    const std::span<const std::string> names = mappedTypeNames();
    std::string members;
    for (std::size_t type = 0; type < names.size(); ++type) {
        if (std::ranges::find(excepted, names[type]) != excepted.end()) continue;
        members += fmt::format(R"({}"{}": [{}])", members.empty() ? "" : ", ", names[type], 10000 + type);
    }
    return members;
}

// Rules for the types "land" to "otherlabel", without "boundary", at each level up to `highest`.
// @param marked  the rule that is marked
// @param most    the maximum number of rules
std::string rulesForLevelsTo(int highest, std::size_t marked, std::size_t most) {
    std::string rules;
    std::size_t count = 0;
    for (const auto& type : _orvik_framework::kFeatureTypes) {
        if (type.labelOwner == _orvik_framework::LabelOwner::Nobody || type.hasFixedWeight) continue;
        for (int level = 4; level <= highest && count < most; ++level) {
            const char* const styler = ++count == marked ? R"(<<"color": "#3366cc">>)" : R"("color": "#3366cc")";
            rules +=
                fmt::format(R"({}{{"featureType": "{}", "elementType": "geometry", "stylers": {{{}, "level": "{}"}}}})",
                            rules.empty() ? "[" : ",\n ", type.name, styler, level);
        }
    }
    return rules + "]";
}

void replaceAll(std::string& text, std::string_view word, const std::string& by) {
    for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + by.size())) {
        text.replace(at, word.size(), by);
    }
}

// The table names in parentheses what is too long or is not text.
std::string expanded(std::string text) {
    replaceAll(text, "(1000 x [)", std::string(1000, '['));
    replaceAll(text, "(FF)", "\xFF");
    replaceAll(text, "(FE)", "\xFE");
    replaceAll(text, R"((every type))", mappingMembersWithout({}));
    replaceAll(text, R"((every type but "water"))", mappingMembersWithout({"water"}));
    replaceAll(text, R"((every type but "nationalwaysign" and "provincialwaysign"))",
               mappingMembersWithout({"nationalwaysign", "provincialwaysign"}));
    replaceAll(text, R"((every type but "green" and "water"))", mappingMembersWithout({"green", "water"}));
    if (text == "(70 types at levels 4 to 18)") return rulesForLevelsTo(18, 993, 1241);
    if (text == "(1,242 rules for as many types and levels)") return rulesForLevelsTo(21, 1242, 1242);
    return text;
}

// A file that causes a finding, and where.
struct Example {
    explicit Example(const CodeInfo& info) : text(expanded(info.example)), mapping(expanded(info.exampleMapping)) {
        place.begin = text.find("<<");
        text.erase(place.begin, 2);
        place.end = text.find(">>");
        text.erase(place.end, 2);
    }

    std::string text;
    TextRange place{};
    std::string mapping;
};

std::vector<CodeInfo> infosWithExample() {
    std::vector<CodeInfo> infos;
    std::ranges::copy_if(codeInfos(), std::back_inserter(infos),
                         [](const CodeInfo& info) { return *info.example != '\0'; });
    return infos;
}

std::string codeName(const testing::TestParamInfo<CodeInfo>& info) {
    std::string name = info.param.name;
    std::ranges::replace(name, '-', '_');
    return name;
}

class CodeExample : public testing::TestWithParam<CodeInfo> {};

TEST_P(CodeExample, HasThatFindingOnlyAndAtItsPlace) {
    const Example example(GetParam());
    const CheckedFile checked = GetParam().has(Trait::Mapping)
                                    ? checkedMapping(example.text)
                                    : checkedStyle(example.text, example.mapping, GetParam().has(Trait::OnRequest));
    // Nothing is hidden without what hides it.
    const std::size_t count = GetParam().code == Code::HiddenByRule ? 2 : 1;
    ASSERT_EQ(checked.findings.size(), count) << testing::PrintToString(codesWithPlaces(checked));
    EXPECT_EQ(infoOf(checked.findings[0].code).name, std::string_view(GetParam().name));
    EXPECT_EQ(checked.findings[0].range, example.place);
    EXPECT_FALSE(checked.findings[0].message.empty());
    EXPECT_FALSE(checked.findings[0].remedy.empty());
}

INSTANTIATE_TEST_SUITE_P(Codes, CodeExample, testing::ValuesIn(infosWithExample()), codeName);

TEST(FindingCodes, HaveAnExampleWhereAFileAloneCanBringThemAbout) {
    std::vector<std::string> names;
    for (const CodeInfo& info : codeInfos()) {
        if (*info.example == '\0') names.emplace_back(info.name);
    }
    EXPECT_THAT(names, testing::ElementsAre("effects-unproven", "other-log-line"));
}

TEST(FindingCodes, HaveNamesOfSmallLettersAndDashesEachOnce) {
    std::set<std::string> names;
    for (const CodeInfo& info : codeInfos()) {
        EXPECT_THAT(info.name, testing::MatchesRegex("[a-z]+(-[a-z]+)*"));
        EXPECT_TRUE(names.insert(info.name).second) << info.name;
    }
}

TEST(FindingCodes, AreFoundByTheirNames) {
    EXPECT_EQ(codeNamed("level-clamped"), Code::LevelClamped);
    EXPECT_EQ(codeNamed("level"), std::nullopt);
}

TEST(FindingCodes, AreDocumentedAsTheTableSays) {
    EXPECT_EQ(contentOf(CUSTOMSTYLE_DOCS_DIR "/check-codes.md"), codesMarkdown())
        << "write it anew: customstyle check --codes-markdown > docs/check-codes.md";
}

TEST(FindingCodes, AreListedWithTheirExamples) {
    const std::string text = codesText();
    for (const CodeInfo& info : codeInfos()) {
        EXPECT_THAT(text, testing::HasSubstr(std::string(info.name) + " (" + std::string(severityName(info.severity))));
    }
    EXPECT_THAT(text, testing::HasSubstr(R"("level": "12-14")"));
    EXPECT_THAT(text, testing::Not(testing::HasSubstr("<<")));
}

}  // namespace
}  // namespace customstyle_test
