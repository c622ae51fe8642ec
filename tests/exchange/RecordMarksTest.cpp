#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>

#include "tests/exchange/PassedMarks.h"
#include "tests/kit/FakeRecordset.h"

namespace ovalia {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

// A list that keeps the names by which its fields are looked for and read.
class AskedList : public kit::FakeRecordset {
 public:
  using FakeRecordset::FakeRecordset;
  std::vector<Text> lookedFor, read;

  dao::Fields& fields() override {
    asked_.emplace(*this, FakeRecordset::fields());
    return *asked_;
  }

 private:
  class Asked : public dao::Fields {
   public:
    Asked(AskedList& list, dao::Fields& fields) : list_(list), fields_(fields) {}
    std::size_t count() const override { return fields_.count(); }
    std::shared_ptr<dao::Field> at(std::size_t position) override { return fields_.at(position); }
    std::shared_ptr<dao::Field> item(TextView name) override {
      list_.read.emplace_back(name);
      return fields_.item(name);
    }
    bool contains(TextView name) override {
      list_.lookedFor.emplace_back(name);
      return fields_.contains(name);
    }

   private:
    AskedList& list_;
    dao::Fields& fields_;
  };
  std::optional<Asked> asked_;
};

class RecordMarks : public PassedMarks {
 protected:
  // The marks of one list, its grid having the focus.
  std::vector<Text> ofList(TextView kind, kit::Fields fields = {}) {
    givenList(kind, {std::move(fields)});
    focusOn(u"grd" + Text(kind), u"dat" + Text(kind));
    database->opened.clear();
    return pass();
  }
};

TEST_F(RecordMarks, of_a_note_are_these) {
  EXPECT_THAT(
      ofList(u"Nota"),
      ElementsAre(u"0 Asunto: Llaves en portería", u"1 Categorias: Llaves; Urgente", u"2 Autor: Ana Ruiz",
                  u"3 Autor2: Ana Ruiz", u"4 Fecha: 02/03/26 - 10:15", u"5 Acceso: Teléfono", u"6 Adjunto: ",
                  u"7 AdjuntoEMail: ", u"8 Notas: Tiene prisa por vender.",
                  u"9 Notas2: Tiene prisa por vender.", u"10 Comienzo: ", u"11 Comienzo2: ", u"12 Fin: ",
                  u"13 Donde: ", u"14 Cliente: ", u"15 Cliente2: ", u"16 Comercial: ", u"17 Comercial2: ",
                  u"18 Agencia: ", u"19 Aviso: Sí - ", u"20 Confirmada: ", u"21 Realizada: ",
                  u"22 FechaInicio: ", u"23 Dias: ", u"24 Enviar: ", u"25 Enviada: ", u"26 Id: 120"));
  EXPECT_THAT(database->opened, IsEmpty());
}

TEST_F(RecordMarks, of_a_visit_are_these) {
  EXPECT_THAT(
      ofList(u"Visita"),
      ElementsAre(u"0 Asunto: Llaves en portería", u"1 Categorias: Llaves; Urgente", u"2 Autor: Ana Ruiz",
                  u"3 Autor2: Ana Ruiz", u"4 Fecha: 02/03/26 - 10:15", u"5 Acceso: Teléfono", u"6 Adjunto: ",
                  u"7 AdjuntoEMail: ", u"8 Notas: Tiene prisa por vender.",
                  u"9 Notas2: Tiene prisa por vender.", u"10 Comienzo: 10/03/26 - 09:30",
                  u"11 Comienzo2: 10/03/26 - 09:30", u"12 Fin: 10/03/26 - 10:45", u"13 Donde: Calle Mayor, 3",
                  u"14 Cliente: Luis Pérez", u"15 Cliente2: Luis Pérez", u"16 Comercial: Benito Gil",
                  u"17 Comercial2: Benito Gil", u"18 Agencia: Casas del Sur", u"19 Aviso: Sí - 0:15:00",
                  u"20 Confirmada: Sí", u"21 Realizada: No", u"22 FechaInicio: ", u"23 Dias: ",
                  u"24 Enviar: ", u"25 Enviada: ", u"26 Id: 120"));
  EXPECT_THAT(database->opened, ElementsAre(u"SELECT * FROM Usuario WHERE IdUsuario = 2"));
}

TEST_F(RecordMarks, of_an_advertisement_are_these) {
  EXPECT_THAT(ofList(u"Anuncio"),
              ElementsAre(u"0 Asunto: Anuncio en Calle Mayor, 3", u"1 Categorias: Llaves; Urgente",
                          u"2 Autor: Ana Ruiz", u"3 Autor2: Ana Ruiz", u"4 Fecha: 02/03/26 - 10:15",
                          u"5 Acceso: Teléfono", u"6 Adjunto: ", u"7 AdjuntoEMail: ",
                          u"8 Notas: Tiene prisa por vender.", u"9 Notas2: Tiene prisa por vender.",
                          u"10 Comienzo: 02/03/26 - 10:15", u"11 Comienzo2: 02/03/26 - 10:15", u"12 Fin: ",
                          u"13 Donde: Calle Mayor, 3", u"14 Cliente: ", u"15 Cliente2: ", u"16 Comercial: ",
                          u"17 Comercial2: ", u"18 Agencia: ", u"19 Aviso: ", u"20 Confirmada: ",
                          u"21 Realizada: ", u"22 FechaInicio: 06/03/2026", u"23 Dias: 15", u"24 Enviar: Sí",
                          u"25 Enviada: 04/03/26 - 12:00", u"26 Id: 120"));
  EXPECT_THAT(database->opened, IsEmpty());
}

TEST_F(RecordMarks, of_a_call_are_these) {
  EXPECT_THAT(ofList(u"Llamada"),
              ElementsAre(u"0 Asunto: Llamada por el anuncio", u"1 Categorias: ", u"2 Autor: Ana Ruiz",
                          u"3 Autor2: Ana Ruiz", u"4 Fecha: 02/03/26 - 10:15", u"5 Acceso: ", u"6 Adjunto: ",
                          u"7 AdjuntoEMail: ", u"8 Notas: Tiene prisa por vender.",
                          u"9 Notas2: Tiene prisa por vender.", u"10 Comienzo: 02/03/26 - 10:15",
                          u"11 Comienzo2: 02/03/26 - 10:15", u"12 Fin: ", u"13 Donde: ", u"14 Cliente: ",
                          u"15 Cliente2: ", u"16 Comercial: ", u"17 Comercial2: ", u"18 Agencia: ",
                          u"19 Aviso: ", u"20 Confirmada: ", u"21 Realizada: ", u"22 FechaInicio: ",
                          u"23 Dias: ", u"24 Enviar: ", u"25 Enviada: ", u"26 Id: 501"));
}

TEST_F(RecordMarks, look_for_the_day_of_writing_in_a_spelling_of_its_own) {
  const auto asked = std::make_shared<AskedList>(list, database, here.faults);
  nota.crs = asked;
  focusOnNotes();
  EXPECT_THAT(pass(), Contains(u"4 Fecha: 02/03/26 - 10:15"));
  EXPECT_THAT(asked->lookedFor, Contains(Text(u"Fechaalta")));
  EXPECT_THAT(asked->lookedFor, Not(Contains(Text(u"FechaAlta"))));
  EXPECT_THAT(asked->read, Contains(Text(u"FechaAlta")));
}

TEST_F(RecordMarks, leave_the_notes_of_a_document_that_is_kept_empty) {
  focusOnNotes();
  pass(paraAdjuntar);
  EXPECT_EQ(at(8), u"Notas: ");
  EXPECT_EQ(at(9), u"Notas2: ");
  pass(paraImprimir);
  EXPECT_EQ(at(8), u"Notas: Tiene prisa por vender.");
}

TEST_F(RecordMarks, of_fields_that_are_null_are_empty) {
  kit::Fields nothing;
  for (const TextView field :
       {u"Usuario", u"FechaAlta", u"TipoAccNota", u"Notas", u"Asunto", u"Donde", u"Categorias", u"Aviso",
        u"FechaComienzo", u"FechaFin", u"Cliente", u"Agencia", u"Confirmada", u"Realizada"})
    nothing.emplace_back(field, Null);
  const auto marks = ofList(u"Visita", nothing);
  EXPECT_EQ(marks.size(), 27u);
  for (std::size_t i = 0; i < 26; ++i)
    if (i != 16 && i != 17) {
      EXPECT_TRUE(at(i).ends_with(u": ")) << toUtf8(at(i));
    }
}

TEST_F(RecordMarks, of_an_unsent_advertisement_have_no_sending) {
  ofList(u"Anuncio", {{u"FechaEnvio", Null}, {u"FechaInicio", Null}, {u"NDias", Null}, {u"Enviar", false}});
  EXPECT_EQ(at(22), u"FechaInicio: ");
  EXPECT_EQ(at(23), u"Dias: ");
  EXPECT_EQ(at(24), u"Enviar: No");
  EXPECT_EQ(at(25), u"Enviada: ");
}

TEST_F(RecordMarks, of_the_day_that_stands_for_none_show_it) {
  ofList(u"Visita", {{u"FechaFin", Date{}}});
  EXPECT_EQ(at(12), u"Fin: 30/12/99 - 00:00");
}

TEST_F(RecordMarks, of_a_reminder_say_how_long_before_where_it_is_known) {
  ofList(u"Visita", {{u"Aviso", false}});
  EXPECT_EQ(at(19), u"Aviso: No");
  ofList(u"Visita", {{u"TiempoAviso", Null}});
  EXPECT_EQ(at(19), u"Aviso: Sí - ");
}

TEST_F(RecordMarks, take_the_day_of_writing_for_a_missing_beginning_but_of_notes) {
  givenList(u"Visita", {{}}, {u"FechaComienzo"});
  focusOn(u"grdVisita", u"datVisita");
  pass();
  EXPECT_EQ(at(10), u"Comienzo: 02/03/26 - 10:15");
  nota.Tipo = u"Nota";
  pass();
  EXPECT_EQ(at(10), u"Comienzo: ");
  EXPECT_EQ(at(11), u"Comienzo2: ");
}

TEST_F(RecordMarks, of_a_note_with_a_beginning_of_its_own_show_it) {
  give(u"FechaComienzo", Date{46090.5});
  focusOnNotes();
  pass();
  EXPECT_EQ(at(10), u"Comienzo: 09/03/26 - 12:00");
  EXPECT_EQ(at(11), u"Comienzo2: 09/03/26 - 12:00");
}

TEST_F(RecordMarks, of_a_beginning_that_is_null_are_empty_whatever_was_written) {
  ofList(u"Visita", {{u"FechaComienzo", Null}});
  EXPECT_EQ(at(10), u"Comienzo: ");
}

// Attachments.

TEST_F(RecordMarks, have_the_attachments_of_notes_from_both_grids_of_notes) {
  attached(u"120F00.doc", u"Contrato.doc");
  attached(u"120F01.pdf", u"Plano.pdf");
  for (const TextView grid : {u"grdNota", u"grdHistorico"}) {
    focusOn(grid, u"datNota");
    database->opened.clear();
    pass();
    EXPECT_EQ(at(6), u"Adjunto: Contrato.doc , Plano.pdf.");
    EXPECT_EQ(at(7),
              u"AdjuntoEMail: \\Datos\\Agencia\\Doc1\\Doc2\\Doc0\\120F00.doc , "
              u"\\Datos\\Agencia\\Doc1\\Doc2\\Doc0\\120F01.pdf");
    EXPECT_THAT(database->opened,
                ElementsAre(u"SELECT NombreOrg, NombreArch FROM DocuNotaIP WHERE IdNota = 501"));
  }
}

TEST_F(RecordMarks, have_the_attachments_of_any_other_grid_from_the_table_of_the_advertisements) {
  givenList(u"Anuncio", {{{u"IdAnuncio", 77}, {u"NArchivos", 1}}});
  nota.DocuAsoc = u"DocuAnuncioIArch";
  database->tableNamed(u"DocuAnuncioIP")->add({1, 120, 1, 77, u"Cartel.doc", u"120F05.doc"});
  for (const auto& [grid, data] :
       {std::pair{u"grdAnuncio", u"datAnuncio"}, std::pair{u"grdLlamada", u"datLlamada"}}) {
    focusOn(grid, data);
    database->opened.clear();
    pass();
    EXPECT_EQ(at(6), u"Adjunto: Cartel.doc.");
    EXPECT_EQ(at(7), u"AdjuntoEMail: \\Datos\\Agencia\\Doc1\\Doc2\\Doc0\\120F05.doc");
    EXPECT_THAT(database->opened,
                ElementsAre(u"SELECT NombreOrg, NombreArch FROM DocuAnuncioIP WHERE IdNota = 77"));
  }
}

TEST_F(RecordMarks, of_a_visit_with_attachments_end_at_them) {
  expectReport(u"Datos_rsDlg de CNota", dao::failure::notInCollection);
  const auto marks = ofList(u"Visita", {{u"NArchivos", 1}});
  EXPECT_EQ(marks.size(), 6u);
  EXPECT_EQ(at(5), u"Acceso: Teléfono");
  EXPECT_EQ(at(26), u": ");
  EXPECT_THAT(passed, SizeIs(1));
}

TEST_F(RecordMarks, of_a_null_counter_have_no_attachments) {
  ofList(u"Nota", {{u"NArchivos", Null}});
  EXPECT_EQ(at(6), u"Adjunto: ");
  EXPECT_EQ(at(26), u"Id: 120");
}

TEST_F(RecordMarks, of_a_stored_name_that_leads_elsewhere_end_at_it) {
  attached(u"120F00.doc", u"Contrato.doc");
  documents->at(0, u"NombreArch") = u"..\\..\\secreto.doc";
  focusOnNotes();
  expectReport(u"Datos_rsDlg de CNota", failure::pathNotFound);
  EXPECT_EQ(pass().size(), 6u);
}

// What only visits have.

TEST_F(RecordMarks, of_a_visit_without_its_keys_have_no_names) {
  for (const auto& [key, index] : {std::pair{u"IdCliente", 14}, std::pair{u"IdOtraAgencia", 18}}) {
    givenList(u"Visita", {{}}, {key});
    focusOn(u"grdVisita", u"datVisita");
    const auto marks = pass();
    EXPECT_EQ(marks.size(), 27u);
    EXPECT_TRUE(at(static_cast<std::size_t>(index)).ends_with(u": "));
  }
}

TEST_F(RecordMarks, of_a_list_of_visits_without_salespeople_have_none_and_ask_for_none) {
  givenList(u"Visita", {{}}, {u"IdComercial"});
  focusOn(u"grdVisita", u"datVisita");
  database->opened.clear();
  EXPECT_EQ(pass().size(), 27u);
  EXPECT_EQ(at(16), u"Comercial: ");
  EXPECT_THAT(database->opened, IsEmpty());
}

TEST_F(RecordMarks, of_a_visit_in_another_grid_have_nothing_of_visits) {
  givenList(u"Visita");
  focusOn(u"grdNota", u"datNota");
  pass();
  for (const std::size_t index : {14u, 15u, 16u, 17u, 18u})
    EXPECT_TRUE(at(index).ends_with(u": ")) << toUtf8(at(index));
}

TEST_F(RecordMarks, of_a_visit_without_a_salesperson_end_there) {
  expectReport(u"Datos_rsDlg de CNota", dao::failure::syntax);
  EXPECT_EQ(ofList(u"Visita", {{u"IdComercial", Null}}).size(), 16u);
  EXPECT_EQ(at(15), u"Cliente2: Luis Pérez");
  EXPECT_EQ(at(26), u": ");
  EXPECT_THAT(passed, SizeIs(1));
}

TEST_F(RecordMarks, of_a_visit_whose_salesperson_is_gone_end_there) {
  expectReport(u"Datos_rsDlg de CNota", dao::failure::noCurrentRecord);
  EXPECT_EQ(ofList(u"Visita", {{u"IdComercial", 99}}).size(), 16u);
}

// Odd records.

TEST_F(RecordMarks, of_an_empty_list_are_empty) {
  givenList(u"Nota", {});
  focusOnNotes();
  expectReport(u"Datos_rsDlg de CNota", dao::failure::noCurrentRecord);
  EXPECT_THAT(pass(), IsEmpty());
  EXPECT_THAT(passed, SizeIs(1));
}

TEST_F(RecordMarks, of_a_record_without_fields_end_at_its_number) {
  database->table(u"Nada", {}, {{}});
  nota.crs = database->OpenRecordset(u"Nada");
  focusOnNotes();
  expectReport(u"Datos_rsDlg de CNota", dao::failure::notInCollection);
  EXPECT_THAT(pass(), Contains(u"0 Asunto: Llamada por el anuncio"));
  EXPECT_EQ(at(26), u": ");
}

TEST_F(RecordMarks, of_a_date_that_is_none_end_at_it) {
  expectReport(u"Datos_rsDlg de CNota", failure::typeMismatch);
  EXPECT_EQ(ofList(u"Nota", {{u"FechaAlta", u"ayer"}}).size(), 4u);
}

TEST_F(RecordMarks, do_not_move_the_list) {
  givenList(u"Nota", {{}, {}, {}});
  standOn(2);
  focusOnNotes();
  pass();
  EXPECT_EQ(nota.crs->AbsolutePosition(), 1);
}

}  // namespace
}  // namespace ovalia
