#pragma once

#include <memory>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Tests/EndToEnd/SentApplications.h"
#include "Tests/Support/ChildProcess.h"
#include "Tests/Support/Compositor.h"
#include "Tests/Support/HostProcess.h"
#include "Tests/Support/WindowPrograms.h"

// A launch on a compositor, from the launch URL to the command. Included by a test program for each.

namespace {

TEST(RunCommandOnWayland, SendsEveryProgramOnceByItsDesktopEntry) {
  TestSupport::HostProcess host(DESKLOOM_HOST_PROGRAM);
  const auto compositor = TestSupport::Compositor::running();
  std::vector<TestSupport::ChildProcess> programs;
  programs.emplace_back(std::vector<std::string>{"gnome-calculator"});
  programs.emplace_back(std::vector<std::string>{"mousepad", "--disable-server"});
  programs.push_back(TestSupport::startFeatherPad());
  programs.push_back(TestSupport::startXTerm("a terminal"));
  for (const char* title : {"Calculator", "Untitled 1 - Mousepad", "Untitled", "a terminal"})
    EXPECT_TRUE(compositor->awaitWindow(title)) << title;

  EXPECT_EQ(TestSupport::run({"gio", "open", "deskloomplugin://runCommand/apps"}), 0);
  EXPECT_THAT(sentApplications(host.nextLine()),
              testing::UnorderedElementsAre(
                  testing::Pair("Calculator", "file:///usr/share/applications/org.gnome.Calculator.desktop"),
                  testing::Pair("Mousepad", "file:///usr/share/applications/org.xfce.mousepad.desktop"),
                  testing::Pair("FeatherPad", "file:///usr/share/applications/featherpad.desktop"),
                  testing::Pair("XTerm", "file:///usr/share/applications/debian-xterm.desktop")));
  programs.clear();
  EXPECT_TRUE(compositor->waitForNoWindows());
}

}  // namespace
