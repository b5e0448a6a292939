// platform/export.h: what the shared library shows.
#pragma once

#if defined(_WIN32)
#define VELMORA_API
#else
#define VELMORA_API __attribute__((visibility("default")))
#endif
