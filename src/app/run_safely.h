#pragma once

#include <functional>
#include <initializer_list>
#include <string_view>

/// Runs a program's body and gives its exit status. An exception that the body throws (out of
/// memory, or the unexpected) ends the process as every error does: a message and exit code 3. An
/// exception that no catch can see, because it is thrown in a destructor or another function that
/// may not throw, or because it is not derived from std::exception, ends it in the same way, by a
/// terminate handler, in whichever thread that is. A write that cannot be made fails from now on
/// and is no signal (see failing_writes.h).
int runSafely(const std::function<int()>& body);

/// Ends the process as an error does where nothing is to be relied on: without memory, boxes or the
/// terminal's encoding. The message is ASCII, in parts.
[[noreturn]] void endWithLastWords(std::initializer_list<std::string_view> message);
