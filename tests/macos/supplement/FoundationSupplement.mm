#import <AppKit/AppKit.h>

@implementation NSTask (Supplement)

- (void)setExecutableURL:(NSURL*)url {
  [self setLaunchPath:[url path]];
}

- (BOOL)launchAndReturnError:(NSError**)error {
  @try {
    [self launch];
    return YES;
  } @catch (NSException* exception) {
    NSDictionary* information = [NSDictionary dictionaryWithObject:[exception reason] forKey:NSLocalizedDescriptionKey];
    *error = [NSError errorWithDomain:NSCocoaErrorDomain code:4 userInfo:information];
    return NO;
  }
}

@end

@implementation NSPasteboard (Supplement)

- (NSInteger)clearContents {
  // On a Mac the type of what is written next need not be declared.
  return [self declareTypes:[NSArray arrayWithObject:NSPasteboardTypeString] owner:nil];
}

@end
