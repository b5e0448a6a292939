// Textures: what they hold, in which context they live.
#include "velmora/rendering/texture.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/rendering/recorded_frame.h"
#include "tests/support/gl_error_watch.h"

namespace {

using Bytes = std::vector<uint8_t>;
Bytes pixelsOf(const VELTextureOpenGL& texture) { return {texture.pixels().begin(), texture.pixels().end()}; }

TEST(Texture, HoldsBytesFloatsPicturesValuesAndGradients) {
  const Bytes bytes = {1, 2, 3, 4, 5, 6, 7, 8, 9};
  EXPECT_EQ(pixelsOf(VELTextureOpenGL(bytes, 2, 1)), Bytes(bytes.begin(), bytes.begin() + 8))
      << "what is beyond is ignored";
  const float floats[] = {-1, 0, 0.5f, 1, 2, NAN, INFINITY, 0.1f};
  EXPECT_EQ(pixelsOf(VELTextureOpenGL(floats, 1, 2)), (Bytes{0, 0, 128, 255, 255, 0, 255, 26}));
  EXPECT_EQ(pixelsOf(*VELTextureOpenGL::withValues(std::span(floats).subspan(2, 2), 2, 1)),
            (Bytes{128, 128, 128, 128, 255, 255, 255, 255}));
  const double coords[] = {0, 1};
  const uint32_t codes[] = {0x01020304, 0x01020304};
  EXPECT_EQ(pixelsOf(VELTextureOpenGL(coords, codes, 2)), (Bytes{4, 3, 2, 1, 4, 3, 2, 1}));
  VELBitmap image(1, 2);
  image.row(1)[2] = 9;
  image.row(1)[3] = 255;
  EXPECT_EQ(pixelsOf(VELTextureOpenGL(image)), (Bytes{0, 0, 0, 0, 0, 0, 9, 255}));
  const std::string path = testing::TempDir() + "texture_test.png";
  ASSERT_FALSE(image.writePng(path));
  EXPECT_EQ(pixelsOf(*VELTextureOpenGL::fromPng(path)), pixelsOf(VELTextureOpenGL(image)));
  std::string failure;
  EXPECT_EQ(VELTextureOpenGL::fromPng(path + "x", &failure), nullptr);
  EXPECT_NE(failure.find(path + "x"), std::string::npos) << failure;
}

// Nothing that the application gives wrong reaches GL; drawn, it is one transparent texel.
TEST(Texture, IsEmptyWithTooFewPixelsAndImpossibleSizes) {
  RegisteredGL gl;
  const Bytes bytes(65540);
  std::vector<std::shared_ptr<VELTextureOpenGL>> all = {
      VELTextureOpenGL::withValues({}, 1, 1), std::make_shared<VELTextureOpenGL>(VELBitmap()),
      std::make_shared<VELTextureOpenGL>(std::span<const double>(), std::span<const uint32_t>()),
      std::make_shared<VELTextureOpenGL>(INT32_MAX, INT32_MAX)};
  for (const auto& [width, height] : {std::pair{129, 128}, {0, 1}, {-2, -2}, {65536, 65536}, {16385, 1}})
    all.push_back(std::make_shared<VELTextureOpenGL>(bytes, width, height));
  EXPECT_EQ(gl.gl().liveObjects(), 0u);
  for (const auto& texture : all) {
    EXPECT_TRUE(texture->isEmpty() && texture->width() == 0 && texture->height() == 0);
    texture->updateWithByteData(bytes, 1, 1);
    EXPECT_TRUE(texture->editRows(0, 1).empty());
    gl.gl().calls.clear();
    texture->bind(0);
    EXPECT_EQ(gl.gl().last("texImage2D(2D,RGBA,1,1)").bytes, std::vector<std::byte>(4));
    EXPECT_FALSE(texture->isValid());
  }
}

TEST(Texture, IsMadeWhateverAHostLeftBoundAndIsTransparentWhereThereIsNoMemoryForIt) {
  expectGLErrorsInThisTest();
  RegisteredGL gl;
  gl.gl().error = 0x0502;  // somebody else's
  VELTextureOpenGL taken(Bytes(16), 2, 2);
  EXPECT_EQ(gl.gl().texts(),
            "activeTexture(TEXTURE0) genTexture(1) bindTexture(2D,1) texParameteri(2D,WRAP_S,CLAMP) "
            "texParameteri(2D,WRAP_T,CLAMP) resetES3State() pixelStorei() texImage2D(2D,RGBA,2,2) "
            "texParameteri(2D,MIN,LINEAR) texParameteri(2D,MAG,LINEAR)");
  gl.gl().failing = "texImage2D";
  testing::internal::CaptureStderr();
  VELTextureOpenGL refused(Bytes(16), 2, 2);
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "OpenGL has no memory for a picture of 2 x 2 pixels; it is not drawn.\n");
  EXPECT_EQ(gl.gl().calls.back().text.substr(0, 13), "texParameteri");
  EXPECT_EQ(gl.gl().last("texImage2D").text, "texImage2D(2D,RGBA,1,1)");
  for (VELTextureOpenGL* const texture : {&taken, &refused}) texture->editRows(0, 1), texture->bind(0);
  EXPECT_EQ(gl.gl().count("texSubImage2D"), 1u);
}

TEST(Texture, SendsTheRowsThatChangedWhenItIsDrawnNext) {
  RegisteredGL gl;
  VELTextureOpenGL texture(Bytes(2 * 4 * 4), 2, 4);
  const auto sent = [&] {
    gl.gl().calls.clear();
    texture.bind(0);
    return gl.gl().texts("tex");
  };
  EXPECT_EQ(sent(), "") << "made at once";
  texture.updateWithByteData(Bytes{1, 1, 1, 1, 2, 2, 2, 2}, 1, 2);
  for (const auto& [width, height] : {std::pair{3, 1}, {1, 5}, {2, 2}, {0, 1}})
    texture.updateWithByteData(Bytes(12), width, height);
  EXPECT_EQ(sent(), "texSubImage2D(2D,0,0,2,2,RGBA)");
  EXPECT_EQ(elementsOf<uint8_t>(gl.gl().last("texSub").bytes),
            (Bytes{1, 1, 1, 1, 0, 0, 0, 0, 2, 2, 2, 2, 0, 0, 0, 0}));
  EXPECT_EQ(texture.editRows(2, 1).size(), 8u);
  texture.editRows(1, 1)[0] = 7;
  for (const auto& [first, count] : {std::pair{-1, 1}, {0, 5}, {4, 1}, {2, INT32_MAX}, {0, 0}})
    EXPECT_TRUE(texture.editRows(first, count).empty());
  EXPECT_EQ(sent(), "texSubImage2D(2D,0,1,2,2,RGBA)");
  EXPECT_EQ(sent(), "");
}

// The recorder fails a test that binds or deletes what its context does not have.
TEST(Texture, LivesInItsOwnContextIsCopiedToOthersAndSurvivesALoss) {
  RegisteredGL own, other;
  RecordingGLContext* const current = other.context.get();
  {
    VELTextureOpenGL texture(Bytes(4), 1, 1, own.context);
    EXPECT_TRUE(texture.isValid());
    EXPECT_EQ(VELGLContext::current(), current);
    for (int i = 0; i < 2; ++i) texture.bind(1);
    EXPECT_EQ(other.gl().count("genTexture"), 1u);
    EXPECT_EQ(texture.parentContext(), own.context);
    own.context->setLost();
    EXPECT_FALSE(texture.isValid());
    own.context->makeCurrent();
    EXPECT_FALSE(texture.isValid());
    texture.editRows(0, 1)[0] = 9;
    own.gl().calls.clear();
    texture.bind(0);
    EXPECT_EQ(own.gl().last("texImage2D").bytes.front(), std::byte{9});
    EXPECT_EQ(own.gl().count("texSubImage2D"), 0u);
    EXPECT_TRUE(texture.isValid());
    other.context->makeCurrent();
    own.context->losesUnseen = true;
    EXPECT_FALSE(texture.isValid());
    own.context->makeCurrent();
    texture.bind(0);
    other.context->makeCurrent();
    own.context->losesUnseen = true;
    other.context->setLost();
  }
  EXPECT_EQ(own.gl().liveObjects(), 0u);
  EXPECT_EQ(other.gl().count("deleteTexture"), 0u) << "of a lost context";
}

}  // namespace
