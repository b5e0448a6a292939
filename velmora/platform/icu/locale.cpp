#include "velmora/platform/locale.h"

#include <clocale>
#include <cstdlib>
#include <string_view>

#include "velmora/platform/exception.h"
#include "velmora/platform/icu/icu_support.h"

namespace {

constexpr const char* kPlain = "en_US";

/// The C library's own locale has no language: it writes as programs do.
bool isPlain(std::string_view name) { return name == "C" || name == "POSIX" || name.starts_with("C."); }

std::string nameOfProcess() {
  // As long as the application has set none it is "C", whatever the environment says.
  const char* set = std::setlocale(LC_TIME, nullptr);
  if (set && !isPlain(set)) return set;
  for (const char* variable : {"LC_ALL", "LC_TIME", "LANG"})
    if (const char* name = std::getenv(variable); name && *name != '\0') return name;
  return kPlain;
}

}  // namespace

std::string VELCurrentLocale() {
  try {
    return VELKnownLocale(nameOfProcess());
  } catch (const VELInvalidArgumentException&) {
    return kPlain;
  }
}

std::string VELKnownLocale(const std::string& name) {
  return isPlain(name) ? kPlain : VELICULocale(name).getName();
}
