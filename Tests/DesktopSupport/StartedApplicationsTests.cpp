#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "DesktopSupport/Processes/StartedApplications.h"
#include "Tests/Support/TemporaryFolder.h"

namespace {

using DesktopSupport::StartedApplication;
using DesktopSupport::startedApplications;
using testing::ElementsAre;
using testing::IsEmpty;
using TestSupport::TemporaryFolder;

// What is in the slice, as "launcher id main-process".
std::vector<std::string> applicationsIn(const TemporaryFolder& slice) {
  std::vector<std::string> texts;
  for (const StartedApplication& application : startedApplications(slice.path()))
    texts.push_back(application.unit.launcher + ' ' + application.unit.applicationID + ' ' +
                    std::to_string(application.mainProcess()));
  return texts;
}

TEST(StartedApplications, AreTheUnitsInTheOrderOfTheirProcesses) {
  const TemporaryFolder slice;
  slice.write("app-gnome-org.example.Second-200.scope/cgroup.procs", "200\n201\n");
  slice.write("app-gnome-firefox\\x2desr-100.scope/cgroup.procs", "100\n");
  slice.write("app-flatpak-org.example.Third-999999.scope/cgroup.procs", "301\n300\n");
  slice.write("gnome-terminal-server.service/cgroup.procs", "50\n");
  slice.write("cgroup.procs", "60\n");
  EXPECT_THAT(applicationsIn(slice),
              ElementsAre("gnome firefox-esr 100", "gnome org.example.Second 200", "flatpak org.example.Third 300"));
}

TEST(StartedApplications, MayBeInSlicesOfTheirOwn) {
  const TemporaryFolder slice;
  slice.write("app-a.slice/app-b.slice/app-gnome-org.example.App-100.scope/cgroup.procs", "100\n");
  EXPECT_THAT(applicationsIn(slice), ElementsAre("gnome org.example.App 100"));
}

TEST(StartedApplications, AreRepresentedByTheFirstProcessThatIsLeft) {
  const TemporaryFolder slice;
  slice.write("app-gnome-org.example.App-100.scope/cgroup.procs", "103\n102\n");
  EXPECT_THAT(applicationsIn(slice), ElementsAre("gnome org.example.App 102"));
}

TEST(StartedApplications, AreNoneOfWhichNoProcessIsLeft) {
  const TemporaryFolder slice;
  slice.write("app-gnome-org.example.Empty-100.scope/cgroup.procs", "");
  slice.write("app-gnome-org.example.Foreign-101.scope/cgroup.procs", "0\n");
  slice.write("app-gnome-org.example.Damaged-102.scope/cgroup.procs", "-1\nx\n99999999999999\n\n");
  slice.write("app-gnome-org.example.Unreadable-103.scope/other", "103\n");
  EXPECT_THAT(applicationsIn(slice), IsEmpty());
}

TEST(StartedApplications, AreNoneIfThereIsNoSlice) {
  EXPECT_THAT(DesktopSupport::startedApplications("/no/such/slice"), IsEmpty());
}

}  // namespace
