// Written for this project. Only for its constants: nothing of it is linked.
#pragma once

#include <ApplicationServices/ApplicationServices.h>

// <HIToolbox/Events.h>: the places of keys on a keyboard, whatever is printed on them.
enum {
  kVK_Return = 0x24,
  kVK_Escape = 0x35,
  kVK_ANSI_KeypadEnter = 0x4C,
};
