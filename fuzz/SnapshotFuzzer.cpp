// Stores as no rule makes them, written through the record writers and by hand: a snapshot has to answer like the
// class.
#include <algorithm>
#include <string>

#include "customstyle/StoredRecords.h"
#include "fuzz/support/FuzzInput.h"
#include "fuzz/support/Inspection.h"
#include "fuzz/support/LoadAccounts.h"
#include "vi/vos/VTempl.h"

namespace {

using namespace customstyle_fuzz;
using _orvik_framework::CustomConfig;
using _orvik_framework::CVMapPtrToPtr;
using _orvik_framework::CVString;
using _orvik_framework::storedKey;
using _orvik_framework::tagCustomStyle;

constexpr int kTypes[] = {0, 1, 4, 13, 28, 45, 53, 70, 71, 72};
constexpr int kLevels[] = {4, 5, 12, 21, 31, 32, 33, 0, -1, 2147483647, -2147483647 - 1, 100, 1000};
constexpr int kIds[] = {1, 2, 3, 40, 41, 0x7fffffff, -1, -2147483647 - 1, 0, 1000};
constexpr int kClusters[] = {1, 1000, 41000, 2147483647 - 100, -100, -2147483647 - 1};
constexpr const char* kElements[] = {"all", "labels", "geometry", "stroke", "fill", "topsurface", "icon", "other"};

// Maps number their styles in clusters, with gaps.
int styleId(FuzzInput& input) {
    if (input.below(2) == 0) return input.oneOf(kIds);
    const int cluster = input.oneOf(kClusters);
    return cluster + static_cast<int>(input.below(100));
}

void addBase(CustomConfig& config, FuzzInput& input) {
    CVMapPtrToPtr& records = config.m_typeStyleMaps[input.oneOf(kTypes)];
    const int id = styleId(input);
    void*& place = records[storedKey(id)];
    if (place != nullptr) return;
    auto* record = _orvik_vi::VNewArray<tagCustomStyle>(1);
    record->m_ID = id;
    place = record;
}

void write(CustomConfig& config, FuzzInput& input) {
    const int type = input.oneOf(kTypes);
    const CVString element(input.oneOf(kElements));
    const int allLevels = static_cast<int>(input.below(3)) % 2;
    const int level = input.oneOf(kLevels);
    const int value = input.byte();
    const auto colour = static_cast<std::uint64_t>(value) << 24 | 5;
    switch (input.below(7)) {
        case 0:
            return config.SetTypeColor(type, element, colour, allLevels, level);
        case 1:
            return config.SetFontColorStyle(type, element, colour, allLevels, level);
        case 2:
            return config.SetCustomIconInvisible(type, element, value % 3, allLevels, level);
        case 3:
            return config.SetTypeWeight(type, element, value, allLevels, level);
        case 4:
            return config.SetFontWeightStyle(type, element, value, allLevels, level);
        case 5:
            return config.setFontSizeStyle(type, element, static_cast<unsigned char>(value), allLevels, level);
        default:
            return config.SetGridColorStyle(colour);
    }
}

// What only a host does that reaches into the store.
void changeByHand(CustomConfig& config, FuzzInput& input) {
    if (config.m_usedLevelSlots == 0) return;
    const auto used = static_cast<std::size_t>(config.m_usedLevelSlots);
    CVMapPtrToPtr& slot = config.m_levelStyleMaps[input.below(std::min<std::size_t>(used + 1, 256))];
    const std::string key = std::to_string(input.oneOf(kTypes));
    switch (input.below(4)) {
        case 0:
            slot[storedKey(styleId(input))];  // without a record where it is new
            return;
        case 1:
            config.m_styleEffectLevels[key + ":" + std::to_string(input.oneOf(kLevels))] = input.byte() % 3;
            return;
        case 2:
            config.m_keyStyleMaps[key] = input.below(2) == 0 ? nullptr : &slot;
            return;
        default:
            config.m_allIconsHidden = input.byte() % 8 == 0;
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzInput input(data, size);
    const LoadAccounts accounts;
    CustomConfig config;
    for (std::size_t count = input.below(64); count > 0; --count) addBase(config, input);
    for (int actions = 0; actions < 300 && !input.isEmpty(); ++actions) {
        const std::size_t action = input.below(8);
        if (action == 0) changeByHand(config, input);
        if (action != 0) write(config, input);
    }
    inspect(config);
    return 0;
}
