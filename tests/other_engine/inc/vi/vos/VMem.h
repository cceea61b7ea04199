// CVMem of another engine.
#pragma once

#include <cstddef>
#include <cstdlib>

namespace [[gnu::visibility("default")]] _orvik_vi {

class CVMem {
public:
    static void* Allocate(std::size_t size, const char*, int) { return std::malloc(size); }
    static void Deallocate(void* block) { std::free(block); }
};

}  // namespace _orvik_vi
