#include "Fuzz/AllocationCount.h"

#include <cstdlib>
#include <new>

namespace {

thread_local std::size_t count = 0;

}  // namespace

std::size_t Fuzz::allocatedBytes() {
  return count;
}

// All of the operators: the sanitizer would provide the others, and it reports memory that passes between both kinds.

void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  count += size;
  return std::malloc(size == 0 ? 1 : size);
}

void* operator new(std::size_t size) {
  if (void* memory = operator new(size, std::nothrow))
    return memory;
  throw std::bad_alloc();
}

void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return operator new(size, std::nothrow);
}

void* operator new[](std::size_t size) {
  return operator new(size);
}

void operator delete(void* memory) noexcept {
  std::free(memory);
}

void operator delete(void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}

void operator delete[](void* memory) noexcept {
  std::free(memory);
}

void operator delete[](void* memory, std::size_t /*size*/) noexcept {
  std::free(memory);
}
