#include "check/written_words.h"

#include <algorithm>
#include <set>
#include <string>
#include <variant>
#include <vector>

#include "check/suggestion.h"
#include "check/written_vivienda.h"
#include "core/concat.h"
#include "core/cp1252.h"

// Where the keywords of VIVIENDA are met, and the words that are none.

namespace {

std::vector<std::string_view> keywordNames() {
  std::vector<std::string_view> names;
  for (const ViviendaKeyword& row : viviendaKeywords()) names.push_back(row.name);
  return names;
}

bool isIgnored(const ViviendaKeyword& row) {
  return std::holds_alternative<IgnoredText>(row.field);
}
bool isList(const ViviendaKeyword& row) {
  return std::holds_alternative<PerFacade<float> TypologyRecord::*>(row.field);
}

/// Not so a number or a sign that stands where a keyword might.
bool hasLetters(std::string_view word) {
  return std::ranges::any_of(word, [](char c) {
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
           static_cast<unsigned char>(c) >= 0x80;
  });
}

class Words {
 public:
  explicit Words(WrittenVivienda& vivienda) : vivienda_(vivienda) {}

  void compare() {
    for (const ViviendaKeyword& row : viviendaKeywords()) {
      const KeywordInBoth keyword = inBoth(row);
      vivienda_.keywords.push_back(keyword);
      if (isIgnored(row)) continue;
      compareHit(keyword);
      if (times_ > 1) repeated(keyword);
    }
    if (vivienda_.command == nullptr) return;
    for (const WrittenKeyword& written : vivienda_.command->keywords) {
      if (!isRead(written)) break;
      const std::string_view word = at(written.name);
      const bool known =
          findViviendaKeyword(word) != nullptr || readInside_.contains(written.name.begin);
      if (known || !hasLetters(word)) continue;
      unknown(written.name, word);
    }
  }

 private:
  std::string_view at(Span span) const { return vivienda_.findings.at(span); }

  /// Not so behind a ".." that nobody meant as the command's end.
  bool isRead(const WrittenKeyword& written) const {
    return written.name.begin < vivienda_.run.block().end;
  }

  KeywordInBoth inBoth(const ViviendaKeyword& row) {
    KeywordInBoth keyword{.row = &row, .hit = vivienda_.run.find(row)};
    times_ = 0;
    second_ = nullptr;
    if (vivienda_.command == nullptr) return keyword;
    const WrittenKeyword* hit = nullptr;
    for (const WrittenKeyword& written : vivienda_.command->keywords) {
      if (at(written.name) != row.name || !isRead(written)) continue;
      if (++times_ == 1) keyword.written = &written;
      if (times_ == 2) second_ = &written;
      if (keyword.hit && written.name.begin == keyword.hit->at) hit = &written;
    }
    if (hit != nullptr) keyword.written = hit;
    keyword.same = keyword.hit && keyword.written && keyword.written->equals &&
                   *keyword.written->equals == keyword.hit->equals &&
                   (hit != nullptr || !isList(row) || listIsWritten(keyword));
    return keyword;
  }

  /// Whether a list that is met before it is written, in a comment say, is yet the one written.
  bool listIsWritten(const KeywordInBoth& keyword) const {
    const auto list = vivienda_.run.listOf(*keyword.hit);
    return list && list->open == keyword.written->value.begin;
  }

  std::string reading(const KeywordInBoth& keyword) const {
    std::string taken = takenBy(vivienda_.run, *keyword.row, *keyword.hit);
    if (!taken.empty()) return concat("se leerá "_cp1252, inProse(std::move(taken), *keyword.row));
    return ifAbsent(*keyword.row).words;
  }
  /// A sentence has its numbers as people write them.
  static std::string inProse(std::string taken, const ViviendaKeyword& row) {
    if (!std::holds_alternative<float TypologyRecord::*>(row.field)) return taken;
    std::ranges::replace(taken, '.', ',');
    return withUnit(taken, row);
  }
  std::string used(const KeywordInBoth& keyword) const {
    std::string taken = takenBy(vivienda_.run, *keyword.row, *keyword.hit);
    return taken.empty() ? ifAbsent(*keyword.row).used : taken;
  }

  void compareHit(const KeywordInBoth& keyword) {
    const std::string_view name = keyword.row->name;
    if (!keyword.hit) {
      if (keyword.written != nullptr) notMet(keyword);
      return;
    }
    if (keyword.same) {
      if (keyword.written->kind == WrittenKeyword::Value::kNone) empty(keyword);
      return;
    }
    const std::size_t hit = keyword.hit->at;
    if (keyword.written != nullptr && keyword.written->name.begin == hit) {
      return withoutEquals(keyword);
    }
    const Token* const token = vivienda_.file.tokenAt(hit);
    const bool comment = token != nullptr && token->kind == TokenKind::kComment;
    if (token != nullptr && !comment) readInside_.insert(token->span.begin);
    const Span span = {hit, hit + name.size()};
    WrittenDetails details{.found = token != nullptr ? std::string(at(token->span)) : std::string(),
                           .used = used(keyword),
                           .allowed = {},
                           .suggestion = {}};
    if (comment) {
      // From the word on: what goes before it in the comment says nothing.
      details.found = at({hit, token->span.end});
      details.suggestion = concat("quite ", name, " del comentario");
      vivienda_.findings.add(Code::kDatoEnComentario, span,
                             concat(name, " se lee de un comentario: ", reading(keyword)),
                             std::move(details));
    } else {
      details.suggestion = keyword.written != nullptr && keyword.written->equals
                               ? concat("escriba antes la línea de "_cp1252, name)
                               : concat("escriba la línea de "_cp1252, name);
      vivienda_.findings.add(Code::kDatoDentroDeOtro, span,
                             concat(name, " se lee dentro de otro texto: ", reading(keyword)),
                             std::move(details));
    }
  }

  /// It is there, and the search does not see it.
  void notMet(const KeywordInBoth& keyword) {
    const IfAbsent absent = ifAbsent(*keyword.row);
    const std::string_view name = keyword.row->name;
    if (!keyword.written->equals) return withoutEquals(keyword);
    vivienda_.findings.add(
        Code::kFaltaBlanco, keyword.written->name,
        concat(name, " necesita un blanco delante y otro detrás y no se lee: "_cp1252,
               absent.words),
        {.found = {},
         .used = absent.used,
         .allowed = {},
         .suggestion = concat(name, " = ", at(keyword.written->value))});
  }

  void withoutEquals(const KeywordInBoth& keyword) {
    const std::string_view name = keyword.row->name;
    const WrittenKeyword& written = *keyword.written;
    std::string_view value = at(written.rest);
    while (value.starts_with(':') || value.starts_with(' ')) value.remove_prefix(1);
    const std::string words = keyword.hit ? reading(keyword) : ifAbsent(*keyword.row).words;
    vivienda_.findings.add(
        Code::kFaltaIgual, written.name, concat("Falta el = de ", name, ": ", words),
        {.found =
             std::string(at({written.name.begin, std::max(written.name.end, written.rest.end)})),
         .used = keyword.hit ? used(keyword) : ifAbsent(*keyword.row).used,
         .allowed = {},
         .suggestion = concat(name, " =", value.empty() ? "" : " ", value)});
  }

  void empty(const KeywordInBoth& keyword) {
    vivienda_.findings.add(Code::kValorVacio,
                           {keyword.written->name.begin, *keyword.written->equals + 1},
                           concat(keyword.row->name, " no tiene valor: ", reading(keyword)),
                           {.found = {}, .used = used(keyword), .allowed = {}, .suggestion = {}});
  }

  void repeated(const KeywordInBoth& keyword) {
    const std::string_view name = keyword.row->name;
    const std::string times = times_ == 2 ? "dos" : std::to_string(times_);
    std::string found(at({second_->name.begin, std::max(second_->value.end, second_->name.end)}));
    vivienda_.findings.add(Code::kDatoRepetido, second_->name,
                           concat(name, " está escrito "_cp1252, times, " veces: vale la primera"),
                           {.found = std::move(found),
                            .used = keyword.hit ? used(keyword) : std::string(),
                            .allowed = "una vez",
                            .suggestion = concat("deje una sola línea de "_cp1252, name)});
  }

  void unknown(Span span, std::string_view word) {
    const FoldedWord folded = foldWord(word);
    const ViviendaKeyword* const row = findViviendaKeyword(folded.word);
    if (row != nullptr && folded.accents) {
      return vivienda_.findings.add(
          Code::kAcentoEnPalabra, span,
          concat("El dato ", word, " no se lee: ", row->name, " se escribe sin acento"),
          {.found = {}, .used = {}, .allowed = {}, .suggestion = std::string(row->name)});
    }
    if (row != nullptr) {
      return vivienda_.findings.add(
          Code::kMinusculas, span,
          concat("El dato ", word, " no se lee: ", row->name, " se escribe en mayúsculas"_cp1252),
          {.found = {}, .used = {}, .allowed = {}, .suggestion = std::string(row->name)});
    }
    if (vivienda_.findings.hasAllOf(Code::kPalabraDesconocida)) return;
    const std::string_view near = nearestWord(folded.word, names_);
    vivienda_.findings.add(
        Code::kPalabraDesconocida, span,
        near.empty() ? std::string("Esta palabra no es un dato de VIVIENDA y no se lee")
                     : concat("Esta palabra no es un dato de VIVIENDA y no se lee: ",
                              "¿quería decir "_cp1252, near, "?"),
        {.found = {}, .used = {}, .allowed = {}, .suggestion = std::string(near)});
  }

  WrittenVivienda& vivienda_;
  std::vector<std::string_view> names_ = keywordNames();
  std::set<std::size_t> readInside_;  // tokens that a keyword was read from
  std::size_t times_ = 0;             // that the keyword at hand is written
  const WrittenKeyword* second_ = nullptr;
};

}  // namespace

FoldedWord foldWord(std::string_view word) {
  // From 0xC0 on, the letters of Windows-1252 without their accents.
  constexpr std::string_view kLetters =
      "AAAAAA?CEEEEIIII?NOOOOO?OUUUUY??AAAAAA?CEEEEIIII?NOOOOO?OUUUUY?Y";
  static_assert(kLetters.size() == 64);
  FoldedWord folded;
  for (std::size_t i = 0; i < word.size(); ++i) {
    auto c = static_cast<unsigned char>(word[i]);
    if (c == 0xC3 && i + 1 < word.size() &&
        (static_cast<unsigned char>(word[i + 1]) & 0xC0U) == 0x80) {
      c = static_cast<unsigned char>(static_cast<unsigned char>(word[++i]) | 0x40U);  // UTF-8
    }
    if (c >= 0xC0 && kLetters[c - 0xC0] != '?') {
      folded.word += kLetters[c - 0xC0];
      folded.accents = true;
    } else {
      folded.word += static_cast<char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
    }
  }
  return folded;
}

void compareWords(WrittenVivienda& vivienda) { Words(vivienda).compare(); }
