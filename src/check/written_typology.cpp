#include "check/written_typology.h"

#include <algorithm>
#include <array>
#include <map>
#include <string>
#include <utility>
#include <variant>

#include "bdl/normalised_text.h"
#include "check/suggestion.h"
#include "check/written_bytes.h"
#include "check/written_names.h"
#include "check/written_vivienda.h"
#include "check/written_words.h"
#include "core/concat.h"
#include "core/cp1252.h"
#include "plan/plan_numbers.h"

namespace {

constexpr std::size_t kNone = std::string_view::npos;
constexpr std::string_view kVivienda = "VIVIENDA";
constexpr std::string_view kSolarPosition = "SOLAR-POSITION";
constexpr std::array<std::string_view, 4> kTypes = {kVivienda, "NAME-FRAME", "VENTANA-SOMBRA",
                                                    kSolarPosition};

class Readings {
 public:
  Readings(const TypologyRecord& record, std::span<const std::string> framesOfTemplate)
      : framesOfTemplate_(framesOfTemplate),
        bytes_(record.textoTipologia()),
        file_(readWritten(bytes_)),
        findings_(record.fuente()),
        run_(bytes_),
        vivienda_{record, file_, run_, firstOf(kVivienda), findings_} {}

  Findings compare() {
    compareWriting();
    if (wasRead_) {
      const PlanResult plan = planTipologia(planDataOf(vivienda_.record));
      compareUse(vivienda_, std::get_if<Plan>(&plan));
    }
    return findings_.take();
  }

  /// All but what the values show that were read, percentages apart.
  void compareWriting() {
    compareBytes(file_, findings_);
    for (const WrittenCommand& command : file_.commands) {
      compareCommand(command);
      compareRepeated(command);
      if (at(command.type) != kVivienda && isKnown(at(command.type))) compareCommas(command);
    }
    compareBlockWord(kSolarPosition);
    if (run_.found() && isTheOneMeant()) compareVivienda();
  }

  /// Of a record that was read from a text alike, what its values show.
  std::set<Code> codesOfUse(const TypologyRecord& alike, const Plan* plan) {
    findings_.want(Wanted::kCodes);
    compareUse({alike, file_, run_, vivienda_.command, findings_, vivienda_.keywords}, plan);
    return findings_.takeCodes();
  }

  Findings take() { return findings_.take(); }

  /// Whether what was read is the keywords of the command that is meant, each where it stands. What
  /// no run reads may be met anywhere, as CUBIERTA in CUBIERTAS.
  bool isAsWritten() const {
    return wasRead_ && isShort() &&
           std::ranges::all_of(vivienda_.keywords, [](const KeywordInBoth& keyword) {
             return keyword.same || (!keyword.hit && keyword.written == nullptr) ||
                    std::holds_alternative<IgnoredText>(keyword.row->field);
           });
  }

 private:
  std::string_view at(Span span) const { return findings_.at(span); }

  const WrittenCommand* firstOf(std::string_view type) const {
    const auto command = std::ranges::find_if(
        file_.commands, [&](const WrittenCommand& c) { return at(c.type) == type; });
    return command == file_.commands.end() ? nullptr : &*command;
  }

  void compareVivienda() {
    compareWords(vivienda_);
    for (const KeywordInBoth& keyword : vivienda_.keywords) {
      if (!keyword.same || keyword.written->kind == WrittenKeyword::Value::kNone) continue;
      const auto& field = keyword.row->field;
      if (std::holds_alternative<IgnoredText>(field)) continue;
      if (std::holds_alternative<std::string TypologyRecord::*>(field)) {
        compareName(vivienda_, keyword);
      } else if (std::holds_alternative<PerFacade<float> TypologyRecord::*>(field)) {
        compareList(vivienda_, keyword);
      } else {
        compareNumber(vivienda_, keyword);
      }
    }
    wasRead_ = canBeRead();
    if (wasRead_) compareDefinitions(vivienda_, framesOfTemplate_);
  }

  /// Whether the record has the values of the command: the run ends with one that is too long, or
  /// has no "..".
  bool canBeRead() const {
    if (!run_.closed()) return false;
    return isShort() || normalised(at(run_.block())).size() < kLargest;
  }
  /// The command's blanked text is at least a third of it, and at most three times as long.
  bool isShort() const { return run_.block().end - run_.block().begin < kLargest / 3; }

  static bool isKnown(std::string_view type) {
    return std::ranges::find(kTypes, type) != kTypes.end();
  }

  /// Of two commands the run finds the first. Frames and shades are looked for by their names.
  void compareRepeated(const WrittenCommand& command) {
    const std::string_view type = at(command.type);
    if (!isKnown(type)) return;
    const bool single = type == kVivienda || type == kSolarPosition;
    const std::string_view name = single ? std::string_view() : at(command.name);
    if (++times_[{type, name}] != 2) return;
    findings_.add(Code::kDatoRepetido, single ? command.type : command.name,
                  concat("El comando ", type, single ? "" : " ", name,
                         " está escrito dos veces: vale el primero"_cp1252),
                  {.found = {},
                   .used = "el primero",
                   .allowed = "una vez",
                   .suggestion = concat("deje un solo comando ", type, single ? "" : " ", name)});
  }

  /// In a command that comes into the building as it is written.
  void compareCommas(const WrittenCommand& command) {
    for (const WrittenKeyword& keyword : command.keywords) {
      if (keyword.kind != WrittenKeyword::Value::kWord) continue;
      const std::string_view value = at(keyword.value);
      const std::size_t digits = value.find_first_of("0123456789");
      const std::size_t mark =
          value.find_first_not_of("0123456789", std::min(digits, value.size()));
      const bool number = digits != kNone && value.find_first_not_of("+-") == digits;
      if (!number || mark == kNone || !goesOnWithComma(value.substr(mark))) continue;
      findings_.add(Code::kComaDecimal, keyword.value,
                    concat("El valor de ", at(keyword.name),
                           " lleva coma decimal, y así se copia en el edificio"_cp1252),
                    {.found = {},
                     .used = std::string(value),
                     .allowed = std::string("un número con punto decimal"_cp1252),
                     .suggestion = meantNumber(value)});
    }
  }

  void compareCommand(const WrittenCommand& command) {
    const std::string_view type = at(command.type);
    if (command.nameKind == TokenKind::kTypographic) {
      findings_.add(Code::kComillasTipograficas, command.name,
                    concat("Las comillas del nombre de un ", type, " no son las rectas"),
                    {.found = {},
                     .used = {},
                     .allowed = "un nombre entre comillas dobles rectas",
                     .suggestion = {}});
    }
    if (!isKnown(type)) return compareType(command.type, type);
    const std::size_t close = nextClose(command.type.begin);
    if (close == kNone || (command.close && command.close->begin == close)) return;
    if (!command.close || close > command.close->begin) {
      findings_.add(Code::kCierreFueraDeSitio, command.type,
                    concat("Falta el cierre .. de este ", type, ": se lee hasta el ",
                           "siguiente cierre del fichero"),
                    {.found = {}, .used = {}, .allowed = {}, .suggestion = ".."});
    } else {
      findings_.add(
          Code::kCierreFueraDeSitio, {close, close + 2},
          concat("Estos dos puntos seguidos cierran el comando ", type, ": lo que sigue no se lee"),
          {.found = {},
           .used = {},
           .allowed = {},
           .suggestion = std::string("escriba aquí un solo punto"_cp1252)});
    }
  }

  /// The first ".." behind an offset. The commands ask in their order: the file is looked through
  /// once, however many there are.
  std::size_t nextClose(std::size_t from) {
    if (close_ != kNone && close_ < from) close_ = bytes_.find("..", from);
    return close_;
  }

  /// Of a command that nobody looks for.
  void compareType(Span span, std::string_view type) {
    const FoldedWord folded = foldWord(type);
    const auto known = std::ranges::find(kTypes, folded.word);
    if (known != kTypes.end()) {
      findings_.add(folded.accents ? Code::kAcentoEnPalabra : Code::kMinusculas, span,
                    concat("El comando ", type, " no se lee: se escribe ", *known),
                    {.found = {}, .used = {}, .allowed = {}, .suggestion = std::string(*known)});
      return;
    }
    if (findings_.hasAllOf(Code::kPalabraDesconocida)) return;
    const std::string_view near = nearestWord(folded.word, kTypes);
    if (near.empty()) return;
    findings_.add(Code::kPalabraDesconocida, span,
                  concat("El comando ", type, " no se lee: ", "¿quería decir "_cp1252, near, "?"),
                  {.found = {}, .used = {}, .allowed = {}, .suggestion = std::string(near)});
  }

  /// A block that is found by its type's word alone, wherever that stands first.
  void compareBlockWord(std::string_view word) {
    const std::size_t first = bytes_.find(word);
    if (first == kNone || first == 0) return;
    const WrittenCommand* const command = firstOf(word);
    if (command == nullptr || command->type.begin != first) readElsewhere(word, first);
  }

  void readElsewhere(std::string_view word, std::size_t first) {
    const Token* const token = file_.tokenAt(first);
    const bool comment = token != nullptr && token->kind == TokenKind::kComment;
    findings_.add(
        comment ? Code::kDatoEnComentario : Code::kDatoDentroDeOtro, {first, first + word.size()},
        concat("El comando ", word, " se lee desde ",
               comment ? "esta palabra de un comentario" : "esta palabra de otro texto"),
        {.found = token != nullptr ? std::string(at(token->span)) : std::string(word),
         .used = {},
         .allowed = {},
         .suggestion = concat("quite ", word, comment ? " del comentario" : " de este texto")});
  }

  /// Whether the run's VIVIENDA is a person's one. It may begin earlier, in a comment above it.
  bool isTheOneMeant() {
    const std::size_t first = run_.block().begin;
    if (vivienda_.command == nullptr) {
      // Of a file that has no such command at all the run says so, or reads what it finds.
      if (hasTypeInOtherLetters()) return false;
      readElsewhere(kVivienda, first);
      return false;
    }
    const std::size_t meant = vivienda_.command->type.begin;
    if (bytes_.find("..", first) == bytes_.find("..", meant)) return true;
    readElsewhere(kVivienda, first);
    return false;
  }
  bool hasTypeInOtherLetters() const {
    return std::ranges::any_of(file_.commands, [&](const WrittenCommand& command) {
      return foldWord(at(command.type)).word == kVivienda;
    });
  }

  static constexpr std::size_t kLargest = 10000;  // bytes of a command that a run reads, blanked

  std::span<const std::string> framesOfTemplate_;
  std::string_view bytes_;
  WrittenFile file_;
  WrittenFindings findings_;
  RunReading run_;
  WrittenVivienda vivienda_;
  bool wasRead_ = false;                                                // the values of vivienda_
  std::map<std::pair<std::string_view, std::string_view>, int> times_;  // of type and name
  std::size_t close_ = bytes_.find("..");                               // of nextClose
};

}  // namespace

Findings compareReadings(const TypologyRecord& record,
                         std::span<const std::string> framesOfTemplate) {
  return Readings(record, framesOfTemplate).compare();
}

struct AlikeReadings::First {
  First(const TypologyRecord& typology, std::span<const std::string> framesOfTemplate)
      : record(typology), readings(record, framesOfTemplate) {
    readings.compareWriting();
    findings = readings.take();
  }

  TypologyRecord record;  // keeps the text
  Readings readings;
  Findings findings;
};

AlikeReadings::AlikeReadings(const TypologyRecord& first,
                             std::span<const std::string> framesOfTemplate)
    : first_(std::make_unique<First>(first, framesOfTemplate)) {}

AlikeReadings::AlikeReadings(AlikeReadings&&) noexcept = default;
AlikeReadings& AlikeReadings::operator=(AlikeReadings&&) noexcept = default;
AlikeReadings::~AlikeReadings() = default;

bool AlikeReadings::areAsWritten() const { return first_->readings.isAsWritten(); }

const Findings& AlikeReadings::ofWriting() const { return first_->findings; }

std::set<Code> AlikeReadings::ofValues(const TypologyRecord& alike, const Plan* plan) {
  return first_->readings.codesOfUse(alike, plan);
}
