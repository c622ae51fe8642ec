#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/exchange/PassedMarks.h"

namespace ovalia {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class PassingMarks : public PassedMarks {};

TEST_F(PassingMarks, raises_the_event_of_its_purpose) {
  const struct {
    std::int32_t modo;
    std::vector<Text> events;
  } rows[] = {
      {0, {u"PasaDatosaDoc()"}}, {1, {u"PasaDatosaDoc()"}}, {2, {u"PasaDatosEMail()"}}, {3, {}}, {-1, {}},
  };
  for (const auto& row : rows) {
    host.events.clear();
    onCard(row.modo);
    EXPECT_EQ(host.events, row.events) << row.modo;
  }
}

TEST_F(PassingMarks, hands_over_arrays_of_texts_from_0_to_60) {
  host.answers.PasaDatosaDoc = [](Variant& marks, Variant& texts, ObjectRef&) {
    for (const Variant& array : {marks, texts}) {
      EXPECT_EQ(getMember(array.toObject(), u"UBound", {1}).toLong(), 60);
      EXPECT_EQ(getMember(array.toObject(), u"", {60}).type(), VarType::Text);
    }
  };
  onCard(paraImprimir);
  EXPECT_EQ(host.events, std::vector<Text>{u"PasaDatosaDoc()"});
}

TEST_F(PassingMarks, hands_the_word_processor_on_untouched) {
  const ObjectRef held = kit::named(u"Word");
  openCard([&] {
    ObjectRef word = held;
    Pasa_Datos_Dlg(instance, paraAdjuntar, word);
    EXPECT_EQ(word, held);
  });
  ASSERT_THAT(passed, SizeIs(1));
  EXPECT_EQ(passed[0].word, held);
}

TEST_F(PassingMarks, starts_from_empty_arrays_each_time) {
  givenList(u"Visita");
  onCard();
  givenList(u"Nota");
  EXPECT_EQ(onCard().back(), u"21 Id: 120");
}

TEST_F(PassingMarks, takes_the_record_behind_the_grid_in_focus_while_no_card_is_shown) {
  const std::pair<TextView, TextView> grids[] = {{u"grdNota", u"datNota"},
                                                 {u"grdVisita", u"datVisita"},
                                                 {u"grdAnuncio", u"datAnuncio"},
                                                 {u"grdLlamada", u"datLlamada"},
                                                 {u"grdHistorico", u"datNota"}};
  for (const auto& [grid, data] : grids) {
    focusOn(grid, data);
    EXPECT_THAT(pass(), Contains(u"26 Id: 120")) << toUtf8(grid);
  }
}

TEST_F(PassingMarks, takes_the_record_again_once_the_card_is_hidden) {
  focusOnNotes();
  onCard();
  EXPECT_EQ(at(21), u"Id: 120");
  EXPECT_THAT(pass(), Contains(u"26 Id: 120"));
}

TEST_F(PassingMarks, with_another_control_in_focus_hands_over_empty_arrays) {
  for (const TextView name : {u"txtNotas", u"GrdNota", u"grdOtros", u""}) {
    focusOn(name, u"datNota");
    EXPECT_THAT(pass(), IsEmpty());
    EXPECT_THAT(passed, SizeIs(1)) << toUtf8(name);
  }
}

TEST_F(PassingMarks, without_what_it_needs_of_the_host_is_reported_and_raises_nothing) {
  const struct {
    const char* what;
    std::int32_t number;
    std::function<void()> arrange;
  } rows[] = {
      {"no form on top", failure::objectNotSet, [&] { host.shows(nullptr); }},
      {"no control in focus", failure::objectNotSet,
       [&] { host.FichaInm->with(u"ActiveControl", ObjectRef()); }},
      {"a list that is none", failure::typeMismatch,
       [&] {
         const auto data = std::make_shared<kit::FakeObject>();
         data->with(u"Recordset", kit::named(u"nada"));
         host.FichaInm->with(u"datNota", data);
       }},
      {"no main form", failure::objectNotSet, [&] { nota.frmBase = nullptr; }},
      {"a data control that is missing", failure::noSuchMember,
       [&] { host.FichaInm->failing(u"datNota", failure::noSuchMember); }},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.what);
    nota.frmBase = host.frmBase;
    host.shows(host.FichaInm);
    focusOnNotes();
    row.arrange();
    expectReport(u"Pasa_Datos_Dlg de CNota", row.number);
    pass();
    EXPECT_THAT(passed, IsEmpty());
  }
}

TEST_F(PassingMarks, from_a_grid_without_a_list_reports_the_record_and_hands_over_empty_arrays) {
  host.FichaInm->with(u"ActiveControl", kit::named(u"grdNota"));
  expectReport(u"Datos_rsDlg de CNota", failure::objectNotSet);
  EXPECT_THAT(pass(), IsEmpty());
  EXPECT_THAT(passed, SizeIs(1));
}

TEST_F(PassingMarks, reports_what_the_hosts_answer_lets_escape) {
  host.answers.PasaDatosEMail = [](Variant&, Variant&) { throw Failure(failure::diskFull); };
  openCard([&] {
    expectReport(u"Pasa_Datos_Dlg de CNota", failure::diskFull);
    pass();
  });
}

TEST_F(PassingMarks, changes_neither_card_nor_row) {
  openCard([&] {
    user.types(u"txtNotas", u"Sin guardar");
    pass();
    EXPECT_EQ(state(), modificada);
    EXPECT_EQ(card(u"txtNotas"), u"Sin guardar");
    EXPECT_FALSE(nota.crs->editing());
    EXPECT_THAT(database->executed, IsEmpty());
    putAway();
  });
}

// From a card the marks are whole or not passed; from a record what was found before the failure is passed.
TEST_F(PassingMarks, survives_any_failure_and_tells_of_it) {
  attached(u"120F00.doc", u"Contrato.doc");
  give(u"IdInm", 120);
  give(u"IdCliente", 21);
  focusOnNotes();
  const auto told = [&](const kit::RecordingScreen& screen) {
    EXPECT_FALSE(screen.boxes.empty());
    EXPECT_LE(passed.size(), 1u);
    for (const Passed& event : passed) EXPECT_EQ(event.marks.size(), 61u);
  };
  const auto run = [&] { pass(); };
  const auto nothing = [] {};
  for (const std::int32_t number : {dao::failure::locked, failure::diskFull}) {
    EXPECT_GE(failEachCall(here, number, nothing, run, told), 20);
    openCard([&] { EXPECT_GE(failEachCall(here, number, nothing, run, told), 15); });
  }
  EXPECT_THAT(set(), Contains(u"27 Referencia: R-120"));
}

}  // namespace
}  // namespace ovalia
