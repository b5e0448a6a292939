#include "velmora/rendering/default_brush_shader.h"

std::string_view VELDefaultBrushShader::o_getVertexShader() const {
  return "attribute vec4 Position; attribute vec4 SourceColor; attribute vec2 TexCoordIn; "
         "varying vec2 TexCoordOut; varying vec4 DestinationColor; uniform mat4 Projection; "
         "void main(void) { DestinationColor = SourceColor; gl_Position = Projection * Position; "
         "gl_Position.y = -gl_Position.y; TexCoordOut = TexCoordIn; }";
}

std::string_view VELDefaultBrushShader::o_getFragmentShader() const {
  return "varying lowp vec2 TexCoordOut; uniform sampler2D Texture; varying lowp vec4 DestinationColor; "
         "void main(void) { gl_FragColor = texture2D(Texture, TexCoordOut) + DestinationColor; }";
}
