#include <gtest/gtest.h>

#include "commands/CommandRouting.h"
#include "tests/cardkit/OpenCard.h"

namespace ovalia {
namespace {

const Text changedNote = u"¿Desea guardar los cambios realizados en la nota?";

// The command that closes a card.
class Leaving : public kit::OpenCardTest {};

TEST_F(Leaving, hides_the_card_and_stores_its_place) {
  for (const TextView kind : kit::allKinds) {
    openOn(kind, [&] {
      user.clicks(u"ID_Salir");
      EXPECT_FALSE(form().Visible());
      EXPECT_TRUE(form().loaded());
      EXPECT_TRUE(here.settings.stored(u"Agencia", form().Name(), u"DocsWidth"));
    });
  }
}

TEST_F(Leaving, asks_about_changes_and_stays_when_the_user_cancels) {
  openOn(u"Nota", [&] {
    change({{u"txtNotas", u"Nuevo texto"}});
    expectQuestion(changedNote, cancel);
    user.clicks(u"ID_Salir");
    EXPECT_TRUE(form().Visible());
    EXPECT_EQ(state(), modificada);
    expectQuestion(changedNote, no);
    user.clicks(u"ID_Salir");
    EXPECT_FALSE(form().Visible());
  });
}

TEST_F(Leaving, saves_what_is_wanted_and_stays_when_the_write_fails) {
  for (const bool fails : {false, true}) {
    openOn(u"Nota", [&] {
      change({{u"txtNotas", u"Nuevo texto"}});
      expectQuestion(changedNote, yes);
      if (fails) {
        here.faults.failNext("Recordset.Update", dao::failure::locked);
        expectReport(u"GrabaRegistro de CNota", dao::failure::locked);
      }
      command(u"Archivo", u"ID_Salir");
      EXPECT_EQ(form().Visible(), fails);
      EXPECT_EQ(state(), fails ? modificada : limpia);
      EXPECT_EQ(at(2, u"Notas").text(), fails ? u"Texto 2" : u"Nuevo texto");
    });
  }
}

TEST_F(Leaving, is_refused_by_a_value_that_does_not_pass_its_check) {
  openOn(u"Anuncio", [&] {
    ASSERT_TRUE(user.enters(u"txtNDias"));
    change({{u"txtNDias", u"300"}});
    expectBox(u"Introduzca un número entre 0 y 255.", 48, u"Error");
    command(u"Archivo", u"ID_Salir");
    EXPECT_TRUE(form().Visible());
    EXPECT_EQ(state(), modificada);
  });
}

TEST_F(Leaving, goes_on_when_the_pane_cannot_be_remembered) {
  openOn(u"Nota", [&] {
    here.faults.failNth("Settings.save", 6, failure::internalError);
    expectReport(u"dNota_UnLoad de CNota", failure::internalError);
    command(u"Archivo", u"ID_Salir");
    EXPECT_FALSE(form().Visible());
  });
}

TEST_F(Leaving, does_not_touch_the_state_of_a_half_filled_card) {
  openOn(u"Nota", [&] {
    instance.EstadoFicha = cargando;
    command(u"Archivo", u"ID_Salir");
    EXPECT_FALSE(form().Visible());
    EXPECT_EQ(state(), cargando);
  });
}

TEST_F(Leaving, never_hides_the_hosts_form) {
  openOn(u"Nota", [&] {
    host.FichaInm->giving(u"Hide", {});
    form().userAction([&] {
      form().Hide();
      dNota_Menu(instance, u"Archivo", u"ID_Salir");
    });
    EXPECT_EQ(host.calls(*host.FichaInm, u"Hide"), 0);
    EXPECT_FALSE(form().Visible());
  });
}

}  // namespace
}  // namespace ovalia
