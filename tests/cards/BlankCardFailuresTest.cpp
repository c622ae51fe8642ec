#include <algorithm>
#include <ostream>

#include "tests/cardkit/RecordingScreen.h"
#include "tests/cards/BlankedCard.h"
#include "tests/cards/CardPicture.h"

namespace ovalia {
namespace {

using kit::Shown;

// Everything that blanking a card asks of its surroundings, failing in turn, and what the card shows then.
class FailingBlank;

struct Failing {
  const char* what;
  TextView tipo;
  void (*arrange)(FailingBlank& test);
  std::int32_t number;
  bool textsEmptied = false;
  std::vector<Shown> blanked = {};  // of the other controls; the rest is as it was
};

void PrintTo(const Failing& row, std::ostream* out) { *out << row.what; }

class FailingBlank : public kit::BlankedCard, public testing::WithParamInterface<Failing> {
 public:
  using BlankedCard::here;
  using BlankedCard::host;
  using BlankedCard::nota;

  void missing(kit::FakeObject& object, TextView member) { object.failing(member, failure::noSuchMember); }
  void failNthField(int nth) { here.faults.failNth("Field.Value", nth, dao::failure::locked); }
};

TEST_P(FailingBlank, is_reported_and_leaves_the_rest_of_the_card_as_it_was) {
  const Failing& row = GetParam();
  openCard(row.tipo, {}, [&] {
    kit::CardPicture expected = kit::pictureOf(form());
    if (row.textsEmptied)
      for (const Text& box : textBoxes()) expected[box] = u"";
    for (const Shown& control : row.blanked) expected[Text(control.control)] = control.value;
    row.arrange(*this);
    instance.EstadoFicha = cargando;
    expectReport(u"FichaLimpia de CNota", row.number);
    FichaLimpia(instance);
    EXPECT_EQ(kit::changesOf(expected, kit::pictureOf(form())), u"");
    EXPECT_EQ(state(), cargando);
    EXPECT_FALSE(form().filling());
    EXPECT_TRUE(database->executed.empty());
    EXPECT_EQ(stored(u"Notas").text(), u"Tiene prisa por vender.");
    putAway();
  });
}

const Failing failing[] = {
    {"the host's main form", u"Nota", [](FailingBlank& t) { t.nota.frmBase.reset(); }, failure::objectNotSet},
    {"the form on top", u"Nota", [](FailingBlank& t) { t.host.shows(nullptr); }, failure::objectNotSet},
    {"its controller", u"Visita", [](FailingBlank& t) { t.missing(*t.host.FichaInm, u"vClase"); },
     failure::noSuchMember},
    {"whether the parent is new", u"Anuncio", [](FailingBlank& t) { t.missing(t.host.vClase(), u"cEstado"); },
     failure::noSuchMember},
    {"the parent's key", u"Nota", [](FailingBlank& t) { t.missing(t.host.vClase(), u"IdRegistro"); },
     failure::noSuchMember},
    {"the parent's key, which a call does not show", u"Llamada",
     [](FailingBlank& t) { t.missing(t.host.vClase(), u"IdRegistro"); }, failure::noSuchMember},
    {"the parent's provisional number", u"Nota",
     [](FailingBlank& t) {
       t.host.vClase().with(u"cEstado", 1);
       t.missing(t.host.vClase(), u"NumNuevo");
     },
     failure::noSuchMember},
    {"a user that the list lacks",
     u"Nota",
     [](FailingBlank& t) { t.nota.cUsuario = u"Nadie"; },
     failure::notInList,
     true,
     {{u"lblActualizacion", u""}}},
    {"the list",
     u"Visita",
     [](FailingBlank& t) { t.nota.crs.reset(); },
     failure::objectNotSet,
     true,
     {{u"txtAsunto", u""}, {u"lblActualizacion", u""}, {u"cboUsuario", u"Carmen Soler"}}},
    {"the subject",
     u"Visita",
     [](FailingBlank& t) { t.failNthField(1); },
     dao::failure::locked,
     true,
     {{u"lblActualizacion", u""}, {u"cboUsuario", u"Carmen Soler"}}},
    {"the place",
     u"Visita",
     [](FailingBlank& t) { t.failNthField(2); },
     dao::failure::locked,
     true,
     {{u"txtAsunto", u"Llaves en portería"},
      {u"lblActualizacion", u""},
      {u"cboUsuario", u"Carmen Soler"},
      {u"cboAcceso", u""},
      {u"dtpFechaAlta", u"09/03/26"},
      {u"dtpHoraAlta", u"10:20:30"}}},
    {"the advertisement of a call",
     u"Llamada",
     [](FailingBlank& t) { t.failNthField(1); },
     dao::failure::locked,
     true,
     {{u"lblActualizacion", u""},
      {u"cboUsuario", u"Carmen Soler"},
      {u"dtpFechaAlta", u"09/03/26"},
      {u"dtpHoraAlta", u"10:20:30"}}},
};

INSTANTIATE_TEST_SUITE_P(BlankCard, FailingBlank, testing::ValuesIn(failing));

using BlankCardFailures = kit::BlankedCard;

TEST_F(BlankCardFailures, without_a_card_it_is_reported) {
  expectReport(u"FichaLimpia de CNota", failure::objectNotSet);
  FichaLimpia(instance);
}

TEST_F(BlankCardFailures, an_empty_list_of_calls_blanks_the_card_and_keeps_the_title) {
  givenList(u"Llamada", {});
  expectReport(u"FichaLimpia de CNota", dao::failure::noCurrentRecord);
  openCard([&] {
    EXPECT_EQ(state(), cargando);
    EXPECT_EQ(card(u"dtpFechaAlta"), u"09/03/26");
    EXPECT_EQ(caption(), u"Nueva Nota") << "the design's own";
    putAway();
  });
}

TEST_F(BlankCardFailures, an_empty_list_of_visits_stops_at_the_subject) {
  givenList(u"Visita", {});
  expectReport(u"FichaLimpia de CNota", dao::failure::noCurrentRecord);
  openCard([&] {
    EXPECT_EQ(state(), cargando);
    EXPECT_EQ(card(u"cboUsuario"), u"Carmen Soler");
    EXPECT_EQ(card(u"dtpFechaAlta"), u"-");
    EXPECT_EQ(caption(), u"Nueva Cita") << "the design's own";
    putAway();
  });
}

TEST_F(BlankCardFailures, the_card_counts_as_filled_even_when_the_report_itself_fails) {
  openCard(u"Visita", {}, [&] {
    otherUser.deletesTheRow();
    // With a card on top, the reload that the report of a deleted record asks for finds no controller.
    expectBox(u"La ficha acaba de ser borrada por otro usuario y\r\nno se volverá a visualizar.", 4144,
              u"Error");
    instance.EstadoFicha = cargando;
    EXPECT_THROW(FichaLimpia(instance), Failure);
    EXPECT_FALSE(form().filling());
    putAway();
  });
}

TEST_F(BlankCardFailures, a_text_that_cannot_be_emptied_ends_the_emptying_and_is_reported_by_the_caller) {
  openCard(u"Nota", {}, [&] {
    bool failing = true;
    form().Cambio.connect([&](forms::ControlRef&, Text& field) {
      if (failing && field == u"Categorias") throw Failure(dao::failure::locked);
    });
    expectReport(u"FichaLimpia de CNota", dao::failure::locked);
    blank();
    expectOnCard(
        {{u"txtAsunto", u""}, {u"txtNotas", u"Tiene prisa por vender."}, {u"cboUsuario", u"Ana Ruiz"}});

    instance.EstadoFicha = cargando;
    failing = false;
    control(u"txtCategorias").setValue(u"Urgente");
    failing = true;
    EXPECT_THROW(LimpiarTextos(form()), Failure);
    failing = false;
    putAway();
  });
}

TEST_F(BlankCardFailures, a_card_that_was_closed_comes_into_being_hidden_and_each_change_on_it_is_reported) {
  openCard(u"Nota", {});
  EXPECT_FALSE(form().loaded());
  kit::RecordingScreen screen(here.faults, here.screen);
  here.platform.screen = &screen;
  FichaLimpia(instance);
  EXPECT_TRUE(form().loaded());
  EXPECT_FALSE(form().Visible());
  expectOnCard({{u"cboUsuario", u"Carmen Soler"}, {u"dtpFechaAlta", u"09/03/26"}});
  EXPECT_EQ(caption(), u"Inmueble 120 - Nueva Nota");
  EXPECT_EQ(state(), limpia);
  EXPECT_FALSE(screen.boxes.empty());
  for (const Text& box : screen.boxes)
    EXPECT_EQ(kit::RecordingScreen::reportedBy(box), u"dNota_Cambio de CNota") << toUtf8(box);
  here.platform.screen = &here.screen;
  here.files.appended.clear();
}

}  // namespace
}  // namespace ovalia
