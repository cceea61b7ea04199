#include "fuzz/support/LoadAccounts.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "fuzz/support/Require.h"
#include "vi/vos/VLog.h"
#include "vi/vos/VMem.h"

namespace customstyle_fuzz {
namespace {

std::unordered_map<void*, const char*> g_blocks;  // by address: the file that asked, a literal
std::vector<std::string> g_lines;

void* allocate(std::size_t size, const char* origin, int) {
    // Lengths that files only claim to have are refused, as on a small machine.
    void* block = size > 1U << 24 ? nullptr : std::malloc(size);
    if (block != nullptr) g_blocks[block] = origin;
    return block;
}

void release(void* block) {
    require(g_blocks.erase(block) == 1, "each block is released once");
    std::free(block);
}

}  // namespace

LoadAccounts::LoadAccounts() {
    g_lines.clear();
    _orvik_vi::CVMem::SetHostAllocator(allocate, release);
    _orvik_vi::CVLog::SetSink([](_orvik_vi::ELOGPRIORITY priority, const std::string& line) {
        require(priority == _orvik_vi::ELOG_WARN && line.starts_with("ZRX Custom Map: "), "lines carry the prefix");
        g_lines.push_back(line);
    });
}

LoadAccounts::~LoadAccounts() {
    for (const auto& block : g_blocks) std::free(block.first);
    g_blocks.clear();
    _orvik_vi::CVMem::SetHostAllocator(nullptr, nullptr);
    _orvik_vi::CVLog::SetSink({});
}

std::size_t LoadAccounts::leftBy(const std::string& origin) const {
    return static_cast<std::size_t>(std::ranges::count_if(
        g_blocks, [&](const auto& block) { return std::string_view(block.second).ends_with(origin); }));
}

std::size_t LoadAccounts::linesEnding(const std::string& tail) const {
    return static_cast<std::size_t>(
        std::ranges::count_if(g_lines, [&](const auto& line) { return line.ends_with(tail); }));
}

}  // namespace customstyle_fuzz
