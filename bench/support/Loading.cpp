#include "bench/support/Loading.h"

#include <cstdio>
#include <cstdlib>
#include <memory>

#include "vi/vos/VJson.h"
#include "vi/vos/VLog.h"

namespace customstyle_bench {
namespace {

[[noreturn]] void fail(const std::string& why) {
    std::fprintf(stderr, "%s\n", why.c_str());
    std::exit(1);
}

struct FileCloser {
    void operator()(std::FILE* file) const { std::fclose(file); }
};
using File = std::unique_ptr<std::FILE, FileCloser>;

File opened(const std::string& path, const char* mode) {
    File file(std::fopen(path.c_str(), mode));
    if (file == nullptr) fail("cannot open " + path);
    return file;
}

void readParseDelete(const std::string& path) {
    const File file = opened(path, "rb");
    std::fseek(file.get(), 0, SEEK_END);
    std::string text(static_cast<std::size_t>(std::ftell(file.get())), '\0');
    std::rewind(file.get());
    if (std::fread(text.data(), 1, text.size(), file.get()) != text.size()) fail("cannot read " + path);
    _orvik_vi::cJSON* tree = _orvik_vi::cJSON_Parse(text, 1);
    if (tree == nullptr) fail(path + " is not JSON");
    _orvik_vi::cJSON_Delete(tree);
}

}  // namespace

void init(_orvik_framework::CustomConfig& config, const MapPaths& paths) {
    _orvik_vi::CVLog::SetSink([](_orvik_vi::ELOGPRIORITY, const std::string& line) { fail(line); });
    if (config.Init(paths.mappingDirectory.c_str(), paths.styleFile.c_str()) == 0) fail("Init refused the files");
}

void readParseDelete(const MapPaths& paths) {
    readParseDelete(paths.mappingDirectory + "CustomIndex");
    readParseDelete(paths.styleFile);
}

void writeFile(const std::string& path, const std::string& content) {
    const File file = opened(path, "wb");
    if (std::fwrite(content.data(), 1, content.size(), file.get()) != content.size()) fail("cannot write " + path);
}

}  // namespace customstyle_bench
