#include "velmora/platform/sdl/window_host.h"

std::shared_ptr<VELWindowHost> VELWindowHost::create(const VELWindowOptions&, std::string* failure) {
  if (failure)
    *failure =
        "This build opens no windows: configure it with -DVELMORA_WINDOW=ON and the Debian package "
        "libsdl2-dev.";
  return nullptr;
}

bool VELWindowHost::hasDisplay() { return false; }
