// Runs the four provider scripts with fake applications that have any number of items open.

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "AppleScript/Script.h"
#include "AppleScript/Values/Value.h"
#include "Gleanery/Providers/ChromeResourceProvider.h"
#include "Gleanery/Providers/FinderResourceProvider.h"
#include "Gleanery/Providers/OpenAppsResourceProvider.h"
#include "Gleanery/Providers/SafariResourceProvider.h"

namespace {

using AppleScript::ClassDescription;
using AppleScript::ElementsDescription;
using AppleScript::File;
using AppleScript::Object;
using AppleScript::PropertyDescription;
using AppleScript::Result;
using AppleScript::Value;

/// A process, a folder window or a tab. They differ only in their class.
struct Item : Object {
  Item(const ClassDescription& itemClass, std::string title, std::string place)
      : description(&itemClass), name(std::move(title)), location(std::move(place)) {}
  [[nodiscard]] const ClassDescription& classDescription() const override { return *description; }

  const ClassDescription* description;
  std::string name;
  std::string location;
};

/// An application, or a window with tabs.
struct Container : Object {
  explicit Container(const ClassDescription& containerClass) : description(&containerClass) {}
  [[nodiscard]] const ClassDescription& classDescription() const override { return *description; }

  const ClassDescription* description;
  std::vector<Item> items;
  std::vector<Container> windows;
};

const Item& item(const Object& object) {
  return static_cast<const Item&>(object);
}
const Container& container(const Object& object) {
  return static_cast<const Container&>(object);
}

std::size_t countItems(const Object& object) {
  return container(object).items.size();
}
const Object& itemAt(const Object& object, std::size_t index) {
  return container(object).items[index];
}
std::size_t countWindows(const Object& object) {
  return container(object).windows.size();
}
const Object& windowAt(const Object& object, std::size_t index) {
  return container(object).windows[index];
}

Result<Value> name(const Object& object) {
  return Value(item(object).name);
}
Result<Value> location(const Object& object) {
  return Value(item(object).location);
}
Result<Value> file(const Object& object) {
  return Value(File{item(object).location});
}
Result<Value> backgroundOnly(const Object& /*object*/) {
  return Value(false);
}

constexpr PropertyDescription processProperties[] = {
    {"name", name}, {"background only", backgroundOnly}, {"file", file}};
constexpr PropertyDescription folderProperties[] = {{"name", name}, {"target", file}};
constexpr PropertyDescription tabProperties[] = {{"name", name}, {"title", name}, {"URL", location}};

constexpr ClassDescription processClass = {"process", "processes", processProperties};
constexpr ClassDescription folderWindowClass = {"window", "windows", folderProperties};
constexpr ClassDescription tabClass = {"tab", "tabs", tabProperties};
constexpr ElementsDescription tabElements[] = {{&tabClass, countItems, itemAt}};
constexpr ClassDescription browserWindowClass = {"window", "windows", {}, tabElements};

constexpr ElementsDescription processElements[] = {{&processClass, countItems, itemAt}};
constexpr ClassDescription systemEventsClass = {"application", "applications", {}, processElements};
constexpr ElementsDescription folderElements[] = {{&folderWindowClass, countItems, itemAt}};
constexpr ClassDescription finderClass = {"application", "applications", {}, folderElements};
constexpr ElementsDescription windowElements[] = {{&browserWindowClass, countWindows, windowAt}};
constexpr ClassDescription browserClass = {"application", "applications", {}, windowElements};

constexpr const ClassDescription* systemEventsClasses[] = {&systemEventsClass, &processClass};
constexpr const ClassDescription* finderClasses[] = {&finderClass, &folderWindowClass};
constexpr const ClassDescription* browserClasses[] = {&browserClass, &browserWindowClass, &tabClass};

constexpr AppleScript::Dictionary systemEvents = {&systemEventsClass, systemEventsClasses, {}};
constexpr AppleScript::Dictionary finder = {&finderClass, finderClasses, {}};
constexpr AppleScript::Dictionary browser = {&browserClass, browserClasses, {}};

constexpr std::int64_t tabsPerWindow = 100;

std::vector<Item> items(const ClassDescription& itemClass, std::int64_t count, const std::string& place) {
  std::vector<Item> made;
  for (std::int64_t i = 0; i < count; ++i)
    made.emplace_back(itemClass, "The name of item number " + std::to_string(i), place + std::to_string(i));
  return made;
}

/// The only application, whatever name it is asked for by.
class MadeUpApplication : public AppleScript::Application, public AppleScript::ApplicationDirectory {
 public:
  MadeUpApplication(const AppleScript::Dictionary& dictionary, std::shared_ptr<const Container> root)
      : dictionary_(dictionary), root_(std::move(root)) {}

  [[nodiscard]] std::string_view name() const override { return "Made Up"; }
  [[nodiscard]] const AppleScript::Dictionary& dictionary() const override { return dictionary_; }
  [[nodiscard]] Result<AppleScript::ObjectPointer> open() override { return root_; }
  [[nodiscard]] AppleScript::Application* find(std::string_view /*name*/) override { return this; }

 private:
  const AppleScript::Dictionary& dictionary_;
  std::shared_ptr<const Container> root_;
};

std::shared_ptr<Container> applicationWithItems(const ClassDescription& applicationClass,
                                                const ClassDescription& itemClass, std::int64_t count,
                                                const std::string& place) {
  auto root = std::make_shared<Container>(applicationClass);
  root->items = items(itemClass, count, place);
  return root;
}

std::shared_ptr<Container> browserWithTabs(std::int64_t count) {
  auto root = std::make_shared<Container>(browserClass);
  for (std::int64_t made = 0; made < count; made += tabsPerWindow) {
    root->windows.emplace_back(browserWindowClass);
    root->windows.back().items =
        items(tabClass, std::min(tabsPerWindow, count - made), "https://example.org/page?number=");
  }
  return root;
}

void runScript(benchmark::State& state, const std::string& source, MadeUpApplication application) {
  for ([[maybe_unused]] auto _ : state) {
    const auto script = AppleScript::Script::compile(source, application);
    const auto result = script->run();
    if (!result || !*result)
      return state.SkipWithError("the script failed");
    benchmark::DoNotOptimize((*result)->stringValue());
  }
  state.counters["perItem"] = benchmark::Counter(
      static_cast<double>(state.range(0)), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void apps(benchmark::State& state) {
  auto root = applicationWithItems(systemEventsClass, processClass, state.range(0), "/usr/share/applications/item");
  runScript(state, Gleanery::OpenAppsResourceProvider().script(), {systemEvents, root});
}

void folders(benchmark::State& state) {
  auto root = applicationWithItems(finderClass, folderWindowClass, state.range(0), "/home/somebody/folder");
  runScript(state, Gleanery::FinderResourceProvider().script(), {finder, root});
}

void safari(benchmark::State& state) {
  runScript(state, Gleanery::SafariResourceProvider().script(), {browser, browserWithTabs(state.range(0))});
}

void chrome(benchmark::State& state) {
  runScript(state, Gleanery::ChromeResourceProvider().script(), {browser, browserWithTabs(state.range(0))});
}

BENCHMARK(apps)->RangeMultiplier(10)->Range(10, 100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(folders)->RangeMultiplier(10)->Range(10, 100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(safari)->RangeMultiplier(10)->Range(10, 100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(chrome)->RangeMultiplier(10)->Range(10, 100'000)->Unit(benchmark::kMillisecond);

}  // namespace
