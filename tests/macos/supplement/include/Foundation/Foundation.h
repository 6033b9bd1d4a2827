#pragma once

#include_next <Foundation/Foundation.h>

/// What Foundation has on a Mac and GNUstep lacks.
@interface NSTask (Supplement)
- (void)setExecutableURL:(NSURL*)url;
- (BOOL)launchAndReturnError:(NSError**)error;
@end
