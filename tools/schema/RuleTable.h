// Which stylers work on which elements of which feature types in the component.
#pragma once

#include <string>
#include <vector>

namespace customstyle_tool {

/// A styler with a value.
struct StylerValue {
    std::string name;
    std::string value;
};

/// What the component looks at in an element path: the last word, and whether the path names labels.
struct ElementClass {
    std::string word;
    bool namesLabels;

    bool operator==(const ElementClass&) const = default;
};

/// A styler as the table knows it: one value represents all, except that "on" and "off" differ.
struct StylerColumn {
    StylerValue styler;
    std::vector<ElementClass> elements;  ///< those on which it works

    bool operator==(const StylerColumn& other) const { return elements == other.elements; }
};

/// Feature types that accept the same rules.
struct TypeGroup {
    std::vector<std::string> names;
    std::vector<StylerColumn> columns;  ///< color, visibility on, visibility off, weight, fontsize
    bool ignoresAlpha = false;
};

/// All feature types, in groups, by asking the component for each styler on each element of each type.
std::vector<TypeGroup> typeGroups();

/// A regular expression for the element paths of some classes, in the syntax of JSON Schema.
std::string patternOf(const std::vector<ElementClass>& elements);

}  // namespace customstyle_tool
