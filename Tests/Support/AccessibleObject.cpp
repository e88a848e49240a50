#include "Tests/Support/AccessibleObject.h"

#include <algorithm>
#include <iterator>

#include "Tests/Support/GIOHandles.h"
#include "Tests/Support/Patience.h"

namespace TestSupport {

namespace {

using DesktopSupport::VariantHandle;

constexpr const char* accessible = "org.a11y.atspi.Accessible";
constexpr const char* accessibleText = "org.a11y.atspi.Text";

std::string firstString(const VariantHandle& reply) {
  const char* text = "";
  if (reply)
    g_variant_get(reply.get(), "(&s)", &text);
  return text;
}

}  // namespace

std::ostream& operator<<(std::ostream& stream, const AccessibleItem& item) {
  return stream << item.role << " \"" << item.name << "\" \"" << item.text << '"';
}

AccessibleObject::AccessibleObject(GDBusConnection* bus, std::string owner, std::string path)
    : bus_(shared(bus)), owner_(std::move(owner)), path_(std::move(path)) {}

VariantHandle AccessibleObject::call(const char* interface, const char* method, GVariant* arguments,
                                     const char* replyType) const {
  return VariantHandle(g_dbus_connection_call_sync(bus_.get(), owner_.c_str(), path_.c_str(), interface, method,
                                                   arguments, G_VARIANT_TYPE(replyType), G_DBUS_CALL_FLAGS_NONE,
                                                   milliseconds(patience), nullptr, nullptr));
}

bool AccessibleObject::ask(const char* interface, const char* method, GVariant* arguments) const {
  const VariantHandle reply = call(interface, method, arguments, "(b)");
  gboolean answer = FALSE;
  if (reply)
    g_variant_get(reply.get(), "(b)", &answer);
  return answer != FALSE;
}

std::string AccessibleObject::role() const {
  return firstString(call(accessible, "GetRoleName", nullptr, "(s)"));
}

std::string AccessibleObject::name() const {
  const VariantHandle reply =
      call("org.freedesktop.DBus.Properties", "Get", g_variant_new("(ss)", accessible, "Name"), "(v)");
  if (!reply)
    return {};
  GVariant* name = nullptr;
  g_variant_get(reply.get(), "(v)", &name);
  const VariantHandle owner(name);
  return g_variant_is_of_type(name, G_VARIANT_TYPE_STRING) != FALSE ? g_variant_get_string(name, nullptr) : "";
}

std::string AccessibleObject::text() const {
  constexpr int toTheEnd = -1;
  return firstString(call(accessibleText, "GetText", g_variant_new("(ii)", 0, toTheEnd), "(s)"));
}

pid_t AccessibleObject::process() const {
  const VariantHandle reply(g_dbus_connection_call_sync(
      bus_.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "GetConnectionUnixProcessID",
      g_variant_new("(s)", owner_.c_str()), G_VARIANT_TYPE("(u)"), G_DBUS_CALL_FLAGS_NONE, milliseconds(patience),
      nullptr, nullptr));
  guint32 process = 0;
  if (reply)
    g_variant_get(reply.get(), "(u)", &process);
  return static_cast<pid_t>(process);
}

std::vector<AccessibleObject> AccessibleObject::children() const {
  std::vector<AccessibleObject> children;
  const VariantHandle reply = call(accessible, "GetChildren", nullptr, "(a(so))");
  if (!reply)
    return children;
  const VariantHandle list(g_variant_get_child_value(reply.get(), 0));
  for (gsize index = 0; index < g_variant_n_children(list.get()); ++index) {
    const char* owner = nullptr;
    const char* path = nullptr;
    const VariantHandle child(g_variant_get_child_value(list.get(), index));
    g_variant_get(child.get(), "(&s&o)", &owner, &path);
    children.emplace_back(bus_.get(), owner, path);
  }
  return children;
}

std::vector<AccessibleObject> AccessibleObject::descendants() const {
  std::vector<AccessibleObject> all;
  for (const AccessibleObject& child : children()) {
    all.push_back(child);
    std::ranges::move(child.descendants(), std::back_inserter(all));
  }
  return all;
}

std::vector<AccessibleItem> AccessibleObject::items() const {
  std::vector<AccessibleItem> items;
  for (const AccessibleObject& object : descendants())
    items.push_back(object.item());
  return items;
}

// The toolkit may name a button with its label twice: "OK OK".
bool AccessibleObject::isButton(const std::string& label) const {
  const auto isLabel = [&](const AccessibleItem& item) { return item.role == "label" && item.name == label; };
  return role() == "button" && (name() == label || std::ranges::any_of(items(), isLabel));
}

bool AccessibleObject::press(const std::string& button) const {
  const auto all = descendants();
  const auto found = std::ranges::find_if(all, [&](const auto& object) { return object.isButton(button); });
  if (found == all.end())
    return false;
  constexpr int mainAction = 0;
  return found->ask("org.a11y.atspi.Action", "DoAction", g_variant_new("(i)", mainAction));
}

bool AccessibleObject::select(const std::string& text) const {
  const auto all = descendants();
  const auto found = std::ranges::find_if(all, [&](const auto& object) { return object.name() == text; });
  const auto length = static_cast<int>(g_utf8_strlen(text.c_str(), -1));
  return found != all.end() && found->ask(accessibleText, "AddSelection", g_variant_new("(ii)", 0, length));
}

}  // namespace TestSupport
