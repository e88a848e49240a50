#include "Platform/Fake/FakeWindows.h"

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

}  // namespace

std::unique_ptr<Window> FakeWindows::makeWindow(const WindowContent& content) {
  if (!hasDisplay)
    return nullptr;
  made.push_back(std::make_shared<FakeWindowState>(FakeWindowState{.content = content}));
  return std::make_unique<FakeWindow>(made.back());
}

}  // namespace Platform::Fake
