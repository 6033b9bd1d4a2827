#import "platform/macos/WindowServerFunctions.h"

#include <dlfcn.h>

namespace roomlattice::platform::macos {
namespace {

template <class Function>
void resolve(Function*& function, WindowServerFunctions::Lookup lookup, const char* name) {
  function = reinterpret_cast<Function*>(lookup(name));
}

}  // namespace

WindowServerFunctions WindowServerFunctions::load() {
  return load([](const char* name) { return dlsym(RTLD_DEFAULT, name); });
}

WindowServerFunctions WindowServerFunctions::load(Lookup lookup) {
  WindowServerFunctions server;
  resolve(server.CGSMainConnectionID, lookup, "CGSMainConnectionID");
  resolve(server.CGSCopyManagedDisplaySpaces, lookup, "CGSCopyManagedDisplaySpaces");
  resolve(server.CGSGetActiveSpace, lookup, "CGSGetActiveSpace");
  resolve(server.CGSAddWindowsToSpaces, lookup, "CGSAddWindowsToSpaces");
  resolve(server.CGSRemoveWindowsFromSpaces, lookup, "CGSRemoveWindowsFromSpaces");
  return server;
}

}  // namespace roomlattice::platform::macos
