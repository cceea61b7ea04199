// Style keys: the short decimal texts under which the store keeps what rules wrote.
#pragma once

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string>

#include "customstyle/CustomConfig.h"

namespace _orvik_framework {

/// Room for a key with its terminating zero, as callers of UpdateCustomStyleMap provide it.
inline constexpr std::size_t kStyleKeyCapacity = 16;

/// The two keys of a feature type at a level: "13" for all levels and "13:15" for that level.
///
/// Made once for a level and then pointed at one type after the other. Both keys are assembled in registers: reading
/// bytes just written stalls on store forwarding.
class StyleKeys {
public:
    explicit StyleKeys(int level) : m_level(joined(StyleKeyWords(":"), numberWords(level))) {}

    StyleKeys(int featureType, int level) : StyleKeys(level) { selectType(featureType); }

    void selectType(int featureType) {
        const auto number = static_cast<unsigned int>(featureType);
        m_type.tail = 0;
        if (number > 99) {
            m_type = numberWords(featureType);
        } else if (number > 9) {
            m_type.head = ('0' + number / 10) | ('0' + number % 10) << 8;
            m_type.size = 2;
        } else {
            m_type.head = '0' + number;
            m_type.size = 1;
        }
    }

    const StyleKeyWords& ofType() const { return m_type; }

    StyleKeyWords ofLevel() const { return joined(m_type, m_level); }

    /// The key of a rule: that of all levels where `allLevels` is not 0.
    StyleKeyWords ofScope(int allLevels) const { return allLevels != 0 ? ofType() : ofLevel(); }

private:
    static StyleKeyWords numberWords(int number) {
        char digits[kStyleKeyCapacity];
        const char* const end = std::to_chars(digits, digits + sizeof digits, number).ptr;
        return StyleKeyWords({digits, static_cast<std::size_t>(end - digits)});
    }

    // Cut to 15 characters. Only an id outside the catalogue can need more, and its key is never registered.
    static StyleKeyWords joined(const StyleKeyWords& front, const StyleKeyWords& back) {
        StyleKeyWords key = front;
        key.size = std::min(front.size + back.size, kStyleKeyCapacity - 1);
        if (front.size < 8) {
            const std::size_t shift = 8 * front.size;
            key.head |= back.head << shift;
            // NOLINTNEXTLINE(clang-analyzer-core.UndefinedBinaryOperatorResult): a number has a digit at least
            key.tail = back.tail << shift | back.head >> (64 - shift);
        } else {
            key.tail |= back.head << 8 * (front.size - 8);
        }
        return key;
    }

    StyleKeyWords m_type;
    StyleKeyWords m_level;  // with its colon
};

/// The text of a key; as long as keys are, it needs no memory of its own.
inline std::string textOf(const StyleKeyWords& key) {
    std::string text(key.size, '\0');
    for (std::size_t i = 0; i < key.size; ++i) {
        text[i] = static_cast<char>(i < 8 ? key.head >> 8 * i : key.tail >> 8 * (i - 8));
    }
    return text;
}

/// The slot of a key, or null where the key has none.
inline CVMapPtrToPtr* findSlot(const CustomConfig& config, const StyleKeyWords& key) {
    const auto found = config.m_keyStyleMaps.find(key);
    return found == config.m_keyStyleMaps.end() ? nullptr : found->second;
}

}  // namespace _orvik_framework
