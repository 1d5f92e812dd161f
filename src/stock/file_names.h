#pragma once

#include <string>
#include <string_view>

namespace stock {

/// Whether the system keeps a name to itself, whatever its extension, so that a file of that name
/// would be lost: a device's.
bool isDeviceName(std::string_view name);

/// The same text for all names that are one file to the system.
std::string asFileName(std::string_view name);

}  // namespace stock
