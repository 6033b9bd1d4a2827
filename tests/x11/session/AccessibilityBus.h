#pragma once

#include "tests/linux/session/ChildProcess.h"

#include <QDBusConnection>
#include <QString>
#include <memory>
#include <string>
#include <vector>

namespace roomlattice::tests {

/// What a screen reader sees of the programs of a session (AT-SPI over D-Bus, whose interfaces are described in the
/// package at-spi2-core). Needs a Qt application. Must end before the session.
class AccessibilityBus {
 public:
  /// Anything that is to be seen: a program, a window, a button.
  struct Object {
    QString service;
    QString path;
  };

  /// Starts the bus and switches accessibility on for the programs that start from now on.
  AccessibilityBus();
  ~AccessibilityBus();
  AccessibilityBus(const AccessibilityBus&) = delete;
  AccessibilityBus& operator=(const AccessibilityBus&) = delete;

  /// All objects of that role and name, whatever they are in; an empty name stands for any.
  std::vector<Object> find(const std::string& role, const std::string& name = {}) const;

  std::vector<Object> childrenOf(const Object& object) const;
  std::string nameOf(const Object& object) const;
  std::string roleOf(const Object& object) const;
  bool isChecked(const Object& object) const;
  bool isFocused(const Object& object) const;

  /// Does the object's first action, as it is called; nothing happens where there is none of that name.
  void act(const Object& object, const std::string& action) const;

 private:
  void connect();
  QVariantList call(const Object& object, const char* interface, const char* method,
                    const QVariantList& arguments = {}) const;
  bool hasState(const Object& object, unsigned state) const;

  std::unique_ptr<ChildProcess> launcher_;
  QDBusConnection bus_{QString()};
};

}  // namespace roomlattice::tests
