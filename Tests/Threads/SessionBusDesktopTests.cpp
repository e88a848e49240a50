#include <atomic>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>

#include "DesktopSupport/Bus/BusDaemon.h"
#include "Tests/Support/ServingThread.h"

namespace {

using DesktopSupport::Activation;
using DesktopSupport::BusInvocation;
using DesktopSupport::BusMethod;
using DesktopSupport::SessionBus;
using namespace std::chrono_literals;

constexpr int callsOfEach = 50;
constexpr int threadCount = 4;

/// An object that answers with the number it is called with, on a thread of its own.
class Echo {
 public:
  explicit Echo(const SessionBus& bus)
      : method_{bus.uniqueName(), "/echo", "com.example.Echo", "Say"},
        object_(bus.serve(method_.path,
                          "<node><interface name='com.example.Echo'><method name='Say'>"
                          "<arg type='i'/><arg type='i' direction='out'/></method></interface></node>",
                          context_.get(), [](const BusInvocation& invocation) {
                            invocation.answer(DesktopSupport::VariantHandle(g_variant_ref(invocation.arguments())));
                          })) {
    thread_ = std::make_unique<TestSupport::ServingThread>(context_.get());
  }

  [[nodiscard]] const BusMethod& method() const { return method_; }

 private:
  BusMethod method_;
  DesktopSupport::MainContextHandle context_{g_main_context_new()};
  std::unique_ptr<DesktopSupport::ServedObject> object_;
  std::unique_ptr<TestSupport::ServingThread> thread_;
};

int numberIn(const DesktopSupport::BusAnswer& answer) {
  gint32 number = -1;
  if (answer)
    g_variant_get(answer->get(), "(i)", &number);
  return number;
}

TEST(SessionBusOnThreads, BringsEachThreadItsAnswersWhileItServes) {
  const SessionBus bus = SessionBus::connect().value();
  const Echo echo(bus);
  std::atomic<int> right = 0;
  {
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < threadCount; ++thread)
      threads.emplace_back([&, thread] {
        for (int call = 0; call < callsOfEach; ++call) {
          const int number = thread * callsOfEach + call;
          const auto answer = bus.call(echo.method(), g_variant_new("(i)", number), G_VARIANT_TYPE("(i)"), 60s);
          right += numberIn(answer) == number ? 1 : 0;
        }
      });
  }
  EXPECT_EQ(right, threadCount * callsOfEach);
}

TEST(SessionBusOnThreads, DoesNotLetAThreadWaitForAnothersAnswer) {
  const SessionBus bus = SessionBus::connect().value();
  const DesktopSupport::MainContextHandle context(g_main_context_new());
  const auto unserved =
      bus.serve("/silent", "<node><interface name='com.example.Silent'><method name='Ask'/></interface></node>",
                context.get(), [](const BusInvocation&) {});
  std::atomic<bool> isLate = false;
  std::jthread waiting([&] {
    const auto answer = bus.call({bus.uniqueName(), "/silent", "com.example.Silent", "Ask"}, nullptr, nullptr, 2s);
    isLate = !answer;
  });
  const DesktopSupport::BusDaemon daemon(bus, 60s);
  for (int call = 0; call < callsOfEach; ++call)
    EXPECT_EQ(daemon.ownerOf(bus.uniqueName()), bus.uniqueName());
  EXPECT_FALSE(isLate);
  waiting.join();
  EXPECT_TRUE(isLate);
}

TEST(SessionBusOnThreads, BringsLaterAnswersToTheMainContext) {
  const SessionBus bus = SessionBus::connect().value();
  const Echo echo(bus);
  int sum = 0;
  int count = 0;
  {
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < threadCount; ++thread)
      threads.emplace_back([&] {
        for (int call = 0; call < callsOfEach; ++call)
          bus.callLater(echo.method(), g_variant_new("(i)", call), 60s, Activation::never, [&](const auto& answer) {
            sum += numberIn(answer);
            ++count;
          });
      });
    while (count < threadCount * callsOfEach)
      g_main_context_iteration(nullptr, /*may_block=*/TRUE);
  }
  EXPECT_EQ(sum, threadCount * callsOfEach * (callsOfEach - 1) / 2);
}

TEST(SessionBusOnThreads, CarriesLongMessagesBothWaysAtOnce) {
  const SessionBus bus = SessionBus::connect().value();
  const DesktopSupport::MainContextHandle context(g_main_context_new());
  const auto object =
      bus.serve("/echo",
                "<node><interface name='com.example.Echo'><method name='Say'>"
                "<arg type='s'/><arg type='s' direction='out'/></method></interface></node>",
                context.get(), [](const BusInvocation& invocation) {
                  invocation.answer(DesktopSupport::VariantHandle(g_variant_ref(invocation.arguments())));
                });
  const TestSupport::ServingThread serving(context.get());
  const std::string text(3 << 20, 'x');
  std::atomic<int> whole = 0;
  {
    std::vector<std::jthread> threads;
    for (int thread = 0; thread < threadCount; ++thread)
      threads.emplace_back([&] {
        const auto answer = bus.call({bus.uniqueName(), "/echo", "com.example.Echo", "Say"},
                                     g_variant_new("(s)", text.c_str()), G_VARIANT_TYPE("(s)"), 60s);
        const char* said = "";
        if (answer)
          g_variant_get(answer->get(), "(&s)", &said);
        whole += text == said ? 1 : 0;
      });
  }
  EXPECT_EQ(whole, threadCount);
}

TEST(SessionBusOnThreads, IsMadeOnce) {
  std::vector<std::string> names(threadCount);
  const SessionBus kept = SessionBus::connect().value();
  {
    std::vector<std::jthread> threads;
    for (std::string& name : names)
      threads.emplace_back([&name] { name = SessionBus::connect().value().uniqueName(); });
  }
  EXPECT_THAT(names, testing::Each(kept.uniqueName()));
}

}  // namespace
