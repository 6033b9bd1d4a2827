#pragma once

#import <CoreFoundation/CoreFoundation.h>

#include <utility>

namespace roomlattice::platform::macos {

/// Owns one reference to a Core Foundation object, if it has one.
template <class Reference>
class CoreFoundationPointer {
 public:
  CoreFoundationPointer() = default;

  /// Takes over the caller's reference, as a function with Create or Copy in its name gives one.
  static CoreFoundationPointer adopt(Reference object) {
    CoreFoundationPointer pointer;
    pointer.object_ = object;
    return pointer;
  }

  /// Takes a reference of its own beside the caller's.
  static CoreFoundationPointer share(Reference object) {
    if (object != nullptr) {
      CFRetain(object);
    }
    return adopt(object);
  }

  CoreFoundationPointer(CoreFoundationPointer&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
  CoreFoundationPointer& operator=(CoreFoundationPointer&& other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  CoreFoundationPointer(const CoreFoundationPointer&) = delete;
  CoreFoundationPointer& operator=(const CoreFoundationPointer&) = delete;
  ~CoreFoundationPointer() {
    if (object_ != nullptr) {
      CFRelease(object_);
    }
  }

  Reference get() const { return object_; }
  explicit operator bool() const { return object_ != nullptr; }

 private:
  Reference object_ = nullptr;
};

}  // namespace roomlattice::platform::macos
