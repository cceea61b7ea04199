// Findings that an author has silenced.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tools/check/Fingerprint.h"
#include "tools/study/StyleSource.h"

namespace customstyle_tool {

/// Known findings: how often each may occur.
class Baseline {
public:
    /// @param path  of the file, to whose folder the paths in it are relative
    explicit Baseline(std::string path) : m_path(std::move(path)) {}

    /// Adds the entries of a file's text.
    /// @return the number of the first line that is not an entry, or nothing
    std::optional<std::size_t> read(const std::string& text);

    void add(const std::string& file, const std::string& fingerprint, std::string_view code);

    /// Whether a finding was there before; each entry counts once.
    bool takes(const std::string& file, const std::string& fingerprint);

    /// A line for each entry, sorted.
    std::string text() const;

private:
    using Entry = std::pair<std::string, std::string>;  // file, fingerprint

    std::string nameOf(const std::string& file) const;

    std::string m_path;
    std::map<Entry, std::size_t> m_counts;
    std::map<Entry, std::string> m_codes;
};

/// A code that a rule silences, by a remark like "note": "customstyle-ignore: no-effect, level-clamped".
struct Silencing {
    std::size_t rule;
    std::string code;    ///< as it is written
    std::size_t offset;  ///< of the remark's text in the file
};
std::vector<Silencing> silencingsIn(const StyleSource& style);

}  // namespace customstyle_tool
