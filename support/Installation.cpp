#include "support/Installation.h"

#include "support/Fatal.h"

namespace roomlattice {
namespace {

Installation* installed = nullptr;

}  // namespace

Installation::Installation(platform::Platform& platform) : platform_(platform) {
  if (installed != nullptr) {
    fatal("a platform is installed already");
  }
  installed = this;
}

Installation::~Installation() {
  while (!instances_.empty()) {
    instances_.pop_back();
  }
  installed = nullptr;
}

Installation& Installation::current() {
  if (installed == nullptr) {
    fatal("no platform is installed");
  }
  return *installed;
}

}  // namespace roomlattice
