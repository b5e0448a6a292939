#include "velmora/platform/exception.h"

#include <utility>

VELException::VELException(std::string name, const std::string& reason)
    : std::runtime_error(reason), _name(std::move(name)) {}

VELInvalidArgumentException::VELInvalidArgumentException(const std::string& reason)
    : VELException("VELInvalidArgumentException", reason) {}

VELInternalInconsistencyException::VELInternalInconsistencyException(const std::string& reason)
    : VELException("VELInternalInconsistencyException", reason) {}

// Out of line, so that one type information serves every library that catches them.
VELException::~VELException() = default;
VELInvalidArgumentException::~VELInvalidArgumentException() = default;
VELInternalInconsistencyException::~VELInternalInconsistencyException() = default;
