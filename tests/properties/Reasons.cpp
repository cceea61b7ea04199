#include "tests/properties/Reasons.h"

#include <algorithm>

#include "tests/model_check/ModelTables.h"

namespace customstyle_test::properties {

using model::Record;
using model::StyleModel;

Said::Said(const CheckedStyle& checked, const nlohmann::json& finding)
    : style(checked), words(finding.at("message").get<std::string>()), part(checked.partAt(finding)) {
    for (const auto& place : finding.at("related")) related.push_back(checked.partAt(place));
}

int typeOf(const std::string& key) {
    return std::stoi(key);
}

int typeNamed(const std::string& name) {
    return static_cast<int>(std::ranges::find(model::kNames, name) - model::kNames.begin());
}

std::string keyOf(int type, std::size_t levelClass) {
    return std::to_string(type) + ":" + std::to_string(levelOf(levelClass));
}

bool isOfLevel(const std::string& key) {
    return key.find(':') != std::string::npos;
}

bool isRecord(const Write& write) {
    return write.first != "grid" && write.first != "all";
}

std::pair<std::uint64_t, bool> valueAt(const StyleModel& model, const Write& write) {
    const auto records = model.slots.find(write.first);
    if (records == model.slots.end() || records->second.empty()) return {0, false};
    const Record& record = records->second.begin()->second;
    return {record.contains(write.second) ? record.at(write.second) : 0,
            write.second == "iconHidden" || record.contains(write.second + "Set")};
}

StyleModel storeAt(const CheckedStyle& style, const Part& part, bool behind) {
    StyleModel model;
    for (int type = 0; type < 72; ++type) model.addStyleIds(type, style.map().lists[static_cast<std::size_t>(type)]);
    for (std::size_t i = 0; i < part.rule; ++i) model.apply(style.rules()[i]);
    const Rule& rule = style.rules()[part.rule];
    if (!part.styler) {
        if (behind) model.apply(rule);
        return model;
    }
    const std::size_t end = turnOf(style.stylerOf(part)) + (behind ? 1 : 0);
    for (std::size_t turn = 0; turn < end; ++turn) model.apply(onlyStyler(rule, kStylers[turn].name));
    return model;
}

bool changesNothing(const CheckedStyle& style, const Part& part) {
    const StyleModel before = storeAt(style, part, false);
    const StyleModel after = storeAt(style, part, true);
    return before.gridColour == after.gridColour && before.everyIconHidden == after.everyIconHidden &&
           std::ranges::all_of(after.slots, [&](const auto& slot) {
               const auto known = before.slots.find(slot.first);
               if (known != before.slots.end()) return known->second == slot.second;
               return std::ranges::all_of(slot.second, [](const auto& each) { return each.second.empty(); });
           });
}

Written alone(const CheckedStyle& style, const Part& part) {
    return valuesOf(style.rules()[part.rule], style.stylerOf(part));
}

bool undoesItsWork(const CheckedStyle& style, const Part& part) {
    const Written writes = alone(style, part);
    const auto isOfSomeLevel = [](const auto& each) { return each.first.first.find(':') != std::string::npos; };
    if (std::ranges::none_of(writes, isOfSomeLevel)) return false;
    const StyleModel after = storeAt(style, part, true);
    return std::ranges::any_of(writes, [&](const auto& each) {
        const auto slot = after.slots.find(each.first.first);
        const bool isThere = slot != after.slots.end() && !slot->second.empty();
        return isThere && isOfSomeLevel(each) && valueAt(after, each.first) != std::pair(each.second, true);
    });
}

}  // namespace customstyle_test::properties
