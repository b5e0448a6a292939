#include "velmora/platform/sdl/sdl_events.h"

#include <algorithm>
#include <cmath>
#include <string_view>

namespace {

std::string_view driver() {
  const char* const name = SDL_GetCurrentVideoDriver();
  return name ? name : "";
}

/// Elsewhere the toolkit's own wait looks for events a thousand times a second.
bool canSleep(std::string_view driver) { return driver == "x11" || driver == "wayland"; }

/// The console hands its keys to who owns the panel, so that none of them becomes a signal.
void takeQuitKeys(SDL_Event& event) {
  if (event.type != SDL_KEYDOWN || driver() != "KMSDRM") return;
  const SDL_Keysym& key = event.key.keysym;
  if ((key.mod & KMOD_CTRL) == 0 || (key.sym != SDLK_c && key.sym != SDLK_q)) return;
  const uint32_t timestamp = event.key.timestamp;
  event.quit = {SDL_QUIT, timestamp};
}

/// Looks for events at the pace of a display, which is as late as a finger may be answered.
bool awaitByLooking(SDL_Event& event, double mostMilliseconds) {
  constexpr double kPause = 8.0;
  const uint64_t begin = SDL_GetTicks64();
  for (;;) {
    if (SDL_PollEvent(&event) != 0) return true;
    const double rest = mostMilliseconds - static_cast<double>(SDL_GetTicks64() - begin);
    if (!(rest > 0.0)) return false;
    SDL_Delay(static_cast<uint32_t>(std::min(kPause, rest)));
  }
}

bool await(SDL_Event& event, double mostSeconds) {
  constexpr double kMostMilliseconds = 1e9;
  if (!(mostSeconds > 0.0)) return SDL_PollEvent(&event) != 0;
  const double milliseconds = std::ceil(mostSeconds * 1000.0);
  if (!canSleep(driver())) return awaitByLooking(event, milliseconds);
  if (milliseconds > kMostMilliseconds) return SDL_WaitEvent(&event) != 0;
  return SDL_WaitEventTimeout(&event, static_cast<int>(milliseconds)) != 0;
}

}  // namespace

bool VELSDLNextEvent(SDL_Event& event, double mostSeconds) {
  if (!await(event, mostSeconds)) return false;
  takeQuitKeys(event);
  return true;
}
