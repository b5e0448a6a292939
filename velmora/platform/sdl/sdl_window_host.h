// platform/sdl/sdl_window_host.h: the window host as built.
#pragma once

#include <SDL.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "velmora/platform/display_link.h"
#include "velmora/platform/frame_pacer.h"
#include "velmora/platform/gl_composer.h"
#include "velmora/platform/sdl/sdl_clock.h"
#include "velmora/platform/sdl/sdl_context.h"
#include "velmora/platform/sdl/sdl_input.h"
#include "velmora/platform/sdl/sdl_signals.h"
#include "velmora/platform/sdl/window_host.h"
#include "velmora/platform/timer_list.h"
#include "velmora/platform/touch_router.h"

/// One turn: wait, hand on events, follow the window, fire timers, draw a frame when one is wanted and due.
class VELSDLWindowHost final : public VELWindowHost, public std::enable_shared_from_this<VELSDLWindowHost> {
 public:
  VELSDLWindowHost(std::shared_ptr<VELSDLContext> context, const VELWindowOptions& options);
  ~VELSDLWindowHost() override;
  /// Takes the signals of the process, shows the background and follows the window for the first time.
  void start();

  const std::shared_ptr<VELGLContext>& glContext() const override { return _glContext; }
  const std::shared_ptr<VELDisplayLink>& displayLink() const override { return _displayLink; }
  double contentScale() const override { return _contentScale; }
  const std::shared_ptr<VELView>& rootView() const override { return _rootView; }

  void run() override;
  bool step(double mostSeconds) override;
  void stop() override { _isStopped = true; }
  bool isOpen() const override { return _isOpen; }
  bool wasInterrupted() const override { return _wasInterrupted; }

  uint64_t addTimer(double intervalSeconds, std::function<void(double seconds)> callback) override;
  void removeTimer(uint64_t key) override;
  void setTimerInterval(uint64_t key, double intervalSeconds) override;
  double seconds() const override { return _clock.seconds(); }

  void setTitle(const std::string& title) override;
  void setBackgroundColor(const VELColor& color) override;
  void setContentScale(double pixelsPerPoint) override;
  void setContentScaleChanged(std::function<void(double)> callback) override;
  void setSizeChanged(std::function<void(const VELSize&)> callback) override;

  uint64_t presentedFrames() const override { return _presentedFrames; }
  VELBitmap picture() override;

 private:
  using ScaleCallback = std::shared_ptr<const std::function<void(double)>>;
  using SizeCallback = std::shared_ptr<const std::function<void(const VELSize&)>>;

  void turn(double mostSeconds);
  /// Seconds until there is something to do, at most @p mostSeconds; infinity while nothing will be.
  double waitingTime(double mostSeconds) const;
  void handle(const SDL_Event& event);
  void handleWindow(const SDL_WindowEvent& event);
  void close();
  void cancelFingers();
  void followWindow();
  void followDisplay();

  VELSDLWindow& window() const { return _context->window(); }
  VELSDLInput::Extent extent() const;
  bool canShow() const;
  bool wantsFrame() const;
  void beat();
  bool composeTree();

  // In this order: the views go first, then what draws them, the context last.
  std::shared_ptr<VELSDLContext> _context;
  std::shared_ptr<VELGLContext> _glContext;  ///< the same, as others see it
  VELGLComposer _composer;
  std::shared_ptr<VELDisplayLink> _displayLink = std::make_shared<VELDisplayLink>();
  std::shared_ptr<VELView> _rootView = std::make_shared<VELView>();
  VELTouchRouter _router{_rootView};
  VELSDLInput _input;
  VELSDLSignalWatch _signals;
  VELSDLClock _clock;
  VELTimerList _timers;
  VELFramePacer _pacer;

  double _forcedScale;
  double _systemScale = 1.0;
  double _contentScale = 1.0;
  VELColor _backgroundColor;
  ScaleCallback _contentScaleChanged;  ///< shared, so that one outlives its own replacement
  SizeCallback _sizeChanged;

  uint64_t _presentedFrames = 0;
  uint64_t _shownFingerprint = 0;
  uint32_t _shownGeneration = 0;
  bool _isUncovered = true;  ///< the window lost its picture, or never had one
  bool _isOpen = true;
  bool _isStopped = false;
  bool _isTurning = false;
  bool _wasInterrupted = false;
};
