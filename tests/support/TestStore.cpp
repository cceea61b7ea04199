#include "tests/support/TestStore.h"

#include <ostream>
#include <stdexcept>
#include <tuple>

#include "customstyle/FeatureTypeTable.h"
#include "customstyle/StoredRecords.h"

namespace _orvik_framework {
namespace {

auto fieldsOf(const tagCustomStyle& s) {
    return std::make_tuple(s.m_ID, s.m_textFillColor, s.m_textStrokeColor, s.m_textFillColorSet, s.m_textStrokeColorSet,
                           +s.m_textFillWeight, +s.m_textStrokeWeight, s.m_textFillWeightSet, s.m_textStrokeWeightSet,
                           +s.m_fontSize, s.m_fontSizeSet, s.m_fillColor, s.m_borderColor, +s.m_fillWeight,
                           +s.m_borderWeight, s.m_fillColorSet, s.m_borderColorSet, s.m_iconHidden, s.m_fillWeightSet,
                           s.m_borderWeightSet, s.m_topSurfaceColor, s.m_topSurfaceColorSet, s.m_custom);
}

constexpr const char* kFieldNames[] = {"m_ID",
                                       "m_textFillColor",
                                       "m_textStrokeColor",
                                       "m_textFillColorSet",
                                       "m_textStrokeColorSet",
                                       "m_textFillWeight",
                                       "m_textStrokeWeight",
                                       "m_textFillWeightSet",
                                       "m_textStrokeWeightSet",
                                       "m_fontSize",
                                       "m_fontSizeSet",
                                       "m_fillColor",
                                       "m_borderColor",
                                       "m_fillWeight",
                                       "m_borderWeight",
                                       "m_fillColorSet",
                                       "m_borderColorSet",
                                       "m_iconHidden",
                                       "m_fillWeightSet",
                                       "m_borderWeightSet",
                                       "m_topSurfaceColor",
                                       "m_topSurfaceColorSet",
                                       "m_custom"};

}  // namespace

bool operator==(const tagCustomStyle& left, const tagCustomStyle& right) {
    return fieldsOf(left) == fieldsOf(right);
}

void PrintTo(const tagCustomStyle& style, std::ostream* stream) {
    *stream << std::hex << "{";
    std::size_t index = 0;
    const auto print = [&](const auto& value) {
        if (value != 0) *stream << " " << kFieldNames[index] << "=" << value;
        ++index;
    };
    std::apply([&](const auto&... values) { (print(values), ...); }, fieldsOf(style));
    *stream << " }" << std::dec;
}

}  // namespace _orvik_framework

namespace customstyle_test {

std::string testMapping() {
    std::string json = "{";
    for (int type = 0; type < _orvik_framework::kFeatureTypesEnd; ++type) {
        if (type != 0) json += ",\n";
        json += quoted(_orvik_framework::kFeatureTypes[static_cast<std::size_t>(type)].name) + ": [" +
                std::to_string(firstStyleId(type)) + ", " + std::to_string(secondStyleId(type)) + "]";
    }
    return json + "}";
}

std::unique_ptr<CustomConfig> loadedWith(std::initializer_list<RuleBuilder> rules) {
    auto config = std::make_unique<CustomConfig>();
    config->ParseMappingConfig(parsed(testMapping()).get());
    config->ParseCustomConfig(parsed(styleOf(rules)).get());
    return config;
}

std::vector<std::string> keysOf(const CustomConfig& config) {
    std::vector<std::string> keys;
    for (const auto& [key, slot] : config.m_keyStyleMaps) keys.push_back(key);
    return keys;
}

tagCustomStyle* recordAt(const CustomConfig& config, const std::string& key, int styleId) {
    const auto slot = config.m_keyStyleMaps.find(key);
    if (slot == config.m_keyStyleMaps.end() || slot->second == nullptr) return nullptr;
    return _orvik_framework::findRecord(*slot->second, _orvik_framework::storedKey(styleId));
}

tagCustomStyle& firstRecordAt(const CustomConfig& config, const std::string& key) {
    tagCustomStyle* record = recordAt(config, key, firstStyleId(std::stoi(key)));
    if (record == nullptr) throw std::out_of_range("no record under " + key);
    return *record;
}

tagCustomStyle baseRecord(int styleId) {
    tagCustomStyle record{};
    record.m_ID = styleId;
    return record;
}

}  // namespace customstyle_test
