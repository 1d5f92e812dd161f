#include "stock/file_names.h"

namespace stock {

bool isDeviceName(std::string_view) { return false; }

std::string asFileName(std::string_view name) { return std::string(name); }

}  // namespace stock
