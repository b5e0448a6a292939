// platform/exception.h: what misuse of the library raises.
//
// Only misuse raises; bad data never does, and the outside world is reported by result values.
#pragma once

#include <stdexcept>
#include <string>

#include "velmora/platform/export.h"

/// A misuse of the library: `name()` is its kind, `what()` its reason.
class VELMORA_API VELException : public std::runtime_error {
 public:
  VELException(std::string name, const std::string& reason);
  ~VELException() override;

  const std::string& name() const noexcept { return _name; }

 private:
  std::string _name;
};

/// An argument that the operation cannot take; its name is "VELInvalidArgumentException".
class VELMORA_API VELInvalidArgumentException : public VELException {
 public:
  explicit VELInvalidArgumentException(const std::string& reason);
  ~VELInvalidArgumentException() override;
};

/// A call that the object cannot serve; its name is "VELInternalInconsistencyException".
class VELMORA_API VELInternalInconsistencyException : public VELException {
 public:
  explicit VELInternalInconsistencyException(const std::string& reason);
  ~VELInternalInconsistencyException() override;
};
