#include <QContextMenuEvent>
#include <QListWidget>
#include <QMimeData>
#include <QUrl>

#include "desktop/DropData.h"
#include "tests/desktop/Desk.h"
#include "tests/desktop/SampleForm.h"

namespace ovalia::desktop {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class DocumentListWidget : public DeskTest {
 protected:
  void up(const std::function<void()>& actions) {
    whileShown(*form, [&] {
      model = form->as<forms::ListView>(u"LsvDocu");
      for (const TextView name : {u"uno.doc", u"dos.txt", u"tres.xls"})
        model->Add({Text(name), Text(name), Text(name.substr(name.size() - 3))});
      list = qobject_cast<QListWidget*>(target(*form, u"LsvDocu"));
      list->doItemsLayout();
      form->userFocuses(*model);
      form->forget();
      actions();
    });
  }
  QPoint at(int row) { return list->visualItemRect(list->item(row)).center(); }
  void click(int row, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(list->viewport(), button, {},
                      row < 0 ? QPoint(list->viewport()->width() - 3, 3) : at(row));
  }

  std::shared_ptr<SampleForm> form = std::make_shared<SampleForm>();
  std::shared_ptr<forms::ListView> model;
  QListWidget* list = nullptr;
};

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

// Sends the events of a drag: without a screen no real one moves.
class Drag : public DocumentListWidget {
 protected:
  bool drag(QWidget* over, const QMimeData& data) {
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(over, &enter);
    QDragMoveEvent move(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(over, &move);
    if (!enter.isAccepted() || !move.isAccepted()) return false;
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(over, &drop);
    return true;
  }
  static void setFiles(QMimeData& data) {
    data.setUrls({QUrl::fromLocalFile("/datos/Año 1.doc"), QUrl("https://example.org/x"),
                  QUrl::fromLocalFile("/datos/b.txt")});
  }
};

TEST_F(Drag, files_dropped_on_the_list_or_the_notes_reach_the_form_by_the_logics_paths) {
  up([&] {
    QMimeData data;
    setFiles(data);
    auto* notes = static_cast<QAbstractScrollArea*>(target(*form, u"txtNotas"));
    EXPECT_TRUE(drag(list->viewport(), data));
    EXPECT_TRUE(drag(notes->viewport(), data));
    EXPECT_EQ(form->count("Drop LsvDocu"), 1);
    EXPECT_EQ(form->count("Drop txtNotas"), 1);
    EXPECT_THAT(form->dropped, ElementsAre(u"\\datos\\Año 1.doc", u"\\datos\\b.txt", u"\\datos\\Año 1.doc",
                                           u"\\datos\\b.txt"));
    EXPECT_EQ(form->control(u"txtNotas")->get(u"").text(), u"");
  });
}

TEST_F(Drag, an_effect_of_nothing_refuses_the_drop) {
  up([&] {
    QMimeData data;
    setFiles(data);
    form->dragEffect = 0;
    EXPECT_FALSE(drag(list->viewport(), data));
    EXPECT_EQ(form->count("DragOver LsvDocu"), 1);
    EXPECT_THAT(form->dropped, IsEmpty());
  });
}

TEST_F(Drag, text_goes_into_the_notes_and_not_onto_the_list) {
  up([&] {
    QMimeData data;
    data.setText(QStringLiteral("hola"));
    EXPECT_FALSE(drag(list->viewport(), data));
    form->userFocuses(*form->control(u"txtNotas"));
    EXPECT_TRUE(drag(static_cast<QAbstractScrollArea*>(target(*form, u"txtNotas"))->viewport(), data));
    EXPECT_EQ(form->control(u"txtNotas")->get(u"").text(), u"hola");
  });
}

TEST(DragData, has_the_members_that_a_drop_reads) {
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile("/a/b.doc")});
  const ObjectRef object = dragData(data);
  EXPECT_TRUE(callMember(object, u"GetFormat", {15}).toBoolean());
  EXPECT_FALSE(callMember(object, u"GetFormat", {2}).toBoolean());
  EXPECT_EQ(getMember(getMember(object, u"Files").toObject(), u"Count").toLong(), 1);
  EXPECT_EQ(getMember(object, u"Files", {1}).toText(), u"\\a\\b.doc");
}

}  // namespace

}  // namespace ovalia::desktop
