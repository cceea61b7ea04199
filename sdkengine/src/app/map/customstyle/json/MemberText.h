// Reading texts from JSON objects.
#pragma once

#include "vi/vos/VJson.h"

namespace _orvik_framework {

/// The member of an object, if its value is a text; otherwise null. Numbers and other values count as absent.
inline const _orvik_vi::cJSON* findTextMember(const _orvik_vi::cJSON* object, const char* name) {
    const _orvik_vi::cJSON* member = _orvik_vi::cJSON_GetObjectItem(object, name);
    return _orvik_vi::cJSON_IsString(member) != 0 ? member : nullptr;
}

/// The text of that member, owned by the tree, or null.
inline const char* findText(const _orvik_vi::cJSON* object, const char* name) {
    const _orvik_vi::cJSON* member = findTextMember(object, name);
    return member == nullptr ? nullptr : member->valuestring;
}

}  // namespace _orvik_framework
