// JSON trees of another engine: nodes of its own, not the package's.
#pragma once

#include <string_view>

namespace [[gnu::visibility("default")]] _orvik_vi {

struct cJSON {
    enum class Kind { Number, String, Array, Object };

    Kind kind;
    int valueint = 0;
    const char* valuestring = nullptr;
    const char* string = nullptr;
    cJSON* firstChild = nullptr;
    cJSON* sibling = nullptr;
};

inline int cJSON_IsString(const cJSON* node) {
    return node != nullptr && node->kind == cJSON::Kind::String;
}
inline int cJSON_IsArray(const cJSON* node) {
    return node != nullptr && node->kind == cJSON::Kind::Array;
}
inline int cJSON_IsObject(const cJSON* node) {
    return node != nullptr && node->kind == cJSON::Kind::Object;
}

template <typename Visit>
void forEachChild(const cJSON* node, Visit visit) {
    for (cJSON* child = node == nullptr ? nullptr : node->firstChild; child != nullptr; child = child->sibling) {
        visit(*child);
    }
}

template <typename Visit>
void forEachSubtree(const cJSON* node, Visit visit) {
    forEachChild(node, visit);
}

int cJSON_GetArraySize(const cJSON* node);
cJSON* cJSON_GetObjectItem(const cJSON* object, const char* name);
cJSON* cJSON_Parse(std::string_view text, int reserved);
void cJSON_Delete(cJSON* tree);

}  // namespace _orvik_vi
