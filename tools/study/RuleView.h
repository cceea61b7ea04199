// A rule of a style file, with the members that the component finds in it.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/json/JsonDocument.h"
#include "tools/json/SourceFile.h"
#include "tools/study/StyleSource.h"

namespace customstyle_tool {

/// Whether there is a value that is a text, the only kind that counts.
bool isText(const std::optional<JsonValue>& value);

struct RuleView {
    std::size_t place = 0;  ///< index of the rule, from 0
    JsonValue value;
    std::optional<JsonValue> featureType;  ///< of any kind, as are the next two
    std::optional<JsonValue> elementType;
    std::optional<JsonValue> stylers;
    int typeId = -1;                 ///< -1 for a name that the catalogue does not know
    std::string typeName;            ///< empty where there is no text
    std::string path;                ///< the element path; empty where there is no text
    std::vector<std::string> words;  ///< of the path, between its dots

    /// A member of the stylers, of any kind.
    std::optional<JsonValue> member(std::string_view name) const;

    /// All members of the stylers with this name: the component uses the first, or a later one if those before are
    /// removed.
    std::vector<JsonValue> members(std::string_view name) const;

    /// A member of the stylers if it is a text, the only kind that counts.
    std::optional<JsonValue> textMember(std::string_view name) const;

    /// Whether the path has this word between its dots.
    bool names(std::string_view word) const;

    /// The member of the stylers that its author may have meant as a styler, if none counts: the first that is not a
    /// text, else the first in different letter case, else the first with an unknown name that is not a remark.
    std::optional<JsonValue> suspect() const;

    /// The start of the rule, for findings about something that is missing.
    TextRange start() const;

    /// A styler with its name; the start of the rule for the empty name.
    TextRange stylerRange(const std::string& styler) const;

    /// The rule's text with a part of it replaced.
    std::string textWith(TextRange part, std::string_view replacement) const;
};

std::vector<RuleView> viewsOf(const StyleSource& style);

}  // namespace customstyle_tool
