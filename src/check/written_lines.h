#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

#include "core/source_text.h"

/// A typology file as a person reads it: lines, comments from "$" on, commands and their keywords.
/// Nothing is refused: what fits nowhere stays a token. All spans are of the file's bytes.

enum class TokenKind {
  kWord,
  kText,         // in double quotes, closed on its line or open up to the line's end
  kTypographic,  // the same in quotes of another kind
  kEquals,
  kOpen,  // parentheses
  kClose,
  kEnd,  // ".."
  kComment
};

struct Token {
  TokenKind kind;
  Span span;
  std::size_t line;    // counted from 0; a lone CR ends one too, as on a screen
  bool closed = true;  // of a text: has its closing quote
};

/// One keyword of a command.
struct WrittenKeyword {
  enum class Value { kNone, kWord, kText, kTypographic, kList };

  Span name;
  std::optional<std::size_t> equals;  // none: the "=" is missing
  Value kind = Value::kNone;
  Span value;          // without one, a point behind the "=" or the name
  bool closed = true;  // of a text or list
  Span rest;           // what else stands on the value's line, up to a comment; mostly empty
};

/// "name" = TYPE, keywords, "..".
struct WrittenCommand {
  Span name;
  Span type;
  TokenKind nameKind;
  std::vector<WrittenKeyword> keywords;
  std::optional<Span> close;  // none: the next command begins, or the file ends, before it
};

struct WrittenFile {
  std::vector<Token> tokens;
  std::vector<WrittenCommand> commands;

  /// The token that holds the offset; null between tokens.
  const Token* tokenAt(std::size_t offset) const;
};

WrittenFile readWritten(std::string_view bytes);

/// Bytes of the typographic quote, or the simple one, that `text` begins with; 0: none.
std::size_t typographicQuote(std::string_view text);
