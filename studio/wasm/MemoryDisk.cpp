#include "studio/wasm/MemoryDisk.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <utility>
#include <vector>

#include "vi/vos/VFile.h"
#include "vi/vos/VString.h"

namespace customstyle_studio {
namespace {

struct OpenFile {
    std::string content;
    std::size_t position = 0;
};

std::map<std::string, std::string>& files() {
    static std::map<std::string, std::string> all;
    return all;
}

// A descriptor is the index of a file.
std::vector<OpenFile>& openFiles() {
    static std::vector<OpenFile> all;
    return all;
}

}  // namespace

void putFile(const std::string& path, std::string content) {
    files()[path] = std::move(content);
}

void removeAllFiles() {
    files().clear();
    openFiles().clear();
}

}  // namespace customstyle_studio

namespace _orvik_vi {

using customstyle_studio::OpenFile;
using customstyle_studio::openFiles;

CVFile::~CVFile() {
    Close();
}

int CVFile::Open(const CVString& path, unsigned mode) {
    Close();
    const auto found = customstyle_studio::files().find(path.ToUtf8());
    if (mode != kReadExisting || found == customstyle_studio::files().end()) return 0;
    m_descriptor = static_cast<int>(openFiles().size());
    openFiles().push_back({found->second});
    m_length = found->second.size();
    return 1;
}

std::size_t CVFile::Read(void* buffer, std::size_t size) {
    if (m_descriptor < 0) return 0;
    OpenFile& file = openFiles()[static_cast<std::size_t>(m_descriptor)];
    const std::size_t part = std::min(size, file.content.size() - file.position);
    std::memcpy(buffer, file.content.data() + file.position, part);
    file.position += part;
    return part;
}

void CVFile::Close() {
    if (m_descriptor >= 0) openFiles()[static_cast<std::size_t>(m_descriptor)].content.clear();
    m_descriptor = -1;
    m_length = 0;
}

}  // namespace _orvik_vi
