#include "stock/shard.h"

#include <charconv>

#include "core/concat.h"

namespace stock {

namespace {

constexpr long kMostShards = 1000000;

std::optional<long> wholeNumber(std::string_view text) {
  long number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size() || number < 0) return std::nullopt;
  return number;
}

}  // namespace

std::string Shard::nameOf(std::string_view stem) const {
  if (!part) return std::string(stem);
  return concat(stem, "-", std::to_string(number), "-de-", std::to_string(count));
}

std::optional<Shard> parseShard(std::string_view text) {
  const std::size_t slash = text.find('/');
  if (slash == std::string_view::npos) return std::nullopt;
  const auto number = wholeNumber(text.substr(0, slash));
  const auto count = wholeNumber(text.substr(slash + 1));
  if (!number || !count || *number < 1 || *number > *count || *count > kMostShards) {
    return std::nullopt;
  }
  return Shard{*number, *count, true};
}

std::optional<Shard> shardOfArray(const std::function<const char*(const char*)>& variable,
                                  std::string& problem) {
  const auto value = [&](const char* name) -> std::optional<long> {
    const char* const text = variable(name);
    return text == nullptr ? std::nullopt : wholeNumber(text);
  };
  const auto id = value("SLURM_ARRAY_TASK_ID");
  const auto least = value("SLURM_ARRAY_TASK_MIN");
  const auto most = value("SLURM_ARRAY_TASK_MAX");
  const auto count = value("SLURM_ARRAY_TASK_COUNT");
  if (!id || !least || !most || !count) return std::nullopt;
  const bool even = *count > 1 ? (*most - *least) % (*count - 1) == 0 : *most == *least;
  const long step = *count > 1 && even ? (*most - *least) / (*count - 1) : 1;
  const bool fits = even && *count > 0 && step > 0 && *id >= *least && *id <= *most &&
                    (*id - *least) % step == 0 && *count <= kMostShards;
  if (!fits) {
    problem =
        "las tareas de la serie de Slurm no van a intervalos iguales; elija la parte con "
        "--fragmento K/N";
    return std::nullopt;
  }
  return Shard{(*id - *least) / step + 1, *count, true};
}

}  // namespace stock
