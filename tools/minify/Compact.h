// A document without blanks.
#pragma once

#include <string>

#include "tools/json/JsonDocument.h"

namespace customstyle_tool {

/// The document's text without the blanks between its parts.
std::string compactText(const JsonDocument& document);

}  // namespace customstyle_tool
