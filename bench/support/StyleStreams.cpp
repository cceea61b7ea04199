#include "bench/support/StyleStreams.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

#include "bench/support/Random.h"

namespace customstyle_bench {
namespace {

constexpr std::size_t kLongestRun = 12;

// Draws `count` features of one layer.
void drawLayer(std::vector<unsigned int>& stream, const std::vector<unsigned int>& ids, std::size_t count,
               Random& random) {
    const std::size_t end = stream.size() + count;
    std::size_t place = random.below(ids.size());
    while (stream.size() < end) {
        const std::size_t run = std::min(end - stream.size(), 1 + random.below(kLongestRun));
        stream.insert(stream.end(), run, ids[place]);
        place = (place + random.below(4)) % ids.size();
    }
}

// Some layers hold many times the features of others, as buildings and local roads do.
std::vector<std::size_t> layerWeights(std::size_t layers, Random& random) {
    std::vector<std::size_t> weights(layers);
    for (std::size_t& weight : weights) {
        const std::size_t root = 1 + random.below(8);
        weight = root * root;
    }
    return weights;
}

std::vector<unsigned int> anyOf(const std::vector<unsigned int>& ids, std::size_t length, Random& random) {
    std::vector<unsigned int> stream(length);
    for (unsigned int& id : stream) id = ids[random.below(ids.size())];
    return stream;
}

}  // namespace

std::vector<unsigned int> drawOrder(const Mapping& mapping, std::size_t length) {
    Random random(length);
    const auto& layers = mapping.idsOfTypes();
    const std::vector<std::size_t> weights = layerWeights(layers.size(), random);
    std::size_t weightsLeft = 0;
    for (const std::size_t weight : weights) weightsLeft += weight;
    std::vector<unsigned int> stream;
    for (std::size_t layer = 0; layer < layers.size(); ++layer) {
        const std::size_t count = (length - stream.size()) * weights[layer] / weightsLeft;
        drawLayer(stream, layers[layer], count, random);
        weightsLeft -= weights[layer];
    }
    return stream;
}

std::vector<unsigned int> randomOrder(const Mapping& mapping, std::size_t length) {
    Random random(length);
    return anyOf(mapping.ids(), length, random);
}

std::vector<unsigned int> unmappedOrder(const Mapping& mapping, std::size_t length) {
    Random random(length);
    return anyOf(mapping.unmappedIds(), length, random);
}

std::vector<unsigned int> readStream(const std::string& path) {
    std::ifstream file(path);
    std::vector<unsigned int> stream{std::istream_iterator<unsigned int>(file), {}};
    if (stream.empty()) throw std::runtime_error("no style ids in " + path);
    return stream;
}

}  // namespace customstyle_bench
