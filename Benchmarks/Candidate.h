#pragma once

#include <functional>
#include <string>
#include <vector>

#include "Benchmarks/MeasuredProcess.h"

namespace Benchmarks {

/// Something to be measured again and again.
struct Candidate {
  std::string name;
  std::function<Measurement()> measure;
  std::vector<Measurement> measurements = {};
};

/// Measures each of them `runs` times, in turn, so that all are under the same load, and in a different order each
/// time, as what one leaves behind costs the next one; a few runs before that warm up.
void measureInTurn(std::vector<Candidate>& candidates, int runs);

/// Prints the medians, a candidate a line, and the ratio of the first one to each, run by run, as its median.
void printComparison(const std::vector<Candidate>& candidates);

/// Prints the medians of one that compares with none of the others, as one more line of their table.
void printRow(const Candidate& candidate);

}  // namespace Benchmarks
