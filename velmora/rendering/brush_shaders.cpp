#include "velmora/rendering/brush_shaders.h"

namespace {

/// Of the programs that take no colour from the vertex.
constexpr std::string_view colorlessVertexShader =
    "attribute vec4 Position; attribute vec4 SourceColor; attribute vec2 TexCoordIn; "
    "varying vec2 TexCoordOut; uniform mat4 Projection; "
    "void main(void) { gl_Position = Projection * Position; "
    "gl_Position.y = -gl_Position.y; TexCoordOut = TexCoordIn; }";

}  // namespace

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

std::string_view VELTextureBrushShader::o_getVertexShader() const { return colorlessVertexShader; }

std::string_view VELTextureBrushShader::o_getFragmentShader() const {
  return "varying lowp vec2 TexCoordOut; uniform sampler2D Texture; "
         "void main(void) { gl_FragColor = texture2D(Texture, TexCoordOut); }";
}

std::string_view VELColoredTextureBrushShader::o_getVertexShader() const {
  return "attribute vec4 Position; attribute vec4 SourceColor; attribute vec2 TexCoordIn; "
         "varying vec2 TexCoordOut; varying vec4 DestinationColor; uniform mat4 Projection; "
         "void main(void) { gl_Position = Projection * Position; "
         "gl_Position.y = -gl_Position.y; TexCoordOut = TexCoordIn; DestinationColor = SourceColor; }";
}

std::string_view VELColoredTextureBrushShader::o_getFragmentShader() const {
  return "varying lowp vec2 TexCoordOut; uniform sampler2D Texture; varying lowp vec4 DestinationColor; "
         "void main(void) { lowp vec4 color = texture2D(Texture, TexCoordOut); "
         "color.rgb = DestinationColor.rgb; color.a = min( color.a, DestinationColor.a ); "
         "gl_FragColor = color; }";
}

std::string_view VELPalettedTextureBrushShader::o_getVertexShader() const { return colorlessVertexShader; }

std::string_view VELPalettedTextureBrushShader::o_getFragmentShader() const {
  return "varying lowp vec2 TexCoordOut; uniform sampler2D TextureMap; uniform sampler2D Palette; "
         "void main(void) { lowp float height = texture2D( TextureMap, TexCoordOut ).a; "
         "gl_FragColor = texture2D( Palette, vec2(height, 0.0) ); }";
}
