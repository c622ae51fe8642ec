// The list of models over a card, in the real windows: narrowed, sorted, chosen from.
#include "tests/host/ChoosingModels.h"

namespace ovalia::host {

using deskkit::enter;
using deskkit::escape;
using deskkit::press;
using deskkit::tab;
using deskkit::types;
using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(ChoosingModels, the_one_on_whose_row_one_is_comes_to_the_card_as_a_document_of_its_own) {
  onNote({}, [&] {
    choosing([] {
      EXPECT_EQ(QApplication::activeModalWidget()->windowTitle(), "Adjuntar Modelo");
      EXPECT_EQ(focused(), u"grdPlantilla");
      EXPECT_THAT(names(), ElementsAre("Contrato de arras.rtf", "Encargo de venta.rtf",
                                       "Petición de nota simple.rtf", "Recibí de llaves.rtf"));
      EXPECT_THAT(column(3), ElementsAre("Civil", "Civil", "Registral", ""));
      EXPECT_THAT(column(4), ElementsAre("Arrendamientos", "", "Notas simples", ""));
      press(Qt::Key_Down);
      press(Qt::Key_Down);
      accepts();
      EXPECT_FALSE(isUp(u"ListaModelos"));
    });
    EXPECT_THAT(listed(), ElementsAre("Petición de nota simple.rtf"));
    EXPECT_TRUE(list().isVisible());
    EXPECT_FALSE(enabled(u"ID_Guardar"));
  });
  const auto row = database().OpenRecordset(u"SELECT * FROM DocuNotaIP WHERE IdNota = " + toText(note),
                                            dao::dbOpenSnapshot);
  ASSERT_EQ(row->RecordCount(), 1);
  EXPECT_EQ(row->value(u"NombreOrg").text(), u"Petición de nota simple.rtf");
  EXPECT_TRUE(row->value(u"NombreArch").text().ends_with(u".rtf"));
  EXPECT_EQ(attached(), content(u"Petición de nota simple.rtf"));
  EXPECT_EQ(stored(u"NotaIP", u"NArchivos", note).toLong(), 1);
  ASSERT_EQ(keyed.opened.size(), 1u);
  EXPECT_TRUE(keyed.opened[0].ends_with(u"/" + row->value(u"NombreArch").text()));
  EXPECT_EQ(keyed.openedAs, u"Petición de nota simple.rtf");
  EXPECT_EQ(models(), 4);
}

TEST_F(ChoosingModels, one_model_comes_twice_as_two_documents) {
  onNote({}, [&] {
    for (int i = 0; i < 2; ++i) choosing([] { accepts(); });
    EXPECT_THAT(listed(), ElementsAre("Contrato de arras.rtf", "Contrato de arras.rtf"));
  });
  EXPECT_EQ(one(u"SELECT COUNT(*) FROM (SELECT DISTINCT NombreArch FROM DocuNotaIP WHERE IdNota = " +
                toText(note) + u")")
                .toLong(),
            2);
}

TEST_F(ChoosingModels, a_name_with_a_long_ending_or_none_is_kept_on_the_card_and_stored_as_doc) {
  addModel(u"Acta de l'Hospital.docx", u"acta");
  addModel(u"Sin extensión", u"nada");
  onNote({}, [&] {
    choosing([] { accepts(); });
    choosing([] {
      press(Qt::Key_End);
      accepts();
    });
    EXPECT_THAT(listed(), ElementsAre("Acta de l'Hospital.docx", "Sin extensión"));
  });
  EXPECT_EQ(one(u"SELECT COUNT(*) FROM DocuNotaIP WHERE NombreArch Like '*.doc' AND IdNota = " + toText(note))
                .toLong(),
            2);
}

TEST_F(ChoosingModels, a_list_that_is_cancelled_in_any_way_attaches_nothing_without_a_word) {
  onNote({}, [&] {
    const Keys ways[] = {[] { escape(); }, [] { presses(u"cmdCancelar"); },
                         [] { QApplication::activeModalWidget()->close(); }};
    for (const Keys& cancels : ways)
      choosing([&] {
        press(Qt::Key_Down);
        cancels();
        EXPECT_FALSE(isUp(u"ListaModelos"));
      });
    EXPECT_THAT(listed(), IsEmpty());
  });
  EXPECT_EQ(rows(), 0);
  EXPECT_TRUE(keyed.opened.empty());
}

TEST_F(ChoosingModels, without_models_there_is_none_to_choose_and_the_list_stays) {
  database().Execute(u"DELETE FROM Plantilla");
  onList([&] {
    asked(u"No existen modelos a asociar.", 0, u"", 1, [] { enter(); });
    accepts();
    EXPECT_TRUE(isUp(u"ListaModelos"));
    escape();
  });
  EXPECT_EQ(rows(), 0);
}

TEST_F(ChoosingModels, a_subject_narrows_the_list_and_the_button_brings_it_back_whole) {
  onList([&] {
    write(u"txtMateria", "civil");
    EXPECT_FALSE(card().control(u"txtTMateria")->Enabled());
    tab();
    EXPECT_TRUE(card().control(u"txtTMateria")->Enabled());
    EXPECT_THAT(names(), ElementsAre("Contrato de arras.rtf", "Encargo de venta.rtf"));
    EXPECT_THAT(column(3), ElementsAre("", "")) << "until the filter is on, names and notes alone";
    EXPECT_EQ(caption(u"cmdSel"), "Seleccionar");
    clicksSelect();
    EXPECT_EQ(caption(u"cmdSel"), "Quitar Selec.");
    EXPECT_THAT(names(), ElementsAre("Contrato de arras.rtf", "Encargo de venta.rtf"));
    EXPECT_THAT(column(3), ElementsAre("Civil", "Civil"));
    clicksSelect();
    EXPECT_EQ(caption(u"cmdSel"), "Seleccionar");
    EXPECT_EQ(names().size(), 4u);
    escape();
  });
}

TEST_F(ChoosingModels, subject_part_and_notes_narrow_together_and_the_choice_among_them_is_attached) {
  addModel(u"Otro.txt", u"Arras sin materia");
  onNote({}, [&] {
    choosing([&] {
      write(u"txtMateria", "Civil");
      write(u"txtTMateria", "Arrendamientos");
      write(u"txtNotas", "penitenc");
      clicksSelect();
      EXPECT_THAT(names(), ElementsAre("Contrato de arras.rtf"));
      EXPECT_THAT(column(4), ElementsAre("Arrendamientos"));
      tabTo(u"cmdAceptar");
      press(Qt::Key_Space, Qt::NoModifier, " ");
      EXPECT_FALSE(isUp(u"ListaModelos"));
    });
    EXPECT_THAT(listed(), ElementsAre("Contrato de arras.rtf"));
  });
}

TEST_F(ChoosingModels, notes_are_searched_without_regard_to_case_with_quotes_and_wildcards) {
  addModel(u"Uno.txt", u"Finca de l'Hospital");
  addModel(u"Dos.txt", u"Finca rústica 100 %");
  onList([&] {
    const auto found = [](const char* text) {
      write(u"txtNotas", text);
      clicksSelect();
      auto rows = names();
      clicksSelect();
      return rows;
    };
    EXPECT_THAT(found("L'HOSP"), ElementsAre("Uno.txt"));
    EXPECT_THAT(found("finca*0 %"), ElementsAre("Dos.txt"));
    EXPECT_THAT(found("FINCA"), ElementsAre("Dos.txt", "Uno.txt"));
    EXPECT_THAT(found("nada de eso"), IsEmpty());
    EXPECT_EQ(names().size(), 6u);
    escape();
  });
}

TEST_F(ChoosingModels, an_unknown_subject_is_held_back_until_one_of_the_agencys_is_chosen) {
  onList([&] {
    write(u"txtMateria", "Civ");
    onDialog(
        "Materia", [] { escape(); }, [] { tab(); });
    EXPECT_EQ(focused(), u"txtMateria");
    EXPECT_EQ(shown(u"txtMateria"), "Civ");
    onDialog(
        "Materia", [] { types("regis"), enter(); }, [] { tab(); });
    EXPECT_EQ(focused(), u"txtMateria");
    EXPECT_EQ(shown(u"txtMateria"), "Registral");
    EXPECT_THAT(names(), ElementsAre("Petición de nota simple.rtf"));
    tab();
    EXPECT_EQ(focused(), u"cmdSubMateria");
    escape();
  });
}

TEST_F(ChoosingModels, a_part_that_the_subject_lacks_brings_the_agencys_list) {
  onList([&] {
    write(u"txtMateria", "Registral");
    write(u"txtTMateria", "IVA");
    prepared.add([] {
      EXPECT_EQ(QApplication::activeModalWidget()->windowTitle(), "Sub Materia");
      EXPECT_EQ(QApplication::activeModalWidget()->findChild<QListWidget*>()->count(), 3);
      types("Not"), enter();
    });
    tab();
    EXPECT_EQ(focused(), u"txtTMateria");
    EXPECT_EQ(shown(u"txtTMateria"), "Notas simples");
    tab();
    EXPECT_EQ(focused(), u"txtNotas");
    EXPECT_THAT(names(), ElementsAre("Petición de nota simple.rtf"));
    escape();
  });
}

TEST_F(ChoosingModels, walking_on_past_the_empty_subject_begins_the_list_again_at_another_row) {
  database().Execute(u"DELETE FROM Plantilla");
  addModel(u"Segundo.txt", u"");
  addModel(u"Primero.txt", u"");
  onNote({}, [&] {
    choosing([] {
      EXPECT_THAT(names(), ElementsAre("Primero.txt", "Segundo.txt"));
      tabTo(u"cmdAceptar");
      EXPECT_THAT(names(), ElementsAre("Segundo.txt", "Primero.txt")) << "without an order";
      press(Qt::Key_Space, Qt::NoModifier, " ");
    });
    EXPECT_THAT(listed(), ElementsAre("Segundo.txt"));
  });
}

TEST_F(ChoosingModels, the_agencys_lists_fill_the_boxes_and_no_quote_gets_into_them) {
  onList([&] {
    tabTo(u"txtMateria");
    types("D'Ors");
    EXPECT_EQ(shown(u"txtMateria"), "DOrs");
    prepared.add([] { types("Fis"), enter(); });
    enter(Qt::ShiftModifier);
    EXPECT_EQ(shown(u"txtMateria"), "Fiscal");
    tab();
    tab();
    ASSERT_EQ(focused(), u"txtTMateria");
    prepared.add([] { types("Plu"), enter(); });
    enter(Qt::ShiftModifier);
    EXPECT_EQ(shown(u"txtTMateria"), "Plusvalía");
    escape();
  });
}

TEST_F(ChoosingModels, a_case_file_proposes_only_its_part_and_the_list_begins_whole) {
  const std::int32_t key = one(u"SELECT Min(IdExpVivo) FROM ExpVivo WHERE IdTipoMateria > 0").toLong();
  ListPane& notes = pane(u"grdNota", key, u"FichaExpV");
  onRow(notes, {}, [&] {
    choosing([&] {
      EXPECT_EQ(shown(u"txtMateria"), "");
      EXPECT_NE(shown(u"txtTMateria"), "");
      EXPECT_FALSE(card().control(u"txtTMateria")->Enabled());
      EXPECT_EQ(names().size(), 4u);
      escape();
    });
  });
}

TEST_F(ChoosingModels, headings_sort_up_and_down_and_the_filter_keeps_the_order) {
  onList([&] {
    clickHeading(1);
    EXPECT_THAT(names(), ElementsAre("Recibí de llaves.rtf", "Petición de nota simple.rtf",
                                     "Encargo de venta.rtf", "Contrato de arras.rtf"));
    clickHeading(3);
    EXPECT_THAT(column(3), ElementsAre("", "Civil", "Civil", "Registral"));
    clickHeading(3);
    EXPECT_THAT(column(3), ElementsAre("Registral", "Civil", "Civil", ""));
    clickHeading(2);
    EXPECT_THAT(names(), ElementsAre("Recibí de llaves.rtf", "Petición de nota simple.rtf",
                                     "Contrato de arras.rtf", "Encargo de venta.rtf"));
    clickHeading(1);
    clickHeading(1);
    write(u"txtNotas", "a");
    clicksSelect();
    EXPECT_THAT(names(),
                ElementsAre("Petición de nota simple.rtf", "Encargo de venta.rtf", "Contrato de arras.rtf"));
    clickHeading(1);
    EXPECT_EQ(names()[0], "Contrato de arras.rtf") << "a heading takes the focus to the list first";
    EXPECT_EQ(focused(), u"grdPlantilla");
    escape();
  });
}

}  // namespace ovalia::host
