// CVMem: blocks of several threads.
#include <gtest/gtest.h>

#include <thread>

#include "tests/support/FaultyMemory.h"
#include "vi/vos/VMem.h"

namespace customstyle_test {
namespace {

using _orvik_vi::CVMem;

TEST(VMem, AllThreadsShareTheAccounts) {
    const MemoryAccounts accounts;
    const auto work = [] {
        for (int i = 0; i < 2000; ++i) CVMem::Deallocate(CVMem::Allocate(8, "VMemThreadTest", 1));
    };
    std::thread other(work);
    std::thread another(work);
    work();
    other.join();
    another.join();
    EXPECT_EQ(accounts.blocks(), 0);
    EXPECT_EQ(accounts.bytes(), 0);
}

}  // namespace
}  // namespace customstyle_test
