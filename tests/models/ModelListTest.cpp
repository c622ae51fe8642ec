#include "models/ModelList.h"

#include "tests/models/ModelList.h"

namespace ovalia {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ModelList : public kit::ModelListTest {
 protected:
  void expectMissing(int answer) {
    expectBox(u"El modelo seleccionado no existe.\r\n\r\n¿Desea borrar la referencia?", 52, u"Modelo",
              answer);
  }
};

// Opening.

TEST_F(ModelList, starts_unfiltered_by_name_on_the_first_row) {
  choose([&] {
    EXPECT_EQ(form().Name(), u"ListaModelos");
    EXPECT_EQ(form().Caption(), u"Adjuntar Modelo");
    EXPECT_EQ(instance.dlgListaModelos.get(), &form());
    EXPECT_EQ(database->opened, std::vector<Text>{wholeList + u"ORDER BY Plantilla.Nombre ASC"});
    EXPECT_THAT(names(), ElementsAre(u"carta.doc", u"fianza.doc", u"perdido.doc", u"Ñapa.doc"));
    EXPECT_EQ(grid().row(0).cells,
              (std::vector<Text>{u"1", u"carta.doc", u"Oferta de venta", u"Ventas", u"Oferta"}));
    EXPECT_EQ(grid().row(2).cells, (std::vector<Text>{u"3", u"perdido.doc", u"50%", u"", u""}));
    EXPECT_EQ(current(), u"carta.doc");
    EXPECT_THAT(grid().SelBookmarks(), IsEmpty());
    EXPECT_EQ(caption(u"cmdSel"), u"Seleccionar");
  });
  EXPECT_FALSE(instance.dlgListaModelos);
}

TEST_F(ModelList, starts_with_its_boxes_filled_and_that_of_the_sub_matter_disabled) {
  choose(
      [&] {
        EXPECT_EQ(text(u"txtMateria"), u"Alquiler");
        EXPECT_EQ(text(u"txtTMateria"), u"Fianza");
        EXPECT_FALSE(form().control(u"txtTMateria")->Enabled());
        EXPECT_FALSE(form().control(u"cmdSubMateria")->Enabled());
        EXPECT_EQ(form().as<forms::TextBox>(u"txtTMateria")->BackColor(), 0xC0C0C0u);
        EXPECT_EQ(names().size(), 4u);
        EXPECT_EQ(active(), u"grdPlantilla");
      },
      u"Alquiler", u"Fianza");
}

TEST_F(ModelList, is_a_new_form_each_time) {
  choose([&] {
    user.clicksHeading(1);
    user.types(u"txtNotas", u"venta");
    user.clicks(u"cmdSel");
  });
  choose([&] {
    EXPECT_EQ(lastStatement(), wholeList + u"ORDER BY Plantilla.Nombre ASC");
    EXPECT_EQ(caption(u"cmdSel"), u"Seleccionar");
    EXPECT_EQ(text(u"txtNotas"), u"");
    user.clicksHeading(1);
    EXPECT_EQ(lastStatement(), wholeList + u"ORDER BY Plantilla.Nombre DESC")
        << "the first click on it again";
  });
}

TEST_F(ModelList, without_its_table_opens_empty_after_a_report) {
  database->otherwise = [](TextView) -> kit::FakeTableRef { throw Failure(dao::failure::unknownTable); };
  expectReport(u"RefrescoRecordset de ListaModelos", dao::failure::unknownTable);
  choose([&] {
    EXPECT_EQ(grid().Rows(), 0);
    expectBox(u"No existen modelos a asociar.");
    user.clicks(u"cmdAceptar");
    EXPECT_TRUE(form().Visible());
    user.deletesRows();
    user.clicksHeading(2);
    user.clicks(u"cmdCancelar");
  });
  EXPECT_EQ(name, u"");
}

TEST_F(ModelList, that_cannot_be_shown_is_reported_and_chooses_nothing) {
  choose([&] {
    const auto shown = std::static_pointer_cast<ModelListForm>(instance.dlgListaModelos);
    Text other = u"antes", otherFolder = u"antes";
    expectReport(u"SelecModelo de ListaModelos", failure::alreadyShown);
    shown->SelecModelo(u"", u"", u"", other, otherFolder);
    EXPECT_EQ(other, u"antes");
  });
}

// Choosing.

TEST_F(ModelList, gives_the_current_row_whose_file_is_there) {
  choose([&] {
    user.clicksRow(1);
    user.clicks(u"cmdAceptar");
    EXPECT_FALSE(form().loaded());
  });
  EXPECT_EQ(name, u"fianza.doc");
  EXPECT_EQ(folder, u"\\Datos\\Agencia\\Plantillas\\");
}

TEST_F(ModelList, takes_a_data_folder_in_the_systems_form) {
  nota.AppDirUser = u"/Datos/Agencia";
  choose([&] { user.clicks(u"cmdAceptar"); });
  EXPECT_EQ(name, u"carta.doc");
  EXPECT_EQ(folder, u"\\Datos\\Agencia\\Plantillas\\");
}

TEST_F(ModelList, takes_a_file_whose_name_differs_in_case_for_the_models_own) {
  here.files.remove(models + u"\\Ñapa.doc");
  here.files.putFile(models + u"\\ñAPA.DOC");
  choose([&] {
    user.clicksRow(3);
    user.clicks(u"cmdAceptar");
  });
  EXPECT_EQ(name, u"Ñapa.doc");
}

TEST_F(ModelList, gives_the_row_that_is_chosen_of_two_with_one_name) {
  kit::putModel(*database, u"carta.doc", u"La otra");
  choose([&] {
    user.clicksRow(4);
    user.clicks(u"cmdAceptar");
  });
  EXPECT_EQ(name, u"carta.doc");
}

TEST_F(ModelList, without_rows_says_so_and_stays) {
  database->tableNamed(u"Plantilla")->rows.clear();
  choose([&] {
    expectBox(u"No existen modelos a asociar.");
    user.clicks(u"cmdAceptar");
    EXPECT_TRUE(form().Visible());
  });
  EXPECT_EQ(name, u"");
  EXPECT_EQ(folder, u"");
}

TEST_F(ModelList, cancelled_or_closed_chooses_nothing) {
  const std::vector<std::function<void()>> ways = {[&] { user.clicks(u"cmdCancelar"); },
                                                   [&] { user.presses(kit::User::escape); },
                                                   [&] { EXPECT_TRUE(user.closes()); }};
  for (const auto& way : ways) {
    name = folder = u"antes";
    choose([&] {
      user.clicksRow(1);
      way();
      EXPECT_FALSE(form().loaded());
    });
    EXPECT_EQ(name, u"");
    EXPECT_EQ(folder, u"");
  }
}

TEST_F(ModelList, keeps_the_row_of_a_missing_file_when_the_user_says_no) {
  choose([&] {
    user.clicksRow(2);
    expectMissing(no);
    user.clicks(u"cmdAceptar");
    EXPECT_TRUE(form().Visible());
    EXPECT_EQ(names().size(), 4u);
    EXPECT_EQ(current(), u"perdido.doc");
  });
  EXPECT_EQ(name, u"perdido.doc") << "closing by its box leaves what was set";
  EXPECT_EQ(folder, u"\\Datos\\Agencia\\Plantillas\\");
}

TEST_F(ModelList, cancelled_after_a_refused_choice_chooses_nothing) {
  choose([&] {
    user.clicksRow(2);
    expectMissing(no);
    user.clicks(u"cmdAceptar");
    user.clicks(u"cmdCancelar");
  });
  EXPECT_EQ(name, u"");
  EXPECT_EQ(folder, u"");
}

TEST_F(ModelList, deletes_the_row_of_a_missing_file_when_the_user_says_yes_and_goes_on) {
  choose([&] {
    user.clicksRow(2);
    expectMissing(yes);
    user.clicks(u"cmdAceptar");
    EXPECT_TRUE(form().Visible());
    EXPECT_THAT(names(), ElementsAre(u"carta.doc", u"fianza.doc", u"Ñapa.doc"));
    EXPECT_EQ(current(), u"Ñapa.doc") << "the row behind it";
    EXPECT_TRUE(desk.told(u"grdPlantilla", forms::Property::Rows));
    user.clicks(u"cmdAceptar");
  });
  EXPECT_EQ(name, u"Ñapa.doc");
}

TEST_F(ModelList, goes_back_to_the_last_row_when_the_last_was_deleted) {
  here.files.remove(models + u"\\Ñapa.doc");
  choose([&] {
    user.clicksRow(3);
    expectMissing(yes);
    user.clicks(u"cmdAceptar");
    EXPECT_EQ(current(), u"perdido.doc");
  });
}

TEST_F(ModelList, is_empty_when_the_only_row_was_deleted) {
  database->tableNamed(u"Plantilla")->rows.resize(1);
  here.files.remove(models + u"\\carta.doc");
  choose([&] {
    expectMissing(yes);
    user.clicks(u"cmdAceptar");
    EXPECT_EQ(grid().Rows(), 0);
    expectBox(u"No existen modelos a asociar.");
    user.clicks(u"cmdAceptar");
  });
}

TEST_F(ModelList, takes_a_name_that_no_file_can_have_for_a_missing_one) {
  here.files.putFile(u"\\Datos\\Agencia\\secreto.doc");
  for (const Variant& bad : {Variant(u"..\\secreto.doc"), Variant(u"../secreto.doc"), Variant(u".."),
                             Variant(u"*.doc"), Variant(u"car?a.doc"), Variant(u""), Variant(Null)}) {
    database->tableNamed(u"Plantilla")->at(0, u"Nombre") = bad;
    choose([&] {
      expectMissing(no);
      user.clicks(u"cmdAceptar");
      EXPECT_TRUE(form().Visible()) << toUtf8(bad.text());
    });
  }
}

TEST_F(ModelList, a_choice_that_fails_is_reported_and_the_form_stays) {
  choose([&] {
    here.faults.failNext("Files.firstMatch", failure::permissionDenied);
    expectReport(u"cmdAceptar_Click de ListaModelos", failure::permissionDenied);
    user.clicks(u"cmdAceptar");
    EXPECT_TRUE(form().Visible());

    here.faults.failNext("Field.Value", dao::failure::locked);
    expectReport(u"cmdAceptar_Click de ListaModelos", dao::failure::locked);
    user.clicks(u"cmdAceptar");
    EXPECT_TRUE(form().Visible());

    user.clicksRow(2);
    expectMissing(yes);
    here.faults.failNext("Recordset.Delete", dao::failure::referenced);
    expectReport(u"cmdAceptar_Click de ListaModelos", dao::failure::referenced);
    user.clicks(u"cmdAceptar");
    EXPECT_EQ(names().size(), 4u);
    EXPECT_TRUE(grid().Redraw());
  });
}

// Boxes and buttons.

TEST_F(ModelList, has_the_host_choose_subject_and_sub_matter) {
  host.answers.VerMateria = [](bool& ok, const Text&, Text& chosen) { ok = true, chosen = u"Alquiler"; };
  host.answers.VerTMateria = [](bool& ok, const Variant&, const Text&, Text& chosen) {
    ok = true, chosen = u"Fianza";
  };
  choose([&] {
    user.clicks(u"cmdMateria");
    EXPECT_EQ(text(u"txtMateria"), u"Alquiler");
    user.enters(u"txtMateria");
    user.presses(kit::User::enter, kit::User::shiftKey);
    user.enters(u"txtNotas");
    user.clicks(u"cmdSubMateria");
    EXPECT_EQ(text(u"txtTMateria"), u"Fianza");
    user.enters(u"txtTMateria");
    user.presses(kit::User::enter, kit::User::shiftKey);
  });
  EXPECT_THAT(host.events, ElementsAre(u"VerMateria()", u"VerMateria(Alquiler)", u"VerTMateria(Alquiler, )",
                                       u"VerTMateria(Alquiler, Fianza)"));
}

TEST_F(ModelList, leaves_the_boxes_alone_when_the_host_chooses_nothing) {
  host.answers.VerMateria = [](bool&, const Text&, Text& chosen) { chosen = u"Ventas"; };
  choose(
      [&] {
        user.clicks(u"cmdMateria");
        EXPECT_EQ(text(u"txtMateria"), u"Alquiler");
      },
      u"Alquiler");
}

TEST_F(ModelList, a_host_that_fails_is_logged_from_a_button_and_reported_from_a_key) {
  host.answers.VerMateria = [](bool&, const Text&, Text&) { throw Failure(failure::typeMismatch); };
  host.answers.VerTMateria = [](bool&, const Variant&, const Text&, Text&) {
    throw Failure(failure::typeMismatch);
  };
  choose(
      [&] {
        here.expectLogEntry(u"Evento de ListaModelos", failure::typeMismatch);
        user.clicks(u"cmdMateria");
        user.enters(u"txtMateria");
        expectReport(u"txtMateria_KeyDown de ListaModelos", failure::typeMismatch);
        user.presses(kit::User::enter, kit::User::shiftKey);
        user.enters(u"txtNotas");
        here.expectLogEntry(u"Evento de ListaModelos", failure::typeMismatch);
        user.clicks(u"cmdSubMateria");
        user.enters(u"txtTMateria");
        expectReport(u"txtTMateria_KeyDown de ListaModelos", failure::typeMismatch);
        user.presses(kit::User::enter, kit::User::shiftKey);
      },
      u"Alquiler");
}

TEST_F(ModelList, swallows_single_quotes_in_subject_and_sub_matter_only) {
  choose(
      [&] {
        user.strikes(u"txtMateria", u'\'');
        EXPECT_EQ(text(u"txtMateria"), u"Ventas");
        user.strikes(u"txtMateria", u'"');
        EXPECT_EQ(text(u"txtMateria"), u"Ventas\"");
        user.types(u"txtMateria", u"Ventas");
        user.enters(u"txtNotas");
        for (const char16_t character : {u'O', u'\'', u'f'}) user.strikes(u"txtTMateria", character);
        EXPECT_EQ(text(u"txtTMateria"), u"Of");
        user.types(u"txtTMateria", u"Oferta");
        user.strikes(u"txtNotas", u'\'');
        EXPECT_EQ(text(u"txtNotas"), u"'");
      },
      u"Ventas");
}

TEST_F(ModelList, selects_the_text_of_a_box_that_is_entered) {
  choose(
      [&] {
        const auto selected = [&](TextView box) {
          user.enters(box);
          return form().as<forms::TextBox>(box)->SelLength();
        };
        EXPECT_EQ(selected(u"txtMateria"), 6);
        EXPECT_EQ(selected(u"txtNotas"), 0);
        user.types(u"txtTMateria", u"Oferta");
        user.types(u"txtNotas", u"venta");
        EXPECT_EQ(selected(u"txtTMateria"), 6);
        EXPECT_EQ(selected(u"txtNotas"), 5);
      },
      u"Ventas");
}

}  // namespace
}  // namespace ovalia
