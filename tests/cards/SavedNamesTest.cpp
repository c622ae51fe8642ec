#include <gtest/gtest.h>

#include "tests/cards/SavedFields.h"

namespace ovalia {
namespace {

class SavedNames : public kit::SavedFieldsTest {};

TEST_F(SavedNames, an_emptied_access_type_keeps_the_field_and_asks_nobody) {
  for (const TextView kind : {u"Nota", u"Visita", u"Anuncio"}) {
    save(kind, {{u"cboAcceso", u""}});
    EXPECT_EQ(written(u"IdTipoAccNota").toLong(), 2);
    EXPECT_FALSE(lookedUp(u"SELECT IdTipoAccNota FROM TipoAccNota WHERE Nombre = ''"));
  }
}

TEST_F(SavedNames, an_access_type_that_nobody_knows_is_written_as_null) {
  for (const TextView kind : {u"Nota", u"Visita", u"Anuncio"}) {
    save(kind, {{u"cboAcceso", u"Nadie"}});
    EXPECT_TRUE(written(u"IdTipoAccNota").isNull());
  }
}

TEST_F(SavedNames, an_access_type_is_looked_up_at_every_save) {
  save(u"Nota", {});
  EXPECT_TRUE(lookedUp(u"SELECT IdTipoAccNota FROM TipoAccNota WHERE Nombre = 'Teléfono'"));
}

TEST_F(SavedNames, names_go_into_statements_with_their_quotes_doubled) {
  database->tableNamed(u"Cliente")->add({55, u"O'Hara", Null, Null});
  save(u"Visita", {{u"txtCliente", u"O'Hara"}});
  EXPECT_EQ(written(u"IdCliente").toLong(), 55);
}

// People, clients, agencies.

TEST_F(SavedNames, a_user_whose_name_was_not_touched_is_not_looked_up) {
  for (const TextView kind : {u"Nota", u"Anuncio", u"Llamada"}) {
    save(kind, {});
    EXPECT_EQ(written(u"IdUsuario").toLong(), 1);
    EXPECT_FALSE(lookedUp(u"SELECT IdUsuario FROM Usuario WHERE Nombre = 'Ana Ruiz'"));
    EXPECT_FALSE(lookedUp(u"SELECT IdUsuario FROM Usuario WHERE Nombre = 'Benito Gil'"));
  }
}

TEST_F(SavedNames, a_creator_or_a_user_to_remind_that_is_none_keeps_the_field) {
  save(u"Nota", {{u"cboUsuario", u""}, {u"cboUsuarioAviso", u""}});
  EXPECT_TRUE(lookedUp(u"SELECT IdUsuario FROM Usuario WHERE Nombre = ''"));
  EXPECT_EQ(written(u"IdUsuario").toLong(), 1);
  EXPECT_EQ(written(u"IdUsuarioAviso").toLong(), 2);
}

TEST_F(SavedNames, the_user_to_remind_that_a_card_shows_for_none_is_written) {
  listOf(u"Nota");
  at(2, u"UsuarioAviso") = Null;
  at(2, u"IdUsuarioAviso") = Null;
  at(2, u"FechaAviso") = Null;
  open(2, [&] {
    write({});
    EXPECT_EQ(written(u"IdUsuarioAviso").toLong(), 3);
    EXPECT_EQ(written(u"FechaAviso").text(), u"09/03/2026");
  });
}

TEST_F(SavedNames, an_untouched_client_and_agency_are_not_looked_up) {
  save(u"Visita", {});
  EXPECT_EQ(written(u"IdCliente").toLong(), 21);
  EXPECT_EQ(written(u"IdOtraAgencia").toLong(), 31);
  EXPECT_FALSE(lookedUp(u"SELECT IdCliente FROM Cliente WHERE Alias = 'Luis Pérez'"));
  EXPECT_FALSE(lookedUp(u"SELECT IdAgencia FROM Agencia WHERE Alias = 'Casas del Sur'"));
}

TEST_F(SavedNames, a_cleared_client_and_agency_are_written_as_null_without_a_look_up) {
  save(u"Visita", {{u"txtCliente", u""}, {u"txtOtraAgencia", u""}});
  EXPECT_TRUE(written(u"IdCliente").isNull());
  EXPECT_TRUE(written(u"IdOtraAgencia").isNull());
  EXPECT_FALSE(lookedUp(u"SELECT IdCliente FROM Cliente WHERE Alias = ''"));
  EXPECT_FALSE(lookedUp(u"SELECT IdAgencia FROM Agencia WHERE Alias = ''"));
}

TEST_F(SavedNames, a_client_and_an_agency_that_nobody_knows_are_written_as_null) {
  save(u"Visita", {{u"txtCliente", u"Nadie"}, {u"txtOtraAgencia", u"Nadie"}});
  EXPECT_TRUE(written(u"IdCliente").isNull());
  EXPECT_TRUE(written(u"IdOtraAgencia").isNull());
}

TEST_F(SavedNames, a_list_without_the_other_agencys_name_keeps_its_key) {
  listOf(u"Visita", 3, {u"Agencia"});
  open(2, [&] {
    write({{u"txtOtraAgencia", u"Fincas López"}});
    EXPECT_EQ(written(u"IdOtraAgencia").toLong(), 31);
  });
}

TEST_F(SavedNames, a_list_without_the_cancelled_column_saves_the_rest) {
  listOf(u"Visita", 3, {u"Anulada"});
  open(2, [&] {
    write({{u"txtAsunto", u"Otro"}, {u"chkAnulada", 1}});
    EXPECT_EQ(written(u"Asunto").text(), u"Otro");
  });
}

TEST_F(SavedNames, a_salesperson_is_looked_up_at_every_save) {
  save(u"Visita", {});
  EXPECT_TRUE(lookedUp(u"SELECT IdUsuario FROM Usuario WHERE Nombre = 'Benito Gil'"));
  EXPECT_EQ(written(u"IdComercial").toLong(), 2);
}

TEST_F(SavedNames, an_empty_or_unknown_salesperson_is_written_as_null) {
  nota.DosComerciales = true;
  for (const TextView name : {u"", u"Nadie"}) {
    save(u"Visita", {{u"cboComercial", name}, {u"cboComercial2", name}});
    EXPECT_TRUE(written(u"IdComercial").isNull());
    EXPECT_TRUE(written(u"IdComercial2").isNull());
  }
}

TEST_F(SavedNames, a_second_salesperson_is_written_only_where_there_can_be_two) {
  save(u"Visita", {{u"cboComercial2", u"Benito Gil"}});
  EXPECT_EQ(written(u"IdComercial2").toLong(), 3);
}

TEST_F(SavedNames, names_of_the_list_stay_as_they_were_read) {
  save(u"Visita",
       {{u"cboUsuario", u"Benito Gil"}, {u"txtCliente", u"Eva Núñez"}, {u"txtOtraAgencia", u"Fincas López"}});
  EXPECT_EQ(written(u"Usuario").text(), u"Ana Ruiz");
  EXPECT_EQ(written(u"Cliente").text(), u"Luis Pérez");
  EXPECT_EQ(written(u"Agencia").text(), u"Casas del Sur");
}

}  // namespace
}  // namespace ovalia
