// Keys, the focus and the mouse, as a form is told of them.
#include <QCheckBox>
#include <QDialog>
#include <QTimer>
#include <QToolBar>
#include <QWheelEvent>

#include "tests/desktop/SampleView.h"

namespace ovalia::desktop {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

}  // namespace

TEST_F(View, tab_and_back_tab_follow_the_forms_order_and_leave_a_box_of_lines) {
  up([&] {
    EXPECT_EQ(active(), u"txtUno");
    key(target(u"txtUno"), Qt::Key_Tab, Qt::NoModifier, "\t");
    EXPECT_EQ(active(), u"txtDos");
    EXPECT_TRUE(target(u"txtDos")->hasFocus());
    key(target(u"txtDos"), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(active(), u"txtUno");
    focus(u"txtNotas");
    key(target(u"txtNotas"), Qt::Key_Tab, Qt::NoModifier, "\t");
    EXPECT_EQ(active(), u"LsvDocu");
    EXPECT_EQ(value(u"txtNotas"), u"");
  });
}

TEST_F(View, a_refused_control_keeps_the_focus_against_tab) {
  form->refuses = [](forms::Control& control) { return control.Name() == u"txtUno"; };
  up([&] {
    key(target(u"txtUno"), Qt::Key_Tab, Qt::NoModifier, "\t");
    EXPECT_THAT(form->log, ElementsAre("Validate txtUno"));
    EXPECT_EQ(active(), u"txtUno");
    EXPECT_TRUE(target(u"txtUno")->hasFocus());
  });
}

TEST_F(View, a_refused_control_keeps_the_focus_against_the_mouse_and_the_press_does_nothing) {
  form->refuses = [](forms::Control& control) { return control.Name() == u"txtUno"; };
  up([&] {
    QTest::mouseClick(target(u"chkAviso"), Qt::LeftButton, {}, QPoint(8, 10));
    EXPECT_THAT(form->log, ElementsAre("Validate txtUno"));
    EXPECT_FALSE(qobject_cast<QCheckBox*>(target(u"chkAviso"))->isChecked());
    QTest::mouseClick(target(u"cmdLista"), Qt::LeftButton);
    EXPECT_EQ(form->count("Click cmdLista"), 0);
    EXPECT_TRUE(target(u"txtUno")->hasFocus());
    form->refuses = {};
    QTest::mouseClick(target(u"chkAviso"), Qt::LeftButton, {}, QPoint(8, 10));
    EXPECT_EQ(form->count("Click chkAviso"), 1);
  });
}

TEST_F(View, a_focus_that_comes_some_other_way_is_asked_for_and_sent_back_when_refused) {
  form->refuses = [](forms::Control& control) { return control.Name() == u"txtUno"; };
  up([&] {
    target(u"txtDos")->setFocus(Qt::ShortcutFocusReason);
    EXPECT_EQ(form->count("Validate txtUno"), 1);
    EXPECT_TRUE(target(u"txtUno")->hasFocus());
    form->refuses = {};
    target(u"txtDos")->setFocus(Qt::ShortcutFocusReason);
    EXPECT_EQ(active(), u"txtDos");
  });
}

TEST_F(View, validate_runs_once_before_the_focus_moves_by_the_mouse) {
  up([&] {
    QTest::mouseClick(target(u"txtDos"), Qt::LeftButton);
    EXPECT_THAT(form->log, ElementsAre("Validate txtUno", "LostFocus txtUno", "GotFocus txtDos"));
  });
}

TEST_F(View, tools_menus_and_another_window_take_no_focus_and_validate_nothing) {
  form->refuses = [](forms::Control&) { return true; };
  up([&] {
    auto* bar = windowOf(*form)->findChild<QToolBar*>();
    QTest::mouseClick(bar->widgetForAction(tool("ID_Guardar")), Qt::LeftButton);
    tool("ID_Salir")->trigger();
    QWidget other;
    other.show();
    other.activateWindow();
    QCoreApplication::processEvents();
    other.close();
    QCoreApplication::processEvents();
    EXPECT_THAT(form->log, ElementsAre("Tool ID_Guardar", "Tool ID_Salir"));
    EXPECT_EQ(active(), u"txtUno");
  });
}

TEST_F(View, a_click_on_a_button_takes_the_focus_first) {
  up([&] {
    QTest::mouseClick(target(u"cmdLista"), Qt::LeftButton);
    EXPECT_THAT(form->log,
                ElementsAre("Validate txtUno", "LostFocus txtUno", "GotFocus cmdLista", "Click cmdLista"));
  });
}

TEST_F(View, a_buttons_letter_presses_it_and_asks_the_field_that_is_left) {
  form->refuses = [](forms::Control&) { return true; };
  up([&] {
    QTest::keyClick(target(u"txtUno"), Qt::Key_L, Qt::AltModifier);
    eventually([&] { return !form->log.empty() && form->log.back() == "Validate txtUno"; });
    EXPECT_EQ(form->count("Click cmdLista"), 0);
    form->refuses = {};
    QTest::keyClick(target(u"txtUno"), Qt::Key_L, Qt::AltModifier);
    EXPECT_TRUE(eventually([&] { return form->count("Click cmdLista") == 1; }));
    EXPECT_EQ(active(), u"cmdLista");
  });
}

TEST_F(View, keys_reach_the_form_by_their_numbers_and_the_control_too) {
  form->setKeyPreview(true);
  up([&] {
    key(target(u"txtUno"), Qt::Key_Comma, Qt::ControlModifier);
    key(target(u"txtUno"), Qt::Key_Period, Qt::ControlModifier);
    key(target(u"txtUno"), Qt::Key_Escape, Qt::NoModifier, "\x1b");
    EXPECT_THAT(form->log, ElementsAre("Key 188 2", "Key 190 2", "Key 27 0"));
    form->forget();
    typeText(target(u"txtUno"), QStringLiteral("v"));
    EXPECT_THAT(form->log, ElementsAre("Key 86 0", "Change txtUno"));
  });
}

TEST_F(View, without_key_preview_the_form_sees_no_key_but_shift_enter_reaches_the_control) {
  up([&] {
    key(target(u"txtUno"), Qt::Key_Escape, Qt::NoModifier, "\x1b");
    EXPECT_THAT(form->log, IsEmpty());
    key(target(u"txtUno"), Qt::Key_Return, Qt::ShiftModifier, "\r");
    EXPECT_THAT(form->log, ElementsAre("ShiftEnter txtUno"));
  });
}

TEST_F(View, a_key_that_hides_the_form_goes_no_further) {
  form->setKeyPreview(true);
  form->on = [&](const std::string& entry) {
    if (entry == "Key 88 0") form->Hide();
  };
  up([&] {
    typeText(target(u"txtUno"), QStringLiteral("x"));
    EXPECT_FALSE(form->Visible());
    EXPECT_EQ(value(u"txtUno"), u"");
  });
  EXPECT_TRUE(form->loaded());
}

TEST_F(View, the_wheel_turns_no_list_that_has_not_the_focus) {
  form->as<forms::ComboBox>(u"cboLista")->AddItem(u"uno");
  up([&] {
    auto* combo = target(u"cboLista");
    QWheelEvent turn(QPointF(5, 5), combo->mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, -120),
                     Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(combo, &turn);
    EXPECT_EQ(value(u"cboLista"), u"");
  });
}

// Presses as the window system hands them over, not as a test does to a widget.
TEST_F(View, a_press_that_comes_from_the_window_system_asks_once_before_the_focus_moves) {
  form->refuses = [](forms::Control& control) { return control.Name() == u"txtUno"; };
  up([&] {
    CardWindow* window = windowOf(*form);
    const auto click = [&](TextView name) {
      QWidget* aimed = target(name);
      QTest::mouseClick(window->windowHandle(), Qt::LeftButton, {},
                        aimed->mapTo(window, QPoint(8, aimed->height() / 2)));
      QCoreApplication::processEvents();
    };
    click(u"chkAviso");
    click(u"txtDos");
    EXPECT_THAT(form->log, ElementsAre("Validate txtUno", "Validate txtUno"));
    EXPECT_TRUE(target(u"txtUno")->hasFocus());
    form->refuses = {};
    form->forget();
    click(u"chkAviso");
    EXPECT_THAT(form->log,
                ElementsAre("Validate txtUno", "LostFocus txtUno", "GotFocus chkAviso", "Click chkAviso"));
  });
}

TEST_F(View, a_dialog_that_comes_between_press_and_release_leaves_the_control_unpressed) {
  form->refuses = [&](forms::Control& control) {
    if (control.Name() == u"txtUno")
      QTimer::singleShot(0, [] { QApplication::activeModalWidget()->close(); }),
          QDialog(windowOf(*form)).exec();
    return false;
  };
  up([&] {
    QTest::mousePress(target(u"chkAviso"), Qt::LeftButton, {}, QPoint(8, 10));
    EXPECT_EQ(active(), u"chkAviso");
    EXPECT_FALSE(qobject_cast<QCheckBox*>(target(u"chkAviso"))->isDown());
  });
}

}  // namespace ovalia::desktop
