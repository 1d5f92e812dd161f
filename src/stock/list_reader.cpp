#include "stock/list_reader.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <system_error>
#include <utility>

#include "core/concat.h"
#include "core/cp1252.h"
#include "core/file_faults.h"
#include "core/open_file.h"
#include "core/paths.h"
#include "core/report_error.h"

namespace stock {

namespace {

constexpr std::size_t kBlock = std::size_t{1} << 16;  // bytes taken from the source at once
constexpr std::array kSeparators = {';', '\t', ','};  // of two as frequent, the first
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

bool isEmpty(const Record& record) {
  return std::ranges::all_of(record.fields(), [](const Field& field) {
    return field.text.find_first_not_of(" \t") == std::string::npos;
  });
}

}  // namespace

void Record::begin(long line) {
  count_ = 0;
  line_ = line;
  badQuotes_ = -1;
}

Field& Record::addField() {
  if (count_ == fields_.size()) fields_.emplace_back();
  Field& field = fields_[count_++];
  field.text.clear();
  return field;
}

ListReader::ListReader(std::string name, Source source)
    : name_(std::move(name)), source_(std::move(source)) {}

ListReader::Source ListReader::sourceOf(const std::string& path) {
  // A list is read twice, which a pipe is not; opening one would wait for its writer.
  std::error_code unknown;
  const auto status = std::filesystem::status(filePath(path), unknown);
  if (exists(status) && !is_regular_file(status) && !is_directory(status)) {
    ReportFailure(ErrorLog,
                  {concat("La lista debe ser un fichero y no un tubo ni un dispositivo: ", path),
                   wholeFile(path)});
  }
  const std::shared_ptr<std::FILE> file = OpenedFile(openFile(path, "rb"));
  if (file == nullptr) {
    ReportFailure(ErrorLog, cannotOpenForReading(path));
  }
  return [file, path](char* buffer, std::size_t size) {
    const std::size_t got = std::fread(buffer, 1, size, file.get());
    if (got == 0 && std::ferror(file.get()) != 0) {
      ReportFailure(ErrorLog, cannotRead(path));
    }
    return got;
  };
}

bool ListReader::next(Record& record) {
  if (!begun_) {
    begun_ = true;
    findSeparator();
  }
  while (readRecord(record)) {
    if (!isEmpty(record)) return true;
  }
  record.begin(line_);
  return false;
}

bool ListReader::fetch(std::size_t count) {
  while (buffer_.size() - position_ < count && !sourceEnded_) {
    buffer_.erase(0, position_);
    position_ = 0;
    const std::size_t kept = buffer_.size();
    buffer_.resize(kept + kBlock);
    const std::size_t got = std::min(source_(buffer_.data() + kept, kBlock), kBlock);
    buffer_.resize(kept + got);
    sourceEnded_ = got == 0;
  }
  return buffer_.size() - position_ >= count;
}

bool ListReader::atLineEnd() { return at(0) == '\n' || (at(0) == '\r' && has(2) && at(1) == '\n'); }

void ListReader::take() {
  if (at(0) == '\0') fail("contiene un carácter nulo: no es un fichero de texto", line_, column_);
  if (++rowBytes_ > kLargestRow) {
    fail("la fila es demasiado larga; quizá falten unas comillas de cierre", line_, column_);
  }
  if (at(0) == '\n') {
    ++line_;
    column_ = 0;
  }
  ++column_;
  ++position_;
}

/// Takes the characters at hand that stand for nothing but themselves. They are nearly all there
/// are, so not one by one.
std::size_t ListReader::takePlain(std::string& text) {
  const char* const begin = buffer_.data() + position_;
  const char* const most =
      begin + std::min(buffer_.size() - position_, kLargestRow - std::min(rowBytes_, kLargestRow));
  const char* const end = std::find_if_not(
      begin, most, [this](char c) { return isPlain_[static_cast<unsigned char>(c)]; });
  const auto size = static_cast<std::size_t>(end - begin);
  text.append(begin, size);
  position_ += size;
  rowBytes_ += size;
  column_ += static_cast<long>(size);
  return size;
}

void ListReader::takeLineEnd() {
  if (at(0) == '\r') take();
  take();
}

/// The mark is passed over, and a first line "sep=;", with which a spreadsheet is told; the cells
/// of the first line may stand in quotes.
void ListReader::findSeparator() {
  has(kBlock);
  const std::string_view start = std::string_view(buffer_).substr(position_);
  if (start.starts_with("\xFF\xFE") || start.starts_with("\xFE\xFF")) {
    fail("está en UTF-16; debe guardarse en UTF-8 o en Windows-1252", 1, 1);
  }
  if (start.starts_with(kUtf8Mark)) position_ += kUtf8Mark.size();
  if (takeSeparatorLine()) return;
  std::array<long, kSeparators.size()> counts{};
  bool quoted = false;
  for (std::size_t i = position_; i < buffer_.size(); ++i) {
    const char c = buffer_[i];
    if (c == '"') quoted = !quoted;
    if (quoted) continue;
    if (c == '\n') break;
    for (std::size_t k = 0; k < kSeparators.size(); ++k) counts[k] += c == kSeparators[k] ? 1 : 0;
  }
  setSeparator(
      kSeparators[static_cast<std::size_t>(std::ranges::max_element(counts) - counts.begin())]);
}

void ListReader::setSeparator(char separator) {
  separator_ = separator;
  isPlain_.fill(true);
  for (const char c : {separator, '\n', '\r', '\0'})
    isPlain_[static_cast<unsigned char>(c)] = false;
}

bool ListReader::takeSeparatorLine() {
  constexpr std::string_view kSep = "sep=";
  const std::string_view line = std::string_view(buffer_).substr(position_);
  if (!line.starts_with(kSep) || line.size() < kSep.size() + 2) return false;
  const char separator = line[kSep.size()];
  const std::string_view rest = line.substr(kSep.size() + 1);
  const bool known = std::ranges::count(kSeparators, separator) > 0;
  if (!known || !(rest.starts_with('\n') || rest.starts_with("\r\n"))) return false;
  setSeparator(separator);
  while (at(0) != '\n') take();
  take();
  return true;
}

bool ListReader::readRecord(Record& record) {
  rowBytes_ = 0;
  record.begin(line_);
  if (!has(1)) return false;
  while (true) {
    readField(record);
    if (!has(1)) return true;
    if (at(0) != separator_) break;
    take();
  }
  takeLineEnd();
  return true;
}

/// Reads one cell and stops at the separator, the line end or the end behind it.
void ListReader::readField(Record& record) {
  Field& field = record.addField();
  field.line = line_;
  field.column = column_;
  if (has(1) && at(0) == '"') readQuoted(record, field);
  while (has(1) && at(0) != separator_ && !atLineEnd()) {
    if (takePlain(field.text) > 0) continue;
    field.text += at(0);
    take();
  }
  if (!cp1252::isAscii(field.text)) field.text = cp1252::toUtf8(field.text);
}

void ListReader::readQuoted(Record& record, Field& field) {
  take();
  while (true) {
    if (!has(1)) fail("faltan las comillas de cierre", field.line, field.column);
    if (at(0) == '"') {
      take();
      if (!has(1) || at(0) != '"') break;
    }
    field.text += at(0);
    take();
  }
  const bool closed = !has(1) || at(0) == separator_ || atLineEnd();
  if (!closed && record.badQuotes_ < 0) record.badQuotes_ = static_cast<int>(record.count_) - 1;
}

void ListReader::fail(std::string_view what, long line, long column) const {
  ReportFailure(ErrorLog, {errorInFile(name_, line, what),
                           Place{.file = name_, .line = line, .column = column, .text = {}}});
}

}  // namespace stock
