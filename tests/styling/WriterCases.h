// The rows of a record writer's table.
#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace customstyle_test {

/// What a writer does with the two records of a type.
struct WriterCase {
    const char* element;
    const char* changes;       ///< as changesIn prints them, after the key
    const char* message = "";  ///< logged for each of the records
};

inline std::string writerCaseName(const WriterCase& param) {
    return *param.element == '\0' ? "Nothing" : "Element_" + std::string(param.element);
}

inline std::vector<std::string> expectedLog(const WriterCase& param) {
    if (*param.message == '\0') return {};
    const std::string line = std::string("ZRX Custom Map: ") + param.message;
    return {line, line};
}

inline void PrintTo(const WriterCase& param, std::ostream* stream) {
    *stream << writerCaseName(param);
}

}  // namespace customstyle_test
