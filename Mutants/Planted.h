#pragma once

// script/mutants includes this in each source that it compiles. Each planted bug has a number. The environment variable
// PLANTED_MUTANT switches on the bug with that number; without it the program behaves as written. PLANTED_REACHED names
// a file to which each process appends the numbers of the bugs that it reaches, one per line.

#include <atomic>
#include <cstdio>
#include <cstdlib>

#include <fcntl.h>
#include <unistd.h>

namespace Planted {

inline constexpr int maximum = 100'000;

inline void noteReached(int number) {
  static const char* const path = std::getenv("PLANTED_REACHED");
  static std::atomic<bool> noted[maximum];
  if (path == nullptr || noted[number].exchange(true))
    return;
  char line[16];
  const int size = std::snprintf(line, sizeof(line), "%d\n", number);
  // Appending so little is atomic, so processes can share the file.
  const int file = open(path, O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0666);
  if (file >= 0) {
    [[maybe_unused]] const auto written = write(file, line, static_cast<std::size_t>(size));
    close(file);
  }
}

/// Whether the bug is switched on.
inline bool in(int number) {
  static const char* const chosen = std::getenv("PLANTED_MUTANT");
  static const int inEffect = chosen == nullptr ? -1 : std::atoi(chosen);
  noteReached(number);
  return number == inEffect;
}

/// a < b, or a <= b.
template <class A, class B>
bool less(int number, const A& a, const B& b) {
  return in(number) ? a <= b : a < b;
}

/// a <= b, or a < b.
template <class A, class B>
bool lessOrEqual(int number, const A& a, const B& b) {
  return in(number) ? a < b : a <= b;
}

/// a > b, or a >= b.
template <class A, class B>
bool greater(int number, const A& a, const B& b) {
  return in(number) ? a >= b : a > b;
}

/// a >= b, or a > b.
template <class A, class B>
bool greaterOrEqual(int number, const A& a, const B& b) {
  return in(number) ? a > b : a >= b;
}

/// a + b, or a - b.
template <class A, class B>
auto plus(int number, const A& a, const B& b) {
  return in(number) ? a - b : a + b;
}

/// a - b, or a + b.
template <class A, class B>
auto minus(int number, const A& a, const B& b) {
  return in(number) ? a + b : a - b;
}

/// The number, or the one after it.
template <class T>
T offByOne(int number, T value) {
  return in(number) ? static_cast<T>(value + 1) : value;
}

}  // namespace Planted
