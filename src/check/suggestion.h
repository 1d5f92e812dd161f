#pragma once

#include <cstddef>
#include <span>
#include <string_view>

/// "¿Quería decir ...?": words that are near another one.

/// Letters to add, take away, change or swap with their neighbour until `a` is `b`.
std::size_t editDistance(std::string_view a, std::string_view b);

/// The nearest of `candidates`; the first of several. Empty when none is near: within a third of
/// the longer word, rounded down where the lengths differ by one letter or none and up elsewhere,
/// and never for a word of one letter. Letters count as they are.
std::string_view nearestWord(std::string_view word, std::span<const std::string_view> candidates);
