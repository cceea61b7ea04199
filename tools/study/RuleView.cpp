#include "tools/study/RuleView.h"

#include <algorithm>

#include "tools/json/JsonScalars.h"
#include "tools/study/StyleSource.h"
#include "tools/support/PlainText.h"
#include "tools/vocabulary/FeatureTypes.h"
#include "tools/vocabulary/RemarkMembers.h"
#include "tools/vocabulary/Stylers.h"

namespace customstyle_tool {
namespace {

bool isRuleMember(std::string_view name) {
    constexpr std::string_view kMembers[] = {"featureType", "elementType", "stylers"};
    return std::ranges::any_of(kMembers, [&](std::string_view known) { return equalIgnoringCase(known, name); });
}

RuleView viewOf(std::size_t place, JsonValue value) {
    RuleView rule;
    rule.place = place;
    rule.value = value;
    rule.featureType = value.firstMemberIgnoringCase("featureType");
    rule.elementType = value.firstMemberIgnoringCase("elementType");
    rule.stylers = value.firstMemberIgnoringCase("stylers");
    if (isText(rule.featureType)) rule.typeName = rule.featureType->text();
    rule.typeId = catalogue().GetFeatureTypeId(rule.typeName);
    if (isText(rule.elementType)) rule.path = rule.elementType->text();
    rule.words = split(rule.path, '.');
    return rule;
}

}  // namespace

bool isText(const std::optional<JsonValue>& value) {
    return value && value->kind() == JsonKind::String;
}

std::optional<JsonValue> RuleView::member(std::string_view name) const {
    return stylers ? stylers->firstMemberIgnoringCase(name) : std::nullopt;
}

std::vector<JsonValue> RuleView::members(std::string_view name) const {
    std::vector<JsonValue> found;
    if (!stylers) return found;
    for (const JsonValue child : stylers->children()) {
        if (equalIgnoringCase(child.name(), name)) found.push_back(child);
    }
    return found;
}

std::optional<JsonValue> RuleView::textMember(std::string_view name) const {
    const std::optional<JsonValue> found = member(name);
    return isText(found) ? found : std::nullopt;
}

bool RuleView::names(std::string_view word) const {
    return std::ranges::find(words, word) != words.end();
}

std::optional<JsonValue> RuleView::suspect() const {
    std::optional<JsonValue> otherCase;
    std::optional<JsonValue> unknown;
    if (!stylers || stylers->kind() != JsonKind::Object) return {};
    for (const JsonValue child : stylers->children()) {
        const bool isStyler = std::ranges::any_of(
            stylerNames(), [&](const std::string& name) { return equalIgnoringCase(name, child.name()); });
        if (isStyler && child == *member(child.name()) && child.kind() != JsonKind::String) return child;
        if (isStyler && !otherCase && stylerNamed(child.name()) == nullptr) otherCase = child;
        const bool isKnown = std::ranges::any_of(
            stylerMembers(), [&](const std::string& name) { return equalIgnoringCase(name, child.name()); });
        if (!isKnown && !unknown && !isRuleMember(child.name()) && !isRemark(child.name())) unknown = child;
    }
    return otherCase ? otherCase : unknown;
}

TextRange RuleView::start() const {
    return {value.range().begin, value.range().begin + 1};
}

TextRange RuleView::stylerRange(const std::string& styler) const {
    const std::optional<JsonValue> found = styler.empty() ? std::nullopt : member(styler);
    return found ? TextRange{found->nameRange().begin, found->range().end} : start();
}

std::string RuleView::textWith(TextRange part, std::string_view replacement) const {
    std::string text(value.source());
    text.replace(part.begin - value.range().begin, part.size(), replacement);
    return text;
}

std::vector<RuleView> viewsOf(const StyleSource& style) {
    std::vector<RuleView> views;
    views.reserve(style.rules().size());
    for (const JsonValue rule : style.rules()) views.push_back(viewOf(views.size(), rule));
    return views;
}

}  // namespace customstyle_tool
