#pragma once

#import <Foundation/Foundation.h>

namespace roomlattice::gnustep {

/// What a category adds to an object of AppKit: a value by name, kept until the object is deallocated. `key` is
/// compared by address.
void setProperty(id object, const char* key, id value);
id property(id object, const char* key);

}  // namespace roomlattice::gnustep
