#include "check/written_bytes.h"

#include <array>
#include <optional>
#include <string>

#include "check/written_findings.h"
#include "check/written_lines.h"
#include "core/concat.h"
#include "core/cp1252.h"

namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

bool isContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80; }

/// Bytes of the character of several bytes that `text` begins with; 0: it begins with none.
std::size_t utf8Character(std::string_view text) {
  const auto lead = static_cast<unsigned char>(text.front());
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || text.size() < length) return 0;
  for (std::size_t i = 1; i < length; ++i) {
    if (!isContinuation(text[i])) return 0;
  }
  const auto second = static_cast<unsigned char>(text[1]);
  // Longer than needed, halves of pairs, beyond the last character.
  const bool none = (lead == 0xE0 && second < 0xA0) || (lead == 0xED && second > 0x9F) ||
                    (lead == 0xF0 && second < 0x90) || (lead == 0xF4 && second > 0x8F);
  return none ? 0 : length;
}

/// The first of several, and how many there are.
struct Occurrences {
  std::optional<Span> first;
  std::size_t count = 0;

  void add(Span span) {
    if (!first) first = span;
    ++count;
  }
};

void compareEncoding(std::string_view bytes, WrittenFindings& findings) {
  std::size_t at = 0;
  if (bytes.starts_with(kUtf8Mark)) {
    at = kUtf8Mark.size();
    findings.add(Code::kMarcaDeOrden, {0, at},
                 "El fichero empieza por una marca de orden de bytes, que se lee como texto",
                 {.found = "EF BB BF",
                  .used = {},
                  .allowed = "Windows-1252 sin marca",
                  .suggestion = "guarde el fichero como Windows-1252 (ANSI)"});
  } else if (bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF")) {
    findings.add(Code::kMarcaDeOrden, {0, 2}, "El fichero empieza por una marca de UTF-16",
                 {.found = bytes.front() == '\xFF' ? "FF FE" : "FE FF",
                  .used = {},
                  .allowed = "Windows-1252 sin marca",
                  .suggestion = "guarde el fichero como Windows-1252 (ANSI)"});
    return;
  }
  Occurrences characters;
  for (; at < bytes.size(); ++at) {
    if (static_cast<unsigned char>(bytes[at]) < 0x80) continue;
    const std::size_t length = utf8Character(bytes.substr(at));
    if (length == 0) return;  // so it is not UTF-8
    characters.add({at, at + length});
    at += length - 1;
  }
  if (!characters.first) return;
  findings.add(Code::kUtf8, *characters.first,
               std::string("El fichero está en UTF-8 y se lee como Windows-1252"_cp1252),
               {.found = {},
                .used = {},
                .allowed = "Windows-1252",
                .suggestion = "guarde el fichero como Windows-1252 (ANSI)"});
}

bool isControl(char c) {
  const auto byte = static_cast<unsigned char>(c);
  return byte == 0x7F || (byte < ' ' && c != '\t' && c != '\n' && c != '\r');
}

void compareControls(std::string_view bytes, WrittenFindings& findings) {
  Occurrences controls;
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    if (isControl(bytes[at])) controls.add({at, at + 1});
  }
  if (controls.first) {
    constexpr std::string_view kHex = "0123456789ABCDEF";
    const auto byte = static_cast<unsigned char>(bytes[controls.first->begin]);
    const std::string code = {kHex[byte / 16], kHex[byte % 16]};
    findings.add(Code::kCaracterDeControl, *controls.first,
                 controls.count == 1 ? std::string("Hay un carácter de control"_cp1252)
                                     : concat("Hay ", std::to_string(controls.count),
                                              " caracteres de control; este es el primero"),
                 {.found = code,
                  .used = {},
                  .allowed = {},
                  .suggestion = std::string("quite el carácter"_cp1252)});
  }
}

void compareHardBlanks(std::string_view bytes, const WrittenFile& file, WrittenFindings& findings) {
  constexpr char kHardBlank = '\xA0';
  Occurrences hardBlanks;
  for (std::size_t at = bytes.find(kHardBlank); at != std::string_view::npos;
       at = bytes.find(kHardBlank, at + 1)) {
    // In names and comments it is a character like any other, and in UTF-8 half of one.
    const bool hard = file.tokenAt(at) == nullptr;
    if (hard && (at == 0 || bytes[at - 1] != '\xC2')) hardBlanks.add({at, at + 1});
  }
  if (hardBlanks.first) {
    findings.add(
        Code::kCaracterDeControl, *hardBlanks.first, "Un blanco duro no se lee como blanco",
        {.found = "A0", .used = {}, .allowed = {}, .suggestion = "escriba un blanco normal"});
  }
}

void compareLineEnds(std::string_view bytes, WrittenFindings& findings) {
  enum Kind { kLf, kCrLf, kCr };
  constexpr std::array<std::string_view, 3> kNames = {"LF", "CR LF", "CR"};
  std::optional<Kind> first;
  if (bytes.find('\r') == std::string_view::npos) return;
  for (std::size_t at = 0; at < bytes.size(); ++at) {
    if (bytes[at] != '\n' && bytes[at] != '\r') continue;
    const bool pair = bytes.substr(at).starts_with("\r\n");
    const Kind kind = pair ? kCrLf : bytes[at] == '\r' ? kCr : kLf;
    if (!first) first = kind;
    if (kind != *first) {
      return findings.add(
          Code::kFinesDeLinea, {at, at},
          std::string("Los fines de línea están mezclados: este no es como el primero"_cp1252),
          {.found = std::string(kNames[kind]),
           .used = {},
           .allowed = std::string(kNames[*first]),
           .suggestion = {}});
    }
    if (pair) ++at;
  }
}

void compareAnyBytes(WrittenFindings& findings) {
  const std::string_view bytes = findings.text().bytes();
  compareEncoding(bytes, findings);
  compareControls(bytes, findings);
  compareLineEnds(bytes, findings);
}

}  // namespace

void compareBytes(const WrittenFile& file, WrittenFindings& findings) {
  compareAnyBytes(findings);
  compareHardBlanks(findings.text().bytes(), file, findings);
}

Findings bytesFindings(const SourceText& text) {
  WrittenFindings findings(text);
  compareAnyBytes(findings);
  return findings.take();
}
