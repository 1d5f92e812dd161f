#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// The labels of all commands of one type in a text: where each `"name" = TYPE` begins. Found in
/// one walk, because a text may have thousands that are looked up one after the other.
///
/// A label is written loosely: up to two characters may stand between the name's closing quote and
/// the "=", and the type word begins within three characters of the "=". A name with a "=" of its
/// own has no label.
class CommandLabels {
 public:
  /// `text` must outlive the labels.
  CommandLabels(std::string_view text, std::string_view type);

  /// Position of the first label `name`, in double quotes or not; npos when there is none.
  std::size_t find(const std::string& name) const;

 private:
  void enterLabelsBefore(std::size_t equals);

  std::string_view text_;
  std::vector<std::size_t> equals_;                      // the "=" that a type word follows
  std::unordered_map<std::string, std::size_t> quoted_;  // first label of each quoted name
};
