// rendering/area_primitive.h: how the steps of an area follow each other, within one buffer and across two.
//
// An area is drawn pair by pair: every step writes one vertex on either edge, and two pairs in a row span a
// slice. A piece is a run of such pairs; a gap ends it.
#pragma once

#include <algorithm>

#include "velmora/rendering/drawing_primitive.h"

/// What areas of all kinds share.
///
/// Always true: an area recorded in one go, from its begin to its last step, shows the same slices in however
/// many buffers it lies. A shape, brush or drawing area recorded in between begins a new strip with the next
/// pair alone, so that the slice up to that pair is missing; another area in between may even be joined to
/// it. That is meant: areas are not drawn step by step in turns, and a step asks nobody what came before it.
class VELAreaPrimitive : public VELDrawingPrimitive {
 public:
  /// Forgets the area: the next step begins a piece.
  void o_reset() { _isOpen = false; }

 protected:
  static constexpr uint32_t pairCount = 2;

  /// True while the next step goes on from the last pair.
  bool isOpen() const { return _isOpen; }
  /// Ends the piece, so that no slice reaches over what could not be drawn.
  uint32_t leaveGap() {
    _isOpen = false;
    return nothingOnPurpose;
  }
  /// Whether the buffer takes a step. One that goes on from a pair in another buffer has to bring that pair.
  bool hasRoomForStep(uint32_t vertices, uint32_t indices, bool restart) const {
    const uint32_t repeated = repeatsPair(restart) ? pairCount : 0;
    return hasRoomFor(vertices + repeated, indices + repeated);
  }
  /// Announces a step and repeats the last pair where it must be. The caller takes the room, writes, the pair
  /// last, and calls `keepPair`.
  /// @return vertices of the step, the repeated pair included
  uint32_t announceStep(uint32_t vertices, uint32_t indices, bool restart) {
    if (!repeatsPair(restart)) {
      _command->o_addZeroToLineAreaCommandWithStart(indexHead(), indices, restart);
      return vertices;
    }
    _command->o_addZeroToLineAreaCommandWithStart(indexHead(), indices + pairCount, true);
    std::copy_n(_pair, pairCount, takeConsecutive(pairCount));
    return vertices + pairCount;
  }
  void keepPair(const VELVertex* pair) {
    _pair = pair;
    _pairBuffer = _buffer;
    _isOpen = true;
  }

 private:
  bool repeatsPair(bool restart) const { return !restart && _pairBuffer != _buffer; }

  const VELVertex* _pair = nullptr;  ///< the last one of the piece, where it was written
  const VELDrawingBuffer* _pairBuffer = nullptr;
  bool _isOpen = false;
};
