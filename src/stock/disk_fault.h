#pragma once

#include <string>

namespace stock {

/// Thrown when a file cannot be written.
struct DiskFault {
  std::string message;
};

}  // namespace stock
