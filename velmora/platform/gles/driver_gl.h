// platform/gles/driver_gl.h: the GL calls, handed to the installed driver.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "velmora/platform/gl.h"

/// Every call goes to the function of the same name of libGLESv2.
class VELDriverGL : public VELGL {
 public:
  using Entry = void (*)();
  using Loader = Entry (*)(const char* name);
  /// Finds what the current context has beyond ES 2.0: multisampling and the state of ES 3, each with all of
  /// its functions or none, and the report of resets.
  void loadBeyondES2(Loader loader);
  /// Whether the driver lost everything since the context was made; false where it cannot tell. The context
  /// must be current.
  bool wasReset();

  uint32_t genBuffer() override;
  void deleteBuffer(uint32_t buffer) override;
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
  std::string getShaderInfoLog(uint32_t shader, size_t limit) override;
  void deleteShader(uint32_t shader) override;
  uint32_t createProgram() override;
  void attachShader(uint32_t program, uint32_t shader) override;
  void bindAttribLocation(uint32_t program, uint32_t slot, std::string_view name) override;
  void linkProgram(uint32_t program) override;
  int32_t getProgram(uint32_t program, uint32_t name) override;
  std::string getProgramInfoLog(uint32_t program, size_t limit) override;
  void deleteProgram(uint32_t program) override;
  void useProgram(uint32_t program) override;
  int32_t getAttribLocation(uint32_t program, std::string_view name) override;
  int32_t getUniformLocation(uint32_t program, std::string_view name) override;
  void uniform1i(int32_t location, int32_t value) override;
  void uniform4f(int32_t location, float x, float y, float z, float w) override;
  void uniformMatrix4fv(int32_t location, std::span<const float, 16> matrix) override;
  uint32_t genTexture() override;
  void deleteTexture(uint32_t texture) override;
  bool isTexture(uint32_t texture) override;
  void activeTexture(uint32_t unit) override;
  void bindTexture(uint32_t target, uint32_t texture) override;
  void texParameteri(uint32_t target, uint32_t name, int32_t value) override;
  void texImage2D(uint32_t target, uint32_t format, int32_t width, int32_t height,
                  const void* pixels) override;
  void texSubImage2D(uint32_t target, int32_t x, int32_t y, int32_t width, int32_t height, uint32_t format,
                     const void* pixels) override;
  void pixelStorei(uint32_t name, int32_t value) override;
  uint32_t genFramebuffer() override;
  void deleteFramebuffer(uint32_t framebuffer) override;
  void bindFramebuffer(uint32_t target, uint32_t framebuffer) override;
  void framebufferTexture2D(uint32_t target, uint32_t attachment, uint32_t texTarget,
                            uint32_t texture) override;
  void framebufferRenderbuffer(uint32_t target, uint32_t attachment, uint32_t renderbuffer) override;
  uint32_t checkFramebufferStatus(uint32_t target) override;
  uint32_t genRenderbuffer() override;
  void deleteRenderbuffer(uint32_t renderbuffer) override;
  void bindRenderbuffer(uint32_t renderbuffer) override;
  void readPixels(int32_t x, int32_t y, int32_t width, int32_t height, void* pixels) override;
  bool hasMultisampling() override;
  void renderbufferStorageMultisample(int32_t samples, uint32_t format, int32_t width,
                                      int32_t height) override;
  void blitColor(int32_t width, int32_t height) override;
  void invalidateFramebuffer(uint32_t target, uint32_t attachment) override;
  void enable(uint32_t capability) override;
  void disable(uint32_t capability) override;
  void blendFuncSeparate(uint32_t sourceColor, uint32_t targetColor, uint32_t sourceAlpha,
                         uint32_t targetAlpha) override;
  void blendEquation(uint32_t equation) override;
  void colorMask(bool red, bool green, bool blue, bool alpha) override;
  void resetES3State() override;
  void clearColor(float red, float green, float blue, float alpha) override;
  void clear(uint32_t mask) override;
  void viewport(int32_t x, int32_t y, int32_t width, int32_t height) override;
  void scissor(int32_t x, int32_t y, int32_t width, int32_t height) override;
  int32_t getInteger(uint32_t name) override;
  std::string getString(uint32_t name) override;
  uint32_t getError() override;
  void finish() override;

 private:
  // The C functions as the driver hands them out.
  using RenderbufferStorageMultisample = void (*)(uint32_t target, int32_t samples, uint32_t format,
                                                  int32_t width, int32_t height);
  using BlitFramebuffer = void (*)(int32_t, int32_t, int32_t, int32_t, int32_t, int32_t, int32_t, int32_t,
                                   uint32_t mask, uint32_t filter);
  using InvalidateFramebuffer = void (*)(uint32_t target, int32_t count, const uint32_t* attachments);
  using BindVertexArray = void (*)(uint32_t name);
  using BindSampler = void (*)(uint32_t unit, uint32_t name);
  using VertexAttribDivisor = void (*)(uint32_t slot, uint32_t divisor);
  using GetGraphicsResetStatus = uint32_t (*)();

  void loadMultisampling(Loader loader);
  void loadES3State(Loader loader);
  void loadResetStatus(Loader loader, int32_t version);

  RenderbufferStorageMultisample _renderbufferStorageMultisample = nullptr;
  BlitFramebuffer _blitFramebuffer = nullptr;
  InvalidateFramebuffer _invalidateFramebuffer = nullptr;
  BindVertexArray _bindVertexArray = nullptr;
  BindSampler _bindSampler = nullptr;
  VertexAttribDivisor _vertexAttribDivisor = nullptr;
  GetGraphicsResetStatus _getGraphicsResetStatus = nullptr;
};
