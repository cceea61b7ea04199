// Files for one test.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace customstyle_test {

/// A new directory, removed with all that it holds when the object ends.
class TemporaryDirectory {
public:
    TemporaryDirectory();
    ~TemporaryDirectory();
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    std::filesystem::path path() const { return m_path; }

    /// The path with a trailing separator, as Init takes it.
    std::string prefix() const { return m_path + "/"; }

    /// Makes a directory in it.
    void makeDirectory(const std::string& name) const;

    /// Writes a file and returns its path.
    std::string write(const std::string& name, std::string_view content) const;

private:
    std::string m_path;
};

}  // namespace customstyle_test
