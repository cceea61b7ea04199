#include "tests/support/TestStore.h"

#include <ostream>
#include <stdexcept>

#include "customstyle/FeatureTypeTable.h"
#include "customstyle/StoredRecords.h"
#include "tests/support/RecordTable.h"

namespace _orvik_framework {

bool operator==(const tagCustomStyle& left, const tagCustomStyle& right) {
    return customstyle_test::areEqual(left, right);
}

void PrintTo(const tagCustomStyle& style, std::ostream* stream) {
    *stream << std::hex << "{";
    customstyle_test::tellMembers(style, [&](const std::string& name, std::uint64_t value) {
        if (value != 0) *stream << " m_" << name << "=" << value;
    });
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
