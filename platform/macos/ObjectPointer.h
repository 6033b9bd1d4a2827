#pragma once

#import <Foundation/Foundation.h>

#include <utility>

#if __has_feature(objc_arc)
#error "References are counted by hand here: compile with -fno-objc-arc"
#endif

namespace roomlattice::platform::macos {

/// Owns one reference to an Objective-C object, for code without automatic reference counting.
template <class T>
class ObjectPointer {
 public:
  ObjectPointer() = default;

  /// Takes over the caller's reference, as `alloc`, `new` and `copy` give one.
  static ObjectPointer adopt(T* object) {
    ObjectPointer pointer;
    pointer.object_ = object;
    return pointer;
  }

  /// Takes a reference of its own beside the caller's.
  static ObjectPointer share(T* object) { return adopt([object retain]); }

  ObjectPointer(const ObjectPointer& other) : object_([other.object_ retain]) {}
  ObjectPointer(ObjectPointer&& other) noexcept : object_(std::exchange(other.object_, nil)) {}
  ObjectPointer& operator=(ObjectPointer other) noexcept {
    std::swap(object_, other.object_);
    return *this;
  }
  ~ObjectPointer() { [object_ release]; }

  T* get() const { return object_; }
  explicit operator bool() const { return object_ != nil; }

 private:
  T* object_ = nil;
};

template <class T>
[[nodiscard]] ObjectPointer<T> adopt(T* object) {
  return ObjectPointer<T>::adopt(object);
}

/// Name the class where the object comes as a `__kindof` of it, which would be deduced.
template <class T>
[[nodiscard]] ObjectPointer<T> share(T* object) {
  return ObjectPointer<T>::share(object);
}

}  // namespace roomlattice::platform::macos
