#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "stock/shard.h"

namespace stock {

/// What a work on a list, or on a shard of it, writes into the folder of the results besides the
/// outputs.
enum class ResultFile { kResults, kJournal, kPage, kLock };

/// Its path; `folder` ends in "/".
std::string pathOf(ResultFile file, const std::string& folder, const Shard& shard = {});

/// The shard that a file of this name belongs to; nothing when it is another kind of file.
std::optional<Shard> shardOf(ResultFile file, std::string_view name);

/// A file's name while it is written, beside its place.
inline constexpr std::string_view kUnfinished = ".parcial";

/// Whether a work may write a file of this name there.
bool isResultFile(std::string_view name);

/// Whether a folder of this name there is one of outputs.
bool isOutputFolder(std::string_view name);

/// Whether a work has left folders of outputs there.
bool hasOutputFolders(const std::string& folder);

}  // namespace stock
