#include <stdexcept>

#include "tests/cardkit/RecordingScreen.h"
#include "tests/cards/NewRows.h"

namespace ovalia {
namespace {

// A host that creates an annotation and gets its card.
class Creation : public kit::NewRows {
 protected:
  static constexpr TextView kinds[] = {u"Nota", u"Visita", u"Anuncio", u"Llamada"};

  // Creates, and runs what is to be said of the card, which must come up.
  void createAndShow(const std::function<void()>& whileShown) {
    desk.whileShown([&] {
      whileShown();
      putAway();
    });
    CreaNota(instance);
  }
};

TEST_F(Creation, gives_each_kind_its_own_card_blank_and_new) {
  for (const TextView tipo : kinds) {
    givenNewRows(tipo);
    desk.windows.clear();
    host.events.clear();
    createAndShow([&] {
      EXPECT_EQ(form().Name(), u"frm" + Text(tipo));
      EXPECT_EQ(desk.windows, std::vector<Text>{form().Name() + u" show"});
      EXPECT_EQ(state(), nueva);
      EXPECT_EQ(nota.crs->AbsolutePosition(), 1);
      EXPECT_EQ(card(u"dtpFechaAlta"), u"09/03/26");
      EXPECT_EQ(card(u"cboUsuario"), u"Carmen Soler");
      EXPECT_NE(caption().find(u" - Nuev"), Text::npos) << toUtf8(caption());
    });
    EXPECT_TRUE(rowInserted());
    EXPECT_EQ(host.events, (std::vector<Text>{u"CargaRegistros(" + Text(tipo) + u", " + nota.Nota + u")",
                                              u"CompletarNueva(" + Text(tipo) + u")"}));
  }
}

TEST_F(Creation, prepares_the_card_before_it_is_blanked) {
  givenNewRows(u"Nota");
  createAndShow([&] {
    EXPECT_EQ(control(u"cboAcceso").get(u"ListCount").toLong(), 3);
    EXPECT_EQ(card(u"cboUsuarioAviso"), u"Carmen Soler") << "a name of the list, which was filled by then";
  });
}

TEST_F(Creation, shows_nothing_when_the_row_is_not_found_and_can_be_tried_again) {
  givenNewRows(u"Nota");
  const auto reload = std::exchange(host.answers.CargaRegistros, [](Text&, Text&) {});
  expectBox(u"Por favor, guarde los cambios antes de generar una nueva anotación.", 64);
  CreaNota(instance);
  EXPECT_TRUE(desk.windows.empty());
  EXPECT_FALSE(instance.dNota->loaded());
  EXPECT_EQ(state(), limpia);
  EXPECT_TRUE(rowInserted()) << "it stays";

  host.answers.CargaRegistros = reload;
  here.clock.time.minute = 25;
  bool shown = false;
  list->rows.pop_back();
  createAndShow([&] { shown = true; });
  EXPECT_TRUE(shown);
}

TEST_F(Creation, leaves_the_keys_off_on_a_card_that_it_brings_into_being) {
  givenNewRows(u"Nota");
  createAndShow([&] { EXPECT_FALSE(form().KeyPreview()); });
}

TEST_F(Creation, leaves_the_keys_on_where_a_record_was_shown_before) {
  givenNewRows(u"Nota");
  openCard([&] {
    EXPECT_TRUE(Nuevo(instance));
    EXPECT_TRUE(form().KeyPreview()) << "on the card that shows the record";
    instance.EstadoFicha = limpia;
    form().Hide();
  });
  here.clock.time.minute = 25;
  list->rows.pop_back();
  createAndShow([&] { EXPECT_TRUE(form().KeyPreview()) << "on the form that was only hidden"; });
}

TEST_F(Creation, of_the_kind_that_is_up_makes_its_row_and_puts_the_card_on_it_and_then_fails_with_400) {
  givenNewRows(u"Nota");
  openCard([&] {
    expectReport(u"CreaNota de CNota", failure::alreadyShown);
    CreaNota(instance);
    EXPECT_TRUE(rowInserted());
    EXPECT_EQ(state(), nueva);
    EXPECT_EQ(caption(), u"Inmueble 120 - Nueva Nota");
    EXPECT_TRUE(form().Visible());
    putAway();
  });
}

TEST_F(Creation, with_a_preset_key_turns_further_creation_off_even_when_it_fails) {
  givenNewRows(u"Nota");
  nota.IdAnota = 4711;
  here.faults.failNext("Database.Execute", dao::failure::readOnly);
  expectReport(u"Nuevo de CNota", dao::failure::readOnly);
  CreaNota(instance);
  EXPECT_FALSE(nota.bPermitirCreacion);
  createAndShow([&] { EXPECT_FALSE(enabled(u"ID_Aniadir")); });
}

// Every call that a creation makes of its surroundings, up to the moment when the card is up.

class FailingCreation : public Creation {
 protected:
  struct Run {
    bool met = false, shown = false, blank = false;
    std::int32_t state = -1, place = -1;  // of the card that comes up, or what is left without one
    bool window = false;
    Text reporters;  // in their order, joined by commas
  };

  // Creates an annotation while the nth call fails. What the closing of the card asks for no longer fails.
  Run createFailing(int nth) {
    Run run;
    bool over = false;
    kit::RecordingScreen screen(here.faults, here.screen);
    here.platform.screen = &screen;
    here.faults.failNth("", nth, dao::failure::locked);
    const auto look = [&] {
      run.met = here.faults.unmet().empty();
      here.faults.heal();
      run.state = state();
      run.place = nota.crs->AbsolutePosition();
      run.window = form().loaded();
    };
    desk.whileShown([&] {
      if (over) return;
      run.shown = true;
      look();
      run.blank = caption().find(u" - Nuev") != Text::npos;
      putAway();
    });
    CreaNota(instance);
    if (!run.shown) look();
    for (const Text& box : screen.boxes)
      run.reporters += (run.reporters.empty() ? u"" : u", ") + kit::RecordingScreen::reportedBy(box);
    here.platform.screen = &here.screen;
    here.files.appended.clear();
    over = true;
    if (!run.shown) AbreNota(instance);  // the card can be opened all the same
    return run;
  }

  void expectCardOrNone(const Run& run) {
    EXPECT_EQ(run.shown, run.reporters != u"Nuevo de CNota");
    EXPECT_EQ(run.window, run.shown);
    EXPECT_EQ(stored(u"Notas").text(), u"Tiene prisa por vender.");
    if (run.shown) {
      EXPECT_TRUE(rowInserted());
      EXPECT_EQ(run.state, nueva);
      EXPECT_EQ(run.place, 1);
      EXPECT_EQ(run.blank, run.reporters.find(u"FichaLimpia") == Text::npos);
    } else {
      EXPECT_EQ(run.state, limpia);
    }
  }
};

TEST_F(FailingCreation, ends_with_the_card_up_on_its_new_row_or_without_a_card) {
  for (const TextView tipo : kinds) {
    openCard(tipo, {});  // makes the form, and closes it
    std::vector<Text> reporters;
    for (int nth = 1;; ++nth) {
      if (nth > 500) throw std::logic_error("the creation never comes to its end");
      SCOPED_TRACE(toUtf8(tipo) + ", call " + std::to_string(nth));
      givenNewRows(tipo);
      const Run run = createFailing(nth);
      if (!run.met) break;
      expectCardOrNone(run);
      if (reporters.empty() || reporters.back() != run.reporters) reporters.push_back(run.reporters);
    }
    // The row; the window, its place and its lists, without which there is no name to show; the card; its
    // documents, which a call has not; its tools.
    std::vector<Text> expected = {u"Nuevo de CNota", u"FichaLimpia de CNota",
                                  u"RestaurarVentana() de RutinasErr",
                                  u"dNota_Load de CNota, FichaLimpia de CNota", u"dNota_Load de CNota"};
    if (tipo == u"Visita" || tipo == u"Llamada") expected.push_back(u"FichaLimpia de CNota");
    if (tipo != u"Llamada") expected.push_back(u"RefrescoDocs de CNota");
    expected.push_back(u"CambiarMenu de CNota");
    EXPECT_EQ(reporters, expected) << toUtf8(tipo);
  }
}

}  // namespace
}  // namespace ovalia
