#include "check/written_lines.h"

#include <algorithm>
#include <array>
#include <utility>

namespace {

constexpr std::size_t kNone = std::string_view::npos;
// A hard blank, 0xA0, looks like any other.
constexpr std::string_view kBlanks = " \t\r\n\v\f\xA0";
constexpr std::string_view kBehindWord = " \t\r\n\v\f\xA0\"=()$";
constexpr std::string_view kLineEnds = "\r\n";

/// Whether a byte is one of some: a look-up each, since every byte of a file is asked.
class ByteSet {
 public:
  constexpr explicit ByteSet(std::string_view bytes) {
    for (const char c : bytes) has_[static_cast<unsigned char>(c)] = true;
  }
  constexpr bool has(char c) const { return has_[static_cast<unsigned char>(c)]; }

 private:
  std::array<bool, 256> has_{};
};
constexpr ByteSet kIsBlank(kBlanks);
constexpr ByteSet kEndsWord(kBehindWord);

class Tokeniser {
 public:
  explicit Tokeniser(std::string_view bytes) : bytes_(bytes) {}

  std::vector<Token> tokens() {
    constexpr std::size_t kUsualToken = 6;  // bytes, with what parts it from the next
    tokens_.reserve(bytes_.size() / kUsualToken);
    while (skipBlanks()) takeToken();
    return std::move(tokens_);
  }

 private:
  bool skipBlanks() {
    for (; at_ < bytes_.size() && kIsBlank.has(bytes_[at_]); ++at_) {
      const bool first = bytes_[at_] == '\n' && at_ > 0 && bytes_[at_ - 1] == '\r';
      if (!first && kLineEnds.find(bytes_[at_]) != kNone) ++line_;
    }
    return at_ < bytes_.size();
  }

  void add(TokenKind kind, std::size_t end, bool closed = true) {
    tokens_.push_back({kind, {at_, end}, line_, closed});
    at_ = end;
  }

  std::size_t lineEnd() const {
    return std::min(bytes_.find_first_of(kLineEnds, at_), bytes_.size());
  }

  void takeToken() {
    switch (bytes_[at_]) {
      case '$':
        return add(TokenKind::kComment, lineEnd());
      case '=':
        return add(TokenKind::kEquals, at_ + 1);
      case '(':
        return add(TokenKind::kOpen, at_ + 1);
      case ')':
        return add(TokenKind::kClose, at_ + 1);
      case '"': {
        const std::size_t end = bytes_.find_first_of("\"\r\n", at_ + 1);
        const bool closed = end != kNone && bytes_[end] == '"';
        return add(TokenKind::kText, closed ? end + 1 : std::min(end, bytes_.size()), closed);
      }
      default:
        break;
    }
    if (!takeTypographic()) takeWord();
  }

  /// Any typographic quote closes one, so that a line is looked through once.
  bool takeTypographic() {
    const std::size_t opening = typographicQuote(bytes_.substr(at_));
    if (opening == 0) return false;
    const bool simple = bytes_[at_] == '\'';
    for (std::size_t at = at_ + opening; at < bytes_.size(); ++at) {
      if (kLineEnds.find(bytes_[at]) != kNone) break;
      const std::size_t closing = typographicQuote(bytes_.substr(at));
      if (closing == 0 || (bytes_[at] == '\'') != simple) continue;
      add(TokenKind::kTypographic, at + closing);
      return true;
    }
    return false;
  }

  void takeWord() {
    if (bytes_.substr(at_).starts_with("..")) return add(TokenKind::kEnd, at_ + 2);
    std::size_t end = at_;
    while (end < bytes_.size() && !kEndsWord.has(bytes_[end])) ++end;
    // Dots in the middle of a word end nothing that a person would see.
    const bool closes = end - at_ > 2 && bytes_.substr(end - 2, 2) == "..";
    add(TokenKind::kWord, closes ? end - 2 : end);
  }

  std::string_view bytes_;
  std::size_t at_ = 0;
  std::size_t line_ = 0;
  std::vector<Token> tokens_;
};

bool isName(TokenKind kind) { return kind == TokenKind::kText || kind == TokenKind::kTypographic; }

class CommandReader {
 public:
  CommandReader(std::string_view bytes, const std::vector<Token>& tokens) : bytes_(bytes) {
    tokens_.reserve(tokens.size());
    for (const Token& token : tokens) {
      if (token.kind != TokenKind::kComment) tokens_.push_back(&token);
    }
  }

  std::vector<WrittenCommand> commands() {
    while (at_ < tokens_.size()) {
      if (beginsCommand()) {
        commands_.push_back(
            {tokens_[at_]->span, tokens_[at_ + 2]->span, tokens_[at_]->kind, {}, {}});
        inside_ = true;
        at_ += 3;
      } else if (is(at_, TokenKind::kEnd)) {
        if (inside_) commands_.back().close = tokens_[at_]->span;
        inside_ = false;
        ++at_;
      } else if (inside_ && is(at_, TokenKind::kWord)) {
        takeKeyword();
      } else {
        ++at_;
      }
    }
    return std::move(commands_);
  }

 private:
  bool is(std::size_t at, TokenKind kind) const {
    return at < tokens_.size() && tokens_[at]->kind == kind;
  }
  bool isAssignment(std::size_t at) const { return is(at + 1, TokenKind::kEquals); }
  bool isCommandType(std::size_t at) const {
    const std::string_view word = this->at(tokens_[at]->span);
    return word == "VIVIENDA" || word == "NAME-FRAME" || word == "SOLAR-POSITION";
  }
  /// A name without its quotes begins one too where the type leaves no doubt.
  bool beginsCommand() const {
    if (at_ + 2 >= tokens_.size() || !isAssignment(at_) || !is(at_ + 2, TokenKind::kWord)) {
      return false;
    }
    return isName(tokens_[at_]->kind) ||
           (!inside_ && is(at_, TokenKind::kWord) && isCommandType(at_ + 2));
  }
  /// What belongs to nothing that stands before it.
  bool beginsAnew(std::size_t at) const {
    return at >= tokens_.size() || is(at, TokenKind::kEnd) || is(at, TokenKind::kEquals) ||
           isAssignment(at);
  }

  std::string_view at(Span span) const { return bytes_.substr(span.begin, span.end - span.begin); }
  bool isColon(Span span) const { return at(span) == ":"; }
  bool endsInColon(Span span) const { return at(span).size() > 1 && at(span).ends_with(':'); }

  void takeKeyword() {
    WrittenKeyword keyword;
    keyword.name = tokens_[at_]->span;
    // "TIPO: 13" and "TIPO := 13", as other formats have it.
    const bool colon = endsInColon(keyword.name);
    if (colon) --keyword.name.end;
    keyword.value = {keyword.name.end, keyword.name.end};
    std::size_t line = tokens_[at_++]->line;
    if (!colon && is(at_, TokenKind::kWord) && isAssignment(at_) && isColon(tokens_[at_]->span)) {
      ++at_;
    }
    if (is(at_, TokenKind::kEquals)) {
      keyword.equals = tokens_[at_]->span.begin;
      keyword.value = {*keyword.equals + 1, *keyword.equals + 1};
      ++at_;
      takeValue(keyword);
      line = tokens_[at_ - 1]->line;
    }
    keyword.rest = {keyword.value.end, keyword.value.end};
    for (; !beginsAnew(at_) && tokens_[at_]->line == line; ++at_) {
      const Span span = tokens_[at_]->span;
      if (keyword.rest.begin == keyword.rest.end) keyword.rest.begin = span.begin;
      keyword.rest.end = span.end;
    }
    commands_.back().keywords.push_back(keyword);
  }

  void takeValue(WrittenKeyword& keyword) {
    if (beginsAnew(at_)) return;
    const Token& first = *tokens_[at_++];
    keyword.value = first.span;
    keyword.closed = first.closed;
    switch (first.kind) {
      case TokenKind::kText:
        keyword.kind = WrittenKeyword::Value::kText;
        break;
      case TokenKind::kTypographic:
        keyword.kind = WrittenKeyword::Value::kTypographic;
        break;
      case TokenKind::kOpen:
        keyword.kind = WrittenKeyword::Value::kList;
        keyword.closed = false;
        while (!keyword.closed && !beginsAnew(at_)) {
          keyword.closed = is(at_, TokenKind::kClose);
          keyword.value.end = tokens_[at_++]->span.end;
        }
        break;
      default:
        keyword.kind = WrittenKeyword::Value::kWord;
    }
  }

  std::string_view bytes_;
  std::vector<const Token*> tokens_;
  std::size_t at_ = 0;
  bool inside_ = false;
  std::vector<WrittenCommand> commands_;
};

}  // namespace

std::size_t typographicQuote(std::string_view text) {
  const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
  if (text.empty() || (isAscii(text.front()) && text.front() != '\'')) return 0;
  // In Windows-1252: single and double ones, high and low, and the angular ones.
  constexpr std::string_view kSingleByte = "'\x82\x84\x91\x92\x93\x94\xAB\xBB";
  constexpr std::string_view kUtf8[] = {"\xE2\x80\x98", "\xE2\x80\x99", "\xE2\x80\x9A",
                                        "\xE2\x80\x9C", "\xE2\x80\x9D", "\xE2\x80\x9E",
                                        "\xC2\xAB",     "\xC2\xBB"};
  if (kSingleByte.find(text.front()) != kNone) return 1;
  for (const std::string_view quote : kUtf8) {
    if (text.starts_with(quote)) return quote.size();
  }
  return 0;
}

const Token* WrittenFile::tokenAt(std::size_t offset) const {
  const auto next = std::ranges::upper_bound(tokens, offset, {},
                                             [](const Token& token) { return token.span.begin; });
  if (next == tokens.begin() || std::prev(next)->span.end <= offset) return nullptr;
  return &*std::prev(next);
}

WrittenFile readWritten(std::string_view bytes) {
  WrittenFile file;
  file.tokens = Tokeniser(bytes).tokens();
  file.commands = CommandReader(bytes, file.tokens).commands();
  return file;
}
