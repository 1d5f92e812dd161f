#pragma once

#include <string>
#include <string_view>

/// Numbers as the C library reads and writes them in the "C" locale, whatever the user's locale is.

/// Reads one number from the start of `text` as sscanf's "%d" does: leading white space, a sign,
/// the longest run of digits. On success stores it, moves `text` behind it and returns true;
/// otherwise changes nothing. A number beyond 64 bits is bounded to them, and what does not fit
/// 32 bits loses its upper half, as in glibc.
bool scanInteger(std::string_view& text, int& value);

/// The same for "%f": decimal and hexadecimal reals, "inf", "infinity" and "nan" in any case.
/// Rounded once to the nearest 32-bit real; too large gives an infinity.
bool scanReal(std::string_view& text, float& value);

/// `value` as printf's "%f" writes it: six decimals, "." as decimal mark, "-0.000000".
std::string formatReal(float value);
