// Style keys: the short decimal texts under which the store files what rules wrote.
#pragma once

#include <algorithm>
#include <charconv>
#include <string_view>

#include "CustomConfig.h"

namespace _orvik_framework {

/// The key of one feature type at all levels ("13") or at one level ("13:15"), zero-terminated in 16 characters. An id
/// outside the catalogue may need more together with its level; its key is cut and is never registered.
class StyleKey {
public:
    static constexpr std::size_t kCapacity = 16;

    static StyleKey ofType(int featureType) {
        StyleKey key;
        key.append(featureType);
        return key;
    }

    static StyleKey ofLevel(int featureType, int level) {
        StyleKey key = ofType(featureType);
        key.m_text[key.m_size++] = ':';
        key.append(level);
        return key;
    }

    std::string_view text() const { return {m_text, m_size}; }
    const char* c_str() const { return m_text; }

private:
    void append(int number) {
        char digits[kCapacity];
        const std::to_chars_result written = std::to_chars(digits, digits + sizeof digits, number);
        const std::size_t room = kCapacity - 1 - m_size;
        const std::size_t count = std::min(room, static_cast<std::size_t>(written.ptr - digits));
        std::copy_n(digits, count, m_text + m_size);
        m_size += count;
    }

    char m_text[kCapacity] = {};
    std::size_t m_size = 0;
};

/// The key of a rule's scope: `level` counts only where `allLevels` is 0.
inline StyleKey styleKey(int featureType, int allLevels, int level) {
    return allLevels != 0 ? StyleKey::ofType(featureType) : StyleKey::ofLevel(featureType, level);
}

/// The slot of a key, or null where the key has none.
inline CVMapPtrToPtr* findSlot(const CustomConfig& config, std::string_view key) {
    const auto found = config.m_keyStyleMaps.find(key);
    return found == config.m_keyStyleMaps.end() ? nullptr : found->second;
}

}  // namespace _orvik_framework
