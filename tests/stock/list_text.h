#pragma once

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "stock/list_reader.h"

/// A list that is a literal, handed out in pieces of `piece` bytes.
inline stock::ListReader listOf(std::string_view text, std::size_t piece = std::string::npos) {
  return {"lista.csv", [rest = std::string(text), piece](char* buffer, std::size_t size) mutable {
            const std::size_t taken = rest.copy(buffer, std::min(size, piece));
            rest.erase(0, taken);
            return taken;
          }};
}

using Rows = std::vector<std::vector<std::string>>;

inline Rows rowsOf(stock::ListReader list) {
  Rows rows;
  stock::Record record;
  while (list.next(record)) {
    auto& row = rows.emplace_back();
    for (const stock::Field& field : record.fields()) row.push_back(field.text);
  }
  return rows;
}
