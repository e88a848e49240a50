// Which file and name stand for a running application in a sandbox or an AppImage.

#include <filesystem>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Tests/ScriptableApps/RunningApplicationsTest.h"

namespace {

using namespace std::string_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using TestSupport::EnvironmentVariable;
using TestSupport::RunningApplicationsTest;

class SandboxedApplications : public RunningApplicationsTest {
 protected:
  // A process of an AppImage that is mounted in "mount", with a window.
  void addAppImage(pid_t pid, const std::string& windowClass, const std::string& mount = "mount") {
    addProcess(pid, folder_.path() / mount / "usr/bin/tool");
    folder_.write("proc/" + std::to_string(pid) + "/environ",
                  "APPIMAGE=" + image_ + "\0APPDIR="s + (folder_.path() / mount).string() + '\0');
    addWindow(windowClass, pid);
  }

  void setMounts(pid_t pid, const std::string& name) {
    for (const auto& [process, mounts] : {std::pair("self"s, "mnt:[1]"s), std::pair(std::to_string(pid), name)}) {
      const auto link = folder_.path() / "proc" / process / "ns/mnt";
      std::filesystem::create_directories(link.parent_path());
      std::filesystem::remove(link);
      std::filesystem::create_symlink(mounts, link);
    }
  }

  static std::string problem(const std::string& windowClass, const std::string& reason) {
    return "An application with the window class \"" + windowClass + "\" is left out: " + reason;
  }
  static std::string unknownProgram(const std::string& windowClass) {
    return problem(windowClass, "no desktop entry matches it, and its program on this computer is unknown.");
  }

  std::string image_ = folder_.write("Images/Tool.AppImage", "");
};

TEST_F(SandboxedApplications, InAnAppImageAreItsFile) {
  folder_.write("mount/tool.desktop", "[Desktop Entry]\nType=Application\nName=Tool\nName[de]=Werkzeug\n");
  addEntry("tool", "Another Tool", "Exec=tool\nStartupWMClass=Tool");
  addAppImage(7, "Tool");
  const auto found = applications();
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].name, "Tool");
  EXPECT_EQ(found[0].file, image_) << "what is mounted goes with the process";
  EXPECT_EQ(found[0].entryID, std::nullopt);
  EXPECT_EQ(found[0].pid, 7);
  const EnvironmentVariable german("LANGUAGE", "de");
  EXPECT_EQ(names(), Names{"Werkzeug"});
}

TEST_F(SandboxedApplications, InAnAppImageAreNamedAfterItsFileIfNothingInItTells) {
  folder_.write("mount/broken.desktop", "rubbish");
  folder_.write("mount/file", "[Desktop Entry]\nType=Application\nName=File\n");
  addAppImage(7, "Tool");
  EXPECT_EQ(names(), Names{"Tool.AppImage"});
}

TEST_F(SandboxedApplications, InAnAppImageAreOneApplicationHoweverOftenItIsMounted) {
  addAppImage(7, "Tool");
  addWindow("Palette", 7);
  addAppImage(8, "Tool", "other-mount");
  EXPECT_EQ(names(), Names{"Tool.AppImage"});
}

TEST_F(SandboxedApplications, InAnAppImageHaveTheEntryThatRunsIt) {
  addEntry("integrated", "My Tool", "Exec=\"" + image_ + "\" %U\nTryExec=" + image_);
  addAppImage(7, "Tool");
  EXPECT_EQ(files(), Names{(folder_.path() / "applications/integrated.desktop").string()});
  EXPECT_EQ(names(), Names{"My Tool"});
}

TEST_F(SandboxedApplications, InAnAppImageAreLeftOutIfItsFileIsGone) {
  folder_.write("mount/tool.desktop", "[Desktop Entry]\nType=Application\nName=Tool\n");
  std::filesystem::remove(image_);
  addAppImage(7, "Tool");
  EXPECT_THAT(applications(), IsEmpty());
  EXPECT_THAT(problems(), ElementsAre(problem("Tool", "the file " + image_ + " cannot be found.")));
}

TEST_F(SandboxedApplications, StartedByAnAppImageAreTheirOwnPrograms) {
  addAppImage(7, "Tool");
  const std::string clock = addProgram(8, "clock");
  std::filesystem::copy_file(folder_.path() / "proc/7/environ", folder_.path() / "proc/8/environ");
  addWindow("Clock", 8);
  EXPECT_EQ(files(), (Names{image_, clock}));
}

TEST_F(SandboxedApplications, WithoutAnEntryAreLeftOut) {
  const std::string program = folder_.write("bin/tool", "");
  addProcess(7, program);
  folder_.write("proc/7/root/.flatpak-info", "[Application]\nname=org.example.Tool\n");
  addWindow("Tool", 7);
  addProcess(8, program);
  folder_.write("proc/8/cgroup", "0::/snap.tool.tool-0a1b2c3d-0011-2233-4455-66778899aabb.scope\n");
  addWindow("Tool", 8);
  EXPECT_THAT(applications(), IsEmpty()) << "the program cannot be run from here";
  EXPECT_THAT(problems(),
              ElementsAre(problem("Tool", "it is the Flatpak org.example.Tool, which has no desktop entry."),
                          problem("Tool", "it is the snap tool, which has no desktop entry.")));
}

TEST_F(SandboxedApplications, AreNotTheProgramsWithTheirPathsOutside) {
  const std::string program = addProgram(7, "tool");
  addWindow("Tool", 7);
  setMounts(7, "mnt:[2]");
  EXPECT_THAT(problems(), ElementsAre(unknownProgram("Tool"))) << "nothing is known of the other file";
  folder_.write("proc/7/root" + program, "");
  EXPECT_THAT(applications(), IsEmpty());
  std::filesystem::remove(folder_.path() / ("proc/7/root" + program));
  std::filesystem::create_hard_link(program, folder_.path() / ("proc/7/root" + program));
  EXPECT_EQ(files(), Names{program}) << "it is the same file";
  setMounts(7, "mnt:[1]");
  std::filesystem::remove_all(folder_.path() / "proc/7/root");
  EXPECT_EQ(files(), Names{program}) << "it is in no sandbox";
}

TEST_F(SandboxedApplications, AreNotTheProxyThatSpeaksForThem) {
  addEntry("org.example.Tool", "Tool", "X-Flatpak=org.example.Tool");
  for (const pid_t pid : {7, 8})
    addProcess(pid, folder_.write("bin/xdg-dbus-proxy", ""));
  folder_.write("proc/7/root/.flatpak-info", "[Application]\nname=org.example.Tool\n");
  addWindow("x", 7);
  addWindow("Other", 8);
  const auto found = applications();
  ASSERT_EQ(found.size(), 1U);
  EXPECT_EQ(found[0].name, "Tool");
  EXPECT_EQ(found[0].pid, std::nullopt);
  EXPECT_THAT(problems(), ElementsAre(unknownProgram("Other")));
}

TEST_F(SandboxedApplications, HaveNoProcessThatIsNotHere) {
  addEntry("tool", "Tool");
  for (const pid_t pid : {0, -1, 7}) {
    list_.windows.clear();
    addWindow("tool", pid);
    ASSERT_EQ(applications().size(), 1U);
    EXPECT_EQ(applications()[0].pid, std::nullopt) << pid;
  }
  addProgram(7, "tool");
  EXPECT_EQ(applications()[0].pid, 7);
}

}  // namespace
