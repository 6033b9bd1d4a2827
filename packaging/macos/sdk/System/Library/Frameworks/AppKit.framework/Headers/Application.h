// The application, screens, the workspace and the pasteboard.
#pragma once

#import <AppKit/Events.h>

#pragma clang assume_nonnull begin

// <NSRunningApplication.h>, https://developer.apple.com/documentation/appkit/nsapplicationactivationpolicy
typedef NS_ENUM(NSInteger, NSApplicationActivationPolicy) {
  NSApplicationActivationPolicyRegular,
  NSApplicationActivationPolicyAccessory,
  NSApplicationActivationPolicyProhibited
};

@protocol NSApplicationDelegate <NSObject>
@optional
- (BOOL)applicationShouldTerminateAfterLastWindowClosed:(NSApplication*)sender;
- (BOOL)applicationSupportsSecureRestorableState:(NSApplication*)app;
- (void)applicationDidFinishLaunching:(NSNotification*)notification;
@end

@interface NSApplication : NSResponder
@property(class, readonly, strong) __kindof NSApplication* sharedApplication;
@property(nullable, weak) id<NSApplicationDelegate> delegate;
- (BOOL)setActivationPolicy:(NSApplicationActivationPolicy)policy;
- (void)activateIgnoringOtherApps:(BOOL)ignoreOtherApps
    __attribute__((availability(macos, introduced = 10.0, deprecated = 100000)));
- (void)run;
- (void)terminate:(nullable id)sender;
@end
@interface NSApplication () <NSAppearanceCustomization>
@end
APPKIT_EXTERN __kindof NSApplication* _Null_unspecified NSApp;
APPKIT_EXTERN NSNotificationName NSApplicationDidChangeScreenParametersNotification;

@interface NSScreen : NSObject
@property(class, readonly, copy) NSArray<NSScreen*>* screens;
@property(class, nullable, readonly, strong) NSScreen* mainScreen;
@property(readonly) NSRect frame;
- (NSRect)backingAlignedRect:(NSRect)rect options:(NSAlignmentOptions)options;
@end

@interface NSWorkspace : NSObject
@property(class, readonly, strong) NSWorkspace* sharedWorkspace;
@property(readonly, strong) NSNotificationCenter* notificationCenter;
@end
APPKIT_EXTERN NSNotificationName NSWorkspaceActiveSpaceDidChangeNotification;
APPKIT_EXTERN NSNotificationName NSWorkspaceDidWakeNotification;

typedef NSString* NSPasteboardType;
APPKIT_EXTERN NSPasteboardType const NSPasteboardTypeString;
@interface NSPasteboard : NSObject
@property(class, readonly, strong) NSPasteboard* generalPasteboard;
- (NSInteger)clearContents;
- (BOOL)setString:(NSString*)string forType:(NSPasteboardType)type;
@end

#pragma clang assume_nonnull end
