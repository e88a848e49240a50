#pragma once

#include <functional>
#include <string>
#include <vector>

#include "Benchmarks/MeasuredProcess.h"

namespace Benchmarks {

/// Something to measure repeatedly.
struct Candidate {
  std::string name;
  std::function<Measurement()> measure;
  std::vector<Measurement> measurements = {};
};

/// Measures each candidate `runs` times after a few runs to warm up. They take turns, so that all are under the same
/// load, and in a different order each time, because a candidate affects the one after it.
void measureInTurn(std::vector<Candidate>& candidates, int runs);

/// Prints a line for each candidate: its medians, and the median ratio of the first candidate to it within a run.
void printComparison(const std::vector<Candidate>& candidates);

/// Prints the medians of a candidate that is not compared with the others, as one more line of their table.
void printRow(const Candidate& candidate);

}  // namespace Benchmarks
