#include <nlohmann/json.hpp>

#include "check/formats.h"
#include "core/cp1252.h"

namespace {

using Json = nlohmann::ordered_json;

constexpr int kJsonVersion = 1;

std::string utf8(std::string_view text) { return cp1252::toUtf8(text); }

/// A byte column behind the span.
long endColumn(const Place& place) { return place.column + static_cast<long>(place.length); }

Json jsonOf(const Finding& finding) {
  Json json;
  json["codigo"] = rowOf(finding.code).word;
  json["gravedad"] = wordOf(severityOf(finding));
  json["mensaje"] = wordsOf(finding);
  if (finding.place && !finding.place->file.empty()) {
    const Place& place = *finding.place;
    json["fichero"] = utf8(place.file);
    if (place.line > 0) {
      json["linea"] = place.line;
      json["columna"] = characterColumn(place.text, place.column);
      json["columna_final"] = characterColumn(place.text, endColumn(place));
      json["columna_byte"] = place.column;
      json["columna_byte_final"] = endColumn(place);
      json["texto"] = utf8(place.text);
    }
  }
  const auto add = [&](const char* key, const std::string& value) {
    if (!value.empty()) json[key] = utf8(value);
  };
  add("leido", finding.found);
  add("usado", finding.used);
  add("admitido", finding.allowed);
  add("sugerencia", finding.suggestion);
  return json;
}

int countOf(const Findings& findings, Severity severity) {
  int count = 0;
  for (const Finding& finding : findings) count += severityOf(finding) == severity ? 1 : 0;
  return count;
}

std::string_view sarifLevel(Severity severity) {
  switch (severity) {
    case Severity::kError:
      return "error";
    case Severity::kWarning:
      return "warning";
    case Severity::kNote:
      break;
  }
  return "note";
}

/// A path as a URI reference: bytes that may not stand in one are escaped.
std::string asUri(std::string_view path) {
  constexpr std::string_view kPlain =
      "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-._~/";
  constexpr std::string_view kHex = "0123456789ABCDEF";
  std::string uri;
  for (const char c : path) {
    const auto byte = static_cast<unsigned char>(c);
    if (kPlain.find(c) != std::string_view::npos) {
      uri += c;
    } else {
      uri += {'%', kHex[byte >> 4U], kHex[byte & 0xFU]};
    }
  }
  return uri;
}

Json sarifRegion(const Place& place) {
  Json region;
  region["startLine"] = place.line;
  region["startColumn"] = characterColumn(place.text, place.column);
  region["endLine"] = place.line;
  region["endColumn"] = characterColumn(place.text, endColumn(place));
  region["snippet"]["text"] = utf8(place.text);
  region["properties"]["startByteColumn"] = place.column;
  region["properties"]["endByteColumn"] = endColumn(place);
  return region;
}

Json sarifResult(const Finding& finding) {
  Json result;
  result["ruleId"] = rowOf(finding.code).word;
  result["ruleIndex"] = static_cast<int>(finding.code);
  result["level"] = sarifLevel(severityOf(finding));
  result["message"]["text"] = wordsOf(finding);
  if (finding.place && !finding.place->file.empty()) {
    Json location;
    location["physicalLocation"]["artifactLocation"]["uri"] = asUri(utf8(finding.place->file));
    if (finding.place->line > 0) {
      location["physicalLocation"]["region"] = sarifRegion(*finding.place);
    }
    result["locations"] = Json::array({location});
  }
  const auto add = [&](const char* key, const std::string& value) {
    if (!value.empty()) result["properties"][key] = utf8(value);
  };
  add("leido", finding.found);
  add("usado", finding.used);
  add("admitido", finding.allowed);
  add("sugerencia", finding.suggestion);
  return result;
}

}  // namespace

std::string asJson(const Findings& findings) {
  Json json;
  json["version"] = kJsonVersion;
  json["errores"] = countOf(findings, Severity::kError);
  json["avisos"] = countOf(findings, Severity::kWarning);
  json["notas"] = countOf(findings, Severity::kNote);
  json["hallazgos"] = Json::array();
  for (const Finding& finding : findings) json["hallazgos"].push_back(jsonOf(finding));
  return json.dump(2) + "\n";
}

std::string asSarif(const Findings& findings) {
  Json rules = Json::array();
  for (const CodeRow& row : allCodes()) {
    Json rule;
    rule["id"] = row.word;
    rule["shortDescription"]["text"] = row.title;
    rule["defaultConfiguration"]["level"] = sarifLevel(row.severity);
    rules.push_back(rule);
  }
  Json run;
  run["tool"]["driver"]["name"] = "tip2bdl-cli";
  run["tool"]["driver"]["rules"] = rules;
  run["columnKind"] = "unicodeCodePoints";
  run["results"] = Json::array();
  for (const Finding& finding : findings) run["results"].push_back(sarifResult(finding));
  Json sarif;
  sarif["$schema"] = "https://json.schemastore.org/sarif-2.1.0.json";
  sarif["version"] = "2.1.0";
  sarif["runs"] = Json::array({run});
  return sarif.dump(2) + "\n";
}
