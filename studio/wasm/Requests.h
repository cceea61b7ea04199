// What the requests of both modules have in common.
#pragma once

#include <cstdint>
#include <nlohmann/json.hpp>
#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace customstyle_studio {

using Json = nlohmann::ordered_json;

/// A file that a request brings along.
struct File {
    std::string path;
    std::string text;
};

/// {"error": why}
std::string failed(const std::string& why);

/// A member that is a text; empty if there is none.
std::string textIn(const Json& object, const char* name);

/// A member {"path", "text"}.
std::optional<File> fileIn(const Json& request, const char* name);

/// A member that is a whole number from 0 to `highest`.
std::optional<std::int64_t> numberIn(const Json& request, const char* name, std::int64_t highest);

/// Whether a member is true.
bool isSet(const Json& request, const char* name);

struct Method {
    std::string_view name;
    std::string (*answer)(const Json& request);
};

/// Answers with the method that the request names.
std::string answerWith(std::span<const Method> methods, std::string_view request);

}  // namespace customstyle_studio
