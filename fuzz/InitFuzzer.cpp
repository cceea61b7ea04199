// The two files as raw bytes through Init, then questions. A byte 0x1E divides the mapping from the style; an input
// without one is a style for a mapping that is always good. What follows a second 0x1E says how the files break off.
#include <string>
#include <string_view>

#include "fuzz/support/FuzzInput.h"
#include "fuzz/support/Inspection.h"
#include "fuzz/support/LoadAccounts.h"
#include "fuzz/support/Require.h"
#include "tests/hostile/FaultyFile.h"
#include "tests/support/TestStore.h"

namespace {

using namespace customstyle_fuzz;
using customstyle_test::FaultyFile;

constexpr char kDivider = '\x1E';

const std::string& goodMapping() {
    static const std::string mapping = customstyle_test::testMapping();
    return mapping;
}

struct Files {
    std::string_view mapping;
    std::string_view style;
    std::string_view faults;
};

Files divided(std::string_view input) {
    const std::size_t first = input.find(kDivider);
    if (first == std::string_view::npos) return {goodMapping(), input, {}};
    const std::size_t second = input.find(kDivider, first + 1);
    const std::string_view mapping = first == 0 ? std::string_view(goodMapping()) : input.substr(0, first);
    if (second == std::string_view::npos) return {mapping, input.substr(first + 1), {}};
    return {mapping, input.substr(first + 1, second - first - 1), input.substr(second + 1)};
}

// The faults of a file: how many bytes fewer it holds than it reports, and how many of them can be read.
FaultyFile faulty(std::string_view content, FuzzInput& faults) {
    FaultyFile file{std::string(content), content.size(), content.size()};
    const std::uint8_t kind = faults.byte();
    if (kind % 4 == 1) file.toldLength = faults.word() % (content.size() + 64);
    if (kind % 4 == 2) file.readableLength = faults.word() % (content.size() + 1);
    if (kind % 4 == 3) file.toldLength = ~std::size_t{faults.byte()};
    return file;
}

void load(std::string_view input) {
    const Files files = divided(input);
    FuzzInput faults(reinterpret_cast<const std::uint8_t*>(files.faults.data()), files.faults.size());
    customstyle_test::provideFile("map/CustomIndex", faulty(files.mapping, faults));
    customstyle_test::provideFile("style", faulty(files.style, faults));
    const LoadAccounts accounts;
    {
        _orvik_framework::CustomConfig config;
        const int result = config.Init("map/", "style");
        require(result == 0 || result == 1, "Init answers 0 or 1");
        require(result == 1 || accounts.linesEnding("failed") + accounts.linesEnding("format error") == 1,
                "a refusal leaves its line");
        require(customstyle_test::openFaultyFiles() == 0, "no file stays open");
        inspectLoaded(config);
    }
    require(accounts.leftBy("Init.cpp") == accounts.linesEnding("format error"),
            "only a text that is no JSON stays in memory");
    const bool isGoodMapping = files.mapping.data() == goodMapping().data();
    require(!isGoodMapping || accounts.leftBy("VTempl") == 0, "no record stays in memory");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    load({reinterpret_cast<const char*>(data), size});
    return 0;
}
