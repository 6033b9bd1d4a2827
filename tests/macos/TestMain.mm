#import <AppKit/AppKit.h>

#include <gtest/gtest.h>

namespace {

/// What a test leaves to the autorelease pool goes with the test.
class PoolPerTest : public testing::EmptyTestEventListener {
 public:
  void OnTestStart(const testing::TestInfo&) override { pool_ = [[NSAutoreleasePool alloc] init]; }
  void OnTestEnd(const testing::TestInfo&) override { [pool_ release]; }

 private:
  NSAutoreleasePool* pool_ = nil;
};

/// What an earlier run has stored. A Mac keeps that for each program by its name.
void forgetDefaults() {
  [[NSUserDefaults standardUserDefaults] removePersistentDomainForName:[[NSProcessInfo processInfo] processName]];
}

}  // namespace

int main(int count, char** arguments) {
  testing::InitGoogleTest(&count, arguments);
  if (GTEST_FLAG_GET(list_tests)) {
    return RUN_ALL_TESTS();
  }
  testing::UnitTest::GetInstance()->listeners().Append(new PoolPerTest);
  @autoreleasepool {
    forgetDefaults();
    [NSApplication sharedApplication];
    [NSApp finishLaunching];
    const int status = RUN_ALL_TESTS();
    forgetDefaults();
    return status;
  }
}
