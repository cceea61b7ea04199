// Part of every program that counts what runs: it sees one processor, and starts no threads beside the one that works.
// Two of them would lose counts of each other, and to count atomically takes four times as long.
#include <sys/sysinfo.h>

int get_nprocs() noexcept {
    return 1;
}
