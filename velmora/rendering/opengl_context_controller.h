// rendering/opengl_context_controller.h: what the library keeps for each GL context of the platform.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "velmora/platform/export.h"
#include "velmora/platform/gl_context.h"
#include "velmora/rendering/brush_shader_program.h"
#include "velmora/rendering/gl_state.h"

struct VELShaderAttributes;

/// Shader programs and known state of one GL context; one of them is current in the process.
///
/// Without a usable GL context there is no chart: creating or enabling one that fails ends the process.
class VELMORA_API VELOpenGLContextController {
 public:
  /// A new, registered GL context. Failing logs "Failed to initialize OpenGLES 2.0 context" and exits with 1.
  static std::shared_ptr<VELGLContext> o_createContext();
  /// Registers a context made elsewhere. Charts that share a context each register it and each free it.
  static void o_createContext(const std::shared_ptr<VELGLContext>& context);
  /// Makes a registered context current and forgets what was known of its state. Failing logs
  /// "Failed to set current OpenGL context" and exits with 1.
  /// @return whether the context is registered; one that is not is not made current. Also false while a lost
  /// context cannot be had again.
  static bool o_enableContext(const std::shared_ptr<VELGLContext>& context);
  static bool o_isRegistered(const std::shared_ptr<VELGLContext>& context);
  /// Takes back one registration. The last one deletes its programs.
  static void o_freeContext(const std::shared_ptr<VELGLContext>& context);

  /// A program of the current context, built on first use with the slots of @p attributes and again after the
  /// context was lost; null when the context that is current was not enabled here. Owned by the controller.
  static VELBrushShaderProgram* o_defaultBrushShader(const VELShaderAttributes& attributes);
  static VELBrushShaderProgram* o_textureBrushShader(const VELShaderAttributes& attributes);
  static VELBrushShaderProgram* o_coloredTextureBrushShader(const VELShaderAttributes& attributes);
  static VELBrushShaderProgram* o_palettedTextureBrushShader(const VELShaderAttributes& attributes);
  /// Known state of the current context; null as above.
  static VELGLState* o_currentState();

  /// True between the start of a surface's frame and its end, in the current context.
  static bool isInFrame();

  static bool o_buffersEnabled();
  static void o_enableContextBuffers();
  static void o_disableContextBuffers();
  /// 0, 1 and 2. (The spelling is part of the interface.)
  static void o_getBufferForPostion(uint32_t& position, uint32_t& color, uint32_t& texture);

 private:
  struct Registry;
  enum ProgramKind : uint8_t {
    defaultProgram,
    textureProgram,
    coloredTextureProgram,
    palettedTextureProgram
  };
  static constexpr size_t programKinds = 4;

  static Registry& registry();
  /// The program of a kind in the current context.
  template <typename Program>
  static VELBrushShaderProgram* p_VEL_program(ProgramKind kind, const VELShaderAttributes& attributes);
  void p_VEL_freeShaders(VELGLContext& context);

  std::weak_ptr<VELGLContext> _context;  ///< weak: a context that is gone took its programs along
  int32_t _registrations = 0;
  VELGLState _state;
  std::array<std::unique_ptr<VELBrushShaderProgram>, programKinds> _programs;
  uint32_t _generation = 0;  ///< of the context that the programs were built in
};
