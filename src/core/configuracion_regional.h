#pragma once

#include <string>

/// The unit `Configuracionregional`: the decimal mark that the user's settings ask for.

/// The decimal separator of the user's regional settings, "." where there are none. Read from the
/// environment; the process's own locale stays as it is.
char separadorDecimalRegional();

/// Rewrites the decimal mark of a number's text for the regional settings: every "," becomes "."
/// where the separator is ".", otherwise every "." becomes ",". The last character is never
/// examined: numbers are written with decimals behind their mark, and a final one is punctuation.
/// Always true.
bool AjustarSeparadorDecimal(std::string& text);
/// The same for a given separator.
bool AjustarSeparadorDecimal(std::string& text, char separator);

/// Passes a real through its text in the regional settings, as every real that is read has been.
/// The value that comes back is the value that went in, under any settings: a file means the same
/// to all users.
float pasarPorConversionRegional(float value);
