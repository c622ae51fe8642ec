#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcutEvent>
#include <QSignalBlocker>
#include <QStyleOptionComboBox>
#include <QWheelEvent>
#include <algorithm>

#include "desktop/ControlWidget.h"
#include "desktop/ElidedText.h"
#include "desktop/QtText.h"
#include "forms/Form.h"

namespace ovalia::desktop {

using forms::Property;

namespace {

constexpr int entriesShown = 20;

// The wheel turns its entries only while it has the focus: scrolling past it must not change a card. A text
// too long for it ends in "…"; its list is as wide as its entries.
class Combo : public QComboBox {
 public:
  using QComboBox::QComboBox;

  void showPopup() override {
    const int bar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    view()->setMinimumWidth(view()->sizeHintForColumn(modelColumn()) +
                            (count() > maxVisibleItems() ? bar : 0));
    QComboBox::showPopup();
  }

 protected:
  void initStyleOption(QStyleOptionComboBox* option) const override {
    QComboBox::initStyleOption(option);
    const QRect room =
        style()->subControlRect(QStyle::CC_ComboBox, option, QStyle::SC_ComboBoxEditField, this);
    option->currentText = fontMetrics().elidedText(option->currentText, Qt::ElideRight, room.width() - 2);
  }
  void wheelEvent(QWheelEvent* event) override {
    if (hasFocus())
      QComboBox::wheelEvent(event);
    else
      event->ignore();
  }
};

class ComboWidget : public ControlWidget {
 public:
  ComboWidget(const forms::ControlRef& control, QWidget* parent) : ComboWidget(control, new Combo(parent)) {}

  void follow(Property property) override {
    const QSignalBlocker silent(combo_);
    if (property == Property::List) followList();
    if (property == Property::List || property == Property::Value) followText();
    ControlWidget::follow(property);
  }

 private:
  ComboWidget(const forms::ControlRef& control, QComboBox* combo)
      : ControlWidget(control, combo), combo_(combo) {
    combo->setMaxVisibleItems(entriesShown);
    combo->setFocusPolicy(Qt::StrongFocus);
    connect(combo, &QComboBox::activated, this, [this](int position) {
      const QPointer<ComboWidget> self(this);
      model().userPicks(position);
      if (self) follow(Property::Value);
    });
    if (control->has(forms::dropDownList)) return;
    combo->setEditable(true);
    combo->setLineEdit(new ElidedLineEdit(combo));
    combo->setInsertPolicy(QComboBox::NoInsert);
    combo->setCompleter(nullptr);
    // On leaving, the widget would pick the entry that differs in case only: typing is no picking here.
    QObject::disconnect(combo->lineEdit(), SIGNAL(editingFinished()), combo, nullptr);
    connect(combo->lineEdit(), &QLineEdit::textEdited, this, [this](const QString& text) {
      const QPointer<ComboWidget> self(this);
      model().userTypes(fromQt(text));
      if (self) follow(Property::Value);
    });
  }

  void followList() {
    const auto& entries = model().entries();
    if (combo_->count() + 1 == static_cast<int>(entries.size())) {
      combo_->addItem(toQt(entries.back().text));
      return;
    }
    combo_->clear();
    for (const auto& entry : entries) combo_->addItem(toQt(entry.text));
  }

  void followText() {
    const QString text = toQt(model().text());
    if (!combo_->isEditable()) return combo_->setCurrentIndex(model().ListIndex());
    if (combo_->currentText() == text && combo_->currentIndex() == model().ListIndex()) return;
    const int cursor = combo_->lineEdit()->cursorPosition();
    const bool same = combo_->currentText() == text;
    combo_->setCurrentIndex(model().ListIndex());
    combo_->setEditText(text);
    combo_->lineEdit()->setCursorPosition(same ? cursor : 0);
  }

  forms::ComboBox& model() const { return static_cast<forms::ComboBox&>(control()); }

  QComboBox* combo_;
};

class CheckWidget : public ControlWidget {
 public:
  CheckWidget(const forms::ControlRef& control, QWidget* parent)
      : ControlWidget(control, new QCheckBox(parent)), box_(static_cast<QCheckBox*>(widget())) {
    connect(box_, &QCheckBox::clicked, this, [this] {
      const QPointer<CheckWidget> self(this);
      model().userToggles();
      if (self) follow(Property::Value);
    });
  }

  void follow(Property property) override {
    const QSignalBlocker silent(box_);
    if (property == Property::Value) box_->setChecked(model().Value() != 0);
    if (property == Property::Caption) box_->setText(toQt(control().Caption()));
    ControlWidget::follow(property);
  }

 private:
  forms::CheckBox& model() const { return static_cast<forms::CheckBox&>(control()); }

  QCheckBox* box_;
};

// A letter that it shares with a menu presses it.
class Button : public QPushButton {
 public:
  using QPushButton::QPushButton;

 protected:
  bool event(QEvent* event) override {
    if (event->type() != QEvent::Shortcut || !static_cast<QShortcutEvent*>(event)->isAmbiguous())
      return QPushButton::event(event);
    return click(), true;
  }
};

class ButtonWidget : public ControlWidget {
 public:
  ButtonWidget(const forms::ControlRef& control, QWidget* parent)
      : ControlWidget(control, new Button(parent)), button_(static_cast<Button*>(widget())) {
    button_->setAutoDefault(false);
    button_->setDefault(control->has(forms::defaultButton));
    connect(button_, &QPushButton::clicked, this,
            [kept = std::static_pointer_cast<forms::CommandButton>(control)] { kept->userClicks(); });
  }

  void follow(Property property) override {
    if (property == Property::Caption) {
      button_->setText(toQt(control().Caption()));
      if (!answers()) button_->setShortcut({});
    }
    ControlWidget::follow(property);
  }

  bool takesKey(QKeyEvent& event) override {
    const bool enter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    if (!enter || (event.modifiers() & ~Qt::KeypadModifier)) return false;
    if (!event.isAutoRepeat()) button_->click();
    return true;
  }

 private:
  // A button on which nothing hangs leaves its letter to the menu. A form without a table of what hangs on
  // its controls answers by code of its own.
  bool answers() const {
    const auto events = control().form().design().events;
    return events.empty() || std::any_of(events.begin(), events.end(), [&](const forms::EventRow& row) {
             return row.control == control().design().name;
           });
  }

  Button* button_;
};

}  // namespace

ControlWidgetPtr makeComboWidget(const forms::ControlRef& control, QWidget* parent) {
  return std::make_unique<ComboWidget>(control, parent);
}

ControlWidgetPtr makeCheckWidget(const forms::ControlRef& control, QWidget* parent) {
  return std::make_unique<CheckWidget>(control, parent);
}

ControlWidgetPtr makeButtonWidget(const forms::ControlRef& control, QWidget* parent) {
  return std::make_unique<ButtonWidget>(control, parent);
}

}  // namespace ovalia::desktop
