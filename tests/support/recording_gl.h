// support/recording_gl.h: a GL context without a driver that lists every call.
//
// Calls are short strings such as "bindBuffer(ARRAY,1)"; uploaded bytes lie beside them. Objects are numbered
// from 1 in each kind. The stores of buffers are kept, so that a test can read what a draw call would show.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "velmora/platform/gl_context.h"

using CallTexts = std::vector<std::string>;

struct RecordedCall {
  std::string text;
  std::vector<std::byte> bytes;  ///< of an upload
  std::vector<float> floats;     ///< of a matrix
};

class RecordingGL final : public VELGL {
 public:
  std::vector<RecordedCall> calls;
  bool multisampling = false;
  uint32_t framebufferStatus = VELGL_FRAMEBUFFER_COMPLETE;
  int32_t compiles = 1;  ///< what the driver says of every shader and program

  CallTexts texts() const;
  /// Calls whose text starts with @p prefix, in order.
  CallTexts texts(const std::string& prefix) const;
  size_t count(const std::string& prefix) const { return texts(prefix).size(); }
  /// The last call that starts with @p prefix, which must be there.
  const RecordedCall& last(const std::string& prefix) const;
  /// Bytes sent to buffers and textures.
  size_t uploadedBytes() const;
  const std::vector<std::byte>& bufferStore(uint32_t buffer) { return _stores[buffer]; }
  /// Buffers, textures, programs, shaders, framebuffers and renderbuffers that were made and not deleted.
  size_t liveObjects() const { return _live.size(); }

  uint32_t genBuffer() override { return gen("Buffer"); }
  void deleteBuffer(uint32_t buffer) override { remove("Buffer", buffer); }
  void bindBuffer(uint32_t target, uint32_t buffer) override;
  void bufferData(uint32_t target, size_t bytes, const void* data, uint32_t usage) override;
  void bufferSubData(uint32_t target, size_t offset, size_t bytes, const void* data) override;
  void enableVertexAttribArray(uint32_t slot) override;
  void disableVertexAttribArray(uint32_t slot) override;
  void vertexAttribPointer(uint32_t slot, int32_t size, uint32_t type, bool normalized, int32_t stride,
                           size_t offset) override;
  void drawElements(uint32_t mode, int32_t count, uint32_t type, size_t offset) override;
  void drawArrays(uint32_t mode, int32_t first, int32_t count) override;
  uint32_t createShader(uint32_t type) override;
  void shaderSource(uint32_t shader, std::string_view source) override;
  void compileShader(uint32_t shader) override;
  int32_t getShader(uint32_t shader, uint32_t name) override;
  std::string getShaderInfoLog(uint32_t, size_t) override { return "the shader is wrong"; }
  void deleteShader(uint32_t shader) override { remove("Shader", shader); }
  uint32_t createProgram() override { return gen("Program"); }
  void attachShader(uint32_t program, uint32_t shader) override;
  void bindAttribLocation(uint32_t program, uint32_t slot, std::string_view name) override;
  void linkProgram(uint32_t program) override;
  int32_t getProgram(uint32_t program, uint32_t name) override;
  std::string getProgramInfoLog(uint32_t, size_t) override { return "the program is wrong"; }
  void deleteProgram(uint32_t program) override { remove("Program", program); }
  void useProgram(uint32_t program) override;
  int32_t getAttribLocation(uint32_t program, std::string_view name) override;
  int32_t getUniformLocation(uint32_t program, std::string_view name) override;
  void uniform1i(int32_t location, int32_t value) override;
  void uniform4f(int32_t location, float x, float y, float z, float w) override;
  void uniformMatrix4fv(int32_t location, std::span<const float, 16> matrix) override;
  uint32_t genTexture() override { return gen("Texture"); }
  void deleteTexture(uint32_t texture) override { remove("Texture", texture); }
  bool isTexture(uint32_t texture) override { return _live.contains("Texture" + std::to_string(texture)); }
  void activeTexture(uint32_t unit) override;
  void bindTexture(uint32_t target, uint32_t texture) override;
  void texParameteri(uint32_t target, uint32_t name, int32_t value) override;
  void texImage2D(uint32_t target, uint32_t format, int32_t width, int32_t height,
                  const void* pixels) override;
  void texSubImage2D(uint32_t target, int32_t x, int32_t y, int32_t width, int32_t height, uint32_t format,
                     const void* pixels) override;
  void pixelStorei(uint32_t name, int32_t value) override;
  uint32_t genFramebuffer() override { return gen("Framebuffer"); }
  void deleteFramebuffer(uint32_t framebuffer) override { remove("Framebuffer", framebuffer); }
  void bindFramebuffer(uint32_t target, uint32_t framebuffer) override;
  void framebufferTexture2D(uint32_t target, uint32_t attachment, uint32_t texTarget,
                            uint32_t texture) override;
  void framebufferRenderbuffer(uint32_t target, uint32_t attachment, uint32_t renderbuffer) override;
  uint32_t checkFramebufferStatus(uint32_t) override { return framebufferStatus; }
  uint32_t genRenderbuffer() override { return gen("Renderbuffer"); }
  void deleteRenderbuffer(uint32_t renderbuffer) override { remove("Renderbuffer", renderbuffer); }
  void bindRenderbuffer(uint32_t renderbuffer) override;
  void readPixels(int32_t x, int32_t y, int32_t width, int32_t height, void* pixels) override;
  bool hasMultisampling() override { return multisampling; }
  void renderbufferStorageMultisample(int32_t samples, uint32_t format, int32_t width,
                                      int32_t height) override;
  void blitColor(int32_t width, int32_t height) override;
  void invalidateFramebuffer(uint32_t target, uint32_t attachment) override;
  void enable(uint32_t capability) override;
  void disable(uint32_t capability) override;
  void blendFuncSeparate(uint32_t sourceColor, uint32_t targetColor, uint32_t sourceAlpha,
                         uint32_t targetAlpha) override;
  void clearColor(float red, float green, float blue, float alpha) override;
  void clear(uint32_t mask) override;
  void viewport(int32_t x, int32_t y, int32_t width, int32_t height) override;
  void scissor(int32_t x, int32_t y, int32_t width, int32_t height) override;
  int32_t getInteger(uint32_t) override { return 16384; }
  std::string getString(uint32_t) override { return "recorder"; }
  uint32_t getError() override { return VELGL_NO_ERROR; }
  void finish() override {}

 private:
  RecordedCall& add(std::string text);
  uint32_t gen(const std::string& kind);
  void remove(const std::string& kind, uint32_t name);

  std::map<std::string, uint32_t> _names;
  std::set<std::string> _live;
  std::map<uint32_t, uint32_t> _bound;
  std::map<uint32_t, std::vector<std::byte>> _stores;
};

class RecordingGLContext final : public VELGLContext {
 public:
  bool refuses = false;  ///< to be made current
  RecordingGL& gl() override { return _gl; }

 protected:
  bool doMakeCurrent() override { return !refuses; }

 private:
  RecordingGL _gl;
};
