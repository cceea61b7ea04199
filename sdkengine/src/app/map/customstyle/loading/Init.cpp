#include <cstring>
#include <memory>

#include "customstyle/CustomConfig.h"
#include "customstyle/model/Messages.h"
#include "vi/vos/VFile.h"
#include "vi/vos/VMem.h"

namespace _orvik_framework {
namespace {

using _orvik_vi::CVFile;
using _orvik_vi::CVMem;

struct FileMessages {
    const char* notOpened;
    const char* refused;
    const char* notJson;
};

constexpr FileMessages kMappingFile{messages::kMappingFileNotOpened, messages::kMappingFileRefused,
                                    messages::kMappingFileNotJson};
constexpr FileMessages kStyleFile{messages::kStyleFileNotOpened, messages::kStyleFileRefused,
                                  messages::kStyleFileNotJson};

struct BufferDeleter {
    void operator()(char* buffer) const { CVMem::Deallocate(buffer); }
};
using Buffer = std::unique_ptr<char, BufferDeleter>;

struct TreeDeleter {
    void operator()(cJSON* tree) const { _orvik_vi::cJSON_Delete(tree); }
};
using Tree = std::unique_ptr<cJSON, TreeDeleter>;

// After a short read, zeros follow the text and end it for the parser.
Buffer readWhole(CVFile& file, std::size_t length) {
    Buffer buffer(static_cast<char*>(CVMem::Allocate(length, __FILE__, __LINE__)));
    if (buffer != nullptr) {
        std::memset(buffer.get(), 0, length);
        file.Read(buffer.get(), length);
    }
    return buffer;
}

// Reads a JSON file and hands its tree to `accept`, which returns 1 or 0. Returns the same, or 0 without a tree.
template <typename Accept>
int loadDocument(const CustomConfig& config, CVFile& file, const CVString& path, const FileMessages& texts,
                 Accept accept) {
    if (file.Open(path, CVFile::kReadExisting) == 0) {
        config.CustomMapPrintLog(texts.notOpened);
        return 0;
    }
    const std::size_t length = file.GetLength();
    Buffer buffer = readWhole(file, length);
    if (buffer == nullptr) {
        config.CustomMapPrintLog(texts.refused);
        file.Close();
        return 0;
    }
    Tree tree(_orvik_vi::cJSON_Parse({buffer.get(), length}, 1));
    if (tree == nullptr) {
        config.CustomMapPrintLog(texts.notJson);
        // The text that could not be parsed stays in memory, where a dump of the process shows it.
        static_cast<void>(buffer.release());
        CVMem::Deallocate(nullptr);  // NOLINT(clang-analyzer-unix.Malloc): the text is meant to stay
        file.Close();
        return 0;
    }
    const int accepted = accept(tree.get());
    if (accepted == 0) config.CustomMapPrintLog(texts.refused);
    buffer.reset();
    tree.reset();
    file.Close();
    return accepted;
}

}  // namespace

int CustomConfig::Init(const CVString& mappingDirectory, const CVString& styleFile) {
    if (mappingDirectory.IsEmpty() || styleFile.IsEmpty()) return 0;
    CVFile file;
    // The rules change only records that the mapping made, so it comes first, and without it there is nothing to style.
    const int mapped = loadDocument(*this, file, mappingDirectory + "CustomIndex", kMappingFile,
                                    [this](const cJSON* document) { return ParseMappingConfig(document); });
    if (mapped == 0) return 0;
    return loadDocument(*this, file, styleFile, kStyleFile, [this](const cJSON* document) {
        ParseCustomConfig(document);  // whatever it returns: a style is loaded even when every rule was refused
        return 1;
    });
}

}  // namespace _orvik_framework
