#include "tests/macos/supplement/Properties.h"

#import <AppKit/AppKit.h>
#import <objc/runtime.h>

#include <map>
#include <utility>

namespace roomlattice::gnustep {
namespace {

using Values = std::map<const char*, id>;

std::map<id, Values>& allValues() {
  static auto* values = new std::map<id, Values>;
  return *values;
}

void forget(id object) {
  const auto node = allValues().extract(object);
  if (!node.empty()) {
    for (const auto& [key, value] : node.mapped()) {
      [value release];
    }
  }
}

using Dealloc = void (*)(id, SEL);

/// Has the instances of a class forget their properties when they are deallocated.
template <int Number>
struct Hook {
  static Dealloc original;

  static void dealloc(id object, SEL command) {
    forget(object);
    original(object, command);
  }

  static void install(const char* name) {
    Method method = class_getInstanceMethod(objc_getClass(name), @selector(dealloc));
    original = (Dealloc)method_getImplementation(method);
    method_setImplementation(method, (IMP)&Hook::dealloc);
  }
};

template <int Number>
Dealloc Hook<Number>::original;

}  // namespace

void setProperty(id object, const char* key, id value) {
  id& kept = allValues()[object][key];
  [value retain];
  [kept release];
  kept = value;
}

id property(id object, const char* key) {
  const auto values = allValues().find(object);
  if (values == allValues().end()) {
    return nil;
  }
  const auto found = values->second.find(key);
  return found == values->second.end() ? nil : found->second;
}

}  // namespace roomlattice::gnustep

@interface SupplementDeallocHooks : NSObject
@end

@implementation SupplementDeallocHooks

+ (void)load {
  roomlattice::gnustep::Hook<0>::install("NSView");
  roomlattice::gnustep::Hook<1>::install("NSWindow");
  roomlattice::gnustep::Hook<2>::install("NSMenuItem");
  roomlattice::gnustep::Hook<3>::install("NSImage");
}

@end
