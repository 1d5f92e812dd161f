#pragma once

#include <string>

#include "stock/stock_run.h"

/// What a work on a list says to people. UTF-8, but for bytes that come from inputs.
namespace stock {

/// "1234 de 10000 viviendas (12 %), 4100 por segundo, quedan 2 s".
std::string progressText(const StockCounts& counts, double seconds);
/// A line about a column that nobody reads.
std::string warningText(const Fault& warning);
/// How it ended: counts, time and rate; the refusals by code, the most frequent first; how to go
/// on.
std::string summaryText(const StockEnd& end);

}  // namespace stock
