// CVFile of another engine: a file holds its own path.
#pragma once

#include <cstddef>
#include <string>

namespace [[gnu::visibility("default")]] _orvik_vi {

class CVString;

class CVFile {
public:
    static constexpr unsigned kReadExisting = 257;

    int Open(const CVString& path, unsigned mode);
    std::size_t GetLength() const { return m_text.size(); }
    std::size_t Read(void* buffer, std::size_t size) { return m_text.copy(static_cast<char*>(buffer), size); }
    void Close() { m_text.clear(); }

private:
    std::string m_text;
};

}  // namespace _orvik_vi
