// Stores with a small mapping: two style ids for each feature type.
#pragma once

#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "customstyle/CustomConfig.h"
#include "tests/support/StyleBuilder.h"

namespace customstyle_test {

using _orvik_framework::CustomConfig;
using _orvik_framework::tagCustomStyle;

/// The feature type of most examples.
inline constexpr int kHighway = 13;

/// The test mapping: type T has the style ids 1000 + 10 T and 1000 + 10 T + 1, and no two types share one.
constexpr int firstStyleId(int featureType) {
    return 1000 + 10 * featureType;
}
constexpr int secondStyleId(int featureType) {
    return firstStyleId(featureType) + 1;
}

/// The records of the test mapping: two for each of the types 0 to 71.
inline constexpr int kTestRecords = 144;

/// The test mapping as the text of a mapping file.
std::string testMapping();

/// A store with the base records of the test mapping, to which the rules have been applied in order.
std::unique_ptr<CustomConfig> loadedWith(std::initializer_list<RuleBuilder> rules);

/// The keys that hold records ("13", "13:15"), in order.
std::vector<std::string> keysOf(const CustomConfig& config);

/// The record filed under a key ("13", "13:15") for a style id, or null.
tagCustomStyle* recordAt(const CustomConfig& config, const std::string& key, int styleId);

/// The same for the first style id of the key's feature type; throws when there is none.
tagCustomStyle& firstRecordAt(const CustomConfig& config, const std::string& key);

/// A base record: all zero but its id.
tagCustomStyle baseRecord(int styleId);

/// Answers the renderer's questions while it lives.
class QueriesEnabled {
public:
    QueriesEnabled() { g_zrsdk_custom_style_enable = 1; }
    ~QueriesEnabled() { g_zrsdk_custom_style_enable = 0; }
    QueriesEnabled(const QueriesEnabled&) = delete;
    QueriesEnabled& operator=(const QueriesEnabled&) = delete;
};

}  // namespace customstyle_test

namespace _orvik_framework {

/// Records are equal when every field is; padding does not count.
bool operator==(const tagCustomStyle& left, const tagCustomStyle& right);

/// Names the fields that are not 0.
void PrintTo(const tagCustomStyle& style, std::ostream* stream);

}  // namespace _orvik_framework
