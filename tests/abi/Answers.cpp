// Prints what loaded styles look like and answer, so that two machines can be compared line by line.
#include <cstdint>
#include <cstring>
#include <iostream>
#include <limits>
#include <map>
#include <set>
#include <string>

#include "customstyle/StoredRecords.h"
#include "customstyle/StyleSnapshot.h"
#include "tests/support/IntLimits.h"
#include "tests/support/TestStore.h"
#include "vi/vos/VLog.h"

namespace {

using namespace _orvik_framework;
using customstyle_test::kIntMax;
using customstyle_test::kIntMin;

using StyleIds = std::set<unsigned int>;

// Style ids up to 2^31 - 1 only: the others are found or not by the size of pointers, which PointerSizeTest looks at.
StyleIds styleIdsToAsk(const CustomConfig& config) {
    StyleIds ids = {0, 1, kIntMax};
    for (const CVMapPtrToPtr& records : config.m_typeStyleMaps) {
        for (const StoredRecord& entry : StoredRecords(records)) ids.insert({entry.styleId(), entry.styleId() + 1});
    }
    return ids;
}

std::set<int> levelsToAsk() {
    std::set<int> levels = {kIntMin, -1, 100, kIntMax};
    for (int level = 0; level <= 25; ++level) levels.insert(level);
    return levels;
}

void print(const tagCustomStyle& style) {
    std::cout << ' ';
    PrintTo(style, &std::cout);
    std::cout << '\n';
}

// The store in the order of its slots. The tables by key have an order of their own on each machine.
void printStore(const CustomConfig& config) {
    std::map<const CVMapPtrToPtr*, std::string> keys;
    for (const auto& [key, slot] : config.m_keyStyleMaps) keys[slot] = key;
    for (int used = 0; used < config.m_usedLevelSlots; ++used) {
        const CVMapPtrToPtr& slot = config.m_levelStyleMaps[used];
        const std::string& key = keys.at(&slot);
        std::cout << "key " << key << " in effect " << config.m_styleEffectLevels.at(key) << '\n';
        for (const StoredRecord& entry : StoredRecords(slot)) print(*entry.record);
    }
}

template <typename Styles>
void printAnswers(const char* asked, const Styles& styles, const StyleIds& styleIds) {
    for (const int level : levelsToAsk()) {
        std::uint64_t land = 0;
        std::uint64_t grid = 0;
        std::cout << asked << " level " << level << " land " << styles.IsCustomBackRegionEnable(land, level) << ' '
                  << land << " grid " << styles.IsCustomGridBackRegionEnable(grid, level) << ' ' << grid << '\n';
        for (const unsigned int styleId : styleIds) {
            tagCustomStyle style{};
            std::cout << styleId << " icon " << styles.IsCustomizedIconVisible(styleId, level) << " style "
                      << styles.GetStyleFromConfig(style, styleId, level);
            print(style);
        }
    }
}

void printStyle(const char* mappingDirectory, const char* styleFile) {
    CustomConfig config;
    const char* const slash = std::strrchr(styleFile, '/');
    std::cout << "style " << (slash == nullptr ? styleFile : slash + 1) << '\n';
    std::cout << "loaded " << config.Init(mappingDirectory, styleFile) << '\n';
    printStore(config);
    const StyleIds styleIds = styleIdsToAsk(config);
    printAnswers("class", config, styleIds);
    printAnswers("snapshot", StyleSnapshot(config), styleIds);
}

bool isBigEndian() {
    const std::uint16_t number = 1;
    unsigned char first = 0;
    std::memcpy(&first, &number, sizeof first);
    return first == 0;
}

void printMachine() {
    struct Colour {
        char before;
        std::uint64_t packed;
    };
    std::cout << 8 * sizeof(void*) << "-bit pointers, " << (isBigEndian() ? "big" : "little") << "-endian, "
              << (std::numeric_limits<char>::is_signed ? "signed" : "unsigned")
              << " char, 64-bit fields at multiples of " << offsetof(Colour, packed) << '\n';
}

}  // namespace

int main(int argumentCount, char** arguments) {
    if (argumentCount == 2 && std::string(arguments[1]) == "--machine") return printMachine(), 0;
    if (argumentCount < 3) {
        std::cerr << "usage: abi_answers --machine | abi_answers MAPPING_DIRECTORY/ STYLE_FILE...\n";
        return 2;
    }
    _orvik_vi::CVLog::SetSink([](_orvik_vi::ELOGPRIORITY, const std::string& line) { std::cout << line << '\n'; });
    g_zrsdk_custom_style_enable = 1;
    for (int i = 2; i < argumentCount; ++i) printStyle(arguments[1], arguments[i]);
    return std::cout.flush() ? 0 : 1;
}
