#include "Tests/Support/TestChromium.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <stdexcept>
#include <string_view>

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include "BrowserSessions/JSONText.h"
#include "Tests/Support/FolderChanges.h"
#include "Tests/Support/Patience.h"

namespace TestSupport {

namespace {

/// Chromium does not report every change of a tab.
constexpr std::chrono::seconds untilNextLook{1};

using std::filesystem::path;

constexpr const char* workerFile = "worker.js";

constexpr const char* manifest = R"({
  "name": "Test", "version": "1", "manifest_version": 3,
  "permissions": ["tabs", "tabGroups", "management"], "background": {"service_worker": "worker.js"}})";

/// Functions for scripts in the extension; `pages` is the address of the server with the pages.
constexpr const char* worker = R"(
const tab = async name => (await chrome.tabs.query({url: pages + name}))[0].id;
const windowOf = async name => (await chrome.tabs.query({url: pages + name}))[0].windowId;

// Opens a tab, after the others unless it is given a place, and waits until its page is there. Before its first page a tab has no
// address.
const openTab = (url, index) => new Promise(async isLoaded => {
  const {id} = await chrome.tabs.create({active: false, url, index});
  const look = async () => {
    const tab = await chrome.tabs.get(id);
    if (tab.status !== 'complete' || !tab.url) return;
    chrome.tabs.onUpdated.removeListener(look);
    isLoaded();
  };
  chrome.tabs.onUpdated.addListener(look);
  await look();
});

const openWindow = async (...names) => (await chrome.windows.create({url: names.map(name => pages + name)})).id;

// The normal windows: the one used last, then the others in the order in which they were opened.
async function session() {
  const windows = await chrome.windows.getAll({populate: true, windowTypes: ['normal']});
  const last = windows.length && (await chrome.windows.getLastFocused({windowTypes: ['normal']})).id;
  windows.sort((a, b) => (b.id === last) - (a.id === last) || a.id - b.id);
  return windows.map(({tabs}) => ({
    active: tabs.findIndex(tab => tab.active),
    tabs: tabs.map(({title, url, pendingUrl}) => ({title, url: url || pendingUrl || ''}))}));
}

console.log('ready');)";

void writeOnce(const path& file, std::string_view contents) {
  std::filesystem::create_directories(file.parent_path());
  if (!std::filesystem::exists(file))
    std::ofstream(file) << contents;
}

}  // namespace

TestChromium::TestChromium(const Options& options, InstalledExtensions installed) {
  // With settings from an earlier run it restores what was open.
  writeOnce(userData() / "Default/Preferences", R"({"session": {"restore_on_startup": 1}})");
  extension_.write("manifest.json", manifest);
  extension_.write(workerFile, worker);
  std::string extensions = extension_.path().string();
  if (installed == InstalledExtensions::all)
    for (const auto& entry : std::filesystem::directory_iterator("/usr/share/chromium/extensions"))
      extensions += ',' + entry.path().string();
  start(options, extensions);
  awaitWorker();
}

TestChromium::~TestChromium() {
  process_.reset();
  close(commands_);
  close(answers_);
}

path TestChromium::userData() {
  return path(std::getenv("XDG_CONFIG_HOME")) / "chromium";
}

void TestChromium::ask(Options options) {
  options.insert(options.begin(), {"chromium", "--no-sandbox"});
  TestSupport::run(options, {.captureErrors = true, .hasHelpers = true});
}

// It reads commands from its descriptor 3 and answers on its descriptor 4.
void TestChromium::start(const Options& options, const std::string& extensions) {
  std::array<int, 2> commands{};
  std::array<int, 2> answers{};
  if (pipe(commands.data()) != 0 || pipe(answers.data()) != 0)
    throw std::runtime_error("no pipes for Chromium");
  commands_ = commands[1];
  answers_ = answers[0];
  fcntl(commands_, F_SETFD, FD_CLOEXEC);
  fcntl(answers_, F_SETFD, FD_CLOEXEC);
  const std::string pipes = " 3<&" + std::to_string(commands[0]) + " 4>&" + std::to_string(answers[1]);
  Options arguments = {"bash", "-c", "exec chromium \"$@\"" + pipes, "chromium"};
  arguments.insert(arguments.end(), {"--no-sandbox", "--password-store=basic", "--no-first-run", "--disable-gpu",
                                     "--remote-debugging-pipe", "--load-extension=" + extensions});
  arguments.insert(arguments.end(), options.begin(), options.end());
  process_.emplace(arguments, ChildProcess::Options{.captureErrors = true, .hasHelpers = true});
  pid_ = process_->pid();
  close(commands[0]);
  close(answers[1]);
}

void TestChromium::awaitWorker() {
  call("Target.setDiscoverTargets", {{"discover", true}});
  // Other extensions have workers too.
  json worker;
  awaitUntil([&] {
    worker = target("service_worker", [](const std::string& url) { return url.ends_with(workerFile); });
    return !worker.is_null();
  });
  workerSession_ = call("Target.attachToTarget", {{"targetId", worker.at("targetId")}, {"flatten", true}})["sessionId"];
  call("Runtime.enable", json::object(), workerSession_);
  // The worker exists before its script has run, and before it may use the extension's interfaces.
  awaitUntil([&] { return isReady_; });
}

nlohmann::json TestChromium::run(const std::string& script) {
  json answer = call("Runtime.evaluate", {{"expression", script}, {"awaitPromise", true}, {"returnByValue", true}},
                     workerSession_);
  if (answer.contains("exceptionDetails"))
    throw std::runtime_error(script + ": " + answer["exceptionDetails"].dump());
  return answer["result"].value("value", json());
}

nlohmann::json TestChromium::target(const std::string& type, const std::function<bool(const std::string&)>& hasURL) {
  const json targets = call("Target.getTargets")["targetInfos"];
  const auto isWanted = [&](const json& target) { return target["type"] == type && hasURL(target["url"]); };
  const auto found = std::ranges::find_if(targets, isWanted);
  return found != targets.end() ? *found : json();
}

nlohmann::json TestChromium::page(const std::string& url) {
  return target("page", [&url](const std::string& its) { return its == url; });
}

bool TestChromium::hasPage(const std::string& url) {
  return !page(url).is_null();
}

void TestChromium::openDevTools(const std::string& url) {
  call("Target.openDevTools", {{"targetId", page(url).at("targetId")}});
}

void TestChromium::awaitUntil(const std::function<bool()>& condition) {
  const auto deadline = std::chrono::steady_clock::now() + patience;
  while (std::chrono::steady_clock::now() < deadline) {
    isChanged_ = false;
    if (condition())
      return;
    if (!isChanged_ && hasMessageWithin(untilNextLook))
      nextMessage();
  }
  throw std::runtime_error("waiting for Chromium took too long");
}

bool TestChromium::waitUntilWritten(const std::function<bool()>& condition) const {
  return FolderChanges(userData()).waitUntil(condition, answers_);
}

void TestChromium::awaitPage(const std::string& url) {
  awaitUntil([&] { return hasPage(url); });
}

void TestChromium::awaitPage(const std::string& url, const std::string& title) {
  awaitUntil([&] {
    const json found = page(url);
    return !found.is_null() && found["title"] == title;
  });
}

void TestChromium::runInPage(const std::string& url, const std::string& script) {
  const json session =
      call("Target.attachToTarget", {{"targetId", page(url).at("targetId")}, {"flatten", true}})["sessionId"];
  call("Runtime.evaluate", {{"expression", script}, {"userGesture", true}}, session);
  call("Target.detachFromTarget", {{"sessionId", session}});
}

nlohmann::json TestChromium::call(const std::string& method, const json& parameters, const std::string& session) {
  json message = {{"id", ++calls_}, {"method", method}, {"params", parameters}};
  if (!session.empty())
    message["sessionId"] = session;
  const std::string bytes = message.dump() + '\0';
  if (::write(commands_, bytes.data(), bytes.size()) != std::ssize(bytes))
    throw std::runtime_error("Chromium reads no commands");
  for (;;) {
    const json answer = nextMessage();
    if (answer.value("id", 0) == calls_ && answer.contains("error"))
      throw std::runtime_error(method + ": " + answer["error"].dump());
    if (answer.value("id", 0) == calls_)
      return answer["result"];
  }
}

bool TestChromium::hasMessageWithin(std::chrono::milliseconds time) const {
  pollfd answers = {.fd = answers_, .events = POLLIN, .revents = 0};
  return received_.contains('\0') || poll(&answers, 1, milliseconds(time)) > 0;
}

nlohmann::json TestChromium::nextMessage() {
  std::size_t end = 0;
  while ((end = received_.find('\0')) == std::string::npos) {
    std::array<char, 65536> buffer{};
    pollfd answers = {.fd = answers_, .events = POLLIN, .revents = 0};
    const bool isAnswered = poll(&answers, 1, milliseconds(patience)) > 0;
    const ssize_t count = isAnswered ? read(answers_, buffer.data(), buffer.size()) : 0;
    if (count <= 0)
      throw std::runtime_error(isAnswered ? "Chromium has ended" : "Chromium does not answer");
    received_.append(buffer.data(), static_cast<std::size_t>(count));
  }
  std::string text = received_.substr(0, end);
  BrowserSessions::replaceLoneSurrogates(text);
  json message = json::parse(text);
  received_.erase(0, end + 1);
  isReady_ = isReady_ || message.value("method", "") == "Runtime.consoleAPICalled";
  isChanged_ = isChanged_ || message.contains("method");
  return message;
}

}  // namespace TestSupport
