#include "tools/minify/MinimalRule.h"

#include <fmt/format.h>

#include "customstyle/CustomConfig.h"
#include "tools/minify/ShortValues.h"
#include "tools/study/SingleRules.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;
using _orvik_framework::CVString;
using _orvik_vi::cJSON;

std::optional<std::string> textMember(const cJSON* object, const std::string& name) {
    const cJSON* member = _orvik_vi::cJSON_GetObjectItem(object, name.c_str());
    if (!cJSON_IsString(member)) return {};
    return member->valuestring;
}

std::optional<int> levelOf(const CustomConfig& component, const cJSON* stylers) {
    int level = 0;
    if (component.ParseCustomStyleGivenLevel(stylers, &level) != 0) return {};
    return level;
}

// What the component would act on: the stylers that its own list names.
std::vector<MinimalStyler> stylersOf(const CustomConfig& component, const std::string& featureType,
                                     const cJSON* stylers) {
    std::vector<MinimalStyler> found;
    const CVString list = component.ParseCustomStyler(stylers);
    for (const char* name : {"color", "visibility", "weight", "fontsize"}) {
        if (list.Find(name) == -1) continue;
        const std::string value = textMember(stylers, name).value_or("");
        found.push_back({name, shortValue(component, featureType, name, value)});
    }
    return found;
}

// Empty where the component would not get as far as to look at a styler.
std::optional<MinimalRule> ruleOf(const CustomConfig& component, const cJSON* rule) {
    const auto featureType = textMember(rule, "featureType");
    const auto elementType = textMember(rule, "elementType");
    const cJSON* stylers = _orvik_vi::cJSON_GetObjectItem(rule, "stylers");
    if (!featureType || !elementType || !cJSON_IsObject(stylers)) return {};
    MinimalRule minimal{*featureType, *elementType, levelOf(component, stylers), {}};
    minimal.stylers = stylersOf(component, *featureType, stylers);
    return minimal.stylers.empty() ? std::nullopt : std::optional(std::move(minimal));
}

// A text as JSON. Bytes stay as they are, as the component reads them.
std::string jsonText(std::string_view text) {
    std::string out = "\"";
    for (const char byte : text) {
        if (static_cast<unsigned char>(byte) < 0x20) {
            out += fmt::format("\\u{:04x}", byte);
        } else {
            if (byte == '"' || byte == '\\') out += '\\';
            out += byte;
        }
    }
    return out + '"';
}

std::string member(std::string_view name, std::string_view value) {
    return fmt::format("{}:{}", jsonText(name), jsonText(value));
}

std::string textOf(const MinimalRule& rule) {
    std::vector<std::string> stylers;
    for (const auto& [name, value] : rule.stylers) stylers.push_back(member(name, value));
    if (rule.level) stylers.push_back(member("level", std::to_string(*rule.level)));
    return fmt::format(R"({{{},{},"stylers":{{{}}}}})", member("featureType", rule.featureType),
                       member("elementType", rule.elementType), fmt::join(stylers, ","));
}

}  // namespace

std::vector<MinimalRule> minimalRules(std::string_view style) {
    const CustomConfig component;
    const Tree tree = componentTree(style);
    std::vector<MinimalRule> rules;
    const cJSON* rule = nullptr;
    cJSON_ArrayForEach(rule, tree.get()) {
        if (auto minimal = ruleOf(component, rule)) rules.push_back(std::move(*minimal));
    }
    return rules;
}

std::string textOf(const std::vector<MinimalRule>& rules) {
    std::string text = "[";
    const char* separator = "";
    for (const MinimalRule& rule : rules) {
        text += separator + textOf(rule);
        separator = ",";
    }
    return text + "]";
}

}  // namespace customstyle_tool
