#pragma once

#include <QCheckBox>
#include <QLineEdit>
#include <QWidget>
#include <functional>

#include "platform/Variant.h"

namespace ovalia::desktop {

// An editor of a date or a time of day. Day zero shows empty; where there is a check box, unticked means
// Null. What is typed counts when it is a whole day or time, else when the user goes on; a text that names
// none gives way to the value that was there.
//   Up, Down, "+", "-"  a day more or less; of a time, the part at the cursor
//   Page up, Page down  a month; of a time, an hour
//   H                   today, now
//   Delete              on a date wholly selected: no date
//   Space               ticks or unticks, where there is a box
//   F4, Alt+Down        the calendar
class PickerEdit : public QWidget {
 public:
  enum Kind { Day, TimeOfDay };

  PickerEdit(Kind kind, bool nullable, QWidget* parent);

  std::function<void(const Variant&)> chosen;  // the user chose this value

  QLineEdit* editor() const { return edit_; }
  void showValue(const Variant& value);
  void commit();
  bool takesKey(QKeyEvent& event);

 private:
  bool empty() const;
  void setText();
  void typed();
  void choose(const Variant& value);
  void chooseDay(double day);
  void step(int amount, bool large);
  void stepTime(int amount, bool large);
  void toggle();
  void openCalendar();

  Kind kind_;
  QCheckBox* tick_ = nullptr;
  QLineEdit* edit_;
  Variant value_ = Date{};
  double lastDay_ = 0;    // shown again when the box is ticked
  bool pending_ = false;  // typed since the value was shown
};

}  // namespace ovalia::desktop
