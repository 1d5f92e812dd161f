#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>

#include "core/open_file.h"
#include "core/wide_text.h"

std::FILE* openFile(const std::string& path, const char* mode) {
  return _wfopen(toWide(path).c_str(), toWide(mode).c_str());
}

/// Its C library does not know the mode "x".
std::FILE* createNewFile(const std::string& path) {
  const int file =
      _wopen(toWide(path).c_str(), _O_WRONLY | _O_CREAT | _O_EXCL | _O_BINARY | _O_NOINHERIT,
             _S_IREAD | _S_IWRITE);
  return file < 0 ? nullptr : _fdopen(file, "wb");
}
