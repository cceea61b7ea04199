#include "tests/loading/TracedHost.h"

#include <cjson/cJSON.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <map>
#include <set>
#include <string_view>

#include "vi/vos/VFile.h"
#include "vi/vos/VLog.h"
#include "vi/vos/VMem.h"
#include "vi/vos/VString.h"

namespace {

std::vector<std::string> g_steps;
std::map<std::string, std::string> g_files;
std::vector<std::string> g_opened;     // a descriptor is a position in it
int g_nodes = 0;                       // JSON nodes and texts in use
std::set<void*> g_buffers;             // for files, not for records
std::set<std::size_t> g_refusedSizes;  // of buffers

void note(const std::string& step) {
    g_steps.push_back(step);
}

void* allocateNode(std::size_t size) {
    ++g_nodes;
    return std::malloc(size);
}

// The parser gives back memory of its own as it goes; a tree is freed with its last node.
void releaseNode(void* node) {
    if (node != nullptr && --g_nodes == 0) note("free tree");
    std::free(node);
}

bool isOfRecords(std::string_view origin) {
    return origin.ends_with("VTempl");
}

}  // namespace

namespace customstyle_test {

TracedHost::TracedHost() {
    g_steps.clear();
    g_files.clear();
    g_refusedSizes.clear();
    cJSON_Hooks hooks{allocateNode, releaseNode};
    cJSON_InitHooks(&hooks);
    _orvik_vi::CVLog::SetSink([](_orvik_vi::ELOGPRIORITY, const std::string& line) { note("log " + line); });
}

TracedHost::~TracedHost() {
    cJSON_InitHooks(nullptr);
    _orvik_vi::CVLog::SetSink({});
    // Texts that are not JSON stay in memory for good.
    for (void* buffer : g_buffers) std::free(buffer);
    g_buffers.clear();
}

void TracedHost::provide(const std::string& path, const std::string& content) {
    g_files[path] = content;
}

void TracedHost::refuseBuffer(std::size_t size) {
    g_refusedSizes.insert(size);
}

std::vector<std::string> TracedHost::steps() const {
    return g_steps;
}

}  // namespace customstyle_test

namespace _orvik_vi {

CVFile::~CVFile() {
    note("destroy file");
}

int CVFile::Open(const CVString& path, unsigned mode) {
    const auto found = g_files.find(path.ToUtf8());
    note("open " + path.ToUtf8() + " in mode " + std::to_string(mode));
    if (found == g_files.end()) return 0;
    m_descriptor = static_cast<int>(g_opened.size());
    m_length = found->second.size();
    g_opened.push_back(found->second);
    return 1;
}

std::size_t CVFile::Read(void* buffer, std::size_t size) {
    const char* const begin = static_cast<const char*>(buffer);
    const bool isZero = std::all_of(begin, begin + size, [](char each) { return each == 0; });
    note("read " + std::to_string(size) + (isZero ? " into zeros" : " into something"));
    const std::string& content = g_opened[static_cast<std::size_t>(m_descriptor)];
    std::memcpy(buffer, content.data(), std::min(size, content.size()));
    return size;
}

void CVFile::Close() {
    note("close");
}

void* CVMem::Allocate(std::size_t size, const char* origin, int) {
    if (isOfRecords(origin)) return std::malloc(size);
    note("allocate " + std::to_string(size));
    if (g_refusedSizes.contains(size)) return nullptr;
    void* const buffer = std::malloc(size);
    std::memset(buffer, 0xAA, size);
    g_buffers.insert(buffer);
    return buffer;
}

void CVMem::Deallocate(void* block) {
    if (block == nullptr) note("release null");
    if (g_buffers.erase(block) > 0) note("release buffer");
    std::free(block);
}

std::size_t CVMem::GetOutstandingBlocks() {
    return 0;
}

std::size_t CVMem::GetOutstandingBytes() {
    return 0;
}

void CVMem::SetHostAllocator(AllocateFunction, ReleaseFunction) {}

}  // namespace _orvik_vi
