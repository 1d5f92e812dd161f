#include "typology/typology_record.h"

#include <optional>
#include <utility>

#include "bdl/leer_bdl.h"
#include "core/concat.h"
#include "core/report_error.h"
#include "core/run_ended.h"
#include "typology/vivienda_keywords.h"

namespace {

constexpr std::string_view kVivienda = "VIVIENDA";

/// Reads the value of a keyword into its field. False when it is absent; a number that does not
/// convert counts as absent.
class ReadsInto {
 public:
  ReadsInto(LeerBDL& vivienda, std::string_view pattern, TypologyRecord& record)
      : vivienda_(vivienda), pattern_(pattern), record_(record) {}

  bool operator()(int TypologyRecord::*field) const {
    return vivienda_.consultarEntero(pattern_, record_.*field) == LeerBDL::Lectura::kLeida;
  }
  bool operator()(float TypologyRecord::*field) const {
    return vivienda_.consultarReal(pattern_, record_.*field) == LeerBDL::Lectura::kLeida;
  }
  bool operator()(PerFacade<float> TypologyRecord::*field) const {
    return vivienda_.leerListaReales(pattern_, record_.*field) != -1;
  }
  bool operator()(std::string TypologyRecord::*field) const {
    return vivienda_.leerCadena(pattern_, record_.*field) != -1;
  }
  bool operator()(IgnoredText) const {
    std::string read;
    return vivienda_.leerCadena(pattern_, read) != -1;
  }

 private:
  LeerBDL& vivienda_;
  std::string_view pattern_;
  TypologyRecord& record_;
};

void readKeyword(LeerBDL& vivienda, const ViviendaKeyword& keyword, TypologyRecord& record) {
  const bool given = std::visit(ReadsInto(vivienda, keyword.pattern, record), keyword.field);
  if (!given && keyword.required) {
    ReportFailure(
        ErrorLog,
        {concat("En el COMMAND VIVIENDA del fichero *.tip debe existir un KEYWORD ", keyword.name),
         record.placeOf(keyword.name)});
  }
  const std::string_view fault = keyword.fault != nullptr ? keyword.fault(record) : "";
  if (!fault.empty()) ReportFailure(ErrorLog, {std::string(fault), record.placeOf(keyword.name)});
}

/// The text of the command of `type` called `name`; empty without a name or without a command.
std::string textOfCommand(LeerBDL& model, std::string_view type, const std::string& name) {
  if (name.empty()) return {};
  return std::string(LeerBDL(model, type, name).obtenerTexto().value_or(""));
}

}  // namespace

TypologyRecord::TypologyRecord(SourceText tip)
    : fuente_(std::make_shared<SourceText>(std::move(tip))) {
  read([](const Step& step) { step(); });
}

TypologyRecord::TypologyRecord(SourceText tip, std::vector<Fault>& faults)
    : fuente_(std::make_shared<SourceText>(std::move(tip))) {
  read([&](const Step& step) {
    if (std::optional<Fault> fault = faultOf(step)) faults.push_back(*std::move(fault));
  });
}

TypologyRecord::TypologyRecord(const TypologyRecord& alike, SourceText tip)
    : TypologyRecord(alike) {
  fuente_ = std::make_shared<SourceText>(std::move(tip));
}

void TypologyRecord::read(const std::function<void(const Step&)>& carryOut) {
  LeerBDL model(*fuente_);
  std::optional<LeerBDL> vivienda;
  carryOut([&] {
    bool found = false;
    LeerBDL block(model, kVivienda, found);
    if (!found) {
      ReportFailure(ErrorLog, {"En el fichero *.tip debe existir un COMMAND VIVIENDA",
                               wholeFile(fuente_->name())});
    }
    vivienda = std::move(block);
  });
  if (!vivienda) return;
  for (const ViviendaKeyword& keyword : viviendaKeywords()) {
    carryOut([&] { readKeyword(*vivienda, keyword, *this); });
  }
  carryOut([&] { textoMarco = textOfCommand(model, "NAME-FRAME", ventanaMarco); });
  carryOut([&] { textoSombra = textOfCommand(model, "VENTANA-SOMBRA", ventanaSombra); });
  carryOut([&] {
    bool found = false;
    LeerBDL solarPosition(model, "SOLAR-POSITION", found);
    if (found) textoPosicionSolar = *solarPosition.obtenerTexto();
  });
}

Place TypologyRecord::placeOf(std::string_view keyword) const {
  LeerBDL model(*fuente_);
  const ViviendaKeyword* const row = findViviendaKeyword(keyword);
  std::optional<Span> span;
  // A command that cannot be read has ended its run already, or is a check's.
  faultOf([&] {
    bool found = false;
    LeerBDL vivienda(model, kVivienda, found);
    if (found && row != nullptr) span = vivienda.lugarDeValor(row->pattern);
  });
  if (!span) span = model.lugarDe(kVivienda);
  return fuente_->placeOf(span.value_or(Span{}));
}

TypologyRecord defaultTypology() {
  std::vector<Fault> whatIsMissing;
  return TypologyRecord(SourceText({}, {}), whatIsMissing);
}
