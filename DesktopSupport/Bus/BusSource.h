#pragma once

#include <functional>
#include <memory>

#include <glib.h>

namespace DesktopSupport {

class BusConnection;

/// Serves a connection from a main context: reads and writes when the socket is ready, and does the work that arrives
/// there.
class BusSource {
 public:
  using Work = std::move_only_function<void()>;

  /// For the context, or the main one if it is null. Work that still waits when this is destroyed is not done.
  BusSource(std::weak_ptr<BusConnection> connection, int socket, GMainContext* context);
  BusSource(const BusSource&) = delete;
  BusSource& operator=(const BusSource&) = delete;
  ~BusSource();

  /// Does the work from the context. May be called on any thread.
  void post(Work work);

  /// Makes the context look whether something is to be written. May be called on any thread.
  void wake() const;

 private:
  class State;

  std::shared_ptr<State> state_;
  GSource* source_;
};

}  // namespace DesktopSupport
