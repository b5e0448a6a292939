#include "velmora/rendering/opengl_context_controller.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <unordered_map>

#include "velmora/rendering/brush_shader_programs.h"
#include "velmora/rendering/shader_attributes.h"

namespace {

constexpr size_t initialCapacity = 16;

[[noreturn]] void endProcess(const char* reason) {
  std::fprintf(stderr, "%s\n", reason);
  std::exit(1);
}

}  // namespace

struct VELOpenGLContextController::Registry {
  std::unordered_map<const VELGLContext*, VELOpenGLContextController> controllers;
  VELOpenGLContextController* current = nullptr;

  Registry() { controllers.reserve(initialCapacity); }

  VELOpenGLContextController* find(const VELGLContext* context) {
    const auto found = controllers.find(context);
    if (found == controllers.end()) return nullptr;
    if (!found->second._context.expired()) return &found->second;
    // A context that went without being freed; a new one may live at its address.
    remove(found->second, context);
    return nullptr;
  }
  /// The current controller, unless somebody else made another context current since.
  VELOpenGLContextController* inUse() const {
    const VELGLContext* const context = VELGLContext::current();
    return context && current && current->_context.lock().get() == context ? current : nullptr;
  }
  void remove(const VELOpenGLContextController& controller, const VELGLContext* context) {
    if (current == &controller) current = nullptr;
    controllers.erase(context);
  }
};

VELOpenGLContextController::Registry& VELOpenGLContextController::registry() {
  // Never destroyed: surfaces in global objects of the application free their contexts after this file's
  // statics are gone.
  alignas(Registry) static std::byte storage[sizeof(Registry)];
  static Registry* const instance = std::construct_at(reinterpret_cast<Registry*>(storage));
  return *instance;
}

std::shared_ptr<VELGLContext> VELOpenGLContextController::o_createContext() {
  auto context = VELGLContext::create();
  if (!context) endProcess("Failed to initialize OpenGLES 2.0 context");
  o_createContext(context);
  return context;
}

void VELOpenGLContextController::o_createContext(const std::shared_ptr<VELGLContext>& context) {
  if (!context) return;
  VELOpenGLContextController* controller = registry().find(context.get());
  if (!controller) {
    controller = &registry().controllers[context.get()];
    controller->_context = context;
  }
  ++controller->_registrations;
}

bool VELOpenGLContextController::o_enableContext(const std::shared_ptr<VELGLContext>& context) {
  VELOpenGLContextController* const controller = registry().find(context.get());
  if (!controller) return false;
  if (registry().current) registry().current->_state.forget();
  registry().current = controller;
  controller->_state.forget();
  if (context->makeCurrent()) return true;
  // The driver may give a lost context back at a later refresh.
  if (!context->isLost()) endProcess("Failed to set current OpenGL context");
  registry().current = nullptr;
  return false;
}

bool VELOpenGLContextController::o_isRegistered(const std::shared_ptr<VELGLContext>& context) {
  return registry().find(context.get()) != nullptr;
}

void VELOpenGLContextController::o_freeContext(const std::shared_ptr<VELGLContext>& context) {
  VELOpenGLContextController* const controller = registry().find(context.get());
  if (!controller || --controller->_registrations > 0) return;
  controller->p_VEL_freeShaders(*context);
  registry().remove(*controller, context.get());
}

void VELOpenGLContextController::p_VEL_freeShaders(VELGLContext& context) {
  const VELGLContextScope scope(context, _generation);
  if (!scope.isCurrent()) return;
  for (const auto& program : _programs)
    if (program) program->o_freeShader();
}

template <typename Program>
VELBrushShaderProgram* VELOpenGLContextController::p_VEL_program(ProgramKind kind,
                                                                 const VELShaderAttributes& attributes) {
  VELOpenGLContextController* const controller = registry().inUse();
  if (!controller) return nullptr;
  if (const uint32_t generation = VELGLContext::current()->generation();
      controller->_generation != generation) {
    controller->_programs = {};
    controller->_generation = generation;
  }
  auto& program = controller->_programs[kind];
  if (!program) {
    program = std::make_unique<Program>(attributes);
    program->o_compileShaderProgram();
  }
  return program.get();
}

VELBrushShaderProgram* VELOpenGLContextController::o_defaultBrushShader(
    const VELShaderAttributes& attributes) {
  return p_VEL_program<VELDefaultBrushShaderProgram>(defaultProgram, attributes);
}

VELBrushShaderProgram* VELOpenGLContextController::o_textureBrushShader(
    const VELShaderAttributes& attributes) {
  return p_VEL_program<VELTextureBrushShaderProgram>(textureProgram, attributes);
}

VELBrushShaderProgram* VELOpenGLContextController::o_coloredTextureBrushShader(
    const VELShaderAttributes& attributes) {
  return p_VEL_program<VELColoredTextureBrushShaderProgram>(coloredTextureProgram, attributes);
}

VELBrushShaderProgram* VELOpenGLContextController::o_palettedTextureBrushShader(
    const VELShaderAttributes& attributes) {
  return p_VEL_program<VELPalettedTextureBrushShaderProgram>(palettedTextureProgram, attributes);
}

VELGLState* VELOpenGLContextController::o_currentState() {
  VELOpenGLContextController* const controller = registry().inUse();
  return controller ? &controller->_state : nullptr;
}

bool VELOpenGLContextController::isInFrame() {
  const VELGLState* const state = o_currentState();
  return state && state->isDrawing();
}

bool VELOpenGLContextController::o_buffersEnabled() {
  const VELGLState* const state = o_currentState();
  return state && state->attributeArraysEnabled();
}

void VELOpenGLContextController::o_enableContextBuffers() {
  if (VELGLState* const state = o_currentState()) state->setAttributeArrays(true);
}

void VELOpenGLContextController::o_disableContextBuffers() {
  if (VELGLState* const state = o_currentState()) state->setAttributeArrays(false);
}

void VELOpenGLContextController::o_getBufferForPostion(uint32_t& position, uint32_t& color,
                                                       uint32_t& texture) {
  position = 0;
  color = 1;
  texture = 2;
}
