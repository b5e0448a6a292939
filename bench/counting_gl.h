// bench/counting_gl.h: the driver's GL with a count of the calls, the bytes sent and the time that sending
// took.
#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <utility>

#include "velmora/platform/gl_context.h"
#include "velmora/platform/host.h"

/// Hands every call on. Counts start again with `reset`.
class CountingGL final : public VELGL {
 public:
  using Clock = std::chrono::steady_clock;

  explicit CountingGL(VELGL& inner) : _inner(&inner) {}
  void reset() {
    calls = drawCalls = 0;
    uploadedBytes = 0;
    uploadSeconds = 0.0;
    firstClear = {};
  }

  int64_t calls = 0;
  int64_t drawCalls = 0;
  size_t uploadedBytes = 0;      ///< into buffers and textures
  double uploadSeconds = 0.0;    ///< inside those calls
  Clock::time_point firstClear;  ///< when the first frame since `reset` began in GL

  uint32_t genBuffer() override {
    called();
    return _inner->genBuffer();
  }
  void deleteBuffer(uint32_t buffer) override {
    called();
    _inner->deleteBuffer(buffer);
  }
  void bindBuffer(uint32_t target, uint32_t buffer) override {
    called();
    _inner->bindBuffer(target, buffer);
  }
  void bufferData(uint32_t target, size_t bytes, const void* data, uint32_t usage) override {
    const Upload upload(*this, data ? bytes : 0);
    _inner->bufferData(target, bytes, data, usage);
  }
  void bufferSubData(uint32_t target, size_t offset, size_t bytes, const void* data) override {
    const Upload upload(*this, data ? bytes : 0);
    _inner->bufferSubData(target, offset, bytes, data);
  }
  void enableVertexAttribArray(uint32_t slot) override {
    called();
    _inner->enableVertexAttribArray(slot);
  }
  void disableVertexAttribArray(uint32_t slot) override {
    called();
    _inner->disableVertexAttribArray(slot);
  }
  void vertexAttribPointer(uint32_t slot, int32_t size, uint32_t type, bool normalized, int32_t stride,
                           size_t offset) override {
    called();
    _inner->vertexAttribPointer(slot, size, type, normalized, stride, offset);
  }
  void drawElements(uint32_t mode, int32_t count, uint32_t type, size_t offset) override {
    called();
    ++drawCalls;
    _inner->drawElements(mode, count, type, offset);
  }
  void drawArrays(uint32_t mode, int32_t first, int32_t count) override {
    called();
    _inner->drawArrays(mode, first, count);
  }
  uint32_t createShader(uint32_t type) override {
    called();
    return _inner->createShader(type);
  }
  void shaderSource(uint32_t shader, std::string_view source) override {
    called();
    _inner->shaderSource(shader, source);
  }
  void compileShader(uint32_t shader) override {
    called();
    _inner->compileShader(shader);
  }
  int32_t getShader(uint32_t shader, uint32_t name) override {
    called();
    return _inner->getShader(shader, name);
  }
  std::string getShaderInfoLog(uint32_t shader, size_t limit) override {
    called();
    return _inner->getShaderInfoLog(shader, limit);
  }
  void deleteShader(uint32_t shader) override {
    called();
    _inner->deleteShader(shader);
  }
  uint32_t createProgram() override {
    called();
    return _inner->createProgram();
  }
  void attachShader(uint32_t program, uint32_t shader) override {
    called();
    _inner->attachShader(program, shader);
  }
  void bindAttribLocation(uint32_t program, uint32_t slot, std::string_view name) override {
    called();
    _inner->bindAttribLocation(program, slot, name);
  }
  void linkProgram(uint32_t program) override {
    called();
    _inner->linkProgram(program);
  }
  int32_t getProgram(uint32_t program, uint32_t name) override {
    called();
    return _inner->getProgram(program, name);
  }
  std::string getProgramInfoLog(uint32_t program, size_t limit) override {
    called();
    return _inner->getProgramInfoLog(program, limit);
  }
  void deleteProgram(uint32_t program) override {
    called();
    _inner->deleteProgram(program);
  }
  void useProgram(uint32_t program) override {
    called();
    _inner->useProgram(program);
  }
  int32_t getAttribLocation(uint32_t program, std::string_view name) override {
    called();
    return _inner->getAttribLocation(program, name);
  }
  int32_t getUniformLocation(uint32_t program, std::string_view name) override {
    called();
    return _inner->getUniformLocation(program, name);
  }
  void uniform1i(int32_t location, int32_t value) override {
    called();
    _inner->uniform1i(location, value);
  }
  void uniform4f(int32_t location, float x, float y, float z, float w) override {
    called();
    _inner->uniform4f(location, x, y, z, w);
  }
  void uniformMatrix4fv(int32_t location, std::span<const float, 16> matrix) override {
    called();
    _inner->uniformMatrix4fv(location, matrix);
  }
  uint32_t genTexture() override {
    called();
    return _inner->genTexture();
  }
  void deleteTexture(uint32_t texture) override {
    called();
    _inner->deleteTexture(texture);
  }
  bool isTexture(uint32_t texture) override {
    called();
    return _inner->isTexture(texture);
  }
  void activeTexture(uint32_t unit) override {
    called();
    _inner->activeTexture(unit);
  }
  void bindTexture(uint32_t target, uint32_t texture) override {
    called();
    _inner->bindTexture(target, texture);
  }
  void texParameteri(uint32_t target, uint32_t name, int32_t value) override {
    called();
    _inner->texParameteri(target, name, value);
  }
  void texImage2D(uint32_t target, uint32_t format, int32_t width, int32_t height,
                  const void* pixels) override {
    const Upload upload(*this, pixels ? pixelBytes(format, width, height) : 0);
    _inner->texImage2D(target, format, width, height, pixels);
  }
  void texSubImage2D(uint32_t target, int32_t x, int32_t y, int32_t width, int32_t height, uint32_t format,
                     const void* pixels) override {
    const Upload upload(*this, pixels ? pixelBytes(format, width, height) : 0);
    _inner->texSubImage2D(target, x, y, width, height, format, pixels);
  }
  void pixelStorei(uint32_t name, int32_t value) override {
    called();
    _inner->pixelStorei(name, value);
  }
  uint32_t genFramebuffer() override {
    called();
    return _inner->genFramebuffer();
  }
  void deleteFramebuffer(uint32_t framebuffer) override {
    called();
    _inner->deleteFramebuffer(framebuffer);
  }
  void bindFramebuffer(uint32_t target, uint32_t framebuffer) override {
    called();
    _inner->bindFramebuffer(target, framebuffer);
  }
  void framebufferTexture2D(uint32_t target, uint32_t attachment, uint32_t texTarget,
                            uint32_t texture) override {
    called();
    _inner->framebufferTexture2D(target, attachment, texTarget, texture);
  }
  void framebufferRenderbuffer(uint32_t target, uint32_t attachment, uint32_t renderbuffer) override {
    called();
    _inner->framebufferRenderbuffer(target, attachment, renderbuffer);
  }
  uint32_t checkFramebufferStatus(uint32_t target) override {
    called();
    return _inner->checkFramebufferStatus(target);
  }
  uint32_t genRenderbuffer() override {
    called();
    return _inner->genRenderbuffer();
  }
  void deleteRenderbuffer(uint32_t renderbuffer) override {
    called();
    _inner->deleteRenderbuffer(renderbuffer);
  }
  void bindRenderbuffer(uint32_t renderbuffer) override {
    called();
    _inner->bindRenderbuffer(renderbuffer);
  }
  void readPixels(int32_t x, int32_t y, int32_t width, int32_t height, void* pixels) override {
    called();
    _inner->readPixels(x, y, width, height, pixels);
  }
  bool hasMultisampling() override {
    called();
    return _inner->hasMultisampling();
  }
  void renderbufferStorageMultisample(int32_t samples, uint32_t format, int32_t width,
                                      int32_t height) override {
    called();
    _inner->renderbufferStorageMultisample(samples, format, width, height);
  }
  void blitColor(int32_t width, int32_t height) override {
    called();
    _inner->blitColor(width, height);
  }
  void invalidateFramebuffer(uint32_t target, uint32_t attachment) override {
    called();
    _inner->invalidateFramebuffer(target, attachment);
  }
  void enable(uint32_t capability) override {
    called();
    _inner->enable(capability);
  }
  void disable(uint32_t capability) override {
    called();
    _inner->disable(capability);
  }
  void blendFuncSeparate(uint32_t sourceColor, uint32_t targetColor, uint32_t sourceAlpha,
                         uint32_t targetAlpha) override {
    called();
    _inner->blendFuncSeparate(sourceColor, targetColor, sourceAlpha, targetAlpha);
  }
  void blendEquation(uint32_t equation) override {
    called();
    _inner->blendEquation(equation);
  }
  void colorMask(bool red, bool green, bool blue, bool alpha) override {
    called();
    _inner->colorMask(red, green, blue, alpha);
  }
  void resetES3State() override {
    called();
    _inner->resetES3State();
  }
  void clearColor(float red, float green, float blue, float alpha) override {
    called();
    _inner->clearColor(red, green, blue, alpha);
  }
  void clear(uint32_t mask) override {
    called();
    firstClear = firstClear == Clock::time_point() ? Clock::now() : firstClear;
    _inner->clear(mask);
  }
  void viewport(int32_t x, int32_t y, int32_t width, int32_t height) override {
    called();
    _inner->viewport(x, y, width, height);
  }
  void scissor(int32_t x, int32_t y, int32_t width, int32_t height) override {
    called();
    _inner->scissor(x, y, width, height);
  }
  int32_t getInteger(uint32_t name) override {
    called();
    return _inner->getInteger(name);
  }
  std::string getString(uint32_t name) override {
    called();
    return _inner->getString(name);
  }
  uint32_t getError() override {
    called();
    return _inner->getError();
  }
  void finish() override {
    called();
    _inner->finish();
  }

 private:
  // Counts and times one upload.
  class Upload {
   public:
    Upload(CountingGL& gl, size_t bytes) : _gl(gl), _start(Clock::now()) {
      _gl.called();
      _gl.uploadedBytes += bytes;
    }
    Upload(const Upload&) = delete;
    Upload& operator=(const Upload&) = delete;
    ~Upload() { _gl.uploadSeconds += std::chrono::duration<double>(Clock::now() - _start).count(); }

   private:
    CountingGL& _gl;
    Clock::time_point _start;
  };

  void called() { ++calls; }
  static size_t pixelBytes(uint32_t format, int32_t width, int32_t height) {
    return static_cast<size_t>(width) * static_cast<size_t>(height) * (format == VELGL_ALPHA ? 1 : 4);
  }

  VELGL* _inner;
};

/// A GL context of the machine whose calls are counted.
class CountingGLContext final : public VELGLContext {
 public:
  explicit CountingGLContext(std::shared_ptr<VELGLContext> inner)
      : _inner(std::move(inner)), _gl(_inner->gl()) {}
  CountingGL& gl() override { return _gl; }

 protected:
  bool doMakeCurrent() override { return _inner->makeCurrent(); }
  bool doReplace() override { return false; }

 private:
  std::shared_ptr<VELGLContext> _inner;
  CountingGL _gl;
};

/// The least host: a counted GL context, a beat and a root view, no screen.
class CountingHost final : public VELHost {
 public:
  explicit CountingHost(std::shared_ptr<VELGLContext> inner)
      : _counting(std::make_shared<CountingGLContext>(std::move(inner))), _context(_counting) {}

  const std::shared_ptr<VELGLContext>& glContext() const override { return _context; }
  const std::shared_ptr<VELDisplayLink>& displayLink() const override { return _displayLink; }
  double contentScale() const override { return 1.0; }
  const std::shared_ptr<VELView>& rootView() const override { return _rootView; }

  CountingGL& gl() { return _counting->gl(); }
  void tick(double seconds) {
    _rootView->layoutIfNeeded();
    _displayLink->tick(seconds);
    _rootView->layoutIfNeeded();
  }

 private:
  std::shared_ptr<CountingGLContext> _counting;
  std::shared_ptr<VELGLContext> _context;
  std::shared_ptr<VELDisplayLink> _displayLink = std::make_shared<VELDisplayLink>();
  std::shared_ptr<VELView> _rootView = std::make_shared<VELView>();
};
