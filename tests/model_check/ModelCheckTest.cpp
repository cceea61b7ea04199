// The component against the model: random styles, compared state by state and answer by answer.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <vector>

#include "tests/model_check/ModelTables.h"
#include "tests/model_check/RandomProgram.h"
#include "tests/model_check/StoreImage.h"
#include "tests/model_check/StyleModel.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TemporaryDirectory.h"
#include "tests/support/TestStore.h"

namespace customstyle_test::model {
namespace {

using testing::IsEmpty;

constexpr unsigned kPrograms = 40;
constexpr int kStepsOfAProgram = 60;

/// The same program run through the component and through the model.
class ModelCheck : public testing::TestWithParam<unsigned> {
protected:
    ModelCheck() {
        for (int type = 0; type <= 71; ++type) {
            const std::vector<int> ids = type == 0 ? std::vector{40} : m_program.styleIds();
            m_model.addStyleIds(type, ids);
            m_mapping += (type == 0 ? "{" : ",") + customstyle_test::quoted(kNames[static_cast<std::size_t>(type)]) +
                         ":" + listOf(ids);
        }
        m_mapping += "}";
    }

    static std::string listOf(const std::vector<int>& ids) {
        std::string json;
        for (const int id : ids) json += (json.empty() ? "" : ",") + std::to_string(id);
        return "[" + json + "]";
    }

    void loadMapping() { ASSERT_EQ(m_config.ParseMappingConfig(parsed(m_mapping).get()), 1); }

    void applyToBoth(const Rule& rule) {
        m_model.apply(rule);
        m_config.ParseCustomConfig(parsed("[" + jsonOf(rule) + "]").get());
        expectSameState(jsonOf(rule));
    }

    void writeToBoth(const Writing& writing) {
        m_model.write(writing);
        writeToComponent(writing);
        expectSameState("a direct write of \"" + writing.element + "\"");
    }

    void writeToComponent(const Writing& w) {
        const _orvik_vi::CVString element(w.element.c_str());
        const int value = static_cast<int>(w.value);
        const std::map<Writer, std::function<void()>> writers = {
            {Writer::GeometryColour,
             [&] { m_config.SetTypeColor(w.featureType, element, w.value, w.allLevels, w.level); }},
            {Writer::TextColour,
             [&] { m_config.SetFontColorStyle(w.featureType, element, w.value, w.allLevels, w.level); }},
            {Writer::Icon,
             [&] { m_config.SetCustomIconInvisible(w.featureType, element, value, w.allLevels, w.level); }},
            {Writer::GeometryWeight,
             [&] { m_config.SetTypeWeight(w.featureType, element, value, w.allLevels, w.level); }},
            {Writer::TextWeight,
             [&] { m_config.SetFontWeightStyle(w.featureType, element, value, w.allLevels, w.level); }},
            {Writer::FontSize,
             [&] {
                 m_config.setFontSizeStyle(w.featureType, element, static_cast<unsigned char>(value), w.allLevels,
                                           w.level);
             }},
        };
        writers.at(w.writer)();
    }

    void expectSameState(const std::string& after) {
        EXPECT_THAT(differences(imageOf(m_model), imageOf(m_config)), IsEmpty()) << "after " << after;
        expectSameLog(after);
    }

    void expectSameLog(const std::string& after) {
        std::vector<std::string> lines;
        for (const std::string& message : m_model.log) lines.push_back("ZRX Custom Map: " + message);
        m_model.log.clear();
        EXPECT_EQ(m_log.take(), lines) << "after " << after;
    }

    void expectSameAnswers(unsigned styleId, int level) {
        tagCustomStyle style{};
        const auto [type, record] = m_model.findStyle(styleId, level);
        EXPECT_EQ(m_config.GetStyleFromConfig(style, styleId, level), type) << styleId << " at " << level;
        if (record != nullptr) {
            EXPECT_EQ(fieldsOf(style), *record) << styleId << " at " << level;
        }
        EXPECT_EQ(m_config.IsCustomizedIconVisible(styleId, level), m_model.isIconHidden(styleId, level) ? 1 : 0)
            << styleId << " at " << level;
    }

    void expectSameBackgrounds(int level) {
        std::uint64_t colour = 5;
        EXPECT_EQ(m_config.IsCustomGridBackRegionEnable(colour, level), m_model.gridColour ? 1 : 0);
        EXPECT_EQ(colour, m_model.gridColour.value_or(5));
        // The mapping gives land one style id, and no other type has it.
        const auto [type, land] = m_model.findStyle(40, level);
        colour = 5;
        EXPECT_EQ(m_config.IsCustomBackRegionEnable(colour, level), type == 0 ? 1 : 0);
        if (type == 0) {
            EXPECT_EQ(colour, land->contains("fillColor") ? land->at("fillColor") : 0);
        }
    }

    LogCapture m_log;
    StyleModel m_model;
    CustomConfig m_config;
    RandomProgram m_program{GetParam()};
    std::string m_mapping;
};

TEST_P(ModelCheck, RulesLeaveTheSameStateOneByOne) {
    loadMapping();
    for (int step = 0; step < kStepsOfAProgram && !HasFailure(); ++step) applyToBoth(m_program.rule());
}

TEST_P(ModelCheck, WritersLeaveTheSameStateOneByOne) {
    loadMapping();
    for (int step = 0; step < kStepsOfAProgram && !HasFailure(); ++step) writeToBoth(m_program.writing());
}

TEST_P(ModelCheck, FilesLeaveTheSameStateLogAndAnswers) {
    std::string style;
    for (int step = 0; step < kStepsOfAProgram; ++step) {
        const Rule rule = m_program.rule();
        m_model.apply(rule);
        style += (style.empty() ? "[" : ",\n") + jsonOf(rule);
    }
    const TemporaryDirectory directory;
    directory.write("CustomIndex", m_mapping);
    const std::string path = directory.write("style.json", style + "]");
    EXPECT_EQ(m_config.Init(directory.prefix().c_str(), path.c_str()), 1);
    expectSameState(style);
    const QueriesEnabled enabled;
    for (int level = 3; level <= 22; ++level) {
        expectSameBackgrounds(level);
        for (int question = 0; question < 20; ++question) expectSameAnswers(m_program.styleId(), level);
    }
}

/// A rule as a host may make it by hand: its strings and names are the host's own, and members without a name stand
/// between the named ones.
class HandMadeRules {
public:
    explicit HandMadeRules(unsigned seed) : m_random(seed) {}

    cJSON* tree(const Rule& rule) {
        cJSON* const node = object(rule.frame);
        cJSON* const stylers = rule.stylers ? object(*rule.stylers) : cJSON_CreateArray();
        cJSON_AddItemToObjectCS(node, "stylers", stylers);
        return node;
    }

private:
    cJSON* object(const Members& members) {
        cJSON* const node = cJSON_CreateObject();
        for (const auto& [name, value] : members) {
            if (m_random() % 3 == 0) cJSON_AddItemToArray(node, cJSON_CreateString("#123456"));
            cJSON_AddItemToObjectCS(node, name.c_str(),
                                    value.text ? cJSON_CreateStringReference(value.text->c_str())
                                               : cJSON_CreateRaw(value.otherJson.c_str()));
        }
        cJSON_AddItemToArray(node, cJSON_CreateObject());
        return node;
    }

    std::mt19937 m_random;
};

TEST_P(ModelCheck, TreesMadeByHandLeaveTheSameState) {
    loadMapping();
    std::vector<Rule> rules(kStepsOfAProgram);
    std::ranges::generate(rules, [this] { return m_program.rule(); });
    const Tree root(cJSON_CreateArray());
    HandMadeRules handMade(GetParam());
    for (const Rule& rule : rules) {
        m_model.apply(rule);
        cJSON_AddItemToArray(root.get(), handMade.tree(rule));
    }
    EXPECT_EQ(m_config.ParseCustomConfig(root.get()), 1);
    expectSameState("rules made by hand");
}

INSTANTIATE_TEST_SUITE_P(Programs, ModelCheck, testing::Range(0U, kPrograms));

// ---- More keys than slots -------------------------------------------------------------------------------------------

class FullModelCheck : public ModelCheck {};

TEST_P(FullModelCheck, KeysBeyondTheSlotsAreRefusedAlike) {
    loadMapping();
    for (int key = 0; key < 73 * 19; ++key) {
        const int type =
            (key * 7 + static_cast<int>(GetParam())) % 73;  // every type in turn, at one level after another
        const int level = 3 + key / 73;
        const Writing writing{Writer::GeometryColour, type, "fill", 255, level == 3 ? 1 : 0, level};
        m_model.write(writing);
        writeToComponent(writing);
    }
    EXPECT_EQ(m_model.keys.size(), 1241U);
    expectSameState("a write through every key");
    for (int step = 0; step < 10; ++step) applyToBoth(m_program.rule());
    const QueriesEnabled enabled;
    for (int level = 3; level <= 22; ++level) expectSameAnswers(m_program.styleId(), level);
}

INSTANTIATE_TEST_SUITE_P(Programs, FullModelCheck, testing::Range(0U, 5U));

}  // namespace
}  // namespace customstyle_test::model
