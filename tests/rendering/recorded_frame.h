// rendering/recorded_frame.h: a render context on a recording GL, and what its replay would draw.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstring>
#include <functional>
#include <memory>
#include <numeric>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/recording_gl.h"
#include "velmora/data/array_controller.h"
#include "velmora/rendering/linear_gradient_pen.h"
#include "velmora/rendering/opengl_context_controller.h"
#include "velmora/rendering/opengl_render_context.h"

/// One draw call: its buffer, its indices and the vertices that they name.
struct DrawnStrip {
  std::string target;  ///< buffer and first index, such as "1@8"
  std::vector<uint16_t> indices;
  std::vector<VELVertex> vertices;  ///< one for each index
};

/// A recording GL context that is registered and current as long as this lives.
struct RegisteredGL {
  std::shared_ptr<RecordingGLContext> context = std::make_shared<RecordingGLContext>();

  RegisteredGL() {
    VELOpenGLContextController::o_createContext(context);
    VELOpenGLContextController::o_enableContext(context);
  }
  RegisteredGL(const RegisteredGL&) = delete;
  RegisteredGL& operator=(const RegisteredGL&) = delete;
  ~RegisteredGL() { VELOpenGLContextController::o_freeContext(context); }
  RecordingGL& gl() { return context->gl(); }
};

template <typename T>
std::vector<T> elementsOf(const std::vector<std::byte>& bytes) {
  std::vector<T> elements(bytes.size() / sizeof(T));
  std::memcpy(elements.data(), bytes.data(), elements.size() * sizeof(T));
  return elements;
}

/// Reads the draw calls since the start of the record from the stores of the recorded buffers.
inline std::vector<DrawnStrip> drawnStrips(RecordingGL& gl) {
  std::vector<DrawnStrip> strips;
  uint32_t array = 0, element = 0;
  for (const RecordedCall& call : gl.calls) {
    uint32_t count = 0, offset = 0;
    std::sscanf(call.text.c_str(), "bindBuffer(ARRAY,%u)", &array);
    std::sscanf(call.text.c_str(), "bindBuffer(ELEMENT,%u)", &element);
    if (std::sscanf(call.text.c_str(), "drawElements(STRIP,%u,SHORT,%u)", &count, &offset) != 2) continue;
    DrawnStrip strip{std::to_string(array) + "@" + std::to_string(offset / 2), {}, {}};
    const auto indices = elementsOf<uint16_t>(gl.bufferStore(element));
    const auto vertices = elementsOf<VELVertex>(gl.bufferStore(array));
    for (uint32_t i = offset / 2; i < offset / 2 + count; ++i) {
      strip.indices.push_back(indices.at(i));
      strip.vertices.push_back(vertices.at(indices.at(i)));
    }
    strips.push_back(std::move(strip));
  }
  return strips;
}

/// Forgets the record and replays.
inline std::vector<DrawnStrip> replay(VELOpenGLRenderContext& context, RecordingGL& gl) {
  gl.calls.clear();
  context.performDrawingCommands();
  return drawnStrips(gl);
}

/// Does as told while its context replays.
struct CallingBrush final : VELLinearGradient<VELBrush2D> {
  explicit CallingBrush(std::function<void()> told)
      : VELLinearGradient(std::vector<uint32_t>(256), VELGradientDirection_Vertical), call(std::move(told)) {}
  std::function<void()> call;
  VELBrushPtr clone() const override { return std::make_shared<CallingBrush>(call); }
  void apply(VELShaderAttributes&) const override { call(); }
};

using Places = std::vector<std::pair<float, float>>;
inline Places placesOf(const DrawnStrip& strip) {
  Places places;
  for (const VELVertex& vertex : strip.vertices) places.emplace_back(vertex.x, vertex.y);
  return places;
}

/// Numbers of a range, for what must be consecutive.
inline std::vector<uint16_t> consecutive(uint16_t from, size_t count) {
  std::vector<uint16_t> numbers(count);
  std::iota(numbers.begin(), numbers.end(), from);
  return numbers;
}

inline std::shared_ptr<VELArrayController> doubles(std::span<const double> values) {
  auto column = VELArrayController::initWithType(VELDataType_Double);
  column->appendRange(values);
  return column;
}

/// A gradient pen that names the column x + 1 of its row at every whole x above 0.
inline VELPenPtr columnGradient(uint32_t code) {
  auto pen = std::make_shared<VELPenLinearGradient>(std::vector<uint32_t>(256, code),
                                                    VELGradientDirection_Horizontal, 1.0f);
  pen->setDrawingAreaX(0, 0, 65535, 1);
  return pen;
}
