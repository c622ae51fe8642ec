#include "desktop/CalendarPopup.h"

#include <QCalendarWidget>
#include <QFrame>
#include <QHBoxLayout>
#include <QLocale>
#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

namespace ovalia::desktop {

namespace {

// Under the widget, or above it where the screen ends.
QPoint placeFor(const QWidget& popup, const QWidget& under) {
  const QRect room = under.screen()->availableGeometry();
  const QSize size = popup.sizeHint();
  QPoint at = under.mapToGlobal(QPoint(0, under.height()));
  if (at.y() + size.height() > room.bottom()) at = under.mapToGlobal(QPoint(0, -size.height()));
  at.setX(std::max(room.left(), std::min(at.x(), room.right() - size.width())));
  return at;
}

}  // namespace

void popUpCalendar(QWidget& under, QDate shown, QDate present, std::function<void(QDate)> chosen) {
  auto* popup = new QFrame(&under, Qt::Popup);
  popup->setAttribute(Qt::WA_DeleteOnClose);
  popup->setFrameStyle(QFrame::StyledPanel);
  popup->setObjectName(QStringLiteral("calendario"));

  auto* calendar = new QCalendarWidget(popup);
  calendar->setLocale(QLocale(QLocale::Spanish, QLocale::Spain));
  calendar->setFirstDayOfWeek(Qt::Monday);
  calendar->setVerticalHeaderFormat(QCalendarWidget::NoVerticalHeader);
  calendar->setSelectedDate(shown);
  auto* today = new QPushButton(QStringLiteral("&Hoy"), popup);
  auto* none = new QPushButton(QStringLiteral("&Sin fecha"), popup);

  auto* buttons = new QHBoxLayout;
  buttons->addWidget(today);
  buttons->addWidget(none);
  auto* layout = new QVBoxLayout(popup);
  layout->setContentsMargins(4, 4, 4, 4);
  layout->addWidget(calendar);
  layout->addLayout(buttons);

  const auto choose = [popup, chosen = std::move(chosen)](QDate day) {
    popup->close();
    chosen(day);
  };
  QObject::connect(calendar, &QCalendarWidget::clicked, popup, choose);
  QObject::connect(calendar, &QCalendarWidget::activated, popup, [=](QDate day) {
    if (popup->isVisible()) choose(day);
  });
  QObject::connect(today, &QPushButton::clicked, popup, [=] { choose(present); });
  QObject::connect(none, &QPushButton::clicked, popup, [=] { choose(QDate()); });

  popup->move(placeFor(*popup, under));
  popup->show();
  calendar->setFocus();
}

}  // namespace ovalia::desktop
