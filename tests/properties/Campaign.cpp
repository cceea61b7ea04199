// Tries as many styles as wanted: properties [styles] [first seed] [property]
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>

#include "tests/properties/Properties.h"

namespace {

using namespace customstyle_test::properties;

constexpr unsigned kReportsOfAClaim = 3;

class Campaign {
public:
    explicit Campaign(std::string only) : m_only(std::move(only)) {}

    int run(unsigned first, unsigned count) {
        for (unsigned seed = first; seed < first + count; ++seed) {
            const Trial trial = randomTrial(seed);
            for (const Property& property : kProperties) {
                if (m_only.empty() || m_only == property.name) tryOne(property, seed, trial);
            }
        }
        for (const auto& [claim, failures] : m_failures) std::printf("%u x %s\n", failures, claim.c_str());
        std::printf("%u styles, %zu claims that do not hold\n", count, m_failures.size());
        for (const auto& [name, seconds] : m_seconds) std::printf("%-8s %.2f s\n", name.c_str(), seconds);
        return m_failures.empty() ? 0 : 1;
    }

private:
    void tryOne(const Property& property, unsigned seed, const Trial& trial) {
        const auto begin = std::chrono::steady_clock::now();
        const auto failure = tried(property, trial);
        m_seconds[property.name] += std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
        if (!failure) return;
        if (m_failures[property.name + std::string(": ") + failure->claim]++ >= kReportsOfAClaim) return;
        const Trial small = shrunk(property, trial, *failure);
        std::printf("%s\n", report(property, seed, small, tried(property, small).value_or(*failure)).c_str());
        std::fflush(stdout);
    }

    std::string m_only;
    std::map<std::string, unsigned> m_failures;
    std::map<std::string, double> m_seconds;
};

unsigned numberIn(int count, char** words, int index, unsigned otherwise) {
    return index < count ? static_cast<unsigned>(std::strtoul(words[index], nullptr, 10)) : otherwise;
}

}  // namespace

int main(int count, char** words) {
    return Campaign(count > 3 ? words[3] : "").run(numberIn(count, words, 2, 1), numberIn(count, words, 1, 1000));
}
