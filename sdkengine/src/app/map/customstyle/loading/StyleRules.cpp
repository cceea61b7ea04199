#include <cstring>
#include <optional>
#include <string_view>
#include <vector>

#include "CustomConfig.h"
#include "model/MemberText.h"
#include "model/Messages.h"

namespace _orvik_framework {
namespace {

using Recorders = std::vector<stFeatureTypeStyleRecorder>;

struct Rule {
    int featureType;
    CVString elementType;  // the last word of the path
    int includesLabels;
    const cJSON* stylers;
};

bool contains(std::string_view text, std::string_view word) {
    return text.find(word) != std::string_view::npos;
}

// A path that begins with a dot stays whole.
const char* lastWord(const char* path) {
    for (const char* dot = std::strchr(path, '.'); dot != nullptr && dot != path; dot = std::strchr(path, '.')) {
        path = dot + 1;
    }
    return path;
}

std::optional<Rule> readRule(const CustomConfig& config, const cJSON* node) {
    const auto refuse = [&config](const CVString& message) {
        config.CustomMapPrintLog(message);
        return std::nullopt;
    };
    const char* typeName = findText(node, "featureType");
    if (typeName == nullptr) return refuse(messages::kFeatureTypeAbsent);
    const int featureType = config.GetFeatureTypeId(typeName);
    if (featureType == -1) return refuse(messages::featureTypeUnknown(typeName));

    const char* path = findText(node, "elementType");
    if (path == nullptr) return refuse(messages::kElementTypeAbsent);
    const bool includesLabels = contains(path, "labels") || contains(path, "all");

    const cJSON* stylers = _orvik_vi::cJSON_GetObjectItem(node, "stylers");
    if (_orvik_vi::cJSON_IsObject(stylers) == 0) return refuse(messages::kStylersAbsent);
    return Rule{featureType, lastWord(path), includesLabels, stylers};
}

// Whether the rule carries a styler as a text and under exactly this name: the lookup is blind to letter case, but a
// "Color" is no colour.
bool carries(const cJSON* stylers, std::string_view name) {
    const cJSON* member = findTextMember(stylers, name.data());
    return member != nullptr && member->string == name;
}

// The stylers act in this order, whatever the order in the file.
void applyRule(CustomConfig& config, const Rule& rule, Recorders& recorders, std::size_t ruleIndex) {
    const auto& [featureType, elementType, includesLabels, stylers] = rule;
    int level = 0;
    const int allLevels = config.ParseCustomStyleGivenLevel(stylers, &level);
    const bool colors = carries(stylers, "color");
    const bool shows = carries(stylers, "visibility");
    const bool weighs = carries(stylers, "weight");
    const bool sizes = carries(stylers, "fontsize");

    if (colors) {
        config.SetCustomColorStyle(featureType, elementType, stylers, includesLabels, nullptr, allLevels, level);
    }
    if (shows) {
        config.SetCustomVisibilityStyle(featureType, elementType, stylers, includesLabels, recorders.data(),
                                        static_cast<int>(ruleIndex), allLevels, level);
    }
    if (weighs) {
        config.SetCustomWeightStyle(featureType, elementType, stylers, includesLabels, nullptr, allLevels, level);
    }
    if (sizes) {
        config.SetCustomFontSizeStyle(featureType, elementType, stylers, includesLabels, nullptr, allLevels, level);
    }
    if (!colors && !shows && !weighs && !sizes) config.CustomMapPrintLog(messages::kStylersEmpty);
}

}  // namespace

int CustomConfig::ParseCustomConfig(const cJSON* root) {
    Recorders recorders(static_cast<std::size_t>(_orvik_vi::cJSON_GetArraySize(root)));
    std::size_t ruleIndex = 0;
    const cJSON* node = nullptr;
    cJSON_ArrayForEach(node, root) {
        const std::optional<Rule> rule = readRule(*this, node);
        if (rule) applyRule(*this, *rule, recorders, ruleIndex);
        ++ruleIndex;
    }
    return 1;
}

}  // namespace _orvik_framework
