#include "vi/vos/VJson.h"

#include <cstring>

namespace _orvik_vi {
namespace {

constexpr char lowered(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool isSameButForCase(const char* one, const char* other) {
    for (; lowered(*one) == lowered(*other); ++one, ++other) {
        if (*one == '\0') return true;
    }
    return false;
}

// Most names that differ do so in more than the case of their first letter; most of the others are equal.
bool isSameName(const char* one, const char* other) {
    constexpr int kCaseBit = 'a' ^ 'A';
    if (((*one ^ *other) | kCaseBit) != kCaseBit) return false;
    return std::strcmp(one, other) == 0 || isSameButForCase(one, other);
}

}  // namespace

cJSON* cJSON_Parse(std::string_view text, int /*reserved*/) {
    // The package alone would treat a NUL between two tokens as a blank.
    const std::string_view json = text.substr(0, text.find('\0'));
    return cJSON_ParseWithLength(json.data(), json.size());
}

cJSON* cJSON_GetObjectItem(const cJSON* object, const char* name) {
    if (object == nullptr || name == nullptr) return nullptr;
    for (cJSON* member = object->child; member != nullptr; member = member->next) {
        if (member->string != nullptr && isSameName(member->string, name)) return member;
    }
    return nullptr;
}

}  // namespace _orvik_vi
