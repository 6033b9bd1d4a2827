#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <tuple>
#include <vector>

namespace roomlattice::platform::linux {

class BusVariant;

/// The path of an object on a message bus, which is a type of its own there.
struct ObjectPath {
  std::string path;
};

/// In a message that came: a value of any type, which is not looked at.
struct AnyValue {};

/// How D-Bus writes the type that stands for a C++ type: texts, numbers, ObjectPath, BusVariant, tuples for structures,
/// vectors for arrays and maps for dictionaries.
template <class T>
struct BusTypeOf;

template <class T>
std::string busType() {
  return BusTypeOf<T>::text();
}

template <>
struct BusTypeOf<bool> {
  static std::string text() { return "b"; }
};
template <>
struct BusTypeOf<std::uint8_t> {
  static std::string text() { return "y"; }
};
template <>
struct BusTypeOf<std::int32_t> {
  static std::string text() { return "i"; }
};
template <>
struct BusTypeOf<std::uint32_t> {
  static std::string text() { return "u"; }
};
template <>
struct BusTypeOf<double> {
  static std::string text() { return "d"; }
};
template <>
struct BusTypeOf<std::string> {
  static std::string text() { return "s"; }
};
template <>
struct BusTypeOf<ObjectPath> {
  static std::string text() { return "o"; }
};
template <>
struct BusTypeOf<BusVariant> {
  static std::string text() { return "v"; }
};
template <>
struct BusTypeOf<AnyValue> {
  static std::string text() { return "v"; }
};
template <class... T>
struct BusTypeOf<std::tuple<T...>> {
  static std::string text() { return "(" + (busType<T>() + ...) + ")"; }
};
template <class T>
struct BusTypeOf<std::vector<T>> {
  static std::string text() { return "a" + busType<T>(); }
};
template <class Key, class T>
struct BusTypeOf<std::map<Key, T>> {
  static std::string text() { return "a{" + busType<Key>() + busType<T>() + "}"; }
};

}  // namespace roomlattice::platform::linux
