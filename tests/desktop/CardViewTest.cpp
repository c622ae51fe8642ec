// What a form shows, and what typing makes of it.
#include <QCheckBox>
#include <QComboBox>
#include <QMenu>
#include <QPlainTextEdit>
#include <QSplitter>
#include <QToolBar>
#include <QToolButton>

#include "tests/desktop/SampleView.h"

namespace ovalia::desktop {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

}  // namespace

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

TEST_F(View, alt_with_the_arrows_moves_the_bar_between_list_and_notes_from_either_side) {
  up([&] {
    const auto splitter = form->as<forms::Splitter>(u"splitDocumentos");
    splitter->setPaneWidth(2250);
    focus(u"LsvDocu");
    key(target(u"LsvDocu"), Qt::Key_Right, Qt::AltModifier);
    EXPECT_NEAR(splitter->PaneWidth(), 2400, 15);
    focus(u"txtNotas");
    key(target(u"txtNotas"), Qt::Key_Left, Qt::AltModifier);
    key(target(u"txtNotas"), Qt::Key_Left, Qt::AltModifier);
    EXPECT_NEAR(splitter->PaneWidth(), 2100, 15);
    EXPECT_EQ(target(u"LsvDocu")->width(), 140);
    for (int i = 0; i < 100; ++i) key(target(u"txtNotas"), Qt::Key_Right, Qt::AltModifier);
    EXPECT_GT(target(u"txtNotas")->width(), 40) << "neither side is pushed out";
    EXPECT_NEAR(splitter->PaneWidth(), target(u"LsvDocu")->width() * 15, 15);
    form->control(u"LsvDocu")->put(u"Visible", false);
    splitter->setPaneWidth(0);
    key(target(u"txtNotas"), Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(splitter->PaneWidth(), 0) << "a closed pane stays so";
    focus(u"txtUno");
    key(target(u"txtUno"), Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ(splitter->PaneWidth(), 0);
  });
}

}  // namespace ovalia::desktop
