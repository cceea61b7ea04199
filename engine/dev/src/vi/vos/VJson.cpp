#include "vi/vos/VJson.h"

namespace _orvik_vi {

cJSON* cJSON_Parse(std::string_view text, int /*reserved*/) {
    return cJSON_ParseWithLength(text.data(), text.size());
}

}  // namespace _orvik_vi
