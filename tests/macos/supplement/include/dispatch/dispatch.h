#pragma once

#include <time.h>

#include <cstdint>

/// As much of Grand Central Dispatch as the backend uses. The main queue is served by the main thread's run loop.

extern "C" {

using dispatch_block_t = void (^)();
using dispatch_time_t = std::uint64_t;
using dispatch_queue_t = struct SupplementQueue*;
using dispatch_source_t = struct SupplementTimer*;
using dispatch_source_type_t = const struct SupplementSourceType*;

inline constexpr dispatch_time_t DISPATCH_TIME_NOW = 0;
inline constexpr unsigned int QOS_CLASS_USER_INITIATED = 0x19;

extern const dispatch_source_type_t DISPATCH_SOURCE_TYPE_TIMER;

/// The clock that stands still while the machine sleeps, in nanoseconds. A Mac declares it in <time.h>.
inline constexpr clockid_t CLOCK_UPTIME_RAW = CLOCK_MONOTONIC;
std::uint64_t clock_gettime_nsec_np(clockid_t clock);

/// Nanoseconds of that clock.
dispatch_time_t dispatch_time(dispatch_time_t when, std::int64_t delta);

dispatch_queue_t dispatch_get_main_queue();
dispatch_queue_t dispatch_get_global_queue(std::intptr_t identifier, std::uintptr_t flags);
void dispatch_async(dispatch_queue_t queue, dispatch_block_t block);
void dispatch_after(dispatch_time_t when, dispatch_queue_t queue, dispatch_block_t block);

dispatch_source_t dispatch_source_create(dispatch_source_type_t type, std::uintptr_t handle, std::uintptr_t mask,
                                         dispatch_queue_t queue);
void dispatch_source_set_timer(dispatch_source_t source, dispatch_time_t start, std::uint64_t interval,
                               std::uint64_t leeway);
void dispatch_source_set_event_handler(dispatch_source_t source, dispatch_block_t handler);
void dispatch_source_cancel(dispatch_source_t source);
void dispatch_resume(dispatch_source_t source);
void dispatch_release(dispatch_source_t source);
}
