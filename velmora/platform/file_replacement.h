// platform/file_replacement.h: a file that changes as a whole or not at all.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "velmora/platform/export.h"

/// Gives a file new contents: writes them beside it, then renames. A failure leaves the old file as it was
/// and nothing beside it. A symbolic link stays one and its target is replaced; what is no plain file (a
/// device, a pipe) is written to directly, since renaming would take its place.
/// @return nothing when all went well, else the reason in one sentence
VELMORA_API std::optional<std::string> VELReplaceFile(const std::string& path,
                                                      std::span<const uint8_t> contents);
