#include "Platform/Fake/FakeWindows.h"

#include <algorithm>
#include <utility>

namespace Platform::Fake {

namespace {

class FakeWindow : public Window {
 public:
  explicit FakeWindow(std::shared_ptr<FakeWindowState> state) : state_(std::move(state)) { state_->window = this; }
  FakeWindow(const FakeWindow&) = delete;
  FakeWindow& operator=(const FakeWindow&) = delete;
  ~FakeWindow() override { *state_ = {.content = std::move(state_->content)}; }

  void setLevel(int level) override { state_->level = level; }
  [[nodiscard]] int level() const override { return state_->level; }

  void makeKeyAndOrderFront() override {
    state_->isVisible = true;
    ++state_->timesOrderedFront;
  }

  void close() override {
    tellWillClose();
    state_->isVisible = false;
  }

 private:
  std::shared_ptr<FakeWindowState> state_;
};

/// The content's first element of this kind with this label; null if there is none.
template <typename Element>
Element* find(WindowContent& content, std::string_view label) {
  for (WindowElement& element : content.elements)
    if (auto* found = std::get_if<Element>(&element); found != nullptr && found->label == label)
      return found;
  return nullptr;
}

/// The content as it is shown at first.
WindowContent shown(WindowContent content) {
  for (WindowElement& element : content.elements) {
    if (auto* field = std::get_if<NumberField>(&element))
      field->value = field->nearest(field->value);
    if (auto* choice = std::get_if<Choice>(&element))
      choice->selected = choice->existing(choice->selected);
  }
  return content;
}

/// Changes a value that the user sees, and calls `onChange` if it is new.
template <typename Value>
void change(Value& current, Value value, const std::function<void(Value)>& onChange) {
  const bool isNew = std::exchange(current, value) != value;
  if (isNew && onChange)
    onChange(value);
}

}  // namespace

bool FakeWindowState::enter(std::string_view label, int number) {
  auto* field = find<NumberField>(content, label);
  if (window == nullptr || field == nullptr)
    return false;
  change(field->value, field->nearest(number), field->onChange);
  return true;
}

bool FakeWindowState::choose(std::string_view label, std::string_view option) {
  auto* choice = find<Choice>(content, label);
  if (window == nullptr || choice == nullptr)
    return false;
  const auto found = std::ranges::find(choice->options, option);
  if (found == choice->options.end())
    return false;
  change(choice->selected, static_cast<std::size_t>(found - choice->options.begin()), choice->onChange);
  return true;
}

std::unique_ptr<Window> FakeWindows::makeWindow(const WindowContent& content) {
  if (!hasDisplay)
    return nullptr;
  made.push_back(std::make_shared<FakeWindowState>(FakeWindowState{.content = shown(content)}));
  return std::make_unique<FakeWindow>(made.back());
}

}  // namespace Platform::Fake
