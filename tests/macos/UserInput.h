#pragma once

#import <AppKit/AppKit.h>

#include <memory>
#include <string_view>

namespace roomlattice::gnustep {

/// The user's pointer and keyboard, by the X server's test extension: the events take the way of real ones. Places are
/// screen coordinates of AppKit. While the input is on its way the main loop is served.
class UserInput {
 public:
  UserInput();
  ~UserInput();
  UserInput(const UserInput&) = delete;
  UserInput& operator=(const UserInput&) = delete;

  void moveTo(NSPoint place);
  void click(NSPoint place);
  /// Letters without accents, digits and blanks.
  void type(std::string_view text);
  void pressReturn();

 private:
  class Connection;

  std::unique_ptr<Connection> connection_;
};

}  // namespace roomlattice::gnustep
