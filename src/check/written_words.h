#pragma once

#include <string>
#include <string_view>

/// A word in capitals without accents, whether it is Windows-1252 or UTF-8.
struct FoldedWord {
  std::string word;
  bool accents = false;  // it had some
};

FoldedWord foldWord(std::string_view word);
