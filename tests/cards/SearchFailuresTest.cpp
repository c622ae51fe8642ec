#include <ostream>

#include "tests/cards/Steps.h"

namespace ovalia {
namespace {

using kit::RecordingScreen;
using Lines = std::vector<Text>;

const Text goneBox = u"La ficha acaba de ser borrada por otro usuario y\r\nno se volverá a visualizar.";

// A search while something around the component fails.
class SearchFailures : public kit::Searching {};

// The dialog.

class FailingPart;

// Everything that the search asks of its surroundings before it shows the dialog, and what has been done when
// it fails.
struct Part {
  const char* what;
  void (*arrange)(FailingPart& test);
  bool checked, asked;   // the host's form, its controller
  std::size_t told = 0;  // lines of the dialog's journal
};

void PrintTo(const Part& part, std::ostream* out) { *out << part.what; }

class FailingPart : public SearchFailures, public testing::WithParamInterface<Part> {
 public:
  static constexpr std::int32_t number = dao::failure::locked;
  using Searching::dialog;
  using Searching::here;
  using Searching::host;
};

TEST_P(FailingPart, is_reported_and_nothing_further_is_done) {
  const Part& part = GetParam();
  openOn(u"Nota", [&] {
    change({{u"txtNotas", typed}});
    kit::FakeObject& controller = host.vClase();
    controller.with(u"cEstado", 2);
    part.arrange(*this);
    expectReport(u"Buscar_Nota de CNota", number);
    Buscar_Nota(instance);
    EXPECT_EQ(host.calls(*host.FichaInm, u"ComprobarCambio"), part.checked ? 1 : 0);
    EXPECT_EQ(host.calls(controller, u"AvisoCambio"), part.asked ? 1 : 0);
    Lines told = {u"ErrLogPath = ", u"VentanaJefa = <object>", u"BuscarEn = <object>", u"Mostrar()"};
    told.resize(part.told);
    EXPECT_EQ(dialog->journal, told);
    EXPECT_EQ(standsOn(), 502);
    EXPECT_EQ(card(u"txtNotas"), typed);
    EXPECT_EQ(state(), modificada);
    EXPECT_TRUE(here.screen.pointers.empty());
  });
}

constexpr Part parts[] = {
    {"the form on top", [](FailingPart& t) { t.host.frmBase->failing(u"ActiveForm", t.number); }, false,
     false},
    {"its controller", [](FailingPart& t) { t.host.FichaInm->failing(u"vClase", t.number); }, false, false},
    {"its state", [](FailingPart& t) { t.host.vClase().failing(u"cEstado", t.number); }, false, false},
    {"its check", [](FailingPart& t) { t.host.FichaInm->failing(u"ComprobarCambio", t.number); }, true,
     false},
    {"its question", [](FailingPart& t) { t.host.vClase().failing(u"AvisoCambio", t.number); }, true, true},
    {"the dialog",
     [](FailingPart& t) {
       t.here.objects.add(u"Mosken.CMosken", []() -> ObjectRef { throw Failure(FailingPart::number); });
     },
     true, true},
    {"the log's path", [](FailingPart& t) { t.dialog->failing(u"ErrLogPath", t.number); }, true, true, 1},
    {"the card", [](FailingPart& t) { t.dialog->failing(u"VentanaJefa", t.number); }, true, true, 2},
    {"the fields", [](FailingPart& t) { t.dialog->failing(u"BuscarEn", t.number); }, true, true, 3},
    {"the show", [](FailingPart& t) { t.dialog->failing(u"Mostrar", t.number); }, true, true, 4},
};

INSTANTIATE_TEST_SUITE_P(SearchFailures, FailingPart, testing::ValuesIn(parts));

TEST_F(SearchFailures, of_a_dialog_that_is_not_registered_are_reported) {
  ObjectRegistry none;
  openOn(u"Nota", [&] {
    here.platform.objects = &none;
    expectReport(u"Buscar_Nota de CNota", failure::classCannotBeCreated);
    Buscar_Nota(instance);
    here.platform.objects = &here.objects;
  });
}

TEST_F(SearchFailures, without_a_main_form_are_reported) {
  openOn(u"Nota", [&] {
    const auto held = std::exchange(nota.frmBase, nullptr);
    expectReport(u"Buscar_Nota de CNota", failure::objectNotSet);
    Buscar_Nota(instance);
    EXPECT_TRUE(dialog->journal.empty());
    nota.frmBase = held;
  });
}

TEST_F(SearchFailures, without_a_card_the_dialog_is_not_opened) {
  expectReport(u"Buscar_Nota de CNota", failure::objectNotSet);
  Buscar_Nota(instance);
  EXPECT_TRUE(dialog->journal.empty());
}

TEST_F(SearchFailures, of_a_host_whose_record_is_gone_end_at_the_card_that_cannot_reload) {
  openOn(u"Nota", [&] {
    host.vClase().with(u"cEstado", 1).failing(u"AvisoCambio", dao::failure::recordDeleted);
    expectBox(goneBox, 4144, u"Error");
    expectReport(u"dNota_Menu de CNota", failure::noSuchMember);
    user.clicks(u"ID_Buscar");
    EXPECT_TRUE(dialog->journal.empty());
    EXPECT_EQ(host.calls(host.vClase(), u"CargaRegistros"), 0);
    EXPECT_EQ(state(), limpia);
  });
}

// A step.

// Its own statements in their order: the list's end, the hourglass, the key, the search, its outcome, the way
// back, and after the fill the pointer.
struct StepCase {
  TextView criterion;
  Lines left;
  std::int32_t row;  // after the step
};

const StepCase steps[] = {
    {u"Notas = 'Texto 3'",
     {u"2, kept, 0, 0", u"2, kept, 0, 0", u"2, kept, 0, 11", u"2, kept, 0, 11", u"3, kept, 0, 11",
      u"3, filled, 0, 11"},
     3},
    {u"Notas = 'Nada'",
     {u"2, kept, 0, 0", u"2, kept, 0, 0", u"2, kept, 0, 11", u"2, kept, 0, 11", u"2, kept, 0, 11",
      u"2, kept, 0, 11", u"1, kept, 0, 11", u"2, filled, 0, 11"},
     2},
};

TEST_F(SearchFailures, of_each_call_of_a_step_leave_what_was_reached_and_count_as_not_found) {
  for (const StepCase& step : steps) {
    for (const TextView kind : {u"Nota", u"Visita"}) {
      for (const std::int32_t number : {dao::failure::locked, dao::failure::cancelledByObject}) {
        Lines seen;
        bool found = true;
        failEachCallIn(kind, number,
                       {.before = [&] { keep(); },
                        .statement = [&] { found = search(1, step.criterion); },
                        .check =
                            [&](const RecordingScreen& screen) {
                              ASSERT_EQ(screen.boxes.size(), 1u);
                              const Text name = reporters(screen).at(0);
                              EXPECT_TRUE(host.events.empty());
                              if (name == u"CNota_BuscaElemento de CNota") {
                                EXPECT_FALSE(found);
                                seen.push_back(left(screen));
                                return;
                              }
                              // The fill reports for itself, and the step goes on.
                              EXPECT_EQ(found, step.row == 3);
                              EXPECT_EQ(crs().AbsolutePosition() + 1, step.row);
                              EXPECT_EQ(state(), name == u"RefrescoFicha de CNota" ? cargando : limpia);
                              EXPECT_EQ(screen.pointer, 0);
                            }});
        EXPECT_EQ(seen, step.left) << toUtf8(kind) << " " << number;
      }
    }
  }
}

TEST_F(SearchFailures, of_unsaved_changes_until_the_fill_begins_leave_them_on_the_card) {
  for (const StepCase& step : steps) {
    failEachCallIn(u"Nota", dao::failure::locked,
                   {.before =
                        [&] {
                          change({{u"txtNotas", typed}});
                        },
                    .statement = [&] { search(1, step.criterion); },
                    .check =
                        [&](const RecordingScreen&) {
                          EXPECT_EQ(at(2, u"Notas").text(), u"Texto 2");
                          EXPECT_EQ(crs().updates, 0);
                          if (state() == modificada) {
                            EXPECT_EQ(card(u"txtNotas"), typed);
                          }
                        }});
  }
}

// A row that another user has deleted. A card cannot load its records again: that failure is the one that the
// next trap gets, the card's own.

TEST_F(SearchFailures, of_each_call_that_meets_a_deleted_row_reach_the_next_trap) {
  for (const StepCase& step : steps) {
    for (const TextView kind : kit::allKinds) {
      const Text cards = kind == u"Nota" ? u"BuscarElemento de frmNota" : u"BuscarElemento de frmVisita";
      Lines seen;
      bool found = true;
      failEachCallIn(kind, dao::failure::recordDeleted,
                     {.before = [&] { keep(); },
                      .statement = [&] { found = form().BuscarElemento(1, step.criterion); },
                      .check =
                          [&](const RecordingScreen& screen) {
                            const Lines names = reporters(screen);
                            ASSERT_EQ(screen.boxes.size(), 2u);
                            ASSERT_EQ(names.size(), 1u);
                            EXPECT_EQ(screen.boxes[0], goneBox);
                            EXPECT_NE(screen.boxes[1].find(u"Número del error: 438"), Text::npos);
                            EXPECT_TRUE(host.events.empty());
                            if (names[0] == cards) {
                              EXPECT_FALSE(found);
                              seen.push_back(left(screen));
                            } else if (names[0] == u"CNota_BuscaElemento de CNota") {
                              EXPECT_FALSE(found);
                              EXPECT_EQ(state(), cargando);
                              EXPECT_EQ(crs().AbsolutePosition() + 1, step.row);
                              EXPECT_EQ(screen.pointer, 11);
                            } else {
                              EXPECT_EQ(names[0], u"RefrescoFicha de CNota");
                              EXPECT_EQ(found, step.row == 3);
                              EXPECT_EQ(screen.pointer, 0);
                            }
                          }});
      EXPECT_EQ(seen, step.left) << toUtf8(kind);
    }
  }
}

TEST_F(SearchFailures, of_a_row_that_is_gone_leave_the_changed_card_as_it_was) {
  openOn(u"Nota", [&] {
    change({{u"txtNotas", typed}});
    list->vanish(1);
    expectBox(goneBox, 4144, u"Error");
    expectReport(u"BuscarElemento de frmNota", failure::noSuchMember);
    EXPECT_FALSE(form().BuscarElemento(1, u"Notas = 'Texto 3'"));
    EXPECT_EQ(crs().AbsolutePosition(), 1);
    EXPECT_TRUE(crs().criteria.empty());
    EXPECT_EQ(card(u"txtNotas"), typed);
    EXPECT_EQ(state(), modificada);
    EXPECT_EQ(here.screen.pointer, 11);
    EXPECT_TRUE(host.events.empty());
    here.screen.pointer = 0;
  });
}

TEST_F(SearchFailures, of_a_match_that_goes_before_it_is_shown_leave_the_card_half_filled) {
  openOn(u"Nota", [&] {
    keep();
    here.faults.onNext("Recordset.NoMatch", [&] { list->vanish(2); });
    expectBox(goneBox, 4144, u"Error");
    expectReport(u"CNota_BuscaElemento de CNota", failure::noSuchMember);
    EXPECT_FALSE(form().BuscarElemento(1, u"Notas = 'Texto 3'"));
    EXPECT_EQ(left(here.screen), u"3, kept, 3, 11");
    here.screen.pointer = 0;
  });
}

TEST_F(SearchFailures, of_a_row_that_goes_during_the_search_show_the_first_one_without_a_match) {
  openOn(u"Nota", [&] {
    keep();
    here.faults.onNext("Recordset.NoMatch", [&] { list->vanish(1); });
    EXPECT_FALSE(search(1, u"Notas = 'Nada'"));
    EXPECT_EQ(left(here.screen), u"1, filled, 0, 0");
  });
}

TEST_F(SearchFailures, of_a_deleted_row_have_a_form_of_the_hosts_load_its_records_again) {
  openOn(u"Nota", [&] {
    list->vanish(1);
    here.screen.activeFormOf = [&]() -> ObjectRef { return host.FichaInm; };
    host.vClase().journal.clear();
    expectReport(u"CNota_BuscaElemento de CNota", dao::failure::recordDeleted);
    EXPECT_FALSE(search(1, u"Notas = 'Texto 3'"));
    EXPECT_EQ(host.vClase().journal.size(), 1u);
    EXPECT_EQ(host.calls(host.vClase(), u"CargaRegistros"), 1);
    here.screen.pointer = 0;
  });
}

TEST_F(SearchFailures, without_a_list_are_reported) {
  expectReport(u"CNota_BuscaElemento de CNota", failure::objectNotSet);
  EXPECT_FALSE(search(1, u"Id = 120"));
}

}  // namespace
}  // namespace ovalia
