#pragma once

// GNUstep asks for this where the compiler knows blocks; libobjc has no such header.

#ifdef __cplusplus
extern "C" {
#endif

void* _Block_copy(const void* block);
void _Block_release(const void* block);

#ifdef __cplusplus
}
#endif
