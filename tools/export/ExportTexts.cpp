#include "tools/export/ExportTexts.h"

#include <nlohmann/json.hpp>

#include "tools/export/JsonLines.h"

namespace customstyle_tool {

ConversionTexts exportTexts(const StyleStudy& study, const Legend& legend, const ExportOptions& options,
                            const ConversionNames& names) {
    const ExportedStyle exported = exportedStyle(study, legend, options);
    const nlohmann::ordered_json report = {{"version", kConversionReport},
                                           {"style", names.style},
                                           {"target", kMapLibre},
                                           {"legend", names.legend},
                                           {"losses", lossesJson(exported.losses)}};
    return {jsonLines(exported.style), lossesText(exported.losses, study.source().file().path()), jsonLines(report)};
}

}  // namespace customstyle_tool
