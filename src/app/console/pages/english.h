#pragma once

#include <span>
#include <string_view>

/// The words of works and options in English, for the manual pages; the programs speak Spanish.
/// UTF-8.

struct EnglishOption {
  std::string_view work;   // "" for an option of a run, "*" for one that says the same in all works
  std::string_view name;   // "--salida"
  std::string_view value;  // "FILE"
  std::string_view brief;
  std::string_view detail = {};
};

struct EnglishWork {
  std::string_view name;  // "" for the run
  std::string_view brief;
  std::string_view operands;
  std::string_view detail;
};

std::span<const EnglishOption> englishOptions();
std::span<const EnglishWork> englishWorks();

/// The row of an option of a work; null when there is none.
const EnglishOption* englishOf(std::string_view work, std::string_view option);
const EnglishWork* englishOf(std::string_view work);
