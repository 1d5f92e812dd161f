#include "check/written_names.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "check/suggestion.h"
#include "check/written_vivienda.h"
#include "core/concat.h"
#include "core/cp1252.h"

// The names of constructions, glass, frame and shade.

namespace {

using Value = WrittenKeyword::Value;

std::string_view trimmedWord(std::string_view text) {
  const std::size_t begin = text.find_first_not_of(" \t");
  if (begin == std::string_view::npos) return {};
  return text.substr(begin, text.find_last_not_of(" \t") + 1 - begin);
}

std::string quoted(std::string_view name) { return concat("\"", name, "\""); }

std::string_view withoutQuotes(std::string_view name) {
  if (name.starts_with('"')) name.remove_prefix(1);
  if (name.ends_with('"')) name.remove_suffix(1);
  return name;
}

std::string_view inside(std::string_view typographic) {
  const std::size_t opening = typographicQuote(typographic);
  // The closing one is of the same width: all are of one byte, or of two or three in UTF-8.
  std::size_t closing = 0;
  for (std::size_t width = 1; width <= 3 && width + opening <= typographic.size(); ++width) {
    if (typographicQuote(typographic.substr(typographic.size() - width)) == width) closing = width;
  }
  return typographic.substr(opening, typographic.size() - opening - closing);
}

/// How the value of a name is written.
class NameInBoth {
 public:
  NameInBoth(WrittenVivienda& vivienda, const KeywordInBoth& keyword)
      : findings_(vivienda.findings),
        row_(*keyword.row),
        written_(*keyword.written),
        used_(takenBy(vivienda.run, row_, *keyword.hit)) {}

  void compare() {
    const std::string_view value = findings_.at(written_.value);
    const bool more = written_.rest.begin != written_.rest.end;
    if (written_.kind == Value::kTypographic) {
      return add(Code::kComillasTipograficas, written_.value,
                 concat("Las comillas de ", row_.name, " no son las rectas: ", reading()),
                 quoted(inside(value)));
    }
    if (!written_.closed) {
      return add(Code::kComillasSinCerrar, written_.value,
                 concat("Faltan las comillas de cierre de ", row_.name, ": ", reading()),
                 quoted(trimmedWord(withoutQuotes(value))));
    }
    if (written_.kind == Value::kText && trimmedWord(withoutQuotes(value)).empty()) {
      return add(Code::kNombreVacio, written_.value,
                 concat("El nombre de ", row_.name, " está vacío"_cp1252), {});
    }
    if (more || used_ != value) {
      const Span whole = {written_.value.begin, more ? written_.rest.end : written_.value.end};
      add(Code::kNombreCortado, whole,
          concat("El nombre de ", row_.name, " no se lee entero: ", reading()),
          written_.kind == Value::kWord ? quoted(findings_.at(whole)) : used_);
    }
  }

 private:
  void add(Code code, Span span, std::string message, std::string suggestion) {
    findings_.add(code, span, std::move(message),
                  {.found = {},
                   .used = used_,
                   .allowed = "un nombre entre comillas dobles rectas",
                   .suggestion = std::move(suggestion)});
  }
  std::string reading() const {
    return used_.empty() ? std::string("la ejecución se detendrá"_cp1252)
                         : concat("se leerá "_cp1252, used_);
  }

  WrittenFindings& findings_;
  const ViviendaKeyword& row_;
  const WrittenKeyword& written_;
  std::string used_;
};

/// The commands that define names of frames and shades.
class Definitions {
 public:
  Definitions(WrittenVivienda& vivienda, std::span<const std::string> framesOfTemplate)
      : vivienda_(vivienda), findings_(vivienda.findings), framesOfTemplate_(framesOfTemplate) {}

  /// `name` as read, `text` the command that was found for it.
  void lookUp(std::string_view keyword, std::string_view type, const std::string& name,
              const std::string& text) {
    // An empty name has its own finding.
    if (!text.empty() || trimmedWord(withoutQuotes(name)).empty()) return;
    std::vector<std::string_view> near;
    std::string_view other;
    for (const WrittenCommand& command : vivienda_.file.commands) {
      const std::string_view commandType = findings_.at(command.type);
      const std::string_view commandName = withoutQuotes(findings_.at(command.name));
      const bool sameName = commandName == withoutQuotes(name);
      if (sameName && commandType == type) return;  // the run says what is wrong with it
      if (sameName) other = commandType;
      if (commandType == type) near.push_back(commandName);
    }
    if (!other.empty()) {
      return add(Code::kNombreDeOtraCosa, keyword, name,
                 concat(keyword, " nombra ", name, ", que es un ", other, " y no un ", type), {});
    }
    const bool ofTemplate = std::ranges::find(framesOfTemplate_, name) != framesOfTemplate_.end();
    if (ofTemplate && type == "NAME-FRAME") return;
    const std::string_view nearest = nearestWord(withoutQuotes(name), near);
    add(Code::kNombreNoDefinido, keyword, name,
        concat("No hay ningún "_cp1252, type, " ", name,
               " en el fichero: no se usará ninguno"_cp1252),
        nearest.empty() ? std::string() : quoted(nearest));
  }

 private:
  void add(Code code, std::string_view keyword, const std::string& name, std::string message,
           std::string suggestion) {
    const KeywordInBoth& both = vivienda_.keyword(keyword);
    const auto span = both.hit ? vivienda_.run.textAt(both.hit->equals + 1) : std::nullopt;
    if (!span) return;
    findings_.add(code, *span, std::move(message),
                  {.found = name, .used = {}, .allowed = {}, .suggestion = std::move(suggestion)});
  }

  WrittenVivienda& vivienda_;
  WrittenFindings& findings_;
  std::span<const std::string> framesOfTemplate_;
};

}  // namespace

void compareName(WrittenVivienda& vivienda, const KeywordInBoth& keyword) {
  NameInBoth(vivienda, keyword).compare();
}

void compareDefinitions(WrittenVivienda& vivienda, std::span<const std::string> framesOfTemplate) {
  const TypologyRecord& r = vivienda.record;
  Definitions definitions(vivienda, framesOfTemplate);
  definitions.lookUp("VENTANA-MARCO", "NAME-FRAME", r.ventanaMarco, r.textoMarco);
  definitions.lookUp("VENTANA-SOMBRA", "VENTANA-SOMBRA", r.ventanaSombra, r.textoSombra);
}
