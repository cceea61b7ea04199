// A difference names exactly the answers that change: compared with a slow search through all of them.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <tuple>
#include <utility>
#include <vector>

#include "tests/study/LoadedText.h"
#include "tests/support/RandomFiles.h"
#include "tests/support/RecordTable.h"
#include "tests/support/TestStore.h"
#include "tools/diff/StyleDiff.h"
#include "tools/explain/Explainer.h"

namespace customstyle_test {
namespace {

using customstyle_tool::JoinedChange;
using customstyle_tool::StyleStudy;
using customstyle_tool::Subject;

using Value = std::optional<std::uint64_t>;
using Where = std::tuple<Subject, std::size_t, std::int64_t, int>;  // question, style id (below 0: background), level
using Changes = std::map<Where, std::pair<Value, Value>>;

constexpr std::int64_t kLand = -1;
constexpr std::int64_t kGrid = -2;
constexpr std::int64_t kUnmapped = -3;
constexpr unsigned int kUnmappedId = 123456;
constexpr std::size_t kIconFlag = kRecordFields.size();  // as a field, after those with a value

// A style id's answers, as the component gives them, by question.
using Answers = std::map<std::pair<Subject, std::size_t>, Value>;

Answers answersOf(const CustomConfig& config, unsigned int styleId, int level) {
    tagCustomStyle s{};
    const int type = config.GetStyleFromConfig(s, styleId, level);
    Answers answers;
    for (std::size_t place = 0; place < kIconFlag; ++place) {
        const RecordField& field = kRecordFields[place];
        answers[{Subject::Field, place}] = s.*field.applies == 1 ? Value(valueIn(s, field)) : Value();
    }
    answers[{Subject::Field, kIconFlag}] = s.m_iconHidden == 1 ? Value(1) : Value();
    answers[{Subject::FeatureType, 0}] = type == -1 ? Value() : Value(static_cast<std::uint64_t>(type));
    answers[{Subject::Icon, 0}] = static_cast<std::uint64_t>(config.IsCustomizedIconVisible(styleId, level));
    return answers;
}

// A change of the type, and of the icon flag in the record, counts only where it says something new.
void dropWhatGoesWithoutSaying(std::map<std::pair<Subject, std::size_t>, std::pair<Value, Value>>& changes) {
    const bool icon = changes.contains({Subject::Icon, 0});
    if (icon) changes.erase({Subject::Field, kIconFlag});
    const auto type = changes.find({Subject::FeatureType, 0});
    if (type == changes.end() || (type->second.first && type->second.second)) return;
    const auto isField = [](const auto& change) { return change.first.first == Subject::Field; };
    if (icon || std::any_of(changes.begin(), changes.end(), isField)) changes.erase(type);
}

void compareStyleId(Changes& found, const CustomConfig& a, const CustomConfig& b, unsigned int styleId, int level) {
    const Answers before = answersOf(a, styleId, level);
    const Answers after = answersOf(b, styleId, level);
    std::map<std::pair<Subject, std::size_t>, std::pair<Value, Value>> changes;
    for (const auto& [question, value] : before) {
        if (value != after.at(question)) changes[question] = {value, after.at(question)};
    }
    dropWhatGoesWithoutSaying(changes);
    for (const auto& [question, change] : changes) {
        const std::int64_t id = styleId == kUnmappedId ? kUnmapped : std::int64_t{styleId};
        found[{question.first, question.second, id, level}] = change;
    }
}

Value landOf(const CustomConfig& config, int level) {
    std::uint64_t color = 0;
    if (config.IsCustomBackRegionEnable(color, level) == 0) return {};
    return color;
}

Value gridOf(const CustomConfig& config, int level) {
    std::uint64_t color = 0;
    if (config.IsCustomGridBackRegionEnable(color, level) == 0) return {};
    return color;
}

void compareBackgrounds(Changes& found, const CustomConfig& a, const CustomConfig& b, int level) {
    const std::pair land(landOf(a, level), landOf(b, level));
    if (land.first != land.second) found[{Subject::Background, 0, kLand, level}] = land;
    const std::pair grid(gridOf(a, level), gridOf(b, level));
    if (grid.first != grid.second) found[{Subject::Background, 0, kGrid, level}] = grid;
}

Changes searched(const StyleStudy& a, const StyleStudy& b) {
    Changes found;
    std::vector<unsigned int> styleIds = a.mapping().questionIds();
    styleIds.push_back(kUnmappedId);
    for (const int level : {0, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16, 17, 18, 19, 20, 21}) {
        compareBackgrounds(found, a.config(), b.config(), level);
        for (const unsigned int id : styleIds) {
            compareStyleId(found, a.config(), b.config(), id, level);
        }
    }
    return found;
}

std::vector<std::int64_t> idsOf(const JoinedChange& change) {
    if (change.change.question.subject == Subject::Background) return {change.featureType == 0 ? kLand : kGrid};
    if (change.featureType == customstyle_tool::kNoType) return {kUnmapped};
    return {change.styleIds.begin(), change.styleIds.end()};
}

Changes spreadOut(const std::vector<JoinedChange>& joined) {
    Changes found;
    for (const JoinedChange& each : joined) {
        for (const std::int64_t id : idsOf(each)) {
            for (std::size_t levelClass = 0; levelClass < customstyle_tool::kLevelClassCount; ++levelClass) {
                if (!each.levels[levelClass]) continue;
                const auto& [subject, field] = each.change.question;
                const Where where{subject, field, id, customstyle_tool::levelOfClass(levelClass)};
                const bool isNew = found.try_emplace(where, each.change.before, each.change.after).second;
                EXPECT_TRUE(isNew) << "reported twice: style id " << id;
            }
        }
    }
    return found;
}

// Prints what is in one of them only, since whole maps are too long to read.
void expectSame(const Changes& reported, const Changes& found) {
    Changes superfluous;
    Changes missing;
    std::set_difference(reported.begin(), reported.end(), found.begin(), found.end(),
                        std::inserter(superfluous, superfluous.end()));
    std::set_difference(found.begin(), found.end(), reported.begin(), reported.end(),
                        std::inserter(missing, missing.end()));
    EXPECT_TRUE(superfluous.empty()) << testing::PrintToString(superfluous);
    EXPECT_TRUE(missing.empty()) << testing::PrintToString(missing);
}

std::string listOf(const std::vector<std::string>& rules) {
    std::string text;
    for (const std::string& each : rules) text += (text.empty() ? "[" : ",\n") + each;
    return text.empty() ? "[]" : text + "]";
}

// Leaves rules out, exchanges others and puts new ones in.
std::vector<std::string> changed(const std::vector<std::string>& rules, RandomFiles& files) {
    std::vector<std::string> result;
    for (const std::string& each : rules) {
        if (files.oneIn(8)) continue;
        result.push_back(files.oneIn(8) ? files.rule() : each);
        if (files.oneIn(12)) result.push_back(files.rule());
    }
    return result;
}

class RandomPair : public testing::TestWithParam<unsigned> {
protected:
    RandomPair() : m_files(GetParam()), m_mapping(m_files.mapping()) {
        std::vector<std::string> rules;
        for (int count = 10 + m_files.below(50); count > 0; --count) rules.push_back(m_files.rule());
        m_before = loadedText(m_mapping, listOf(rules));
        m_after = loadedText(m_mapping, listOf(changed(rules, m_files)));
    }

    const QueriesEnabled m_enabled;
    RandomFiles m_files;
    std::string m_mapping;
    std::unique_ptr<StyleStudy> m_before;
    std::unique_ptr<StyleStudy> m_after;
};

TEST_P(RandomPair, DiffersInExactlyTheAnswersThatASearchFinds) {
    expectSame(spreadOut(differenceOf(*m_before, *m_after)), searched(*m_before, *m_after));
}

TEST_P(RandomPair, DiffersInTheSameAnswersTheOtherWayRound) {
    Changes back;
    for (const auto& [where, values] : spreadOut(differenceOf(*m_after, *m_before))) {
        back[where] = {values.second, values.first};
    }
    expectSame(back, spreadOut(differenceOf(*m_before, *m_after)));
}

// The rule, from 1, whose value a style id has in a field at the first of some levels; 0 for none.
std::size_t ruleBehind(customstyle_tool::Explainer& explainer, const JoinedChange& change) {
    std::size_t levelClass = 0;
    while (!change.levels[levelClass]) ++levelClass;
    const auto explanation = explainer.explain(change.styleIds.back(), customstyle_tool::levelOfClass(levelClass));
    const auto& winner = explanation.fields[change.change.question.field].winner;
    return winner ? explainer.step(winner->step).rule + 1 : 0;
}

TEST_P(RandomPair, NamesTheRulesThatAnExplanationNames) {
    customstyle_tool::Explainer explainer(*m_after);
    for (const JoinedChange& each : differenceOf(*m_before, *m_after)) {
        if (each.change.question.subject != Subject::Field || each.styleIds.empty()) continue;
        EXPECT_EQ(each.change.afterBy ? each.change.afterBy->rule : 0, ruleBehind(explainer, each));
    }
}

TEST_P(RandomPair, OfAStyleAndItselfDiffersInNothing) {
    EXPECT_TRUE(differenceOf(*m_before, *m_before).empty());
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomPair, testing::Range(0u, 12u));

std::string contentOf(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

const std::filesystem::path kExamples = CUSTOMSTYLE_EXAMPLES_DIR;

std::unique_ptr<StyleStudy> example(const std::string& name) {
    return loadedText(contentOf(kExamples / "map" / "CustomIndex"), contentOf(kExamples / "styles" / (name + ".json")));
}

class ExamplePair : public testing::TestWithParam<const char*> {};

TEST_P(ExamplePair, DiffersInExactlyTheAnswersThatASearchFinds) {
    const QueriesEnabled enabled;
    const auto before = example("night");
    const auto after = example(GetParam());
    const Changes found = searched(*before, *after);
    EXPECT_EQ(found.empty(), std::string(GetParam()) == "night");
    expectSame(spreadOut(differenceOf(*before, *after)), found);
}

INSTANTIATE_TEST_SUITE_P(Examples, ExamplePair, testing::Values("night", "mistakes", "pale"));

}  // namespace
}  // namespace customstyle_test
