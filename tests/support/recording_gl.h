// support/recording_gl.h: a GL context without a driver that lists every call.
//
// Calls are short strings such as "bindBuffer(ARRAY,1)", those that no test reads without their arguments;
// uploaded bytes lie beside them. Objects are numbered from 1 in each kind and no number comes twice, also
// not after the context was lost: whoever binds, uses or deletes an object that is not there fails the test.
// The stores of buffers are kept, so that a test can read what a draw call would show.
#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "velmora/platform/gl_context.h"

struct RecordedCall {
  std::string text;
  std::vector<std::byte> bytes = {};  ///< of an upload
  std::vector<float> floats = {};     ///< of a matrix
};

/// A number that is listed as the constant which it stands for.
struct Constant {
  uint32_t value;
};
std::ostream& operator<<(std::ostream& out, Constant constant);

class RecordingGL final : public VELGL {
 public:
  std::vector<RecordedCall> calls;
  bool multisampling = false;
  uint32_t framebufferStatus = VELGL_FRAMEBUFFER_COMPLETE;
  int32_t largest = 16384;  ///< pixels a side
  std::string failing;      ///< the function that notes an error when it is called next, once
  int32_t compiles = 1;     ///< what the driver says of every shader and program

  /// Calls whose text starts with @p prefix, in order, with a space between them.
  std::string texts(const std::string& prefix = "") const;
  size_t count(const std::string& prefix) const;
  /// The last call that starts with @p prefix, which must be there.
  const RecordedCall& last(const std::string& prefix) const;
  /// Bytes sent to buffers and textures.
  size_t uploadedBytes() const;
  const std::vector<std::byte>& bufferStore(uint32_t buffer) { return _stores[buffer]; }
  /// Buffers, textures, programs, shaders, framebuffers and renderbuffers that were made and not deleted.
  size_t liveObjects() const { return _live.size(); }
  /// What a lost context does.
  void loseEverything() {
    _live.clear();
    _stores.clear();
    _bound.clear();
  }

  uint32_t genBuffer() override { return gen("Buffer"); }
  void deleteBuffer(uint32_t buffer) override { remove("Buffer", buffer); }
  void bindBuffer(uint32_t target, uint32_t buffer) override {
    add("bindBuffer", Constant{target}, _bound[target] = known("Buffer", buffer));
  }
  void bufferData(uint32_t target, size_t bytes, const void* data, uint32_t usage) override;
  void bufferSubData(uint32_t target, size_t offset, size_t bytes, const void* data) override;
  void enableVertexAttribArray(uint32_t slot) override { add("enableVertexAttribArray", slot); }
  void disableVertexAttribArray(uint32_t slot) override { add("disableVertexAttribArray", slot); }
  void vertexAttribPointer(uint32_t slot, int32_t size, uint32_t type, bool normalized, int32_t stride,
                           size_t offset) override {
    add("vertexAttribPointer", slot, size, Constant{type}, normalized, stride, offset);
  }
  void drawElements(uint32_t mode, int32_t count, uint32_t type, size_t offset) override {
    add("drawElements", Constant{mode}, count, Constant{type}, offset);
  }
  void drawArrays(uint32_t, int32_t, int32_t) override { add("drawArrays"); }
  uint32_t createShader(uint32_t) override { return gen("Shader"); }
  void shaderSource(uint32_t shader, std::string_view source) override {
    add("shaderSource", shader).bytes = copyOf(source.data(), source.size());
  }
  void compileShader(uint32_t shader) override { add("compileShader", shader); }
  int32_t getShader(uint32_t, uint32_t) override { return compiles; }
  std::string getShaderInfoLog(uint32_t, size_t) override { return "the shader is wrong"; }
  void deleteShader(uint32_t shader) override { remove("Shader", shader); }
  uint32_t createProgram() override { return gen("Program"); }
  void attachShader(uint32_t program, uint32_t shader) override { add("attachShader", program, shader); }
  void bindAttribLocation(uint32_t program, uint32_t slot, std::string_view name) override {
    add("bindAttribLocation", program, slot, name);
  }
  void linkProgram(uint32_t program) override { add("linkProgram", program); }
  int32_t getProgram(uint32_t, uint32_t) override { return compiles; }
  std::string getProgramInfoLog(uint32_t, size_t) override { return "the program is wrong"; }
  void deleteProgram(uint32_t program) override { remove("Program", program); }
  void useProgram(uint32_t program) override { add("useProgram", known("Program", program)); }
  int32_t getAttribLocation(uint32_t, std::string_view name) override {
    return name == "Position" ? 0 : name == "SourceColor" ? 1 : 2;
  }
  int32_t getUniformLocation(uint32_t, std::string_view name) override {
    return name == "Projection" ? 7 : 8;
  }
  void uniform1i(int32_t location, int32_t value) override { add("uniform1i", location, value); }
  void uniform4f(int32_t, float, float, float, float) override { add("uniform4f"); }
  void uniformMatrix4fv(int32_t location, std::span<const float, 16> matrix) override {
    add("uniformMatrix4fv", location).floats.assign(matrix.begin(), matrix.end());
  }
  uint32_t genTexture() override { return gen("Texture"); }
  void deleteTexture(uint32_t texture) override { remove("Texture", texture); }
  bool isTexture(uint32_t texture) override { return _live.contains("Texture" + std::to_string(texture)); }
  void activeTexture(uint32_t unit) override { add("activeTexture", Constant{unit}); }
  void bindTexture(uint32_t target, uint32_t texture) override {
    add("bindTexture", Constant{target}, known("Texture", texture));
  }
  void texParameteri(uint32_t target, uint32_t name, int32_t value) override {
    add("texParameteri", Constant{target}, Constant{name}, Constant{static_cast<uint32_t>(value)});
  }
  void texImage2D(uint32_t target, uint32_t format, int32_t width, int32_t height,
                  const void* pixels) override {
    add("texImage2D", Constant{target}, Constant{format}, width, height).bytes =
        copyOf(pixels, pixelBytes(width, height));
  }
  void texSubImage2D(uint32_t target, int32_t x, int32_t y, int32_t width, int32_t height, uint32_t format,
                     const void* pixels) override {
    add("texSubImage2D", Constant{target}, x, y, width, height, Constant{format}).bytes =
        copyOf(pixels, pixelBytes(width, height));
  }
  void pixelStorei(uint32_t, int32_t) override { add("pixelStorei"); }
  uint32_t genFramebuffer() override { return gen("Framebuffer"); }
  void deleteFramebuffer(uint32_t framebuffer) override { remove("Framebuffer", framebuffer); }
  void bindFramebuffer(uint32_t target, uint32_t framebuffer) override {
    add("bindFramebuffer", Constant{target}, known("Framebuffer", framebuffer));
  }
  void framebufferTexture2D(uint32_t, uint32_t, uint32_t, uint32_t texture) override {
    known("Texture", texture);
    add("framebufferTexture2D");
  }
  void framebufferRenderbuffer(uint32_t, uint32_t, uint32_t renderbuffer) override {
    known("Renderbuffer", renderbuffer);
    add("framebufferRenderbuffer");
  }
  uint32_t checkFramebufferStatus(uint32_t) override { return framebufferStatus; }
  uint32_t genRenderbuffer() override { return gen("Renderbuffer"); }
  void deleteRenderbuffer(uint32_t renderbuffer) override { remove("Renderbuffer", renderbuffer); }
  void bindRenderbuffer(uint32_t renderbuffer) override {
    add("bindRenderbuffer", known("Renderbuffer", renderbuffer));
  }
  void readPixels(int32_t, int32_t, int32_t, int32_t, void*) override { add("readPixels"); }
  bool hasMultisampling() override { return multisampling; }
  void renderbufferStorageMultisample(int32_t samples, uint32_t format, int32_t width,
                                      int32_t height) override {
    add("renderbufferStorageMultisample", samples, Constant{format}, width, height);
  }
  void blitColor(int32_t width, int32_t height) override { add("blitColor", width, height); }
  void invalidateFramebuffer(uint32_t target, uint32_t attachment) override {
    add("invalidateFramebuffer", Constant{target}, Constant{attachment});
  }
  void enable(uint32_t capability) override { add("enable", Constant{capability}); }
  void disable(uint32_t capability) override { add("disable", Constant{capability}); }
  void blendFuncSeparate(uint32_t sourceColor, uint32_t targetColor, uint32_t sourceAlpha,
                         uint32_t targetAlpha) override {
    add("blendFuncSeparate", Constant{sourceColor}, Constant{targetColor}, Constant{sourceAlpha},
        Constant{targetAlpha});
  }
  void blendEquation(uint32_t equation) override { add("blendEquation", Constant{equation}); }
  void colorMask(bool red, bool green, bool blue, bool alpha) override {
    add("colorMask", red, green, blue, alpha);
  }
  void resetES3State() override { add("resetES3State"); }
  void clearColor(float red, float green, float blue, float alpha) override {
    add("clearColor", red, green, blue, alpha);
  }
  void clear(uint32_t mask) override { add("clear", Constant{mask}); }
  void viewport(int32_t x, int32_t y, int32_t width, int32_t height) override {
    add("viewport", x, y, width, height);
  }
  void scissor(int32_t x, int32_t y, int32_t width, int32_t height) override {
    add("scissor", x, y, width, height);
  }
  int32_t getInteger(uint32_t) override { return largest; }
  std::string getString(uint32_t) override { return "recorder"; }
  uint32_t error = VELGL_NO_ERROR;  ///< noted by the driver, until it is asked
  uint32_t getError() override { return std::exchange(error, uint32_t{VELGL_NO_ERROR}); }
  void finish() override {}

 private:
  template <typename... Arguments>
  RecordedCall& add(const std::string& function, const Arguments&... arguments) {
    if (function == failing) failing.clear(), error = 0x0505;  // out of memory
    std::ostringstream out;
    const char* before = "(";
    out << function;
    ((out << before << arguments, before = ","), ...);
    out << (*before == '(' ? "()" : ")");
    return calls.emplace_back(RecordedCall{out.str()});
  }
  uint32_t gen(const std::string& kind);
  void remove(const std::string& kind, uint32_t name);
  uint32_t known(const std::string& kind, uint32_t name) const;
  static std::vector<std::byte> copyOf(const void* data, size_t bytes);
  static size_t pixelBytes(int32_t width, int32_t height) {
    return size_t{4} * static_cast<size_t>(width) * static_cast<size_t>(height);
  }

  std::map<std::string, uint32_t> _names;
  std::set<std::string> _live;
  std::map<uint32_t, uint32_t> _bound;
  std::map<uint32_t, std::vector<std::byte>> _stores;
};

class RecordingGLContext final : public VELGLContext {
 public:
  bool refuses = false;      ///< to be made current, and to be replaced
  bool resets = false;       ///< once, when it is asked next
  bool losesUnseen = false;  ///< once, which is learnt where it is made current
  RecordingGL& gl() override { return _gl; }

 protected:
  bool doMakeCurrent() override {
    if (std::exchange(losesUnseen, false)) setLost();
    return !refuses && !isLost();
  }
  bool doCheckLost() override { return std::exchange(resets, false); }
  bool doReplace() override {
    if (!refuses) _gl.loseEverything();
    return !refuses;
  }

 private:
  RecordingGL _gl;
};
