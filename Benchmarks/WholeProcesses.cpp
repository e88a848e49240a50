// Runs commands in turn, each as a whole process, and prints what they took: time from start to end, processor time and
// peak memory of the largest process, as medians, and the ratio of the first to each of the others, run by run.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

struct Measurement {
  double milliseconds;
  double processorMilliseconds;
  double megabytes;
};

struct Candidate {
  std::string name;
  std::string command;
  std::vector<Measurement> measurements = {};
};

double milliseconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) * 1000 + static_cast<double>(time.tv_usec) / 1000;
}

[[noreturn]] void become(const std::string& command) {
  const int nowhere = open("/dev/null", O_WRONLY | O_CLOEXEC);
  dup2(nowhere, STDOUT_FILENO);
  const std::string replaced = "exec " + command;
  execl("/bin/sh", "sh", "-c", replaced.c_str(), nullptr);
  _exit(127);
}

Measurement measure(const std::string& command) {
  const auto start = std::chrono::steady_clock::now();
  const pid_t child = fork();
  if (child == 0)
    become(command);
  int status = 0;
  rusage usage{};
  wait4(child, &status, 0, &usage);
  const std::chrono::duration<double, std::milli> elapsed = std::chrono::steady_clock::now() - start;
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
    std::fprintf(stderr, "failed: %s\n", command.c_str());
    std::exit(1);
  }
  return {elapsed.count(), milliseconds(usage.ru_utime) + milliseconds(usage.ru_stime),
          static_cast<double>(usage.ru_maxrss) / 1024};
}

double median(std::vector<double> values) {
  std::ranges::sort(values);
  return values[values.size() / 2];
}

template <typename Figure>
double medianOf(const Candidate& candidate, Figure figure) {
  std::vector<double> values;
  for (const Measurement& measurement : candidate.measurements)
    values.push_back(measurement.*figure);
  return median(values);
}

template <typename Figure>
double medianRatio(const Candidate& first, const Candidate& other, Figure figure) {
  std::vector<double> ratios;
  for (std::size_t i = 0; i < first.measurements.size(); ++i)
    ratios.push_back(first.measurements[i].*figure / other.measurements[i].*figure);
  return median(ratios);
}

void print(const std::vector<Candidate>& candidates) {
  std::printf("%-28s %10s %10s %10s %14s %14s\n", "", "wall ms", "cpu ms", "peak MiB", "wall, first/it",
              "peak, first/it");
  for (const Candidate& candidate : candidates)
    std::printf("%-28s %10.2f %10.2f %10.2f %14.2f %14.2f\n", candidate.name.c_str(),
                medianOf(candidate, &Measurement::milliseconds),
                medianOf(candidate, &Measurement::processorMilliseconds), medianOf(candidate, &Measurement::megabytes),
                medianRatio(candidates.front(), candidate, &Measurement::milliseconds),
                medianRatio(candidates.front(), candidate, &Measurement::megabytes));
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 4 || argc % 2 != 0) {
    std::fprintf(stderr, "Usage: %s RUNS NAME COMMAND [NAME COMMAND]...\n", argv[0]);
    return 2;
  }
  std::vector<Candidate> candidates;
  for (int i = 2; i + 1 < argc; i += 2)
    candidates.push_back({argv[i], argv[i + 1]});
  const int runs = std::atoi(argv[1]);
  for (int run = -2; run < runs; ++run) {  // the first two warm up
    for (Candidate& candidate : candidates) {
      const Measurement measurement = measure(candidate.command);
      if (run >= 0)
        candidate.measurements.push_back(measurement);
    }
  }
  print(candidates);
}
