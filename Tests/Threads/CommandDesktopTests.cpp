// Commands sent from several threads to a real host. Our own code in this program is built with the thread sanitizer.

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include <glib.h>
#include <gtest/gtest.h>

#include "DeskloomSDK/Resources/Command.h"
#include "Linux/Workspace.h"
#include "Platform/Fake/FakeServices.h"
#include "Tests/Support/HostProcess.h"

namespace {

TEST(Commands, MayBeSentFromAnyThread) {
  constexpr int threads = 4;
  constexpr int commands = 100;
  TestSupport::HostProcess host(DESKLOOM_HOST_PROGRAM);
  Platform::Fake::FakeServices fakes;
  Linux::Workspace workspace(fakes.log);
  const Platform::Services services{&fakes.application, fakes.appleEvents, fakes.notifications, fakes.scripts,
                                    workspace,          fakes.alerts,      fakes.windows,       fakes.bundle,
                                    fakes.strings,      fakes.log,         fakes.queues,        fakes.clock,
                                    &fakes.updater};
  const Platform::ServicesInstallation installation(services);

  std::atomic<int> sending = threads;
  std::vector<std::jthread> senders;
  for (int thread = 0; thread < threads; ++thread)
    senders.emplace_back([&] {
      for (int command = 0; command < commands; ++command)
        EXPECT_TRUE(DeskloomSDK::Command("sent", std::nullopt).send());
      --sending;
      g_main_context_wakeup(nullptr);
    });
  while (sending > 0) {
    g_main_context_iteration(nullptr, /*may_block=*/TRUE);
    workspace.finishHandOvers();
  }
  workspace.finishHandOvers();
  for (int command = 0; command < threads * commands; ++command)
    ASSERT_EQ(host.nextLine(), "deskloom://sent");
  EXPECT_TRUE(fakes.log.messages.empty());
}

}  // namespace
