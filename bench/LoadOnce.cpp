// Loads two files once, in a process that did nothing before, and prints the time and the peak memory as JSON:
//     LoadOnce init|parse <mapping directory>/ <style file>
// "parse" reads, parses and deletes both files and nothing else. The files are made by
//     LoadOnce make <number of ids> <number of rules> <mapping directory>/ <style file>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "bench/support/Loading.h"
#include "bench/support/MapFiles.h"

namespace {

using namespace customstyle_bench;
using _orvik_framework::CustomConfig;

// The largest memory that this process had so far. Not from getrusage: that starts from what the parent had.
long peakKilobytes() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        long kilobytes = 0;
        if (word == "VmHWM:" && status >> kilobytes) return kilobytes;
    }
    return 0;
}

template <typename Load>
int measure(Load load) {
    const auto start = std::chrono::steady_clock::now();
    load();
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - start;
    std::printf("{\"seconds\": %.6f, \"peak_kb\": %ld}\n", seconds.count(), peakKilobytes());
    return 0;
}

int make(const std::vector<std::string>& arguments) {
    writeFile(arguments[3] + "CustomIndex", Mapping(std::stoul(arguments[1])).text());
    writeFile(arguments[4], styleText(std::stoul(arguments[2])));
    return 0;
}

int initOnce(const MapPaths& paths) {
    const auto config = std::make_unique<CustomConfig>();
    return measure([&] { init(*config, paths); });
}

int parseOnce(const MapPaths& paths) {
    return measure([&] { readParseDelete(paths); });
}

}  // namespace

int main(int argc, char** argv) {
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (arguments.size() == 5 && arguments[0] == "make") return make(arguments);
    if (arguments.size() == 3 && arguments[0] == "init") return initOnce({arguments[1], arguments[2]});
    if (arguments.size() == 3 && arguments[0] == "parse") return parseOnce({arguments[1], arguments[2]});
    std::fprintf(stderr, "usage: see the head of LoadOnce.cpp\n");
    return 2;
}
