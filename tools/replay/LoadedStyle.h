// LoadedStyle: a style file with its places, and the store that comes of it.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <variant>

#include "customstyle/CustomConfig.h"
#include "tools/replay/MappingSource.h"
#include "tools/support/SourceFile.h"

namespace customstyle_tool {

/// A style file as text and as the component holds it.
class LoadedStyle {
public:
    /// Applies a style through the component; its log lines are dropped.
    /// @param mapping  text of a mapping file that the component accepts
    LoadedStyle(std::string mapping, std::unique_ptr<SourceFile> file, JsonDocument document);

    const StyleSource& source() const { return m_source; }
    const std::string& mapping() const { return m_mapping; }
    const StyleIdsByType& styleIds() const { return m_styleIds; }

    /// The store after the last rule.
    const _orvik_framework::CustomConfig& config() const { return *m_config; }

private:
    std::string m_mapping;
    std::unique_ptr<SourceFile> m_file;
    StyleSource m_source;
    std::unique_ptr<_orvik_framework::CustomConfig> m_config;
    StyleIdsByType m_styleIds;
};

using StyleOrFailure = std::variant<std::unique_ptr<LoadedStyle>, ReadFailure>;

/// Reads a style file and turns the renderer's questions on.
/// @param mappingDirectory  directory of the file "CustomIndex"; without it, the default mapping is used
StyleOrFailure loadStyle(const std::string& styleFile, const std::optional<std::string>& mappingDirectory);

/// A store of its own, loaded with the texts of a mapping and a style. The component's log is to be silenced by the
/// caller.
std::unique_ptr<_orvik_framework::CustomConfig> storeOf(std::string_view mapping, std::string_view style);

}  // namespace customstyle_tool
