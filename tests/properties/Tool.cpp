#include "tests/properties/Tool.h"

#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <stdexcept>

#include "tests/support/TemporaryDirectory.h"
#include "tools/customstyle/Program.h"

namespace customstyle_test::properties {
namespace {

/// What a stream of this process receives while it lives.
class Caught {
public:
    explicit Caught(std::FILE* stream)
        : m_stream(stream), m_memory(memfd_create("caught", 0)), m_saved(dup(fileno(stream))) {
        if (m_memory == -1 || m_saved == -1) throw std::runtime_error("no file in memory");
        std::fflush(m_stream);
        dup2(m_memory, fileno(m_stream));
    }
    ~Caught() {
        dup2(m_saved, fileno(m_stream));
        close(m_saved);
        close(m_memory);
    }
    Caught(const Caught&) = delete;
    Caught& operator=(const Caught&) = delete;

    std::string text() {
        std::fflush(m_stream);
        std::string text(static_cast<std::size_t>(lseek(m_memory, 0, SEEK_END)), '\0');
        if (pread(m_memory, text.data(), text.size(), 0) != static_cast<ssize_t>(text.size())) text.clear();
        return text;
    }

private:
    std::FILE* m_stream;
    int m_memory;
    int m_saved;
};

const TemporaryDirectory& directory() {
    static const TemporaryDirectory directory;
    return directory;
}

}  // namespace

Run runTool(const std::vector<std::string>& arguments) {
    Caught out(stdout);
    Caught err(stderr);
    const int status = customstyle_tool::runProgram(arguments);
    return {status, out.text(), err.text()};
}

std::string fileWith(const std::string& name, const std::string& content) {
    return directory().write(name, content);
}

std::vector<std::string> mappingArguments(const Trial& trial) {
    if (!trial.mapping) return {};
    std::filesystem::create_directories(directory().path() / "map");
    fileWith("map/CustomIndex", written(*trial.mapping));
    return {"--mapping", (directory().path() / "map").string()};
}

}  // namespace customstyle_test::properties
