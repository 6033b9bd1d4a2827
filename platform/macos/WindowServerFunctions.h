#pragma once

#import <CoreFoundation/CoreFoundation.h>

#include <cstdint>

namespace roomlattice::platform::macos {

/// The functions of the window server that no header declares. They are looked up by name when the program runs: one
/// that a release of the system lacks is null, and the program starts all the same.
struct WindowServerFunctions {
  using Connection = std::int32_t;
  using Lookup = void* (*)(const char* name);

  Connection (*CGSMainConnectionID)() = nullptr;
  /// The caller owns the array.
  CFArrayRef (*CGSCopyManagedDisplaySpaces)(Connection connection) = nullptr;
  std::uint64_t (*CGSGetActiveSpace)(Connection connection) = nullptr;
  /// Arrays of numbers: window numbers and desktop identifiers.
  void (*CGSAddWindowsToSpaces)(Connection connection, CFArrayRef windows, CFArrayRef spaces) = nullptr;
  void (*CGSRemoveWindowsFromSpaces)(Connection connection, CFArrayRef windows, CFArrayRef spaces) = nullptr;

  /// Those among the libraries the process has loaded.
  static WindowServerFunctions load();

  static WindowServerFunctions load(Lookup lookup);
};

}  // namespace roomlattice::platform::macos
