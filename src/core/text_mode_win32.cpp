#include "core/text_mode.h"

/// CR LF becomes LF. A byte 1A is no end of the file, as it is to the C library.
std::size_t asTextMode(char* bytes, std::size_t size) {
  std::size_t kept = 0;
  for (std::size_t i = 0; i < size; ++i) {
    if (bytes[i] == '\r' && i + 1 < size && bytes[i + 1] == '\n') continue;
    bytes[kept++] = bytes[i];
  }
  return kept;
}

std::string asWrittenInTextMode(std::string_view text) {
  std::string written;
  for (const char byte : text) {
    if (byte == '\n') written += '\r';
    written += byte;
  }
  return written;
}
