#include "ScriptableApps/Deskloom/DeskloomHost.h"

#include "ScriptableApps/Errors/ApplicationErrors.h"

namespace ScriptableApps {

namespace {

using DesktopSupport::BusError;
using DesktopSupport::VariantHandle;

constexpr const char* application = "Deskloom";

DesktopSupport::BusMethod scriptingMethod(const std::string& name) {
  return {.destination = "com.quillary.Deskloom",
          .path = "/com/quillary/Deskloom",
          .interface = "com.quillary.Deskloom.Scripting",
          .name = name};
}

std::expected<VariantHandle, BusError> stringTuple(const std::vector<std::string>& texts) {
  std::vector<VariantHandle> strings;
  std::vector<GVariant*> children;
  for (const std::string& text : texts) {
    auto string = DesktopSupport::busString(text);
    if (!string)
      return std::unexpected(string.error());
    strings.push_back(std::move(*string));
    children.push_back(strings.back().get());
  }
  return DesktopSupport::owned(g_variant_new_tuple(children.data(), children.size()));
}

std::expected<VariantHandle, BusError> callHost(const std::string& method, const std::vector<std::string>& texts,
                                                const char* replyType, std::chrono::milliseconds patience) {
  const auto arguments = stringTuple(texts);
  if (!arguments)
    return std::unexpected(arguments.error());
  const auto bus = DesktopSupport::SessionBus::connect();
  if (!bus)
    return std::unexpected(bus.error());
  return bus->call(scriptingMethod(method), arguments->get(), G_VARIANT_TYPE(replyType), patience);
}

}  // namespace

AppleScript::Result<VariantHandle> DeskloomHost::call(const std::string& method, const std::vector<std::string>& texts,
                                                      const char* replyType) const {
  auto reply = callHost(method, texts, replyType, patience_);
  if (!reply)
    return std::unexpected(applicationError(application, reply.error()));
  return std::move(*reply);
}

AppleScript::Value textOf(GVariant* reply) {
  gboolean hasText = FALSE;
  const char* text = nullptr;
  g_variant_get(reply, "(b&s)", &hasText, &text);
  return hasText != FALSE ? AppleScript::Value(std::string(text)) : AppleScript::Value();
}

AppleScript::Value truthOf(GVariant* reply) {
  gboolean truth = FALSE;
  g_variant_get(reply, "(b)", &truth);
  return {truth != FALSE};
}

}  // namespace ScriptableApps
