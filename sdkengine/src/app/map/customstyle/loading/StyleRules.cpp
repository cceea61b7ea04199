#include <optional>
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

bool contains(const CVString& text, const char* word) {
    return text.Find(word) != -1;
}

// A path that begins with a dot stays whole.
CVString lastWord(CVString path) {
    for (int dot = path.Find("."); dot > 0; dot = path.Find(".")) path = path.Mid(dot + 1);
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
    const CVString elementPath = path;
    const bool includesLabels = contains(elementPath, "labels") || contains(elementPath, "all");

    const cJSON* stylers = _orvik_vi::cJSON_GetObjectItem(node, "stylers");
    if (_orvik_vi::cJSON_IsObject(stylers) == 0) return refuse(messages::kStylersAbsent);
    return Rule{featureType, lastWord(elementPath), includesLabels, stylers};
}

// The stylers act in this order, whatever the order in the file.
void applyRule(CustomConfig& config, const Rule& rule, Recorders& recorders, int ruleIndex) {
    const auto& [featureType, elementType, includesLabels, stylers] = rule;
    int level = 0;
    const int allLevels = config.ParseCustomStyleGivenLevel(stylers, &level);
    const CVString names = config.ParseCustomStyler(stylers);
    const bool colors = contains(names, "color");
    const bool shows = contains(names, "visibility");
    const bool weighs = contains(names, "weight");
    const bool sizes = contains(names, "fontsize");

    if (colors) {
        config.SetCustomColorStyle(featureType, elementType, stylers, includesLabels, nullptr, allLevels, level);
    }
    if (shows) {
        config.SetCustomVisibilityStyle(featureType, elementType, stylers, includesLabels, recorders.data(), ruleIndex,
                                        allLevels, level);
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
    int ruleIndex = 0;
    const cJSON* node = nullptr;
    cJSON_ArrayForEach(node, root) {
        const std::optional<Rule> rule = readRule(*this, node);
        if (rule) applyRule(*this, *rule, recorders, ruleIndex);
        ++ruleIndex;
    }
    return 1;
}

}  // namespace _orvik_framework
