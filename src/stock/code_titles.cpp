#include "stock/code_titles.h"

#include <algorithm>

#include "check/codes.h"
#include "check/formats.h"
#include "stock/refusal.h"
#include "stock/row_typology.h"

namespace stock {

namespace {

struct Title {
  std::string_view code;
  std::string_view text;
};

constexpr Title kTitles[] = {
    {kBadId, "Un ID no es válido"},
    {kRepeatedId, "Un ID está en dos filas"},
    {kBadRow, "Una fila está mal formada"},
    {kBadNumber, "Un número no se puede leer"},
    {kBadText, "Un nombre no se puede escribir"},
    {kMissingCell, "Falta el dato de una celda"},
    {"disco", "No se ha podido escribir"},
    {"memoria", "Ha faltado memoria"},
    {"inesperado", "Error inesperado"},
    {kPointNote, "Un número con punto y tres cifras, leídas como decimales"},
    {kUnreadNote, "Hay celdas que no se leen: la fila tiene su TIPOLOGIA"},
};

}  // namespace

std::string_view titleOfCode(std::string_view code) {
  const auto* own = std::ranges::find(kTitles, code, &Title::code);
  if (own != std::end(kTitles)) return own->text;
  const auto rows = allCodes();
  const auto row = std::ranges::find(rows, code, &CodeRow::word);
  return row == rows.end() ? std::string_view() : row->title;
}

std::string_view gravityOfCode(std::string_view code) {
  const auto rows = allCodes();
  const auto row = std::ranges::find(rows, code, &CodeRow::word);
  return row == rows.end() ? wordOf(Severity::kNote) : wordOf(row->severity);
}

}  // namespace stock
