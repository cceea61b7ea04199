#include "tests/support/CountingNew.h"

#include "tests/support/ReplacedNew.h"

namespace customstyle_test {
namespace {

std::size_t g_calls = 0;

bool countCall() {
    ++g_calls;
    return true;
}

bool refuse() {
    return false;
}

}  // namespace

NewCalls::NewCalls() : m_before(g_calls) {
    setNewGuard(countCall);
}

NewCalls::~NewCalls() {
    setNewGuard(nullptr);
}

std::size_t NewCalls::count() const {
    return g_calls - m_before;
}

NoMemory::NoMemory() {
    setNewGuard(refuse);
}

NoMemory::~NoMemory() {
    setNewGuard(nullptr);
}

}  // namespace customstyle_test
