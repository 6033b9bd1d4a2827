#import "platform/macos/MacPlatform.h"

#include "tests/conformance/Backend.h"
#include "tests/macos/MainLoop.h"

namespace roomlattice::tests {
namespace {

class MacBackend final : public Backend {
 public:
  platform::Platform& platform() override { return *platform_; }
  bool runUntil(const std::function<bool()>& condition) override { return gnustep::runUntil(condition); }
  void runFor(std::chrono::milliseconds duration) override { gnustep::runFor(duration); }

 private:
  std::unique_ptr<platform::Platform> platform_ = platform::macos::makePlatform();
};

}  // namespace

std::unique_ptr<Backend> makeBackend() {
  return std::make_unique<MacBackend>();
}

const std::map<std::string, std::string>& knownGaps() {
  static const std::map<std::string, std::string> gaps{
      {"DefaultsConformance.KeepsTheTypeOfEqualNumbers",
       "GNUstep's defaults do not write a number over a Boolean that it takes for equal"},
      {"JsonConformance.TellsIntegersFromDoubles", "GNUstep's parser makes a double of every number"},
      {"JsonConformance.RefusesTrailingText", "GNUstep's parser does not look behind the document's end"},
  };
  return gaps;
}

}  // namespace roomlattice::tests
