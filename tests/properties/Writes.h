// What a styler writes, by the model of the component.
#pragma once

#include <cstdint>
#include <iterator>
#include <map>
#include <set>
#include <span>
#include <string>
#include <utility>

#include "tests/properties/Trial.h"

namespace customstyle_test::properties {

/// A style key, "13" or "13:15", and a field of its records; "grid" and "all" for what has no record.
using Write = std::pair<std::string, std::string>;

/// What was written, and the value; a flag's is 1 or 0.
using Written = std::map<Write, std::uint64_t>;

/// Everything that one styler of a rule writes if nothing prevents it.
/// @param styler  its name; empty for all
/// @param before  the rules before it: where they have made a style for all levels, a rule that writes to a level
///                several times undoes its own work
Written valuesOf(const Rule& rule, const std::string& styler, std::span<const Rule> before = {});
std::set<Write> writesOf(const Rule& rule, const std::string& styler);

/// The rule without its other stylers.
Rule onlyStyler(const Rule& rule, const std::string& styler);

struct ExampleOfStyler {
    const char* name;
    const char* value;  ///< one that has an effect wherever the styler can have one
};

/// The stylers in the order in which the component applies those of a rule.
inline constexpr ExampleOfStyler kStylers[] = {
    {"color", "#3366cc"}, {"visibility", "off"}, {"weight", "3"}, {"fontsize", "12"}};
inline constexpr std::size_t kTurnCount = std::size(kStylers);

/// The index of a styler in the order in which the component applies those of a rule; kTurnCount for what is not a
/// styler.
std::size_t turnOf(const std::string& styler);

}  // namespace customstyle_test::properties
