// Which shapes share a draw call, and in which order the replay calls GL.
#include <gtest/gtest.h>

#include <cmath>
#include <functional>

#include "tests/rendering/recorded_frame.h"

namespace {

using Indices = std::vector<uint16_t>;

class Queue : public testing::Test {
 protected:
  std::vector<DrawnStrip> strips() { return replay(context, gl.gl()); }
  void line(const VELPenPtr& with) { context.drawLineWithBrush(with, 0, 0, 9, 0); }
  void extend(float x) { context.extendPolylineWithBrush(pen, x, 0); }

  RegisteredGL gl;
  VELOpenGLRenderContext context{64, gl.context};
  VELPenPtr pen = VELPen2D::solid(0xFF0000FFu, 1.0f);
  VELPenPtr otherPen = VELPen2D::solid(0xFF00FF00u, 3.0f);
};

TEST_F(Queue, ShapesShareOneStripJoinedWhereTheyDoNotFollowEachOther) {
  const std::pair<std::function<void()>, Indices> rows[] = {
      {[&] { line(pen), line(otherPen); }, {0, 1, 2, 3, 3, 4, 4, 5, 6, 7}},
      {[&] {
         for (int i = 0; i < 2; ++i) context.beginPolylineWithBrush(pen, 0, 0), extend(10), extend(20);
       },
       {0, 1, 2, 3, 4, 5, 6, 7, 7, 8, 8, 9, 10, 11, 12, 13, 14, 15}},
      {[&] {
         context.beginPolylineWithBrush(pen, 0, 0), extend(10);
         context.drawRectWithBrush(otherPen, 0, 0, 1, 1), extend(20);
       },
       {0, 1, 2, 3, 3, 4, 4, 5, 6, 7, 7, 8, 8, 9, 10, 11}}};
  for (const auto& [draw, expected] : rows) {
    context.clear();
    draw();
    const auto drawn = strips();
    ASSERT_EQ(drawn.size(), 1u);
    EXPECT_EQ(drawn[0].indices, expected);
    EXPECT_EQ(gl.gl().count("useProgram"), 1u);
    EXPECT_EQ(drawn[0].vertices[0].color, 0xFF0000FFu);
    EXPECT_EQ(drawn[0].vertices[6].color, expected.size() == 18 ? 0xFF0000FFu : 0xFF00FF00u);
  }
}

TEST_F(Queue, AnotherAreaOrShaderStateStartsANewStripAndAnEqualOneDoesNot) {
  for (int i = 0; i < 2; ++i) context.setDrawingArea({0, 0, 10, 10}), line(pen);
  EXPECT_EQ(strips().size(), 1u) << "the same area is recorded once";
  context.setDrawingArea({0, 0, 10, 11}), line(pen);
  EXPECT_EQ(strips().size(), 2u);
  context.drawRectWithBrush(columnGradient(0xFF010101u), 0, 0, 1, 1);
  EXPECT_EQ(strips().size(), 3u) << "a gradient after a solid brush needs a shader command";
  line(pen);
  const auto drawn = strips();
  ASSERT_EQ(drawn.size(), 3u) << "a solid brush after a gradient needs none";
  EXPECT_EQ(drawn[1].target, "1@10");
  EXPECT_EQ(drawn[2].indices, (Indices{12, 13, 14, 15, 15, 16, 16, 17, 18, 19}));
}

TEST_F(Queue, AFullBufferHandsTheShapeToTheNextOneAndAClearedContextUsesThemAgainInOrder) {
  VELOpenGLRenderContext small(15, gl.context);
  const auto draw = [&] {
    gl.gl().calls.clear();
    for (int i = 0; i < 5; ++i) small.drawLineWithBrush(pen, 0, 0, 1, 0);
  };
  draw();
  EXPECT_EQ(gl.gl().calls.size(), 14u) << "two names, two bindings and two stores for every further buffer";
  EXPECT_EQ(gl.gl().calls[0].text, "resetES3State()") << "a vertex array that a host bound keeps its indices";
  const auto before = replay(small, gl.gl());
  ASSERT_EQ(before.size(), 3u);
  EXPECT_EQ(before[0].indices, (Indices{0, 1, 2, 3, 3, 4, 4, 5, 6, 7}));
  EXPECT_EQ(before[2].indices, consecutive(0, 4));
  EXPECT_NE(before[0].target, before[1].target);
  small.clear();
  EXPECT_TRUE(small.wasChanged());
  EXPECT_TRUE(replay(small, gl.gl()).empty());
  EXPECT_FALSE(small.wasChanged());
  draw();
  EXPECT_TRUE(gl.gl().calls.empty());
  const auto after = replay(small, gl.gl());
  ASSERT_EQ(after.size(), 3u);
  for (size_t i = 0; i < 3; ++i) EXPECT_EQ(after[i].target, before[i].target);
  EXPECT_EQ(small.drawingBufferCount(), 3u);
}

TEST_F(Queue, DrawingCallsNoGLAndAReplayUploadsOnlyWhatIsNew) {
  gl.gl().calls.clear();
  line(pen);
  context.setDrawingArea({1, 2, 3, 4});
  EXPECT_TRUE(gl.gl().calls.empty());
  strips();
  EXPECT_EQ(gl.gl().texts("bufferSubData"), "bufferSubData(ARRAY,0,64) bufferSubData(ELEMENT,0,8)");
  strips();
  EXPECT_EQ(gl.gl().uploadedBytes(), 0u) << "unchanged";
  line(pen);
  context.drawRectWithBrush(pen, 0, 0, 1, 1);
  strips();
  EXPECT_EQ(gl.gl().texts("bufferSubData"), "bufferSubData(ARRAY,64,128) bufferSubData(ELEMENT,8,20)");
}

TEST_F(Queue, TheReplayCallsGLInThisOrder) {
  line(pen);
  strips();  // builds the program and the atlas
  VELOpenGLContextController::o_enableContext(gl.context);
  strips();
  EXPECT_EQ(gl.gl().texts(),
            "resetES3State() bindBuffer(ARRAY,1) bindBuffer(ELEMENT,2) vertexAttribPointer(0,2,FLOAT,0,16,0) "
            "vertexAttribPointer(1,4,BYTE,1,16,8) vertexAttribPointer(2,2,SHORT,1,16,12) "
            "enableVertexAttribArray(0) enableVertexAttribArray(1) enableVertexAttribArray(2) "
            "useProgram(1) uniformMatrix4fv(7) activeTexture(TEXTURE0) bindTexture(2D,1) "
            "uniform1i(8,0) drawElements(STRIP,4,SHORT,0) "
            "disableVertexAttribArray(0) disableVertexAttribArray(1) disableVertexAttribArray(2)");
  EXPECT_EQ(strips().size(), 1u);
  EXPECT_EQ(gl.gl().count("enableVertexAttribArray"), 3u)
      << "what the application did in between is not known";
}

TEST_F(Queue, AnAreaMovesTheOriginAndUploadsItsMatrixOnlyToAnActiveProgram) {
  const VELMatrix projection = VELMatrixOrthographic(200, 100, 4, 10);
  EXPECT_EQ(projection,
            (VELMatrix{0.01f, 0, 0, 0, 0, 0.02f, 0, 0, 0, 0, -0.33333334f, 0, 0, 0, -2.3333333f, 1}));
  VELMatrix view = VELMatrixIdentity();
  view[12] = -100, view[13] = -50, view[14] = -7;
  context.setProjectionMatrix(projection, view);
  for (const VELRect& area : {VELRect{20, 10, 30, 40}, VELRect{0, 0, 30, 40}})
    context.setDrawingArea(area), line(pen);
  strips();
  std::vector<std::vector<float>> matrices;
  for (const RecordedCall& call : gl.gl().calls)
    if (!call.floats.empty()) matrices.push_back(call.floats);
  ASSERT_EQ(matrices.size(), 2u) << "by the brush that activates the program, and by the second area";
  EXPECT_FLOAT_EQ(matrices[0][12], -0.8f);
  EXPECT_FLOAT_EQ(matrices[0][13], -0.8f);
  EXPECT_FLOAT_EQ(matrices[1][12], -1.0f);
  EXPECT_NEAR(matrices[1][14], 0.0, 1e-6) << "the drawing plane, up to rounding";
}

TEST_F(Queue, AScissorIsCutToWholePixelsAndNeverNegative) {
  VELShaderAttributes attributes;
  gl.gl().calls.clear();
  VELSetDrawingAreaCommand({}, {10.9, -3.7, 20.9, 0.9}, &attributes).o_performCommand();
  VELSetDrawingAreaCommand({}, {NAN, 1e300, -5.0, INFINITY}, &attributes).o_performCommand();
  EXPECT_EQ(gl.gl().texts(), "scissor(10,-3,20,0) scissor(0,2147483647,0,2147483647)");
  context.setDrawingArea({});
  line(pen);
  strips();
  EXPECT_EQ(gl.gl().texts("scissor"), "scissor(0,0,0,0)") << "the first area counts even when it is zero";
}

// Its buffers and programs are those of one GL context; in another the same names may mean anything, and
// what was made before a context was registered stays in memory.
TEST_F(Queue, AFrameIsReplayedOnlyOnTheContextThatItWasRecordedFor) {
  const RegisteredGL other;  // current from here on
  const auto late = std::make_shared<RecordingGLContext>();
  VELOpenGLRenderContext memoryOnly(16, nullptr), unregistered(16, late);
  const auto drawsNothing = [](VELOpenGLRenderContext& recorded, RecordingGLContext& on) {
    replay(recorded, on.gl());
    return on.gl().calls.empty() && !recorded.wasChanged();
  };
  for (VELOpenGLRenderContext* const recorded : {&context, &memoryOnly, &unregistered}) {
    for (int i = 0; i < 4; ++i) recorded->drawLineWithBrush(pen, 0, 0, 9, 0);
    EXPECT_TRUE(VELOpenGLContextController::o_enableContext(other.context));
    EXPECT_TRUE(drawsNothing(*recorded, *other.context));
  }
  VELOpenGLContextController::o_createContext(late);
  EXPECT_TRUE(VELOpenGLContextController::o_enableContext(late));
  EXPECT_TRUE(drawsNothing(unregistered, *late));
  VELOpenGLContextController::o_freeContext(late);
  EXPECT_TRUE(VELOpenGLContextController::o_enableContext(other.context));
  EXPECT_TRUE(gl.context->makeCurrent());  // by the application itself
  EXPECT_EQ(VELOpenGLContextController::o_currentState(), nullptr) << "what is known is known of the other";
  gl.gl().calls.clear();
  EXPECT_EQ(strips().size(), 1u) << "at home it is whole";
  EXPECT_EQ(gl.gl().count("linkProgram") + gl.gl().count("enableVertexAttribArray"), 4u);
  EXPECT_EQ(other.context->gl().calls.size(), 0u);
}

TEST_F(Queue, AReplayedFrameStaysAsItIsWhateverItsBrushesDo) {
  const auto column = doubles(std::vector<double>{1, 2, 3});
  const auto meddle = [&] {
    for (int i = 0; i < 100; ++i) {
      context.setDrawingArea({0, 0, 1.0 + i, 1});
      line(pen);
      context.drawPolylineWithBrush(pen, *column, *column, 0);
      context.beginPolylineWithBrush(pen, 0, 0);
    }
    context.clear();
    context.performDrawingCommands();
  };
  line(pen);
  context.drawRectWithBrush(std::make_shared<CallingBrush>(meddle), 0, 0, 1, 1);
  const size_t recorded = context.drawingOrder().drawingOrder().size();
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(strips().size(), 2u);
    EXPECT_EQ(context.drawingOrder().drawingOrder().size(), recorded);
    EXPECT_FALSE(context.wasChanged());
  }
  line(pen);
  EXPECT_TRUE(context.wasChanged()) << "afterwards it takes shapes again";
}

TEST(DrawingBuffer, UpdateRangesWidenAndAreClampedToTheCapacity) {
  VELDrawingBuffer buffer(10);
  VELDrawingBufferInfo& info = buffer.o_getBufferInfo();
  info.dbi_vertexHead = 6;
  buffer.o_addVerticesUpdateRange(9);
  EXPECT_EQ(std::pair(info.dbi_vertexUpdateStart, info.dbi_vertexUpdateEnd), std::pair(6u, 10u));
  EXPECT_TRUE(buffer.o_isEnoughSpaceForVertices(4, 10));
  EXPECT_FALSE(buffer.o_isEnoughSpaceForVertices(5, 0));
  EXPECT_FALSE(buffer.o_isEnoughSpaceForVertices(0, UINT32_MAX));
  EXPECT_EQ(VELDrawingBuffer(-5).o_getBufferInfo().dbi_bufferSize, 8);
  EXPECT_EQ(VELDrawingBuffer(INT32_MAX).o_getBufferInfo().dbi_bufferSize, 65536);
}

TEST_F(Queue, EveryCommandOfTheFamilyDrawsItsOwnKind) {
  VELDrawLineCommand lines(1, 2);
  VELDrawLineLoopCommand loop(1, 2);
  VELDrawPolylineCommand polyline(1, 2);
  VELDrawTriangleCommand triangles(1, 2);
  VELDrawTriangleFanCommand fan(1, 2);
  gl.gl().calls.clear();
  for (VELDrawingCommand* command :
       std::initializer_list<VELDrawingCommand*>{&lines, &loop, &polyline, &triangles, &fan}) {
    command->o_increaseCount(3);
    command->o_performCommand();
  }
  for (const uint64_t mode : {0u, 1u, 7u}) VELAlphaBlendingModeCommand(mode).o_performCommand();
  EXPECT_EQ(gl.gl().texts(),
            "drawElements(LINES,5,SHORT,2) drawElements(LINE_LOOP,5,SHORT,2) "
            "drawElements(LINE_STRIP,5,SHORT,2) drawElements(TRIANGLES,5,SHORT,2) "
            "drawElements(FAN,5,SHORT,2) disable(BLEND) enable(BLEND)");
  VELSetDrawingAreaCommand zero({}, {}, nullptr);
  EXPECT_TRUE(zero.isEqual(nullptr));
  EXPECT_FALSE(VELSetDrawingAreaCommand({1, 0, 0, 0}, {}, nullptr).isEqual(&zero));
}

}  // namespace
