#pragma once

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "DesktopSupport/Bus/BusMessage.h"

namespace DesktopSupport {

/// A D-Bus interface, as introspection XML describes it.
struct BusInterface {
  /// The first interface in `description`, a node with one that has methods alone.
  static BusInterface describedBy(std::string description);

  std::string name = {};
  std::string description = {};
  /// The types of each method's arguments, "(su)".
  std::map<std::string, std::string, std::less<>> argumentTypes = {};
};

/// The objects that a program has on the bus. Answers by itself what every object is asked: to describe itself, and
/// whether it is there.
class BusObjects {
 public:
  /// Takes a call of the object's own interface, with arguments of the right types.
  using Take = std::function<void(BusMessage call)>;

  /// Adds an interface to the object at `path`. Calls that were given to `take` are the owner's to answer.
  void add(const std::string& path, BusInterface interface, Take take);
  /// Removes it, and the object with its last interface.
  void remove(const std::string& path, std::string_view interface);

  /// Gives the call to its object. Returns the answer if that is not for the object to give.
  [[nodiscard]] std::optional<BusMessage> take(BusMessage call) const;

 private:
  struct Served {
    BusInterface interface;
    Take take;
  };
  using Object = std::vector<Served>;

  [[nodiscard]] BusMessage answerOfAll(const BusMessage& call) const;
  [[nodiscard]] std::string descriptionOf(const std::string& path) const;

  std::map<std::string, Object> objects_;
};

/// What answers a call: the tuple, or nothing if it is null.
BusMessage answerTo(const BusMessage& call, VariantHandle arguments);
BusMessage errorFor(const BusMessage& call, const BusError& error);

}  // namespace DesktopSupport
