#include "app/Entry.h"
#include "platform/NativePlatform.h"

#include <memory>
#include <variant>

int main(int argc, char** argv) {
  using namespace roomlattice;
  const auto made = platform::makeNativePlatform(argc, argv);
  if (const auto* status = std::get_if<platform::ExitStatus>(&made)) {
    return status->code;
  }
  return runRoomlattice(*std::get<std::unique_ptr<platform::Platform>>(made));
}
