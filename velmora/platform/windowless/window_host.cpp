#include "velmora/platform/sdl/window_host.h"

bool VELWindowHost::hasDisplay(std::string* failure) {
  if (failure)
    *failure =
        "This build opens no windows: configure it with -DVELMORA_WINDOW=ON and the Debian package "
        "libsdl2-dev.";
  return false;
}

std::shared_ptr<VELWindowHost> VELWindowHost::create(const VELWindowOptions&, std::string* failure) {
  hasDisplay(failure);
  return nullptr;
}
