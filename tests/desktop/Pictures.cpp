#include "tests/desktop/Pictures.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFontMetrics>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QStyleOption>
#include <QToolButton>

#include "desktop/QtText.h"
#include "tests/deskkit/Cards.h"
#include "tests/desktop/Desk.h"

namespace ovalia::desktop {

namespace {

QSize room(const QWidget& widget) {
  if (auto* button = qobject_cast<const QPushButton*>(&widget)) {
    QStyleOptionButton option;
    option.initFrom(button);
    return button->style()->subElementRect(QStyle::SE_PushButtonContents, &option, button).size();
  }
  if (auto* check = qobject_cast<const QCheckBox*>(&widget)) {
    QStyleOptionButton option;
    option.initFrom(check);
    return check->style()->subElementRect(QStyle::SE_CheckBoxContents, &option, check).size();
  }
  return widget.size();
}

QString textOf(const QWidget& widget) {
  if (auto* label = qobject_cast<const QLabel*>(&widget)) return label->text();
  if (auto* button = qobject_cast<const QAbstractButton*>(&widget))
    return qobject_cast<const QToolButton*>(button) ? QString() : spoken(fromQt(button->text()));
  if (auto* line = qobject_cast<const QLineEdit*>(&widget)) return line->text();
  if (auto* combo = qobject_cast<const QComboBox*>(&widget))
    return combo->isEditable() ? QString() : combo->currentText();
  return {};
}

// Lines of an array are found in the order of the design.
QWidget* drawn(forms::Form& form, const forms::Control& control) {
  const auto all = deskkit::windowOf(form)->findChildren<QWidget*>(qname(control.Name()));
  int place = 0;
  for (const auto& other : form.controls()) {
    if (other.get() == &control) break;
    place += other->Name() == control.Name();
  }
  return place < all.size() ? all[place] : nullptr;
}

}  // namespace

QStringList cutTexts(const CardWindow& window) {
  QStringList cut;
  for (const QWidget* widget : window.findChildren<QWidget*>()) {
    const QString text = textOf(*widget);
    if (!widget->isVisible() || text.isEmpty()) continue;
    QSize place = room(*widget);
    if (auto* combo = qobject_cast<const QComboBox*>(widget)) {
      QStyleOptionComboBox option;
      option.initFrom(combo);
      place = combo->style()
                  ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, combo)
                  .size();
    }
    if (auto* line = qobject_cast<const QLineEdit*>(widget)) {
      QStyleOptionFrame option;
      option.initFrom(line);
      place = line->style()->subElementRect(QStyle::SE_LineEditContents, &option, line).size() - QSize(4, 0);
      if (!line->actions().isEmpty()) place -= QSize(line->height(), 0);
    }
    const QFontMetrics letters = widget->fontMetrics();
    const QSize needed(letters.horizontalAdvance(text), letters.height());
    if (needed.width() > place.width() || needed.height() > place.height() + 1)
      cut << QStringLiteral("%1 «%2» needs %3x%4, has %5x%6")
                 .arg(widget->objectName(), text)
                 .arg(needed.width())
                 .arg(needed.height())
                 .arg(place.width())
                 .arg(place.height());
  }
  return cut;
}

QStringList overlaps(forms::Form& form) {
  QStringList found;
  const auto& controls = form.controls();
  for (std::size_t i = 0; i < controls.size(); ++i)
    for (std::size_t j = i + 1; j < controls.size(); ++j) {
      const QWidget* a = drawn(form, *controls[i]);
      const QWidget* b = drawn(form, *controls[j]);
      if (!a || !b || a->parentWidget() != b->parentWidget() || !a->isVisible() || !b->isVisible()) continue;
      if (a->geometry().intersects(b->geometry()))
        found << a->objectName() + QStringLiteral(" over ") + b->objectName();
    }
  return found;
}

bool savePicture(QWidget& window, const QString& form, const QString& kind) {
  QDir().mkpath("pictures");
  return window.grab().save(QStringLiteral("pictures/%1_%2_%3dpi_x%4.png")
                                .arg(form, kind)
                                .arg(QApplication::primaryScreen()->logicalDotsPerInchX())
                                .arg(qApp->devicePixelRatio()));
}

}  // namespace ovalia::desktop
