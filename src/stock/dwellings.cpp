#include "stock/dwellings.h"

#include <tuple>
#include <utility>

#include "check/checker.h"
#include "check/codes.h"
#include "check/written_bytes.h"
#include "core/concat.h"
#include "core/counted.h"
#include "core/paths.h"
#include "core/run_ended.h"
#include "generator/run_inputs.h"
#include "report/fingerprint.h"
#include "stock/file_names.h"
#include "stock/list_paths.h"
#include "stock/refusal.h"

namespace stock {

namespace {

Refusal refusalOf(const Fault& fault, std::optional<Place> place) {
  return {std::string(rowOf(codeOfRunMessage(fault.message)).word), fault.message,
          std::move(place)};
}

Refusal refusalOf(const Fault& fault) { return refusalOf(fault, fault.place); }

/// Where a file that is not there is named: the cell, or nowhere but in the fault itself.
std::optional<Place> cellNaming(const ListRow& row, int column, const Fault& missing) {
  return row.text(column).empty() ? missing.place : row.placeOf(column);
}

/// Leads from a place in the text that was written for a row to the cell that it comes from, or to
/// the file of texts behind it.
std::optional<Place> placeInInputs(const ListRow& row, const PreparedDwelling& prepared,
                                   std::optional<Place> place) {
  if (!place || prepared.ownFile || place->file != prepared.typologyName) return place;
  const RowTypology& typology = prepared.typology;
  if (place->line >= typology.textsLine && !prepared.textsName.empty()) {
    place->file = prepared.textsName;
    place->line -= typology.textsLine - 1;
    return place;
  }
  const auto index = static_cast<std::size_t>(place->line > 0 ? place->line - 1 : 0);
  const bool known = index < typology.columnOfLine.size() && typology.columnOfLine[index] >= 0;
  if (known) return row.placeOf(typology.columnOfLine[index]);
  // About the command as a whole: most likely what it lacks.
  const std::optional<Place> missing = placeOfMissing(row);
  return missing ? missing : row.place();
}

[[noreturn]] void refuse(const Fault& fault, const ListRow& row, const PreparedDwelling& prepared) {
  const std::optional<Place> place = placeInInputs(row, prepared, fault.place);
  throw refusalOf(fault, place ? place : row.place());
}

/// A fingerprint for a cell: it begins with a letter, or a spreadsheet would take one of 16 decimal
/// digits for a number and lose the last ones.
std::string cellPrint(std::string_view text) { return "x" + report::fingerprint(text); }

/// What a check of the two says besides errors. Also of a typology that the run refuses: what is
/// read in another way than it is written may be why.
NoteCodes notesOn(const SharedTemplate& shared, const PreparedDwelling& prepared,
                  const std::optional<TypologyRecord>& typology, RowForm* form, const Plan* plan) {
  NoteCodes codes = shared.notes;
  if (typology && form != nullptr) {
    codes.merge(form->remarkCodesOf(*typology, plan));
    return codes;
  }
  // The check never ends a run; a text that is too long for reading leaves nothing to check.
  faultOf([&] {
    std::vector<Fault> faults;
    const auto read = [&] {
      return TypologyRecord(SourceText(prepared.typologyName, prepared.typology.bytes), faults);
    };
    const TypologyRecord record = typology ? *typology : read();
    codes.merge(remarkCodes(*shared.checked, record, hasPlanNumbers(record, faults)));
  });
  return codes;
}

}  // namespace

TemplateBuildings& DwellingRoom::buildingsOf(const std::shared_ptr<const SharedTemplate>& shared) {
  constexpr std::size_t kMost = 32;
  if (buildings.size() >= kMost && !buildings.contains(shared)) buildings.clear();
  return buildings.try_emplace(shared, shared).first->second;
}

SharedTemplate Dwellings::readTemplate(const std::string& path) const {
  SharedTemplate shared;
  InputPaths paths;
  const std::optional<Fault> tooLong = faultOf([&] {
    requirePathWithin(path, kPathCapacity);
    // The typology, which is each row's own, is asked for between the table and the library; the
    // template stands for it here.
    paths = requireInputs(path, path, [&](const Fault& fault) {
      if (fault.message.find("*.tip") != std::string::npos) return;
      const bool library = fault.message.find("defectos.inp") != std::string::npos;
      std::optional<Fault>& kept = library ? shared.missingLibrary : shared.missing;
      if (!kept) kept = fault;
    });
  });
  if (tooLong) shared.missing = tooLong;
  std::string prints;
  if (!shared.missing && !shared.missingLibrary) {
    shared.fault = faultOf([&] {
      const SourceText defaults = readText(paths.defaults);
      prints += report::fingerprint(defaults.bytes());
      TemplateTexts texts = readTemplateTexts(paths);
      for (const SourceText* text :
           {&std::as_const(texts).building, &std::as_const(texts).table, &defaults}) {
        shared.notes.merge(codesOf(bytesFindings(*text)));
      }
      prints += report::fingerprint(texts.building.bytes());
      prints += report::fingerprint(texts.table.bytes());
      shared.plantilla = std::make_unique<const Template>(
          std::move(texts.building), std::move(texts.table), Template::Use::kOften);
      shared.original = std::make_unique<const report::OriginalBuilding>(
          shared.plantilla->copiedText(), shared.plantilla->table());
      shared.checked = std::make_unique<const CheckedTemplate>(*shared.plantilla);
      shared.notes.merge(codesOf(templateFindings(*shared.checked)));
    });
  }
  for (const auto* fault : {&shared.missing, &shared.missingLibrary, &shared.fault}) {
    if (*fault) prints += (*fault)->message;
  }
  shared.fingerprint = report::fingerprint(prints);
  return shared;
}

namespace {

SharedText readSharedText(const std::string& path) {
  SharedText shared;
  shared.fault = faultOf([&] {
    requirePathWithin(path, kPathCapacity);
    const SourceText text = readText(path);
    shared.bytes = text.bytes();
  });
  shared.fingerprint = report::fingerprint(shared.fault ? shared.fault->message : shared.bytes);
  return shared;
}

}  // namespace

PreparedDwelling Dwellings::prepare(const ListRow& row, long number, bool repeated) {
  const std::string_view id = row.id();
  if (isDeviceName(id)) {
    throw Refusal{
        kBadId,
        concat("El ID \"", id, "\" es de un dispositivo de Windows: no da nombre a ficheros"),
        row.placeOf(row.columns().id)};
  }
  if (!isGoodId(id)) {
    throw Refusal{kBadId,
                  concat("El ID \"", id,
                         "\" no es válido: debe tener de 1 a 100 letras sin acento, cifras, \"-\", "
                         "\"_\" o \".\""),
                  row.placeOf(row.columns().id)};
  }
  if (repeated) {
    throw Refusal{kRepeatedId, concat("El ID ", id, " ya está en otra fila"),
                  row.placeOf(row.columns().id)};
  }
  PreparedDwelling prepared;
  prepared.output = Outputs::nameOf(id, number);
  const std::size_t cells = row.record().size();
  if (const int bad = row.record().badQuotes(); bad >= 0) {
    throw Refusal{kBadRow, "Hay texto detrás de unas comillas de cierre", row.placeOf(bad)};
  }
  if (cells != row.columns().count) {
    throw Refusal{kBadRow,
                  concat("La fila tiene ", counted(cells, "celda", "celdas"), " y la lista, ",
                         counted(row.columns().count, "columna", "columnas")),
                  row.place()};
  }
  const std::string_view named = row.text(row.columns().plantilla);
  if (named.empty() && !options_.plantilla) {
    throw Refusal{kMissingCell, "Falta la PLANTILLA", row.placeOf(row.columns().plantilla)};
  }
  const std::string path =
      named.empty() ? *options_.plantilla : pathInList(options_.listFolder, named);
  prepared.plantilla =
      templates_.get(path, [this](const std::string& name) { return readTemplate(name); });
  const SharedTemplate& shared = *prepared.plantilla;
  const auto requireThere = [&](const std::optional<Fault>& missing) {
    if (missing) throw refusalOf(*missing, cellNaming(row, row.columns().plantilla, *missing));
  };
  requireThere(shared.missing);
  readTypology(row, prepared);
  requireThere(shared.missingLibrary);
  prepared.fingerprint = cellPrint(
      concat(id, "\n", shared.fingerprint, "\n", report::fingerprint(prepared.typology.bytes), "\n",
             notesCell(prepared.typology.notes, {}), "\n", options_.version));
  prepared.refusedPrint = cellPrint(concat(prepared.fingerprint, "\n", options_.listName, "\n",
                                           std::to_string(row.record().line()), "\n", path, "\n",
                                           prepared.typologyName, "\n", prepared.textsName));
  return prepared;
}

std::string Dwellings::printOfTemplate() {
  if (!options_.plantilla) return {};
  return templates_
      .get(*options_.plantilla, [this](const std::string& name) { return readTemplate(name); })
      ->fingerprint;
}

std::string Dwellings::printOf(const Outcome& refused) const {
  return cellPrint(concat(refused.code, "\n", refused.message, "\n",
                          refused.place ? asOneLine(*refused.place) : std::string(), "\n",
                          options_.version));
}

void Dwellings::readTypology(const ListRow& row, PreparedDwelling& prepared) {
  const auto read = [&](std::string_view named, int column) {
    const std::string path = pathInList(options_.listFolder, named);
    std::shared_ptr<const SharedText> text = texts_.get(path, readSharedText);
    if (text->fault) throw refusalOf(*text->fault, row.placeOf(column));
    return std::pair(path, text);
  };
  const ListColumns& columns = row.columns();
  if (const std::string_view own = row.text(columns.tipologia); !own.empty()) {
    const std::string path = pathInList(options_.listFolder, own);
    const std::optional<Fault> missing = faultOf([&] {
      requirePathWithin(path, kPathCapacity);
      requireTypology(path);
    });
    if (missing) throw refusalOf(*missing, row.placeOf(columns.tipologia));
    // Each is read for one row, so that none is kept.
    const SharedText text = readSharedText(path);
    if (text.fault) throw refusalOf(*text.fault);
    prepared.ownFile = true;
    prepared.typologyName = path;
    prepared.typology.bytes = text.bytes;
    if (describesItself(row)) prepared.typology.notes.emplace_back(kUnreadNote);
    return;
  }
  if (!columns.describe) {
    throw Refusal{kMissingCell, "Falta la TIPOLOGIA", row.placeOf(columns.tipologia)};
  }
  if (const std::string_view named = row.text(columns.textos); !named.empty()) {
    std::tie(prepared.textsName, prepared.texts) = read(named, columns.textos);
  }
  prepared.typologyName = concat(row.id(), ".tip");
  prepared.typology =
      writeTypology(row, prepared.texts == nullptr ? std::string_view() : prepared.texts->bytes);
}

void Dwellings::make(const ListRow& row, const PreparedDwelling& prepared, DwellingRoom& room,
                     Outcome& outcome) const {
  const SharedTemplate& shared = *prepared.plantilla;
  outcome.fingerprint = prepared.refusedPrint;
  outcome.notes = notesCell(prepared.typology.notes, {});
  if (shared.fault) throw refusalOf(*shared.fault);
  std::optional<TypologyRecord> typology;
  RowForm* form = nullptr;
  if (!prepared.ownFile) {
    form = room.forms.find(prepared.typology, prepared.plantilla, prepared.texts);
  }
  TemplateBuildings& buildings = room.buildingsOf(prepared.plantilla);
  const std::optional<Fault> fault = faultOf([&] {
    SourceText tip(prepared.typologyName, prepared.typology.bytes);
    if (form != nullptr) typology = form->read(row, std::move(tip));
    if (!typology) {
      form = nullptr;
      typology.emplace(SourceText(prepared.typologyName, prepared.typology.bytes));
      if (!prepared.ownFile) requireReadAsWritten(row, *typology);
    }
    buildings.generate(*typology);
  });
  outcome.notes = notesCell(
      prepared.typology.notes,
      notesOn(shared, prepared, typology, form, form == nullptr ? nullptr : buildings.plan()));
  if (fault) refuse(*fault, row, prepared);
  if (form == nullptr && !prepared.ownFile && room.forms.metBefore(prepared.typology)) {
    room.forms.add(prepared.typology, {prepared.plantilla, prepared.texts, *typology});
  }
  outcome.measures = buildings.measuresOf(*typology);
  if (options_.keepTypologies && !prepared.ownFile) {
    outputs_.putBytes(Outputs::typologyOf(prepared.output), prepared.typology.bytes);
  } else if (options_.usedFolder) {
    outputs_.removeTypologyOf(prepared.output);
  }
  buildings.copyTo(room.text);
  outputs_.putText(prepared.output, room.text);
  outcome.output = prepared.output;
  outcome.fingerprint = prepared.fingerprint;
}

}  // namespace stock
