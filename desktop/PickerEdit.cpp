#include "desktop/PickerEdit.h"

#include <QAction>
#include <QApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QRegularExpressionValidator>
#include <QSignalBlocker>
#include <cmath>

#include "desktop/CalendarPopup.h"
#include "desktop/Icons.h"
#include "desktop/QtText.h"
#include "desktop/TypedMoment.h"
#include "platform/Platform.h"

namespace ovalia::desktop {

namespace {

constexpr double secondsADay = 86400;
const QDate dayZero(1899, 12, 30);

Date now() { return Platform::current().clock->now(); }
double today() { return std::floor(now().days); }
double timeOf(double days) { return days - std::floor(days); }

QDate qtDay(double days) { return dayZero.addDays(static_cast<qint64>(std::floor(days))); }
double dayOf(QDate day) { return static_cast<double>(dayZero.daysTo(day)); }

}  // namespace

PickerEdit::PickerEdit(Kind kind, bool nullable, QWidget* parent) : QWidget(parent), kind_(kind) {
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(4);
  if (nullable) {
    tick_ = new QCheckBox(this);
    tick_->setFocusPolicy(Qt::NoFocus);
    tick_->setAccessibleName(QStringLiteral("Con fecha"));
    connect(tick_, &QCheckBox::clicked, this, [this] { toggle(); });
    row->addWidget(tick_);
  }
  edit_ = new QLineEdit(this);
  edit_->setValidator(new QRegularExpressionValidator(
      QRegularExpression(kind == Day ? QStringLiteral("[0-9 ./-]{0,10}") : QStringLiteral("[0-9 :.]{0,8}")),
      edit_));
  connect(edit_, &QLineEdit::textEdited, this, [this] { typed(); });
  edit_->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
  row->addWidget(edit_, 1);
  setFocusProxy(edit_);
  if (kind == Day) {
    QAction* open = edit_->addAction(icon(u"calendario"), QLineEdit::TrailingPosition);
    open->setText(QStringLiteral("Calendario"));
    connect(open, &QAction::triggered, this, [this] { openCalendar(); });
  }
}

bool PickerEdit::empty() const {
  return value_.isNull() || (kind_ == Day && std::floor(value_.toDate().days) == 0);
}

void PickerEdit::showValue(const Variant& value) {
  value_ = value;
  if (!empty()) lastDay_ = value_.toDate().days;
  if (tick_) {
    const QSignalBlocker silent(tick_);
    tick_->setChecked(!value_.isNull());
  }
  if (!pending_) setText();
}

void PickerEdit::setText() {
  pending_ = false;
  const Text text =
      empty() ? Text() : formatDate(value_.toDate(), kind_ == Day ? u"dd/MM/yy" : u"hh:mm:ss", regionalNow());
  if (edit_->text() == toQt(text)) return;
  const QSignalBlocker silent(edit_);
  const bool all = edit_->hasFocus();
  edit_->setText(toQt(text));
  if (all) edit_->selectAll();
}

void PickerEdit::typed() {
  pending_ = true;
  const Text text = fromQt(edit_->text());
  if (kind_ == Day ? !wholeDay(text) : !wholeTime(text)) return;
  const auto moment = kind_ == Day ? typedDay(text, now(), regionalNow()) : typedTime(text);
  if (!moment) return;
  chooseDay(moment->days);
}

// Of a day the value keeps its time, of a time its day.
void PickerEdit::chooseDay(double days) {
  const double before = value_.isNull() ? 0 : value_.toDate().days;
  if (kind_ == Day)
    choose(Date{days + (days == 0 ? 0 : timeOf(before))});
  else
    choose(Date{std::floor(before) + days});
}

void PickerEdit::choose(const Variant& value) {
  const QPointer<PickerEdit> self(this);
  if (chosen) chosen(value);
  if (self && !pending_) setText();
}

void PickerEdit::commit() {
  if (!pending_) return;
  const Text text = fromQt(edit_->text());
  const QPointer<PickerEdit> self(this);
  pending_ = false;
  if (kind_ == Day && trimBlanks(text).empty()) {
    if (!empty()) choose(tick_ ? Variant(Null) : Variant(Date{}));
  } else if (const auto moment = kind_ == Day ? typedDay(text, now(), regionalNow()) : typedTime(text)) {
    chooseDay(moment->days);
  } else {
    QApplication::beep();
  }
  if (self) setText();
}

void PickerEdit::toggle() {
  pending_ = false;
  if (value_.isNull())
    choose(Date{lastDay_ != 0 ? lastDay_ : today()});
  else
    choose(Null);
}

void PickerEdit::step(int amount, bool large) {
  commit();
  if (kind_ == TimeOfDay) return stepTime(amount, large);
  if (empty()) return chooseDay(today());
  const QDate day = qtDay(value_.toDate().days);
  chooseDay(dayOf(large ? day.addMonths(amount) : day.addDays(amount)));
}

void PickerEdit::stepTime(int amount, bool large) {
  constexpr int partSeconds[] = {3600, 60, 1};
  const int cursor = edit_->hasSelectedText() ? edit_->selectionStart() : edit_->cursorPosition();
  const int part = large ? 0 : std::min(cursor / 3, 2);
  const double seconds = std::round(timeOf(value_.toDate().days) * secondsADay) + amount * partSeconds[part];
  chooseDay(timeOf(seconds / secondsADay));
  edit_->setSelection(part * 3, 2);
}

void PickerEdit::openCalendar() {
  commit();
  const QPointer<PickerEdit> self(this);
  const QDate present = qtDay(today());
  popUpCalendar(*this, empty() ? present : qtDay(value_.toDate().days), present, [self](QDate day) {
    if (!self) return;
    if (day.isValid())
      self->chooseDay(dayOf(day));
    else
      self->choose(self->tick_ ? Variant(Null) : Variant(Date{}));
  });
}

bool PickerEdit::takesKey(QKeyEvent& event) {
  const bool alt = event.modifiers() & Qt::AltModifier;
  switch (event.key()) {
    case Qt::Key_Down:
      if (alt && kind_ == Day) return openCalendar(), true;
      return step(-1, false), true;
    case Qt::Key_Up:
      return step(1, false), true;
    case Qt::Key_PageUp:
      return step(1, true), true;
    case Qt::Key_PageDown:
      return step(-1, true), true;
    case Qt::Key_Plus:
      return step(1, false), true;
    case Qt::Key_Minus:
      if (pending_ && kind_ == Day) return false;
      return step(-1, false), true;
    case Qt::Key_F4:
      if (kind_ == Day) openCalendar();
      return kind_ == Day;
    case Qt::Key_H:
      if (event.modifiers() & ~Qt::ShiftModifier) return false;
      pending_ = false;
      return chooseDay(kind_ == Day ? today() : timeOf(now().days)), true;
    case Qt::Key_Delete:
      if (kind_ != Day || edit_->selectedText() != edit_->text() || empty()) return false;
      pending_ = false;
      return choose(tick_ ? Variant(Null) : Variant(Date{})), true;
    case Qt::Key_Space:
      if (tick_ && !pending_) toggle();
      return tick_ && !pending_;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return commit(), true;
    default:
      return false;
  }
}

}  // namespace ovalia::desktop
