#pragma once

#include <string>

#include "stock/shard.h"

namespace stock {

class StockStatistics;

/// What a list of dwellings amounts to, for people: counts, percentiles, histograms, faults by
/// code. One file, UTF-8, without scripts. Depends on the results alone, so that it has the same
/// bytes whatever the workers, shards and interruptions.
std::string summaryPage(StockStatistics& statistics);

/// Makes the page of the finished results of a list, or of a shard of it, in a folder that ends in
/// "/". Ends the run where they cannot be read or the page cannot be written.
void writeSummaryPage(const std::string& folder, const Shard& shard = {});
/// Removes the page: the results are about to change.
void removeSummaryPage(const std::string& folder, const Shard& shard = {});

}  // namespace stock
