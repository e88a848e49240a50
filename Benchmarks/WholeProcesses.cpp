// Runs commands in turn, each as a whole process. Prints medians: the time from start to end, processor time, peak
// memory of the largest process, and the ratio of the first command to each of the others within a run.

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "Benchmarks/Candidate.h"
#include "Benchmarks/MeasuredProcess.h"

int main(int argc, char** argv) {
  if (argc < 4 || argc % 2 != 0) {
    std::fprintf(stderr, "Usage: %s RUNS NAME COMMAND [NAME COMMAND]...\n", argv[0]);
    return 2;
  }
  std::vector<Benchmarks::Candidate> candidates;
  for (int i = 2; i + 1 < argc; i += 2) {
    const std::string command = argv[i + 1];
    candidates.push_back({argv[i], [command] { return Benchmarks::MeasuredProcess(command).end(); }});
  }
  Benchmarks::measureInTurn(candidates, std::atoi(argv[1]));
  Benchmarks::printComparison(candidates);
}
