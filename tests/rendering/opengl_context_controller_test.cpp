// What is kept for each GL context, and the ends of the process.
#include "velmora/rendering/opengl_context_controller.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdio>
#include <cstdlib>

#include "tests/rendering/recorded_frame.h"
#include "velmora/rendering/brush_shader_controller.h"

namespace {

using Controller = VELOpenGLContextController;
constexpr auto applyShader = VELBrushShaderController::o_applyDefaultBrushShader;

TEST(GLContextController, EnablesWhatIsRegisteredUntilItsLastOwnerFreesIt) {
  const auto context = std::make_shared<RecordingGLContext>();
  EXPECT_FALSE(Controller::o_enableContext(context));
  EXPECT_FALSE(Controller::o_enableContext(nullptr));
  EXPECT_NE(VELGLContext::current(), context.get());
  for (int owner = 0; owner < 2; ++owner) Controller::o_createContext(context);
  EXPECT_TRUE(Controller::o_enableContext(context));
  EXPECT_EQ(VELGLContext::current(), context.get());
  VELShaderAttributes attributes;
  applyShader(attributes);
  Controller::o_freeContext(context);
  EXPECT_TRUE(Controller::o_enableContext(context));
  EXPECT_EQ(context->gl().count("delete"), 0u);
  Controller::o_freeContext(context);
  EXPECT_EQ(context->gl().count("delete"), 3u) << "two shaders and the program";
  EXPECT_EQ(Controller::o_defaultBrushShader(attributes), nullptr);
  EXPECT_FALSE(Controller::o_enableContext(context));
}

TEST(GLContextController, ForgetsAContextThatWentAway) {
  // Both contexts live at the same address, which is all that the second has in common with the first.
  alignas(RecordingGLContext) std::byte place[sizeof(RecordingGLContext)];
  const auto create = [&place] {
    return std::shared_ptr<RecordingGLContext>(
        std::construct_at(reinterpret_cast<RecordingGLContext*>(place)),
        [](RecordingGLContext* context) { std::destroy_at(context); });
  };
  auto context = create();
  Controller::o_createContext(context);
  ASSERT_TRUE(Controller::o_enableContext(context));
  VELShaderAttributes attributes;
  applyShader(attributes);
  context.reset();
  EXPECT_EQ(VELGLContext::current(), nullptr) << "registration does not keep it alive";

  context = create();
  EXPECT_FALSE(Controller::o_enableContext(context));
  EXPECT_EQ(VELGLContext::current(), nullptr);
  EXPECT_EQ(Controller::o_currentState(), nullptr);
  Controller::o_createContext(context);
  ASSERT_TRUE(Controller::o_enableContext(context));
  applyShader(attributes);
  EXPECT_EQ(context->gl().count("linkProgram"), 1u) << "the program of the first is not taken for its own";
  Controller::o_freeContext(context);
  EXPECT_FALSE(Controller::o_enableContext(context)) << "registered once";
}

// Length and 64-bit FNV-1a hash of a shader's text. Drivers differ in what they make of changed texts, so a
// change has to be meant.
using Source = std::pair<size_t, uint64_t>;
Source sourceOf(const std::vector<std::byte>& text) {
  uint64_t hash = 0xcbf29ce484222325;
  for (const std::byte byte : text) hash = (hash ^ static_cast<uint64_t>(byte)) * 0x100000001b3;
  return {text.size(), hash};
}

TEST(GLContextController, BuildsEachProgramOnceFromItsSourcesWithTheFixedSlots) {
  RegisteredGL gl;
  using Controller = VELBrushShaderController;
  VELShaderAttributes attributes;
  const struct {
    void (*apply)(VELShaderAttributes&);
    std::vector<Source> sources;  ///< vertex, then fragment shader
  } rows[] = {
      {Controller::o_applyDefaultBrushShader, {{308, 0xdc0d78b11ad470c9}, {180, 0xbbc8c5a02f1d093a}}},
      {Controller::o_applyTextureBrushShader, {{245, 0xdfb82f2bc5c7932a}, {125, 0x8f89aa2a4b1caaca}}},
      {Controller::o_applyColoredTextureBrushShader, {{308, 0x2eb74ae75b5dffd7}, {266, 0x361ae0ae8738342f}}},
      {Controller::o_applyPalettedTextureBrushShader,
       {{245, 0xdfb82f2bc5c7932a}, {223, 0xd01c9d781129aeb9}}}};
  for (const auto& [apply, expected] : rows) {
    gl.gl().calls.clear();
    apply(attributes);
    std::vector<Source> sources;
    for (const RecordedCall& call : gl.gl().calls)
      if (call.text.starts_with("shaderSource")) sources.push_back(sourceOf(call.bytes));
    EXPECT_EQ(sources, expected);
    for (const char* attribute : {",0,Position)", ",1,SourceColor)", ",2,TexCoordIn)"})
      EXPECT_NE(gl.gl().texts("bindAttribLocation").find(attribute), std::string::npos) << attribute;
    gl.gl().calls.clear();
    apply(attributes);
    EXPECT_EQ(gl.gl().texts(), "") << "in use, and the matrix is the one uploaded last";
  }
}

// A global object of the application, older than anything the library keeps.
TEST(GLContextControllerDeathTest, ServesGlobalObjectsUntilTheProcessIsGone) {
  struct Global {
    std::shared_ptr<RecordingGLContext> context;
    ~Global() {
      const bool isRegistered = Controller::o_enableContext(context);
      Controller::o_freeContext(context);
      std::fprintf(stderr, "%s, %s", isRegistered ? "registered" : "lost",
                   Controller::o_enableContext(context) ? "kept" : "freed");
    }
  };
  GTEST_FLAG_SET(death_test_style, "threadsafe");  // a process that has used nothing of the library before
  EXPECT_EXIT(
      {
        static Global global;
        global.context = std::make_shared<RecordingGLContext>();
        Controller::o_createContext(global.context);
        std::exit(0);
      },
      testing::ExitedWithCode(0), "registered, freed");
}

TEST(GLContextControllerDeathTest, EndsTheProcessWhenAContextCannotBeMadeCurrent) {
  RegisteredGL gl;
  gl.context->refuses = true;
  EXPECT_EXIT(Controller::o_enableContext(gl.context), testing::ExitedWithCode(1),
              "Failed to set current OpenGL context");
}

}  // namespace
