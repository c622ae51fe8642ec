#include "desktop/ElidedText.h"

#include <QPainter>
#include <QStyleOptionFrame>

namespace ovalia::desktop {

namespace {
constexpr int sideMargin = 2;  // between frame and letters, as the toolkit has it
}

QRect ElidedLineEdit::room() const {
  QStyleOptionFrame panel;
  initStyleOption(&panel);
  return style()
      ->subElementRect(QStyle::SE_LineEditContents, &panel, this)
      .marginsRemoved(textMargins())
      .adjusted(sideMargin, 0, -sideMargin, 0);
}

void ElidedLineEdit::paintEvent(QPaintEvent* event) {
  const QRect place = room();
  if (hasFocus() || fontMetrics().horizontalAdvance(text()) <= place.width())
    return QLineEdit::paintEvent(event);
  QStyleOptionFrame panel;
  initStyleOption(&panel);
  QPainter painter(this);
  style()->drawPrimitive(QStyle::PE_PanelLineEdit, &panel, &painter, this);
  painter.setPen(panel.palette.color(QPalette::Text));
  const int top = place.top() + (place.height() - fontMetrics().height() + 1) / 2;
  painter.drawText(place.left(), top + fontMetrics().ascent(),
                   fontMetrics().elidedText(text(), Qt::ElideRight, place.width()));
}

}  // namespace ovalia::desktop
