#pragma once

#include "platform/Registration.h"

#include <cstdint>
#include <map>
#include <memory>
#include <utility>

namespace roomlattice {

/// Items in the order they were added, each until its registration ends. The registrations may outlive the list.
template <class Item>
class RegistrationList {
 public:
  platform::Registration add(Item item) {
    const std::uint64_t order = nextOrder_++;
    items_->emplace(order, std::make_shared<Item>(std::move(item)));
    return platform::Registration([weak = std::weak_ptr(items_), order] {
      if (const auto items = weak.lock()) {
        // Taken out first: what the item owns may come back here when it ends.
        const auto ended = items->extract(order);
      }
    });
  }

  bool empty() const { return items_->empty(); }

  /// Calls `visit` with every item; those that end meanwhile are left out, and those added meanwhile too.
  template <class Visit>
  void forEach(Visit visit) const {
    const auto items = items_;
    const std::uint64_t end = nextOrder_;
    for (auto next = items->begin(); next != items->end() && next->first < end;) {
      const auto [order, item] = *next;
      visit(*item);
      // Any of them may have ended, this one included.
      next = items->upper_bound(order);
    }
  }

 private:
  using Items = std::map<std::uint64_t, std::shared_ptr<Item>>;

  std::shared_ptr<Items> items_ = std::make_shared<Items>();
  std::uint64_t nextOrder_ = 0;
};

}  // namespace roomlattice
