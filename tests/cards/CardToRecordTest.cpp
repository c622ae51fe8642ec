#include "cards/CardToRecord.h"

#include <gtest/gtest.h>

#include "cards/SaveTables.h"
#include "tests/cards/SavedFields.h"

namespace ovalia {
namespace {

using kit::allKinds;

class CardToRecord : public kit::SavedFieldsTest {};

std::vector<Text> fieldsOf(std::span<const SaveRow> rows) {
  std::vector<Text> names;
  for (const SaveRow& row : rows) names.emplace_back(row.field);
  return names;
}

TEST_F(CardToRecord, each_form_writes_its_fields_in_their_order_and_then_those_of_all) {
  EXPECT_EQ(fieldsOf(saveTable(u"frmNota")),
            (std::vector<Text>{u"Asunto", u"IdTipoAccNota", u"Categorias", u"FechaAlta", u"Aviso",
                               u"FechaAviso", u"IdUsuarioAviso"}));
  EXPECT_EQ(fieldsOf(saveTable(u"frmVisita")),
            (std::vector<Text>{u"Asunto", u"IdTipoAccNota", u"Categorias", u"FechaComienzo", u"Donde",
                               u"FechaFin", u"IdCliente", u"IdComercial", u"IdComercial2", u"IdOtraAgencia",
                               u"Aviso", u"TiempoAviso", u"Confirmada", u"Realizada", u"Anulada"}));
  EXPECT_EQ(fieldsOf(saveTable(u"frmAnuncio")),
            (std::vector<Text>{u"Donde", u"IdTipoAccNota", u"Categorias", u"FechaAlta", u"FechaInicio",
                               u"NDias", u"FechaEnvio", u"Enviar"}));
  EXPECT_EQ(fieldsOf(saveTable(u"frmLlamada")), (std::vector<Text>{u"FechaAlta", u"IdAnuncio"}));
  EXPECT_EQ(fieldsOf(commonSaveTable()),
            (std::vector<Text>{u"FechaActualizacion", u"IdUsuario", u"Notas", u"Id", u"IdAgencia"}));
  EXPECT_TRUE(saveTable(u"FichaInm").empty());
}

TEST_F(CardToRecord, a_regular_update_that_forces_nothing_ends_the_write) {
  openOn(u"Nota", [&] {
    write({});
    EXPECT_EQ(crs().updateArguments, (std::vector{std::pair{1, false}}));
  });
}

TEST_F(CardToRecord, a_note_is_written) {
  save(u"Nota", {{u"txtAsunto", u"Llaves"},
                 {u"cboAcceso", u"Visita"},
                 {u"txtCategorias", u"Urgente"},
                 {u"dtpFechaAlta", u"08/04/26"},
                 {u"dtpHoraAlta", u"17:05:09"},
                 {u"chkAvisoNota", 1},
                 {u"dtpFechaAviso", u"09/04/26"},
                 {u"cboUsuarioAviso", u"Carmen Soler"}});
  EXPECT_EQ(written(u"Asunto").text(), u"Llaves");
  EXPECT_EQ(written(u"IdTipoAccNota").toLong(), 3);
  EXPECT_EQ(written(u"Categorias").text(), u"Urgente");
  EXPECT_EQ(written(u"FechaAlta").text(), u"08/04/2026 17:05:09");
  EXPECT_TRUE(written(u"Aviso").toBoolean());
  EXPECT_EQ(written(u"FechaAviso").text(), u"09/04/2026");
  EXPECT_EQ(written(u"IdUsuarioAviso").toLong(), 3);
}

TEST_F(CardToRecord, a_visit_is_written) {
  nota.DosComerciales = true;
  save(u"Visita", {{u"txtAsunto", u"Ver el ático"},
                   {u"cboAcceso", u"Visita"},
                   {u"txtCategorias", u"Urgente"},
                   {u"dtpFechaAlta", u"08/04/26"},
                   {u"dtpHoraAlta", u"17:05:09"},
                   {u"txtUbicacion", u"En la puerta"},
                   {u"dtpFechaFin", u"08/04/26"},
                   {u"dtpHoraFin", u"18:00:00"},
                   {u"txtCliente", u"Eva Núñez"},
                   {u"cboComercial", u"Carmen Soler"},
                   {u"cboComercial2", u"Benito Gil"},
                   {u"txtOtraAgencia", u"Fincas López"},
                   {u"chkAviso", 1},
                   {u"cboTiempoAviso", u"15 minutos"},
                   {u"chkConfirmada", 1},
                   {u"chkRealizada", 1},
                   {u"chkAnulada", 1}});
  EXPECT_EQ(written(u"Asunto").text(), u"Ver el ático");
  EXPECT_EQ(written(u"IdTipoAccNota").toLong(), 3);
  EXPECT_EQ(written(u"Categorias").text(), u"Urgente");
  EXPECT_EQ(written(u"FechaComienzo").text(), u"08/04/2026 17:05:09");
  EXPECT_EQ(written(u"FechaAlta").text(), u"02/03/2026 10:15:00");
  EXPECT_EQ(written(u"Donde").text(), u"En la puerta");
  EXPECT_EQ(written(u"FechaFin").text(), u"08/04/2026 18:00:00");
  EXPECT_EQ(written(u"IdCliente").toLong(), 22);
  EXPECT_EQ(written(u"IdComercial").toLong(), 3);
  EXPECT_EQ(written(u"IdComercial2").toLong(), 2);
  EXPECT_EQ(written(u"IdOtraAgencia").toLong(), 32);
  for (const TextView box : {u"Aviso", u"Confirmada", u"Realizada", u"Anulada"})
    EXPECT_TRUE(written(box).toBoolean());
  EXPECT_EQ(written(u"TiempoAviso").text(), u"0:15:00");
}

TEST_F(CardToRecord, an_advertisement_is_written) {
  save(u"Anuncio", {{u"txtDonde", u"El Faro"},
                    {u"cboAcceso", u"Visita"},
                    {u"txtCategorias", u"Urgente"},
                    {u"dtpFechaAlta", u"08/04/26"},
                    {u"dtpHoraAlta", u"17:05:09"},
                    {u"dtpFechaInicio", u"10/04/26"},
                    {u"txtNDias", u"12"},
                    {u"dtpFechaEnvio", u"09/04/26"},
                    {u"dtpHoraEnvio", u"08:30:00"},
                    {u"chkEnviar", 1}});
  EXPECT_EQ(written(u"Donde").text(), u"El Faro");
  EXPECT_EQ(written(u"IdTipoAccNota").toLong(), 3);
  EXPECT_EQ(written(u"Categorias").text(), u"Urgente");
  EXPECT_EQ(written(u"FechaAlta").text(), u"08/04/2026 17:05:09");
  EXPECT_EQ(written(u"FechaInicio").text(), u"10/04/2026");
  EXPECT_EQ(written(u"NDias").toLong(), 12);
  EXPECT_EQ(written(u"FechaEnvio").text(), u"09/04/2026 8:30:00");
  EXPECT_TRUE(written(u"Enviar").toBoolean());
}

TEST_F(CardToRecord, a_call_hangs_on_the_advertisement_that_the_host_shows_at_the_save) {
  save(u"Llamada", {{u"dtpFechaAlta", u"08/04/26"}, {u"dtpHoraAlta", u"17:05:09"}});
  EXPECT_EQ(written(u"FechaAlta").text(), u"08/04/2026 17:05:09");
  EXPECT_EQ(written(u"IdAnuncio").toLong(), 321);
}

TEST_F(CardToRecord, the_hosts_advertisement_may_be_read_from_a_real_list) {
  listOf(u"Anuncio", 3);
  const auto advertisements = std::make_shared<kit::FakeRecordset>(list, database, here.faults);
  advertisements->MoveLast();
  const auto data = std::make_shared<kit::FakeObject>();
  data->with(u"Recordset", dao::RecordsetRef(advertisements));
  host.FichaInm->with(u"datAnuncio", data);
  save(u"Llamada", {});
  EXPECT_EQ(written(u"IdAnuncio").toLong(), 503);
}

TEST_F(CardToRecord, every_card_writes_the_moment_the_user_and_the_text) {
  for (const TextView kind : allKinds) {
    save(kind, {{u"cboUsuario", u"Benito Gil"}, {u"txtNotas", u"Nuevo texto"}});
    EXPECT_EQ(written(u"FechaActualizacion").text(), u"09/03/2026 10:20:30");
    EXPECT_EQ(written(u"IdUsuario").toLong(), 2);
    EXPECT_EQ(written(u"Notas").text(), u"Nuevo texto");
  }
}

TEST_F(CardToRecord, emptied_texts_are_written_as_empty_texts) {
  save(u"Nota", {{u"txtAsunto", u""}, {u"txtCategorias", u""}, {u"txtNotas", u""}});
  for (const TextView name : {u"Asunto", u"Categorias", u"Notas"}) {
    EXPECT_FALSE(written(name).isNull());
    EXPECT_EQ(written(name).text(), u"");
  }
}

TEST_F(CardToRecord, unticked_boxes_are_written_as_false) {
  listOf(u"Visita");
  for (const TextView name : {u"Aviso", u"Confirmada", u"Realizada", u"Anulada"}) at(2, name) = true;
  open(2, [&] {
    write({{u"chkAviso", 0}, {u"chkConfirmada", 0}, {u"chkRealizada", 0}, {u"chkAnulada", 0}});
    for (const TextView name : {u"Aviso", u"Confirmada", u"Realizada", u"Anulada"})
      EXPECT_FALSE(written(name).toBoolean());
  });
}

TEST_F(CardToRecord, the_form_decides_which_fields_are_written_and_the_kind_whether_parent_and_agency_are) {
  listOf(u"Nota");
  at(2, u"Id") = at(2, u"IdAgencia") = Null;
  open(2, [&] {
    nota.Tipo = u"Llamada";
    write({{u"txtAsunto", u"Otro"}});
    EXPECT_EQ(written(u"Asunto").text(), u"Otro");
    EXPECT_TRUE(written(u"Id").isNull());
    EXPECT_TRUE(written(u"IdAgencia").isNull());
    nota.Tipo = u"Visita";
    change({{u"txtAsunto", u"Otro más"}});
    EXPECT_TRUE(GrabaRegistro(instance));
    EXPECT_EQ(written(u"Asunto").text(), u"Otro más");
    EXPECT_EQ(written(u"Id").toLong(), 777);
    EXPECT_EQ(written(u"IdAgencia").toLong(), 1);
  });
}

// The parent and the agency.

TEST_F(CardToRecord, the_parent_is_written_by_the_first_save_alone) {
  struct {
    Variant before;
    std::int32_t after;
  } const cases[] = {{Null, 777}, {0, 777}, {120, 120}};
  for (const auto& expected : cases) {
    for (const TextView kind : {u"Nota", u"Visita", u"Anuncio"}) {
      listOf(kind);
      at(2, u"Id") = expected.before;
      open(2, [&] {
        write({});
        EXPECT_EQ(written(u"Id").toLong(), expected.after);
      });
    }
  }
}

TEST_F(CardToRecord, the_agency_is_written_only_where_there_is_none) {
  nota.IdAgencia = 66;
  struct {
    Variant before;
    std::int32_t after;
  } const cases[] = {{Null, 66}, {0, 66}, {5, 5}};
  for (const auto& expected : cases) {
    listOf(u"Nota");
    at(2, u"IdAgencia") = expected.before;
    open(2, [&] {
      write({});
      EXPECT_EQ(written(u"IdAgencia").toLong(), expected.after);
    });
  }
}

TEST_F(CardToRecord, a_list_without_an_agency_column_saves_the_rest) {
  listOf(u"Nota", 3, {u"IdAgencia"});
  open(2, [&] {
    write({{u"txtNotas", u"Nuevo texto"}});
    EXPECT_EQ(written(u"Notas").text(), u"Nuevo texto");
  });
}

TEST_F(CardToRecord, a_call_has_neither_parent_nor_agency) {
  listOf(u"Llamada");
  list->columns.push_back({u"Id", dao::dbLong});
  for (const auto& row : list->rows) row->values.push_back(Null);
  at(2, u"IdAgencia") = Null;
  open(2, [&] {
    write({});
    EXPECT_TRUE(written(u"Id").isNull());
    EXPECT_TRUE(written(u"IdAgencia").isNull());
  });
}

// Failures of its own statements.

TEST_F(CardToRecord, a_date_that_does_not_convert_is_reported_and_the_rest_is_written) {
  openOn(u"Nota", [&] {
    change({{u"txtAsunto", u"Otro"}});
    here.faults.failNth("Field.setValue", 4, failure::typeMismatch);
    expectReport(u"FechayHora de CNota (FechaAlta, 02/03/2026 10:15:00) ", failure::typeMismatch);
    EXPECT_TRUE(GrabaRegistro(instance));
    EXPECT_EQ(written(u"Asunto").text(), u"Otro");
    EXPECT_EQ(written(u"FechaAlta").text(), u"02/03/2026 10:15:00");
    EXPECT_EQ(written(u"FechaActualizacion").text(), u"09/03/2026 10:20:30");
  });
}

TEST_F(CardToRecord, a_visits_moments_are_named_in_a_report_by_their_full_hour) {
  openOn(u"Visita", [&] {
    change({});
    here.faults.failNth("Field.setValue", 4, failure::typeMismatch);
    expectReport(u"FechayHora de CNota (FechaComienzo, 10/03/2026 09:30:00) ", failure::typeMismatch);
    EXPECT_TRUE(GrabaRegistro(instance));
  });
}

TEST_F(CardToRecord, a_host_without_an_advertisement_list_keeps_a_call_from_being_written) {
  openOn(u"Llamada", [&] {
    change({{u"txtNotas", u"Nuevo texto"}});
    host.FichaInm->failing(u"datAnuncio", failure::noSuchMember);
    expectReport(u"GrabaRegistro de CNota", failure::noSuchMember);
    EXPECT_FALSE(GrabaRegistro(instance));
    EXPECT_TRUE(crs().editing());
    EXPECT_EQ(written(u"Notas").text(), u"Texto 2");
  });
}

TEST_F(CardToRecord, a_host_without_an_active_form_keeps_a_row_without_parent_from_being_written) {
  listOf(u"Nota");
  at(2, u"Id") = Null;
  open(2, [&] {
    change({});
    host.frmBase->with(u"ActiveForm", ObjectRef());
    expectReport(u"GrabaRegistro de CNota", failure::objectNotSet);
    EXPECT_FALSE(GrabaRegistro(instance));
    EXPECT_TRUE(written(u"Id").isNull());
  });
}

TEST_F(CardToRecord, a_host_without_a_controller_or_a_number_keeps_a_row_without_parent_from_being_written) {
  for (const bool controller : {true, false}) {
    listOf(u"Nota");
    at(2, u"Id") = 0;
    open(2, [&] {
      change({{u"txtNotas", u"Nuevo texto"}});
      if (controller)
        host.vClase().failing(u"IdRegistro", failure::noSuchMember);
      else
        host.FichaInm->failing(u"vClase", failure::noSuchMember);
      expectReport(u"GrabaRegistro de CNota", failure::noSuchMember);
      EXPECT_FALSE(GrabaRegistro(instance));
      EXPECT_TRUE(crs().editing());
      EXPECT_EQ(written(u"Notas").text(), u"Texto 2");
      EXPECT_EQ(written(u"Id").toLong(), 0);
    });
  }
}

TEST_F(CardToRecord, a_list_without_the_parents_column_is_reported_and_nothing_is_written) {
  listOf(u"Anuncio", 3, {u"Id"});
  expectReport(u"RefrescoCaption de CNota", dao::failure::notInCollection);
  open(2, [&] {
    change({{u"txtNotas", u"Nuevo texto"}});
    expectReport(u"GrabaRegistro de CNota", dao::failure::notInCollection);
    EXPECT_FALSE(GrabaRegistro(instance));
    EXPECT_EQ(written(u"Notas").text(), u"Texto 2");
  });
}

TEST_F(CardToRecord, without_a_list_or_a_card_there_is_a_report) {
  expectReport(u"GrabaRegistro de CNota", failure::objectNotSet);
  EXPECT_FALSE(GrabaRegistro(instance));
  listOf(u"Nota");
  expectReport(u"GrabaRegistro de CNota", failure::objectNotSet);
  EXPECT_FALSE(GrabaRegistro(instance));
  EXPECT_TRUE(crs().editing());
}

}  // namespace
}  // namespace ovalia
