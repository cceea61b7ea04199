#include <cstdint>
#include <cstring>
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
    explicit CarriedStylers(const cJSON* stylers) : m_stylers(stylers) {
        const cJSON* member = nullptr;
        cJSON_ArrayForEach(member, stylers) m_initials |= initial(member->string[0]);
    }

    bool contain(std::string_view name) const {
        if ((m_initials & initial(name[0])) == 0) return false;  // most are absent, and this is sooner seen
        const cJSON* member = findTextMember(m_stylers, name.data());
        return member != nullptr && member->string == name;
    }

private:
    // A bit for a letter in either case.
    static std::uint32_t initial(char letter) { return std::uint32_t{1} << (letter & 31); }

    const cJSON* m_stylers;
    std::uint32_t m_initials = 0;
};

// The stylers act in this order, whatever the order in the file.
void applyRule(CustomConfig& config, const Rule& rule, stFeatureTypeStyleRecorder& note) {
    const auto& [featureType, elementType, includesLabels, stylers] = rule;
    int level = 0;
    const int allLevels = config.ParseCustomStyleGivenLevel(stylers, &level);
    const CarriedStylers carried(stylers);
    const bool colors = carried.contain("color");
    const bool shows = carried.contain("visibility");
    const bool weighs = carried.contain("weight");
    const bool sizes = carried.contain("fontsize");

    if (colors) {
        config.SetCustomColorStyle(featureType, elementType, stylers, includesLabels, nullptr, allLevels, level);
    }
    if (shows) {
        config.SetCustomVisibilityStyle(featureType, elementType, stylers, includesLabels, &note, 0, allLevels, level);
    }
    if (weighs) {
        config.SetCustomWeightStyle(featureType, elementType, stylers, includesLabels, nullptr, allLevels, level);
    }
    if (sizes) {
        config.SetCustomFontSizeStyle(featureType, elementType, stylers, includesLabels, nullptr, allLevels, level);
    }
    if (!colors && !shows && !weighs && !sizes) config.CustomMapPrintLog(messages::kStylersEmpty);
}

// Begins to load a rule into the caches while the one before it is applied: the parser makes a rule's members right
// behind its node. Of a large file a tenth of the time would go by waiting for them.
void fetchAhead(const cJSON* rule) {
    constexpr std::uintptr_t kCacheLine = 64;
    constexpr std::uintptr_t kLinesOfARule = 14;
    const auto begin = reinterpret_cast<std::uintptr_t>(rule);
    for (std::uintptr_t line = 0; line < kLinesOfARule; ++line) {
        __builtin_prefetch(reinterpret_cast<const void*>(begin + line * kCacheLine));
    }
}

}  // namespace

int CustomConfig::ParseCustomConfig(const cJSON* root) {
    // Nobody reads the note of an earlier rule, so one place serves them all: an array for all rules would have to be
    // sized by walking the whole list beforehand.
    stFeatureTypeStyleRecorder note{};
    const cJSON* node = nullptr;
    cJSON_ArrayForEach(node, root) {
        fetchAhead(node->next);
        const std::optional<Rule> rule = readRule(*this, node);
        if (rule) applyRule(*this, *rule, note);
    }
    return 1;
}

}  // namespace _orvik_framework
