#include "tools/study/PatchedStore.h"

#include <algorithm>

#include "tools/study/StoreImage.h"
#include "tools/study/StoreKeys.h"
#include "tools/study/StyleKey.h"

namespace customstyle_tool {

using _orvik_framework::CVMapPtrToPtr;
using _orvik_framework::tagCustomStyle;

void PatchedStore::set(const std::string& key, const std::optional<tagCustomStyle>& style) {
    CVMapPtrToPtr* slot = slotOf(*m_config, key);
    Patch patch{key, slot, {}};
    if (slot != nullptr) {
        forEachSlotRecord(*slot, [&](int, const tagCustomStyle& record) { patch.style = record; });
    }
    m_patches.push_back(std::move(patch));
    if (!style) {
        m_config->m_keyStyleMaps.erase(key);
        m_config->m_styleEffectLevels.erase(key);
        return;
    }
    const auto [featureType, level] = parsedKey(key);
    if (slot == nullptr) {
        slot = &ownSlot(featureType);
        m_config->m_keyStyleMaps.emplace(key, slot);
        m_config->m_styleEffectLevels.emplace(key, level ? 0 : 1);
    }
    write(*slot, *style);
}

void PatchedStore::setGridColor(bool isSet, std::uint64_t color) {
    if (!m_gridBefore) m_gridBefore = {m_config->m_gridColorSet != 0, m_config->m_gridColor};
    m_config->m_gridColorSet = isSet ? 1 : 0;
    m_config->m_gridColor = color;
}

void PatchedStore::hideEveryIcon(bool isHidden) {
    if (!m_iconsBefore) m_iconsBefore = m_config->m_allIconsHidden != 0;
    m_config->m_allIconsHidden = isHidden ? 1 : 0;
}

void PatchedStore::takeBack() {
    for (; !m_patches.empty(); m_patches.pop_back()) {
        const auto& [key, slot, style] = m_patches.back();
        m_config->m_keyStyleMaps.erase(key);
        m_config->m_styleEffectLevels.erase(key);
        if (slot == nullptr) continue;
        m_config->m_keyStyleMaps.emplace(key, slot);
        m_config->m_styleEffectLevels.emplace(key, parsedKey(key).level ? 0 : 1);
        write(*slot, style);
    }
    m_ownSlots.clear();
    m_ownRecords.clear();
    if (m_gridBefore) setGridColor(m_gridBefore->first, m_gridBefore->second);
    if (m_iconsBefore) hideEveryIcon(*m_iconsBefore);
    m_gridBefore.reset();
    m_iconsBefore.reset();
}

void PatchedStore::write(CVMapPtrToPtr& slot, const tagCustomStyle& style) {
    forEachSlotRecord(slot, [&](int, tagCustomStyle& record) {
        const int id = record.m_ID;
        record = style;
        record.m_ID = id;
    });
}

// Records for each style id of the type; the store's slots may all be taken.
CVMapPtrToPtr& PatchedStore::ownSlot(int featureType) {
    CVMapPtrToPtr& slot = m_ownSlots.emplace_back();
    forEachSlotRecord(m_config->m_typeStyleMaps[featureType], [&](int styleId, const tagCustomStyle& base) {
        slot[reinterpret_cast<void*>(static_cast<std::intptr_t>(styleId))] = &m_ownRecords.emplace_back(base);
    });
    return slot;
}

}  // namespace customstyle_tool
