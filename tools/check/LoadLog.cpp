#include "tools/check/LoadLog.h"

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>

#include "customstyle/CustomConfig.h"
#include "tools/check/WhatIf.h"
#include "tools/support/LoadedMap.h"
#include "vi/vos/VLog.h"

namespace customstyle_tool {
namespace {

namespace fs = std::filesystem;
using _orvik_vi::CVLog;

std::string firstLineOfLoading(const std::string& mappingPrefix, const std::string& stylePath) {
    std::string first;
    CVLog::SetSink([&first](_orvik_vi::ELOGPRIORITY, const std::string& line) {
        if (first.empty()) first = line;
    });
    std::make_unique<_orvik_framework::CustomConfig>()->Init(mappingPrefix.c_str(), stylePath.c_str());
    CVLog::SetSink({});
    return first;
}

// A directory that holds a mapping which the component accepts.
class MappingDirectory {
public:
    MappingDirectory() {
        std::error_code error;
        std::string name = (fs::temp_directory_path(error) / "customstyle-XXXXXX").string();
        if (error || ::mkdtemp(name.data()) == nullptr) return;
        m_path = name;
        std::ofstream(mappingFileIn(m_path.string())) << oneIdPerType();
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
