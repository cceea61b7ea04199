#include "tests/support/TemporaryDirectory.h"

#include <cstdlib>
#include <fstream>
#include <stdexcept>

namespace customstyle_test {

TemporaryDirectory::TemporaryDirectory() {
    std::string pattern = (std::filesystem::temp_directory_path() / "customstyle-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no temporary directory: " + pattern);
    m_path = pattern;
}

TemporaryDirectory::~TemporaryDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

std::string TemporaryDirectory::write(const std::string& name, std::string_view content) const {
    const std::filesystem::path file = m_path / name;
    std::ofstream stream(file, std::ios::binary);
    stream << content;
    if (!stream.flush()) throw std::runtime_error("cannot write " + file.string());
    return file.string();
}

}  // namespace customstyle_test
