#pragma once

#include "tests/linux/session/BusDaemon.h"
#include "tests/linux/session/Environment.h"
#include "tests/linux/session/FakeService.h"
#include "tests/linux/session/ToolkitApplication.h"
#include "tests/linux/session/Wait.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

namespace roomlattice::tests {

/// A message bus, and the event loop that those on it need.
class BusTest : public ::testing::Test {
 protected:
  TemporaryFolder folder_;
  BusDaemon daemon_{folder_.path()};
  Environment busEnvironment_{daemon_.variables()};
  ToolkitApplication<QCoreApplication> qt_;
};

}  // namespace roomlattice::tests
