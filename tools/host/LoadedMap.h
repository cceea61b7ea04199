// Loading a mapping and a style, with plain words for what goes wrong.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <variant>

#include "tools/host/Files.h"
#include "tools/study/StyleStudy.h"

namespace customstyle_tool {

/// The mapping file of a directory.
std::string mappingFileIn(const std::string& mappingDirectory);

/// Why a path is not a directory with a mapping file; nothing if it is.
std::optional<ReadFailure> problemOfMappingDirectory(const std::string& path);

/// A lane for each processor.
Spread hostSpread();

using StyleOrFailure = std::variant<std::unique_ptr<StyleStudy>, ReadFailure>;

/// The mapping of a directory with the file "CustomIndex".
std::variant<Mapping, ReadFailure> loadMapping(const std::string& mappingDirectory);

/// A style over the mapping of a directory, or over `without` if there is no directory.
StyleOrFailure studyOf(std::unique_ptr<SourceFile> file, const std::optional<std::string>& mappingDirectory,
                       const Mapping& without);

}  // namespace customstyle_tool
