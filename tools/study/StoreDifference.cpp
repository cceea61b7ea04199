#include "tools/study/StoreDifference.h"

#include <algorithm>
#include <limits>
#include <string>

#include "customstyle/StoredRecords.h"
#include "tools/study/Answers.h"
#include "tools/study/StoreImage.h"
#include "tools/study/StoreKeys.h"
#include "tools/study/StyleKey.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;
using _orvik_framework::CVMapPtrToPtr;
using _orvik_framework::tagCustomStyle;

// Stored ids have 31 bits, so that this one is in no store.
constexpr unsigned int kNeverListed = std::numeric_limits<unsigned int>::max();

LevelSet allLevels() {
    return LevelSet().set();
}

// The levels at which a key can be the one in effect.
LevelSet levelsOfKey(const std::string& key) {
    const std::optional<int> level = parsedKey(key).level;
    return level ? LevelSet().set(classOfLevel(*level)) : allLevels();
}

// The questions that the records of a key in `config` answer differently from those in `other`.
void addQuestionsOfKey(LevelsByStyleId& questions, const std::string& key, const CVMapPtrToPtr& slot,
                       const CVMapPtrToPtr* otherSlot) {
    const LevelSet levels = levelsOfKey(key);
    forEachSlotRecord(slot, [&](int styleId, const tagCustomStyle& record) {
        const tagCustomStyle* other =
            otherSlot == nullptr ? nullptr
                                 : _orvik_framework::findRecord(*otherSlot, _orvik_framework::storedKey(styleId));
        if (other == nullptr || !sameFields(record, *other)) questions[static_cast<unsigned int>(styleId)] |= levels;
    });
}

void addQuestions(LevelsByStyleId& questions, const CustomConfig& config, const CustomConfig& other,
                  std::optional<int> level) {
    for (const auto& [key, slot] : config.m_keyStyleMaps) {
        if (level && parsedKey(key).level != level) continue;
        addQuestionsOfKey(questions, key, *slot, slotOf(other, key));
    }
}

LevelsByStyleId everyQuestion(const CustomConfig& config) {
    LevelsByStyleId questions;
    for (const unsigned int styleId : mappedStyleIds(config)) questions[styleId] = allLevels();
    unsigned int unlisted = 0;  // what holds for every icon holds for style ids that the mapping does not list, too
    while (questions.contains(unlisted)) ++unlisted;
    questions[unlisted] = allLevels();
    return questions;
}

// Whether the answers about a style id differ at some of the levels.
bool compareStyleId(Effect& effect, const CustomConfig& left, const CustomConfig& right, unsigned int styleId,
                    const LevelSet& levels, bool isOneEnough) {
    bool isChanged = false;
    for (std::size_t levelClass = 0; levelClass < kLevelClassCount; ++levelClass) {
        if (!levels[levelClass]) continue;
        const int level = levelOfClass(levelClass);
        isChanged |= addDifference(effect, levelClass, ask(left, styleId, level), ask(right, styleId, level));
        if (isChanged && isOneEnough) return true;
    }
    return isChanged;
}

Effect compare(const CustomConfig& left, const CustomConfig& right, const LevelsByStyleId& questions) {
    Effect effect;
    for (const auto& [styleId, levels] : questions) {
        effect.styleIds += compareStyleId(effect, left, right, styleId, levels, false) ? 1 : 0;
    }
    compareBackgrounds(effect, left, right);
    return effect;
}

}  // namespace

bool addDifference(Effect& effect, std::size_t levelClass, const Answer& left, const Answer& right) {
    const bool style = !isSameStyle(left, right);
    const bool icon = left.iconHidden != right.iconHidden;
    if (style) effect.styles.set(levelClass);
    if (icon) effect.icons.set(levelClass);
    return style || icon;
}

void compareBackgrounds(Effect& effect, const CustomConfig& left, const CustomConfig& right) {
    for (std::size_t levelClass = 0; levelClass < kLevelClassCount; ++levelClass) {
        const int level = levelOfClass(levelClass);
        effect.land[levelClass] = landColor(left, level) != landColor(right, level);
        effect.grid[levelClass] = gridColor(left, level) != gridColor(right, level);
    }
}

LevelsByStyleId openQuestions(const CustomConfig& left, const CustomConfig& right, std::optional<int> level) {
    LevelsByStyleId questions;
    addQuestions(questions, left, right, level);
    addQuestions(questions, right, left, level);
    return questions;
}

bool isAnsweredAlike(const CustomConfig& left, const CustomConfig& right, const LevelsByStyleId& questions) {
    Effect effect;
    if (compareStyleId(effect, left, right, kNeverListed, LevelSet().set(kOtherLevels), true)) return false;
    for (const auto& [styleId, levels] : questions) {
        if (compareStyleId(effect, left, right, styleId, levels, true)) return false;
    }
    compareBackgrounds(effect, left, right);
    return !effect.any();
}

Effect differenceBetween(const CustomConfig& left, const CustomConfig& right) {
    const bool isEveryIcon = left.m_allIconsHidden != right.m_allIconsHidden;
    return compare(left, right, isEveryIcon ? everyQuestion(left) : openQuestions(left, right));
}

Effect fullDifferenceBetween(const CustomConfig& left, const CustomConfig& right) {
    return compare(left, right, everyQuestion(left));
}

}  // namespace customstyle_tool
