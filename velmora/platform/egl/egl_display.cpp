#include "velmora/platform/egl/egl_display.h"

#include <EGL/eglext.h>

#include <algorithm>
#include <array>

namespace {

/// @param list words with one space between them, or null
bool listHas(const char* list, std::string_view name) {
  std::string_view rest = list ? list : "";
  while (!rest.empty()) {
    const std::string_view word = rest.substr(0, rest.find(' '));
    if (word == name) return true;
    rest.remove_prefix(std::min(rest.size(), word.size() + 1));
  }
  return false;
}

template <typename Function>
Function entryPoint(const char* name) {
  return reinterpret_cast<Function>(eglGetProcAddress(name));
}

void addDevices(std::vector<EGLDisplay>& displays, PFNEGLGETPLATFORMDISPLAYEXTPROC getPlatformDisplay) {
  const auto queryDevices = entryPoint<PFNEGLQUERYDEVICESEXTPROC>("eglQueryDevicesEXT");
  if (!queryDevices) return;
  std::array<EGLDeviceEXT, 32> devices{};
  EGLint count = 0;
  if (!queryDevices(static_cast<EGLint>(devices.size()), devices.data(), &count)) return;
  for (EGLint i = 0; i < count; ++i)
    displays.push_back(getPlatformDisplay(EGL_PLATFORM_DEVICE_EXT, devices[static_cast<size_t>(i)], nullptr));
}

}  // namespace

std::vector<EGLDisplay> VELEGLDisplay::candidates() {
  std::vector<EGLDisplay> displays;
  const char* extensions = eglQueryString(EGL_NO_DISPLAY, EGL_EXTENSIONS);
  const auto getPlatformDisplay = entryPoint<PFNEGLGETPLATFORMDISPLAYEXTPROC>("eglGetPlatformDisplayEXT");
  if (getPlatformDisplay && listHas(extensions, "EGL_EXT_platform_base")) {
    if (listHas(extensions, "EGL_MESA_platform_surfaceless"))
      displays.push_back(getPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr));
    if (listHas(extensions, "EGL_EXT_platform_device")) addDevices(displays, getPlatformDisplay);
  }
  displays.push_back(eglGetDisplay(EGL_DEFAULT_DISPLAY));
  std::erase(displays, EGL_NO_DISPLAY);
  return displays;
}

std::optional<VELEGLDisplay> VELEGLDisplay::open(EGLDisplay handle) {
  if (!eglInitialize(handle, nullptr, nullptr)) return std::nullopt;
  return VELEGLDisplay(handle);
}

bool VELEGLDisplay::hasExtension(std::string_view name) const {
  return listHas(eglQueryString(_handle, EGL_EXTENSIONS), name);
}
