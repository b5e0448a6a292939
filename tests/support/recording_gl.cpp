#include "tests/support/recording_gl.h"

#include <cstring>
#include <sstream>

namespace {

const std::map<uint32_t, std::string>& constantNames() {
  static const std::map<uint32_t, std::string> names = {
      {VELGL_ARRAY_BUFFER, "ARRAY"},
      {VELGL_ELEMENT_ARRAY_BUFFER, "ELEMENT"},
      {VELGL_DYNAMIC_DRAW, "DYNAMIC"},
      {VELGL_LINES, "LINES"},  // also the blend factor 1
      {VELGL_LINE_LOOP, "LINE_LOOP"},
      {VELGL_LINE_STRIP, "LINE_STRIP"},
      {VELGL_TRIANGLES, "TRIANGLES"},
      {VELGL_TRIANGLE_STRIP, "STRIP"},
      {VELGL_TRIANGLE_FAN, "FAN"},
      {VELGL_FLOAT, "FLOAT"},
      {VELGL_UNSIGNED_BYTE, "BYTE"},
      {VELGL_UNSIGNED_SHORT, "SHORT"},
      {VELGL_BLEND, "BLEND"},
      {VELGL_SCISSOR_TEST, "SCISSOR_TEST"},
      {VELGL_CULL_FACE, "CULL_FACE"},
      {VELGL_DEPTH_TEST, "DEPTH_TEST"},
      {VELGL_STENCIL_TEST, "STENCIL_TEST"},
      {VELGL_DITHER, "DITHER"},
      {VELGL_SRC_ALPHA, "SRC_ALPHA"},
      {VELGL_ONE_MINUS_SRC_ALPHA, "ONE_MINUS_SRC_ALPHA"},
      {VELGL_ONE_MINUS_DST_ALPHA, "ONE_MINUS_DST_ALPHA"},
      {VELGL_TEXTURE0, "TEXTURE0"},
      {VELGL_TEXTURE_2D, "2D"},
      {VELGL_TEXTURE_MIN_FILTER, "MIN"},
      {VELGL_TEXTURE_MAG_FILTER, "MAG"},
      {VELGL_TEXTURE_WRAP_S, "WRAP_S"},
      {VELGL_TEXTURE_WRAP_T, "WRAP_T"},
      {VELGL_NEAREST, "NEAREST"},
      {VELGL_LINEAR, "LINEAR"},
      {VELGL_CLAMP_TO_EDGE, "CLAMP"},
      {VELGL_UNPACK_ALIGNMENT, "UNPACK"},
      {VELGL_RGBA, "RGBA"},
      {VELGL_RGBA8, "RGBA8"},
      {VELGL_FRAMEBUFFER, "FRAME"},
      {VELGL_READ_FRAMEBUFFER, "READ"},
      {VELGL_DRAW_FRAMEBUFFER, "DRAW"},
      {VELGL_COLOR_ATTACHMENT0, "COLOR0"},
      {VELGL_VERTEX_SHADER, "VERTEX"},
      {VELGL_FRAGMENT_SHADER, "FRAGMENT"},
      {VELGL_COLOR_BUFFER_BIT, "COLOR"},
      {VELGL_COMPILE_STATUS, "COMPILE"},
      {VELGL_LINK_STATUS, "LINK"},
  };
  return names;
}

/// A constant by name, everything else as it is.
struct Name {
  uint32_t value;
};

std::ostream& operator<<(std::ostream& out, Name name) {
  const auto found = constantNames().find(name.value);
  return found == constantNames().end() ? out << name.value : out << found->second;
}

template <typename... Arguments>
std::string call(const char* function, const Arguments&... arguments) {
  std::ostringstream out;
  out << function << '(';
  const char* comma = "";
  ((out << comma << arguments, comma = ","), ...);
  out << ')';
  return out.str();
}

std::vector<std::byte> copyOf(const void* data, size_t bytes) {
  if (!data) return {};
  const auto* const first = static_cast<const std::byte*>(data);
  return {first, first + bytes};
}

size_t pixelBytes(int32_t width, int32_t height) {
  return static_cast<size_t>(width) * static_cast<size_t>(height) * 4;
}

}  // namespace

RecordedCall& RecordingGL::add(std::string text) {
  return calls.emplace_back(RecordedCall{std::move(text), {}, {}});
}

uint32_t RecordingGL::gen(const std::string& kind) {
  const uint32_t name = ++_names[kind];
  _live.insert(kind + std::to_string(name));
  add(call(("gen" + kind).c_str(), name));
  return name;
}

void RecordingGL::remove(const std::string& kind, uint32_t name) {
  _live.erase(kind + std::to_string(name));
  add(call(("delete" + kind).c_str(), name));
}

CallTexts RecordingGL::texts() const { return texts(""); }

CallTexts RecordingGL::texts(const std::string& prefix) const {
  CallTexts found;
  for (const RecordedCall& recorded : calls)
    if (recorded.text.starts_with(prefix)) found.push_back(recorded.text);
  return found;
}

const RecordedCall& RecordingGL::last(const std::string& prefix) const {
  for (auto recorded = calls.rbegin(); recorded != calls.rend(); ++recorded)
    if (recorded->text.starts_with(prefix)) return *recorded;
  throw std::runtime_error("no call starts with " + prefix);
}

size_t RecordingGL::uploadedBytes() const {
  size_t bytes = 0;
  for (const RecordedCall& recorded : calls) bytes += recorded.bytes.size();
  return bytes;
}

void RecordingGL::bindBuffer(uint32_t target, uint32_t buffer) {
  _bound[target] = buffer;
  add(call("bindBuffer", Name{target}, buffer));
}

void RecordingGL::bufferData(uint32_t target, size_t bytes, const void* data, uint32_t usage) {
  auto& store = _stores[_bound[target]];
  store = copyOf(data, bytes);
  store.resize(bytes);
  add(call("bufferData", Name{target}, bytes, Name{usage})).bytes = copyOf(data, bytes);
}

void RecordingGL::bufferSubData(uint32_t target, size_t offset, size_t bytes, const void* data) {
  auto& store = _stores[_bound[target]];
  if (offset + bytes > store.size()) throw std::runtime_error("bufferSubData beyond the store");
  std::memcpy(store.data() + offset, data, bytes);
  add(call("bufferSubData", Name{target}, offset, bytes)).bytes = copyOf(data, bytes);
}

void RecordingGL::enableVertexAttribArray(uint32_t slot) { add(call("enableVertexAttribArray", slot)); }
void RecordingGL::disableVertexAttribArray(uint32_t slot) { add(call("disableVertexAttribArray", slot)); }

void RecordingGL::vertexAttribPointer(uint32_t slot, int32_t size, uint32_t type, bool normalized,
                                      int32_t stride, size_t offset) {
  add(call("vertexAttribPointer", slot, size, Name{type}, normalized, stride, offset));
}

void RecordingGL::drawElements(uint32_t mode, int32_t count, uint32_t type, size_t offset) {
  add(call("drawElements", Name{mode}, count, Name{type}, offset));
}

void RecordingGL::drawArrays(uint32_t mode, int32_t first, int32_t count) {
  add(call("drawArrays", Name{mode}, first, count));
}

uint32_t RecordingGL::createShader(uint32_t type) {
  add(call("createShader", Name{type}));
  return gen("Shader");
}

void RecordingGL::shaderSource(uint32_t shader, std::string_view source) {
  add(call("shaderSource", shader)).bytes = copyOf(source.data(), source.size());
}

void RecordingGL::compileShader(uint32_t shader) { add(call("compileShader", shader)); }

int32_t RecordingGL::getShader(uint32_t shader, uint32_t name) {
  add(call("getShader", shader, Name{name}));
  return compiles;
}

void RecordingGL::attachShader(uint32_t program, uint32_t shader) {
  add(call("attachShader", program, shader));
}

void RecordingGL::bindAttribLocation(uint32_t program, uint32_t slot, std::string_view name) {
  add(call("bindAttribLocation", program, slot, name));
}

void RecordingGL::linkProgram(uint32_t program) { add(call("linkProgram", program)); }

int32_t RecordingGL::getProgram(uint32_t program, uint32_t name) {
  add(call("getProgram", program, Name{name}));
  return compiles;
}

void RecordingGL::useProgram(uint32_t program) { add(call("useProgram", program)); }

int32_t RecordingGL::getAttribLocation(uint32_t, std::string_view name) {
  return name == "Position" ? 0 : name == "SourceColor" ? 1 : 2;
}

int32_t RecordingGL::getUniformLocation(uint32_t, std::string_view name) {
  return name == "Projection" ? 7 : 8;
}

void RecordingGL::uniform1i(int32_t location, int32_t value) { add(call("uniform1i", location, value)); }

void RecordingGL::uniform4f(int32_t location, float x, float y, float z, float w) {
  add(call("uniform4f", location, x, y, z, w));
}

void RecordingGL::uniformMatrix4fv(int32_t location, std::span<const float, 16> matrix) {
  add(call("uniformMatrix4fv", location)).floats.assign(matrix.begin(), matrix.end());
}

void RecordingGL::activeTexture(uint32_t unit) { add(call("activeTexture", Name{unit})); }

void RecordingGL::bindTexture(uint32_t target, uint32_t texture) {
  add(call("bindTexture", Name{target}, texture));
}

void RecordingGL::texParameteri(uint32_t target, uint32_t name, int32_t value) {
  add(call("texParameteri", Name{target}, Name{name}, Name{static_cast<uint32_t>(value)}));
}

void RecordingGL::texImage2D(uint32_t target, uint32_t format, int32_t width, int32_t height,
                             const void* pixels) {
  add(call("texImage2D", Name{target}, Name{format}, width, height)).bytes =
      copyOf(pixels, pixelBytes(width, height));
}

void RecordingGL::texSubImage2D(uint32_t target, int32_t x, int32_t y, int32_t width, int32_t height,
                                uint32_t format, const void* pixels) {
  add(call("texSubImage2D", Name{target}, x, y, width, height, Name{format})).bytes =
      copyOf(pixels, pixelBytes(width, height));
}

void RecordingGL::pixelStorei(uint32_t name, int32_t value) { add(call("pixelStorei", Name{name}, value)); }

void RecordingGL::bindFramebuffer(uint32_t target, uint32_t framebuffer) {
  add(call("bindFramebuffer", Name{target}, framebuffer));
}

void RecordingGL::framebufferTexture2D(uint32_t target, uint32_t attachment, uint32_t texTarget,
                                       uint32_t texture) {
  add(call("framebufferTexture2D", Name{target}, Name{attachment}, Name{texTarget}, texture));
}

void RecordingGL::framebufferRenderbuffer(uint32_t target, uint32_t attachment, uint32_t renderbuffer) {
  add(call("framebufferRenderbuffer", Name{target}, Name{attachment}, renderbuffer));
}

void RecordingGL::bindRenderbuffer(uint32_t renderbuffer) { add(call("bindRenderbuffer", renderbuffer)); }

void RecordingGL::readPixels(int32_t x, int32_t y, int32_t width, int32_t height, void* pixels) {
  add(call("readPixels", x, y, width, height));
  std::memset(pixels, 0, pixelBytes(width, height));
}

void RecordingGL::renderbufferStorageMultisample(int32_t samples, uint32_t format, int32_t width,
                                                 int32_t height) {
  add(call("renderbufferStorageMultisample", samples, Name{format}, width, height));
}

void RecordingGL::blitColor(int32_t width, int32_t height) { add(call("blitColor", width, height)); }

void RecordingGL::invalidateFramebuffer(uint32_t target, uint32_t attachment) {
  add(call("invalidateFramebuffer", Name{target}, Name{attachment}));
}

void RecordingGL::enable(uint32_t capability) { add(call("enable", Name{capability})); }
void RecordingGL::disable(uint32_t capability) { add(call("disable", Name{capability})); }

void RecordingGL::blendFuncSeparate(uint32_t sourceColor, uint32_t targetColor, uint32_t sourceAlpha,
                                    uint32_t targetAlpha) {
  add(call("blendFuncSeparate", Name{sourceColor}, Name{targetColor}, Name{sourceAlpha}, Name{targetAlpha}));
}

void RecordingGL::clearColor(float red, float green, float blue, float alpha) {
  add(call("clearColor", red, green, blue, alpha));
}

void RecordingGL::clear(uint32_t mask) { add(call("clear", Name{mask})); }

void RecordingGL::viewport(int32_t x, int32_t y, int32_t width, int32_t height) {
  add(call("viewport", x, y, width, height));
}

void RecordingGL::scissor(int32_t x, int32_t y, int32_t width, int32_t height) {
  add(call("scissor", x, y, width, height));
}
