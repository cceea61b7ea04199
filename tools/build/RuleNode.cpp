#include "tools/build/RuleNode.h"

#include <algorithm>

#include "tools/json/JsonScalars.h"

namespace customstyle_tool {
namespace {

RuleNode nodeOf(JsonValue value, std::string_view text) {
    RuleNode node{.kind = value.kind(), .range = value.range()};
    if (value.isMember()) {
        node.name = value.name();
        node.nameRange = value.nameRange();
        node.nameJson = text.substr(node.nameRange.begin, node.nameRange.size());
    }
    if (value.kind() == JsonKind::Array || value.kind() == JsonKind::Object) {
        for (const JsonValue child : value.children()) node.children.push_back(nodeOf(child, text));
    } else {
        node.json = value.source();
        node.text = value.text();
    }
    return node;
}

bool holdsBlankLine(std::string_view between) {
    return std::ranges::count(between, '\n') > 1;
}

}  // namespace

std::vector<RuleNode> rulesOf(const JsonDocument& document) {
    std::vector<RuleNode> rules;
    for (const JsonValue rule : document.root().children()) {
        RuleNode node = nodeOf(rule, document.text());
        if (!rules.empty()) {
            const std::size_t end = rules.back().range.end;
            node.isAfterBlankLine = holdsBlankLine(document.text().substr(end, node.range.begin - end));
        }
        rules.push_back(std::move(node));
    }
    return rules;
}

bool holdsStylers(const RuleNode& member) {
    return equalIgnoringCase(member.name, "stylers");
}

}  // namespace customstyle_tool
