#include "DeskloomSDK/Configuration/AppTerminationObserver.h"

#include <utility>

#include "Platform/Services.h"

namespace DeskloomSDK {

AppTerminationObserver::AppTerminationObserver(Callback onRun) : onRun_(std::make_shared<Callback>(std::move(onRun))) {
  const auto handle = [observed = std::weak_ptr(onRun_)](const Platform::Notification& /*notification*/) {
    auto existing = observed.lock();
    if (!existing || !*existing)
      return;
    const Callback callback = *existing;
    existing.reset();  // the callback may release the observer
    callback();
  };
  // The token is dropped: the observation holds nothing that would have to be given back.
  Platform::services().notifications.addObserver(Platform::applicationWillTerminateNotification,
                                                 &Platform::sharedApplication(), handle);
}

}  // namespace DeskloomSDK
