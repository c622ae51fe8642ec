// A grid as it is drawn, and what keys and the mouse do in it.
#include <QElapsedTimer>
#include <QScrollBar>
#include <QToolTip>
#include <set>

#include "tests/desktop/ModelForms.h"

namespace ovalia::desktop {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

}  // namespace

TEST_F(ModelForms, the_grid_shows_headings_rows_and_empty_fields_and_hides_the_key) {
  fill(3);
  list([&] {
    ASSERT_EQ(view().model()->rowCount(), 3);
    EXPECT_TRUE(view().isColumnHidden(0));
    QStringList headings;
    for (int column = 1; column < 5; ++column) {
      EXPECT_FALSE(view().isColumnHidden(column));
      headings << view().model()->headerData(column, Qt::Horizontal).toString();
    }
    EXPECT_EQ(headings.join("|"), "Nombre|Notas|Materia|Sub Materia");
    EXPECT_EQ(cell(0, 1), "Modelo 1.doc");
    EXPECT_EQ(cell(0, 3), "Alquiler de vivienda");
    EXPECT_EQ(cell(2, 3), "");
  });
}

TEST_F(ModelForms, the_columns_fill_the_grid_and_grow_with_it_in_the_proportion_that_the_user_gave_them) {
  fill(3);
  list([&] {
    const auto whole = [&] {
      int sum = 0;
      for (int column = 0; column < 5; ++column) sum += view().columnWidth(column);
      return sum;
    };
    EXPECT_NEAR(whole(), view().viewport()->width(), 1);
    const double share = 1.0 * view().columnWidth(1) / whole();
    form->setWidth(form->Width() * 1.5);
    QCoreApplication::processEvents();
    EXPECT_NEAR(whole(), view().viewport()->width(), 1);
    EXPECT_NEAR(1.0 * view().columnWidth(1) / whole(), share, 0.02);
    view().horizontalHeader()->resizeSection(1, 40);
    form->setWidth(form->Width() * 1.2);
    QCoreApplication::processEvents();
    EXPECT_NEAR(whole(), view().viewport()->width(), 1);
    EXPECT_LT(1.0 * view().columnWidth(1) / whole(), share / 2);
  });
}

TEST_F(ModelForms, of_ten_thousand_rows_only_those_in_sight_are_read) {
  fill(10000);
  list([&] {
    EXPECT_EQ(view().model()->rowCount(), 10000);
    EXPECT_LT(here.faults.visits("Field.Value"), 100 * 5);
    const int before = here.faults.visits("Field.Value");
    deskkit::press(Qt::Key_End);
    view().grab();
    EXPECT_EQ(current(), 9999);
    EXPECT_EQ(cell(9999, 1), "Modelo 10000.doc");
    EXPECT_LT(here.faults.visits("Field.Value") - before, 100 * 5);
  });
}

TEST_F(ModelForms, a_row_that_another_user_has_deleted_says_so) {
  fill(3);
  list([&] {
    here.faults.failNext("Field.Value", dao::failure::recordDeleted);
    grid().Update();
    EXPECT_EQ(cell(1, 1), "(borrado por otro usuario)");
    EXPECT_EQ(cell(1, 2), "");
    EXPECT_EQ(cell(2, 1), "Modelo 3.doc");
  });
}

TEST_F(ModelForms, notes_of_several_lines_stand_on_one_and_their_tip_has_them_all) {
  fill(3);
  list([&] {
    EXPECT_EQ(cell(1, 2), "Contrato de arras con señal penitencial para la vivienda habitual");
    const auto tipAt = [&](int row, int column) {
      const QPoint place = view().visualRect(view().model()->index(row, column)).center();
      QHelpEvent asks(QEvent::ToolTip, place, view().viewport()->mapToGlobal(place));
      QApplication::sendEvent(view().viewport(), &asks);
      return QToolTip::isVisible() ? QToolTip::text() : QString();
    };
    EXPECT_TRUE(tipAt(1, 2).contains("penitencial\npara")) << tipAt(1, 2).toStdString();
    QToolTip::hideText();
    EXPECT_TRUE(eventually([&] { return !QToolTip::isVisible(); }));
    EXPECT_EQ(tipAt(0, 1), QString()) << "nothing of it is cut";
  });
}

TEST_F(ModelForms, the_first_row_is_the_current_one_and_none_is_marked) {
  fill(3);
  list([&] {
    EXPECT_EQ(current(), 0);
    EXPECT_THAT(marked(), IsEmpty());
  });
}

TEST_F(ModelForms, clicks_mark_with_ctrl_one_more_and_with_shift_a_range) {
  fill(6);
  list([&] {
    clickRow(1);
    EXPECT_THAT(marked(), ElementsAre(1));
    EXPECT_EQ(current(), 1);
    clickRow(3, Qt::ControlModifier);
    EXPECT_THAT(marked(), ElementsAre(1, 3));
    clickRow(1, Qt::ControlModifier);
    EXPECT_THAT(marked(), ElementsAre(3));
    clickRow(1);
    clickRow(4, Qt::ShiftModifier);
    EXPECT_THAT(marked(), ElementsAre(1, 2, 3, 4));
    EXPECT_EQ(grid().currentRow(), 4);
    EXPECT_EQ(current(), 4);
    clickRow(0);
    EXPECT_THAT(marked(), ElementsAre(0));
  });
}

TEST_F(ModelForms, a_click_on_the_head_of_a_row_is_one_on_the_row_and_one_below_the_last_none) {
  fill(3);
  list([&] {
    QWidget* heads = view().verticalHeader()->viewport();
    QTest::mouseClick(heads, Qt::LeftButton, {}, QPoint(heads->width() / 2, at(2).y()));
    EXPECT_THAT(marked(), ElementsAre(2));
    QTest::mouseClick(view().viewport(), Qt::LeftButton, {}, QPoint(10, view().viewport()->height() - 3));
    EXPECT_THAT(marked(), ElementsAre(2));
    EXPECT_EQ(current(), 2);
  });
}

TEST_F(ModelForms, keys_step_through_the_rows_and_mark_them_as_clicks_do) {
  fill(40);
  list([&] {
    ASSERT_EQ(active(*form), u"grdPlantilla");
    deskkit::press(Qt::Key_Down);
    EXPECT_THAT(marked(), ElementsAre(1));
    deskkit::press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_THAT(marked(), ElementsAre(1, 2));
    deskkit::press(Qt::Key_Up);
    EXPECT_THAT(marked(), ElementsAre(1));
    deskkit::press(Qt::Key_End);
    EXPECT_EQ(current(), 39);
    EXPECT_GE(view().rowAt(view().viewport()->height() - 2), 39) << "it is in sight";
    deskkit::press(Qt::Key_Down);
    EXPECT_EQ(current(), 39);
    deskkit::press(Qt::Key_PageUp);
    EXPECT_LT(current(), 37);
    EXPECT_GT(current(), 10);
    deskkit::press(Qt::Key_Home);
    EXPECT_EQ(current(), 0);
    deskkit::press(Qt::Key_Up);
    EXPECT_EQ(current(), 0);
  });
}

TEST_F(ModelForms, the_space_bar_marks_the_current_row_and_with_ctrl_changes_its_mark_alone) {
  fill(6);
  list([&] {
    deskkit::press(Qt::Key_Space, {}, " ");
    EXPECT_THAT(marked(), ElementsAre(0));
    clickRow(3, Qt::ControlModifier);
    deskkit::press(Qt::Key_Space, Qt::ControlModifier, " ");
    EXPECT_THAT(marked(), ElementsAre(0));
    EXPECT_EQ(current(), 3);
  });
}

TEST_F(ModelForms, steps_with_ctrl_leave_the_marks_so_that_the_space_bar_marks_rows_apart) {
  fill(6);
  list([&] {
    deskkit::press(Qt::Key_Down);
    for (const int row : {2, 3}) {
      deskkit::press(Qt::Key_Down, Qt::ControlModifier);
      EXPECT_EQ(current(), row);
      EXPECT_EQ(grid().currentRow(), row);
      EXPECT_THAT(marked(), ElementsAre(1));
    }
    deskkit::press(Qt::Key_Space, {}, " ");
    EXPECT_THAT(marked(), ElementsAre(1, 3));
    deskkit::press(Qt::Key_Space, {}, " ");
    EXPECT_THAT(marked(), ElementsAre(1, 3)) << "it is marked already";
    deskkit::press(Qt::Key_Up, Qt::ControlModifier);
    deskkit::press(Qt::Key_Up, Qt::ControlModifier);
    deskkit::press(Qt::Key_Space, Qt::ControlModifier, " ");
    EXPECT_THAT(marked(), ElementsAre(3));
    deskkit::press(Qt::Key_End, Qt::ControlModifier);
    EXPECT_EQ(current(), 5);
    EXPECT_THAT(marked(), ElementsAre(3));
    deskkit::press(Qt::Key_Up);
    EXPECT_THAT(marked(), ElementsAre(4));
  });
}

TEST_F(ModelForms, the_current_row_has_a_frame_while_the_grid_has_the_focus_marked_or_not) {
  fill(6);
  list([&] {
    // Along the upper edge of a row, to the right of the texts.
    const auto edge = [&](int row) {
      const QImage drawn = view().viewport()->grab().toImage();
      const int y = static_cast<int>(view().rowViewportPosition(row) * drawn.devicePixelRatio());
      std::set<QRgb> colours;
      for (int x = drawn.width() - 20; x < drawn.width() - 4; ++x) colours.insert(drawn.pixel(x, y));
      return colours.size();
    };
    EXPECT_EQ(edge(0), 2u) << "current, not marked";
    EXPECT_EQ(edge(1), 1u);
    clickRow(1);
    EXPECT_EQ(edge(0), 1u);
    EXPECT_EQ(edge(1), 2u) << "current and marked";
    form->userFocuses(*form->control(u"txtNotas"));
    EXPECT_EQ(edge(1), 1u) << "the focus is elsewhere";
  });
}

TEST_F(ModelForms, a_column_made_narrower_leaves_no_gap_at_the_end) {
  fill(3);
  list([&] {
    QHeaderView& heads = *view().horizontalHeader();
    const auto whole = [&] {
      int sum = 0;
      for (int column = 1; column < 5; ++column) sum += view().columnWidth(column);
      return sum;
    };
    for (const int column : {1, 3, 4}) {
      heads.resizeSection(column, 40);
      EXPECT_NEAR(whole(), view().viewport()->width(), 1) << column;
      if (column < 4) {
        EXPECT_EQ(view().columnWidth(column), 40);
      }
    }
  });
}

TEST_F(ModelForms, delete_asks_the_form_once_and_what_the_form_leaves_marked_is_drawn_marked) {
  fill(4);
  list([&] {
    clickRow(0);
    clickRow(2, Qt::ShiftModifier);
    form->deleting = [](forms::Grid& grid) {
      const Text kept = grid.SelBookmarks().at(1);
      const forms::WithoutRedraw quiet(grid);
      grid.removeMarks();
      grid.addMark(kept);
    };
    deskkit::press(Qt::Key_Delete);
    EXPECT_EQ(count("Delete"), 1);
    EXPECT_THAT(marked(), ElementsAre(1));
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Delete, {}, {}, true);
    QApplication::sendEvent(&view(), &held);
    EXPECT_EQ(count("Delete"), 1) << "a key held down deletes once";
    deskkit::press(Qt::Key_Delete, Qt::ShiftModifier);
    EXPECT_EQ(count("Delete"), 1);
  });
}

TEST_F(ModelForms, while_the_redraw_is_off_no_row_is_read_for_the_screen) {
  fill(400);
  list([&] {
    const forms::WithoutRedraw quiet(grid());
    const int before = here.faults.visits("Field.Value");
    view().verticalScrollBar()->setValue(200);
    view().grab();
    EXPECT_EQ(here.faults.visits("Field.Value"), before);
  });
}

TEST_F(ModelForms, a_click_on_a_heading_is_told_and_the_arrow_follows_the_style_of_the_heading) {
  fill(3);
  list([&] {
    QHeaderView& heads = *view().horizontalHeader();
    EXPECT_EQ(heads.sortIndicatorSection(), 1);
    EXPECT_EQ(heads.sortIndicatorOrder(), Qt::DescendingOrder) << "an arrow upwards";
    clickHeading(3);
    EXPECT_THAT(form->log, ElementsAre("Heading 3"));
    EXPECT_EQ(heads.sortIndicatorSection(), 1) << "it is the form's to change";
    EXPECT_EQ(current(), 0);
    grid().setHeadStyle(1, u"");
    grid().setHeadStyle(3, forms::styleDesc);
    EXPECT_EQ(heads.sortIndicatorSection(), 3);
    EXPECT_EQ(heads.sortIndicatorOrder(), Qt::AscendingOrder) << "an arrow downwards";
  });
}

TEST_F(ModelForms, a_refused_focus_keeps_clicks_on_rows_and_headings_from_happening) {
  fill(3);
  list([&] {
    form->userFocuses(*form->control(u"txtMateria"));
    form->validating = [](bool& cancel) { cancel = true; };
    clickRow(2);
    clickHeading(2);
    EXPECT_EQ(current(), 0);
    EXPECT_THAT(marked(), IsEmpty());
    EXPECT_THAT(form->log, IsEmpty());
    EXPECT_TRUE(target(*form, u"txtMateria")->hasFocus());
  });
}

TEST_F(ModelForms, a_click_after_which_other_rows_stand_in_the_grid_brings_the_focus_and_marks_none) {
  fill(3);
  list([&] {
    form->userFocuses(*form->control(u"txtMateria"));
    form->validating = [&](bool&) {
      form->as<forms::DataControl>(u"datPlantilla")->setRecordset(database->OpenRecordset(u"Lista"));
    };
    clickRow(2);
    EXPECT_EQ(active(*form), u"grdPlantilla");
    EXPECT_EQ(current(), 0);
    EXPECT_THAT(marked(), IsEmpty());
  });
}

TEST_F(ModelForms, other_rows_in_the_grid_are_shown_at_once_and_fields_that_they_lack_are_empty) {
  fill(3);
  const auto two = database->table(u"Dos", {{u"Nombre"}, {u"Notas"}});
  two->add({u"uno.doc", u"n"});
  list([&] {
    clickRow(1);
    form->as<forms::DataControl>(u"datPlantilla")->setRecordset(database->OpenRecordset(u"Dos"));
    EXPECT_EQ(view().model()->rowCount(), 1);
    EXPECT_EQ(cell(0, 1), "uno.doc");
    EXPECT_EQ(cell(0, 3), "");
    EXPECT_THAT(marked(), IsEmpty());
    form->as<forms::DataControl>(u"datPlantilla")->setRecordset({});
    EXPECT_EQ(view().model()->rowCount(), 0);
    deskkit::press(Qt::Key_Down);
    deskkit::press(Qt::Key_End);
    clickHeading(1);
    EXPECT_EQ(current(), -1);
  });
}

}  // namespace ovalia::desktop
