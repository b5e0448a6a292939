// rendering/matrix.h: 4 by 4 matrices as GL uniforms take them.
#pragma once

#include <array>
#include <cstddef>

/// Column-major: element (row, column) is at column × 4 + row.
using VELMatrix = std::array<float, 16>;

constexpr VELMatrix VELMatrixIdentity() { return {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}; }

/// left × right: applies @p right first.
constexpr VELMatrix VELMatrixMultiply(const VELMatrix& left, const VELMatrix& right) {
  VELMatrix product{};
  for (size_t column = 0; column < 4; ++column)
    for (size_t row = 0; row < 4; ++row)
      for (size_t k = 0; k < 4; ++k) product[column * 4 + row] += left[k * 4 + row] * right[column * 4 + k];
  return product;
}

/// @p matrix after a move by (x, y, 0).
constexpr VELMatrix VELMatrixTranslate(VELMatrix matrix, float x, float y) {
  for (size_t row = 0; row < 4; ++row) matrix[12 + row] += matrix[row] * x + matrix[4 + row] * y;
  return matrix;
}

/// Parallel projection of the box around the axis −z, @p width by @p height, from @p near to @p far.
constexpr VELMatrix VELMatrixOrthographic(float width, float height, float near, float far) {
  VELMatrix matrix = VELMatrixIdentity();
  matrix[0] = 2.0f / width;
  matrix[5] = 2.0f / height;
  matrix[10] = -2.0f / (far - near);
  matrix[14] = -(far + near) / (far - near);
  return matrix;
}
