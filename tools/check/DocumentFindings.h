// What is wrong with a file as JSON.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tools/check/Finding.h"
#include "tools/json/JsonDocument.h"
#include "tools/json/JsonError.h"
#include "tools/json/SourceFile.h"
#include "tools/support/PlainText.h"

namespace customstyle_tool {

/// Why a file is not JSON.
/// @param consequence  what that means for the map, as the end of a sentence
Finding jsonFinding(const SourceFile& file, const JsonError& error, std::string_view consequence);

/// The text after the outermost value, if there is any.
std::optional<Finding> textBehindEnd(const SourceFile& file, const JsonDocument& document);

/// The kind of a value, with its article: "a number", "an object".
std::string_view kindName(JsonKind kind);

}  // namespace customstyle_tool
