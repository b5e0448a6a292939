// Shapes to triangles without GL: vertices per second into the drawing buffers, each kind of shape against a
// plain loop that writes the same bytes to the same number of buffers.
#include <benchmark/benchmark.h>

#include <cmath>
#include <memory>
#include <span>
#include <vector>

#include "bench/ratio.h"
#include "velmora/data/array_controller.h"
#include "velmora/rendering/opengl_render_context.h"

namespace {

constexpr uint32_t kCapacity = 65536;
constexpr uint32_t kColor = 0xFF50A0F0u;

std::shared_ptr<VELArrayController> column(VELDataType type, std::span<const double> values) {
  auto controller = VELArrayController::initWithType(type);
  controller->appendRange(values);
  return controller;
}

/// The memory of a frame, written by hand.
class PlainBuffers {
 public:
  void restart() { _buffer = 0, openBuffer(); }
  VELVertex* _vertices = nullptr;
  uint16_t* _indices = nullptr;
  uint32_t _head = 0, _indexHead = 0;

  void makeRoomFor(uint32_t vertices, uint32_t indices) {
    if (_head + vertices + 2 > kCapacity || _indexHead + indices + 2 > kCapacity) ++_buffer, openBuffer();
  }
  /// Two indices before every shape but the first one of a buffer.
  void join() {
    if (_indexHead == 0) return;
    _indices[_indexHead] = _indices[_indexHead - 1];
    _indices[_indexHead + 1] = static_cast<uint16_t>(_head);
    _indexHead += 2;
  }
  void put(double x, double y) {
    _vertices[_head++] = {static_cast<float>(x), static_cast<float>(y), kColor, 0, 0};
  }
  void number(uint32_t vertex) { _indices[_indexHead++] = static_cast<uint16_t>(vertex); }

 private:
  struct Memory {
    std::unique_ptr<VELVertex[]> vertices = std::make_unique<VELVertex[]>(kCapacity);
    std::unique_ptr<uint16_t[]> indices = std::make_unique<uint16_t[]>(kCapacity);
  };
  void openBuffer() {
    if (_buffer == _memory.size()) _memory.emplace_back();
    _vertices = _memory[_buffer].vertices.get();
    _indices = _memory[_buffer].indices.get();
    _head = _indexHead = 0;
  }
  std::vector<Memory> _memory;
  size_t _buffer = 0;
};

/// @param draw fills a cleared context; @param plain the same with `PlainBuffers`
template <typename Draw, typename Plain>
void run(benchmark::State& state, int64_t vertices, Draw&& draw, Plain&& plain) {
  VELOpenGLRenderContext context(static_cast<int32_t>(kCapacity), nullptr);
  PlainBuffers buffers;
  VELRunAgainstBaseline(
      state, vertices,
      [&] {
        context.clear();
        draw(context);
        benchmark::ClobberMemory();
      },
      [&] {
        buffers.restart();
        plain(buffers);
        benchmark::ClobberMemory();
      });
}

// Rising and falling to the right, so that no strip is turned over.
struct Wave {
  std::vector<double> xs, ys;
};
Wave wave(size_t points) {
  std::vector<double> xs(points), ys(points);
  for (size_t i = 0; i < points; ++i) {
    xs[i] = static_cast<double>(i) * 0.01;
    ys[i] = 400.0 + 300.0 * std::sin(static_cast<double>(i) * 0.9);
  }
  return {xs, ys};
}

void polyline(benchmark::State& state) {
  const auto points = static_cast<size_t>(state.range(0));
  const Wave line = wave(points);
  const std::span xs(line.xs), ys(line.ys);
  const auto xData = column(VELDataType_Double, xs), yData = column(VELDataType_Double, ys);
  const VELPenPtr pen = VELPen2D::solid(kColor, 1.0f);
  run(
      state, static_cast<int64_t>(4 * (points - 1)),
      [&](VELOpenGLRenderContext& context) { context.drawPolylineWithBrush(pen, *xData, *yData, 0); },
      [&](PlainBuffers& buffers) {
        for (size_t i = 1; i < points; ++i) {
          buffers.makeRoomFor(4, 4);
          for (uint32_t k = 0; k < 4; ++k) buffers.number(buffers._head + k);
          buffers.put(xs[i - 1], ys[i - 1]), buffers.put(xs[i - 1], ys[i - 1]);
          buffers.put(xs[i], ys[i]), buffers.put(xs[i], ys[i]);
        }
      });
}

void rects(benchmark::State& state) {
  const auto count = static_cast<size_t>(state.range(0));
  const Wave places = wave(count);
  const std::span xs(places.xs), ys(places.ys);
  const VELBrushPtr brush = VELBrush2D::solid(kColor);
  run(
      state, static_cast<int64_t>(4 * count),
      [&](VELOpenGLRenderContext& context) {
        for (size_t i = 0; i < count; ++i) {
          const auto x = static_cast<float>(xs[i]), y = static_cast<float>(ys[i]);
          context.drawRectWithBrush(brush, x, y, x + 1.0f, 400.0f);
        }
      },
      [&](PlainBuffers& buffers) {
        for (size_t i = 0; i < count; ++i) {
          buffers.makeRoomFor(4, 4);
          buffers.join();
          for (uint32_t k = 0; k < 4; ++k) buffers.number(buffers._head + k);
          buffers.put(xs[i], ys[i]), buffers.put(xs[i] + 1.0, ys[i]);
          buffers.put(xs[i], 400.0), buffers.put(xs[i] + 1.0, 400.0);
        }
      });
}

void ellipses(benchmark::State& state) {
  constexpr uint32_t kDetalization = 20;
  const auto count = static_cast<size_t>(state.range(0));
  const Wave places = wave(count);
  const std::span xs(places.xs), ys(places.ys);
  const VELBrushPtr brush = VELBrush2D::solid(kColor);
  const auto xData = VELArrayController::initWithType(VELDataType_Float);
  const auto yData = VELArrayController::initWithType(VELDataType_Float);
  VELOpenGLRenderContext(8, nullptr).renderEllipseToBufferX(*xData, *yData, 3.0f, 4.0f, kDetalization);
  run(
      state, static_cast<int64_t>((kDetalization + 1) * count),
      [&](VELOpenGLRenderContext& context) {
        for (size_t i = 0; i < count; ++i)
          context.drawEllipseWithBrush(brush, static_cast<float>(xs[i]), static_cast<float>(ys[i]), *xData,
                                       *yData);
      },
      [&](PlainBuffers& buffers) {
        const std::span outlineX = xData->floats(), outlineY = yData->floats();
        for (size_t i = 0; i < count; ++i) {
          buffers.makeRoomFor(kDetalization + 1, 2 * kDetalization + 1);
          buffers.join();
          const uint32_t first = buffers._head;
          for (size_t k = 0; k < kDetalization; ++k) {
            buffers.number(buffers._head), buffers.number(first + kDetalization);
            buffers.put(xs[i] + double{outlineX[k]}, ys[i] + double{outlineY[k]});
          }
          buffers.number(first);
          buffers.put(xs[i], ys[i]);
        }
      });
}

void areas(benchmark::State& state) {
  const auto points = static_cast<size_t>(state.range(0));
  const Wave line = wave(points);
  const std::span xs(line.xs), ys(line.ys);
  const VELBrushPtr brush = VELBrush2D::solid(kColor);
  run(
      state, static_cast<int64_t>(2 * points),
      [&](VELOpenGLRenderContext& context) {
        context.beginZeroToLineAreaWithBrush(brush, 0.0f, static_cast<float>(ys[0]), 900.0f, false);
        for (size_t i = 1; i < points; ++i)
          context.extendZeroToLineAreaWithBrush(brush, static_cast<float>(xs[i]), static_cast<float>(ys[i]),
                                                900.0f, false);
      },
      [&](PlainBuffers& buffers) {
        for (size_t i = 0; i < points; ++i) {
          buffers.makeRoomFor(2, 2);
          buffers.number(buffers._head), buffers.number(buffers._head + 1);
          buffers.put(xs[i], ys[i]), buffers.put(xs[i], 900.0);
        }
      });
}

BENCHMARK(polyline)->Name("queue_polyline")->Arg(1'000'000)->UseManualTime();
BENCHMARK(rects)->Name("rects")->Arg(100'000)->UseManualTime();
BENCHMARK(ellipses)->Name("ellipses")->Arg(10'000)->UseManualTime();
BENCHMARK(areas)->Name("areas")->Arg(100'000)->UseManualTime();

}  // namespace
