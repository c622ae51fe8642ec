#include <QClipboard>
#include <QContextMenuEvent>
#include <QScrollBar>

#include "tests/desktop/DocumentList.h"

namespace ovalia::desktop {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(DocumentListWidget, shows_the_items_with_their_icons_and_none_selected) {
  up([&] {
    ASSERT_EQ(list->count(), 3);
    EXPECT_EQ(list->item(1)->text(), QStringLiteral("dos.txt"));
    EXPECT_FALSE(list->item(1)->icon().isNull());
    EXPECT_THAT(list->selectedItems(), IsEmpty());
    model->select(2);
    EXPECT_EQ(list->currentRow(), 1);
    model->Clear();
    EXPECT_EQ(list->count(), 0);
  });
}

TEST_F(DocumentListWidget, a_click_selects_and_reports_item_and_button) {
  up([&] {
    click(1);
    EXPECT_EQ(model->selectedIndex(), 2);
    EXPECT_THAT(form->log, ElementsAre("ItemClick LsvDocu", "MouseUp 1"));
    form->forget();
    click(2, Qt::RightButton);
    EXPECT_THAT(form->log, ElementsAre("ItemClick LsvDocu", "MouseUp 2"));
  });
}

TEST_F(DocumentListWidget, a_click_beside_the_items_reports_the_button_alone_and_keeps_the_selection) {
  up([&] {
    click(0);
    form->forget();
    click(-1, Qt::RightButton);
    EXPECT_THAT(form->log, ElementsAre("MouseUp 2"));
    EXPECT_EQ(model->selectedIndex(), 1);
    EXPECT_EQ(list->currentRow(), 0);
  });
}

TEST_F(DocumentListWidget, a_double_click_is_one_and_its_last_release_no_click_of_its_own) {
  up([&] {
    click(0);
    form->forget();
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, at(0));
    EXPECT_EQ(form->count("DblClick LsvDocu"), 1);
    EXPECT_EQ(form->log.back(), "MouseUp 1");
    EXPECT_EQ(form->count("ItemClick LsvDocu"), 1 + form->count("MouseUp 1") - 1);
  });
}

TEST_F(DocumentListWidget, the_arrows_select_and_the_menu_key_is_a_right_click_on_the_item) {
  up([&] {
    model->select(1);
    form->forget();
    key(list, Qt::Key_Down);
    EXPECT_EQ(model->selectedIndex(), 2);
    EXPECT_THAT(form->log, ElementsAre("ItemClick LsvDocu"));
    form->forget();
    QContextMenuEvent menu(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QApplication::sendEvent(list, &menu);
    EXPECT_THAT(form->log, ElementsAre("ItemClick LsvDocu", "MouseUp 2"));
    form->forget();
    key(list, Qt::Key_F10, Qt::ShiftModifier);
    EXPECT_THAT(form->log, ElementsAre("ItemClick LsvDocu", "MouseUp 2"));
  });
}

TEST_F(DocumentListWidget, entered_by_the_keyboard_with_nothing_selected_the_first_arrow_selects) {
  up([&] {
    key(list, Qt::Key_Down);
    EXPECT_EQ(model->selectedIndex(), 1);
    key(list, Qt::Key_Down);
    EXPECT_EQ(model->selectedIndex(), 2);
    EXPECT_THAT(form->log, ElementsAre("ItemClick LsvDocu", "ItemClick LsvDocu"));
    model->Clear();
    model->Add({u"solo.doc", u"solo.doc", u"doc"});
    key(list, Qt::Key_Up);
    EXPECT_EQ(model->selectedIndex(), 1) << "the only one too";
    EXPECT_TRUE(list->item(0)->isSelected());
  });
}

TEST_F(DocumentListWidget, letters_go_to_the_name_that_begins_with_them) {
  up([&] {
    typeText(list, QStringLiteral("tr"));
    EXPECT_EQ(model->selectedIndex(), 3);
  });
}

TEST_F(DocumentListWidget, enter_opens_delete_removes_and_ctrl_c_copies_what_is_selected) {
  up([&] {
    const auto pressed = [&](int code, Qt::KeyboardModifiers modifiers = {}, const QString& text = {}) {
      form->forget();
      key(list, code, modifiers, text);
      return form->log;
    };
    model->select(1);
    EXPECT_THAT(pressed(Qt::Key_Return, {}, "\r"), ElementsAre("Tool ID_mnuDocumentos", "Tool ID_Abrir"));
    EXPECT_THAT(pressed(Qt::Key_Enter, Qt::KeypadModifier),
                ElementsAre("Tool ID_mnuDocumentos", "Tool ID_Abrir"));
    EXPECT_THAT(pressed(Qt::Key_Delete), ElementsAre("Tool ID_mnuDocumentos", "Tool ID_Quitar"));
    QApplication::clipboard()->setText("antes");
    EXPECT_THAT(pressed(Qt::Key_C, Qt::ControlModifier),
                ElementsAre("Tool ID_mnuDocumentos", "Tool ID_Copiar"));
    EXPECT_EQ(QApplication::clipboard()->text(), QStringLiteral("antes")) << "not the name as a text";
    EXPECT_THAT(pressed(Qt::Key_Return, Qt::ShiftModifier, "\r"), ElementsAre("ShiftEnter LsvDocu"));
    form->toolbars().tool(u"ID_Quitar")->setEnabled(false);
    EXPECT_THAT(pressed(Qt::Key_Delete), ElementsAre("Tool ID_mnuDocumentos"));
  });
}

TEST_F(DocumentListWidget, a_key_that_is_held_down_opens_once) {
  up([&] {
    model->select(1);
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, {}, "\r", true);
    QApplication::sendEvent(list, &held);
    EXPECT_EQ(form->count("Tool ID_Abrir"), 0);
  });
}

TEST_F(DocumentListWidget, f2_without_a_selection_renames_the_first) {
  up([&] {
    key(list, Qt::Key_F2);
    EXPECT_EQ(model->selectedIndex(), 1);
    auto* editor = list->viewport()->findChild<QLineEdit*>();
    ASSERT_TRUE(editor);
    EXPECT_EQ(editor->text(), QStringLiteral("uno.doc"));
    key(editor, Qt::Key_Escape, {}, "\x1b");
  });
}

TEST_F(DocumentListWidget, a_name_that_is_not_taken_shows_again_as_it_was) {
  up([&] {
    model->select(1);
    list->item(1)->setText(QStringLiteral("otro"));  // not the selected one
    EXPECT_EQ(list->item(1)->text(), QStringLiteral("dos.txt"));
  });
}

TEST_F(DocumentListWidget, the_whole_name_is_its_tip_to_the_letter) {
  up([&] {
    model->Add({u"4.doc", u"<b>Contrato</b> de arras.doc", u"doc"});
    EXPECT_EQ(list->item(0)->toolTip(), QStringLiteral("uno.doc"));
    EXPECT_EQ(list->item(3)->toolTip(), QStringLiteral("&lt;b&gt;Contrato&lt;/b&gt; de arras.doc"));
  });
}

TEST_F(DocumentListWidget, hides_and_the_focus_of_form_and_window_goes_on_together) {
  up([&] {
    EXPECT_TRUE(list->hasFocus());
    model->setVisible(false);
    EXPECT_EQ(active(*form), u"txtUno");
    EXPECT_TRUE(target(*form, u"txtUno")->hasFocus());
  });
}

TEST_F(DocumentListWidget, f2_renames_and_the_keys_typed_there_are_no_keys_of_the_form) {
  up([&] {
    form->setKeyPreview(true);
    model->select(1);
    key(list, Qt::Key_F2);
    auto* editor = list->viewport()->findChild<QLineEdit*>();
    ASSERT_TRUE(editor);
    form->forget();
    editor->selectAll();
    typeText(editor, QStringLiteral("nuevo.doc"));
    key(editor, Qt::Key_Return, {}, "\r");
    EXPECT_TRUE(eventually([&] { return form->count("Label nuevo.doc") == 1; }));
    EXPECT_THAT(form->log, ElementsAre("Label nuevo.doc"));
    EXPECT_EQ(model->item(1).text, u"nuevo.doc");
    EXPECT_EQ(list->item(0)->text(), QStringLiteral("nuevo.doc"));
  });
}

TEST_F(DocumentListWidget, escape_leaves_a_label_as_it_was_and_the_form_open) {
  up([&] {
    form->setKeyPreview(true);
    model->select(1);
    key(list, Qt::Key_F2);
    auto* editor = list->viewport()->findChild<QLineEdit*>();
    form->forget();
    typeText(editor, QStringLiteral("x"));
    key(editor, Qt::Key_Escape, {}, "\x1b");
    EXPECT_THAT(form->log, IsEmpty());
    EXPECT_EQ(list->item(0)->text(), QStringLiteral("uno.doc"));
  });
}

TEST_F(DocumentListWidget, a_tool_finishes_the_label_that_is_being_edited) {
  up([&] {
    model->select(1);
    key(list, Qt::Key_F2);
    auto* editor = list->viewport()->findChild<QLineEdit*>();
    editor->setFocus();
    editor->setText(QStringLiteral("otro.doc"));
    form->forget();
    windowOf(*form)->findChild<QAction*>("ID_Guardar")->trigger();
    EXPECT_THAT(form->log, ElementsAre("Label otro.doc", "Tool ID_Guardar"));
  });
}

TEST_F(DocumentListWidget, has_three_views) {
  up([&] {
    EXPECT_EQ(list->viewMode(), QListView::IconMode);
    const int large = list->iconSize().width();
    model->setView(forms::ListView::lvwSmallIcon);
    EXPECT_LT(list->iconSize().width(), large);
    EXPECT_EQ(list->flow(), QListView::LeftToRight);
    model->setView(forms::ListView::lvwList);
    EXPECT_EQ(list->viewMode(), QListView::ListMode);
    EXPECT_EQ(list->flow(), QListView::TopToBottom);
  });
}

TEST_F(DocumentListWidget, no_view_lets_a_long_name_run_beyond_its_column) {
  up([&] {
    model->Add({u"4.doc", u"Contrato de arrendamiento de la vivienda de la calle Bailén 12.doc", u"doc"});
    for (const int view : {forms::ListView::lvwIcon, forms::ListView::lvwSmallIcon, forms::ListView::lvwList})
      for (const double width : {1500.0, 2250.0, 4500.0}) {
        model->setView(view);
        form->as<forms::Splitter>(u"splitDocumentos")->setPaneWidth(width);
        list->doItemsLayout();
        const QRect place = list->visualItemRect(list->item(3));
        EXPECT_LE(place.width(), list->viewport()->width()) << view << " " << width;
        EXPECT_LT(list->visualItemRect(list->item(0)).top(), list->fontMetrics().height())
            << "no row left empty";
        for (int other = 0; other < 3; ++other)
          EXPECT_FALSE(place.intersects(list->visualItemRect(list->item(other)))) << view << " " << width;
      }
  });
}

TEST_F(DocumentListWidget, icons_have_a_scroll_bar_only_where_they_do_not_fit) {
  up([&] {
    const auto check = [&](int view, double width) {
      model->setView(view);
      form->as<forms::Splitter>(u"splitDocumentos")->setPaneWidth(width);
      QCoreApplication::processEvents();
      list->verticalScrollBar()->setValue(0);
      list->doItemsLayout();
      const int line = list->gridSize().height();
      const int lines = list->visualItemRect(list->item(list->count() - 1)).center().y() / line + 1;
      const bool fits = lines * line <= list->maximumViewportSize().height();
      EXPECT_EQ(list->verticalScrollBar()->isVisible(), !fits) << view << " " << width;
      EXPECT_FALSE(list->horizontalScrollBar()->isVisible()) << view << " " << width;
      return fits;
    };
    int fitting = 0;
    for (double width = 1500; width < 5000; width += 250) {
      EXPECT_TRUE(check(forms::ListView::lvwSmallIcon, width));
      fitting += check(forms::ListView::lvwIcon, width);
    }
    EXPECT_GT(fitting, 0);
    for (int i = 0; i < 60; ++i) model->Add({toText(i) + u".doc", u"Contrato", u"doc"});
    EXPECT_FALSE(check(forms::ListView::lvwIcon, 2000));
    EXPECT_FALSE(check(forms::ListView::lvwSmallIcon, 2000));
  });
}

TEST_F(DocumentListWidget, icons_share_the_whole_width_of_their_pane) {
  up([&] {
    for (const int more : {0, 60}) {
      for (int i = 0; i < more; ++i) model->Add({toText(i) + u".doc", u"Contrato", u"doc"});
      for (const int view : {forms::ListView::lvwIcon, forms::ListView::lvwSmallIcon})
        for (const double width : {1500.0, 2000.0, 3000.0, 4500.0}) {
          model->setView(view);
          form->as<forms::Splitter>(u"splitDocumentos")->setPaneWidth(width);
          QCoreApplication::processEvents();
          list->doItemsLayout();
          const int columns = list->viewport()->width() / list->gridSize().width();
          EXPECT_GE(columns * list->gridSize().width(), list->viewport()->width() - columns - 2)
              << view << " " << more << " " << width;
          EXPECT_EQ(list->visualItemRect(list->item(columns - 1)).center().y(),
                    list->visualItemRect(list->item(0)).center().y())
              << "the columns are used";
        }
    }
  });
}

}  // namespace

}  // namespace ovalia::desktop
