#pragma once

#include <string>

namespace stock {

/// Removes the outputs that one results file names and a later one does not: their rows have left
/// the list, or have another place in it. `folder`: of the results, ending in "/". Holds 8 bytes a
/// row of the later one.
void removeStaleOutputs(const std::string& folder, const std::string& before,
                        const std::string& now);

}  // namespace stock
