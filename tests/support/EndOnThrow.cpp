// For a standard library without exceptions: what is thrown ends the program and is named.
#include <cxxabi.h>

#include <cstdio>
#include <cstdlib>
#include <typeinfo>

namespace __cxxabiv1 {

void* __cxa_allocate_exception(std::size_t size) throw() {
    return std::malloc(size);
}

// Destructors return their object there.
void __cxa_throw(void*, std::type_info* type, void* (*)(void*)) {
    std::fprintf(stderr, "thrown: %s\n", type->name());
    std::abort();
}

}  // namespace __cxxabiv1
