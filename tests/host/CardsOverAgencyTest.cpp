#include "tests/host/CardsOverAgency.h"

namespace ovalia::host {

TEST_F(CardsOverAgency, every_annotation_of_the_first_records_opens_without_a_report) {
  int opened = 0;
  for (const HostForm& form : hostForms())
    for (std::int32_t record = 1; record <= 3; ++record) {
      open(form.form, record);
      for (const auto& list : card->lists())
        for (std::int32_t row = 0; row < std::min(list->count(), 25); ++row) {
          list->recordset()->setAbsolutePosition(row);
          const Text kind(kindName(list->annotations().kind));
          desk.whileShown([&] {
            EXPECT_EQ(desk.top().Name(), u"frm" + kind);
            EXPECT_TRUE(desk.top().Caption().ends_with(toText(row + 1) + u"/" + toText(list->count())));
            ++opened;
          });
          list->openCard();
        }
    }
  EXPECT_GT(opened, 100);
}

TEST_F(CardsOverAgency, a_new_annotation_of_each_kind_hangs_on_what_is_open) {
  struct Row {
    TextView grid, table, parentColumn;
  };
  constexpr Row rows[] = {{u"grdNota", u"NotaIP", u"IdInm"},
                          {u"grdVisita", u"VisitaIP", u"IdInm"},
                          {u"grdAnuncio", u"AnuncioIP", u"IdInm"},
                          {u"grdLlamada", u"LlamadaAIP", u"IdAnuncio"}};
  for (const Row& row : rows) {
    open(u"FichaInm");
    AnnotationList& annotations = list(row.grid);
    const std::int32_t before = annotations.count(), parent = annotations.parent();
    desk.whileShown([&] {
      user.types(u"txtNotas", u"Recién escrita");
      user.clicks(u"ID_Guardar");
    });
    annotations.createCard();
    EXPECT_EQ(annotations.count(), before + 1) << toUtf8(row.grid);
    const std::int32_t key = newest(row.table);
    EXPECT_EQ(stored(row.table, row.parentColumn, key).toLong(), parent);
    EXPECT_EQ(stored(row.table, u"Notas", key).text(), u"Recién escrita");
    EXPECT_EQ(stored(row.table, u"IdUsuario", key).toLong(), 1);
    EXPECT_FALSE(stored(row.table, u"FechaActualizacion", key).isNull());
    EXPECT_EQ(annotations.currentKey(), key);
  }
}

TEST_F(CardsOverAgency, a_new_visit_takes_place_at_the_property) {
  open(u"FichaInm");
  const Text street = card->rows()->value(u"Direccion").toText();
  desk.whileShown([&] {
    EXPECT_EQ(shown(u"txtUbicacion"), street);
    user.types(u"txtAsunto", u"Primera visita");
    user.clicks(u"ID_Guardar");
  });
  list(u"grdVisita").createCard();
  EXPECT_EQ(stored(u"VisitaIP", u"Donde", newest(u"VisitaIP")).text(), street);
}

TEST_F(CardsOverAgency, an_appointment_of_a_diary_belongs_to_no_property) {
  open(u"FichaUsuario", 3);
  desk.whileShown([&] {
    EXPECT_EQ(desk.top().Caption(), u"Usuario: 3 - Nueva Visita");
    user.types(u"txtAsunto", u"Dentista");
    user.clicks(u"ID_Guardar");
  });
  list(u"grdVisita").createCard();
  const std::int32_t key = newest(u"VisitaIP");
  EXPECT_TRUE(stored(u"VisitaIP", u"IdInm", key).isNull());
  EXPECT_EQ(stored(u"VisitaIP", u"IdUsu", key).toLong(), 3);
}

TEST_F(CardsOverAgency, a_visit_to_a_property_keeps_it_when_saved_from_the_page_of_its_salesperson) {
  open(u"FichaUsuario", 3);
  AnnotationList& visits = list(u"grdVisitaInm");
  const std::int32_t key = visits.currentKey();
  const Text property = stored(u"VisitaIP", u"IdInm", key).text();
  desk.whileShown([&] {
    EXPECT_TRUE(desk.top().Caption().starts_with(u"Inmueble: " + property + u" - Visita: "));
    user.types(u"txtAsunto", u"Cambiada");
    user.clicks(u"ID_Guardar");
  });
  visits.openCard();
  EXPECT_EQ(stored(u"VisitaIP", u"Asunto", key).text(), u"Cambiada");
  EXPECT_EQ(stored(u"VisitaIP", u"IdInm", key).text(), property);
  EXPECT_TRUE(stored(u"VisitaIP", u"IdUsu", key).isNull());
}

TEST_F(CardsOverAgency, a_misspelt_client_is_held_back_and_put_right) {
  open(u"FichaInm");
  const std::int32_t key = list(u"grdVisita").currentKey();
  desk.whileShown([&] {
    user.types(u"txtCliente", u"Odonell, Patricia");
    EXPECT_FALSE(user.enters(u"txtAsunto"));
    EXPECT_EQ(shown(u"txtCliente"), u"O'Donnell, Patricia");
    EXPECT_TRUE(user.enters(u"txtAsunto"));
    user.clicks(u"ID_Guardar");
  });
  list(u"grdVisita").openCard();
  EXPECT_EQ(
      one(u"SELECT Alias FROM Cliente WHERE IdCliente = " + stored(u"VisitaIP", u"IdCliente", key).text())
          .text(),
      u"O'Donnell, Patricia");
}

TEST_F(CardsOverAgency, categories_are_chosen_from_the_agencys_list) {
  open(u"FichaInm");
  const std::int32_t key = list(u"grdNota").currentKey();
  dialogs.manyPicks = {{u"Año nuevo", u"Llaves"}};
  desk.whileShown([&] {
    user.clicks(u"cmdCategorias");
    EXPECT_EQ(shown(u"txtCategorias"), u"Año nuevo, Llaves");
    user.clicks(u"ID_Guardar");
  });
  list(u"grdNota").openCard();
  EXPECT_EQ(stored(u"NotaIP", u"Categorias", key).text(), u"Año nuevo, Llaves");
}

TEST_F(CardsOverAgency, moving_through_the_list_tells_the_card_below) {
  open(u"FichaInm");
  int counted = 0;
  card->counted = [&](AnnotationList& list) {
    EXPECT_EQ(list.design().grid, u"grdNota");
    ++counted;
  };
  desk.whileShown([&] {
    const int before = counted;
    user.clicks(u"ID_Siguiente");
    user.clicks(u"ID_Siguiente");
    EXPECT_EQ(counted, before + 2);
    EXPECT_TRUE(desk.top().Caption().starts_with(u"Inmueble: 1 - Nota: 3/"));
  });
  list(u"grdNota").openCard();
  EXPECT_EQ(list(u"grdNota").recordset()->AbsolutePosition(), 2);
}

TEST_F(CardsOverAgency, names_with_quotes_and_bars_are_saved_to_the_letter) {
  open(u"FichaInm");
  const std::int32_t key = list(u"grdNota").currentKey();
  const Text text = u"L'Hospital | \"Los Álamos\" ¡100% #1! [x] *?";
  desk.whileShown([&] {
    user.types(u"txtAsunto", text);
    user.types(u"txtNotas", text);
    user.clicks(u"ID_Guardar");
  });
  list(u"grdNota").openCard();
  EXPECT_EQ(stored(u"NotaIP", u"Asunto", key).text(), text);
  EXPECT_EQ(stored(u"NotaIP", u"Notas", key).text(), text);
}

TEST_F(CardsOverAgency, another_list_of_the_same_parent_opens_while_the_first_keeps_its_place) {
  open(u"FichaInm");
  list(u"grdNota").recordset()->MoveLast();
  const std::int32_t key = list(u"grdNota").currentKey();
  desk.whileShown([] {});
  list(u"grdAnuncio").openCard();
  EXPECT_EQ(list(u"grdNota").currentKey(), key);
}

}  // namespace ovalia::host
