#include "tools/study/StoreKeys.h"

#include <algorithm>
#include <array>
#include <utility>

#include "tools/study/StoreImage.h"
#include "tools/study/StyleKey.h"
#include "vi/vos/VTempl.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;
using _orvik_framework::CVMapPtrToPtr;
using _orvik_framework::tagCustomStyle;

// Releases all slots but the first ones.
void releaseSlots(CustomConfig& config, int kept) {
    for (int i = kept; i < config.m_usedLevelSlots; ++i) {
        CVMapPtrToPtr& slot = config.m_levelStyleMaps[i];
        forEachSlotRecord(slot, [](int, tagCustomStyle& record) { _orvik_vi::VDeleteArray(&record); });
        slot.RemoveAll();
    }
    config.m_usedLevelSlots = kept;
}

}  // namespace

bool hasSlot(const CustomConfig& config, const std::string& key) {
    return config.m_keyStyleMaps.contains(key);
}

CVMapPtrToPtr* slotOf(const CustomConfig& config, const std::string& key) {
    const auto found = config.m_keyStyleMaps.find(key);
    return found == config.m_keyStyleMaps.end() ? nullptr : found->second;
}

std::vector<std::string> keysInOrder(const CustomConfig& config) {
    std::vector<std::pair<const void*, std::string>> slots;
    for (const auto& [key, slot] : config.m_keyStyleMaps) slots.emplace_back(slot, key);
    std::ranges::sort(slots);
    std::vector<std::string> keys;
    for (auto& [slot, key] : slots) keys.push_back(std::move(key));
    return keys;
}

void addKey(CustomConfig& config, const std::string& key) {
    const auto [featureType, level] = parsedKey(key);
    std::array<char, 16> ignored{};
    config.UpdateCustomStyleMap(ignored.data(), featureType, level ? 0 : 1, level.value_or(0));
}

void forgetKeys(CustomConfig& config, const std::vector<std::string>& keys, int usedSlots) {
    for (const std::string& key : keys) {
        config.m_keyStyleMaps.erase(key);
        config.m_styleEffectLevels.erase(key);
    }
    releaseSlots(config, usedSlots);
}

void forgetStyles(CustomConfig& config) {
    config.m_keyStyleMaps.clear();
    config.m_styleEffectLevels.clear();
    releaseSlots(config, 0);
    config.m_gridColor = 0;
    config.m_gridColorSet = 0;
    config.m_allIconsHidden = 0;
}

}  // namespace customstyle_tool
