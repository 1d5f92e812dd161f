#include <iconv.h>
#include <langinfo.h>
#include <locale.h>

#include "app/terminal_text.h"

namespace {

/// The encoding of the environment's locale; the process's own locale stays "C".
std::string terminalEncoding() {
  const locale_t environment = newlocale(LC_CTYPE_MASK, "", nullptr);
  if (environment == nullptr) return "UTF-8";
  std::string encoding = nl_langinfo_l(CODESET, environment);
  freelocale(environment);
  return encoding == "ANSI_X3.4-1968" ? "UTF-8" : encoding;
}

/// Length of the UTF-8 character at the start of a valid text.
std::size_t characterLength(char lead) {
  const auto byte = static_cast<unsigned char>(lead);
  return byte < 0x80 ? 1 : byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : 4;
}

std::string converted(std::string_view utf8, iconv_t converter) {
  std::string out;
  while (!utf8.empty()) {
    const std::size_t length = characterLength(utf8.front());
    std::string character(utf8.substr(0, length));
    utf8.remove_prefix(character.size());
    char buffer[16];
    char* from = character.data();
    std::size_t fromLeft = character.size();
    char* to = buffer;
    std::size_t toLeft = sizeof buffer;
    const bool ok = iconv(converter, &from, &fromLeft, &to, &toLeft) == 0;
    if (ok) {
      out.append(buffer, to);
    } else {
      out += '?';
    }
  }
  return out;
}

}  // namespace

std::string forTerminal(std::string_view utf8) {
  const std::string encoding = terminalEncoding();
  if (encoding == "UTF-8") return std::string(utf8);
  const iconv_t converter = iconv_open(encoding.c_str(), "UTF-8");
  if (converter == reinterpret_cast<iconv_t>(-1)) return std::string(utf8);
  std::string text = converted(utf8, converter);
  iconv_close(converter);
  return text;
}
