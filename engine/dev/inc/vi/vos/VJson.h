// JSON trees: the operations of cJSON that the engine uses, under the engine's own namespace.
#pragma once

#include <cjson/cJSON.h>

#include <string_view>

namespace [[gnu::visibility("default")]] _orvik_vi {

using ::cJSON;
using ::cJSON_Delete;
using ::cJSON_GetArrayItem;
using ::cJSON_GetArraySize;
using ::cJSON_IsArray;
using ::cJSON_IsObject;
using ::cJSON_IsString;

/// Parses JSON text. A NUL or the end of the text ends it; what follows the first complete value is not looked at.
///
/// Objects and arrays may nest 1,000 deep. The children of a node form a list from `child` over `next`; walk it to stay
/// linear, because cJSON_GetArrayItem counts from the start on each call.
///
/// @param reserved  always 1
/// @return the tree, to be released with cJSON_Delete, or null when the text is not JSON or memory ran out
cJSON* cJSON_Parse(std::string_view text, int reserved);

/// Looks a member up without regard to the case of ASCII letters, whatever the locale; of several, the first is found.
/// What it finds is what the package finds in the "C" locale, in a fraction of the time.
/// @return the member, owned by the tree, or null; null also for a null object or name
cJSON* cJSON_GetObjectItem(const cJSON* object, const char* name);

}  // namespace _orvik_vi
