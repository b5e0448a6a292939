// platform/locale.h: whose habits of writing apply.
#pragma once

#include <string>

#include "velmora/platform/export.h"

/// Name of the locale in which the process writes dates: what the application gave to `setlocale`, else the
/// environment's LC_ALL, LC_TIME or LANG, whichever is set first. None, and a name that nobody knows, counts
/// as "en_US": what the environment says is no fault of the application.
VELMORA_API std::string VELCurrentLocale();

/// A locale's canonical name: "de_DE" for "de-DE" and "de_DE.UTF-8", "en_US" for "C" and "POSIX".
/// @throws VELInvalidArgumentException naming a locale whose language is unknown
VELMORA_API std::string VELKnownLocale(const std::string& name);
