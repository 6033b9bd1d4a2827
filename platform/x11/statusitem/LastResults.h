#pragma once

#include <algorithm>
#include <cstddef>
#include <deque>
#include <utility>

namespace roomlattice::platform::x11 {

/// The last few results of something costly, by what they depend on.
template <class Key, class Result>
class LastResults {
 public:
  explicit LastResults(std::size_t most) : most_(most) {}

  /// The result for `key`, made by `make` unless it is at hand. Valid until the next call.
  template <class Make>
  const Result& get(const Key& key, Make make) {
    const auto found = std::ranges::find(entries_, key, &Entry::first);
    if (found != entries_.end()) {
      return found->second;
    }
    if (entries_.size() == most_) {
      entries_.pop_back();
    }
    return entries_.emplace_front(key, make(key)).second;
  }

  void clear() { entries_.clear(); }

 private:
  using Entry = std::pair<Key, Result>;

  std::size_t most_;
  // The latest one first.
  std::deque<Entry> entries_;
};

}  // namespace roomlattice::platform::x11
