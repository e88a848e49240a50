#include "HostStandIn/ExportedInterface.h"

namespace HostStandIn {

ExportedInterface::ExportedInterface(const DesktopSupport::SessionBus& bus, const std::string& path,
                                     const std::string& description, Handler handler)
    : handler_(std::move(handler)),
      object_(bus.serve(path, description, /*context=*/nullptr, [this](const auto& invocation) { take(invocation); })) {
}

void ExportedInterface::take(const DesktopSupport::BusInvocation& invocation) {
  Answer answer = handler_(invocation.method(), invocation.arguments());
  if (answer.reply)
    invocation.answer(std::move(*answer.reply));
  else
    invocation.refuse(answer.reply.error());
  if (answer.afterwards)
    answer.afterwards();
}

}  // namespace HostStandIn
