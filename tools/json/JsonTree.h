// How a document is stored; for the files of this folder.
#pragma once

#include <cstdint>
#include <deque>
#include <string_view>

#include "tools/json/JsonDocument.h"

namespace customstyle_tool {

/// A value's place; texts and numbers are decoded on request. Offsets are bytes of the text.
struct JsonNode {
    std::uint32_t begin;
    std::uint32_t end;
    std::uint32_t nameBegin;  ///< equal to nameEnd if the value is not a member
    std::uint32_t nameEnd;
    std::uint32_t parent;    ///< the outermost value is its own parent
    std::uint32_t position;  ///< among the parent's children
    std::uint32_t behind;    ///< index of the first node after this value
    JsonKind kind;
};

/// The nodes in the order of their text: a value comes before its children, so node + 1 is the first child.
struct JsonTree {
    std::string_view text;
    std::deque<JsonNode> nodes;
};

}  // namespace customstyle_tool
