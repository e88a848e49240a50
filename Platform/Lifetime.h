#pragma once

#include <memory>
#include <utility>

namespace Platform {

/// The one way to hand out a callback that may outlive its object, such as a handler that nothing removes:
///
///     appleEvents.setEventHandler(kind, identifier, lifetime_.guarded([this](auto& event, auto& reply) { … }));
///
///     Platform::Lifetime lifetime_;  // the last field, so that it ends first
///
/// The callback does nothing once the object is gone. It doesn't keep the object alive. The object must be destroyed on
/// the thread that calls the callback; any thread may hold, copy and drop the callback.
class Lifetime {
 public:
  /// Begins with the object.
  Lifetime() = default;
  Lifetime(const Lifetime&) = delete;
  Lifetime& operator=(const Lifetime&) = delete;
  ~Lifetime() = default;

  /// `callback`, which yields nothing, until this lifetime ends; from then on, a callback that does nothing.
  template <typename Callback>
  [[nodiscard]] auto guarded(Callback callback) const {
    return [life = std::weak_ptr(life_), callback = std::move(callback)](auto&&... arguments) {
      if (!life.expired())
        callback(std::forward<decltype(arguments)>(arguments)...);
    };
  }

 private:
  struct Life {};
  std::shared_ptr<const Life> life_ = std::make_shared<const Life>();
};

}  // namespace Platform
