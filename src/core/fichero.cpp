#include "core/fichero.h"

#include <algorithm>
#include <array>
#include <exception>
#include <filesystem>
#include <system_error>
#include <utility>

#include "core/concat.h"
#include "core/cp1252.h"
#include "core/platform.h"
#include "core/report_error.h"

namespace {

constexpr std::size_t kBlock = 1 << 16;  // bytes read or written in one go

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

/// The piece of `rest`, which is not empty, that one read takes.
std::string_view firstPiece(std::string_view rest) {
  const std::string_view piece = rest.substr(0, fichero::kLongestRead);
  const std::size_t lineFeed = piece.find('\n');
  if (lineFeed != std::string_view::npos) return piece.substr(0, lineFeed + 1);
  // CR LF is one line end, so the limit does not come between the two.
  const bool cutsLineEnd = piece.ends_with('\r') && rest.substr(piece.size()).starts_with('\n');
  return rest.substr(0, piece.size() + (cutsLineEnd ? 1 : 0));
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
  std::size_t room = noSize ? kBlock : size + 1;  // for the end to be met within it
  buffer_ = std::make_unique_for_overwrite<char[]>(room);
  std::size_t got = 0;
  do {
    if (text_.size() == room) {
      auto larger = std::make_unique_for_overwrite<char[]>(room *= 2);
      text_.copy(larger.get(), text_.size());
      buffer_ = std::move(larger);
    }
    char* const end = buffer_.get() + text_.size();
    got = std::fread(end, 1, std::min(kBlock, room - text_.size()), stream_.get());
    text_ = {buffer_.get(), text_.size() + got};
    rejectNul(text_.size() - got);  // block by block: /dev/zero has no end
  } while (got > 0);
  if (std::ferror(stream_.get()) != 0) failReading("Error al leer fichero: ", name_);
  last_ = text_.substr(0, 0);
}

void fichero::rejectNul(std::size_t from) const {
  const std::size_t nul = text_.find('\0', from);
  if (nul == std::string_view::npos) return;
  const auto line = std::count(text_.begin(), text_.begin() + nul, '\n') + 1;
  ReportFailure(ErrorLog, errorInFile(name_, line, "contiene un carácter nulo"_cp1252));
}

bool fichero::ReadLine(std::string_view& dest) {
  ReportError(ErrorLog, reading_, "El fichero debe ser de tipo lectura");
  std::string_view line = last_;
  if (position_ < text_.size()) {
    const std::string_view piece = firstPiece(text_.substr(position_));
    position_ += piece.size();
    line = withoutLineEnd(piece);
  } else if (repeatsLast_ && !metTheEnd()) {
    repeatsLast_ = false;
  } else {
    return false;
  }
  // Not `dest = last_ = line`: a processor waits for what it has just stored in two halves before
  // it loads them as one, which took a fifth of the time of a large run.
  last_ = line;
  dest = line;
  ++cursor_;
  return true;
}

/// Whether the last read came upon the end of the file, which ends the hand-out. One that stopped
/// before it, at a line end or at the limit, is followed by a read that finds nothing and leaves
/// the line as it is.
bool fichero::metTheEnd() const {
  return !text_.empty() && !text_.ends_with('\n') && last_.size() < kLongestRead;
}

/// Counts a line of the output; false when there is no room for it.
bool fichero::beginsLine() {
  ReportError(ErrorLog, !reading_, "El fichero debe ser de tipo escritura");
  if (cursor_ >= kCapacity) return false;
  ++cursor_;
  return true;
}

bool fichero::CopyLine(const fichero& source) {
  const char* const line = source.last_.data();
  const char* const lineEnd = line + source.last_.size();
  // Behind a CR LF, or at a piece's end, the bytes are not those that are written.
  const bool asItStands = lineEnd + 1 == source.text_.data() + source.position_;
  if (!asItStands) return WriteLine(source.last_);
  if (!beginsLine()) return false;
  if (line != runEnd_) parts_.push_back({own_.size(), line, line});
  parts_.back().copiedEnd = runEnd_ = lineEnd + 1;
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
  for (std::string_view rest = text_; !rest.empty(); ++lines) {
    rest.remove_prefix(firstPiece(rest).size());
  }
  return lines;
}

void fichero::writeAll() {
  const bool written = writeParts();
  const bool closed = std::fclose(stream_.release()) == 0;
  if (written && closed) return;
  // Half an output must not pass for a whole one.
  std::error_code ignored;
  std::filesystem::resize_file(name_, 0, ignored);
  ReportFailure(ErrorLog, "Error al escribir fichero: " + name_);
}

/// Writes in large blocks, gathered without another copy of the whole.
bool fichero::writeParts() {
  std::array<char, kBlock> block;
  std::size_t filled = 0;
  const auto flush = [&] {
    const bool written = std::fwrite(block.data(), 1, filled, stream_.get()) == filled;
    filled = 0;
    return written;
  };
  const auto write = [&](std::string_view bytes) {
    while (!bytes.empty()) {
      const std::size_t taken = bytes.copy(block.data() + filled, kBlock - filled);
      bytes.remove_prefix(taken);
      filled += taken;
      if (filled == kBlock && !flush()) return false;
    }
    return true;
  };
  const std::string_view own = own_;
  std::size_t at = 0;
  for (const Part& part : parts_) {
    if (!write(own.substr(at, part.ownEnd - at)) || !write({part.copied, part.copiedEnd})) {
      return false;
    }
    at = part.ownEnd;
  }
  return write(own.substr(at)) && flush();
}
