#include "studio/wasm/Requests.h"

#include <fmt/format.h>

#include <algorithm>

#include "tools/study/ComponentGuard.h"
#include "tools/vocabulary/JsonParts.h"

namespace customstyle_studio {

std::string failed(const std::string& why) {
    return customstyle_tool::jsonText({{"error", why}});
}

std::string textIn(const Json& object, const char* name) {
    const auto member = object.find(name);
    return member != object.end() && member->is_string() ? member->get<std::string>() : std::string();
}

std::optional<File> fileIn(const Json& request, const char* name) {
    const auto member = request.find(name);
    if (member == request.end() || !member->is_object()) return {};
    return File{textIn(*member, "path"), textIn(*member, "text")};
}

std::optional<std::int64_t> numberIn(const Json& request, const char* name, std::int64_t highest) {
    const auto member = request.find(name);
    if (member == request.end() || !member->is_number_integer()) return {};
    const auto number = member->get<std::int64_t>();
    return number >= 0 && number <= highest ? std::optional(number) : std::nullopt;
}

bool isSet(const Json& request, const char* name) {
    const auto member = request.find(name);
    return member != request.end() && *member == true;
}

std::string answerWith(std::span<const Method> methods, std::string_view request) {
    const Json json = Json::parse(request, nullptr, false);
    if (!json.is_object()) return failed("the request is not a JSON object");
    const std::string name = textIn(json, "method");
    const auto method = std::ranges::find(methods, name, &Method::name);
    const customstyle_tool::ComponentGuard guard;
    return method == methods.end() ? failed(fmt::format("unknown method \"{}\"", name)) : method->answer(json);
}

}  // namespace customstyle_studio
