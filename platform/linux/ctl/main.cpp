#include "platform/linux/ctl/CtlArguments.h"
#include "platform/linux/ctl/CtlRun.h"

#include <clocale>
#include <cstdio>
#include <string>
#include <variant>
#include <vector>

int main(int argc, char** argv) {
  using namespace roomlattice::platform::linux;
  std::setlocale(LC_CTYPE, "");
  const auto parsed = parseCtlArguments(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
  if (const auto* information = std::get_if<CtlInformation>(&parsed)) {
    const bool isHelp = *information == CtlInformation::Help;
    return static_cast<int>(printCtl(isHelp ? ctlHelp : "roomlatticectl " ROOMLATTICE_VERSION "\n"));
  }
  if (const auto* error = std::get_if<CtlUsageError>(&parsed)) {
    std::fprintf(stderr, "roomlatticectl: %s (see --help)\n", error->reason.c_str());
    return static_cast<int>(CtlStatus::Usage);
  }
  return static_cast<int>(runCtl(std::get<CtlArguments>(parsed)));
}
