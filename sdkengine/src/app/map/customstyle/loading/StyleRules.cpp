#include <algorithm>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <memory>
#include <optional>
#include <string_view>

#include "customstyle/CustomConfig.h"
#include "customstyle/json/MemberText.h"
#include "customstyle/model/Messages.h"

namespace _orvik_framework {
namespace {

struct Rule {
    int featureType;
    CVString elementType;  // the last word of the path
    int includesLabels;
    const cJSON* stylers;
    int allLevels;
    int level;
};

bool contains(std::string_view text, std::string_view word) {
    return text.find(word) != std::string_view::npos;
}

// A path that starts with a dot is kept whole.
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
    int level = 0;
    const int allLevels = config.ParseCustomStyleGivenLevel(stylers, &level);
    return Rule{featureType, lastWord(path), includesLabels, stylers, allLevels, level};
}

// The notes of a document's rules, and the one that the current rule fills.
struct Notes {
    stFeatureTypeStyleRecorder* all;
    int ruleIndex;
};

struct Styler {
    std::string_view name;
    void (*apply)(CustomConfig& config, const Rule& rule, const Notes& notes);
};

// In the order in which they are applied, whatever their order in the file.
constexpr Styler kStylers[] = {
    {"color",
     [](CustomConfig& config, const Rule& rule, const Notes&) {
         config.SetCustomColorStyle(rule.featureType, rule.elementType, rule.stylers, rule.includesLabels, nullptr,
                                    rule.allLevels, rule.level);
     }},
    {"visibility",
     [](CustomConfig& config, const Rule& rule, const Notes& notes) {
         config.SetCustomVisibilityStyle(rule.featureType, rule.elementType, rule.stylers, rule.includesLabels,
                                         notes.all, notes.ruleIndex, rule.allLevels, rule.level);
     }},
    {"weight",
     [](CustomConfig& config, const Rule& rule, const Notes&) {
         config.SetCustomWeightStyle(rule.featureType, rule.elementType, rule.stylers, rule.includesLabels, nullptr,
                                     rule.allLevels, rule.level);
     }},
    {"fontsize",
     [](CustomConfig& config, const Rule& rule, const Notes&) {
         config.SetCustomFontSizeStyle(rule.featureType, rule.elementType, rule.stylers, rule.includesLabels, nullptr,
                                       rule.allLevels, rule.level);
     }},
};

// Whether a rule carries a styler as a text and under exactly its name: the lookup ignores letter case, but
// "Color" is not "color".
bool isCarried(const Styler& styler, const cJSON* stylers) {
    const cJSON* member = findTextMember(stylers, styler.name.data());
    return member != nullptr && member->string == styler.name;
}

void applyRule(CustomConfig& config, const Rule& rule, const Notes& notes) {
    bool carried[std::size(kStylers)];
    std::ranges::transform(kStylers, carried, [&](const Styler& each) { return isCarried(each, rule.stylers); });
    for (std::size_t i = 0; i < std::size(kStylers); ++i) {
        if (carried[i]) kStylers[i].apply(config, rule, notes);
    }
    if (std::ranges::find(carried, true) == std::end(carried)) config.CustomMapPrintLog(messages::kStylersEmpty);
}

}  // namespace

CVString CustomConfig::ParseCustomStyler(const cJSON* stylers) const {
    CVString names;
    const char* separator = "";
    for (const Styler& styler : kStylers) {
        names += separator;
        separator = ";";
        // The file's own spelling: the lookup ignores letter case, and "Color" must not count as "color".
        if (const cJSON* member = findTextMember(stylers, styler.name.data())) names += member->string;
    }
    return names;
}

int CustomConfig::ParseCustomConfig(const cJSON* root) {
    const auto ruleCount = static_cast<std::size_t>(_orvik_vi::cJSON_GetArraySize(root));
    if (ruleCount == 0) return 1;
    const auto recorders = std::make_unique_for_overwrite<stFeatureTypeStyleRecorder[]>(ruleCount);
    Notes notes{recorders.get(), 0};
    _orvik_vi::forEachSubtree(root, [&](const cJSON& node) {
        const std::optional<Rule> rule = readRule(*this, &node);
        if (rule) applyRule(*this, *rule, notes);
        ++notes.ruleIndex;
    });
    return 1;
}

}  // namespace _orvik_framework
