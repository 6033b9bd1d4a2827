#include "platform/linux/system/EnvironmentFiles.h"
#include "tests/linux/session/Environment.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <sys/stat.h>

namespace roomlattice::tests {
namespace {

using platform::linux::withholdEndlessFiles;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class EnvironmentFilesTest : public ::testing::Test {
 protected:
  EnvironmentFilesTest() {
    for (const char* variable : {"FONTCONFIG_FILE", "QT_LOGGING_CONF", "TZ", "TZDIR", "XCOMPOSEFILE", "XENVIRONMENT"}) {
      environment_.set(variable, std::nullopt);
    }
    mkfifo(pipe_.c_str(), S_IRUSR | S_IWUSR);
  }

  TemporaryFolder folder_;
  std::string pipe_ = folder_.path() / "pipe";
  Environment environment_;
};

TEST_F(EnvironmentFilesTest, AreWithheldWhereReadingThemNeedNotEnd) {
  std::filesystem::create_symlink(pipe_, folder_.path() / "link");
  environment_.set("FONTCONFIG_FILE", "/dev/zero");
  environment_.set("XCOMPOSEFILE", pipe_);
  environment_.set("XENVIRONMENT", folder_.path() / "link");
  EXPECT_THAT(withholdEndlessFiles(), ElementsAre("FONTCONFIG_FILE", "XCOMPOSEFILE", "XENVIRONMENT"));
  EXPECT_EQ(std::getenv("FONTCONFIG_FILE"), nullptr);
  EXPECT_THAT(withholdEndlessFiles(), IsEmpty());
}

TEST_F(EnvironmentFilesTest, AreLeftWhereTheyAreOrdinaryOrNotThere) {
  std::ofstream(folder_.path() / "file") << "text";
  environment_.set("FONTCONFIG_FILE", folder_.path());
  environment_.set("QT_LOGGING_CONF", folder_.path() / "file");
  environment_.set("XCOMPOSEFILE", folder_.path() / "none");
  environment_.set("XENVIRONMENT", "/dev/null");
  EXPECT_THAT(withholdEndlessFiles(), IsEmpty());
  EXPECT_EQ(std::getenv("QT_LOGGING_CONF"), folder_.path() / "file");
}

TEST_F(EnvironmentFilesTest, OfTimeZonesAreFoundWhereTheSystemLooks) {
  environment_.set("TZDIR", folder_.path());
  for (const std::string& value : {std::string("pipe"), std::string(":pipe"), pipe_, ":" + pipe_}) {
    environment_.set("TZ", value);
    EXPECT_THAT(withholdEndlessFiles(), ElementsAre("TZ")) << value;
  }
  for (const char* value : {"CET-1CEST", "Europe/Berlin", ":"}) {
    environment_.set("TZ", value);
    EXPECT_THAT(withholdEndlessFiles(), IsEmpty()) << value;
  }
}

}  // namespace
}  // namespace roomlattice::tests
