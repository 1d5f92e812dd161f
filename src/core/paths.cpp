#include "core/paths.h"

#include <system_error>

#include "core/concat.h"
#include "core/report_error.h"

void requirePathWithin(std::string_view path, std::size_t capacity) {
  if (path.size() < capacity) return;
  ReportFailure(ErrorLog,
                concat("La ruta es demasiado larga (", std::to_string(path.size()),
                       " caracteres; debe tener menos de ", std::to_string(capacity), "): ", path));
}

std::string folderOf(std::string_view path) {
  const std::size_t separator = path.find_last_of("/\\");
  if (separator != std::string_view::npos) return std::string(path.substr(0, separator + 1));
  if (path.size() >= 2 && path[1] == ':') return std::string(path.substr(0, 2));
  return {};
}

bool sameFile(const std::string& first, const std::string& second) {
  const std::filesystem::path a = filePath(first);
  const std::filesystem::path b = filePath(second);
  std::error_code unknown;
  if (std::filesystem::equivalent(a, b, unknown) && !unknown) return true;
  const std::filesystem::path left = std::filesystem::absolute(a, unknown).lexically_normal();
  if (unknown) return false;
  return left == std::filesystem::absolute(b, unknown).lexically_normal() && !unknown;
}

bool fileExists(const std::string& path) {
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(filePath(path), error);
  return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}
