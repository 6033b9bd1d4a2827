// What the other headers of this folder stand on. As Apple's, they do not include <QuartzCore/QuartzCore.h>.
#pragma once

#import <ApplicationServices/ApplicationServices.h>
#import <Foundation/Foundation.h>

#define APPKIT_EXTERN CF_EXPORT

@class CALayer, NSAppearance, NSApplication, NSCell, NSColor, NSColorSpace, NSControl, NSEvent, NSFont, NSImage, NSMenu,
    NSMenuItem, NSScreen, NSStatusBar, NSStatusBarButton, NSTabViewItem, NSText, NSTextView, NSTrackingArea, NSView,
    NSWindow;
