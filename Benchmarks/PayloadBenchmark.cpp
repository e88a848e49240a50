// Makes the command's payload from the lines of a script's result.

#include <cstdint>
#include <string>

#include <benchmark/benchmark.h>

#include "DeskloomSDK/Resources/Command.h"
#include "Gleanery/Providers/ChromeResourceProvider.h"
#include "Gleanery/Providers/OpenAppsResourceProvider.h"
#include "Gleanery/Providers/ResourceFilter.h"
#include "Platform/Fake/FakeServices.h"

namespace {

std::string reply(std::int64_t items, const std::string& location) {
  std::string text;
  for (std::int64_t i = 0; i < items; ++i)
    text += "The title of page number " + std::to_string(i) + "\n" + location + std::to_string(i) + "\n";
  return text;
}

void makePayloads(benchmark::State& state, const Gleanery::BasicResourceProvider& provider,
                  const std::string& location) {
  Platform::Fake::FakeServices desktop;
  desktop.scripts.answerText(reply(state.range(0), location));
  for ([[maybe_unused]] auto _ : state) {
    const DeskloomSDK::Command command(Gleanery::allowedResources(provider.fetchResources().value()));
    benchmark::DoNotOptimize(command.data());
  }
  state.counters["perItem"] = benchmark::Counter(
      static_cast<double>(state.range(0)), benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void tabs(benchmark::State& state) {
  makePayloads(state, Gleanery::ChromeResourceProvider(), "https://example.org/section/page?number=");
}

void applications(benchmark::State& state) {
  makePayloads(state, Gleanery::OpenAppsResourceProvider(), "/no-such-folder/applications/org.example.Application");
}

BENCHMARK(tabs)->RangeMultiplier(10)->Range(10, 100'000)->Unit(benchmark::kMillisecond);
BENCHMARK(applications)->RangeMultiplier(10)->Range(10, 100'000)->Unit(benchmark::kMillisecond);

}  // namespace
