#include "Benchmarks/Candidate.h"

#include <algorithm>
#include <cstdio>
#include <functional>
#include <random>

namespace Benchmarks {

namespace {

using Figure = double Measurement::*;

double median(std::vector<double> values) {
  std::ranges::sort(values);
  return values[values.size() / 2];
}

double medianOf(const Candidate& candidate, Figure figure) {
  std::vector<double> values;
  for (const Measurement& measurement : candidate.measurements)
    values.push_back(measurement.*figure);
  return median(values);
}

double medianRatio(const Candidate& first, const Candidate& other, Figure figure) {
  std::vector<double> ratios;
  for (std::size_t i = 0; i < first.measurements.size(); ++i)
    ratios.push_back(first.measurements[i].*figure / other.measurements[i].*figure);
  return median(ratios);
}

void printMedians(const Candidate& candidate) {
  std::printf("%-28s %10.2f %10.2f %10.2f", candidate.name.c_str(), medianOf(candidate, &Measurement::milliseconds),
              medianOf(candidate, &Measurement::processorMilliseconds), medianOf(candidate, &Measurement::megabytes));
}

}  // namespace

void measureInTurn(std::vector<Candidate>& candidates, int runs) {
  constexpr int warmUps = 2;
  std::mt19937 random;  // the same orders in each run of the program
  std::vector<std::reference_wrapper<Candidate>> order(candidates.begin(), candidates.end());
  for (int run = -warmUps; run < runs; ++run) {
    std::ranges::shuffle(order, random);
    for (Candidate& candidate : order) {
      const Measurement measurement = candidate.measure();
      if (run >= 0)
        candidate.measurements.push_back(measurement);
    }
  }
}

void printComparison(const std::vector<Candidate>& candidates) {
  std::printf("%-28s %10s %10s %10s %14s %14s\n", "", "wall ms", "cpu ms", "peak MiB", "wall, first/it",
              "peak, first/it");
  for (const Candidate& candidate : candidates) {
    printMedians(candidate);
    std::printf(" %14.2f %14.2f\n", medianRatio(candidates.front(), candidate, &Measurement::milliseconds),
                medianRatio(candidates.front(), candidate, &Measurement::megabytes));
  }
}

void printRow(const Candidate& candidate) {
  printMedians(candidate);
  std::printf("\n");
}

}  // namespace Benchmarks
