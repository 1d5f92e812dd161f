#pragma once

#include <bitset>
#include <cstddef>
#include <string_view>
#include <vector>

/// A template line split at its first "=", both sides without leading and trailing blanks. Without
/// a "=" the whole line is the key and the value is empty. Views into the line.
struct Assignment {
  std::string_view key;
  std::string_view value;
};

/// `text` without leading and trailing blanks; only the space counts as one, not the tab.
inline std::string_view trimBlanks(std::string_view text) {
  const char* first = text.data();
  const char* last = first + text.size();
  while (first != last && *first == ' ') ++first;
  while (first != last && last[-1] == ' ') --last;
  return {first, last};
}

inline Assignment splitAssignment(std::string_view line) {
  const std::size_t equals = line.find('=');
  if (equals == std::string_view::npos) return {trimBlanks(line), {}};
  return {trimBlanks(line.substr(0, equals)), trimBlanks(line.substr(equals + 1))};
}

/// What a template line matched.
struct LineMatch {
  int index = -1;    // of the name in its list
  float width = 0;   // of a line whose key is WIDTH, else 0. State that nothing reads: windows
                     // work theirs out
  float height = 0;  // the value of a line whose key is HEIGHT, else 0
};

/// An ordered list of names that template lines are looked up in. A name matches a line when,
/// trimmed, it equals the line's key or the line's value (exactly, upper and lower case apart);
/// the earliest such name of the list counts. A look-up costs the same however long the list is.
class NameList {
 public:
  /// Keeps views: the texts of `names` must live as long as the list.
  explicit NameList(std::vector<std::string_view> names);

  /// Index of the earliest name that equals the key or the value; -1 when none does.
  int matchKey(const Assignment& line) const;

 private:
  static constexpr std::size_t kLengths = 64;  // told apart; longer texts count as one length
  /// A text's first character and length as one number. Most lines differ from every name in it,
  /// and are done with before their text is hashed.
  static std::size_t glanceAt(std::string_view text);
  int indexOf(std::string_view text) const;

  /// Where the index of `text` stands, or the free place where it would: a place by its hash, and
  /// the next ones while they hold other names.
  std::size_t placeOf(std::string_view text) const;

  std::vector<std::string_view> names_;  // trimmed
  std::vector<int> places_;              // indexes into names_, at most half of them taken
  std::bitset<256 * kLengths> glances_;  // those of the names
};

/// The width and height that a line gives; its index is that of no name.
LineMatch sizesIn(const Assignment& line);

/// Looks `line` up among `names`; true with `match` filled when one matches, else false with
/// `match` as it was.
bool findKey(std::string_view line, const NameList& names, LineMatch& match);
