#include "tests/support/TemporaryDirectory.h"

#include <ftw.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <stdexcept>

// Without the library's file system, which not every processor has.
namespace customstyle_test {
namespace {

std::string newDirectory() {
    const char* const parent = std::getenv("TMPDIR");
    std::random_device number;
    for (;;) {
        const std::string path = std::string(parent != nullptr ? parent : "/tmp") + "/customstyle-" +
                                 std::to_string(number()) + std::to_string(number());
        if (mkdir(path.c_str(), 0700) == 0) return path;
        if (errno != EEXIST) throw std::runtime_error("no temporary directory: " + path);
    }
}

// Unreadable files are removed, too.
int removeOne(const char* path, const struct stat*, int, FTW*) {
    std::remove(path);
    return 0;
}

}  // namespace

TemporaryDirectory::TemporaryDirectory() : m_path(newDirectory()) {}

TemporaryDirectory::~TemporaryDirectory() {
    constexpr int kMostOpenDirectories = 8;
    nftw(m_path.c_str(), removeOne, kMostOpenDirectories, FTW_DEPTH | FTW_PHYS);
}

void TemporaryDirectory::makeDirectory(const std::string& name) const {
    if (mkdir((prefix() + name).c_str(), 0700) != 0) throw std::runtime_error("cannot make " + prefix() + name);
}

std::string TemporaryDirectory::write(const std::string& name, std::string_view content) const {
    const std::string file = prefix() + name;
    std::FILE* const stream = std::fopen(file.c_str(), "wb");
    const bool isOpen = stream != nullptr;
    const bool isWritten = isOpen && std::fwrite(content.data(), 1, content.size(), stream) == content.size();
    const bool isClosed = isOpen && std::fclose(stream) == 0;
    if (!isWritten || !isClosed) throw std::runtime_error("cannot write " + file);
    return file;
}

}  // namespace customstyle_test
