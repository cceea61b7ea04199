#include "tools/host/LoadLog.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <vector>

#include "customstyle/CustomConfig.h"
#include "tools/host/LoadedMap.h"
#include "tools/study/ComponentGuard.h"
#include "tools/study/DefaultMapping.h"

namespace customstyle_tool {
namespace {

namespace fs = std::filesystem;

std::string firstLineOfLoading(const std::string& mappingPrefix, const std::string& stylePath) {
    std::vector<std::string> lines;
    const LogRecording recording(lines);
    std::make_unique<_orvik_framework::CustomConfig>()->Init(mappingPrefix.c_str(), stylePath.c_str());
    return lines.empty() ? std::string() : lines.front();
}

// A directory that holds a mapping which the component accepts.
class MappingDirectory {
public:
    MappingDirectory() {
        std::error_code error;
        std::string name = (fs::temp_directory_path(error) / "customstyle-XXXXXX").string();
        if (error || ::mkdtemp(name.data()) == nullptr) return;
        m_path = name;
        std::ofstream(mappingFileIn(m_path.string())) << defaultMapping();
    }
    ~MappingDirectory() {
        std::error_code ignored;
        if (!m_path.empty()) fs::remove_all(m_path, ignored);
    }
    MappingDirectory(const MappingDirectory&) = delete;
    MappingDirectory& operator=(const MappingDirectory&) = delete;

    bool exists() const { return !m_path.empty(); }
    std::string prefix() const { return (m_path / "").string(); }

private:
    fs::path m_path;
};

}  // namespace

std::string logOfMapping(const SourceFile& mapping) {
    const fs::path path(mapping.path());
    std::error_code error;
    if (path != mappingFileIn(path.parent_path().string()) || !fs::is_regular_file(path, error)) return {};
    const std::string prefix = path.parent_path().empty() ? "./" : (path.parent_path() / "").string();
    return firstLineOfLoading(prefix, mapping.path());
}

std::string logOfStyle(const SourceFile& style) {
    std::error_code error;
    if (!fs::is_regular_file(style.path(), error)) return {};
    const MappingDirectory mapping;
    return mapping.exists() ? firstLineOfLoading(mapping.prefix(), style.path()) : std::string();
}

}  // namespace customstyle_tool
