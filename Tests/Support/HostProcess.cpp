#include "Tests/Support/HostProcess.h"

#include <csignal>
#include <utility>

#include <gtest/gtest.h>
#include <sys/wait.h>

#include "Tests/Support/BusNames.h"

namespace TestSupport {

namespace {

constexpr const char* hostName = "com.quillary.Deskloom";
constexpr const char* sentinel = "deskloom://sentinel";

std::vector<std::string> commandLine(const std::string& program, std::vector<std::string> options) {
  options.insert(options.begin(), program);
  return options;
}

}  // namespace

HostProcess::HostProcess(const std::string& program, std::vector<std::string> options)
    : process_(commandLine(program, std::move(options))) {
  awaitOwner(hostName);
}

std::string HostProcess::nextLine() {
  auto line = process_.readLine();
  if (!line)
    ADD_FAILURE() << "the host has ended";
  return line.value_or("");
}

std::vector<std::string> HostProcess::linesSoFar() {
  openURL(hostName, sentinel);
  std::vector<std::string> lines;
  for (auto line = process_.readLine(); line && *line != sentinel; line = process_.readLine())
    lines.push_back(std::move(*line));
  return lines;
}

void HostProcess::hang() const {
  kill(process_.pid(), SIGSTOP);
  siginfo_t state = {};
  waitid(P_PID, static_cast<id_t>(process_.pid()), &state, WSTOPPED | WEXITED | WNOWAIT);
  EXPECT_EQ(state.si_code, CLD_STOPPED) << "the host has ended";
}

void HostProcess::crash() const {
  kill(process_.pid(), SIGKILL);
}

}  // namespace TestSupport
