// rendering/brush_shader_program.h: a linked shader program and what it was last told.
#pragma once

#include <cstdint>
#include <optional>

#include "velmora/platform/gl_context.h"
#include "velmora/rendering/matrix.h"
#include "velmora/rendering/shader.h"

struct VELShaderAttributes;

/// A program of one GL context, which must be current during every call but construction and destruction.
/// Kinds of programs differ in their sources and samplers.
class VELBrushShaderProgram {
 public:
  /// @param attributes gives the slots that the vertex attributes are bound to
  explicit VELBrushShaderProgram(const VELShaderAttributes& attributes);
  VELBrushShaderProgram(const VELBrushShaderProgram&) = delete;
  VELBrushShaderProgram& operator=(const VELBrushShaderProgram&) = delete;
  virtual ~VELBrushShaderProgram() = default;

  /// Builds the program. A shader that does not compile or link is logged on stderr with the driver's words,
  /// at most 256 bytes, and drawing goes on with what GL makes of it.
  void o_compileShaderProgram();
  void o_freeShader();
  /// Makes the program the one that draws, with the matrix of @p attributes, which learn its locations.
  /// @param isInUse true when it is active already: then the matrix is uploaded only if it differs
  void o_apply(VELShaderAttributes& attributes, bool isInUse);

 protected:
  virtual const VELShader& p_VEL_sources() const = 0;
  /// Looks up the samplers after linking.
  virtual void p_VEL_cacheSamplers(VELGL& gl, uint32_t program) = 0;
  /// Binds textures and samplers after activation.
  virtual void p_VEL_bindTextures(VELGL& gl, VELShaderAttributes& attributes) = 0;

 private:
  uint32_t p_VEL_compile(VELGL& gl, uint32_t type, std::string_view source) const;
  void p_VEL_upload(VELGL& gl, const VELMatrix& matrix);

  uint32_t _vertexShader = 0;
  uint32_t _fragmentShader = 0;
  uint32_t _shaderProgram = 0;
  uint32_t _positionSlotCached = 0;
  uint32_t _colorSlotCached = 0;
  uint32_t _texCoordSlotCached = 0;
  uint32_t _projectionUniformCached = 0;
  uint32_t _positionBuffer;
  uint32_t _colorBuffer;
  uint32_t _texCoordBuffer;
  std::optional<VELMatrix> _currentMatrix;  ///< none before the first upload
};
