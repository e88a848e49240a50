#include "DesktopSupport/Bus/BusObjects.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <string_view>
#include <utility>

#include "DesktopSupport/Bus/BusNames.h"
#include "DesktopSupport/System/FileContents.h"
#include "DesktopSupport/System/Text.h"

namespace DesktopSupport {

namespace {

constexpr std::string_view peer = "org.freedesktop.DBus.Peer";
constexpr std::string_view introspectable = "org.freedesktop.DBus.Introspectable";
constexpr std::string_view properties = "org.freedesktop.DBus.Properties";

constexpr std::string_view commonInterfaces = R"(
  <interface name="org.freedesktop.DBus.Properties">
    <method name="Get">
      <arg type="s" name="interface_name" direction="in"/>
      <arg type="s" name="property_name" direction="in"/>
      <arg type="v" name="value" direction="out"/>
    </method>
    <method name="GetAll">
      <arg type="s" name="interface_name" direction="in"/>
      <arg type="a{sv}" name="properties" direction="out"/>
    </method>
    <method name="Set">
      <arg type="s" name="interface_name" direction="in"/>
      <arg type="s" name="property_name" direction="in"/>
      <arg type="v" name="value" direction="in"/>
    </method>
  </interface>
  <interface name="org.freedesktop.DBus.Introspectable">
    <method name="Introspect">
      <arg type="s" name="xml_data" direction="out"/>
    </method>
  </interface>
  <interface name="org.freedesktop.DBus.Peer">
    <method name="Ping"/>
    <method name="GetMachineId">
      <arg type="s" name="machine_uuid" direction="out"/>
    </method>
  </interface>
)";

std::string_view attribute(std::string_view name, const gchar** names, const gchar** values) {
  for (; *names != nullptr; ++names, ++values)
    if (name == *names)
      return *values;
  return "";
}

/// What a description has told so far.
struct Reading {
  BusInterface interface = {};
  std::string method = {};
  bool isOver = false;

  static void begin(GMarkupParseContext* /*context*/, const gchar* element, const gchar** names, const gchar** values,
                    gpointer reading, GError** /*error*/) {
    static_cast<Reading*>(reading)->begin(element, names, values);
  }
  static void end(GMarkupParseContext* /*context*/, const gchar* element, gpointer reading, GError** /*error*/) {
    auto& self = *static_cast<Reading*>(reading);
    self.isOver = self.isOver || std::string_view(element) == "interface";
  }

 private:
  void begin(std::string_view element, const gchar** names, const gchar** values) {
    if (isOver)
      return;
    if (element == "interface") {
      interface.name = attribute("name", names, values);
    } else if (element == "method") {
      method = attribute("name", names, values);
      interface.argumentTypes[method] = "()";
    } else if (element == "arg" && attribute("direction", names, values) != "out") {
      std::string& types = interface.argumentTypes[method];
      types.insert(types.size() - 1, attribute("type", names, values));
    }
  }
};

/// The part of a description that is about its first interface.
std::string_view interfaceIn(std::string_view description) {
  constexpr std::string_view end = "</interface>";
  description.remove_prefix(std::min(description.find("<interface"), description.size()));
  return description.substr(0, description.find(end) + end.size());
}

std::string machineID() {
  constexpr std::size_t length = 32;
  return fileContents("/etc/machine-id", /*maximumSize=*/100).value_or("").substr(0, length);
}

BusError invalid(std::string message) {
  return {.name = std::string(BusErrorName::invalidArguments), .message = std::move(message)};
}

BusError unknown(std::string message) {
  return {.name = std::string(BusErrorName::unknownMethod), .message = std::move(message)};
}

bool hasTypes(const BusMessage& call, const std::string& types) {
  return g_variant_is_of_type(call.arguments.get(), G_VARIANT_TYPE(types.c_str())) != FALSE;
}

BusError wrongTypes(const BusMessage& call, const std::string& types) {
  return invalid(call.member + " takes " + types + ", not " + g_variant_get_type_string(call.arguments.get()) + '.');
}

/// Of an object without properties.
template <typename HasInterface>
BusMessage answerAboutProperties(const BusMessage& call, HasInterface hasInterface) {
  static const std::map<std::string, std::string, std::less<>> types = {
      {"Get", "(ss)"}, {"GetAll", "(s)"}, {"Set", "(ssv)"}};
  const auto method = types.find(call.member);
  if (method == types.end())
    return errorFor(call, unknown("There is no method " + call.member + '.'));
  if (!hasTypes(call, method->second))
    return errorFor(call, wrongTypes(call, method->second));
  const char* asked = nullptr;
  g_variant_get_child(call.arguments.get(), 0, "&s", &asked);
  if (!hasInterface(asked))
    return errorFor(call, invalid("The object has no such interface."));
  if (call.member != "GetAll")
    return errorFor(call, invalid("The object has no such property."));
  return answerTo(call, owned(g_variant_new("(a{sv})", nullptr)));
}

}  // namespace

BusInterface BusInterface::describedBy(std::string description) {
  constexpr GMarkupParser parser = {&Reading::begin, &Reading::end, nullptr, nullptr, nullptr};
  Reading reading;
  const MarkupParserHandle context(g_markup_parse_context_new(&parser, GMarkupParseFlags{}, &reading, nullptr));
  g_markup_parse_context_parse(context.get(), description.data(), std::ssize(description), nullptr);
  reading.interface.description = std::move(description);
  return std::move(reading.interface);
}

BusMessage answerTo(const BusMessage& call, VariantHandle arguments) {
  return {.type = BusMessage::Type::answer,
          .wantsAnswer = false,
          .answeredSerial = call.serial,
          .destination = call.sender,
          .arguments = std::move(arguments)};
}

BusMessage errorFor(const BusMessage& call, const BusError& error) {
  return {.type = BusMessage::Type::error,
          .wantsAnswer = false,
          .answeredSerial = call.serial,
          .destination = call.sender,
          .errorName = isInterfaceName(error.name) ? error.name : std::string(BusErrorName::failed),
          .arguments = owned(g_variant_new("(s)", validUTF8(error.message).c_str()))};
}

void BusObjects::add(const std::string& path, BusInterface interface, Take take) {
  objects_[path].push_back({.interface = std::move(interface), .take = std::move(take)});
}

void BusObjects::remove(const std::string& path, std::string_view interface) {
  const auto object = objects_.find(path);
  if (object == objects_.end())
    return;
  std::erase_if(object->second, [interface](const Served& served) { return served.interface.name == interface; });
  if (object->second.empty())
    objects_.erase(object);
}

std::optional<BusMessage> BusObjects::take(BusMessage call) const {
  const auto object = objects_.find(call.path);
  if (object == objects_.end())
    return answerOfAll(call);
  if (call.interface == properties)
    return answerAboutProperties(call, [&](std::string_view name) {
      return std::ranges::any_of(object->second,
                                 [name](const Served& served) { return served.interface.name == name; });
    });
  const auto served = std::ranges::find_if(object->second, [&call](const Served& each) {
    return call.interface.empty() ? each.interface.argumentTypes.contains(call.member)
                                  : each.interface.name == call.interface;
  });
  if (served == object->second.end())
    return answerOfAll(call);
  const auto& types = served->interface.argumentTypes;
  const auto method = types.find(call.member);
  if (method == types.end())
    return errorFor(call, unknown("There is no method " + call.member + '.'));
  if (!hasTypes(call, method->second))
    return errorFor(call, wrongTypes(call, method->second));
  served->take(std::move(call));
  return std::nullopt;
}

BusMessage BusObjects::answerOfAll(const BusMessage& call) const {
  const auto isCalled = [&call](std::string_view interface, std::string_view method) {
    return (call.interface.empty() || call.interface == interface) && call.member == method;
  };
  const bool isPing = isCalled(peer, "Ping");
  const bool isForMachine = isCalled(peer, "GetMachineId");
  const bool isForDescription = isCalled(introspectable, "Introspect");
  if ((isPing || isForMachine || isForDescription) && !hasTypes(call, "()"))
    return errorFor(call, wrongTypes(call, "()"));
  if (isPing)
    return answerTo(call, nullptr);
  if (isForMachine)
    return answerTo(call, owned(g_variant_new("(s)", machineID().c_str())));
  if (isForDescription)
    return answerTo(call, owned(g_variant_new("(s)", descriptionOf(call.path).c_str())));
  if (!objects_.contains(call.path))
    return errorFor(call, unknown("There is no object at " + call.path + '.'));
  return errorFor(call, unknown("There is no method " + call.member + " in the interface " + call.interface + '.'));
}

std::string BusObjects::descriptionOf(const std::string& path) const {
  const std::string folder = path == "/" ? path : path + '/';
  std::string description = "<node>";
  if (const auto object = objects_.find(path); object != objects_.end()) {
    description += commonInterfaces;
    for (const Served& served : object->second)
      description += interfaceIn(served.interface.description);
  }
  std::set<std::string_view> children;
  for (const auto& [other, object] : objects_)
    if (other.starts_with(folder) && other != path)
      children.insert(std::string_view(other).substr(folder.size(), other.find('/', folder.size()) - folder.size()));
  for (const std::string_view child : children)
    description.append("<node name=\"").append(child).append("\"/>");
  return description + "</node>";
}

}  // namespace DesktopSupport
