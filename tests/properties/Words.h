// A message of check, taken apart.
#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace customstyle_test::properties {

class Words {
public:
    explicit Words(std::string text) : m_text(std::move(text)) {}

    const std::string& text() const { return m_text; }

    /// The text between two phrases; empty unless both are there.
    std::string textAfter(const std::string& before, const std::string& after) const;

    /// The same as a list with commas.
    std::vector<std::string> namesAfter(const std::string& before, const std::string& after) const;

    /// All texts in quotes.
    std::vector<std::string> quoted() const;

    /// The level classes of "all levels", "level 12" or "levels 4-9, 12, other" after a phrase; none without it.
    std::set<std::size_t> levelsAfter(const std::string& before) const;

    std::uint64_t numberAfter(const std::string& before) const;
    std::uint64_t numberBefore(const std::string& after) const;

    /// "#112233 alpha ff", packed as the component does it; the last one of the text.
    std::optional<std::uint64_t> color() const;

private:
    std::string m_text;
};

}  // namespace customstyle_test::properties
