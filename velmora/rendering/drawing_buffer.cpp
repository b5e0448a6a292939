#include "velmora/rendering/drawing_buffer.h"

#include <algorithm>
#include <bit>

static_assert(std::endian::native == std::endian::little,
              "colour codes are uploaded as the bytes R, G, B, A");

namespace {

constexpr int32_t stride = sizeof(VELVertex);

}  // namespace

VELDrawingBuffer::VELDrawingBuffer(int32_t size, const std::shared_ptr<VELGLContext>& context,
                                   bool makesStores) {
  _info.dbi_bufferSize = std::clamp(size, minimumSize, maximumSize);
  const auto count = static_cast<size_t>(_info.dbi_bufferSize);
  _vertices = std::make_unique<VELVertex[]>(count);
  _indices = std::make_unique<uint16_t[]>(count);
  _info.dbi_vertexBuffer = _vertices.get();
  _info.dbi_indexBuffer = _indices.get();

  if (!context) return;
  _context = context;
  if (!makesStores) return;
  const VELGLContextScope scope(*context);
  if (scope.isCurrent()) p_VEL_createStores(*context);
}

void VELDrawingBuffer::p_VEL_createStores(VELGLContext& context) {
  VELGL& gl = context.gl();
  const auto count = static_cast<size_t>(_info.dbi_bufferSize);
  // Made in the middle of whatever the application does: the indices of a vertex array that it left bound
  // would become these.
  gl.resetES3State();
  _generation = context.generation();
  _vertexBufferId = gl.genBuffer();
  _indexBufferId = gl.genBuffer();
  gl.bindBuffer(VELGL_ARRAY_BUFFER, _vertexBufferId);
  gl.bindBuffer(VELGL_ELEMENT_ARRAY_BUFFER, _indexBufferId);
  gl.bufferData(VELGL_ARRAY_BUFFER, count * sizeof(VELVertex), _vertices.get(), VELGL_DYNAMIC_DRAW);
  gl.bufferData(VELGL_ELEMENT_ARRAY_BUFFER, count * sizeof(uint16_t), _indices.get(), VELGL_DYNAMIC_DRAW);
  p_VEL_forgetUpdates();
}

void VELDrawingBuffer::p_VEL_forgetUpdates() {
  _info.dbi_vertexUpdateStart = _info.dbi_indexUpdateStart = VELEmptyUpdateStart;
  _info.dbi_vertexUpdateEnd = _info.dbi_indexUpdateEnd = 0;
}

VELDrawingBuffer::~VELDrawingBuffer() { o_freeBuffer(); }

void VELDrawingBuffer::o_clearBuffer() {
  _info.dbi_vertexHead = _info.dbi_indexHead = 0;
  p_VEL_forgetUpdates();
}

void VELDrawingBuffer::o_freeBuffer() {
  if (_removed) return;
  _removed = true;
  _info = {};
  _vertices.reset();
  _indices.reset();
  const auto context = _context.lock();
  if (!context) return;
  const VELGLContextScope scope(*context, _generation);
  if (!scope.isCurrent()) return;
  context->gl().deleteBuffer(_vertexBufferId);
  context->gl().deleteBuffer(_indexBufferId);
}

uint32_t VELDrawingBuffer::o_insertPrimitiveRestart() {
  if (_info.dbi_indexHead == 0 || !o_isEnoughSpaceForVertices(0, 2)) return 0;
  o_addIndicesUpdateRange(2);
  uint16_t* const tail = o_indexBufferTail();
  tail[0] = tail[-1];
  tail[1] = static_cast<uint16_t>(_info.dbi_vertexHead);
  _info.dbi_indexHead += 2;
  return 2;
}

VELGL* VELDrawingBuffer::p_VEL_currentGL() const {
  const auto context = _context.lock();
  return context && context.get() == VELGLContext::current() ? &context->gl() : nullptr;
}

void VELDrawingBuffer::o_selectVertexBuffers() {
  VELGL* const gl = p_VEL_currentGL();
  if (!gl || _removed) return;
  if (VELGLContext& context = *VELGLContext::current(); _generation != context.generation())
    return p_VEL_createStores(context);
  gl->bindBuffer(VELGL_ARRAY_BUFFER, _vertexBufferId);
  gl->bindBuffer(VELGL_ELEMENT_ARRAY_BUFFER, _indexBufferId);
}

void VELDrawingBuffer::o_uploadBuffersForDrawing() {
  VELGL* const gl = p_VEL_currentGL();
  if (!gl) return;
  const auto upload = [gl](uint32_t target, uint32_t& start, uint32_t& end, const auto* data) {
    if (end <= start) return;
    constexpr size_t bytes = sizeof(*data);
    gl->bufferSubData(target, start * bytes, (end - start) * bytes, data + start);
    start = VELEmptyUpdateStart;
    end = 0;
  };
  upload(VELGL_ARRAY_BUFFER, _info.dbi_vertexUpdateStart, _info.dbi_vertexUpdateEnd, _info.dbi_vertexBuffer);
  upload(VELGL_ELEMENT_ARRAY_BUFFER, _info.dbi_indexUpdateStart, _info.dbi_indexUpdateEnd,
         _info.dbi_indexBuffer);
}

void VELDrawingBuffer::o_setupAttribPointersForPosition(uint32_t position, uint32_t color, uint32_t texture) {
  VELGL* const gl = p_VEL_currentGL();
  if (!gl) return;
  gl->vertexAttribPointer(position, 2, VELGL_FLOAT, false, stride, offsetof(VELVertex, x));
  gl->vertexAttribPointer(color, 4, VELGL_UNSIGNED_BYTE, true, stride, offsetof(VELVertex, color));
  gl->vertexAttribPointer(texture, 2, VELGL_UNSIGNED_SHORT, true, stride, offsetof(VELVertex, textureX));
}
