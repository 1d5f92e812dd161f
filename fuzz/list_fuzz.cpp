// Any list gives rows, and from them the texts of typologies, or a message.
#include <algorithm>

#include "fuzz_support.h"
#include "stock/list_columns.h"
#include "stock/list_reader.h"
#include "stock/refusal.h"
#include "stock/row_typology.h"

namespace {

stock::ListReader listOf(std::string_view text, std::size_t piece) {
  return {"lista.csv", [text, piece](char* buffer, std::size_t size) mutable {
            const std::size_t taken = text.copy(buffer, std::min(size, piece));
            text.remove_prefix(taken);
            return taken;
          }};
}

std::vector<std::string> cellsOf(std::string_view text, std::size_t piece) {
  std::vector<std::string> cells;
  stock::ListReader list = listOf(text, piece);
  stock::Record record;
  while (list.next(record)) {
    for (const stock::Field& field : record.fields()) {
      expect(field.line >= record.line() && field.column >= 1, "a cell outside its row");
      cells.push_back(field.text);
    }
  }
  return cells;
}

void readRows(std::string_view text) {
  stock::ListReader list = listOf(text, text.size());
  const stock::ListColumns columns = readHeader(list, false);
  stock::Record record;
  while (list.next(record)) {
    const stock::ListRow row(columns, record, list.name());
    try {
      const stock::RowTypology typology = writeTypology(row, "$ textos\n");
      expect(typology.bytes.ends_with("$ textos\n"), "the texts are lost");
      const auto lines = std::ranges::count(typology.bytes, '\n');
      expect(lines == typology.textsLine, "a value broke its line");
    } catch (const stock::Refusal& refusal) {
      expect(!refusal.message.empty() && refusal.place.has_value(), "refused without a reason");
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > std::size_t{64} * 1024) return 0;
  const std::string_view text = textOf(data, size);
  std::vector<std::string> whole, inPieces;
  const Ending ending = endingOf([&] { whole = cellsOf(text, text.size()); });
  const Ending again = endingOf([&] { inPieces = cellsOf(text, 7); });
  expect(ending.message == again.message && whole == inPieces, "pieces give other cells");
  endingOf([&] { readRows(text); });
  return 0;
}
