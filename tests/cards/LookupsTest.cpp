#include "cards/Lookups.h"

#include <gtest/gtest.h>

#include "routines/ModuleValues.h"
#include "tests/cardkit/CardTest.h"

namespace ovalia {
namespace {

using Statements = std::vector<Text>;

class Lookups : public kit::CardTest {};

TEST_F(Lookups, a_telephone_is_found_by_key) {
  EXPECT_EQ(TelefonoCliente(21, u"Eva Núñez", u"Cliente"), u"600 111 222");
  EXPECT_EQ(database->opened, Statements{u"SELECT Tfno1 FROM Cliente WHERE IdCliente=21"});
}

TEST_F(Lookups, a_telephone_is_found_by_name_where_the_key_is_0) {
  EXPECT_EQ(TelefonoCliente(0, u"Luis Pérez", u"Cliente"), u"600 111 222");
  EXPECT_EQ(database->opened, Statements{u"SELECT Tfno1 FROM Cliente WHERE Alias='Luis Pérez'"});
}

TEST_F(Lookups, quotes_in_a_name_are_doubled) {
  EXPECT_EQ(TelefonoCliente(0, u"O'Hara", u""), u"");
  EXPECT_EQ(database->opened, Statements{u"SELECT Tfno1 FROM Cliente WHERE Alias='O''Hara'"});
}

TEST_F(Lookups, there_is_no_telephone_without_a_key_a_row_or_a_number) {
  EXPECT_EQ(TelefonoCliente(Null, u"Luis Pérez", u"Cliente"), u"");
  EXPECT_TRUE(database->opened.empty()) << "without a key nothing is looked up";
  EXPECT_EQ(TelefonoCliente(99, u"Luis Pérez", u"Cliente"), u"");
  EXPECT_EQ(TelefonoCliente(22, u"", u""), u"");
}

TEST_F(Lookups, a_telephone_that_fails_is_reported_and_empty) {
  here.faults.failNext("Database.OpenRecordset", dao::failure::locked);
  expectReport(u"TelefonoCliente de CNota", dao::failure::locked);
  EXPECT_EQ(TelefonoCliente(21, u"", u""), u"");
}

TEST_F(Lookups, a_user_is_found_by_key) {
  EXPECT_EQ(nombreDeUsuario(3), u"Carmen Soler");
  EXPECT_EQ(nombreDeUsuario(99), u"");
  EXPECT_EQ(database->opened, (Statements{u"SELECT Nombre FROM Usuario WHERE IdUsuario = 3",
                                          u"SELECT Nombre FROM Usuario WHERE IdUsuario = 99"}));
}

TEST_F(Lookups, without_a_connection_fail_with_91) {
  moduleValues().cgDB.reset();
  EXPECT_THROW(nombreDeUsuario(3), Failure);
  expectReport(u"TelefonoCliente de CNota", failure::objectNotSet);
  TelefonoCliente(21, u"", u"");
}

}  // namespace
}  // namespace ovalia
