// Filter and order of the list.
#include "tests/models/ModelList.h"

namespace ovalia {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ModelFilter : public kit::ModelListTest {
 protected:
  // The condition that the boxes give; "" for none.
  Text filterOf(TextView subject, TextView part, TextView notes) {
    Text statement;
    choose(
        [&] {
          if (!notes.empty()) user.types(u"txtNotas", notes);
          user.clicks(u"cmdSel");
          EXPECT_EQ(caption(u"cmdSel"), u"Quitar Selec.");
          statement = lastStatement();
        },
        subject, part);
    EXPECT_TRUE(statement.starts_with(wholeList));
    statement.erase(0, wholeList.size());
    const Text order = u" ORDER BY Plantilla.Nombre ASC";
    if (!statement.starts_with(u"WHERE ")) return statement == order.substr(1) ? u"" : statement;
    EXPECT_TRUE(statement.ends_with(order));
    return statement.substr(6, statement.size() - 6 - order.size());
  }
};

TEST_F(ModelFilter, is_made_of_the_boxes_that_are_not_empty) {
  EXPECT_EQ(filterOf(u"", u"", u""), u"");
  EXPECT_EQ(filterOf(u"Alquiler", u"", u""), u" Plantilla.IdMateria = 2");
  EXPECT_EQ(filterOf(u"", u"Fianza", u""), u" IdTipoMateria = 12");
  EXPECT_EQ(filterOf(u"", u"", u"venta"), u"Notas Like '*venta*'");
  EXPECT_EQ(filterOf(u"Alquiler", u"Fianza", u""),
            u" Plantilla.IdMateria = 2 AND Plantilla.IdTipoMateria = 12");
  EXPECT_EQ(filterOf(u"", u"Fianza", u"venta"), u" IdTipoMateria = 12 AND Notas Like '*venta*'");
  EXPECT_EQ(filterOf(u"Alquiler", u"Fianza", u"venta"),
            u" Plantilla.IdMateria = 2 AND Plantilla.IdTipoMateria = 12 AND Notas Like '*venta*'");
}

TEST_F(ModelFilter, doubles_quotes_and_turns_bars_and_keeps_wildcards) {
  EXPECT_EQ(filterOf(u"", u"", u"d'Ors"), u"Notas Like '*d''Ors*'");
  EXPECT_EQ(filterOf(u"", u"", u"a|b"), u"Notas Like '*a' + chr(124) + 'b*'");
  EXPECT_EQ(filterOf(u"", u"", u"[0-9]*?#"), u"Notas Like '*[0-9]*?#*'");
}

TEST_F(ModelFilter, is_taken_away_by_the_next_click) {
  choose([&] {
    user.types(u"txtNotas", u"venta");
    user.clicks(u"cmdSel");
    user.clicks(u"cmdSel");
    EXPECT_EQ(caption(u"cmdSel"), u"Seleccionar");
    EXPECT_EQ(lastStatement(), wholeList + u"ORDER BY Plantilla.Nombre ASC");
  });
}

TEST_F(ModelFilter, an_empty_one_turns_the_caption_and_is_built_again_by_the_next_click) {
  choose([&] {
    user.clicks(u"cmdSel");
    EXPECT_EQ(caption(u"cmdSel"), u"Quitar Selec.");
    user.types(u"txtNotas", u"venta");
    user.clicks(u"cmdSel");
    EXPECT_EQ(caption(u"cmdSel"), u"Quitar Selec.");
    EXPECT_EQ(lastStatement(), wholeList + u"WHERE Notas Like '*venta*' ORDER BY Plantilla.Nombre ASC");
  });
}

TEST_F(ModelFilter, a_name_that_is_none_ends_it_with_a_report_and_the_list_stays) {
  choose(
      [&] {
        const auto before = form().as<forms::DataControl>(u"datPlantilla")->Recordset();
        expectReport(u"cmdSel_Click de ListaModelos", dao::failure::noCurrentRecord);
        user.clicks(u"cmdSel");
        EXPECT_EQ(caption(u"cmdSel"), u"Quitar Selec.");
        EXPECT_EQ(form().as<forms::DataControl>(u"datPlantilla")->Recordset(), before);
        // The subject was found: that much is in force.
        user.clicks(u"cmdSel");
        EXPECT_EQ(caption(u"cmdSel"), u"Seleccionar");
      },
      u"Ventas", u"nada");
}

TEST_F(ModelFilter, a_statement_that_fails_is_reported_and_the_list_stays) {
  choose([&] {
    here.faults.failNext("Database.OpenRecordset", dao::failure::locked);
    expectReport(u"RefrescoRecordset de ListaModelos", dao::failure::locked);
    user.clicks(u"cmdSel");
    EXPECT_EQ(names().size(), 4u);
  });
}

TEST_F(ModelFilter, forgets_the_marks) {
  choose([&] {
    user.clicksRow(1);
    user.clicks(u"cmdSel");
    EXPECT_THAT(grid().SelBookmarks(), IsEmpty());
    EXPECT_EQ(grid().currentRow(), 0);
  });
}

class ModelOrder : public kit::ModelListTest {
 protected:
  Text order() const { return lastStatement().substr(lastStatement().find(u"ORDER BY ") + 9); }
  std::vector<Text> styles() const {
    std::vector<Text> all;
    for (int column = 0; column < 5; ++column) all.emplace_back(grid().headStyle(column));
    return all;
  }
};

TEST_F(ModelOrder, a_heading_sorts_by_its_column_and_then_the_other_way) {
  choose([&] {
    EXPECT_THAT(styles(), ElementsAre(u"", u"StyleAsc", u"", u"", u""));
    user.clicksHeading(1);
    EXPECT_EQ(order(), u"Plantilla.Nombre DESC") << "the first click on it turns it round";
    EXPECT_THAT(styles(), ElementsAre(u"", u"StyleDesc", u"", u"", u""));
    user.clicksHeading(1);
    EXPECT_EQ(order(), u"Plantilla.Nombre ASC");
    user.clicksHeading(3);
    EXPECT_EQ(order(), u"Materia.Nombre ASC");
    EXPECT_THAT(styles(), ElementsAre(u"", u"", u"", u"StyleAsc", u""));
    user.clicksHeading(3);
    EXPECT_EQ(order(), u"Materia.Nombre DESC");
    user.clicksHeading(4);
    EXPECT_EQ(order(), u"TipoMateria.Nombre ASC");
    user.clicksHeading(2);
    EXPECT_EQ(order(), u"Notas ASC");
    EXPECT_THAT(styles(), ElementsAre(u"", u"", u"StyleAsc", u"", u""));
    EXPECT_TRUE(grid().Redraw());
  });
}

TEST_F(ModelOrder, a_given_direction_is_taken) {
  choose([&] {
    user.clicksHeading(2);
    form().OrdenarPlantilla(u" DESC");
    EXPECT_EQ(order(), u"Notas DESC");
    form().OrdenarPlantilla(u" DESC");
    EXPECT_EQ(order(), u"Notas DESC");
    EXPECT_EQ(grid().headStyle(2), u"StyleDesc");
  });
}

TEST_F(ModelOrder, a_heading_does_nothing_while_another_control_is_active) {
  choose([&] {
    user.enters(u"txtNotas");
    const auto before = database->opened.size();
    form().OrdenarPlantilla(u"");
    EXPECT_EQ(database->opened.size(), before);
    EXPECT_THAT(styles(), ElementsAre(u"", u"StyleAsc", u"", u"", u""));
  });
}

TEST_F(ModelOrder, a_heading_does_nothing_while_a_check_keeps_the_focus) {
  choose([&] {
    user.types(u"txtMateria", u"nada");
    expectReport(u"ComprobarMateria de ListaModelos", dao::failure::locked);
    here.faults.failNext("Database.OpenRecordset", dao::failure::locked);
    user.clicksHeading(1);
    EXPECT_EQ(active(), u"txtMateria");
    EXPECT_THAT(styles(), ElementsAre(u"", u"StyleAsc", u"", u"", u""));
  });
}

TEST_F(ModelOrder, without_rows_it_is_kept_for_later) {
  database->tableNamed(u"Plantilla")->rows.clear();
  choose([&] {
    const auto before = database->opened.size();
    user.clicksHeading(2);
    EXPECT_EQ(database->opened.size(), before);
    EXPECT_EQ(grid().headStyle(2), u"StyleAsc");
    user.clicks(u"cmdSel");
    EXPECT_EQ(order(), u"Notas ASC");
  });
}

TEST_F(ModelOrder, order_and_filter_survive_each_other) {
  choose([&] {
    user.types(u"txtNotas", u"venta");
    user.clicks(u"cmdSel");
    user.clicksHeading(3);
    EXPECT_EQ(lastStatement(), wholeList + u"WHERE Notas Like '*venta*' ORDER BY Materia.Nombre ASC");
    user.clicks(u"cmdSel");
    EXPECT_EQ(lastStatement(), wholeList + u"ORDER BY Materia.Nombre ASC");
  });
}

TEST_F(ModelOrder, the_view_is_told_once_the_list_is_whole) {
  choose([&] {
    desk.changes.clear();
    user.clicksHeading(3);
    std::vector<forms::Property> told;
    for (const auto& [control, property] : desk.changes)
      if (control == u"grdPlantilla") told.push_back(property);
    EXPECT_THAT(told, ElementsAre(forms::Property::Rows, forms::Property::Rows, forms::Property::Headings));
  });
}

TEST_F(ModelOrder, a_list_that_cannot_be_read_again_is_reported_and_drawn) {
  choose([&] {
    here.faults.failNext("Database.OpenRecordset", dao::failure::locked);
    expectReport(u"RefrescoRecordset de ListaModelos", dao::failure::locked);
    user.clicksHeading(3);
    EXPECT_TRUE(grid().Redraw());
    here.faults.failNext("Recordset.RecordCount", dao::failure::locked);
    expectReport(u"OrdenarPlantilla de ListaModelos", dao::failure::locked);
    user.clicksHeading(2);
    EXPECT_TRUE(grid().Redraw());
    EXPECT_EQ(grid().headStyle(3), u"StyleAsc");
  });
}

}  // namespace
}  // namespace ovalia
