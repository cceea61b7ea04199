#include "tools/minify/MinimalRule.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

#include "customstyle/CustomConfig.h"
#include "tools/minify/ShortValues.h"
#include "tools/study/RuleView.h"
#include "tools/vocabulary/Stylers.h"

namespace customstyle_tool {
namespace {

using _orvik_framework::CustomConfig;
using _orvik_framework::CVString;

// Empty where the component would not get as far as the stylers. Its own list names the stylers that it acts on.
std::optional<MinimalRule> minimalRule(const CustomConfig& component, const RuleView& rule) {
    const bool isWhole = isText(rule.featureType) && isText(rule.elementType) && rule.stylers &&
                         rule.stylers->kind() == JsonKind::Object;
    if (!isWhole) return {};
    const Tree tree = componentTree(rule.stylers->source());
    const CVString list = component.ParseCustomStyler(tree.get());
    MinimalRule minimal{rule.typeName, rule.path, {}, {}};
    int level = 0;
    if (component.ParseCustomStyleGivenLevel(tree.get(), &level) == 0) minimal.level = level;
    for (const std::string& name : stylerNames()) {
        if (list.Find(name.c_str()) == -1) continue;
        const auto value = rule.textMember(name);
        minimal.stylers.push_back({name, shortValue(component, rule.typeName, name, value ? value->text() : "")});
    }
    return minimal.stylers.empty() ? std::nullopt : std::optional(std::move(minimal));
}

// The shortest JSON spelling of a byte.
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

}  // namespace

std::vector<MinimalStyler> joinedStylers(const std::vector<MinimalStyler>& earlier,
                                         const std::vector<MinimalStyler>& later) {
    std::vector<MinimalStyler> joined;
    for (const std::string& name : stylerNames()) {
        for (const auto* stylers : {&later, &earlier}) {
            const auto found = std::ranges::find(*stylers, name, &MinimalStyler::name);
            if (found == stylers->end()) continue;
            joined.push_back(*found);
            break;
        }
    }
    return joined;
}

std::string textOf(const MinimalRule& rule) {
    std::vector<std::string> stylers;
    for (const auto& [name, value] : rule.stylers) stylers.push_back(member(name, value));
    if (rule.level) stylers.push_back(member("level", std::to_string(*rule.level)));
    return fmt::format(R"({{{},{},"stylers":{{{}}}}})", member("featureType", rule.featureType),
                       member("elementType", rule.elementType), fmt::join(stylers, ","));
}

std::vector<MinimalRule> minimalRules(const StyleSource& style) {
    const CustomConfig component;
    std::vector<MinimalRule> rules;
    for (const RuleView& rule : viewsOf(style)) {
        if (auto minimal = minimalRule(component, rule)) rules.push_back(std::move(*minimal));
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
