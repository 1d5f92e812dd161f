#include "core/line_reader.h"

namespace {

std::string_view withoutLineEnd(std::string_view line) {
  if (!line.ends_with('\n')) return line;
  line.remove_suffix(1);
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

/// The piece of `rest`, which is not empty, that one read takes.
std::string_view firstPiece(std::string_view rest) {
  const std::string_view piece = rest.substr(0, LineReader::kLongestRead);
  const std::size_t lineFeed = piece.find('\n');
  if (lineFeed != std::string_view::npos) return piece.substr(0, lineFeed + 1);
  // CR LF is one line end, so the limit does not come between the two.
  const bool cutsLineEnd = piece.ends_with('\r') && rest.substr(piece.size()).starts_with('\n');
  return rest.substr(0, piece.size() + (cutsLineEnd ? 1 : 0));
}

}  // namespace

bool LineReader::ReadLine(std::string_view& dest) {
  std::string_view line = last_;
  if (position_ < text_.size()) {
    const std::string_view piece = firstPiece(text_.substr(position_));
    position_ += piece.size();
    line = withoutLineEnd(piece);
    endsInLineFeed_ = piece.size() == line.size() + 1;
  } else if (repeatsLast_ && !metTheEnd()) {
    repeatsLast_ = false;
  } else {
    return false;
  }
  // Not `dest = last_ = line`: a processor waits for what it has just stored in two halves before
  // it loads them as one, which took a fifth of the time of a large run.
  last_ = line;
  dest = line;
  ++handedOut_;
  return true;
}

/// Whether the last read came upon the end of the text, which ends the hand-out. One that stopped
/// before it, at a line end or at the limit, is followed by a read that finds nothing and leaves
/// the line as it is.
bool LineReader::metTheEnd() const {
  return !text_.empty() && !text_.ends_with('\n') && last_.size() < kLongestRead;
}

long LineReader::lineCount() const {
  long lines = 0;
  for (std::string_view rest = text_; !rest.empty(); ++lines) {
    rest.remove_prefix(firstPiece(rest).size());
  }
  return lines;
}
