#pragma once

#include <string>
#include <string_view>

/// Windows alone: its texts are UTF-16, the program's UTF-8. What cannot be converted becomes
/// U+FFFD.
std::string toUtf8(std::wstring_view wide);
std::wstring toWide(std::string_view utf8);
