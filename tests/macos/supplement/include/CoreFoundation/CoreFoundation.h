#pragma once

#include <cstdint>

/// As much of Core Foundation as the backend uses. All of its objects are Objective-C objects here.

extern "C" {

using Boolean = unsigned char;
using CFIndex = long;
using CFTypeRef = const void*;
using CFAllocatorRef = const struct SupplementAllocator*;
using CFStringRef = const struct SupplementString*;
using CFArrayRef = const struct SupplementArray*;
using CFMachPortRef = struct SupplementMachPort*;
using CFRunLoopRef = struct SupplementRunLoop*;
using CFRunLoopSourceRef = struct SupplementRunLoopSource*;
using CFRunLoopMode = CFStringRef;

extern const CFAllocatorRef kCFAllocatorDefault;
extern const CFRunLoopMode kCFRunLoopCommonModes;

CFTypeRef CFRetain(CFTypeRef object);
void CFRelease(CFTypeRef object);

CFRunLoopSourceRef CFMachPortCreateRunLoopSource(CFAllocatorRef allocator, CFMachPortRef port, CFIndex order);
void CFMachPortInvalidate(CFMachPortRef port);
CFRunLoopRef CFRunLoopGetCurrent();
void CFRunLoopAddSource(CFRunLoopRef runLoop, CFRunLoopSourceRef source, CFRunLoopMode mode);
void CFRunLoopRemoveSource(CFRunLoopRef runLoop, CFRunLoopSourceRef source, CFRunLoopMode mode);
}
