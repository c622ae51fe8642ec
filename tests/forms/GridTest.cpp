#include <gmock/gmock.h>

#include <array>

#include "tests/forms/FormTest.h"
#include "tests/kit/FakeDatabase.h"
#include "tests/kit/FakeRecordset.h"

namespace ovalia::forms {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto controls = std::to_array<ControlDesign>({
    {u"datLista", ControlType::Data, hidden},
    {u"txtFiltro", ControlType::TextBox, plain, u"", u"", 0, 0, 1000, 315, 0},
    {u"grdLista", ControlType::Grid, plain, u"Lista", u"", 0, 400, 1000, 1000, 1},
});
constexpr auto columns = std::to_array<ColumnDesign>({
    {u"IdPieza", u"", 0, true},
    {u"Nombre", u"Nombre", 1000, false, styleAsc},
    {u"Otra", u"Otra cosa", 500},
});
constexpr auto grids = std::to_array<GridDesign>({{u"grdLista", u"datLista", columns}});
constexpr FormDesign sample{.name = u"frmPiezas",
                            .caption = u"Piezas",
                            .minimumWidth = 2000,
                            .minimumHeight = 2000,
                            .controls = controls,
                            .grids = grids};

class Pieces : public Form {
 public:
  Pieces() : Form(sample) {}
  Names journal;
  bool refuses = false;  // the box keeps the focus
  bool deletes = false;  // the grid may delete
  bool asks = true;
  std::function<void()> whileChecking = [] {};

 protected:
  void onValidate(Control&, bool& cancel) override {
    cancel = refuses;
    whileChecking();
  }
  void onHeadClick(Grid& grid, int column) override {
    journal.push_back(join(u"HeadClick ", grid.Name(), u" ", column, u" ", ActiveControl()->Name()));
  }
  void onBeforeDelete(Grid&, bool& cancel, bool& prompt) override {
    journal.push_back(join(u"BeforeDelete ", cancel, u" ", prompt));
    cancel = !deletes;
    prompt = asks;
  }
};

// A grid over five pieces.
class GridRows : public FormTest {
 protected:
  void SetUp() override {
    pieces->add({1, u"biela"});
    pieces->add({2, u"cigüeñal"});
    pieces->add({3, u"leva"});
    pieces->add({4, u"muelle"});
    pieces->add({5, Null});
    rows = database->OpenRecordset(u"Pieza");
  }
  void open(const std::function<void()>& script) {
    desk.whileShown([&] {
      data().setRecordset(rows);
      desk.changes.clear();
      script();
    });
    form->Show();
  }
  DataControl& data() { return *form->as<DataControl>(u"datLista"); }
  Grid& grid() { return *form->as<Grid>(u"grdLista"); }
  Names names(std::vector<int> positions) {
    Names shown;
    for (const int position : positions) shown.push_back(grid().row(position).cells.at(1));
    return shown;
  }
  bool told(Property property) const { return desk.told(u"grdLista", property); }

  std::shared_ptr<kit::FakeDatabase> database = std::make_shared<kit::FakeDatabase>(here.faults);
  kit::FakeTableRef pieces = database->table(u"Pieza", {{u"IdPieza", dao::dbLong}, {u"Nombre"}});
  std::shared_ptr<dao::Recordset> rows;
  std::shared_ptr<Pieces> form = std::make_shared<Pieces>();
};

class GridMarks : public GridRows {};
class GridHeadings : public GridRows {};
class GridDeletion : public GridRows {};

TEST_F(GridRows, are_none_before_a_recordset_is_there) {
  EXPECT_EQ(grid().Rows(), 0);
  EXPECT_EQ(grid().currentRow(), -1);
  EXPECT_THAT(grid().markedRows(), IsEmpty());
  EXPECT_EQ(grid().row(0).failure, failure::objectNotSet);
  EXPECT_EQ(failureOf([&] { grid().CellText(u"Nombre", u"1"); }), failure::objectNotSet);
}

TEST_F(GridRows, are_read_by_their_place_and_the_recordset_stays_where_it_is) {
  open([&] {
    EXPECT_EQ(grid().Rows(), 5);
    rows->setAbsolutePosition(1);
    EXPECT_EQ(grid().currentRow(), 1);
    EXPECT_EQ(names({4, 0, 1, 3}), (Names{u"", u"biela", u"cigüeñal", u"muelle"}));
    EXPECT_EQ(rows->AbsolutePosition(), 1);
    EXPECT_EQ(grid().row(0).cells, (Names{u"1", u"biela", u""})) << "the recordset has no field of the last";
    EXPECT_EQ(grid().row(0).failure, 0);
  });
}

TEST_F(GridRows, are_not_read_before_they_are_asked_for) {
  for (int more = 0; more < 1000; ++more) pieces->add({6, u"x"});
  rows = database->OpenRecordset(u"Pieza");
  open([&] {
    const int before = here.faults.visits("Field.Value");
    EXPECT_EQ(grid().Rows(), 1005);
    grid().Update();
    EXPECT_EQ(here.faults.visits("Field.Value"), before);
    grid().row(700);
    EXPECT_EQ(here.faults.visits("Field.Value"), before + 2);
  });
}

TEST_F(GridRows, that_are_gone_or_cannot_be_read_say_so_and_have_empty_cells) {
  open([&] {
    pieces->vanish(2);
    EXPECT_EQ(grid().row(2).failure, dao::failure::recordDeleted);
    EXPECT_EQ(grid().row(2).cells, (Names{u"", u"", u""}));
    EXPECT_EQ(rows->AbsolutePosition(), 0);
    here.faults.failNext("Field.Value", dao::failure::locked);
    EXPECT_EQ(grid().row(3).failure, dao::failure::locked);
    EXPECT_EQ(rows->AbsolutePosition(), 0);
    EXPECT_EQ(grid().row(99).failure, dao::failure::noCurrentRecord);
  });
}

TEST_F(GridRows, are_read_while_the_recordset_stands_on_none) {
  open([&] {
    rows->MoveLast();
    rows->MoveNext();
    EXPECT_EQ(names({0}), Names{u"biela"});
    EXPECT_TRUE(rows->isEOF());
    rows->MoveFirst();
    rows->Delete();
    EXPECT_EQ(grid().currentRow(), -1);
    EXPECT_EQ(names({0}), Names{u"cigüeñal"});
    EXPECT_EQ(grid().currentRow(), -1);
    EXPECT_EQ(failureOf([&] { rows->value(u"Nombre"); }), dao::failure::noCurrentRecord);
  });
}

TEST_F(GridRows, become_current_by_a_click_which_takes_the_focus) {
  open([&] {
    user.clicksRow(3);
    EXPECT_EQ(rows->AbsolutePosition(), 3);
    EXPECT_EQ(form->ActiveControl()->Name(), u"grdLista");
    EXPECT_TRUE(told(Property::CurrentRow));
    user.clicksRow(99);
    user.clicksRow(-1);
    EXPECT_EQ(rows->AbsolutePosition(), 3) << "below the last row there is only the focus";
  });
}

TEST_F(GridRows, are_not_reached_when_the_focus_is_kept_or_the_list_has_changed_by_leaving) {
  open([&] {
    form->refuses = true;
    user.clicksRow(3);
    EXPECT_EQ(rows->AbsolutePosition(), 0);
    form->refuses = false;
    form->whileChecking = [&] { data().setRecordset(database->OpenRecordset(u"Pieza")); };
    user.clicksRow(3);
    EXPECT_EQ(grid().currentRow(), 0);
    EXPECT_THAT(grid().SelBookmarks(), IsEmpty());
    EXPECT_EQ(form->ActiveControl()->Name(), u"grdLista");
  });
}

TEST_F(GridRows, that_are_gone_are_stood_on_and_not_marked) {
  open([&] {
    pieces->vanish(2);
    user.clicksRow(2);
    EXPECT_EQ(grid().currentRow(), 2);
    EXPECT_THAT(grid().SelBookmarks(), IsEmpty());
  });
}

TEST_F(GridRows, of_another_recordset_are_told_at_once_and_none_is_marked) {
  open([&] {
    user.clicksRow(3);
    desk.changes.clear();
    data().setRecordset(database->OpenRecordset(u"Pieza"));
    EXPECT_TRUE(told(Property::Rows));
    EXPECT_THAT(grid().SelBookmarks(), IsEmpty());
    EXPECT_EQ(grid().currentRow(), 0);
    data().setRecordset(nullptr);
    EXPECT_EQ(grid().Rows(), 0);
  });
}

TEST_F(GridRows, are_told_of_after_the_redraw_is_on_again) {
  open([&] {
    {
      const WithoutRedraw unseen(grid());
      EXPECT_FALSE(grid().Redraw());
      grid().Update();
      grid().addMark(u"x");
      grid().removeMarks();
      grid().setHeadStyle(1, u"");
      data().setRecordset(rows);
      EXPECT_THAT(desk.changes, IsEmpty());
    }
    EXPECT_TRUE(told(Property::Rows));
    EXPECT_TRUE(told(Property::Headings));
  });
}

TEST_F(GridMarks, a_click_marks_one_row_ctrl_changes_one_shift_takes_all_between) {
  open([&] {
    user.clicksRow(1);
    EXPECT_THAT(grid().markedRows(), ElementsAre(1));
    user.clicksRow(3, kit::User::ctrlKey);
    EXPECT_THAT(grid().markedRows(), ElementsAre(1, 3));
    user.clicksRow(1, kit::User::ctrlKey);
    EXPECT_THAT(grid().markedRows(), ElementsAre(3));
    EXPECT_EQ(grid().currentRow(), 1);
    user.clicksRow(3);
    user.clicksRow(1, kit::User::shiftKey);
    EXPECT_THAT(grid().markedRows(), ElementsAre(1, 2, 3));
    EXPECT_EQ(grid().currentRow(), 1);
    user.clicksRow(4, kit::User::shiftKey);
    EXPECT_THAT(grid().markedRows(), ElementsAre(3, 4)) << "from where it began";
    EXPECT_TRUE(told(Property::Marks));
  });
}

TEST_F(GridMarks, of_many_rows_leave_out_those_that_are_gone) {
  open([&] {
    pieces->vanish(2);
    user.clicksRow(1);
    user.clicksRow(3, kit::User::shiftKey);
    EXPECT_THAT(grid().markedRows(), ElementsAre(1, 3));
  });
}

TEST_F(GridMarks, stay_on_their_rows_when_others_are_deleted) {
  open([&] {
    user.clicksRow(1);
    user.clicksRow(3, kit::User::ctrlKey);
    rows->MoveFirst();
    rows->Delete();
    rows->MoveFirst();
    EXPECT_THAT(grid().markedRows(), ElementsAre(0, 2));
    EXPECT_EQ(grid().CellText(u"Nombre", grid().SelBookmarks()[1]), u"muelle");
    rows->Delete();
    EXPECT_THAT(grid().markedRows(), ElementsAre(-1, 1));
  });
}

TEST_F(GridMarks, a_cell_is_read_by_a_bookmark) {
  open([&] {
    user.clicksRow(3);
    const Text bookmark = grid().SelBookmarks().front();
    rows->MoveFirst();
    EXPECT_EQ(grid().CellText(u"IdPieza", bookmark), u"4");
    EXPECT_EQ(grid().CellText(u"Otra", bookmark), u"");
    EXPECT_EQ(rows->AbsolutePosition(), 0);
    EXPECT_EQ(failureOf([&] { grid().CellText(u"Nada", bookmark); }), failure::elementNotFound);
    pieces->vanish(3);
    EXPECT_EQ(failureOf([&] { grid().CellText(u"Nombre", bookmark); }), dao::failure::recordDeleted);
    EXPECT_EQ(rows->AbsolutePosition(), 0);
  });
}

TEST_F(GridHeadings, take_the_focus_before_they_are_reported) {
  open([&] {
    user.clicksHeading(2);
    EXPECT_EQ(form->journal, Names{u"HeadClick grdLista 2 grdLista"});
    user.enters(u"txtFiltro");
    form->refuses = true;
    user.clicksHeading(1);
    EXPECT_EQ(form->journal.size(), 1u);
    form->refuses = false;
  });
}

TEST_F(GridHeadings, have_the_styles_of_the_design_until_they_get_others) {
  open([&] {
    EXPECT_EQ(grid().headStyle(0), u"");
    EXPECT_EQ(grid().headStyle(1), styleAsc);
    grid().setHeadStyle(1, styleAsc);
    EXPECT_FALSE(told(Property::Headings));
    grid().setHeadStyle(1, u"");
    grid().setHeadStyle(2, styleDesc);
    EXPECT_TRUE(told(Property::Headings));
    EXPECT_EQ(grid().headStyle(1), u"");
    EXPECT_EQ(grid().headStyle(2), styleDesc);
  });
}

TEST_F(GridDeletion, is_reported_first_and_can_be_stopped) {
  open([&] {
    user.clicksRow(1);
    user.deletesRows();
    EXPECT_EQ(form->journal, Names{u"BeforeDelete Falso Verdadero"});
    EXPECT_EQ(rows->RecordCount(), 5);
    EXPECT_THAT(grid().markedRows(), ElementsAre(1));
  });
}

TEST_F(GridDeletion, asks_unless_the_form_says_not_to) {
  form->deletes = true;
  open([&] {
    user.clicksRow(1);
    user.clicksRow(4, kit::User::ctrlKey);
    expectBox(u"¿Desea borrar las filas marcadas?", 36, u"", 7);
    user.deletesRows();
    EXPECT_EQ(rows->RecordCount(), 5);
    form->asks = false;
    user.deletesRows();
    EXPECT_EQ(names({0, 1, 2}), (Names{u"biela", u"leva", u"muelle"}));
    EXPECT_EQ(grid().currentRow(), 0);
    EXPECT_THAT(grid().SelBookmarks(), IsEmpty());
    user.deletesRows();
    EXPECT_EQ(rows->RecordCount(), 3) << "nothing is marked";
  });
}

TEST_F(GridRows, have_a_type_of_their_own) {
  EXPECT_EQ(typeName(ControlType::Grid), u"SSDBGrid");
  EXPECT_EQ(typeName(ControlType::Data), u"Data");
  EXPECT_TRUE(grid().takesFocus());
  EXPECT_FALSE(data().takesFocus());
}

}  // namespace
}  // namespace ovalia::forms
