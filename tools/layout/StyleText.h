// A style file read for rewriting.
#pragma once

#include <memory>
#include <string>
#include <variant>

#include "tools/json/SourceFile.h"

namespace customstyle_tool {

/// A file and the document that it holds.
struct StyleText {
    std::unique_ptr<SourceFile> file;
    JsonDocument document;
};

/// Reads a style file that is to be written again, and so refuses not only what is not JSON but also what the new text
/// would lose: a byte order mark, and text after the document, which the component ignores.
std::variant<StyleText, ReadFailure> readForRewriting(const std::string& path);

/// The same for a file that has already been read.
std::variant<StyleText, ReadFailure> forRewriting(std::unique_ptr<SourceFile> file);

}  // namespace customstyle_tool
