#include "tests/explain/Accounts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <tuple>

#include "tests/support/TestStore.h"
#include "tools/study/Answers.h"
#include "tools/vocabulary/Levels.h"

namespace customstyle_test {
namespace {

using customstyle_tool::Explanation;
using customstyle_tool::History;
using customstyle_tool::kMarkField;
using customstyle_tool::kStyleFieldCount;
using customstyle_tool::Origin;
using customstyle_tool::RecordTouch;
using customstyle_tool::styleFields;
using customstyle_tool::StyleStudy;
using customstyle_tool::Write;

using Place = std::tuple<std::size_t, int, int>;  // step, feature type, level or 0
using Counts = std::map<Place, int>;

tagCustomStyle recordOfWinners(const Explanation& explanation) {
    tagCustomStyle record{};
    if (explanation.featureType == -1) return record;
    record.m_ID = static_cast<int>(explanation.styleId);
    for (std::size_t i = 0; i < kStyleFieldCount; ++i) {
        const auto& field = styleFields()[i];
        const History& history = explanation.fields[i];
        if (!history.winner) continue;
        setValue(field, record, history.winner->value);
        if (field.applies != nullptr) record.*field.applies = 1;
    }
    return record;
}

std::optional<std::uint64_t> valueOfBackground(const History& history) {
    if (!history.applies) return {};
    return history.winner ? history.winner->value : 0;
}

Place placeOf(const Write& write) {
    return {write.step, write.featureType, write.level.value_or(0)};
}

Place placeOf(std::size_t step, const RecordTouch& touch) {
    return {step, touch.featureType, touch.level.value_or(0)};
}

bool concerns(const StyleStudy& style, const Explanation& explanation, const RecordTouch& touch) {
    const auto& types = explanation.featureTypes;
    if (std::ranges::find(types, touch.featureType) == types.end()) return false;
    return !touch.level ||
           (*touch.level == explanation.level && style.config().IsStyleEffectAtGivenLevel(touch.key.c_str()) == 1);
}

Counts writesSeen(const StyleStudy& style, const Explanation& explanation, std::size_t field, Origin origin) {
    Counts seen;
    for (std::size_t step = 0; step < style.steps().size(); ++step) {
        for (const RecordTouch& touch : style.steps()[step].touches) {
            if (touch.origins[field] == origin && concerns(style, explanation, touch)) ++seen[placeOf(step, touch)];
        }
    }
    return seen;
}

// A write that a level's styler resets itself shows in the replay as inherited, and is listed as lost.
void expectAccounted(const History& history, const Counts& written, const Counts& inherited) {
    Counts reported;
    if (history.winner) ++reported[placeOf(*history.winner)];
    for (const auto& loss : history.losses) ++reported[placeOf(loss.write)];
    for (const auto& [place, count] : written) EXPECT_EQ(reported[place], 1);
    for (const auto& [place, count] : reported) {
        EXPECT_LE(count, 1);
        EXPECT_TRUE(count == 0 || written.contains(place) || inherited.contains(place));
    }
}

void expectWinnerSeen(const StyleStudy& style, const Explanation& explanation, std::size_t field) {
    const auto& winner = explanation.fields[field].winner;
    if (!winner) return;
    const auto isSame = [&](const RecordTouch& touch) {
        return touch.featureType == winner->featureType && touch.level == winner->level;
    };
    const auto& touches = style.steps()[winner->step].touches;
    const auto touch = std::ranges::find_if(touches, isSame);
    ASSERT_NE(touch, touches.end());
    EXPECT_EQ(touch->origins[field], Origin::Written);
    EXPECT_EQ(valueOf(styleFields()[field], touch->after), winner->value);
}

}  // namespace

void expectWinnersAddUp(const StyleStudy& style, const Explanation& explanation) {
    SCOPED_TRACE("style id " + std::to_string(explanation.styleId) + " level " + std::to_string(explanation.level));
    const auto answer = customstyle_tool::ask(style.config(), explanation.styleId, explanation.level);
    EXPECT_EQ(explanation.featureType, answer.featureType);
    EXPECT_EQ(recordOfWinners(explanation), answer.style);
    EXPECT_EQ(explanation.icon.winner && explanation.icon.winner->value != 0, answer.iconHidden);
    EXPECT_EQ(valueOfBackground(explanation.land), customstyle_tool::landColor(style.config(), explanation.level));
    EXPECT_EQ(valueOfBackground(explanation.grid), customstyle_tool::gridColor(style.config(), explanation.level));
    for (const History& history : explanation.fields) {
        EXPECT_EQ(history.value, history.winner ? history.winner->value : 0);
    }
}

void expectEveryWriteAccounted(const StyleStudy& style, const Explanation& explanation) {
    SCOPED_TRACE("style id " + std::to_string(explanation.styleId) + " level " + std::to_string(explanation.level));
    for (std::size_t field = 0; field < kStyleFieldCount; ++field) {
        expectWinnerSeen(style, explanation, field);
        if (field == kMarkField) continue;
        const Counts written = writesSeen(style, explanation, field, Origin::Written);
        const Counts inherited = writesSeen(style, explanation, field, Origin::Inherited);
        expectAccounted(explanation.fields[field], written, inherited);
    }
}

void expectExplained(const StyleStudy& style, bool everyWrite) {
    const std::vector<unsigned int> mapped = customstyle_tool::mappedStyleIds(style.config());
    std::set<unsigned int> styleIds(mapped.begin(), mapped.end());
    styleIds.insert(987654);
    customstyle_tool::Explainer explainer(style);
    for (const unsigned int styleId : styleIds) {
        for (std::size_t levelClass = 0; levelClass < customstyle_tool::kLevelClassCount; ++levelClass) {
            const Explanation explanation = explainer.explain(styleId, customstyle_tool::levelOfClass(levelClass));
            expectWinnersAddUp(style, explanation);
            if (everyWrite) expectEveryWriteAccounted(style, explanation);
        }
    }
}

}  // namespace customstyle_test
