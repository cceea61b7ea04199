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
    std::size_t place = 0;  ///< among the rules, from 0
    JsonValue value;
    std::optional<JsonValue> featureType;  ///< of whatever kind, as are the next two
    std::optional<JsonValue> elementType;
    std::optional<JsonValue> stylers;
    int typeId = -1;                 ///< -1 for a name that the catalogue does not know
    std::string typeName;            ///< empty where there is no text
    std::string path;                ///< the element path; empty where there is no text
    std::vector<std::string> words;  ///< of the path, between its dots

    /// A member of the stylers, of whatever kind.
    std::optional<JsonValue> member(std::string_view name) const;

    /// All members of the stylers that the component takes for it once those before are gone.
    std::vector<JsonValue> members(std::string_view name) const;

    /// A member of the stylers if it is a text, the only kind that counts.
    std::optional<JsonValue> textMember(std::string_view name) const;

    /// Whether a word stands between the dots of the path.
    bool names(std::string_view word) const;

    /// The member of the stylers that its author may have meant for a styler, where none counts: the first that is no
    /// text, else the first in other letter case, else the first of an unknown name that is no remark.
    std::optional<JsonValue> suspect() const;

    /// Where the rule begins, for findings about what is not there.
    TextRange start() const;

    /// A styler with its name; the start of the rule for the empty name.
    TextRange stylerRange(const std::string& styler) const;

    /// The rule's text with a part of it replaced.
    std::string textWith(TextRange part, std::string_view replacement) const;
};

std::vector<RuleView> viewsOf(const StyleSource& style);

}  // namespace customstyle_tool
