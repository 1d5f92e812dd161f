#pragma once

#include <string>
#include <string_view>

/// What comes behind the program's own name in the text that the system hands over, without the
/// blanks and tabs between them; quotes and blanks of the rest stay. In UTF-8. The name ends at the
/// first blank or tab outside quotes.
std::string behindProgramName(std::wstring_view commandLine);
