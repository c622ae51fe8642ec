#include "tests/deskkit/Cards.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "desktop/PickerEdit.h"
#include "desktop/QtText.h"

namespace ovalia::deskkit {

using desktop::CardWindow;

CardWindow* windowOf(const forms::Form& form) {
  CardWindow* found = nullptr;
  for (QWidget* window : QApplication::topLevelWidgets()) {
    auto* card = dynamic_cast<CardWindow*>(window);
    if (card && card->objectName() == desktop::toQt(form.Name()) && (!found || card->isVisible()))
      found = card;
  }
  return found;
}

QWidget* widgetOf(const forms::Form& form, TextView control) {
  CardWindow* window = windowOf(form);
  return window ? window->findChild<QWidget*>(desktop::toQt(control)) : nullptr;
}

QWidget* inputOf(const forms::Form& form, TextView control) {
  QWidget* found = widgetOf(form, control);
  if (auto* picker = dynamic_cast<desktop::PickerEdit*>(found)) return picker->editor();
  return found;
}

QString shownIn(const forms::Form& form, TextView control) {
  QWidget* found = inputOf(form, control);
  if (auto* line = qobject_cast<QLineEdit*>(found)) return line->text();
  if (auto* lines = qobject_cast<QPlainTextEdit*>(found)) return lines->toPlainText();
  if (auto* combo = qobject_cast<QComboBox*>(found)) return combo->currentText();
  return {};
}

}  // namespace ovalia::deskkit
