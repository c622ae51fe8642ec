#pragma once

#include <cstdint>
#include <span>

#include "platform/Text.h"

namespace ovalia::desktop {

enum class Ink : std::uint8_t { None, Line, Blue, Green, Red, Amber, Grey, Paper };

// One stroke of a drawing on a grid of 24 by 24. Paths: M and L points, H and V lines, C curves, Z closes,
// O a circle (centre, radius), R a rectangle (corner, width, height).
struct Stroke {
  TextView icon;
  Ink pen;
  Ink fill;
  const char* path;
};

// In the order of drawing; the strokes of an icon stand together.
std::span<const Stroke> iconStrokes();

}  // namespace ovalia::desktop
