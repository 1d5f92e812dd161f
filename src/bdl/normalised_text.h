#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// The text with every line end between blanks and every run of blanks as one blank:
/// "x  y\r\nz" gives "x y \r  \n z". Up to three times as long. CR and LF are a line end each.
std::string normalised(std::string_view text);

/// The offset in `text` of the character that stands at `offset` of the normalised text; of a blank
/// that was put beside a line end, that of the line end; behind the normalised text's end, the
/// text's end. Nothing is kept for this while normalising: only who asks pays for it.
std::size_t offsetBeforeNormalising(std::string_view text, std::size_t offset);
