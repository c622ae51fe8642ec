#include "exchange/AdditionalMarks.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/exchange/PassedMarks.h"

namespace ovalia {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

class AdditionalMarks : public PassedMarks {
 protected:
  Text mark(std::size_t index) const {
    return join(marks.Marca->at({index}), u": ", marks.Campo->at({index}));
  }
  std::vector<Text> complete(std::int32_t property, std::int32_t client) {
    marks = Marks();
    database->opened.clear();
    CompletarDatosAdicionales(instance, property, client, marks);
    std::vector<Text> found;
    for (std::size_t i = 0; i <= 60; ++i)
      if (mark(i) != u": ") found.push_back(join(toText(std::int64_t(i)), u" ", mark(i)));
    return found;
  }
  std::vector<Text> ofProperty() {
    noOwner();
    return complete(120, 0);
  }
  void noOwner() { property->at(0, u"IdPropietario") = Null; }

  Marks marks;
  const Text procedure = u"CompletarDatosAdicionales de CNota";
  const Text propertyStatement =
      u"SELECT IdPropietario, Numero, Piso, Referencia, GastosComu, Notas, Precio FROM Inmueble WHERE IdInm "
      u"= 120";
};

TEST_F(AdditionalMarks, of_property_owner_and_client_are_these) {
  EXPECT_THAT(
      complete(120, 21),
      ElementsAre(u"27 Referencia: R-120", u"28 Referencia2: R-120", u"29 Gastos: 45,5", u"30 Gastos2: 45,5",
                  u"31 NotasInm: Con ascensor.", u"32 NotasInm2: Con ascensor.", u"33 Precio: 1.000",
                  u"34 Precio2: 1.000", u"35 PrecioPts: 166.386", u"36 PrecioPts2: 166.386",
                  u"37 Numero: 12 - 3º B", u"38 Numero2: 12 - 3º B", u"39 Tfno2: 910 000 111",
                  u"40 Tfno22: 910 000 111", u"41 Tfno1: 600 111 222", u"42 Propietario: Eva Núñez",
                  u"43 PropietarioTfno2: 912 345 678", u"44 PropietarioTfno1: 611 222 333"));
  EXPECT_THAT(database->opened,
              ElementsAre(propertyStatement, u"SELECT Alias FROM Cliente WHERE IdCliente = 22",
                          u"SELECT Tfno1, Tfno2 FROM Cliente WHERE IdCliente = 22",
                          u"SELECT Tfno1, Tfno2 FROM Cliente WHERE IdCliente = 21"));
}

TEST_F(AdditionalMarks, of_a_client_0_are_none_and_nothing_is_asked) {
  noOwner();
  complete(120, 0);
  for (const std::size_t index : {39u, 40u, 41u}) EXPECT_EQ(mark(index), u": ");
  EXPECT_THAT(database->opened, ElementsAre(propertyStatement));
}

TEST_F(AdditionalMarks, of_an_owner_0_or_null_are_none) {
  for (const Variant& owner : {Variant(0), Variant(Null)}) {
    property->at(0, u"IdPropietario") = owner;
    complete(120, 0);
    for (const std::size_t index : {42u, 43u, 44u}) EXPECT_EQ(mark(index), u": ");
    EXPECT_THAT(database->opened, ElementsAre(propertyStatement));
  }
}

TEST_F(AdditionalMarks, of_null_fields_have_their_names) {
  for (const TextView field : {u"Numero", u"Piso", u"Referencia", u"GastosComu", u"Notas", u"Precio"})
    property->at(0, field) = Null;
  EXPECT_THAT(ofProperty(),
              ElementsAre(u"27 Referencia: ", u"28 Referencia2: ", u"29 Gastos: ", u"30 Gastos2: ",
                          u"31 NotasInm: ", u"32 NotasInm2: ", u"33 Precio: ", u"34 Precio2: ",
                          u"35 PrecioPts: ", u"36 PrecioPts2: ", u"37 Numero: ", u"38 Numero2: "));
}

TEST_F(AdditionalMarks, of_a_person_without_telephones_have_their_names) {
  for (const int row : {0, 1})
    for (const TextView field : {u"Tfno1", u"Tfno2"})
      database->tableNamed(u"Cliente")->at(std::size_t(row), field) = Null;
  database->tableNamed(u"Cliente")->at(1, u"Alias") = Null;
  complete(120, 21);
  EXPECT_EQ(mark(39), u"Tfno2: ");
  EXPECT_EQ(mark(40), u"Tfno22: ");
  EXPECT_EQ(mark(41), u"Tfno1: ");
  EXPECT_EQ(mark(42), u"Propietario: ");
  EXPECT_EQ(mark(43), u"PropietarioTfno2: ");
  EXPECT_EQ(mark(44), u"PropietarioTfno1: ");
}

TEST_F(AdditionalMarks, of_a_number_and_a_floor_join_what_there_is) {
  const struct {
    Variant number, floor;
    TextView text;
  } rows[] = {
      {u"12", Null, u"12"},           {Null, u"3º B", u" - 3º B"}, {u"12", u"3º B", u"12 - 3º B"},
      {std::int32_t(7), 2, u"7 - 2"}, {u"12", u"", u"12 - "},      {Null, Null, u""},
  };
  for (const auto& row : rows) {
    property->at(0, u"Numero") = row.number;
    property->at(0, u"Piso") = row.floor;
    ofProperty();
    EXPECT_EQ(mark(37), join(u"Numero: ", row.text));
    EXPECT_EQ(mark(38), join(u"Numero2: ", row.text));
  }
}

// The peseta figure is cut, the price in euros rounded.
TEST_F(AdditionalMarks, of_a_price_are_grouped_in_euros_and_pesetas) {
  const struct {
    Variant price;
    TextView euros, pesetas;
  } rows[] = {
      {std::int32_t(1000), u"1.000", u"166.386"},
      {0, u"0", u"0"},
      {1, u"1", u"166"},
      {500, u"500", u"83.193"},
      {0.5, u"1", u"83"},
      {0.006, u"0", u"0"},
      {240404.84, u"240.405", u"39.999.999"},
      {-1000, u"-1.000", u"-166.386"},
      {-1, u"-1", u"-166"},
      {-0.5, u"-1", u"-83"},
      {Variant(922337203685477.0).toCurrency(), u"922.337.203.685.477", u"153.463.997.972.411.776"},
      {1e300, {}, {}},
      {u"250.000", u"250.000", u"41.596.500"},
  };
  for (const auto& row : rows) {
    property->at(0, u"Precio") = row.price;
    ofProperty();
    if (row.euros.empty()) {
      EXPECT_TRUE(mark(33).starts_with(u"Precio: 1.000.000")) << toUtf8(mark(33));
      EXPECT_TRUE(mark(35).starts_with(u"PrecioPts: 166.386")) << toUtf8(mark(35));
      continue;
    }
    EXPECT_EQ(mark(33), join(u"Precio: ", row.euros));
    EXPECT_EQ(mark(34), join(u"Precio2: ", row.euros));
    EXPECT_EQ(mark(35), join(u"PrecioPts: ", row.pesetas));
    EXPECT_EQ(mark(36), join(u"PrecioPts2: ", row.pesetas));
  }
}

TEST_F(AdditionalMarks, of_any_price_in_cents_are_the_exact_pesetas_cut) {
  for (std::int64_t cents = 1; cents < 100'000'000; cents += 99'991) {
    property->at(0, u"Precio") = Currency{cents * 100};
    ofProperty();
    EXPECT_EQ(replaceAll(mark(35), u".", u""), join(u"PrecioPts: ", toText(cents * 166386 / 100000)));
  }
}

TEST_F(AdditionalMarks, of_a_price_too_large_for_pesetas_are_reported_and_the_owner_is_found) {
  property->at(0, u"Precio") = 1.7e308;
  expectReport(u"FormatNum() de RutinasErr", failure::overflow);
  complete(120, 0);
  EXPECT_EQ(mark(35), u"PrecioPts: ");
  EXPECT_EQ(mark(42), u"Propietario: Eva Núñez");
}

TEST_F(AdditionalMarks, of_a_price_that_is_none_end_the_property_and_go_on_with_its_owner) {
  property->at(0, u"Precio") = u"a convenir";
  expectReport(u"FormatNum() de RutinasErr", failure::typeMismatch);
  expectReport(procedure, failure::typeMismatch);
  complete(120, 21);
  EXPECT_EQ(mark(31), u"NotasInm: Con ascensor.");
  EXPECT_EQ(mark(35), u": ");
  EXPECT_EQ(mark(37), u": ");
  EXPECT_EQ(mark(42), u"Propietario: Eva Núñez");
  EXPECT_EQ(mark(41), u"Tfno1: 600 111 222");
}

TEST_F(AdditionalMarks, follow_the_regional_settings) {
  here.platform.regional.grouping = u' ';
  ofProperty();
  EXPECT_EQ(mark(35), u"PrecioPts: 166 386");
}

// What is missing.

TEST_F(AdditionalMarks, of_a_property_that_is_not_found_are_told_and_the_client_is_found) {
  expectBox(u"Error al buscar el inmueble.");
  EXPECT_THAT(complete(999, 21),
              ElementsAre(u"39 Tfno2: 910 000 111", u"40 Tfno22: 910 000 111", u"41 Tfno1: 600 111 222"));
}

TEST_F(AdditionalMarks, of_an_owner_that_is_not_found_are_told_twice) {
  property->at(0, u"IdPropietario") = 99;
  expectBox(u"Error al buscar el cliente.");
  expectBox(u"Error al buscar el Propietario.");
  complete(120, 21);
  EXPECT_EQ(mark(42), u": ");
  EXPECT_EQ(mark(41), u"Tfno1: 600 111 222");
}

TEST_F(AdditionalMarks, of_a_client_that_is_not_found_are_told) {
  expectBox(u"Error al buscar el cliente.");
  complete(120, 99);
  EXPECT_EQ(mark(39), u": ");
  EXPECT_EQ(mark(42), u"Propietario: Eva Núñez");
}

TEST_F(AdditionalMarks, without_a_form_of_the_host_are_those_of_the_client) {
  host.shows(nullptr);
  EXPECT_EQ(complete(120, 21).size(), 3u);
  EXPECT_EQ(database->opened.size(), 1u);
}

TEST_F(AdditionalMarks, of_the_table_and_key_that_the_host_names) {
  database->table(u"Nave",
                  {{u"IdNave", dao::dbLong},
                   {u"IdPropietario"},
                   {u"Numero"},
                   {u"Piso"},
                   {u"Referencia"},
                   {u"GastosComu"},
                   {u"Notas"},
                   {u"Precio"}},
                  {{7, Null, Null, Null, u"N-7", Null, Null, Null}});
  host.vClase().with(u"tabla", u"Nave").with(u"IdTabla", u"IdNave");
  EXPECT_THAT(complete(7, 0), Contains(u"27 Referencia: N-7"));
}

TEST_F(AdditionalMarks, without_what_they_need_of_the_host_are_reported_and_the_client_is_found) {
  const struct {
    const char* what;
    std::int32_t number;
    std::function<void()> arrange;
  } rows[] = {
      {"a table that is missing", dao::failure::unknownTable,
       [&] { host.vClase().with(u"tabla", u"Ninguna"); }},
      {"a key that is missing", dao::failure::notInCollection,
       [&] { host.vClase().with(u"IdTabla", u"IdNada"); }},
      {"no table", dao::failure::unknownTable, [&] { host.vClase().with(u"tabla", u""); }},
      {"a form without a controller", failure::noSuchMember, [&] { host.shows(kit::named(u"Otra")); }},
      {"a controller without a table", failure::noSuchMember,
       [&] { host.vClase().failing(u"tabla", failure::noSuchMember); }},
      {"no main form", failure::objectNotSet, [&] { nota.frmBase = nullptr; }},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    host.shows(host.FichaInm);
    host.vClase().with(u"tabla", u"Inmueble").with(u"IdTabla", u"IdInm");
    row.arrange();
    expectReport(procedure, row.number);
    EXPECT_EQ(complete(120, 21).size(), 3u);
  }
  nota.frmBase = host.frmBase;
}

TEST_F(AdditionalMarks, of_a_statement_that_fails_lose_its_block_alone) {
  const struct {
    int statement;
    std::size_t left;
  } rows[] = {{1, 3}, {2, 15}, {3, 16}, {4, 15}};
  for (const auto& row : rows) {
    here.faults.failNth("Database.OpenRecordset", row.statement, dao::failure::locked);
    expectReport(procedure, dao::failure::locked);
    EXPECT_EQ(complete(120, 21).size(), row.left) << row.statement;
  }
}

TEST_F(AdditionalMarks, close_what_they_open) {
  complete(120, 21);
  EXPECT_EQ(here.faults.visits("Recordset.Close"), 4);
}

// When they are added.

TEST_F(AdditionalMarks, are_added_to_a_card_and_to_a_record_at_the_same_indexes) {
  give(u"IdInm", 120);
  give(u"IdCliente", 21);
  onCard();
  const std::vector<Text> fromCard(passed.back().marks.begin() + 27, passed.back().marks.end());
  focusOnNotes();
  pass();
  const std::vector<Text> fromRecord(passed.back().marks.begin() + 27, passed.back().marks.end());
  EXPECT_EQ(fromCard, fromRecord);
  EXPECT_EQ(fromCard[0], u"Referencia: R-120");
  EXPECT_EQ(fromCard[14], u"Tfno1: 600 111 222");
}

TEST_F(AdditionalMarks, are_not_added_to_a_list_without_property_or_client) {
  for (const TextView column : {u"IdInm", u"IdCliente"}) {
    givenList(u"Nota");
    give(column, 120);
    onCard();
    focusOnNotes();
    EXPECT_EQ(at(27), u": ");
    pass();
    EXPECT_EQ(at(27), u": ");
  }
}

TEST_F(AdditionalMarks, of_a_null_client_are_those_of_the_property) {
  give(u"IdInm", 120);
  give(u"IdCliente", Null);
  onCard();
  EXPECT_EQ(at(27), u"Referencia: R-120");
  EXPECT_EQ(at(39), u": ");
}

TEST_F(AdditionalMarks, of_a_null_property_fail_whoever_asks) {
  give(u"IdInm", Null);
  give(u"IdCliente", 21);
  expectReport(u"Pasa_Datos_Dlg de CNota", failure::invalidUseOfNull);
  onCard();
  EXPECT_THAT(passed, IsEmpty());
  focusOnNotes();
  expectReport(u"Datos_rsDlg de CNota", failure::invalidUseOfNull);
  pass();
  EXPECT_EQ(at(26), u"Id: 120");
}

}  // namespace
}  // namespace ovalia
