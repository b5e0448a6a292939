// rendering/drawing_buffer.h: where shapes are written as vertices and indices, and how they reach GL.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "velmora/platform/gl_context.h"

/// One vertex as GL reads it, 16 bytes.
struct VELVertex {
  float x;            ///< points, relative to the drawing area
  float y;            ///< points
  uint32_t color;     ///< colour code: the bytes R, G, B, A
  uint16_t textureX;  ///< 0 to 65535 for 0 to 1
  uint16_t textureY;
  bool operator==(const VELVertex&) const = default;
};
static_assert(sizeof(VELVertex) == 16);

/// Start of an empty update range. Also above the end of any capacity, since 16-bit indices reach no further.
inline constexpr uint32_t VELEmptyUpdateStart = 65536;

/// The bookkeeping of one buffer. Primitives write through it; counts are in vertices or indices.
struct VELDrawingBufferInfo {
  uint32_t dbi_vertexHead = 0;  ///< number written; the next vertex goes here
  uint32_t dbi_indexHead = 0;
  int32_t dbi_bufferSize = 0;  ///< capacity, the same for vertices and for indices
  uint32_t dbi_vertexUpdateEnd = 0;
  uint32_t dbi_vertexUpdateStart = VELEmptyUpdateStart;
  uint32_t dbi_indexUpdateEnd = 0;
  uint32_t dbi_indexUpdateStart = VELEmptyUpdateStart;
  VELVertex* dbi_vertexBuffer = nullptr;  ///< owned by the buffer
  uint16_t* dbi_indexBuffer = nullptr;    ///< owned by the buffer
};

/// A store of vertices and indices in memory with its copy in GL. Only what was written since the last upload
/// is sent, and everything when the GL context was lost in between. While its GL context is not the current
/// one, the calls that need GL do nothing.
class VELDrawingBuffer {
 public:
  static constexpr int32_t minimumSize = 8;
  static constexpr int32_t maximumSize = 65536;

  /// @param size vertices, and as many indices; limited to `minimumSize` … `maximumSize`
  /// @param context where the copy lives, held weakly; null keeps the buffer in memory only
  /// @param makesStores at once, where the context can be made current; else when the buffer is selected
  explicit VELDrawingBuffer(int32_t size, const std::shared_ptr<VELGLContext>& context = nullptr,
                            bool makesStores = true);
  VELDrawingBuffer(const VELDrawingBuffer&) = delete;
  VELDrawingBuffer& operator=(const VELDrawingBuffer&) = delete;
  ~VELDrawingBuffer();

  /// Empty again; memory and GL stores stay.
  void o_clearBuffer();
  /// Gives memory and GL stores back, once; a GL context that is gone took its stores along.
  void o_freeBuffer();

  /// False for a buffer in memory only, also one whose GL context is gone.
  bool hasGLStores() const { return !_context.expired(); }

  /// Exactly so many, without a margin.
  bool o_isEnoughSpaceForVertices(uint32_t vertices, uint32_t indices) const {
    const auto capacity = static_cast<uint64_t>(_info.dbi_bufferSize);
    return uint64_t{_info.dbi_vertexHead} + vertices <= capacity &&
           uint64_t{_info.dbi_indexHead} + indices <= capacity;
  }
  VELVertex* o_vertexBufferTail() { return _info.dbi_vertexBuffer + _info.dbi_vertexHead; }
  uint16_t* o_indexBufferTail() { return _info.dbi_indexBuffer + _info.dbi_indexHead; }
  VELDrawingBufferInfo& o_getBufferInfo() { return _info; }
  const VELDrawingBufferInfo& o_getBufferInfo() const { return _info; }

  /// Announces vertices about to be written at the head, which has not moved yet.
  void o_addVerticesUpdateRange(uint32_t count) {
    p_VEL_widen(_info.dbi_vertexUpdateStart, _info.dbi_vertexUpdateEnd, _info.dbi_vertexHead, count);
  }
  /// The same for indices.
  void o_addIndicesUpdateRange(uint32_t count) {
    p_VEL_widen(_info.dbi_indexUpdateStart, _info.dbi_indexUpdateEnd, _info.dbi_indexHead, count);
  }
  /// Two indices that join the strip so far to the next vertex without a visible triangle: the last index
  /// again and the vertex head. @return indices written: 2, or 0 without a last index or without room
  uint32_t o_insertPrimitiveRestart();

  void o_selectVertexBuffers();
  void o_uploadBuffersForDrawing();
  void o_setupAttribPointersForPosition(uint32_t position, uint32_t color, uint32_t texture);

 private:
  // Here and not in the source file: every shape calls it twice.
  void p_VEL_widen(uint32_t& start, uint32_t& end, uint32_t head, uint32_t count) const {
    start = std::min(start, head);
    end = std::min(std::max(end, head + count), static_cast<uint32_t>(_info.dbi_bufferSize));
  }
  VELGL* p_VEL_currentGL() const;
  void p_VEL_createStores(VELGLContext& context);
  void p_VEL_forgetUpdates();

  VELDrawingBufferInfo _info;
  std::unique_ptr<VELVertex[]> _vertices;
  std::unique_ptr<uint16_t[]> _indices;
  std::weak_ptr<VELGLContext> _context;
  uint32_t _generation = 0;  ///< of the context, when the stores were made
  uint32_t _vertexBufferId = 0;
  uint32_t _indexBufferId = 0;
  bool _removed = false;
};
