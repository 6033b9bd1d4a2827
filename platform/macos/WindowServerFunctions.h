#pragma once

#import <CoreFoundation/CoreFoundation.h>

#include <cstdint>

namespace roomlattice::platform::macos {

/// The functions of the window server that no header declares. They are looked up by name when the program runs: in
/// place of one that a release of the system lacks stands one that does nothing, and the program starts all the same.
struct WindowServerFunctions {
  using Connection = std::int32_t;
  using Lookup = void* (*)(const char* name);

  Connection (*CGSMainConnectionID)() = [] { return Connection{0}; };
  /// The caller owns the array; null where there is no answer.
  CFArrayRef (*CGSCopyManagedDisplaySpaces)(Connection connection) = [](Connection) { return CFArrayRef{}; };
  std::uint64_t (*CGSGetActiveSpace)(Connection connection) = [](Connection) { return std::uint64_t{0}; };
  /// Arrays of numbers: window numbers and desktop identifiers.
  void (*CGSAddWindowsToSpaces)(Connection connection, CFArrayRef windows,
                                CFArrayRef spaces) = [](Connection, CFArrayRef, CFArrayRef) {};
  void (*CGSRemoveWindowsFromSpaces)(Connection connection, CFArrayRef windows,
                                     CFArrayRef spaces) = [](Connection, CFArrayRef, CFArrayRef) {};

  /// Those among the libraries the process has loaded. Without a connection none of the others is of use.
  static WindowServerFunctions load();

  static WindowServerFunctions load(Lookup lookup);
};

}  // namespace roomlattice::platform::macos
