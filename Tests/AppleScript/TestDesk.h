#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "AppleScript/Values/Application.h"
#include "AppleScript/Values/Dictionary.h"
#include "AppleScript/Values/Value.h"

namespace AppleScript::Testing {

// The things that a made-up application has open.

struct TestTab : Object {
  std::string name;
  std::string address;

  TestTab(std::string tabName, std::string tabAddress) : name(std::move(tabName)), address(std::move(tabAddress)) {}
  [[nodiscard]] const ClassDescription& classDescription() const override;
};

struct TestWindow : Object {
  std::string name;
  int id;
  std::string folder;
  std::vector<TestTab> tabs;

  TestWindow(std::string windowName, int windowID, std::string windowFolder, std::vector<TestTab> windowTabs = {})
      : name(std::move(windowName)), id(windowID), folder(std::move(windowFolder)), tabs(std::move(windowTabs)) {}
  [[nodiscard]] const ClassDescription& classDescription() const override;
};

struct TestProcess : Object {
  std::string name;
  bool backgroundOnly;
  std::string file;

  TestProcess(std::string processName, bool inBackground, std::string processFile)
      : name(std::move(processName)), backgroundOnly(inBackground), file(std::move(processFile)) {}
  [[nodiscard]] const ClassDescription& classDescription() const override;
};

struct TestRoot : Object {
  std::vector<TestWindow> windows;
  std::vector<TestProcess> processes;
  std::string card = "Ann";

  [[nodiscard]] const ClassDescription& classDescription() const override;
};

namespace Tables {

/// How often any object was asked for a property, an element or a count.
inline std::size_t questions = 0;

template <auto Member>
struct Get;

template <typename Owner, typename Field, Field Owner::* Member>
struct Get<Member> {
  static const Field& field(const Object& object) {
    ++questions;
    return static_cast<const Owner&>(object).*Member;
  }
  static Result<Value> value(const Object& object) { return Value(field(object)); }
  static Result<Value> file(const Object& object) { return Value(File(field(object))); }
  static std::size_t count(const Object& object) { return field(object).size(); }
  static const Object& at(const Object& object, std::size_t index) { return field(object)[index]; }
};

inline Result<Value> noIcon(const Object& /*object*/) {
  return std::unexpected(ScriptError{.number = ErrorNumber::accessNotAllowed, .message = "Icons are secret."});
}

inline const PropertyDescription tabProperties[] = {{"name", Get<&TestTab::name>::value},
                                                    {"title", Get<&TestTab::name>::value},
                                                    {"URL", Get<&TestTab::address>::value}};
inline const ClassDescription tab{"tab", "tabs", tabProperties};

inline const PropertyDescription windowProperties[] = {{"name", Get<&TestWindow::name>::value},
                                                       {"id", Get<&TestWindow::id>::value},
                                                       {"target", Get<&TestWindow::folder>::file}};
inline const ElementsDescription windowElements[] = {{&tab, Get<&TestWindow::tabs>::count, Get<&TestWindow::tabs>::at}};
inline const ClassDescription window{"window", "windows", windowProperties, windowElements};

inline const PropertyDescription processProperties[] = {{"name", Get<&TestProcess::name>::value},
                                                        {"background only", Get<&TestProcess::backgroundOnly>::value},
                                                        {"file", Get<&TestProcess::file>::file},
                                                        {"icon", noIcon}};
inline const ClassDescription process{"process", "processes", processProperties};

inline const ElementsDescription rootElements[] = {
    {&window, Get<&TestRoot::windows>::count, Get<&TestRoot::windows>::at},
    {&process, Get<&TestRoot::processes>::count, Get<&TestRoot::processes>::at}};
inline const PropertyDescription rootProperties[] = {{"my card", Get<&TestRoot::card>::value}};
inline const ClassDescription root{"application", "applications", rootProperties, rootElements};

inline const ClassDescription* const classes[] = {&window, &tab, &process};

}  // namespace Tables

inline const ClassDescription& TestTab::classDescription() const {
  return Tables::tab;
}
inline const ClassDescription& TestWindow::classDescription() const {
  return Tables::window;
}
inline const ClassDescription& TestProcess::classDescription() const {
  return Tables::process;
}
inline const ClassDescription& TestRoot::classDescription() const {
  return Tables::root;
}

/// An application with windows, their tabs, and processes; or one that fails when it is asked.
class TestDesk : public Application {
 public:
  TestDesk(std::string name, std::shared_ptr<const TestRoot> root) : name_(std::move(name)), root_(std::move(root)) {}
  TestDesk(std::string name, ScriptError error) : name_(std::move(name)), error_(std::move(error)) {}

  [[nodiscard]] std::string_view name() const override { return name_; }
  [[nodiscard]] const Dictionary& dictionary() const override { return dictionary_; }
  [[nodiscard]] Result<ObjectPointer> open() override {
    ++timesOpened_;
    return error_ ? Result<ObjectPointer>(std::unexpected(*error_)) : Result<ObjectPointer>(root_);
  }

  [[nodiscard]] int timesOpened() const { return timesOpened_; }

 private:
  std::string name_;
  std::shared_ptr<const TestRoot> root_;
  std::optional<ScriptError> error_;
  Dictionary dictionary_{.application = &Tables::root, .classes = Tables::classes};
  int timesOpened_ = 0;
};

}  // namespace AppleScript::Testing
