#include "core/fichero.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <system_error>
#include <utility>

#include "core/concat.h"
#include "core/cp1252.h"
#include "core/platform.h"
#include "core/report_error.h"

namespace {

/// The one fatal path beside ReportError: it leaves Error.log alone.
[[noreturn]] void failReading(std::string_view message, const std::string& name) {
  Application->MessageBox(concat(message, name), kErrorCaption);
  Application->Terminate(kExitError);
}

std::string_view withoutLineEnd(std::string_view line) {
  if (!line.ends_with('\n')) return line;
  line.remove_suffix(1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

}  // namespace

fichero::fichero(std::string name, std::string_view mode)
    : name_(std::move(name)), exceptionsAtBirth_(std::uncaught_exceptions()) {
  if (mode == "escritura") {
    stream_.reset(std::fopen(name_.c_str(), "w"));
    if (!stream_) ReportFailure(ErrorLog, concat("Error al abrir fichero de escritura: ", name_));
  } else if (mode == "lectura") {
    reading_ = true;
    // A pipe may keep its reader waiting for ever, and gives its text once where some read twice.
    std::error_code unknown;
    const bool isPipe = std::filesystem::is_fifo(name_, unknown);
    if (!isPipe) stream_.reset(std::fopen(name_.c_str(), "r"));
    if (!stream_) failReading("Error al abrir fichero de lectura: ", name_);
    readWhole();
  } else {
    ReportFailure(ErrorLog,
                  "Error en el uso de la clase fichero. El tipo debe ser escritura o lectura");
  }
}

fichero::~fichero() {
  // A run that is being torn down by an exception has no complete output to write.
  const bool unwinding = std::uncaught_exceptions() > exceptionsAtBirth_;
  if (!reading_ && !unwinding) writeAll();
}

void fichero::readWhole() {
  std::error_code noSize;
  const std::uintmax_t size = std::filesystem::file_size(name_, noSize);
  if (!noSize) text_.reserve(size);
  char block[1 << 16];
  std::size_t got = 0;
  while ((got = std::fread(block, 1, sizeof block, stream_.get())) > 0) {
    text_.append(block, got);
    rejectNul(text_.size() - got);  // block by block: /dev/zero has no end
  }
  if (std::ferror(stream_.get()) != 0) failReading("Error al leer fichero: ", name_);
  repeatsLast_ = text_.empty();
}

void fichero::rejectNul(std::size_t from) const {
  const std::size_t nul = text_.find('\0', from);
  if (nul == std::string::npos) return;
  const auto line = std::count(text_.begin(), text_.begin() + static_cast<long>(nul), '\n') + 1;
  ReportFailure(ErrorLog, errorInFile(name_, line, "contiene un carácter nulo"_cp1252));
}

std::string_view fichero::pieceAt(std::size_t position) const {
  const std::string_view rest = std::string_view(text_).substr(position);
  const std::string_view piece = rest.substr(0, kLongestRead);
  const std::size_t lineEnd = piece.find('\n');
  if (lineEnd != std::string_view::npos) return piece.substr(0, lineEnd + 1);
  // CR LF is one line end, so the limit does not come between the two.
  const bool cutsLineEnd = piece.ends_with('\r') && rest.substr(piece.size()).starts_with('\n');
  return rest.substr(0, piece.size() + (cutsLineEnd ? 1 : 0));
}

bool fichero::ReadLine(std::string_view& dest) {
  ReportError(ErrorLog, reading_, "El fichero debe ser de tipo lectura");
  if (position_ < text_.size()) {
    const std::string_view piece = pieceAt(position_);
    position_ += piece.size();
    last_ = withoutLineEnd(piece);
    // Only a read that meets the end of the file ends the hand-out; one that stops before it, at a
    // line end or at the limit, is followed by a read that finds nothing and leaves the line.
    const bool metTheEnd = !piece.ends_with('\n') && piece.size() < kLongestRead;
    repeatsLast_ = position_ == text_.size() && !metTheEnd;
  } else if (repeatsLast_) {
    repeatsLast_ = false;
  } else {
    return false;
  }
  dest = last_;
  ++cursor_;
  return true;
}

bool fichero::WriteLine(std::string_view text) {
  ReportError(ErrorLog, !reading_, "El fichero debe ser de tipo escritura");
  if (cursor_ >= kCapacity) return false;
  text_ += text;
  text_ += '\n';
  ++cursor_;
  return true;
}

std::string fichero::normalisedText() const {
  std::string normalised;
  normalised.reserve(text_.size() + text_.size() / 2);
  for (char c : text_) {
    if (c == '\n' || c == '\r') {
      normalised += ' ';
      normalised += c;
      c = ' ';
    }
    if (c == ' ' && normalised.ends_with(' ')) continue;
    normalised += c;
  }
  return normalised;
}

long fichero::lineCount() const {
  long lines = 0;
  for (std::size_t at = 0; at < text_.size(); at += pieceAt(at).size()) ++lines;
  return lines;
}

void fichero::writeAll() {
  const bool written = std::fwrite(text_.data(), 1, text_.size(), stream_.get()) == text_.size();
  const bool closed = std::fclose(stream_.release()) == 0;
  if (written && closed) return;
  // Half an output must not pass for a whole one.
  std::error_code ignored;
  std::filesystem::resize_file(name_, 0, ignored);
  ReportFailure(ErrorLog, "Error al escribir fichero: " + name_);
}
