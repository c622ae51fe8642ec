#include "desktop/PickerEdit.h"

#include <QCalendarWidget>
#include <QCheckBox>
#include <QPushButton>

#include "tests/desktop/Desk.h"
#include "tests/desktop/SampleForm.h"

namespace ovalia::desktop {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The pickers on a form; the clock stands at 9 March 2026, 10:20:30.
class Picker : public DeskTest {
 protected:
  void on(TextView name, const std::function<void()>& actions) {
    whileShown(*form, [&] {
      picker = form->as<forms::DTPicker>(name);
      edit = qobject_cast<QLineEdit*>(target(*form, name));
      form->userFocuses(*picker);
      form->forget();
      actions();
    });
  }
  void press(int code, Qt::KeyboardModifiers modifiers = {}, const QString& text = {}) {
    key(edit, code, modifiers, text);
  }
  void types(const char* text) {
    edit->selectAll();
    typeText(edit, text);
  }
  std::string value() { return toUtf8(picker->text()); }
  int changes() { return form->count("Change " + toUtf8(picker->Name())); }
  static Date day(int year, int month, int of) { return *dateFrom({year, month, of}); }

  std::shared_ptr<SampleForm> form = std::make_shared<SampleForm>();
  std::shared_ptr<forms::DTPicker> picker;
  QLineEdit* edit = nullptr;
};

TEST_F(Picker, day_zero_shows_empty_and_a_day_with_two_digits_each) {
  on(u"dtpFecha", [&] {
    EXPECT_EQ(edit->text(), QString());
    picker->setValue(day(2026, 2, 1));
    EXPECT_EQ(edit->text(), QStringLiteral("01/02/26"));
    picker->setValue(Date{0});
    EXPECT_EQ(edit->text(), QString());
  });
}

TEST_F(Picker, a_whole_day_counts_as_it_is_typed_once) {
  on(u"dtpFecha", [&] {
    types("05/03/25");
    EXPECT_EQ(value(), "05/03/2025");
    EXPECT_THAT(form->log, ElementsAre("Change dtpFecha"));
  });
}

TEST_F(Picker, half_a_day_counts_when_the_user_goes_on) {
  on(u"dtpFecha", [&] {
    types("5/3");
    EXPECT_EQ(changes(), 0);
    press(Qt::Key_Tab, {}, "\t");
    EXPECT_EQ(value(), "05/03/2026");
    EXPECT_EQ(edit->text(), QStringLiteral("05/03/26"));
    EXPECT_THAT(form->log, ElementsAre("Change dtpFecha", "Validate dtpFecha", "LostFocus dtpFecha",
                                       "GotFocus dtpHora"));
  });
}

TEST_F(Picker, half_a_day_counts_before_a_tool_and_before_the_close_box) {
  on(u"dtpFecha", [&] {
    types("5/3/20");
    windowOf(*form)->findChild<QAction*>("ID_Guardar")->trigger();
    EXPECT_THAT(form->log, ElementsAre("Change dtpFecha", "Tool ID_Guardar"));
    EXPECT_EQ(value(), "05/03/2020");
    types("6/3/20");
    form->staysOpen = true;
    windowOf(*form)->close();
    EXPECT_EQ(value(), "06/03/2020");
  });
}

TEST_F(Picker, a_text_that_names_no_day_gives_way_to_the_value_before) {
  on(u"dtpFecha", [&] {
    picker->setValue(day(2026, 2, 1));
    form->forget();
    types("31/2");
    press(Qt::Key_Return, {}, "\r");
    EXPECT_EQ(edit->text(), QStringLiteral("01/02/26"));
    EXPECT_THAT(form->log, IsEmpty());
  });
}

TEST_F(Picker, letters_are_not_taken) {
  on(u"dtpFecha", [&] {
    types("a5");
    EXPECT_EQ(edit->text(), QStringLiteral("5"));
  });
}

TEST_F(Picker, arrows_and_signs_step_a_day_and_the_page_keys_a_month) {
  on(u"dtpFecha", [&] {
    picker->setValue(day(2026, 1, 31));
    press(Qt::Key_Up);
    EXPECT_EQ(value(), "01/02/2026");
    press(Qt::Key_Down);
    press(Qt::Key_Minus, {}, "-");
    EXPECT_EQ(value(), "30/01/2026");
    press(Qt::Key_Plus, {}, "+");
    press(Qt::Key_PageUp);
    EXPECT_EQ(value(), "28/02/2026");
    EXPECT_EQ(edit->text(), QStringLiteral("28/02/26"));
  });
}

TEST_F(Picker, h_is_today_and_stepping_from_an_empty_one_begins_there) {
  on(u"dtpFecha", [&] {
    press(Qt::Key_H, {}, "h");
    EXPECT_EQ(value(), "09/03/2026");
    picker->setValue(Date{0});
    press(Qt::Key_Up);
    EXPECT_EQ(value(), "09/03/2026");
  });
}

TEST_F(Picker, delete_empties_a_day_that_is_wholly_selected) {
  on(u"dtpFecha", [&] {
    picker->setValue(day(2026, 2, 1));
    edit->selectAll();
    press(Qt::Key_Delete);
    EXPECT_EQ(value(), "30-12-99");
    EXPECT_EQ(edit->text(), QString());
    EXPECT_EQ(changes(), 2);
  });
}

TEST_F(Picker, a_day_keeps_the_values_time_and_a_time_the_values_day) {
  on(u"dtpHora", [&] {
    picker->setValue(Date{day(2026, 3, 10).days + 15.0 / 1440});
    EXPECT_EQ(edit->text(), QStringLiteral("00:15:00"));
    types("09:30");
    EXPECT_EQ(picker->Value().toDate(), (Date{day(2026, 3, 10).days + 9.5 / 24}));
  });
}

TEST_F(Picker, midnight_of_a_time_is_no_empty_box) {
  on(u"dtpHora", [&] { EXPECT_EQ(edit->text(), QStringLiteral("00:00:00")); });
}

TEST_F(Picker, typing_seconds_after_a_whole_time_goes_on_in_the_box) {
  on(u"dtpHora", [&] {
    types("09:30:15");
    EXPECT_EQ(edit->text(), QStringLiteral("09:30:15"));
    EXPECT_EQ(changes(), 2);
    EXPECT_EQ(partsOf(picker->Value().toDate()).second, 15);
  });
}

TEST_F(Picker, arrows_step_the_part_of_a_time_at_the_cursor_and_go_round) {
  on(u"dtpHora", [&] {
    picker->setValue(Date{0.5});
    edit->setCursorPosition(4);
    press(Qt::Key_Up);
    EXPECT_EQ(edit->text(), QStringLiteral("12:01:00"));
    edit->setCursorPosition(0);
    press(Qt::Key_Down);
    EXPECT_EQ(edit->text(), QStringLiteral("11:01:00"));
    picker->setValue(Date{0});
    edit->setCursorPosition(8);
    press(Qt::Key_Down);
    EXPECT_EQ(edit->text(), QStringLiteral("23:59:59"));
    press(Qt::Key_H, {}, "h");
    EXPECT_EQ(edit->text(), QStringLiteral("10:20:30"));
  });
}

TEST_F(Picker, an_unticked_box_is_null_and_ticking_brings_the_day_back) {
  on(u"dtpEnvio", [&] {
    auto* tick = edit->parentWidget()->findChild<QCheckBox*>();
    EXPECT_FALSE(tick->isChecked());
    EXPECT_TRUE(picker->Value().isNull());
    press(Qt::Key_Space, {}, " ");
    EXPECT_TRUE(tick->isChecked());
    EXPECT_EQ(value(), "09/03/2026");
    types("01/02/26");
    QTest::mouseClick(tick, Qt::LeftButton, {}, QPoint(6, tick->height() / 2));
    EXPECT_TRUE(picker->Value().isNull());
    EXPECT_EQ(edit->text(), QString());
    QTest::mouseClick(tick, Qt::LeftButton, {}, QPoint(6, tick->height() / 2));
    EXPECT_EQ(value(), "01/02/2026");
    edit->selectAll();
    press(Qt::Key_Delete);
    EXPECT_TRUE(picker->Value().isNull());
  });
}

TEST_F(Picker, typing_a_day_ticks_the_box) {
  on(u"dtpEnvio", [&] {
    types("01/02/26");
    EXPECT_EQ(value(), "01/02/2026");
    EXPECT_TRUE(edit->parentWidget()->findChild<QCheckBox*>()->isChecked());
  });
}

TEST_F(Picker, the_calendar_chooses_a_day_or_none_and_validates_nothing) {
  on(u"dtpFecha", [&] {
    const auto open = [&] {
      press(Qt::Key_F4);
      return QApplication::activePopupWidget();
    };
    QWidget* popup = open();
    ASSERT_TRUE(popup);
    auto* calendar = popup->findChild<QCalendarWidget*>();
    EXPECT_EQ(calendar->selectedDate(), QDate(2026, 3, 9));
    EXPECT_EQ(calendar->firstDayOfWeek(), Qt::Monday);
    Q_EMIT calendar->clicked(QDate(2026, 3, 12));
    EXPECT_EQ(value(), "12/03/2026");
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    popup = open();
    popup->findChildren<QPushButton*>().last()->click();
    EXPECT_EQ(value(), "30-12-99");
    EXPECT_THAT(form->log, ElementsAre("Change dtpFecha", "Change dtpFecha"));
  });
}

TEST_F(Picker, going_through_it_changes_nothing) {
  on(u"dtpFecha", [&] {
    press(Qt::Key_Tab, {}, "\t");
    EXPECT_EQ(changes(), 0);
  });
}

}  // namespace

}  // namespace ovalia::desktop
