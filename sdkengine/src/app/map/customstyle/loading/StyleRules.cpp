#include <cstring>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "CustomConfig.h"
#include "model/MemberText.h"
#include "model/Messages.h"

namespace _orvik_framework {
namespace {

/// The notes of all rules, in blocks that are made with the first note in them. One array for all would have to be
/// sized by walking the whole list of rules beforehand, which costs more than the notes.
class RuleNotes {
public:
    static constexpr std::size_t kBlockSize = 256;

    /// The block that holds the note of a rule, at the rule's index modulo kBlockSize.
    stFeatureTypeStyleRecorder* blockOf(std::size_t ruleIndex) {
        const std::size_t block = ruleIndex / kBlockSize;
        if (m_blocks.size() <= block) m_blocks.resize(block + 1);
        if (m_blocks[block] == nullptr) m_blocks[block] = std::make_unique<stFeatureTypeStyleRecorder[]>(kBlockSize);
        return m_blocks[block].get();
    }

private:
    std::vector<std::unique_ptr<stFeatureTypeStyleRecorder[]>> m_blocks;
};

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

// Tells which stylers a rule carries as texts and under exactly their names: the lookup is blind to letter case, but a
// "Color" is no colour.
class CarriedStylers {
public:
    // A rule for one level has its level among the members.
    CarriedStylers(const cJSON* stylers, int allLevels)
        : m_stylers(stylers), m_unseen(_orvik_vi::cJSON_GetArraySize(stylers) - (allLevels == 0 ? 1 : 0)) {}

    bool contain(std::string_view name) {
        if (m_unseen <= 0) return false;  // each member answers to one name, and all have been seen
        const cJSON* member = _orvik_vi::cJSON_GetObjectItem(m_stylers, name.data());
        if (member == nullptr) return false;
        --m_unseen;
        return _orvik_vi::cJSON_IsString(member) != 0 && member->string == name;
    }

private:
    const cJSON* m_stylers;
    int m_unseen;
};

// The stylers act in this order, whatever the order in the file.
void applyRule(CustomConfig& config, const Rule& rule, RuleNotes& notes, std::size_t ruleIndex) {
    const auto& [featureType, elementType, includesLabels, stylers] = rule;
    int level = 0;
    const int allLevels = config.ParseCustomStyleGivenLevel(stylers, &level);
    CarriedStylers carried(stylers, allLevels);
    const bool colors = carried.contain("color");
    const bool shows = carried.contain("visibility");
    const bool weighs = carried.contain("weight");
    const bool sizes = carried.contain("fontsize");

    if (colors) {
        config.SetCustomColorStyle(featureType, elementType, stylers, includesLabels, nullptr, allLevels, level);
    }
    if (shows) {
        config.SetCustomVisibilityStyle(featureType, elementType, stylers, includesLabels, notes.blockOf(ruleIndex),
                                        static_cast<int>(ruleIndex % RuleNotes::kBlockSize), allLevels, level);
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
    RuleNotes notes;
    std::size_t ruleIndex = 0;
    const cJSON* node = nullptr;
    cJSON_ArrayForEach(node, root) {
        const std::optional<Rule> rule = readRule(*this, node);
        if (rule) applyRule(*this, *rule, notes, ruleIndex);
        ++ruleIndex;
    }
    return 1;
}

}  // namespace _orvik_framework
