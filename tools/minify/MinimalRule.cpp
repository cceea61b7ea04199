#include "tools/minify/MinimalRule.h"

#include <cjson/cJSON.h>
#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <new>
#include <string_view>

#include "customstyle/CustomConfig.h"
#include "tools/minify/ShortValues.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;
using _orvik_framework::CVString;
using _orvik_vi::cJSON;

// In the order in which the component acts on them.
constexpr const char* kStylers[] = {"color", "visibility", "weight", "fontsize"};

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
    for (const char* name : kStylers) {
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

// As short as JSON spells it.
std::string escaped(char byte) {
    constexpr std::string_view kNamed = "\bb\ff\nn\rr\tt\"\"\\\\";
    for (std::size_t i = 0; i < kNamed.size(); i += 2) {
        if (kNamed[i] == byte) return {'\\', kNamed[i + 1]};
    }
    return static_cast<unsigned char>(byte) < 0x20 ? fmt::format("\\u{:04x}", byte) : std::string(1, byte);
}

// A text as JSON. Other bytes stay as they are, as the component reads them.
std::string jsonText(std::string_view text) {
    std::string out = "\"";
    for (const char byte : text) out += escaped(byte);
    return out + '"';
}

std::string member(std::string_view name, std::string_view value) {
    return fmt::format("{}:{}", jsonText(name), jsonText(value));
}

// Ends as operator new has it end when memory runs out, also where nothing can be thrown.
void endWithoutMemory() {
    constexpr std::size_t kMoreThanAnyHeapHas = std::numeric_limits<std::ptrdiff_t>::max();
    ::operator delete(::operator new(kMoreThanAnyHeapHas));
    std::abort();
}

void addText(cJSON* object, const char* name, const std::string& value) {
    if (cJSON_AddStringToObject(object, name, value.c_str()) == nullptr) endWithoutMemory();
}

}  // namespace

std::vector<MinimalStyler> joinedStylers(const std::vector<MinimalStyler>& earlier,
                                         const std::vector<MinimalStyler>& later) {
    std::vector<MinimalStyler> joined;
    for (const char* name : kStylers) {
        for (const auto* stylers : {&later, &earlier}) {
            const auto found = std::ranges::find(*stylers, name, &MinimalStyler::name);
            if (found == stylers->end()) continue;
            joined.push_back(*found);
            break;
        }
    }
    return joined;
}

Tree treeOf(const MinimalRule& rule) {
    Tree list(cJSON_CreateArray());
    cJSON* const object = cJSON_CreateObject();
    if (list == nullptr || object == nullptr) endWithoutMemory();
    cJSON_AddItemToArray(list.get(), object);
    addText(object, "featureType", rule.featureType);
    addText(object, "elementType", rule.elementType);
    cJSON* const stylers = cJSON_AddObjectToObject(object, "stylers");
    if (stylers == nullptr) endWithoutMemory();
    for (const auto& [name, value] : rule.stylers) addText(stylers, name.c_str(), value);
    if (rule.level) addText(stylers, "level", std::to_string(*rule.level));
    return list;
}

std::string textOf(const MinimalRule& rule) {
    std::vector<std::string> stylers;
    for (const auto& [name, value] : rule.stylers) stylers.push_back(member(name, value));
    if (rule.level) stylers.push_back(member("level", std::to_string(*rule.level)));
    return fmt::format(R"({{{},{},"stylers":{{{}}}}})", member("featureType", rule.featureType),
                       member("elementType", rule.elementType), fmt::join(stylers, ","));
}

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
