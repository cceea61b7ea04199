// Style keys in registers, and the tables that are looked up by short texts. Users of the component need none of it:
// CustomConfig's members are made of it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

namespace [[gnu::visibility("default")]] _orvik_framework {

/// A style key in registers: character i starts at bit 8i of the 16 bytes, the rest is 0. Keys have up to 15
/// characters; of a longer text the words hold the first 16.
struct StyleKeyWords {
    std::uint64_t head = 0;
    std::uint64_t tail = 0;
    std::size_t size = 0;

    StyleKeyWords() = default;
    explicit StyleKeyWords(std::string_view text) : size(text.size()) {
        head = packed(text.substr(0, 8));
        if (size > 8) tail = packed(text.substr(8, 8));
    }

    bool operator==(const StyleKeyWords&) const = default;

private:
    // Compilers turn it into one load.
    template <std::size_t kCount>
    static std::uint64_t load(const char* text) {
        std::uint64_t word = 0;
        for (std::size_t i = 0; i < kCount; ++i) word |= std::uint64_t{static_cast<unsigned char>(text[i])} << 8 * i;
        return word;
    }

    // Up to eight characters, the first one in the lowest bits; in the middle the two loads overlap.
    static std::uint64_t packed(std::string_view text) {
        const std::size_t size = text.size();
        const char* const data = text.data();
        if (size == 8) return load<8>(data);
        if (size >= 4) return load<4>(data) | load<4>(data + size - 4) << 8 * (size - 4);
        if (size >= 2) return load<2>(data) | load<2>(data + size - 2) << 8 * (size - 2);
        return size == 1 ? load<1>(data) : 0;
    }
};

/// Hashes a style key, or another text by its first 16 characters. Not noexcept, so that the table keeps each entry's
/// hash beside it instead of hashing again. The 20 bits are plenty for some hundred entries, and a short number is
/// quickly divided by the number of buckets.
struct ShortTextHash {
    using is_transparent = void;

    std::size_t operator()(std::string_view text) const { return operator()(StyleKeyWords(text)); }
    std::size_t operator()(const StyleKeyWords& key) const {
        return static_cast<std::size_t>((key.head * 0x9E3779B97F4A7C15 ^ key.tail * 0xC2B2AE3D27D4EB4F) >> 44);
    }
};

struct ShortTextEqual {
    using is_transparent = void;

    bool operator()(std::string_view left, std::string_view right) const { return left == right; }
    // Standard libraries differ in the order in which a table passes its key and the one that it looks for.
    bool operator()(const StyleKeyWords& left, std::string_view right) const {
        // Where compilers know the size of the key, only the loads for that size remain.
        return left.size == right.size() && left == StyleKeyWords({right.data(), left.size});
    }
    bool operator()(std::string_view left, const StyleKeyWords& right) const { return operator()(right, left); }
};

/// Table by style key or feature type name. A style key is the decimal feature type id ("13", all levels), or id and
/// level joined by a colon ("13:15").
template <typename Value>
using ShortTextTable = std::unordered_map<std::string, Value, ShortTextHash, ShortTextEqual>;

}  // namespace _orvik_framework
