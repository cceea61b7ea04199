// RuleNode: a rule, or a part of one, on its way from the file in which it is written into a style.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tools/json/JsonDocument.h"

namespace customstyle_tool {

/// A JSON value that remembers where it was written, in JSON or in TOML.
struct RuleNode {
    JsonKind kind = JsonKind::Null;
    TextRange range{};                 ///< in its file
    std::string name{};                ///< of a member
    TextRange nameRange{};             ///< of a member
    std::string nameJson{};            ///< of a member, with its quotes; empty for other values
    std::string json{};                ///< of a scalar, as the style will have it
    std::string text{};                ///< of a text
    std::vector<RuleNode> children{};  ///< of a list or object
    bool isAfterBlankLine = false;     ///< whether there is room between a rule and the one before
};

/// The values of a document's outermost list.
std::vector<RuleNode> rulesOf(const JsonDocument& document);

/// Whether a member of a rule holds its stylers, as the component reads it.
bool holdsStylers(const RuleNode& member);

}  // namespace customstyle_tool
