// platform/scoped_mark.h: a flag that is up while a block runs.
#pragma once

/// Raises a flag for the length of a block, also one that an exception ends: against entering it a second
/// time. The flag must outlive the block.
class VELScopedMark {
 public:
  explicit VELScopedMark(bool& mark) : _mark(mark) { _mark = true; }
  VELScopedMark(const VELScopedMark&) = delete;
  VELScopedMark& operator=(const VELScopedMark&) = delete;
  ~VELScopedMark() { _mark = false; }

 private:
  bool& _mark;
};
