#include "vi/vos/VJson.h"

namespace _orvik_vi {

cJSON* cJSON_Parse(std::string_view text, int /*reserved*/) {
    // The package alone would take a NUL between two tokens for a blank.
    const std::string_view json = text.substr(0, text.find('\0'));
    return cJSON_ParseWithLength(json.data(), json.size());
}

}  // namespace _orvik_vi
