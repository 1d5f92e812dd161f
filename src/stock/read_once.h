#pragma once

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>

namespace stock {

/// Files that many workers share, each read by the first who asks and kept for the others. Any
/// number of threads. What a loader throws goes to its caller, and the next one tries again.
template <typename T>
class ReadOnce {
 public:
  /// Files that are kept; above it all are forgotten, but for those in use.
  static constexpr std::size_t kMost = 256;

  std::shared_ptr<const T> get(const std::string& path,
                               const std::function<T(const std::string&)>& load) {
    const std::shared_ptr<Slot> slot = slotOf(path);
    const std::lock_guard lock(slot->reading);
    if (slot->value == nullptr) slot->value = std::make_shared<const T>(load(path));
    return slot->value;
  }

 private:
  struct Slot {
    std::mutex reading;
    std::shared_ptr<const T> value;
  };

  std::shared_ptr<Slot> slotOf(const std::string& path) {
    const std::lock_guard lock(mutex_);
    if (slots_.size() >= kMost && !slots_.contains(path)) slots_.clear();
    std::shared_ptr<Slot>& slot = slots_[path];
    if (slot == nullptr) slot = std::make_shared<Slot>();
    return slot;
  }

  std::mutex mutex_;
  std::map<std::string, std::shared_ptr<Slot>> slots_;
};

}  // namespace stock
