// rendering/shader.h: the source texts of one shader program.
#pragma once

#include <string_view>

/// GLSL ES 1.00 sources. Attributes: `Position`, `SourceColor`, `TexCoordIn`; the vertex shader takes the
/// matrix as `Projection` and turns y over, since charts count it downwards.
class VELShader {
 public:
  virtual ~VELShader() = default;
  virtual std::string_view o_getVertexShader() const = 0;
  virtual std::string_view o_getFragmentShader() const = 0;
};
