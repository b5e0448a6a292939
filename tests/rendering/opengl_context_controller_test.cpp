// What is kept for each GL context, and the ends of the process.
#include "velmora/rendering/opengl_context_controller.h"

#include <gtest/gtest.h>

#include "tests/rendering/recorded_frame.h"
#include "velmora/rendering/brush_shader_controller.h"
#include "velmora/rendering/default_brush_shader.h"

namespace {

using Controller = VELOpenGLContextController;

TEST(GLContextController, EnablesOnlyWhatIsRegistered) {
  const auto a = std::make_shared<RecordingGLContext>();
  EXPECT_FALSE(Controller::o_enableContext(a));
  EXPECT_FALSE(Controller::o_enableContext(nullptr));
  EXPECT_NE(VELGLContext::current(), a.get());
  Controller::o_createContext(a);
  EXPECT_TRUE(Controller::o_enableContext(a));
  EXPECT_EQ(VELGLContext::current(), a.get());
  Controller::o_freeContext(a);
  EXPECT_FALSE(Controller::o_enableContext(a));
}

TEST(GLContextController, KeepsASharedContextUntilItsLastOwnerFreesIt) {
  RegisteredGL gl;
  Controller::o_createContext(gl.context);
  VELShaderAttributes attributes;
  VELBrushShaderController::o_applyDefaultBrushShader(attributes);
  Controller::o_freeContext(gl.context);
  EXPECT_TRUE(Controller::o_enableContext(gl.context));
  EXPECT_EQ(gl.gl().count("deleteProgram"), 0u);
  Controller::o_freeContext(gl.context);
  EXPECT_EQ(gl.gl().count("delete"), 3u) << "two shaders and the program";
  EXPECT_EQ(Controller::o_defaultBrushShader(attributes), nullptr);
}

TEST(GLContextController, ForgetsAContextThatWentAway) {
  auto context = std::make_shared<RecordingGLContext>();
  const std::weak_ptr<RecordingGLContext> gone = context;
  Controller::o_createContext(context);
  context.reset();
  EXPECT_TRUE(gone.expired()) << "registration does not keep it alive";
}

TEST(GLContextController, BuildsTheDefaultProgramOnceWithTheFixedSlots) {
  RegisteredGL gl;
  VELShaderAttributes a, b;
  VELBrushShaderController::o_applyDefaultBrushShader(a);
  EXPECT_EQ(gl.gl().texts("bindAttribLocation"),
            (CallTexts{"bindAttribLocation(1,0,Position)", "bindAttribLocation(1,1,SourceColor)",
                       "bindAttribLocation(1,2,TexCoordIn)"}));
  const auto source = elementsOf<char>(gl.gl().last("shaderSource(2)").bytes);
  EXPECT_EQ(std::string(source.begin(), source.end()), VELDefaultBrushShader().o_getFragmentShader());
  EXPECT_TRUE(a.sa_defaultShaderActivated);
  EXPECT_EQ(a.sa_projectionUniform, 7u);
  gl.gl().calls.clear();
  VELBrushShaderController::o_applyDefaultBrushShader(b);
  EXPECT_EQ(gl.gl().count("createShader"), 0u);
  gl.gl().calls.clear();
  VELBrushShaderController::o_applyDefaultBrushShader(b);
  EXPECT_TRUE(gl.gl().calls.empty()) << "in use, and the matrix is the one uploaded last";
  b.sa_totalMatrix[12] = 3;
  VELBrushShaderController::o_applyDefaultBrushShader(b);
  EXPECT_EQ(gl.gl().texts(), (CallTexts{"uniformMatrix4fv(7)"}));
}

TEST(GLContextController, LogsWhatTheDriverSaysOfABrokenShaderAndGoesOn) {
  RegisteredGL gl;
  gl.gl().compiles = 0;
  VELShaderAttributes attributes;
  testing::internal::CaptureStderr();
  VELBrushShaderController::o_applyDefaultBrushShader(attributes);
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "the shader is wrong\nthe shader is wrong\nthe program is wrong\n");
}

TEST(GLContextController, AttributeArraysAreEnabledOnceUntilTheStateIsForgotten) {
  RegisteredGL gl;
  gl.gl().calls.clear();
  for (int i = 0; i < 2; ++i) VELBrushShaderController::o_enableBuffers();
  EXPECT_EQ(gl.gl().count("enableVertexAttribArray"), 3u);
  Controller::o_enableContext(gl.context);
  VELBrushShaderController::o_enableBuffers();
  EXPECT_EQ(gl.gl().count("enableVertexAttribArray"), 6u);
  for (int i = 0; i < 2; ++i) VELBrushShaderController::o_disableBuffers();
  EXPECT_EQ(gl.gl().count("disableVertexAttribArray"), 3u);
}

TEST(GLContextControllerDeathTest, EndsTheProcessWhenAContextCannotBeMadeCurrent) {
  RegisteredGL gl;
  gl.context->refuses = true;
  EXPECT_EXIT(Controller::o_enableContext(gl.context), testing::ExitedWithCode(1),
              "Failed to set current OpenGL context");
}

}  // namespace
