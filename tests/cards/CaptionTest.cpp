#include <gtest/gtest.h>

#include "cards/RecordToCard.h"
#include "tests/cardkit/CardTest.h"

namespace ovalia {
namespace {

using kit::Fields;

struct Title {
  const char* name;
  Text tipo;
  Fields fields;
  Text caption;
};

class Caption : public kit::CardTest {
 protected:
  void title() { RefrescoCaption(instance); }
};

class Captions : public Caption, public testing::WithParamInterface<Title> {};

TEST_P(Captions, name_parent_kind_place_and_count) {
  givenList(GetParam().tipo, std::vector<Fields>(7, GetParam().fields));
  standOn(2);
  openCard([&] { EXPECT_EQ(caption(), GetParam().caption); });
}

INSTANTIATE_TEST_SUITE_P(
    , Captions,
    testing::Values(Title{"note", u"Nota", {}, u"Inmueble 120 - Nota: 2/7"},
                    Title{"visit", u"Visita", {}, u"Inmueble 120 - Visita: 2/7"},
                    Title{"visit_of_parent_0", u"Visita", {{u"Id", 0}}, u"Cita: 2/7"},
                    Title{"visit_without_parent", u"Visita", {{u"Id", Null}}, u"Cita: 2/7"},
                    Title{"visit_below_0", u"Visita", {{u"Id", -4}}, u"Cita: 2/7"},
                    Title{"advertisement", u"Anuncio", {}, u"Inmueble 120 - Anuncio: 2/7"},
                    Title{"note_of_parent_0", u"Nota", {{u"Id", 0}}, u"Inmueble 0 - Nota: 2/7"},
                    Title{"note_without_parent", u"Nota", {{u"Id", Null}}, u"Inmueble  - Nota: 2/7"},
                    Title{"call", u"Llamada", {}, u"Anuncio: 77 - Llamada: 2/7"}),
    [](const auto& row) { return row.param.name; });

TEST_F(Caption, of_the_third_of_ten) {
  givenList(u"Nota", std::vector<Fields>(10));
  standOn(3);
  openCard([&] { EXPECT_EQ(caption(), u"Inmueble 120 - Nota: 3/10"); });
}

TEST_F(Caption, of_another_kind_keeps_what_stood_there_and_gets_the_numbers_all_the_same) {
  openCard(u"Nota", {}, [&] {
    nota.Tipo = u"nota";
    title();
    EXPECT_EQ(caption(), u"Inmueble 120 - Nota: 1/11/1");
    title();
    EXPECT_EQ(caption(), u"Inmueble 120 - Nota: 1/11/11/1");
  });
}

struct Counter {
  Text tipo;
  Text member;
};

TEST_F(Caption, has_the_propertys_card_count_the_annotations_of_the_kind) {
  const Counter counters[] = {{u"Nota", u"Ajuste_N_Notas()"},
                              {u"Visita", u"Ajuste_N_Visitas()"},
                              {u"Anuncio", u"Ajuste_N_Anuncios()"}};
  for (const auto& [tipo, member] : counters) {
    host.FichaInm->journal.clear();
    openCard(tipo, {});
    EXPECT_EQ(host.FichaInm->journal, std::vector<Text>{member});
  }
}

TEST_F(Caption, has_nothing_counted_for_calls_nor_for_a_kind_outside_the_four) {
  openCard(u"Llamada", {}, [&] {
    nota.Tipo = u"Carta";
    title();
  });
  EXPECT_TRUE(host.FichaInm->journal.empty());
}

TEST_F(Caption, has_the_users_card_fill_its_visits_whatever_the_kind) {
  host.shows(host.FichaUsuario);
  for (const TextView tipo : {u"Nota", u"Visita", u"Anuncio", u"Llamada"}) {
    host.FichaUsuario->journal.clear();
    openCard(tipo, {});
    EXPECT_EQ(host.FichaUsuario->journal, std::vector<Text>{u"RellenaVisita(Verdadero)"}) << toUtf8(tipo);
  }
}

TEST_F(Caption, tells_no_other_card_of_the_host) {
  host.shows(host.FichaExpV);
  openCard(u"Nota", {});
  EXPECT_TRUE(host.FichaExpV->journal.empty());
}

TEST_F(Caption, tells_nobody_where_the_host_has_no_card_on_top) {
  host.shows(nullptr);
  openCard(u"Nota", {}, [&] { EXPECT_EQ(state(), limpia); });
}

TEST_F(Caption, failing_at_the_host_is_reported_and_the_fill_goes_on) {
  host.FichaInm->failing(u"Ajuste_N_Notas", failure::noSuchMember);
  expectReport(u"RefrescoCaption de CNota", failure::noSuchMember);
  openCard(u"Nota", {}, [&] {
    EXPECT_EQ(caption(), u"Inmueble 120 - Nota: 1/1");
    EXPECT_EQ(state(), limpia);
  });
}

TEST_F(Caption, without_a_card_is_reported) {
  givenList(u"Nota");
  expectReport(u"RefrescoCaption de CNota", failure::objectNotSet);
  title();
}

}  // namespace
}  // namespace ovalia
