// platform/sdl/sdl_events.h: the next thing that happens, and the wait for it.
#pragma once

#include <SDL.h>

/// Takes the next event of the process, after at most @p mostSeconds: infinity waits for ever, 0 and less not
/// at all. Waits in whole milliseconds, rounded up so that what is awaited is due afterwards.
///
/// On a panel without a desktop, where no window has a button to close it, Ctrl+C and Ctrl+Q come as the end
/// of the session.
/// @return false when nothing happened
bool VELSDLNextEvent(SDL_Event& event, double mostSeconds);
