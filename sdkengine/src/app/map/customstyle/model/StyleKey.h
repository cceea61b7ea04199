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
        const std::size_t sizeBefore = m_type.size;
        m_type = typeWords(featureType);
        // A walk over all types changes the size twice.
        if (m_type.size != sizeBefore) m_levelPart = shifted(m_level, m_type.size);
    }

    const StyleKeyWords& ofType() const { return m_type; }

    StyleKeyWords ofLevel() const { return overlaid(m_type, m_levelPart); }

    /// The key of a rule: that of all levels where `allLevels` is not 0.
    StyleKeyWords ofScope(int allLevels) const { return allLevels != 0 ? ofType() : ofLevel(); }

private:
    static StyleKeyWords typeWords(int featureType) {
        const auto number = static_cast<unsigned int>(featureType);
        if (number > 99) return numberWords(featureType);
        StyleKeyWords words;
        words.head = number > 9 ? ('0' + number / 10) | ('0' + number % 10) << 8 : '0' + number;
        words.size = number > 9 ? 2 : 1;
        return words;
    }

    static StyleKeyWords numberWords(int number) {
        char digits[kStyleKeyCapacity];
        const char* const end = std::to_chars(digits, digits + sizeof digits, number).ptr;
        return StyleKeyWords({digits, static_cast<std::size_t>(end - digits)});
    }

    // Moved up by at least one character, and cut to 15. Only an id outside the catalogue can need more, and its key is
    // never registered.
    static StyleKeyWords shifted(const StyleKeyWords& words, std::size_t characters) {
        StyleKeyWords moved;
        moved.size = std::min(words.size + characters, kStyleKeyCapacity - 1);
        if (characters < 8) {
            const std::size_t bits = 8 * characters;
            moved.head = words.head << bits;
            // NOLINTNEXTLINE(clang-analyzer-core.UndefinedBinaryOperatorResult): a number has a digit at least
            moved.tail = words.tail << bits | words.head >> (64 - bits);
        } else {
            moved.tail = words.head << 8 * (characters - 8);
        }
        return moved;
    }

    // Each is 0 where the other has characters; the second one's end is the end of both. Few fronts have a tail, and
    // asking for it keeps clang++ from reading both halves at once, which would wait for the two stores before it.
    static StyleKeyWords overlaid(const StyleKeyWords& front, const StyleKeyWords& moved) {
        StyleKeyWords key = moved;
        key.head |= front.head;
        if (front.tail != 0) key.tail |= front.tail;
        return key;
    }

    static StyleKeyWords joined(const StyleKeyWords& front, const StyleKeyWords& back) {
        return overlaid(front, shifted(back, front.size));
    }

    StyleKeyWords m_type;
    StyleKeyWords m_level;      // with its colon
    StyleKeyWords m_levelPart;  // the same, moved up to make room for the type
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
