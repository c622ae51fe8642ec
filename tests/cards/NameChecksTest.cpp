#include "cards/NameChecks.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "tests/cardkit/CardTest.h"

namespace ovalia {
namespace {

// The client's check and the agency's are one, on another field and with another question to the host.
struct HostCheck {
  const char* what;
  bool (*check)(Instance& nota, Text& name);
  TextView field;
  TextView question;
  std::function<void(const Text&, Text&, bool&)> kit::AgencyHost::Answers::*answer;
  TextView report;
};

const HostCheck hostChecks[] = {
    {"client", ComprobarCliFicha, u"Cliente", u"ChkClientes", &kit::AgencyHost::Answers::ChkClientes,
     u"ComprobarCliFicha de CNota"},
    {"agency", ComprobarAgeFicha, u"Agencia", u"ChkAgencias", &kit::AgencyHost::Answers::ChkAgencias,
     u"ComprobarAgeFicha de CNota"},
};

class NameChecks : public kit::CardTest {
 protected:
  // A visit in a list of its own, no card: the record says `name` in the field of the check.
  void given(const HostCheck& check, const Variant& name) {
    givenList(u"Visita", {{{Text(check.field), name}}});
    instance.EstadoFicha = modificada;
    host.events.clear();
    proposing(check, u"", false);
  }

  void proposing(const HostCheck& check, Text proposal, bool accepts) {
    host.answers.*check.answer = [=](const Text&, Text& name, bool& ok) {
      EXPECT_EQ(name, u"") << "answers start empty";
      EXPECT_FALSE(ok);
      name = proposal;
      ok = accepts;
    };
  }
};

TEST_F(NameChecks, a_name_that_the_record_has_already_is_not_even_asked_about) {
  for (const HostCheck& check : hostChecks) {
    SCOPED_TRACE(check.what);
    given(check, u"Luis Pérez");
    for (const TextView typed : {u"Luis Pérez", u"  Luis Pérez "}) {
      Text name(typed);
      EXPECT_TRUE(check.check(instance, name));
      EXPECT_EQ(name, typed);
    }
    given(check, Null);
    for (const TextView typed : {u"", u"   "}) {
      Text name(typed);
      EXPECT_TRUE(check.check(instance, name));
    }
    EXPECT_TRUE(host.events.empty());
  }
}

TEST_F(NameChecks, another_name_is_the_hosts_to_judge) {
  for (const HostCheck& check : hostChecks) {
    SCOPED_TRACE(check.what);
    given(check, u"Luis Pérez");
    proposing(check, u"", true);
    Text name = u"luis pérez";
    EXPECT_TRUE(check.check(instance, name)) << "accepted";
    proposing(check, u"", false);
    EXPECT_FALSE(check.check(instance, name)) << "refused";
    EXPECT_EQ(name, u"luis pérez");
    const Text asked = Text(check.question) + u"(luis pérez)";
    EXPECT_EQ(host.events, (std::vector<Text>{asked, asked}));
  }
}

TEST_F(NameChecks, a_name_that_was_emptied_is_asked_about) {
  for (const HostCheck& check : hostChecks) {
    given(check, u"Luis Pérez");
    proposing(check, u"", true);
    Text name;
    EXPECT_TRUE(check.check(instance, name)) << check.what;
    EXPECT_EQ(host.events, std::vector<Text>{Text(check.question) + u"()"}) << check.what;
  }
}

TEST_F(NameChecks, a_proposal_takes_the_place_of_a_refused_name_only) {
  for (const HostCheck& check : hostChecks) {
    SCOPED_TRACE(check.what);
    given(check, u"Luis Pérez");
    Text name = u"Eva";
    proposing(check, u"Eva Núñez", false);
    EXPECT_FALSE(check.check(instance, name));
    EXPECT_EQ(name, u"Eva Núñez");
    name = u"Eva";
    proposing(check, u"Eva Núñez", true);
    EXPECT_TRUE(check.check(instance, name));
    EXPECT_EQ(name, u"Eva");
  }
}

TEST_F(NameChecks, on_a_new_card_the_record_counts_as_empty) {
  for (const HostCheck& check : hostChecks) {
    SCOPED_TRACE(check.what);
    given(check, u"Luis Pérez");
    instance.EstadoFicha = nueva;
    proposing(check, u"", true);
    Text name = u"Luis Pérez";
    EXPECT_TRUE(check.check(instance, name));
    EXPECT_EQ(host.events.size(), 1u);
    name.clear();
    EXPECT_TRUE(check.check(instance, name));
    EXPECT_EQ(host.events.size(), 1u) << "nothing is asked about no name";
  }
}

TEST_F(NameChecks, a_host_that_does_not_answer_refuses) {
  for (const HostCheck& check : hostChecks) {
    given(check, u"Luis Pérez");
    host.answers.*check.answer = {};
    Text name = u"Eva";
    EXPECT_FALSE(check.check(instance, name)) << check.what;
    EXPECT_EQ(name, u"Eva");
  }
}

TEST_F(NameChecks, a_check_by_the_host_that_fails_is_reported_and_passes) {
  for (const HostCheck& check : hostChecks) {
    SCOPED_TRACE(check.what);
    given(check, u"Luis Pérez");
    host.answers.*check.answer = [](const Text&, Text&, bool&) { throw Failure(failure::outOfMemory); };
    Text name = u"Eva";
    expectReport(Text(check.report), failure::outOfMemory);
    EXPECT_TRUE(check.check(instance, name));
    here.faults.failNext("Field.Value", dao::failure::locked);
    expectReport(Text(check.report), dao::failure::locked);
    EXPECT_TRUE(check.check(instance, name));
    EXPECT_EQ(name, u"Eva");
  }
}

TEST_F(NameChecks, an_agency_that_the_list_does_not_show_is_reported_and_passes) {
  givenList(u"Visita", {{}}, {u"Agencia"});
  instance.EstadoFicha = modificada;
  Text name = u"Casas del Sur";
  expectReport(u"ComprobarAgeFicha de CNota", dao::failure::notInCollection);
  EXPECT_TRUE(ComprobarAgeFicha(instance, name));
}

TEST_F(NameChecks, no_name_of_a_worker_passes_without_a_query) {
  for (const auto check : {ComprobarTrabajadores, ComprobarComercial}) {
    Text name;
    EXPECT_TRUE(check(name));
    EXPECT_TRUE(database->opened.empty());
  }
}

TEST_F(NameChecks, a_worker_takes_the_spelling_of_the_table) {
  for (const auto check : {ComprobarTrabajadores, ComprobarComercial}) {
    Text name = u"benito GIL";
    EXPECT_TRUE(check(name));
    EXPECT_EQ(name, u"Benito Gil");
    EXPECT_EQ(database->opened.back(), u"SELECT Nombre FROM Usuario WHERE Nombre = 'benito GIL'");
  }
}

TEST_F(NameChecks, a_name_that_is_no_workers_is_refused_and_told) {
  for (const auto check : {ComprobarTrabajadores, ComprobarComercial}) {
    Text name = u"O'Dea";
    expectBox(u"Introduzca una persona de la lista.", 64, u"Comercial");
    EXPECT_FALSE(check(name));
    EXPECT_EQ(name, u"O'Dea");
    EXPECT_EQ(database->opened.back(), u"SELECT Nombre FROM Usuario WHERE Nombre = 'O''Dea'");
  }
}

TEST_F(NameChecks, blanks_are_a_name_that_nobody_has) {
  Text name = u"  ";
  expectBox(u"Introduzca una persona de la lista.", 64, u"Comercial");
  EXPECT_FALSE(ComprobarTrabajadores(name));
}

TEST_F(NameChecks, a_look_up_of_a_worker_that_fails_is_reported_and_passes) {
  Text name = u"Benito Gil";
  here.faults.failNext("Database.OpenRecordset", dao::failure::locked);
  expectReport(u"ComprobarTrabajadores de CNota", dao::failure::locked);
  EXPECT_TRUE(ComprobarComercial(name));
  here.faults.failNext("Field.Value", dao::failure::locked);
  expectReport(u"ComprobarTrabajadores de CNota", dao::failure::locked);
  EXPECT_TRUE(ComprobarTrabajadores(name));
  EXPECT_EQ(name, u"Benito Gil");
}

TEST_F(NameChecks, a_refusal_stays_one_when_it_cannot_be_told) {
  Text name = u"Nadie";
  here.faults.failNext("Screen.messageBox", failure::outOfMemory);
  expectReport(u"MostrarMensaje() de RutinasErr", failure::outOfMemory);
  EXPECT_FALSE(ComprobarTrabajadores(name));
}

}  // namespace
}  // namespace ovalia
