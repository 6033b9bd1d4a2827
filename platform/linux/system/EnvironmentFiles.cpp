#include "platform/linux/system/EnvironmentFiles.h"

#include "platform/linux/system/EnvironmentVariable.h"

#include <cstdlib>
#include <filesystem>
#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace roomlattice::platform::linux {
namespace {

using Path = std::filesystem::path;

struct NamedFile {
  const char* variable;
  Path (*placeOf)(const std::string& value);
};

Path asItStands(const std::string& value) {
  return value;
}

/// As tzset(3) has it: relative to a folder of time zones, and perhaps with a colon before it.
Path ofTimeZone(const std::string& value) {
  const Path folder = environmentVariable("TZDIR").value_or("/usr/share/zoneinfo");
  return folder / (value.starts_with(':') ? value.substr(1) : value);
}

constexpr NamedFile namedFiles[] = {
    {"FONTCONFIG_FILE", asItStands},  // fonts.conf(5)
    {"QT_LOGGING_CONF", asItStands},  // doc.qt.io/qt-6/qloggingcategory.html
    {"TZ", ofTimeZone},
    {"XCOMPOSEFILE", asItStands},  // Compose(5)
    {"XENVIRONMENT", asItStands},  // X(7)
};

}  // namespace

FileNature natureOf(const struct stat& status) {
  if (S_ISDIR(status.st_mode)) {
    return FileNature::Folder;
  }
  const bool isNullDevice = S_ISCHR(status.st_mode) && status.st_rdev == makedev(1, 3);
  return S_ISREG(status.st_mode) || isNullDevice ? FileNature::Ordinary : FileNature::Endless;
}

std::vector<std::string> withholdEndlessFiles() {
  std::vector<std::string> withheld;
  for (const NamedFile& file : namedFiles) {
    const std::optional<std::string> value = environmentVariable(file.variable);
    struct stat status {};
    if (value && stat(file.placeOf(*value).c_str(), &status) == 0 && natureOf(status) == FileNature::Endless) {
      unsetenv(file.variable);
      withheld.emplace_back(file.variable);
    }
  }
  return withheld;
}

}  // namespace roomlattice::platform::linux
