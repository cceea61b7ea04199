// What check says of a part of a style, and what the model knows of that part.
#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "tests/properties/CheckedStyle.h"
#include "tests/properties/Words.h"
#include "tests/properties/Writes.h"

namespace customstyle_test::properties {

using Levels = std::set<std::size_t>;  ///< level classes

/// A finding about a part of a style.
struct Said {
    Said(const CheckedStyle& checked, const nlohmann::json& finding);

    bool says(const char* text) const { return words.text().find(text) != std::string::npos; }

    const CheckedStyle& style;
    Words words;
    Part part;
    std::vector<Part> related;
};

/// Whether what is said is so.
using Reason = bool (*)(const Said& said);

/// By code: what check says of effects and of rules among each other, of what a rule by itself reaches, and of its
/// members.
extern const std::map<std::string, Reason> kEffectReasons;
extern const std::map<std::string, Reason> kReachReasons;
extern const std::map<std::string, Reason> kMemberReasons;

/// The feature type of a key, and that of a name.
int typeOf(const std::string& key);
int typeNamed(const std::string& name);

/// The key of a type at a level.
std::string keyOf(int type, std::size_t levelClass);
bool isOfLevel(const std::string& key);

/// Whether a write is into a record: neither the grid nor every icon.
bool isRecord(const Write& write);

/// The store before a part, or after it.
model::StyleModel storeAt(const CheckedStyle& style, const Part& part, bool behind);

/// Whether a part leaves the store as it was.
bool changesNothing(const CheckedStyle& style, const Part& part);

/// What a part writes if nothing prevents it.
Written alone(const CheckedStyle& style, const Part& part);

/// A part undoes its own work at a level.
bool undoesItsWork(const CheckedStyle& style, const Part& part);

/// A field of the first record of a key, and whether it is set.
std::pair<std::uint64_t, bool> valueAt(const model::StyleModel& model, const Write& write);

}  // namespace customstyle_test::properties
