// support/allocation_counter.h: how many times `operator new` ran.
//
// Linking this file replaces the global operators of the test program; they work under sanitizers as well.
#pragma once

#include <cstdint>

/// Counts from its construction on, in the whole program.
class AllocationCounter {
 public:
  AllocationCounter();
  int64_t count() const;

 private:
  int64_t _start;
};
