#include "velmora/platform/gles/driver_gl.h"

#include <GLES2/gl2.h>

#include <cstdio>
#include <limits>

namespace {

// Of ES 3, which the ES 2.0 header does not have.
constexpr uint32_t kMaxSamples = 0x8D57;
constexpr uint32_t kPixelPackBuffer = 0x88EB, kPixelUnpackBuffer = 0x88EC;
constexpr uint32_t kPrimitiveRestartFixedIndex = 0x8D69, kRasterizerDiscard = 0x8C89;
constexpr uint32_t kRowGaps[] = {0x0CF2, 0x0CF3, 0x0CF4, 0x0D02, 0x0D03, 0x0D04};  // unpack, then pack

constexpr int32_t kNeededSamples = 4;

/// "OpenGL ES 3.2 …" gives 32; anything else 0.
int32_t versionOf(const std::string& text) {
  int major = 0, minor = 0;
  return std::sscanf(text.c_str(), "OpenGL ES %d.%d", &major, &minor) == 2 ? 10 * major + minor : 0;
}

// GL's own convention: with a buffer bound, a pointer is an offset into it.
const void* bufferOffset(size_t offset) {
  return reinterpret_cast<const void*>(offset);  // NOLINT(performance-no-int-to-ptr)
}

template <typename GetLog>
std::string infoLog(GetLog getLog, size_t limit) {
  constexpr auto kMost = static_cast<size_t>(std::numeric_limits<GLsizei>::max());
  std::string text(limit < kMost ? limit : kMost, '\0');
  GLsizei length = 0;
  getLog(static_cast<GLsizei>(text.size()), &length, text.data());
  text.resize(length > 0 ? static_cast<size_t>(length) : 0);
  return text;
}

}  // namespace

void VELDriverGL::loadBeyondES2(Loader loader) {
  // The driver of a context that replaces a lost one may have less.
  *this = VELDriverGL();
  const int32_t version = versionOf(getString(VELGL_VERSION));
  if (version >= 30) {
    loadMultisampling(loader);
    loadES3State(loader);
  }
  loadResetStatus(loader, version);
}

void VELDriverGL::loadES3State(Loader loader) {
  const auto vertexArray = reinterpret_cast<BindVertexArray>(loader("glBindVertexArray"));
  const auto sampler = reinterpret_cast<BindSampler>(loader("glBindSampler"));
  const auto divisor = reinterpret_cast<VertexAttribDivisor>(loader("glVertexAttribDivisor"));
  if (!vertexArray || !sampler || !divisor) return;
  _bindVertexArray = vertexArray;
  _bindSampler = sampler;
  _vertexAttribDivisor = divisor;
}

void VELDriverGL::loadResetStatus(Loader loader, int32_t version) {
  // A loader may answer with a function for any name: the context is asked what it has.
  const std::string extensions = getString(VELGL_EXTENSIONS);
  const char* const name =
      version >= 32                                               ? "glGetGraphicsResetStatus"
      : extensions.find("GL_KHR_robustness") != std::string::npos ? "glGetGraphicsResetStatusKHR"
      : extensions.find("GL_EXT_robustness") != std::string::npos ? "glGetGraphicsResetStatusEXT"
                                                                  : nullptr;
  if (name) _getGraphicsResetStatus = reinterpret_cast<GetGraphicsResetStatus>(loader(name));
}

bool VELDriverGL::wasReset() { return _getGraphicsResetStatus && _getGraphicsResetStatus() != GL_NO_ERROR; }

void VELDriverGL::loadMultisampling(Loader loader) {
  if (getInteger(kMaxSamples) < kNeededSamples) return;
  const auto storage =
      reinterpret_cast<RenderbufferStorageMultisample>(loader("glRenderbufferStorageMultisample"));
  const auto blit = reinterpret_cast<BlitFramebuffer>(loader("glBlitFramebuffer"));
  const auto invalidate = reinterpret_cast<InvalidateFramebuffer>(loader("glInvalidateFramebuffer"));
  if (!storage || !blit || !invalidate) return;
  _renderbufferStorageMultisample = storage;
  _blitFramebuffer = blit;
  _invalidateFramebuffer = invalidate;
}

// Buffers.

uint32_t VELDriverGL::genBuffer() {
  GLuint name = 0;
  glGenBuffers(1, &name);
  return name;
}
void VELDriverGL::deleteBuffer(uint32_t buffer) { glDeleteBuffers(1, &buffer); }
void VELDriverGL::bindBuffer(uint32_t target, uint32_t buffer) { glBindBuffer(target, buffer); }
void VELDriverGL::bufferData(uint32_t target, size_t bytes, const void* data, uint32_t usage) {
  glBufferData(target, static_cast<GLsizeiptr>(bytes), data, usage);
}
void VELDriverGL::bufferSubData(uint32_t target, size_t offset, size_t bytes, const void* data) {
  glBufferSubData(target, static_cast<GLintptr>(offset), static_cast<GLsizeiptr>(bytes), data);
}
void VELDriverGL::enableVertexAttribArray(uint32_t slot) { glEnableVertexAttribArray(slot); }
void VELDriverGL::disableVertexAttribArray(uint32_t slot) { glDisableVertexAttribArray(slot); }
void VELDriverGL::vertexAttribPointer(uint32_t slot, int32_t size, uint32_t type, bool normalized,
                                      int32_t stride, size_t offset) {
  glVertexAttribPointer(slot, size, type, normalized ? GL_TRUE : GL_FALSE, stride, bufferOffset(offset));
}
void VELDriverGL::drawElements(uint32_t mode, int32_t count, uint32_t type, size_t offset) {
  glDrawElements(mode, count, type, bufferOffset(offset));
}
void VELDriverGL::drawArrays(uint32_t mode, int32_t first, int32_t count) {
  glDrawArrays(mode, first, count);
}

// Programs.

uint32_t VELDriverGL::createShader(uint32_t type) { return glCreateShader(type); }
void VELDriverGL::shaderSource(uint32_t shader, std::string_view source) {
  const GLchar* text = source.data();
  const auto length = static_cast<GLint>(source.size());
  glShaderSource(shader, 1, &text, &length);
}
void VELDriverGL::compileShader(uint32_t shader) { glCompileShader(shader); }
int32_t VELDriverGL::getShader(uint32_t shader, uint32_t name) {
  GLint value = 0;
  glGetShaderiv(shader, name, &value);
  return value;
}
std::string VELDriverGL::getShaderInfoLog(uint32_t shader, size_t limit) {
  return infoLog(
      [=](GLsizei size, GLsizei* length, GLchar* text) { glGetShaderInfoLog(shader, size, length, text); },
      limit);
}
void VELDriverGL::deleteShader(uint32_t shader) { glDeleteShader(shader); }
uint32_t VELDriverGL::createProgram() { return glCreateProgram(); }
void VELDriverGL::attachShader(uint32_t program, uint32_t shader) { glAttachShader(program, shader); }
void VELDriverGL::bindAttribLocation(uint32_t program, uint32_t slot, std::string_view name) {
  glBindAttribLocation(program, slot, std::string(name).c_str());
}
void VELDriverGL::linkProgram(uint32_t program) { glLinkProgram(program); }
int32_t VELDriverGL::getProgram(uint32_t program, uint32_t name) {
  GLint value = 0;
  glGetProgramiv(program, name, &value);
  return value;
}
std::string VELDriverGL::getProgramInfoLog(uint32_t program, size_t limit) {
  return infoLog(
      [=](GLsizei size, GLsizei* length, GLchar* text) { glGetProgramInfoLog(program, size, length, text); },
      limit);
}
void VELDriverGL::deleteProgram(uint32_t program) { glDeleteProgram(program); }
void VELDriverGL::useProgram(uint32_t program) { glUseProgram(program); }
int32_t VELDriverGL::getAttribLocation(uint32_t program, std::string_view name) {
  return glGetAttribLocation(program, std::string(name).c_str());
}
int32_t VELDriverGL::getUniformLocation(uint32_t program, std::string_view name) {
  return glGetUniformLocation(program, std::string(name).c_str());
}
void VELDriverGL::uniform1i(int32_t location, int32_t value) { glUniform1i(location, value); }
void VELDriverGL::uniform4f(int32_t location, float x, float y, float z, float w) {
  glUniform4f(location, x, y, z, w);
}
void VELDriverGL::uniformMatrix4fv(int32_t location, std::span<const float, 16> matrix) {
  glUniformMatrix4fv(location, 1, GL_FALSE, matrix.data());
}

// Textures.

uint32_t VELDriverGL::genTexture() {
  GLuint name = 0;
  glGenTextures(1, &name);
  return name;
}
void VELDriverGL::deleteTexture(uint32_t texture) { glDeleteTextures(1, &texture); }
bool VELDriverGL::isTexture(uint32_t texture) { return glIsTexture(texture) == GL_TRUE; }
void VELDriverGL::activeTexture(uint32_t unit) { glActiveTexture(unit); }
void VELDriverGL::bindTexture(uint32_t target, uint32_t texture) { glBindTexture(target, texture); }
void VELDriverGL::texParameteri(uint32_t target, uint32_t name, int32_t value) {
  glTexParameteri(target, name, value);
}
void VELDriverGL::texImage2D(uint32_t target, uint32_t format, int32_t width, int32_t height,
                             const void* pixels) {
  glTexImage2D(target, 0, static_cast<GLint>(format), width, height, 0, format, GL_UNSIGNED_BYTE, pixels);
}
void VELDriverGL::texSubImage2D(uint32_t target, int32_t x, int32_t y, int32_t width, int32_t height,
                                uint32_t format, const void* pixels) {
  glTexSubImage2D(target, 0, x, y, width, height, format, GL_UNSIGNED_BYTE, pixels);
}
void VELDriverGL::pixelStorei(uint32_t name, int32_t value) { glPixelStorei(name, value); }

// Framebuffers.

uint32_t VELDriverGL::genFramebuffer() {
  GLuint name = 0;
  glGenFramebuffers(1, &name);
  return name;
}
void VELDriverGL::deleteFramebuffer(uint32_t framebuffer) { glDeleteFramebuffers(1, &framebuffer); }
void VELDriverGL::bindFramebuffer(uint32_t target, uint32_t framebuffer) {
  glBindFramebuffer(target, framebuffer);
}
void VELDriverGL::framebufferTexture2D(uint32_t target, uint32_t attachment, uint32_t texTarget,
                                       uint32_t texture) {
  glFramebufferTexture2D(target, attachment, texTarget, texture, 0);
}
void VELDriverGL::framebufferRenderbuffer(uint32_t target, uint32_t attachment, uint32_t renderbuffer) {
  glFramebufferRenderbuffer(target, attachment, GL_RENDERBUFFER, renderbuffer);
}
uint32_t VELDriverGL::checkFramebufferStatus(uint32_t target) { return glCheckFramebufferStatus(target); }
uint32_t VELDriverGL::genRenderbuffer() {
  GLuint name = 0;
  glGenRenderbuffers(1, &name);
  return name;
}
void VELDriverGL::deleteRenderbuffer(uint32_t renderbuffer) { glDeleteRenderbuffers(1, &renderbuffer); }
void VELDriverGL::bindRenderbuffer(uint32_t renderbuffer) {
  glBindRenderbuffer(GL_RENDERBUFFER, renderbuffer);
}
void VELDriverGL::readPixels(int32_t x, int32_t y, int32_t width, int32_t height, void* pixels) {
  glReadPixels(x, y, width, height, GL_RGBA, GL_UNSIGNED_BYTE, pixels);
}

// Multisampling.

bool VELDriverGL::hasMultisampling() { return _blitFramebuffer != nullptr; }
void VELDriverGL::renderbufferStorageMultisample(int32_t samples, uint32_t format, int32_t width,
                                                 int32_t height) {
  if (_renderbufferStorageMultisample)
    _renderbufferStorageMultisample(GL_RENDERBUFFER, samples, format, width, height);
}
void VELDriverGL::blitColor(int32_t width, int32_t height) {
  if (_blitFramebuffer)
    _blitFramebuffer(0, 0, width, height, 0, 0, width, height, GL_COLOR_BUFFER_BIT, GL_NEAREST);
}
void VELDriverGL::invalidateFramebuffer(uint32_t target, uint32_t attachment) {
  if (_invalidateFramebuffer) _invalidateFramebuffer(target, 1, &attachment);
}

// State.

void VELDriverGL::enable(uint32_t capability) { glEnable(capability); }
void VELDriverGL::disable(uint32_t capability) { glDisable(capability); }
void VELDriverGL::blendFuncSeparate(uint32_t sourceColor, uint32_t targetColor, uint32_t sourceAlpha,
                                    uint32_t targetAlpha) {
  glBlendFuncSeparate(sourceColor, targetColor, sourceAlpha, targetAlpha);
}
void VELDriverGL::blendEquation(uint32_t equation) { glBlendEquation(equation); }
void VELDriverGL::colorMask(bool red, bool green, bool blue, bool alpha) {
  const auto flag = [](bool value) -> GLboolean { return value ? GL_TRUE : GL_FALSE; };
  glColorMask(flag(red), flag(green), flag(blue), flag(alpha));
}
void VELDriverGL::resetES3State() {
  if (!_bindVertexArray) return;
  _bindVertexArray(0);
  for (const uint32_t unit : {0u, 1u}) _bindSampler(unit, 0);
  for (const uint32_t slot : {0u, 1u, 2u}) _vertexAttribDivisor(slot, 0);
  for (const uint32_t target : {kPixelPackBuffer, kPixelUnpackBuffer}) glBindBuffer(target, 0);
  for (const uint32_t gap : kRowGaps) glPixelStorei(gap, 0);
  for (const uint32_t capability : {kPrimitiveRestartFixedIndex, kRasterizerDiscard}) glDisable(capability);
}
void VELDriverGL::clearColor(float red, float green, float blue, float alpha) {
  glClearColor(red, green, blue, alpha);
}
void VELDriverGL::clear(uint32_t mask) { glClear(mask); }
void VELDriverGL::viewport(int32_t x, int32_t y, int32_t width, int32_t height) {
  glViewport(x, y, width, height);
}
void VELDriverGL::scissor(int32_t x, int32_t y, int32_t width, int32_t height) {
  glScissor(x, y, width, height);
}
int32_t VELDriverGL::getInteger(uint32_t name) {
  GLint value = 0;
  glGetIntegerv(name, &value);
  return value;
}
std::string VELDriverGL::getString(uint32_t name) {
  const auto* text = reinterpret_cast<const char*>(glGetString(name));
  return text ? text : "";
}
uint32_t VELDriverGL::getError() { return glGetError(); }
void VELDriverGL::finish() { glFinish(); }
