// What check says of effects, of levels, and of records out of use.
#include <algorithm>
#include <iterator>

#include "tests/model_check/ModelTables.h"
#include "tests/properties/Reasons.h"
#include "tests/support/RecordTable.h"

namespace customstyle_test::properties {
namespace {

using model::Records;
using model::StyleModel;

// What check calls a field, and what the model does.
std::map<std::string, std::string> modelFields() {
    std::map<std::string, std::string> fields = {{"icon", "iconHidden"}};
    for (const RecordField& field : kRecordFields) fields[field.tools] = field.member;
    return fields;
}

const std::map<std::string, std::string> kFields = modelFields();

// The records that answer for a type at a level; null for none.
const Records* inEffect(const StyleModel& model, int type, std::size_t levelClass) {
    auto found = model.slots.find(keyOf(type, levelClass));
    if (found == model.slots.end()) found = model.slots.find(std::to_string(type));
    return found == model.slots.end() ? nullptr : &found->second;
}

// The style ids of a type that a question can find.
std::vector<int> idsOf(const CheckedStyle& style, int type) {
    std::vector<int> ids;
    if (!style.hasRecords(type)) return ids;
    for (const auto& [id, record] : style.answers().model().base.at(type)) {
        if (id >= 0) ids.push_back(id);
    }
    return ids;
}

// The types with style ids that a part writes for; none where it writes outside of records.
std::set<int> typesWritten(const CheckedStyle& style, const Part& part) {
    std::set<int> types;
    for (const auto& [write, value] : alone(style, part)) {
        if (!isRecord(write)) return {};
        if (style.hasRecords(typeOf(write.first))) types.insert(typeOf(write.first));
    }
    return types;
}

std::size_t indexOf(const CheckedStyle& style, unsigned styleId) {
    const auto& ids = style.map().styleIds;
    return static_cast<std::size_t>(std::ranges::find(ids, styleId) - ids.begin());
}

// ---- No effect ----

bool othersAnswer(const CheckedStyle& style, const std::string& key, unsigned styleId) {
    for (std::size_t levelClass = 0; levelClass < kLevelClasses; ++levelClass) {
        if (isOfLevel(key) && key != keyOf(typeOf(key), levelClass)) continue;
        const int type = style.answers().of(indexOf(style, styleId), levelClass).featureType;
        if (type == -1 || type == typeOf(key)) return false;
    }
    return true;
}

bool othersAnswer(const CheckedStyle& style, const Part& part) {
    const Written writes = alone(style, part);
    return !typesWritten(style, part).empty() && std::ranges::all_of(writes, [&](const auto& write) {
        const std::string& key = write.first.first;
        const std::vector<int> ids = idsOf(style, typeOf(key));
        return std::ranges::all_of(ids, [&](int id) { return othersAnswer(style, key, static_cast<unsigned>(id)); });
    });
}

bool noEffect(const Said& said) {
    const CheckedStyle& style = said.style;
    if (said.words.text().ends_with("no effect on the map")) return true;
    if (said.says("overwrite") || said.says("the same as")) return true;  // see who is to blame
    if (said.says("it writes what is already there")) return changesNothing(style, said.part);
    const std::set<int> types = typesWritten(style, said.part);
    if (said.says("the renderer never finds its style ids")) {
        return !types.empty() && std::ranges::all_of(types, [&](int type) { return idsOf(style, type).empty(); });
    }
    return said.says("other feature types answer for all its style ids") && othersAnswer(style, said.part);
}

bool nothingHappens(const Said& said) {
    const bool saysSo =
        said.says("nothing happens") || said.says("nothing changes") || said.says("nothing on the map changes");
    return !saysSo || changesNothing(said.style, said.part);
}

// ---- Levels ----

// Whether a part gives a field of some type a value at a level that is gone after another part.
bool isLost(const CheckedStyle& style, const Part& victim, const Part& culprit, const std::string& field,
            std::size_t levelClass) {
    const StyleModel before = storeAt(style, culprit, false);
    const StyleModel after = storeAt(style, culprit, true);
    const Written writes = alone(style, victim);
    return std::ranges::any_of(writes, [&](const auto& each) {
        const auto& [write, value] = each;
        if (write.second != field || write.first != keyOf(typeOf(write.first), levelClass)) return false;
        const bool wasThere = victim == culprit || valueAt(before, write) == std::pair(value, true);
        return wasThere && valueAt(after, write) != std::pair(value, true);
    });
}

bool levelReset(const Said& said) {
    const CheckedStyle& style = said.style;
    const Levels levels = said.words.levelsAfter(" lost at ");
    const auto fields = said.words.namesAfter("what it writes to ", " is lost");
    return levels.size() == 1 && said.related.size() == 1 && !fields.empty() &&
           std::ranges::all_of(fields, [&](const std::string& field) {
               return isLost(style, said.part, said.related[0], kFields.at(field), *levels.begin());
           });
}

bool levelResetsItself(const Said& said) {
    const CheckedStyle& style = said.style;
    const Levels levels = said.words.levelsAfter("does not stay at ");
    const auto fields = said.words.namesAfter("what it writes to ", " does not stay");
    return levels.size() == 1 && !fields.empty() && std::ranges::all_of(fields, [&](const std::string& field) {
               return isLost(style, said.part, said.part, kFields.at(field), *levels.begin());
           });
}

// The level was there before; and the one that is named made it first.
bool shutOut(const Said& said) {
    const CheckedStyle& style = said.style;
    const Levels levels = said.words.levelsAfter("does not reach ");
    const StyleModel before = storeAt(style, said.part, false);
    std::set<int> types = typesWritten(style, said.part);
    const auto isShut = [&](std::size_t levelClass) {
        return std::ranges::any_of(types, [&](int type) { return before.slots.contains(keyOf(type, levelClass)); });
    };
    if (levels.empty() || said.related.size() != 1 || !std::ranges::all_of(levels, isShut)) return false;
    const StyleModel without = storeAt(style, said.related[0], false);
    const StyleModel with = storeAt(style, said.related[0], true);
    return std::ranges::any_of(levels, [&](std::size_t levelClass) {
        return std::ranges::any_of(types, [&](int type) {
            return with.slots.contains(keyOf(type, levelClass)) && !without.slots.contains(keyOf(type, levelClass));
        });
    });
}

// ---- Out of use ----

Levels everyLevel() {
    Levels levels;
    for (std::size_t levelClass = 0; levelClass < kLevelClasses; ++levelClass) levels.insert(levelClass);
    return levels;
}

bool hiddenByRule(const Said& said) {
    const CheckedStyle& style = said.style;
    const std::vector<std::string> types = said.words.quoted();
    const auto fields = said.words.namesAfter("the ", " that it gives");
    Levels levels = said.words.levelsAfter("is not drawn at ");
    if (said.says("is not drawn:")) levels = everyLevel();
    if (types.size() != 1 || fields.empty() || levels.empty()) return false;
    const int type = typeNamed(types[0]);
    const Written writes = alone(style, said.part);
    const bool gives = std::ranges::all_of(fields, [&](const std::string& field) {
        return std::ranges::any_of(writes, [&](const auto& each) {
            return each.first.second == kFields.at(field) && typeOf(each.first.first) == type;
        });
    });
    return gives && std::ranges::all_of(levels, [&](std::size_t levelClass) {
               const Records* const records = inEffect(style.answers().model(), type, levelClass);
               return records != nullptr && !records->empty() && !records->begin()->second.contains("custom");
           });
}

// What takes a record out of use writes nothing for its type.
bool matchesNothing(const Said& said) {
    const CheckedStyle& style = said.style;
    const std::vector<std::string> types = said.words.quoted();
    const Written writes = alone(style, said.part);
    return !types.empty() && std::ranges::none_of(writes, [&](const auto& each) {
        return !isRecord(each.first) || typeOf(each.first.first) == typeNamed(types[0]);
    });
}

// ---- Style ids under several types ----

bool othersAnswerForShared(const Said& said) {
    const CheckedStyle& style = said.style;
    const std::vector<std::string> types = said.words.quoted();
    const Levels levels = said.words.levelsAfter("follow \"" + types.at(1) + "\" at ");
    const auto id = static_cast<int>(said.words.numberAfter("such as "));
    const auto& ids = style.map().lists[static_cast<std::size_t>(typeNamed(types[0]))];
    return !levels.empty() && std::ranges::find(ids, id) != ids.end() &&
           std::ranges::all_of(levels, [&](std::size_t levelClass) {
               const Answer& answer = style.answers().of(indexOf(style, static_cast<unsigned>(id)), levelClass);
               return answer.featureType == typeNamed(types[1]);
           });
}

// ---- An effect in part ----

bool isOnIconsOnly(const CheckedStyle& style, const Answers& with, const Answers& without) {
    for (const auto& [styleId, levelClass] : changedAnswers(with, without)) {
        Answer left = with.of(indexOf(style, styleId), levelClass);
        left.isIconHidden = without.of(indexOf(style, styleId), levelClass).isIconHidden;
        if (!isSame(left, without.of(indexOf(style, styleId), levelClass))) return false;
    }
    return true;
}

// Without the part the answers change at these levels and no others; on icons only, where it says so.
bool partialEffect(const Said& said) {
    const CheckedStyle& style = said.style;
    const Answers without(style.map(), style.without({said.part}));
    const Answers& with = style.answers();
    Levels changed;
    for (const auto& [styleId, levelClass] : changedAnswers(with, without)) changed.insert(levelClass);
    bool isBackground = false;
    for (std::size_t levelClass = 0; levelClass < kLevelClasses; ++levelClass) {
        if (with.land(levelClass) == without.land(levelClass) && with.grid() == without.grid()) continue;
        changed.insert(levelClass);
        isBackground = true;
    }
    const Levels levels = said.words.levelsAfter("an effect only at ");
    const bool saysIcons = said.words.text().ends_with(" on icons");
    if (saysIcons != (!isBackground && isOnIconsOnly(style, with, without))) return false;
    return levels.empty() ? saysIcons : levels == changed;
}

}  // namespace

const std::map<std::string, Reason> kEffectReasons = {
    {"no-effect", noEffect},
    {"nothing-reached", nothingHappens},
    {"weight-on-boundary", nothingHappens},
    {"stroke-on-land", nothingHappens},
    {"all-reaches-nothing", nothingHappens},
    {"type-without-ids", nothingHappens},
    {"on-restores-no-color", nothingHappens},
    {"level-reset", levelReset},
    {"level-resets-itself", levelResetsItself},
    {"shut-out-by-level", shutOut},
    {"hidden-by-rule", hiddenByRule},
    {"element-matches-nothing", matchesNothing},
    {"shared-ids-lost", othersAnswerForShared},
    {"partial-effect", partialEffect},
};

}  // namespace customstyle_test::properties
