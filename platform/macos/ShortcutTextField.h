#pragma once

#import <AppKit/AppKit.h>

/// A text field in which cutting, copying, pasting, selecting all, undoing and redoing have their usual keys. Elsewhere
/// the main menu has them, and the program has none.
@interface RoomlatticeShortcutTextField : NSTextField

/// Whether `event` was the key of one, and the field is being edited.
- (BOOL)performShortcut:(NSEvent*)event;

@end
