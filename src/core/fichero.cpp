#include "core/fichero.h"

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

#include "core/cp1252.h"
#include "core/file_faults.h"
#include "core/paths.h"
#include "core/platform.h"
#include "core/report_error.h"
#include "core/text_mode.h"

namespace {

/// The one fatal path beside ReportError: it leaves Error.log alone.
[[noreturn]] void failReading(const Fault& fault) {
  Application->ShowFault(fault);
  Application->Terminate(kExitError);
}

/// Ends the run where `text`, all that has been read so far, has a NUL behind `from`.
void rejectNul(const std::string& name, std::string_view text, std::size_t from) {
  const std::size_t nul = text.find('\0', from);
  if (nul == std::string_view::npos) return;
  const Place place = SourceText(name, text.substr(0, nul)).placeOf({nul, nul});
  ReportFailure(ErrorLog,
                {errorInFile(name, place.line, "contiene un carácter nulo"_cp1252), place});
}

}  // namespace

fichero::fichero(std::string name, std::string_view mode) : name_(std::move(name)) {
  if (mode == "escritura") {
    stream_.reset(openFile(name_, "w"));
    if (!stream_) ReportFailure(ErrorLog, cannotOpenForWriting(name_));
    lines_.emplace();
  } else if (mode == "lectura") {
    // A pipe may keep its reader waiting for ever, and gives its text once where some read twice.
    std::error_code unknown;
    const bool isPipe = std::filesystem::is_fifo(filePath(name_), unknown);
    const OpenedFile stream(isPipe ? nullptr : openFile(name_, "rb"));
    if (!stream) failReading(cannotOpenForReading(name_));
    text_ = readWhole(name_, stream.get());
    reader_.emplace(text_->bytes());
  } else {
    ReportFailure(ErrorLog,
                  "Error en el uso de la clase fichero. El tipo debe ser escritura o lectura");
  }
}

/// Reads into the buffer that keeps the text. Binary, and put into text mode afterwards: that of
/// some C libraries takes a byte 1A for the end, and what is behind it would be lost in silence.
SourceText fichero::readWhole(const std::string& name, std::FILE* stream) {
  constexpr std::size_t kBlock = 1 << 16;  // bytes read in one go
  std::error_code noSize;
  const std::uintmax_t fileSize = std::filesystem::file_size(filePath(name), noSize);
  std::size_t room = noSize ? kBlock : fileSize + 1;  // for the end to be met within it
  auto buffer = std::make_unique_for_overwrite<char[]>(room);
  std::size_t size = 0;
  std::size_t got = 0;
  do {
    if (size == room) {
      auto larger = std::make_unique_for_overwrite<char[]>(room *= 2);
      std::copy_n(buffer.get(), size, larger.get());
      buffer = std::move(larger);
    }
    got = std::fread(buffer.get() + size, 1, std::min(kBlock, room - size), stream);
    size += got;
    rejectNul(name, {buffer.get(), size}, size - got);  // block by block: /dev/zero has no end
  } while (got > 0);
  if (std::ferror(stream) != 0) failReading(cannotRead(name));
  size = asTextMode(buffer.get(), size);
  return {name, std::move(buffer), size};
}

bool fichero::ReadLine(std::string_view& dest) {
  ReportError(ErrorLog, reader_.has_value(), "El fichero debe ser de tipo lectura");
  return reader_->ReadLine(dest);
}

SourceText fichero::takeText() {
  ReportError(ErrorLog, text_.has_value(), "El fichero debe ser de tipo lectura");
  reader_.reset();
  return *std::exchange(text_, std::nullopt);
}

OutputLines& fichero::lines() {
  ReportError(ErrorLog, lines_.has_value(), "El fichero debe ser de tipo escritura");
  return *lines_;
}

void fichero::save() {
  const bool written = lines().writeTo(stream_.get());
  const bool closed = std::fclose(stream_.release()) == 0;
  lines_.reset();
  if (written && closed) return;
  // Half an output must not pass for a whole one.
  std::error_code ignored;
  std::filesystem::resize_file(filePath(name_), 0, ignored);
  ReportFailure(ErrorLog, cannotWrite(name_));
}
