// An engine with a base library of its own. Its files hold nothing but their own path, and a document is found under
// that.
#pragma once

#include <map>
#include <string>

#include "vi/vos/VJson.h"

namespace customstyle_test {

inline std::map<std::string, _orvik_vi::cJSON*> g_documents;

}  // namespace customstyle_test
