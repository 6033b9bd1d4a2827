#pragma once

#include <CoreFoundation/CoreFoundation.h>

/// As much of the Quartz event services as the backend uses.

extern "C" {

using CGEventRef = struct SupplementEvent*;
using CGEventSourceRef = struct SupplementEventSource*;
using CGEventTapProxy = struct SupplementTapProxy*;
using CGEventMask = std::uint64_t;
using CGColorRef = struct CGColor*;

enum CGEventField : std::uint32_t {};
enum CGEventTapLocation : std::uint32_t { kCGHIDEventTap, kCGSessionEventTap, kCGAnnotatedSessionEventTap };
enum CGEventTapPlacement : std::uint32_t { kCGHeadInsertEventTap, kCGTailAppendEventTap };
enum CGEventTapOptions : std::uint32_t { kCGEventTapOptionDefault, kCGEventTapOptionListenOnly };
enum CGEventType : std::uint32_t {
  kCGEventNull = 0,
  kCGEventTapDisabledByTimeout = 0xFFFFFFFE,
  kCGEventTapDisabledByUserInput = 0xFFFFFFFF,
};

#define kCGEventMaskForAllEvents (~(CGEventMask)0)

using CGEventTapCallBack = CGEventRef (*)(CGEventTapProxy proxy, CGEventType type, CGEventRef event, void* userData);

CGEventRef CGEventCreate(CGEventSourceRef source);
void CGEventSetIntegerValueField(CGEventRef event, CGEventField field, std::int64_t value);
void CGEventSetDoubleValueField(CGEventRef event, CGEventField field, double value);
std::int64_t CGEventGetIntegerValueField(CGEventRef event, CGEventField field);
double CGEventGetDoubleValueField(CGEventRef event, CGEventField field);
void CGEventPost(CGEventTapLocation location, CGEventRef event);
CFMachPortRef CGEventTapCreate(CGEventTapLocation location, CGEventTapPlacement placement, CGEventTapOptions options,
                               CGEventMask mask, CGEventTapCallBack callback, void* userData);
void CGEventTapEnable(CFMachPortRef tap, bool enable);
}
