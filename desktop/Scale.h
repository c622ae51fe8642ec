#pragma once

#include <QRect>
#include <QWidget>
#include <cmath>

namespace ovalia::desktop {

// Twips (1440 an inch) to the toolkit's pixels and back: 15 twips a pixel at 96 dots an inch.
class Scale {
 public:
  explicit Scale(double dotsPerInch) : pixelsPerTwip_(dotsPerInch / 1440.0) {}
  static Scale of(const QWidget& widget) { return Scale(widget.logicalDpiX()); }

  int pixels(double twips) const { return static_cast<int>(std::lround(twips * pixelsPerTwip_)); }
  double twips(int pixels) const { return std::round(pixels / pixelsPerTwip_); }

  // Edges are rounded, not sizes, so that controls which touch in the design touch on the screen.
  QRect rect(double left, double top, double width, double height) const {
    const int x = pixels(left), y = pixels(top);
    return QRect(x, y, pixels(left + width) - x, pixels(top + height) - y);
  }

 private:
  double pixelsPerTwip_;
};

}  // namespace ovalia::desktop
