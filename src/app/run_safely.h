#pragma once

#include <functional>
#include <initializer_list>
#include <string_view>

inline constexpr std::string_view kNoMemory = "No hay memoria suficiente";
inline constexpr std::string_view kUnexpected = "Error inesperado: ";

/// Runs a program's body and gives its exit status. What the body throws (out of memory, or the
/// unexpected) ends the process as every error does: a message and exit code 3. So does what cannot
/// be caught, because it is thrown where nothing may be or is no standard exception.
int runSafely(const std::function<int()>& body);

/// Ends the process as an error does where nothing is to be relied on: without memory, boxes or the
/// terminal's encoding. The message is ASCII, in parts.
[[noreturn]] void endWithLastWords(std::initializer_list<std::string_view> message);
