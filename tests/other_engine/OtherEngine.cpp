// The other engine's base library.
#include "tests/other_engine/OtherEngine.h"

#include <algorithm>

#include "vi/vos/VFile.h"
#include "vi/vos/VMap.h"
#include "vi/vos/VString.h"

namespace _orvik_vi {

void CVMapPtrToPtr::GetNextAssoc(void*& position, void*& key, void*& value) const {
    const Entry* entry = static_cast<Entry*>(position);
    key = entry->first;
    value = entry->second;
    position = entry == m_entries.data() ? nullptr : const_cast<Entry*>(entry - 1);
}

int CVMapPtrToPtr::Lookup(void* key, void*& value) const {
    const auto found = std::ranges::lower_bound(m_entries, key, {}, &Entry::first);
    if (found == m_entries.end() || found->first != key) return 0;
    value = found->second;
    return 1;
}

void*& CVMapPtrToPtr::operator[](void* key) {
    auto place = std::ranges::lower_bound(m_entries, key, {}, &Entry::first);
    if (place == m_entries.end() || place->first != key) place = m_entries.insert(place, {key, nullptr});
    return place->second;
}

int CVFile::Open(const CVString& path, unsigned mode) {
    const std::u16string_view name = static_cast<const char16_t*>(path);
    m_text.assign(name.begin(), name.end());
    return mode == kReadExisting;
}

int cJSON_GetArraySize(const cJSON* node) {
    int size = 0;
    forEachChild(node, [&size](const cJSON&) { ++size; });
    return size;
}

cJSON* cJSON_GetObjectItem(const cJSON* object, const char* name) {
    for (cJSON* member = object->firstChild; member != nullptr; member = member->sibling) {
        if (member->string != nullptr && std::string_view(name) == member->string) return member;
    }
    return nullptr;
}

cJSON* cJSON_Parse(std::string_view text, int) {
    return customstyle_test::g_documents.at(std::string(text));
}

void cJSON_Delete(cJSON*) {}

}  // namespace _orvik_vi
