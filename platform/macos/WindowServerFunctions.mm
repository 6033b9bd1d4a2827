#import "platform/macos/WindowServerFunctions.h"

#include <dlfcn.h>

namespace roomlattice::platform::macos {
namespace {

/// Leaves `function` as it is where there is none of that name.
template <class Function>
bool resolve(Function*& function, WindowServerFunctions::Lookup lookup, const char* name) {
  void* const found = lookup(name);
  if (found != nullptr) {
    function = reinterpret_cast<Function*>(found);
  }
  return found != nullptr;
}

}  // namespace

WindowServerFunctions WindowServerFunctions::load() {
  return load([](const char* name) { return dlsym(RTLD_DEFAULT, name); });
}

WindowServerFunctions WindowServerFunctions::load(Lookup lookup) {
  WindowServerFunctions functions;
  if (resolve(functions.CGSMainConnectionID, lookup, "CGSMainConnectionID")) {
    resolve(functions.CGSCopyManagedDisplaySpaces, lookup, "CGSCopyManagedDisplaySpaces");
    resolve(functions.CGSGetActiveSpace, lookup, "CGSGetActiveSpace");
    resolve(functions.CGSAddWindowsToSpaces, lookup, "CGSAddWindowsToSpaces");
    resolve(functions.CGSRemoveWindowsFromSpaces, lookup, "CGSRemoveWindowsFromSpaces");
  }
  return functions;
}

}  // namespace roomlattice::platform::macos
