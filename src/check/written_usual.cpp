#include <algorithm>
#include <cmath>
#include <limits>
#include <string>

#include "check/written_vivienda.h"
#include "check/written_words.h"
#include "core/concat.h"
#include "core/cp1252.h"
#include "plan/families.h"
#include "plan/plan.h"
#include "plan/plan_numbers.h"
#include "typology/tipo.h"

// What a typology leaves out, gives in vain, or gives as few buildings have it.

namespace {

/// What is met in ordinary buildings. A note begins outside of `low` to `high`; where that is
/// further out than what is usual, `from` to `to` say what that is.
struct Usual {
  float low, high;
  float from = low, to = high;
};

constexpr float kNoLimit = std::numeric_limits<float>::infinity();
constexpr Usual kStorey = {2.4F, 4.0F, 2.5F, 3.3F};       // m, from floor to floor
constexpr Usual kOpenings = {5, 60};                      // % of a façade; 0 is as usual
constexpr Usual kOpeningsOfFloor = {5, kNoLimit, 8, 25};  // % of a storey; few give little light
constexpr Usual kHouseFacade = {5, 16};                   // m
constexpr Usual kBlockFacade = {15, 45};                  // m
constexpr float kCourtyardSide = 3;                       // m, and a third of the building's height
constexpr Usual kDwelling = {40, 150};                    // m2
constexpr Usual kStair = {10, 35};                        // m2 a storey
constexpr Usual kStoreys = {1, 12};
constexpr Usual kAirChanges = {0.3F, 1.5F};  // ren/h

class Use {
 public:
  Use(const WrittenVivienda& vivienda, const Plan* plan)
      : vivienda_(vivienda),
        plan_(plan),
        findings_(vivienda.findings),
        r_(vivienda.record),
        row_(tipoRow(vivienda.record.tipo)),
        family_(familyRow(row_.family)) {}

  void compare() {
    if (!given("TIPO")) return;
    if (!isTipo(r_.tipo) && row_.family != PlanFamily::kNone) likeAHouse();
    withoutEffect("CUBIERTA", "PLANA", "todos los edificios tienen cubierta plana");
    withoutEffect("ATICO", "NO", "ningún edificio tiene ático"_cp1252);
    withoutEffect("SOTANO", "NO", "ningún edificio tiene sótano"_cp1252);
    if (row_.family == PlanFamily::kNone) return;
    measures();
    defaults();
    usualValues();
    percentages("PORCENTAJE-FACHADA", r_.porcentajeFachada);
    if (plan_ != nullptr) usualPlan();
  }

 private:
  std::string_view at(Span span) const { return findings_.at(span); }

  /// Whether the run has a value of the keyword, from wherever.
  bool given(std::string_view name) const { return !takenFor(name).empty(); }
  std::string takenFor(std::string_view name) const {
    const KeywordInBoth& keyword = vivienda_.keyword(name);
    return keyword.hit ? takenBy(vivienda_.run, *keyword.row, *keyword.hit) : std::string();
  }

  /// The value of a keyword, as written; the command's type where it is not.
  Span placeOf(std::string_view name) const {
    const KeywordInBoth& keyword = vivienda_.keyword(name);
    if (keyword.same && keyword.written->kind != WrittenKeyword::Value::kNone) {
      return keyword.written->value;
    }
    if (keyword.hit) return {keyword.hit->at, keyword.hit->at + name.size()};
    return typeWord();
  }
  Span typeWord() const {
    if (vivienda_.command != nullptr) return vivienda_.command->type;
    const std::size_t begin = vivienda_.run.block().begin;
    return {begin, begin + std::string_view("VIVIENDA").size()};
  }

  void likeAHouse() {
    findings_.add(Code::kTipoComoCasa, placeOf("TIPO"),
                  concat("El TIPO ", std::to_string(r_.tipo),
                         " no existe: se tratará como una casa de dos plantas"_cp1252),
                  {.found = {},
                   .used = std::to_string(r_.tipo),
                   .allowed = concat("1 a ", std::to_string(kLastTipo)),
                   .suggestion = {}});
  }

  void withoutEffect(std::string_view name, std::string_view built, std::string_view why) {
    const KeywordInBoth& keyword = vivienda_.keyword(name);
    const WrittenKeyword* const written = keyword.written;
    if (written == nullptr || written->kind == WrittenKeyword::Value::kNone) return;
    std::string_view value = at(written->value);
    if (value.size() > 1 && value.starts_with('"') && value.ends_with('"')) {
      value = value.substr(1, value.size() - 2);
    }
    if (foldWord(value).word == built) return;
    findings_.add(Code::kSinEfecto, written->value, concat(name, " no tiene efecto: ", why),
                  {.found = {},
                   .used = std::string(built),
                   .allowed = std::string(built),
                   .suggestion = std::string(built)});
  }

  void measures() {
    for (const PlanNumber& number : planNumbers()) {
      // One that is needed and not there breaks its limits, which are errors.
      if (r_.*number.inTypology == 0 || family_.looksAt(number.inPlan)) continue;
      if (given(number.name)) {
        findings_.add(Code::kMedidaSinUso, placeOf(number.name),
                      concat("El TIPO ", std::to_string(r_.tipo), " no usa ", number.name),
                      {.found = {}, .used = {}, .allowed = {}, .suggestion = {}});
      }
    }
  }

  void defaults() {
    defaultValue("ALTURA-PLANTA", {});
    if (family_.courtyardBays) defaultValue("PORCENTAJE-PATIO", {});
    defaultValue("ORIENTACION", {});
    defaultValue("AIR-CHANGES/HR", "; 0,63 es el valor habitual en certificados");
  }

  /// Of a keyword that is nowhere. One that is there without a value has a finding already.
  void defaultValue(std::string_view name, std::string_view remark) {
    const KeywordInBoth& keyword = vivienda_.keyword(name);
    if (keyword.hit || keyword.written != nullptr || isBehindTheEnd(name)) return;
    findings_.add(Code::kValorPorDefecto, typeWord(), [&]() -> WrittenWords {
      const IfAbsent absent = ifAbsent(*keyword.row);
      return {concat("Falta ", name, ": ", absent.words, ", el valor por defecto", remark),
              {.found = "nada",
               .used = absent.used,
               .allowed = {},
               .suggestion = concat(name, " = ", absent.used)}};
    });
  }

  /// Whether it is written behind a ".." in the midst of the command, which has its own finding.
  bool isBehindTheEnd(std::string_view name) const {
    return vivienda_.command != nullptr &&
           std::ranges::any_of(vivienda_.command->keywords,
                               [&](const WrittenKeyword& k) { return at(k.name) == name; });
  }

  /// A note where `value` is outside of what is usual; `what`: "La altura de planta".
  void usual(Span place, std::string_view what, float value, Usual range, std::string_view unit) {
    if (!std::isfinite(value) || (value >= range.low && value <= range.high)) return;
    findings_.add(Code::kPocoHabitual, place, [&]() -> WrittenWords {
      const bool open = range.to == kNoLimit;
      const std::string words =
          open ? concat("desde ", numberInProse(range.from))
               : concat("de ", numberInProse(range.from), " a ", numberInProse(range.to));
      const std::string allowed =
          open ? concat(">= ", plainNumber(range.from))
               : concat(plainNumber(range.from), " a ", plainNumber(range.to));
      // A length that follows from several ones has as many digits as a division gives.
      const float rounded = std::round(value * 100) / 100;
      return {concat(what, ", ", numberInProse(rounded), unit,
                     ", es poco habitual: lo habitual es ", words, unit),
              {.found = {}, .used = plainNumber(rounded), .allowed = allowed, .suggestion = {}}};
    });
  }
  void usual(std::string_view name, std::string_view what, float value, Usual range,
             std::string_view unit) {
    usual(placeOf(name), what, value, range, unit);
  }

  bool hasStoreysOfABuilding() const { return r_.numeroPlantas > 0 && r_.numeroPlantas < 1000; }

  void usualValues() {
    // What ends the run needs no note, and what does not fit an integer has its own finding.
    if (r_.alturaPlanta > 0) {
      usual("ALTURA-PLANTA", "La altura de planta", r_.alturaPlanta, kStorey, " m");
    }
    if (hasStoreysOfABuilding()) {
      usual("NUMERO-PLANTAS", "El número de plantas"_cp1252, static_cast<float>(r_.numeroPlantas),
            kStoreys, " plantas");
    }
    usual("AIR-CHANGES/HR", "La ventilación"_cp1252, r_.airChangesHr, kAirChanges, " ren/h");
  }

  void percentages(std::string_view name, const PerFacade<float>& values) {
    if (!given(name)) return;
    const bool equal = std::ranges::all_of(values, [&](float v) { return v == values.front(); });
    if (equal) {
      findings_.add(Code::kPocoHabitual, placeOf(name),
                    concat("Los cuatro valores de ", name, " son iguales: es poco habitual"),
                    {.found = {}, .used = {}, .allowed = {}, .suggestion = {}});
      return;
    }
    for (std::size_t i = 0; i < values.size(); ++i) {
      // Fractions, and what is above 100, have their own findings.
      if (values[i] < 1 || values[i] > 100) continue;
      usual(itemOf(name, i), concat("El porcentaje de huecos de la fachada ", kFacadeNames[i]),
            values[i], kOpenings, " %");
    }
  }

  /// An item of a list, counted from 0; the whole of it where that is not as written.
  Span itemOf(std::string_view name, std::size_t index) const {
    const Span list = placeOf(name);
    std::size_t begin = list.begin;
    for (std::size_t i = 0; i < index; ++i) {
      const std::size_t comma = at(list).find(',', begin + 1 - list.begin);
      if (comma == std::string_view::npos) return list;
      begin = list.begin + comma;
    }
    const std::size_t first = at(list).find_first_not_of(" \t\r\n(,", begin - list.begin);
    const std::size_t end = at(list).find_first_of(" \t\r\n,)", first);
    if (first >= end || end == std::string_view::npos) return list;
    return {list.begin + first, list.begin + end};
  }

  /// Of a plan that can be built: else its errors say more.
  void usualPlan() {
    openingsOfFloor(*plan_);
    const bool house = family_.isHouse();
    usual("LONGITUD-FACHADA", "La longitud de fachada", r_.longitudFachada,
          house ? kHouseFacade : kBlockFacade, " m");
    depth();
    courtyard();
    const float stair = family_.looksAt(&PlanData::areaEscalera) ? r_.areaEscalera : 0;
    const float dwelling = (r_.areaPlanta - stair) / static_cast<float>(family_.dwellings);
    usual("AREA-PLANTA", house ? "La superficie de planta" : "La superficie de cada vivienda",
          dwelling, kDwelling, " m²"_cp1252);
    if (family_.looksAt(&PlanData::areaEscalera)) {
      usual("AREA-ESCALERA", "La superficie de la escalera", r_.areaEscalera, kStair, " m²"_cp1252);
    }
  }

  /// Openings as they are asked for, over the floor that they light. None at all is meant so.
  void openingsOfFloor(const Plan& plan) {
    const auto openings = [](float percentage, float wall) {
      return percentage > 0 ? std::min(percentage, 100.0F) * wall : 0.0F;
    };
    float sum = 0;  // m2 x %
    for (std::size_t i = 0; i < 4; ++i) {
      sum += openings(r_.porcentajeFachada[i], plan.superficieFachada[i]);
      sum += openings(r_.porcentajePatio[i], plan.superficiePatio[i]);
    }
    const float floors = r_.areaPlanta * static_cast<float>(row_.planStoreys);
    if (!(sum > 0)) return;
    usual("PORCENTAJE-FACHADA", "La superficie de huecos respecto a la de planta", sum / floors,
          kOpeningsOfFloor, " %");
  }

  /// Lengths as they are asked for. Those of the outlines are rounded otherwise, and more than
  /// once: a courtyard of 3 m may have less there.
  void depth() {
    if (!family_.ordinaryDepth) return;
    const auto& [from, to] = *family_.ordinaryDepth;
    const float courtyards = family_.looksAt(&PlanData::areaPatio) ? r_.areaPatio : 0;
    const float depth = (r_.areaPlanta + courtyards) / r_.longitudFachada;
    usual("LONGITUD-FACHADA", "El fondo del bloque", depth, {from, to}, " m");
  }

  void courtyard() {
    if (row_.courtyards == CourtyardPlace::kNoCourtyard || !hasStoreysOfABuilding()) return;
    const bool two = row_.courtyards != CourtyardPlace::kInside;
    const float length = r_.areaPatio / r_.profundidadPatio / (two ? 2.0F : 1.0F);
    const float least =
        std::max(kCourtyardSide, r_.alturaPlanta * static_cast<float>(r_.numeroPlantas) / 3);
    usual("PROFUNDIDAD-PATIO", "El lado corto del patio", std::min(length, r_.profundidadPatio),
          {std::round(least * 100) / 100, kNoLimit}, " m");
  }

  const WrittenVivienda& vivienda_;
  const Plan* plan_;
  WrittenFindings& findings_;
  const TypologyRecord& r_;
  const TipoRow& row_;
  const FamilyRow& family_;
};

}  // namespace

void compareUse(const WrittenVivienda& vivienda, const Plan* plan) {
  Use(vivienda, plan).compare();
}
