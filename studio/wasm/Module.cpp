// The module's interface in C.
#include <cstddef>
#include <cstdlib>
#include <string>

#include "studio/wasm/Answering.h"

extern "C" {

/// Memory for a request; null when there is none.
[[clang::export_name("customstyle_allocate")]] void* customstyle_allocate(std::size_t size) {
    return std::malloc(size);
}

/// Answers a request, a JSON text in memory of customstyle_allocate(), which it releases.
/// @return the answer, zero-terminated, valid until the next request
[[clang::export_name("customstyle_request")]] const char* customstyle_request(char* json, std::size_t length) {
    static std::string answer;
    answer = customstyle_studio::answerTo({json, length});
    std::free(json);
    return answer.c_str();
}
}
