// JSON trees: all operations of cJSON that the engine uses, under the engine's own namespace.
#pragma once

#include <cjson/cJSON.h>

#include <cstdint>
#include <string_view>

namespace [[gnu::visibility("default")]] _orvik_vi {

/// A node. The engine reads its `valuestring`, `valueint` and `string`, the member's name, which a tree made by hand
/// may lack.
using ::cJSON;

using ::cJSON_Delete;
using ::cJSON_GetArraySize;
using ::cJSON_IsArray;
using ::cJSON_IsObject;
using ::cJSON_IsString;

/// Parses JSON text. A NUL or the end of the text ends it; what follows the first complete value is ignored.
///
/// Objects and arrays may nest 1,000 deep.
///
/// @param reserved  always 1
/// @return the tree, to be released with cJSON_Delete, or null when the text is not JSON or memory ran out
cJSON* cJSON_Parse(std::string_view text, int reserved);

/// Looks a member up without regard to the case of ASCII letters, whatever the locale; of several, the first is found.
/// Members without a name are skipped. The result is what the package finds in the "C" locale, in a fraction of the
/// time.
/// @return the member, owned by the tree, or null; null also for a null object or name
cJSON* cJSON_GetObjectItem(const cJSON* object, const char* name);

/// Calls `visit(const cJSON& child)` for each child of a node in order; a null node has none. Linear, while
/// cJSON_GetArrayItem counts from the start on each call.
template <typename Visit>
void forEachChild(const cJSON* node, Visit visit) {
    if (node == nullptr) return;
    for (const cJSON* child = node->child; child != nullptr; child = child->next) visit(*child);
}

/// The same for many children that are trees themselves: each starts to load into the caches while the one before it is
/// visited. The parser lays a tree out after its root; for a large document, a twentieth of the time would be spent
/// waiting.
template <typename Visit>
void forEachSubtree(const cJSON* node, Visit visit) {
    constexpr int kCacheLine = 64;
    constexpr int kLinesOfATree = 14;  // an object of three members, one of them an object of its own
    forEachChild(node, [&](const cJSON& child) {
        const auto next = reinterpret_cast<std::uintptr_t>(child.next);
        for (int line = 0; line < kLinesOfATree; ++line) {
            __builtin_prefetch(reinterpret_cast<const void*>(next + static_cast<std::uintptr_t>(line * kCacheLine)));
        }
        visit(child);
    });
}

}  // namespace _orvik_vi
