#include "tests/hostile/FaultyFile.h"

#include <algorithm>
#include <cstring>
#include <map>
#include <vector>

#include "vi/vos/VFile.h"
#include "vi/vos/VString.h"

namespace customstyle_test {
namespace {

std::map<std::string, FaultyFile> g_files;
std::vector<FaultyFile> g_opened;  // a descriptor is a place in it
int g_open = 0;

}  // namespace

void provideFile(const std::string& path, const FaultyFile& file) {
    g_files[path] = file;
}

int openFaultyFiles() {
    return g_open;
}

}  // namespace customstyle_test

namespace _orvik_vi {

using customstyle_test::g_files;
using customstyle_test::g_open;
using customstyle_test::g_opened;

CVFile::~CVFile() {
    Close();
}

int CVFile::Open(const CVString& path, unsigned mode) {
    Close();
    const auto found = g_files.find(path.ToUtf8());
    if (mode != kReadExisting || found == g_files.end()) return 0;
    m_descriptor = static_cast<int>(g_opened.size());
    m_length = found->second.toldLength;
    g_opened.push_back(found->second);
    ++g_open;
    return 1;
}

std::size_t CVFile::Read(void* buffer, std::size_t size) {
    if (m_descriptor < 0) return 0;
    const customstyle_test::FaultyFile& file = g_opened[static_cast<std::size_t>(m_descriptor)];
    const std::size_t done = std::min({size, file.readableLength, file.content.size()});
    std::memcpy(buffer, file.content.data(), done);
    return done;
}

void CVFile::Close() {
    if (m_descriptor >= 0) --g_open;
    m_descriptor = -1;
    m_length = 0;
}

}  // namespace _orvik_vi
