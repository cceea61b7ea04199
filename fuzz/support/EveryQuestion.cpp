#include "fuzz/support/Inspection.h"
#include "fuzz/support/Questions.h"

namespace customstyle_fuzz {

void inspect(const _orvik_framework::CustomConfig& config) {
    requireSameAnswers(config);
}

void inspectLoaded(const _orvik_framework::CustomConfig& config) {
    requireSoundStore(config);
    requireSameAnswers(config);
}

}  // namespace customstyle_fuzz
