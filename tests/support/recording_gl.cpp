#include "tests/support/recording_gl.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <stdexcept>

std::ostream& operator<<(std::ostream& out, Constant constant) {
  using Entry = std::pair<const uint32_t, const char*>;
  static const std::map<uint32_t, const char*> names = {
      Entry(VELGL_ARRAY_BUFFER, "ARRAY"),
      Entry(VELGL_ELEMENT_ARRAY_BUFFER, "ELEMENT"),
      Entry(VELGL_DYNAMIC_DRAW, "DYNAMIC"),
      Entry(VELGL_LINE_LOOP, "LINE_LOOP"),
      Entry(VELGL_LINES, "LINES"),
      Entry(VELGL_LINE_STRIP, "LINE_STRIP"),
      Entry(VELGL_TRIANGLES, "TRIANGLES"),
      Entry(VELGL_TRIANGLE_STRIP, "STRIP"),
      Entry(VELGL_TRIANGLE_FAN, "FAN"),
      Entry(VELGL_FLOAT, "FLOAT"),
      Entry(VELGL_UNSIGNED_BYTE, "BYTE"),
      Entry(VELGL_UNSIGNED_SHORT, "SHORT"),
      Entry(VELGL_BLEND, "BLEND"),
      Entry(VELGL_SCISSOR_TEST, "SCISSOR_TEST"),
      Entry(VELGL_CULL_FACE, "CULL_FACE"),
      Entry(VELGL_DEPTH_TEST, "DEPTH_TEST"),
      Entry(VELGL_STENCIL_TEST, "STENCIL_TEST"),
      Entry(VELGL_DITHER, "DITHER"),
      Entry(VELGL_SAMPLE_ALPHA_TO_COVERAGE, "ALPHA_TO_COVERAGE"),
      Entry(VELGL_SAMPLE_COVERAGE, "COVERAGE"),
      Entry(VELGL_FUNC_ADD, "ADD"),
      Entry(VELGL_SRC_ALPHA, "SRC_ALPHA"),
      Entry(VELGL_ONE_MINUS_SRC_ALPHA, "ONE_MINUS_SRC_ALPHA"),
      Entry(VELGL_ONE_MINUS_DST_ALPHA, "ONE_MINUS_DST_ALPHA"),
      Entry(VELGL_TEXTURE0, "TEXTURE0"),
      Entry(VELGL_TEXTURE1, "TEXTURE1"),
      Entry(VELGL_TEXTURE_2D, "2D"),
      Entry(VELGL_TEXTURE_MIN_FILTER, "MIN"),
      Entry(VELGL_TEXTURE_MAG_FILTER, "MAG"),
      Entry(VELGL_TEXTURE_WRAP_S, "WRAP_S"),
      Entry(VELGL_TEXTURE_WRAP_T, "WRAP_T"),
      Entry(VELGL_NEAREST, "NEAREST"),
      Entry(VELGL_LINEAR, "LINEAR"),
      Entry(VELGL_CLAMP_TO_EDGE, "CLAMP"),
      Entry(VELGL_RGBA, "RGBA"),
      Entry(VELGL_RGBA8, "RGBA8"),
      Entry(VELGL_FRAMEBUFFER, "FRAME"),
      Entry(VELGL_READ_FRAMEBUFFER, "READ"),
      Entry(VELGL_DRAW_FRAMEBUFFER, "DRAW"),
      Entry(VELGL_COLOR_ATTACHMENT0, "COLOR0"),
      Entry(VELGL_COLOR_BUFFER_BIT, "COLOR")};
  const auto found = names.find(constant.value);
  return found == names.end() ? out << constant.value : out << found->second;
}

std::string RecordingGL::texts(const std::string& prefix) const {
  std::string joined;
  for (const RecordedCall& call : calls)
    if (call.text.starts_with(prefix)) joined += (joined.empty() ? "" : " ") + call.text;
  return joined;
}

size_t RecordingGL::count(const std::string& prefix) const {
  return static_cast<size_t>(
      std::ranges::count_if(calls, [&](const RecordedCall& call) { return call.text.starts_with(prefix); }));
}

const RecordedCall& RecordingGL::last(const std::string& prefix) const {
  for (auto call = calls.rbegin(); call != calls.rend(); ++call)
    if (call->text.starts_with(prefix)) return *call;
  throw std::runtime_error("no call starts with " + prefix);
}

size_t RecordingGL::uploadedBytes() const {
  size_t bytes = 0;
  for (const RecordedCall& call : calls) bytes += call.bytes.size();
  return bytes;
}

uint32_t RecordingGL::gen(const std::string& kind) {
  const uint32_t name = ++_names[kind];
  _live.insert(kind + std::to_string(name));
  add("gen" + kind, name);
  return name;
}

void RecordingGL::remove(const std::string& kind, uint32_t name) {
  EXPECT_EQ(_live.erase(kind + std::to_string(name)), 1u) << kind << ' ' << name << " is not there";
  add("delete" + kind, name);
}

uint32_t RecordingGL::known(const std::string& kind, uint32_t name) const {
  EXPECT_TRUE(name == 0 || _live.contains(kind + std::to_string(name)))
      << kind << ' ' << name << " is not there";
  return name;
}

std::vector<std::byte> RecordingGL::copyOf(const void* data, size_t bytes) {
  if (!data) return {};
  const auto* const first = static_cast<const std::byte*>(data);
  return {first, first + bytes};
}

void RecordingGL::bufferData(uint32_t target, size_t bytes, const void* data, uint32_t usage) {
  auto& store = _stores[_bound[target]];
  store = copyOf(data, bytes);
  store.resize(bytes);
  add("bufferData", Constant{target}, bytes, Constant{usage}).bytes = copyOf(data, bytes);
}

void RecordingGL::bufferSubData(uint32_t target, size_t offset, size_t bytes, const void* data) {
  auto& store = _stores[_bound[target]];
  if (offset + bytes > store.size()) throw std::runtime_error("bufferSubData beyond the store");
  std::memcpy(store.data() + offset, data, bytes);
  add("bufferSubData", Constant{target}, offset, bytes).bytes = copyOf(data, bytes);
}
