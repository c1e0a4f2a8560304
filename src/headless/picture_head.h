#pragma once
// The size of a picture, read from the head of its file.

#include "controls/control.h"

#include <optional>
#include <string_view>

/// The size in pixels of a JPEG, PNG, GIF or BMP picture; nothing if the bytes are no such picture.
std::optional<Size> PictureSizeOf(std::string_view file);
