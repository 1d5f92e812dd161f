#include <windows.h>

#include "app/executable_path.h"
#include "core/wide_text.h"

std::string executablePath() {
  // The longest path that the system knows; a buffer that is too short cuts in silence.
  std::wstring path(32768, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  return toUtf8(path);
}
