#include "desktop/CardView.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTimer>
#include <QToolBar>
#include <QToolButton>

#include "tests/desktop/Desk.h"
#include "tests/desktop/SampleForm.h"

namespace ovalia::desktop {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class View : public DeskTest {
 protected:
  QWidget* target(TextView name) { return DeskTest::target(*form, name); }
  QString shown(TextView name) { return DeskTest::shown(*form, name); }
  Text value(TextView name) { return form->control(name)->get(u"").text(); }
  Text active() { return DeskTest::active(*form); }
  void up(const std::function<void()>& actions) {
    whileShown(*form, [&] {
      form->forget();
      actions();
    });
  }
  void focus(TextView name) {
    form->userFocuses(*form->control(name));
    form->forget();
  }
  QAction* tool(const char* id) { return windowOf(*form)->findChild<QAction*>(id); }

  std::shared_ptr<SampleForm> form = std::make_shared<SampleForm>();
};

TEST_F(View, typing_changes_the_model_once_a_letter_and_shows_no_echo) {
  up([&] {
    typeText(target(u"txtUno"), QStringLiteral("Señ"));
    EXPECT_EQ(value(u"txtUno"), u"Señ");
    EXPECT_EQ(shown(u"txtUno"), QStringLiteral("Señ"));
    EXPECT_EQ(form->count("Change txtUno"), 3);
    EXPECT_EQ(form->log.size(), 3u);
  });
}

TEST_F(View, what_code_assigns_is_shown_and_comes_back_no_second_time) {
  up([&] {
    form->control(u"txtUno")->put(u"Text", u"por código");
    form->control(u"chkAviso")->put(u"Value", 1);
    EXPECT_EQ(shown(u"txtUno"), QStringLiteral("por código"));
    EXPECT_TRUE(qobject_cast<QCheckBox*>(target(u"chkAviso"))->isChecked());
    EXPECT_THAT(form->log, ElementsAre("Change txtUno", "Click chkAviso"));
  });
}

TEST_F(View, a_text_that_the_form_changes_while_it_is_typed_is_shown_as_the_form_has_it) {
  form->on = [&](const std::string& entry) {
    if (entry == "Change txtUno" && value(u"txtUno") == u"a") form->control(u"txtUno")->put(u"Text", u"ABC");
  };
  up([&] {
    typeText(target(u"txtUno"), QStringLiteral("a"));
    EXPECT_EQ(shown(u"txtUno"), QStringLiteral("ABC"));
  });
}

TEST_F(View, a_read_only_box_takes_no_letters) {
  up([&] {
    focus(u"txtLeer");
    typeText(target(u"txtLeer"), QStringLiteral("x"));
    EXPECT_EQ(shown(u"txtLeer"), QString());
    EXPECT_EQ(value(u"txtLeer"), u"");
  });
}

TEST_F(View, lines_are_stored_with_both_line_end_signs_and_shown_without) {
  up([&] {
    focus(u"txtNotas");
    typeText(target(u"txtNotas"), QStringLiteral("a\nb"));
    EXPECT_EQ(value(u"txtNotas"), u"a\r\nb");
    form->control(u"txtNotas")->put(u"Text", u"uno\r\ndos\r\n");
    EXPECT_EQ(shown(u"txtNotas"), QStringLiteral("uno\ndos\n"));
  });
}

TEST_F(View, hard_blanks_of_a_note_survive_the_typing_of_another_letter) {
  up([&] {
    focus(u"txtNotas");
    form->control(u"txtNotas")->put(u"Text", u"12\u00A0€");
    auto* lines = qobject_cast<QPlainTextEdit*>(target(u"txtNotas"));
    lines->moveCursor(QTextCursor::End);
    typeText(lines, QStringLiteral("!"));
    EXPECT_EQ(value(u"txtNotas"), u"12\u00A0€!");
  });
}

TEST_F(View, the_selection_goes_both_ways_and_counts_line_ends_as_the_model_does) {
  up([&] {
    focus(u"txtNotas");
    const auto notes = form->as<forms::TextBox>(u"txtNotas");
    notes->setText(u"uno\r\ndos");
    notes->setSelection(5, 3);
    auto* lines = qobject_cast<QPlainTextEdit*>(target(u"txtNotas"));
    EXPECT_EQ(lines->textCursor().selectedText(), QStringLiteral("dos"));
    QTextCursor cursor = lines->textCursor();
    cursor.setPosition(0);
    cursor.setPosition(4, QTextCursor::KeepAnchor);
    lines->setTextCursor(cursor);
    EXPECT_EQ(notes->SelStart(), 0);
    EXPECT_EQ(notes->SelLength(), 5);
    const auto box = form->as<forms::TextBox>(u"txtUno");
    box->setText(u"hola");
    box->setSelection(0, 4);
    EXPECT_EQ(qobject_cast<QLineEdit*>(target(u"txtUno"))->selectedText(), QStringLiteral("hola"));
  });
}

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

TEST_F(View, a_drop_down_list_clicks_and_an_editable_one_changes_or_clicks) {
  for (const TextView name : {u"cboLista", u"cboLibre"})
    for (const TextView entry : {u"uno", u"dos"}) form->as<forms::ComboBox>(name)->AddItem(entry);
  up([&] {
    auto* fixed = qobject_cast<QComboBox*>(target(u"cboLista"));
    focus(u"cboLista");
    key(fixed, Qt::Key_Down);
    key(fixed, Qt::Key_Down);
    EXPECT_EQ(value(u"cboLista"), u"dos");
    EXPECT_THAT(form->log, ElementsAre("Click cboLista", "Click cboLista"));
    auto* free = qobject_cast<QComboBox*>(target(u"cboLibre"));
    focus(u"cboLibre");
    typeText(free, QStringLiteral("UNO"));
    EXPECT_EQ(value(u"cboLibre"), u"UNO");
    EXPECT_EQ(form->count("Change cboLibre"), 3);
    key(free, Qt::Key_Return, Qt::NoModifier, "\r");
    focus(u"txtUno");
    EXPECT_EQ(value(u"cboLibre"), u"UNO");  // leaving it is no picking
    focus(u"cboLibre");
    free->setCurrentIndex(1);
    Q_EMIT free->activated(1);
    EXPECT_THAT(form->log, ElementsAre("Click cboLibre"));
    EXPECT_EQ(value(u"cboLibre"), u"dos");
  });
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

TEST_F(View, a_disabled_or_hidden_control_is_drawn_so_and_gives_no_focus_away) {
  up([&] {
    form->control(u"txtDos")->put(u"Enabled", false);
    form->control(u"txtOculto")->put(u"Visible", true);
    EXPECT_FALSE(target(u"txtDos")->isEnabled());
    EXPECT_TRUE(target(u"txtOculto")->isVisible());
    QTest::mouseClick(target(u"txtDos"), Qt::LeftButton);
    EXPECT_EQ(active(), u"txtUno");
    EXPECT_THAT(form->log, IsEmpty());
  });
}

TEST_F(View, every_control_has_a_name_to_be_read_aloud_and_what_is_acted_on_a_tip) {
  up([&] {
    for (const auto& control : form->controls()) {
      QWidget* drawn = target(control->Name());
      if (!drawn || control->type() == forms::ControlType::Splitter ||
          control->type() == forms::ControlType::Line || control->type() == forms::ControlType::Image)
        continue;
      EXPECT_FALSE(drawn->accessibleName().isEmpty()) << toUtf8(control->Name());
      if (drawn->focusPolicy() != Qt::NoFocus) {
        EXPECT_FALSE(drawn->toolTip().isEmpty()) << toUtf8(control->Name());
      }
    }
    EXPECT_EQ(target(u"txtUno")->accessibleName(), QStringLiteral("Uno"));
    EXPECT_EQ(target(u"txtUno")->toolTip(), QStringLiteral("El primero"));
    form->control(u"lblUno")->setCaption(u"Otro");
    EXPECT_EQ(target(u"txtUno")->accessibleName(), QStringLiteral("Otro"));
    for (auto* button : windowOf(*form)->findChild<QToolBar*>()->findChildren<QToolButton*>()) {
      if (!button->defaultAction()) continue;
      EXPECT_FALSE(button->accessibleName().isEmpty());
      EXPECT_FALSE(button->icon().isNull()) << button->accessibleName().toStdString();
      EXPECT_EQ(button->focusPolicy(), Qt::NoFocus);
    }
  });
}

TEST_F(View, a_tool_is_one_thing_on_bar_and_menu) {
  up([&] {
    form->toolbars().tool(u"ID_Guardar")->setEnabled(false);
    form->toolbars().tool(u"ID_Buscar")->setVisible(false);
    EXPECT_FALSE(tool("ID_Guardar")->isEnabled());
    EXPECT_FALSE(tool("ID_Buscar")->isVisible());
    EXPECT_TRUE(windowOf(*form)->findChild<QMenu*>("ID_mnuFichas")->actions().contains(tool("ID_Guardar")));
    EXPECT_TRUE(windowOf(*form)->findChild<QToolBar*>()->actions().contains(tool("ID_Guardar")));
  });
}

TEST_F(View, the_documents_menu_reports_itself_before_it_shows) {
  up([&] {
    auto* menu = windowOf(*form)->findChild<QMenu*>("ID_mnuDocumentos");
    bool shownThen = true;
    form->on = [&](const std::string& entry) {
      if (entry == "Tool ID_mnuDocumentos") shownThen = menu->isVisible();
    };
    menu->popup(QPoint(10, 10));
    EXPECT_EQ(form->count("Tool ID_mnuDocumentos"), 1);
    EXPECT_FALSE(shownThen);
    menu->close();
  });
}

TEST_F(View, a_pop_up_menu_of_the_list_reports_itself_once) {
  up([&] {
    form->toolbars().PopupMenu(u"ID_mnuLsv");
    EXPECT_EQ(form->count("Tool ID_mnuLsv"), 1);
    auto* menu = windowOf(*form)->findChild<QMenu*>("ID_mnuLsv");
    EXPECT_TRUE(menu->isVisible());
    menu->close();
  });
}

TEST_F(View, the_face_of_the_split_button_is_a_tool_and_its_arrow_pops_up_the_menu_below_it) {
  up([&] {
    auto* button = windowOf(*form)->findChild<QToolButton*>("ID_BAdjuntar_boton");
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(6, button->height() / 2));
    EXPECT_THAT(form->log, ElementsAre("Tool ID_BAdjuntar"));
    form->forget();
    QTest::mouseClick(button, Qt::LeftButton, {}, QPoint(button->width() - 4, button->height() / 2));
    EXPECT_THAT(form->log, ElementsAre("ToolAt ID_BAdjuntar"));
    auto* menu = windowOf(*form)->findChild<QMenu*>("ID_mnuAdjuntar");
    ASSERT_TRUE(menu->isVisible());
    const QPoint below = button->mapToGlobal(QPoint(0, button->height()));
    EXPECT_LE((menu->pos() - below).manhattanLength(), 2);
    menu->close();
  });
}

TEST_F(View, controls_stand_where_the_model_says_in_twips_of_their_holder) {
  up([&] {
    EXPECT_EQ(target(u"txtUno")->geometry(), QRect(50, 6, 100, 21));
    EXPECT_EQ(target(u"txtDentro")->parentWidget(), target(u"fraMarco"));
    EXPECT_EQ(target(u"txtDentro")->pos(), QPoint(8, 20));
    form->control(u"txtUno")->put(u"Width", 3000);
    EXPECT_EQ(target(u"txtUno")->width(), 200);
    const QWidget* area = target(u"txtUno")->parentWidget();
    EXPECT_EQ(area->size(), QSize((6745 - 120 + 7) / 15, (5460 - 1260) / 15));
  });
}

TEST_F(View, the_splitter_follows_the_model_and_tells_what_the_user_drags) {
  up([&] {
    const auto splitter = form->as<forms::Splitter>(u"splitDocumentos");
    splitter->setPaneWidth(1500);
    EXPECT_EQ(target(u"LsvDocu")->width(), 100);
    form->control(u"LsvDocu")->put(u"Visible", false);
    splitter->setPaneWidth(0);
    EXPECT_FALSE(target(u"LsvDocu")->isVisible());
    form->control(u"LsvDocu")->put(u"Visible", true);
    splitter->setPaneWidth(2250);
    EXPECT_EQ(target(u"LsvDocu")->width(), 150);
    auto* panes = static_cast<QSplitter*>(target(u"splitDocumentos"));
    QWidget* handle = panes->handle(1);
    QTest::mousePress(handle, Qt::LeftButton, {}, QPoint(1, 5));
    QTest::mouseMove(handle, QPoint(31, 5));
    QTest::mouseRelease(handle, Qt::LeftButton, {}, QPoint(1, 5));
    EXPECT_NEAR(splitter->PaneWidth(), 2250 + 30 * 15, 15);
  });
}

TEST_F(View, the_close_box_asks_and_a_refusal_keeps_the_window) {
  up([&] {
    form->staysOpen = true;
    windowOf(*form)->close();
    EXPECT_TRUE(form->Visible());
    EXPECT_TRUE(windowOf(*form)->isVisible());
    form->staysOpen = false;
    windowOf(*form)->close();
    EXPECT_FALSE(form->loaded());
    EXPECT_EQ(form->count("Unload"), 2);
  });
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(windowOf(*form), nullptr);
}

TEST_F(View, a_hidden_form_keeps_its_window_and_what_is_in_it) {
  QPointer<CardWindow> window;
  up([&] {
    window = windowOf(*form);
    typeText(target(u"txtUno"), QStringLiteral("queda"));
    form->Hide();
  });
  ASSERT_TRUE(window);
  EXPECT_FALSE(window->isVisible());
  up([&] {
    EXPECT_EQ(windowOf(*form), window);
    EXPECT_EQ(shown(u"txtUno"), QStringLiteral("queda"));
  });
}

TEST_F(View, the_form_may_go_while_one_of_its_widgets_handles_an_event) {
  form->on = [&](const std::string& entry) {
    if (entry == "Change txtUno" || entry == "Tool ID_Guardar" || entry == "Click chkAviso" ||
        entry == "Click cmdLista" || entry == "Change dtpFecha")
      form->Unload();
  };
  using Action = std::function<void()>;
  for (const Action& action :
       {Action([&] { typeText(target(u"txtUno"), QStringLiteral("x")); }),
        Action([&] { tool("ID_Guardar")->trigger(); }),
        Action([&] { QTest::mouseClick(target(u"chkAviso"), Qt::LeftButton, {}, QPoint(8, 9)); }),
        Action([&] { QTest::mouseClick(target(u"cmdLista"), Qt::LeftButton); }), Action([&] {
          focus(u"dtpFecha");
          typeText(target(u"dtpFecha"), QStringLiteral("05/03/25"));
        })}) {
    whileShown(*form, [&] {
      action();
      EXPECT_FALSE(form->loaded());
    });
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

TEST_F(View, the_form_may_go_while_a_handler_of_it_waits_for_a_dialog) {
  QPointer<CardWindow> window;
  form->on = [&](const std::string& entry) {
    if (entry != "Change txtUno") return;
    QTimer::singleShot(0, [&] { form->Unload(); });
    QTimer::singleShot(100, [] { QApplication::activeModalWidget()->close(); });
    QDialog box;
    box.setModal(true);
    box.exec();
    EXPECT_TRUE(window);  // the letter is still being typed
  };
  up([&] {
    window = windowOf(*form);
    typeText(target(u"txtUno"), QStringLiteral("x"));
    EXPECT_FALSE(form->loaded());
  });
  EXPECT_TRUE(eventually([&] { return !window; }));
}

TEST_F(View, a_failure_in_a_handler_is_logged_and_does_not_cross_the_loop) {
  form->on = [](const std::string& entry) {
    if (entry == "Change txtUno") throw Failure(failure::typeMismatch);
  };
  here.expectLogEntry(u"Evento de frmMuestra", 13);
  up([&] {
    typeText(target(u"txtUno"), QStringLiteral("x"));
    EXPECT_EQ(shown(u"txtUno"), QStringLiteral("x"));
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

TEST_F(View, a_modal_form_over_another_returns_first) {
  const auto inner = std::make_shared<forms::CardForm>(forms::frmLlamada());
  std::vector<std::string> order;
  up([&] {
    whileShown(*inner, [&] {
      EXPECT_EQ(QApplication::activeModalWidget(), windowOf(*inner));
      order.push_back("inner up");
    });
    order.push_back("inner back");
  });
  order.push_back("outer back");
  EXPECT_THAT(order, ElementsAre("inner up", "inner back", "outer back"));
}

TEST_F(View, the_outer_form_hidden_from_within_returns_after_the_inner_one) {
  const auto inner = std::make_shared<forms::CardForm>(forms::frmLlamada());
  up([&] {
    whileShown(*inner, [&] {
      form->Hide();
      EXPECT_TRUE(inner->Visible());
    });
    EXPECT_FALSE(form->Visible());
  });
}

}  // namespace

}  // namespace ovalia::desktop
