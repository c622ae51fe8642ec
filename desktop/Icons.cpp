#include "desktop/Icons.h"

#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <array>
#include <cstdlib>

#include "desktop/IconDrawings.h"

namespace ovalia::desktop {

namespace {

constexpr double grid = 24;
constexpr double penWidth = 1.5;
constexpr double disabledOpacity = 0.35;

constexpr std::array<QRgb, 8> inks{0,          0xff37474f, 0xff1e6fb8, 0xff2e8b57,
                                   0xffc0392b, 0xffe0a020, 0xff9aa5ad, 0xffffffff};

QColor colour(Ink ink) { return QColor::fromRgb(inks[static_cast<std::size_t>(ink)]); }

// Reads the path language of the drawings.
class PathReader {
 public:
  explicit PathReader(const char* text) : at_(text) {}

  QPainterPath read() {
    while (skipBlanks()) step(*at_++);
    return path_;
  }

 private:
  bool skipBlanks() {
    while (*at_ == ' ') ++at_;
    return *at_ != '\0';
  }
  double number() {
    char* end = nullptr;
    const double value = std::strtod(at_, &end);
    at_ = end;
    return value;
  }
  QPointF point() {
    const double x = number();
    return {x, number()};
  }
  void step(char command) {
    const QPointF here = path_.currentPosition();
    switch (command) {
      case 'M':
        return path_.moveTo(point());
      case 'L':
        return path_.lineTo(point());
      case 'H':
        return path_.lineTo(number(), here.y());
      case 'V':
        return path_.lineTo(here.x(), number());
      case 'Z':
        return path_.closeSubpath();
      case 'C': {
        const QPointF first = point(), second = point();
        return path_.cubicTo(first, second, point());
      }
      case 'O': {
        const QPointF centre = point();
        const double radius = number();
        return path_.addEllipse(centre, radius, radius);
      }
      default: {  // R
        const QPointF corner = point();
        const double width = number();
        path_.addRect(QRectF(corner, QSizeF(width, number())));
      }
    }
  }

  const char* at_;
  QPainterPath path_;
};

// Draws at whatever size it is asked for, so nothing is ever stretched.
class DrawnIcon : public QIconEngine {
 public:
  explicit DrawnIcon(std::span<const Stroke> strokes) : strokes_(strokes) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    if (mode == QIcon::Disabled) painter->setOpacity(disabledOpacity);
    painter->translate(rect.topLeft());
    painter->scale(rect.width() / grid, rect.height() / grid);
    for (const Stroke& stroke : strokes_) {
      painter->setPen(stroke.pen == Ink::None
                          ? QPen(Qt::NoPen)
                          : QPen(colour(stroke.pen), penWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
      painter->setBrush(stroke.fill == Ink::None ? QBrush(Qt::NoBrush) : QBrush(colour(stroke.fill)));
      painter->drawPath(PathReader(stroke.path).read());
    }
    painter->restore();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap picture(size);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return picture;
  }

  QIconEngine* clone() const override { return new DrawnIcon(*this); }

 private:
  std::span<const Stroke> strokes_;
};

}  // namespace

QIcon icon(TextView name) {
  const auto all = iconStrokes();
  const auto is = [=](const Stroke& stroke) { return stroke.icon == name; };
  const auto first = std::find_if(all.begin(), all.end(), is);
  const auto last = std::find_if_not(first, all.end(), is);
  if (first == last) return {};
  return QIcon(new DrawnIcon({first, last}));
}

}  // namespace ovalia::desktop
