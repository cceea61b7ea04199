#include "tests/properties/Answers.h"

#include <algorithm>
#include <map>

#include "tests/model_check/ModelTables.h"
#include "tests/support/LogCapture.h"
#include "tests/support/TestStore.h"

namespace customstyle_test::properties {
namespace {

constexpr std::array<int, 3> kParents = {4, 45, 53};

// Ids below 0 are asked for as large numbers, and never found.
std::vector<unsigned> askedIds(const StyleIds& lists) {
    std::set<unsigned> ids = {kUnlisted};
    for (const auto& list : lists) ids.insert(list.begin(), list.end());
    return {ids.begin(), ids.end()};
}

// The land's background is that of the record which its map happens to yield first; only the component knows which.
std::optional<int> firstLandId(const StyleIds& lists) {
    if (lists[0].size() < 2) return lists[0].empty() ? std::nullopt : std::optional(lists[0][0]);
    const LogSilence quiet;
    CustomConfig config;
    config.ParseMappingConfig(parsed(written(lists)).get());
    config.ParseCustomConfig(parsed("[" + rule("land", "fill").color("#112233").json() + "]").get());
    const auto& records = *config.m_keyStyleMaps.at("0");
    void* position = records.GetStartPosition();
    if (position == nullptr) return {};
    void* key = nullptr;
    void* record = nullptr;
    records.GetNextAssoc(position, key, record);
    return static_cast<const tagCustomStyle*>(record)->m_ID;
}

std::set<int> reachedTypes(const std::vector<const Rules*>& styles) {
    std::set<int> types;
    for (const Rules* rules : styles) {
        for (const Rule& rule : *rules) {
            for (const auto& [name, value] : rule.frame) {
                const auto type = std::ranges::find(model::kNames, value.text.value_or(""));
                if (type != model::kNames.end()) types.insert(static_cast<int>(type - model::kNames.begin()));
            }
        }
    }
    std::set<int> companions;
    for (const int type : types) {
        if (model::kCompanions.contains(type)) companions.insert(model::kCompanions.at(type));
    }
    types.merge(companions);
    types.erase(72);
    return types;
}

}  // namespace

int levelOf(std::size_t levelClass) {
    return levelClass == kLevelClasses - 1 ? 0 : 4 + static_cast<int>(levelClass);
}

Map mapWith(const StyleIds& lists) {
    return {lists, askedIds(lists), firstLandId(lists)};
}

Map mapOfAllPairs(const std::vector<const Rules*>& styles) {
    StyleIds lists(72);
    const std::set<int> types = reachedTypes(styles);
    for (const int left : types) {
        for (const int right : types) {
            lists[static_cast<std::size_t>(left)].push_back(1000 + 100 * std::min(left, right) + std::max(left, right));
        }
    }
    return mapWith(lists);
}

Map mapFor(const Trial& trial, const std::vector<const Rules*>& styles) {
    return trial.mapping ? mapWith(*trial.mapping) : mapOfAllPairs(styles);
}

Answers::Answers(const Map& map, const Rules& rules) : m_map(&map) {
    for (int type = 0; type < 72; ++type) m_model.addStyleIds(type, m_map->lists[static_cast<std::size_t>(type)]);
    for (const Rule& rule : rules) m_model.apply(rule);
    answerAll();
}

void Answers::answerAll() {
    std::map<std::pair<bool, int>, std::map<int, const model::Records*>> keys;  // parents last
    for (const auto& [key, records] : m_model.slots) {
        const int type = std::stoi(key);
        const std::size_t colon = key.find(':');
        const int level = colon == std::string::npos ? -1 : std::stoi(key.substr(colon + 1));
        keys[{std::ranges::find(kParents, type) != kParents.end(), type}][level] = &records;
    }
    for (std::size_t levelClass = 0; levelClass < kLevelClasses; ++levelClass) {
        for (const auto& [type, levels] : keys) {
            auto found = levels.find(levelOf(levelClass));
            if (found == levels.end()) found = levels.find(-1);
            if (type.second != 72 && found != levels.end())
                m_inEffect[levelClass].emplace_back(type.second, found->second);
        }
    }
    for (const unsigned styleId : m_map->styleIds) {
        for (std::size_t levelClass = 0; levelClass < kLevelClasses; ++levelClass) {
            m_answers.push_back(answerFor(styleId, levelClass));
        }
    }
}

Answer Answers::answerFor(unsigned styleId, std::size_t levelClass) const {
    Answer answer{-1, nullptr, false};
    std::optional<bool> icon;
    if (m_model.everyIconHidden) icon = true;
    if (styleId <= 0x7fffffff) {
        for (const auto& [type, records] : m_inEffect[levelClass]) {
            const auto record = records->find(static_cast<int>(styleId));
            if (record == records->end()) continue;
            const bool isParent = std::ranges::find(kParents, type) != kParents.end();
            const bool hides = record->second.contains("iconHidden");
            if (!icon && (hides || !isParent)) icon = hides;
            if (answer.record == nullptr && record->second.contains("custom")) {
                answer.featureType = type;
                answer.record = &record->second;
            }
        }
    }
    answer.isIconHidden = icon.value_or(false);
    return answer;
}

std::optional<std::uint64_t> Answers::land(std::size_t levelClass) const {
    const auto& types = m_inEffect[levelClass];
    if (types.empty() || types.front().first != 0 || !m_map->landId) return {};
    const auto found = types.front().second->find(*m_map->landId);
    if (found == types.front().second->end() || !found->second.contains("custom")) return {};
    return found->second.contains("fillColor") ? found->second.at("fillColor") : 0;
}

bool isSame(const Answer& left, const Answer& right) {
    if (left.featureType != right.featureType || left.isIconHidden != right.isIconHidden) return false;
    return left.record == nullptr || *left.record == *right.record;
}

std::set<std::pair<unsigned, std::size_t>> changedAnswers(const Answers& left, const Answers& right) {
    std::set<std::pair<unsigned, std::size_t>> changed;
    const std::vector<unsigned>& ids = left.map().styleIds;
    for (std::size_t i = 0; i < ids.size(); ++i) {
        for (std::size_t levelClass = 0; levelClass < kLevelClasses; ++levelClass) {
            if (!isSame(left.of(i, levelClass), right.of(i, levelClass))) changed.emplace(ids[i], levelClass);
        }
    }
    return changed;
}

std::optional<std::string> difference(const Answers& left, const Answers& right) {
    const auto changed = changedAnswers(left, right);
    if (!changed.empty()) {
        return "style id " + std::to_string(changed.begin()->first) + " at level " +
               std::to_string(levelOf(changed.begin()->second));
    }
    for (std::size_t levelClass = 0; levelClass < kLevelClasses; ++levelClass) {
        if (left.land(levelClass) != right.land(levelClass)) {
            return "the land's background at level " + std::to_string(levelOf(levelClass));
        }
    }
    if (left.grid() != right.grid()) return "the grid's background";
    return {};
}

}  // namespace customstyle_test::properties
