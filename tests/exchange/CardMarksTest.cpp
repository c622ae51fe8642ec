#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/exchange/PassedMarks.h"

namespace ovalia {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class CardMarks : public PassedMarks {};

TEST_F(CardMarks, of_a_note_are_these) {
  givenList(u"Nota");
  EXPECT_THAT(onCard(), ElementsAre(u"0 Asunto: Llaves en portería", u"1 Categorias: Llaves; Urgente",
                                    u"2 Autor: Ana Ruiz", u"3 Fecha: 02/03/26 - 10:15", u"4 Acceso: Teléfono",
                                    u"5 Adjunto: ", u"6 AdjuntoEMail: ", u"7 Notas: Tiene prisa por vender.",
                                    u"21 Id: 120"));
}

TEST_F(CardMarks, of_a_visit_are_these) {
  givenList(u"Visita");
  EXPECT_THAT(
      onCard(),
      ElementsAre(u"0 Asunto: Llaves en portería", u"1 Categorias: Llaves; Urgente", u"2 Autor: Ana Ruiz",
                  u"3 Fecha: 10/03/26 - 09:30", u"4 Acceso: Teléfono", u"5 Adjunto: ", u"6 AdjuntoEMail: ",
                  u"7 Notas: Tiene prisa por vender.", u"8 Comienzo: 10/03/26 - 09:30",
                  u"9 Fin: 10/03/26 - 10:45", u"10 Ubicación: Calle Mayor, 3", u"11 Cliente: Luis Pérez",
                  u"12 Comercial: Benito Gil", u"13 Agencia: Casas del Sur", u"14 Aviso: Sí - 15 minutos",
                  u"15 Confirmada: Sí", u"16 Realizada: No", u"21 Id: 120", u"22 Comercial2: Benito Gil"));
}

TEST_F(CardMarks, of_an_advertisement_are_these) {
  givenList(u"Anuncio");
  EXPECT_THAT(onCard(),
              ElementsAre(u"0 Asunto: Anuncio en Calle Mayor, 3", u"1 Categorias: Llaves; Urgente",
                          u"2 Autor: Ana Ruiz", u"3 Fecha: 02/03/26 - 10:15", u"4 Acceso: Teléfono",
                          u"5 Adjunto: ", u"6 AdjuntoEMail: ", u"7 Notas: Tiene prisa por vender.",
                          u"8 Comienzo: 02/03/26 - 10:15", u"17 FechaInicio: 06/03/26", u"18 Dias: 15",
                          u"19 Enviar: Sí", u"20 Enviada: 04/03/26 - 12:00", u"21 Id: 120"));
}

// A call has no parent's number: its own key stands in.
TEST_F(CardMarks, of_a_call_are_these) {
  givenList(u"Llamada");
  EXPECT_THAT(onCard(), ElementsAre(u"0 Asunto: Llamada por el anuncio", u"2 Autor: Ana Ruiz",
                                    u"3 Fecha: 02/03/26 - 10:15", u"5 Adjunto: ", u"6 AdjuntoEMail: ",
                                    u"7 Notas: Tiene prisa por vender.", u"8 Comienzo: 02/03/26 - 10:15",
                                    u"21 Id: 501"));
}

TEST_F(CardMarks, are_what_the_card_shows_saved_or_not) {
  openCard([&] {
    user.types(u"txtAsunto", u"Llaves del ático");
    EXPECT_THAT(pass(), Contains(u"0 Asunto: Llaves del ático"));
    EXPECT_EQ(state(), modificada);
    putAway();
  });
}

TEST_F(CardMarks, leave_the_notes_out_of_a_document_that_is_kept_and_nowhere_else) {
  onCard(paraAdjuntar);
  EXPECT_EQ(at(7), u": ");
  EXPECT_THAT(onCard(paraImprimir), Contains(u"7 Notas: Tiene prisa por vender."));
  EXPECT_THAT(onCard(paraCorreo), Contains(u"7 Notas: Tiene prisa por vender."));
}

TEST_F(CardMarks, take_the_second_salesperson_from_the_first) {
  nota.DosComerciales = true;
  givenList(u"Visita");
  onCard();
  EXPECT_EQ(at(12), u"Comercial: Benito Gil");
  EXPECT_EQ(at(22), u"Comercial2: Benito Gil");
}

TEST_F(CardMarks, of_what_is_not_ticked_say_no) {
  givenList(u"Visita", {{{u"Aviso", false}, {u"Confirmada", false}, {u"Realizada", true}}});
  onCard();
  EXPECT_EQ(at(14), u"Aviso: No");
  EXPECT_EQ(at(15), u"Confirmada: No");
  EXPECT_EQ(at(16), u"Realizada: Sí");
  givenList(u"Anuncio", {{{u"Enviar", false}}});
  onCard();
  EXPECT_EQ(at(19), u"Enviar: No");
}

TEST_F(CardMarks, of_dates_that_are_missing_show_the_day_that_stands_for_none) {
  givenList(u"Visita", {{{u"FechaFin", Null}}});
  onCard();
  EXPECT_EQ(at(9), u"Fin: 30/12/99 - 00:00");
  givenList(u"Anuncio", {{{u"FechaInicio", Null}, {u"FechaEnvio", Null}}});
  onCard();
  EXPECT_EQ(at(17), u"FechaInicio: 30/12/99");
  EXPECT_EQ(at(20), u"Enviada:  - 00:00");
}

TEST_F(CardMarks, of_fields_without_a_value_have_their_names) {
  givenList(u"Nota", {{{u"Asunto", Null}, {u"Notas", Null}}});
  const auto marks = onCard();
  EXPECT_THAT(marks, Contains(u"0 Asunto: "));
  EXPECT_THAT(marks, Contains(u"7 Notas: "));
}

TEST_F(CardMarks, have_the_attachments_in_two_texts) {
  attached(u"120F00.doc", u"Contrato.doc");
  attached(u"120F01.pdf", u"Plano.pdf");
  attached(u"120F02.jpg", u"Foto.jpg");
  onCard();
  EXPECT_EQ(at(5), u"Adjunto: Contrato.doc , Plano.pdf , Foto.jpg.");
  EXPECT_EQ(
      at(6),
      u"AdjuntoEMail: \\Datos\\Agencia\\Doc1\\Doc2\\Doc0\\120F00.doc , "
      u"\\Datos\\Agencia\\Doc1\\Doc2\\Doc0\\120F01.pdf , \\Datos\\Agencia\\Doc1\\Doc2\\Doc0\\120F02.jpg");
  EXPECT_THAT(database->opened,
              ElementsAre(u"SELECT NombreOrg, NombreArch FROM DocuNotaIP WHERE IdNota = 501"));
}

TEST_F(CardMarks, have_attachments_that_are_shown_by_no_name) {
  attached(u"120F00.doc", u"Contrato.doc");
  attached(u"120F01.pdf", u"Plano.pdf");
  documents->at(0, u"NombreOrg") = Null;
  onCard();
  EXPECT_EQ(at(5), u"Adjunto:  , Plano.pdf.");
}

TEST_F(CardMarks, ask_the_engine_nothing_and_make_no_folder_without_attachments) {
  for (const Variant& counter : {Variant(0), Variant(-1), Variant(Null)}) {
    openCard([&] {
      list->at(0, u"NArchivos") = counter;
      database->opened.clear();
      pass();
      EXPECT_EQ(at(5), u"Adjunto: ");
      EXPECT_EQ(at(6), u"AdjuntoEMail: ");
      EXPECT_THAT(database->opened, IsEmpty());
    });
  }
  EXPECT_FALSE(here.files.exists(u"\\Datos\\Agencia\\Doc1"));
}

TEST_F(CardMarks, of_a_list_that_keeps_no_attachments_have_empty_ones) {
  givenList(u"Nota", {{}}, {u"NArchivos"});
  onCard();
  EXPECT_EQ(at(5), u"Adjunto: ");
  EXPECT_THAT(database->opened, IsEmpty());
}

// The card's own list would put such a counter back to 0.
TEST_F(CardMarks, of_a_counter_without_rows_have_empty_attachments) {
  openCard([&] {
    list->at(0, u"NArchivos") = 2;
    pass();
    EXPECT_EQ(at(5), u"Adjunto: ");
    EXPECT_EQ(at(6), u"AdjuntoEMail: ");
  });
}

// Nothing outside of the data folder is ever sent, whatever a table holds.
TEST_F(CardMarks, of_a_stored_name_that_leads_elsewhere_are_not_passed) {
  attached(u"120F00.doc", u"Contrato.doc");
  for (const Variant& name :
       {Variant(u"..\\..\\..\\..\\secreto.doc"), Variant(u"/etc/passwd"), Variant(Null)}) {
    openCard([&] {
      documents->at(0, u"NombreArch") = name;
      expectReport(u"Pasa_Datos_Dlg de CNota", failure::pathNotFound);
      EXPECT_THAT(pass(), IsEmpty());
      EXPECT_THAT(passed, IsEmpty());
      documents->at(0, u"NombreArch") = u"120F00.doc";
    });
  }
}

TEST_F(CardMarks, of_a_row_without_a_number_are_not_passed) {
  openCard([&] {
    list->at(0, u"Id") = Null;
    expectReport(u"Pasa_Datos_Dlg de CNota", failure::invalidUseOfNull);
    pass();
    EXPECT_THAT(passed, IsEmpty());
    list->at(0, u"Id") = 120;
  });
}

TEST_F(CardMarks, of_a_row_that_is_gone_are_not_passed) {
  openCard([&] {
    expectReport(u"Pasa_Datos_Dlg de CNota", dao::failure::noCurrentRecord);
    nota.crs->MoveNext();
    pass();
    EXPECT_THAT(passed, IsEmpty());
    nota.crs->MoveFirst();
  });
}

TEST_F(CardMarks, without_a_list_are_not_passed) {
  openCard([&] {
    const auto held = std::exchange(nota.crs, nullptr);
    expectReport(u"Pasa_Datos_Dlg de CNota", failure::objectNotSet);
    pass();
    nota.crs = held;
    EXPECT_THAT(passed, IsEmpty());
  });
}

TEST_F(CardMarks, of_attachments_whose_folder_cannot_be_made_are_not_passed) {
  attached(u"120F00.doc", u"Contrato.doc");
  openCard([&] {
    nota.AppDirUser = u"\\Otra";
    here.faults.failNext("Files.makeDirectory", failure::permissionDenied);
    expectReport(u"CreaPathDoc de CNota", failure::permissionDenied);
    expectReport(u"Pasa_Datos_Dlg de CNota", failure::pathNotFound);
    pass();
    EXPECT_THAT(passed, IsEmpty());
  });
}

TEST_F(CardMarks, of_attachments_in_a_table_that_is_missing_are_not_passed) {
  attached(u"120F00.doc", u"Contrato.doc");
  openCard([&] {
    nota.DocuAsoc = u"DocuNada";
    expectReport(u"Pasa_Datos_Dlg de CNota", dao::failure::unknownTable);
    pass();
    EXPECT_THAT(passed, IsEmpty());
    nota.DocuAsoc = u"DocuNotaIP";
  });
}

}  // namespace
}  // namespace ovalia
