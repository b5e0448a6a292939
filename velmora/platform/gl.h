// platform/gl.h: OpenGL ES 2.0 as the rest of the library sees it.
//
// An interface instead of the driver's header, so that tests record the calls without a driver and so that
// no GL name leaks into the floors above. Constants have the values of the standard.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "velmora/platform/export.h"

enum VELGLConstant : uint32_t {
  VELGL_NO_ERROR = 0,
  VELGL_TRIANGLES = 0x0004,
  VELGL_TRIANGLE_STRIP = 0x0005,
  VELGL_TRIANGLE_FAN = 0x0006,
  VELGL_LINES = 0x0001,
  VELGL_LINE_LOOP = 0x0002,
  VELGL_LINE_STRIP = 0x0003,
  VELGL_ZERO = 0,
  VELGL_ONE = 1,
  VELGL_SRC_ALPHA = 0x0302,
  VELGL_ONE_MINUS_SRC_ALPHA = 0x0303,
  VELGL_ONE_MINUS_DST_ALPHA = 0x0305,
  VELGL_CULL_FACE = 0x0B44,
  VELGL_DEPTH_TEST = 0x0B71,
  VELGL_STENCIL_TEST = 0x0B90,
  VELGL_DITHER = 0x0BD0,
  VELGL_BLEND = 0x0BE2,
  VELGL_SCISSOR_TEST = 0x0C11,
  VELGL_UNPACK_ALIGNMENT = 0x0CF5,
  VELGL_PACK_ALIGNMENT = 0x0D05,
  VELGL_MAX_TEXTURE_SIZE = 0x0D33,
  VELGL_MAX_RENDERBUFFER_SIZE = 0x84E8,
  VELGL_TEXTURE_2D = 0x0DE1,
  VELGL_UNSIGNED_BYTE = 0x1401,
  VELGL_UNSIGNED_SHORT = 0x1403,
  VELGL_FLOAT = 0x1406,
  VELGL_ALPHA = 0x1906,
  VELGL_RGBA = 0x1908,
  VELGL_VENDOR = 0x1F00,
  VELGL_RENDERER = 0x1F01,
  VELGL_VERSION = 0x1F02,
  VELGL_EXTENSIONS = 0x1F03,
  VELGL_NEAREST = 0x2600,
  VELGL_LINEAR = 0x2601,
  VELGL_TEXTURE_MAG_FILTER = 0x2800,
  VELGL_TEXTURE_MIN_FILTER = 0x2801,
  VELGL_TEXTURE_WRAP_S = 0x2802,
  VELGL_TEXTURE_WRAP_T = 0x2803,
  VELGL_COLOR_BUFFER_BIT = 0x4000,
  VELGL_FUNC_ADD = 0x8006,
  VELGL_RGBA8 = 0x8058,
  VELGL_SAMPLE_ALPHA_TO_COVERAGE = 0x809E,
  VELGL_SAMPLE_COVERAGE = 0x80A0,
  VELGL_CLAMP_TO_EDGE = 0x812F,
  VELGL_TEXTURE0 = 0x84C0,
  VELGL_TEXTURE1 = 0x84C1,
  VELGL_ARRAY_BUFFER = 0x8892,
  VELGL_ELEMENT_ARRAY_BUFFER = 0x8893,
  VELGL_STREAM_DRAW = 0x88E0,
  VELGL_STATIC_DRAW = 0x88E4,
  VELGL_DYNAMIC_DRAW = 0x88E8,
  VELGL_FRAGMENT_SHADER = 0x8B30,
  VELGL_VERTEX_SHADER = 0x8B31,
  VELGL_COMPILE_STATUS = 0x8B81,
  VELGL_LINK_STATUS = 0x8B82,
  VELGL_READ_FRAMEBUFFER = 0x8CA8,
  VELGL_DRAW_FRAMEBUFFER = 0x8CA9,
  VELGL_FRAMEBUFFER_COMPLETE = 0x8CD5,
  VELGL_COLOR_ATTACHMENT0 = 0x8CE0,
  VELGL_FRAMEBUFFER = 0x8D40,
  VELGL_RENDERBUFFER = 0x8D41,
};

/// The GL calls of one context, which must be current while they are made. Arguments are those of the
/// functions of the same names. No call raises.
class VELMORA_API VELGL {
 public:
  virtual ~VELGL() = default;

  // Buffers.
  virtual uint32_t genBuffer() = 0;
  virtual void deleteBuffer(uint32_t buffer) = 0;
  virtual void bindBuffer(uint32_t target, uint32_t buffer) = 0;
  /// @param data null leaves the store undefined
  virtual void bufferData(uint32_t target, size_t bytes, const void* data, uint32_t usage) = 0;
  virtual void bufferSubData(uint32_t target, size_t offset, size_t bytes, const void* data) = 0;
  virtual void enableVertexAttribArray(uint32_t slot) = 0;
  virtual void disableVertexAttribArray(uint32_t slot) = 0;
  virtual void vertexAttribPointer(uint32_t slot, int32_t size, uint32_t type, bool normalized,
                                   int32_t stride, size_t offset) = 0;
  virtual void drawElements(uint32_t mode, int32_t count, uint32_t type, size_t offset) = 0;
  virtual void drawArrays(uint32_t mode, int32_t first, int32_t count) = 0;

  // Programs.
  virtual uint32_t createShader(uint32_t type) = 0;
  virtual void shaderSource(uint32_t shader, std::string_view source) = 0;
  virtual void compileShader(uint32_t shader) = 0;
  virtual int32_t getShader(uint32_t shader, uint32_t name) = 0;
  /// At most @p limit bytes.
  virtual std::string getShaderInfoLog(uint32_t shader, size_t limit) = 0;
  virtual void deleteShader(uint32_t shader) = 0;
  virtual uint32_t createProgram() = 0;
  virtual void attachShader(uint32_t program, uint32_t shader) = 0;
  virtual void bindAttribLocation(uint32_t program, uint32_t slot, std::string_view name) = 0;
  virtual void linkProgram(uint32_t program) = 0;
  virtual int32_t getProgram(uint32_t program, uint32_t name) = 0;
  virtual std::string getProgramInfoLog(uint32_t program, size_t limit) = 0;
  virtual void deleteProgram(uint32_t program) = 0;
  virtual void useProgram(uint32_t program) = 0;
  virtual int32_t getAttribLocation(uint32_t program, std::string_view name) = 0;
  virtual int32_t getUniformLocation(uint32_t program, std::string_view name) = 0;
  virtual void uniform1i(int32_t location, int32_t value) = 0;
  virtual void uniform4f(int32_t location, float x, float y, float z, float w) = 0;
  /// One column-major matrix, not transposed.
  virtual void uniformMatrix4fv(int32_t location, std::span<const float, 16> matrix) = 0;

  // Textures.
  virtual uint32_t genTexture() = 0;
  virtual void deleteTexture(uint32_t texture) = 0;
  virtual bool isTexture(uint32_t texture) = 0;
  virtual void activeTexture(uint32_t unit) = 0;
  virtual void bindTexture(uint32_t target, uint32_t texture) = 0;
  virtual void texParameteri(uint32_t target, uint32_t name, int32_t value) = 0;
  /// Level 0, no border, unsigned bytes. @param pixels null leaves them undefined
  virtual void texImage2D(uint32_t target, uint32_t format, int32_t width, int32_t height,
                          const void* pixels) = 0;
  virtual void texSubImage2D(uint32_t target, int32_t x, int32_t y, int32_t width, int32_t height,
                             uint32_t format, const void* pixels) = 0;
  virtual void pixelStorei(uint32_t name, int32_t value) = 0;

  // Framebuffers.
  virtual uint32_t genFramebuffer() = 0;
  virtual void deleteFramebuffer(uint32_t framebuffer) = 0;
  virtual void bindFramebuffer(uint32_t target, uint32_t framebuffer) = 0;
  virtual void framebufferTexture2D(uint32_t target, uint32_t attachment, uint32_t texTarget,
                                    uint32_t texture) = 0;
  virtual void framebufferRenderbuffer(uint32_t target, uint32_t attachment, uint32_t renderbuffer) = 0;
  virtual uint32_t checkFramebufferStatus(uint32_t target) = 0;
  virtual uint32_t genRenderbuffer() = 0;
  virtual void deleteRenderbuffer(uint32_t renderbuffer) = 0;
  virtual void bindRenderbuffer(uint32_t renderbuffer) = 0;
  /// RGBA bytes of the rectangle, rows bottom up, tightly packed; 4 × width × height bytes.
  virtual void readPixels(int32_t x, int32_t y, int32_t width, int32_t height, void* pixels) = 0;

  // Multisampling, by the ES 3 entry points. The three calls below it need `hasMultisampling()`.
  virtual bool hasMultisampling() = 0;
  virtual void renderbufferStorageMultisample(int32_t samples, uint32_t format, int32_t width,
                                              int32_t height) = 0;
  /// Whole colour buffer of the read framebuffer to the same rectangle of the draw framebuffer.
  virtual void blitColor(int32_t width, int32_t height) = 0;
  virtual void invalidateFramebuffer(uint32_t target, uint32_t attachment) = 0;

  // State.
  virtual void enable(uint32_t capability) = 0;
  virtual void disable(uint32_t capability) = 0;
  virtual void blendFuncSeparate(uint32_t sourceColor, uint32_t targetColor, uint32_t sourceAlpha,
                                 uint32_t targetAlpha) = 0;
  virtual void blendEquation(uint32_t equation) = 0;
  virtual void colorMask(bool red, bool green, bool blue, bool alpha) = 0;
  /// What ES 3 can leave behind to change the meaning of the calls of ES 2: no vertex array object, no
  /// sampler on the units 0 and 1, no pixel buffer, rows without gaps, no instancing on the slots 0 to 2, no
  /// restart index, nothing discarded. Does nothing on ES 2.
  virtual void resetES3State() = 0;
  virtual void clearColor(float red, float green, float blue, float alpha) = 0;
  virtual void clear(uint32_t mask) = 0;
  virtual void viewport(int32_t x, int32_t y, int32_t width, int32_t height) = 0;
  virtual void scissor(int32_t x, int32_t y, int32_t width, int32_t height) = 0;
  virtual int32_t getInteger(uint32_t name) = 0;
  virtual std::string getString(uint32_t name) = 0;
  virtual uint32_t getError() = 0;
  virtual void finish() = 0;
};
