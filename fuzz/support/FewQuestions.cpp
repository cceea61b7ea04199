#include "customstyle/StyleSnapshot.h"
#include "fuzz/support/Inspection.h"
#include "fuzz/support/Require.h"
#include "tests/support/TestStore.h"

namespace customstyle_fuzz {

using _orvik_framework::CustomConfig;
using _orvik_framework::tagCustomStyle;

namespace {

constexpr unsigned kIds[] = {1, customstyle_test::firstStyleId(13), 0xffffffff};
constexpr int kLevels[] = {0, 12};

template <typename Ask>
void forFewQuestions(Ask ask) {
    const customstyle_test::QueriesEnabled on;
    for (const unsigned id : kIds)
        for (const int level : kLevels) ask(id, level);
}

}  // namespace

void inspect(const CustomConfig& config) {
    const _orvik_framework::StyleSnapshot snapshot(config);
    forFewQuestions([&](unsigned id, int level) {
        tagCustomStyle expected{};
        tagCustomStyle actual{};
        require(config.GetStyleFromConfig(expected, id, level) == snapshot.GetStyleFromConfig(actual, id, level) &&
                    expected == actual &&
                    config.IsCustomizedIconVisible(id, level) == snapshot.IsCustomizedIconVisible(id, level),
                "class and snapshot agree");
    });
}

void inspectLoaded(const CustomConfig& config) {
    require(static_cast<std::size_t>(config.m_usedLevelSlots) == config.m_keyStyleMaps.size(), "a slot for each key");
    forFewQuestions([&](unsigned id, int level) {
        tagCustomStyle style{};
        const int type = config.GetStyleFromConfig(style, id, level);
        require(type == -1 || static_cast<unsigned>(style.m_ID) == id, "the record of the id, or none");
    });
}

}  // namespace customstyle_fuzz
