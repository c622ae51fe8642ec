// The search dialog's conditions on the engine's own ground.
#include "desktop/SearchCriterion.h"
#include "host/Queries.h"
#include "tests/host/HostTest.h"

namespace ovalia::host {

namespace {

using desktop::dateCriterion;
using desktop::textCriterion;
using Subjects = std::vector<Text>;

}  // namespace

// A property whose notes have the given subjects and days of creation, in that order.
class Hits : public HostTest {
 protected:
  void given(const Subjects& subjects) {
    for (const Text& subject : subjects) addNote(property, subject);
  }
  void add(TextView subject, Date created) { addNote(property, subject, created); }

  dao::RecordsetRef notes() {
    return database().OpenRecordset(listQuery(list(u"FichaInm", u"grdNota"), property));
  }

  Subjects found(const Text& criterion) {
    const auto rows = notes();
    Subjects subjects;
    for (rows->FindFirst(criterion); !rows->NoMatch(); rows->FindNext(criterion))
      subjects.push_back(rows->value(u"Asunto").text());
    std::sort(subjects.begin(), subjects.end());
    return subjects;
  }
  Subjects part(TextView wanted, bool anyAccents = false) {
    return found(textCriterion(u"Asunto", wanted, false, anyAccents));
  }
  Subjects whole(TextView wanted, bool anyAccents = false) {
    return found(textCriterion(u"Asunto", wanted, true, anyAccents));
  }

  std::int32_t property = addProperty();
};

TEST_F(Hits, of_a_part_and_of_the_whole_field_without_regard_to_case) {
  given({u"Llaves", u"Las llaves del ático", u"LLAVES", u"Llave"});
  EXPECT_EQ(part(u"llaves"), (Subjects{u"LLAVES", u"Las llaves del ático", u"Llaves"}));
  EXPECT_EQ(whole(u"llaves"), (Subjects{u"LLAVES", u"Llaves"}));
  EXPECT_EQ(part(u"ÁTICO"), (Subjects{u"Las llaves del ático"}));
}

TEST_F(Hits, with_and_without_regard_to_accents) {
  given({u"Camión", u"CAMION", u"Pingüino", u"pinguino"});
  EXPECT_EQ(part(u"camión"), (Subjects{u"Camión"}));
  EXPECT_EQ(part(u"camion"), (Subjects{u"CAMION"}));
  EXPECT_EQ(part(u"camion", true), (Subjects{u"CAMION", u"Camión"}));
  EXPECT_EQ(whole(u"CAMIÓN", true), (Subjects{u"CAMION", u"Camión"}));
  EXPECT_EQ(part(u"ngui", true), (Subjects{u"Pingüino", u"pinguino"}));
}

TEST_F(Hits, of_n_and_its_tilde_are_kept_apart) {
  given({u"Caña", u"CAÑA", u"Cana"});
  EXPECT_EQ(part(u"caña", true), (Subjects{u"CAÑA", u"Caña"}));
  EXPECT_EQ(part(u"cána", true), (Subjects{u"Cana"}));
}

TEST_F(Hits, of_signs_that_are_wildcards_elsewhere) {
  given({u"5*6", u"5x6", u"¿Qué?", u"¿Qués", u"Puerta #2", u"Puerta 12", u"[x]", u"x", u"100%", u"100 euros",
         u"a_b", u"axb", u"a-z!", u"\\ruta"});
  for (const bool accents : {false, true}) {
    EXPECT_EQ(whole(u"5*6", accents), (Subjects{u"5*6"}));
    EXPECT_EQ(part(u"Qué?", accents), (Subjects{u"¿Qué?"}));
    EXPECT_EQ(part(u"#2", accents), (Subjects{u"Puerta #2"}));
    EXPECT_EQ(part(u"[x]", accents), (Subjects{u"[x]"}));
    EXPECT_EQ(part(u"]", accents), (Subjects{u"[x]"}));
    EXPECT_EQ(part(u"[", accents), (Subjects{u"[x]"}));
    EXPECT_EQ(part(u"0%", accents), (Subjects{u"100%"}));
    EXPECT_EQ(whole(u"a_b", accents), (Subjects{u"a_b"}));
    EXPECT_EQ(part(u"-z!", accents), (Subjects{u"a-z!"}));
    EXPECT_EQ(part(u"\\", accents), (Subjects{u"\\ruta"}));
  }
}

TEST_F(Hits, of_quotes_and_bars) {
  given({u"O'Donnell", u"''", u"Levante | Hogar", u"||", u"\"cita\""});
  EXPECT_EQ(part(u"o'd"), (Subjects{u"O'Donnell"}));
  EXPECT_EQ(whole(u"''"), (Subjects{u"''"}));
  EXPECT_EQ(part(u"e | h", true), (Subjects{u"Levante | Hogar"}));
  EXPECT_EQ(whole(u"||"), (Subjects{u"||"}));
  EXPECT_EQ(part(u"\"c"), (Subjects{u"\"cita\""}));
  EXPECT_EQ(part(u"' Or 1=1 Or '"), Subjects{});
}

TEST_F(Hits, of_characters_beyond_the_first_plane_and_of_lines) {
  given({u"Casa 🏠 en venta", u"Casa en venta", u"uno\r\ndos"});
  EXPECT_EQ(part(u"🏠", true), (Subjects{u"Casa 🏠 en venta"}));
  EXPECT_EQ(part(u"o\r\nd"), (Subjects{u"uno\r\ndos"}));
}

TEST_F(Hits, of_days_take_the_first_second_in_and_the_next_midnight_out) {
  const auto moment = [](int day, int hour, int minute, int second) {
    return *dateFrom({2005, 3, day, hour, minute, second});
  };
  add(u"víspera", moment(6, 23, 59, 59));
  add(u"medianoche", moment(7, 0, 0, 0));
  add(u"tarde", moment(7, 23, 59, 59));
  add(u"siguiente", moment(8, 0, 0, 0));
  const Date day = moment(7, 0, 0, 0), next = moment(8, 0, 0, 0);
  EXPECT_EQ(found(dateCriterion(u"FechaAlta", day, day)), (Subjects{u"medianoche", u"tarde"}));
  EXPECT_EQ(found(dateCriterion(u"FechaAlta", day, next)), (Subjects{u"medianoche", u"siguiente", u"tarde"}));
  EXPECT_EQ(found(dateCriterion(u"FechaAlta", next, {})), (Subjects{u"siguiente"}));
  EXPECT_EQ(found(dateCriterion(u"FechaAlta", {}, day)), (Subjects{u"medianoche", u"tarde", u"víspera"}));
}

TEST_F(Hits, of_days_of_other_centuries_and_of_days_without_a_date) {
  database().Execute(u"INSERT INTO NotaIP (IdInm, IdUsuario, Asunto, FechaAlta) VALUES (" + toText(property) +
                     u", 1, 'antigua', #05/01/1925 10:00:00#)");
  add(u"nueva", *dateFrom({2025, 5, 1, 10}));
  EXPECT_EQ(found(dateCriterion(u"FechaAlta", dateFrom({1925, 5, 1}), dateFrom({1925, 5, 1}))),
            (Subjects{u"antigua"}));
  EXPECT_EQ(found(dateCriterion(u"FechaAlta", {}, dateFrom({9999, 12, 31}))),
            (Subjects{u"antigua", u"nueva"}));
  EXPECT_EQ(found(dateCriterion(u"FechaActualizacion", {}, dateFrom({9999, 12, 31}))), Subjects{});
}

}  // namespace ovalia::host
