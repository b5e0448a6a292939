#include "velmora/platform/gl_composer.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <string_view>
#include <utility>

#include "velmora/platform/gl_baseline.h"
#include "velmora/platform/gl_layer.h"

namespace {

constexpr uint32_t kPositionSlot = 0;
constexpr uint32_t kTextureSlot = 1;

constexpr std::string_view kVertexShader = R"(
attribute vec2 Position;
attribute vec2 TexCoordIn;
uniform vec4 PixelSize;
varying vec2 TexCoord;
void main() {
  TexCoord = TexCoordIn;
  gl_Position = vec4(Position.x * PixelSize.x - 1.0, 1.0 - Position.y * PixelSize.y, 0.0, 1.0);
}
)";

// An alpha texture has black as its colour and a layer's quad adds black: one formula serves both.
constexpr std::string_view kFragmentShader = R"(
#ifdef GL_FRAGMENT_PRECISION_HIGH
precision highp float;
#else
precision mediump float;
#endif
uniform sampler2D Texture;
uniform vec4 Color;
varying vec2 TexCoord;
void main() {
  vec4 texel = texture2D(Texture, TexCoord);
  gl_FragColor = vec4(texel.rgb + Color.rgb, texel.a * Color.a);
}
)";

constexpr uint32_t kOpaqueBlack = 0xFF000000u;

/// The nearest place from which a length of @p pixels covers whole pixels only.
double snappedCentre(double centre, double pixels) {
  return std::floor(centre - pixels / 2.0 + 0.5) + pixels / 2.0;
}

bool isNear(double value, double whole) { return std::abs(value - whole) < 1e-6; }

bool isUnit(double value) { return isNear(std::abs(value), 1.0); }

/// True for turns by quarters and for mirror images; the parts of the transform then become exact.
bool snapToQuarter(VELAffineTransform& t) {
  const bool upright = isUnit(t.a) && isUnit(t.d) && isNear(t.b, 0.0) && isNear(t.c, 0.0);
  const bool lying = isUnit(t.b) && isUnit(t.c) && isNear(t.a, 0.0) && isNear(t.d, 0.0);
  if (!upright && !lying) return false;
  t = {std::round(t.a), std::round(t.b), std::round(t.c), std::round(t.d), t.tx, t.ty};
  return true;
}

uint32_t compiled(VELGL& gl, uint32_t type, std::string_view source) {
  const uint32_t shader = gl.createShader(type);
  gl.shaderSource(shader, source);
  gl.compileShader(shader);
  return shader;
}

float channel(uint32_t colorCode, int shift) {
  return static_cast<float>(colorCode >> shift & 0xFFu) / 255.0f;
}

}  // namespace

VELGLComposer::VELGLComposer(std::shared_ptr<VELGLContext> context)
    : _context(std::move(context)), _texts(_context), _generation(_context->generation()) {}

VELGLComposer::~VELGLComposer() {
  if (_program == 0) return;
  const VELGLContextScope scope(*_context, _generation);
  if (!scope.isCurrent()) return;
  _context->gl().deleteBuffer(_buffer);
  _context->gl().deleteProgram(_program);
}

bool VELGLComposer::drawTree(VELView& root, const VELGLComposerTarget& target) {
  if (target.width < 1 || target.height < 1 || !(target.scale > 0.0)) return false;
  const bool ready = prepareProgram();
  setState(target);
  _context->gl().clear(VELGL_COLOR_BUFFER_BIT);
  if (!ready) return false;

  _scale = target.scale;
  _vertices.clear();
  _quads.clear();
  composeTree(root);
  drawQuads(target);
  // Only now: until here every texture may be wanted by a quad.
  _texts.trim();
  return true;
}

void VELGLComposer::composeLayer(const VELGLLayer& layer, const VELRect& frame) {
  // Names of another context mean something else here.
  if (!layer.isIn(*_context) || !layer.isPresented()) return;
  if (!(frame.width > 0.0 && frame.height > 0.0)) return;
  double width = frame.width * _scale, height = frame.height * _scale;
  // A surface may round its pixels, or cut them to whole points: up to there its own pixels are shown as they
  // are, from the frame's top left.
  const double tolerance = std::max(1.0, _scale);
  const bool isOwnSize =
      std::abs(width - layer.width()) < tolerance && std::abs(height - layer.height()) < tolerance;
  width = isOwnSize ? layer.width() : std::round(width);
  height = isOwnSize ? layer.height() : std::round(height);
  const double left = std::floor(frame.x * _scale + 0.5), top = std::floor(frame.y * _scale + 0.5);
  addQuad({layer.texture(), kOpaqueBlack, isOwnSize ? VELGL_NEAREST : VELGL_LINEAR},
          {left + width / 2.0, top + height / 2.0}, {width / 2.0, 0.0}, {0.0, height / 2.0}, true);
}

void VELGLComposer::composeText(const VELAttributedText& text, uint32_t colorCode, const VELSize& /*size*/,
                                const VELAffineTransform& transform, const VELRect& frame) {
  VELAffineTransform t = transform;
  const double area = t.a * t.d - t.b * t.c;
  if (colorCode >> 24 == 0 || !(std::abs(area) > 1e-12)) return;
  const VELTextTexture mask = _texts.textureFor(text, _scale);
  if (mask.texture == 0) return;

  const double width = mask.width, height = mask.height;
  VELPoint centre{(frame.center().x + t.tx) * _scale, (frame.center().y + t.ty) * _scale};
  const bool isWhole = snapToQuarter(t);
  if (isWhole) {
    const VELSize box = t.boundsOf({width, height});
    centre = {snappedCentre(centre.x, box.width), snappedCentre(centre.y, box.height)};
  }
  addQuad({mask.texture, colorCode, isWhole ? VELGL_NEAREST : VELGL_LINEAR}, centre,
          {t.a * width / 2.0, t.b * width / 2.0}, {t.c * height / 2.0, t.d * height / 2.0}, false);
}

void VELGLComposer::addQuad(const Quad& quad, VELPoint centre, VELPoint x, VELPoint y, bool isBottomUp) {
  // Places that no target has, and NaN: not numbers to give to GL.
  const double reach =
      std::abs(centre.x) + std::abs(centre.y) + std::abs(x.x) + std::abs(x.y) + std::abs(y.x) + std::abs(y.y);
  if (!(reach < 1e9)) return;
  const float topV = isBottomUp ? 1.0f : 0.0f;
  const auto add = [&](double alongX, double alongY) {
    _vertices.push_back({static_cast<float>(centre.x + alongX * x.x + alongY * y.x),
                         static_cast<float>(centre.y + alongX * x.y + alongY * y.y),
                         alongX < 0.0 ? 0.0f : 1.0f, alongY < 0.0 ? topV : 1.0f - topV});
  };
  add(-1.0, -1.0);
  add(1.0, -1.0);
  add(-1.0, 1.0);
  add(1.0, 1.0);
  _quads.push_back(quad);
}

bool VELGLComposer::prepareProgram() {
  if (isLost()) {
    _generation = _context->generation();
    _program = _buffer = 0;
    _isRefused = false;
  }
  if (_program != 0 || _isRefused) return !_isRefused;
  VELGL& gl = _context->gl();
  const uint32_t vertexShader = compiled(gl, VELGL_VERTEX_SHADER, kVertexShader);
  const uint32_t fragmentShader = compiled(gl, VELGL_FRAGMENT_SHADER, kFragmentShader);
  _program = gl.createProgram();
  gl.attachShader(_program, vertexShader);
  gl.attachShader(_program, fragmentShader);
  gl.bindAttribLocation(_program, kPositionSlot, "Position");
  gl.bindAttribLocation(_program, kTextureSlot, "TexCoordIn");
  gl.linkProgram(_program);
  // The program holds them as long as it needs them.
  gl.deleteShader(vertexShader);
  gl.deleteShader(fragmentShader);
  _buffer = gl.genBuffer();
  _isRefused = gl.getProgram(_program, VELGL_LINK_STATUS) == 0;
  if (_isRefused) return false;

  _pixelSizeSlot = gl.getUniformLocation(_program, "PixelSize");
  _colorSlot = gl.getUniformLocation(_program, "Color");
  gl.useProgram(_program);
  gl.uniform1i(gl.getUniformLocation(_program, "Texture"), 0);
  return true;
}

void VELGLComposer::setState(const VELGLComposerTarget& target) {
  VELGL& gl = _context->gl();
  VELGLSetBaseline(gl);
  gl.viewport(0, 0, target.width, target.height);
  const uint32_t background = target.background.colorCode();
  gl.clearColor(channel(background, 0), channel(background, 8), channel(background, 16),
                channel(background, 24));
}

void VELGLComposer::drawQuads(const VELGLComposerTarget& target) {
  if (_quads.empty()) return;
  VELGL& gl = _context->gl();
  gl.useProgram(_program);
  gl.uniform4f(_pixelSizeSlot, 2.0f / static_cast<float>(target.width),
               2.0f / static_cast<float>(target.height), 0.0f, 0.0f);
  gl.bindBuffer(VELGL_ARRAY_BUFFER, _buffer);
  gl.bufferData(VELGL_ARRAY_BUFFER, _vertices.size() * sizeof(Vertex), _vertices.data(), VELGL_STREAM_DRAW);
  gl.enableVertexAttribArray(kPositionSlot);
  gl.enableVertexAttribArray(kTextureSlot);
  gl.vertexAttribPointer(kPositionSlot, 2, VELGL_FLOAT, false, sizeof(Vertex), offsetof(Vertex, x));
  gl.vertexAttribPointer(kTextureSlot, 2, VELGL_FLOAT, false, sizeof(Vertex), offsetof(Vertex, u));

  int32_t first = 0;
  for (const Quad& quad : _quads) {
    gl.bindTexture(VELGL_TEXTURE_2D, quad.texture);
    gl.texParameteri(VELGL_TEXTURE_2D, VELGL_TEXTURE_MIN_FILTER, static_cast<int32_t>(quad.filter));
    gl.texParameteri(VELGL_TEXTURE_2D, VELGL_TEXTURE_MAG_FILTER, static_cast<int32_t>(quad.filter));
    gl.uniform4f(_colorSlot, channel(quad.colorCode, 0), channel(quad.colorCode, 8),
                 channel(quad.colorCode, 16), channel(quad.colorCode, 24));
    gl.drawArrays(VELGL_TRIANGLE_STRIP, first, 4);
    first += 4;
  }

  gl.disableVertexAttribArray(kPositionSlot);
  gl.disableVertexAttribArray(kTextureSlot);
  gl.bindTexture(VELGL_TEXTURE_2D, 0);
  gl.bindBuffer(VELGL_ARRAY_BUFFER, 0);
  gl.useProgram(0);
}
