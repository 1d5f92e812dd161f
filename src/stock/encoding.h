#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace stock {

/// A text of a list in the encoding of the chain's files; nothing when one of its characters is not
/// in it. `utf8` is valid, as a ListReader gives it.
std::optional<std::string> toCp1252(std::string_view utf8);

}  // namespace stock
