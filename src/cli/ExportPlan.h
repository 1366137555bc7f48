#pragma once

#include "cli/Arguments.h"

#include <optional>
#include <string>
#include <vector>

namespace tarvo {

/// One ticket and where its document goes; "-" is standard input and standard output.
struct ExportStep {
    std::string input;
    std::string output;
};

/// Which document comes from which ticket, so that no output is a ticket of the same run and no two
/// are the same file.
/// @return nullopt with the wrong use in `reason`; nothing has been touched
[[nodiscard]] std::optional<std::vector<ExportStep>> PlanExport(const Arguments& arguments,
                                                                std::string& reason);

} // namespace tarvo
