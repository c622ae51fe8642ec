#include <gtest/gtest.h>

#include "cards/Navigation.h"
#include "tests/cardkit/OpenCard.h"

namespace ovalia {
namespace {

const Text changedNote = u"¿Desea guardar los cambios realizados en la nota?";

class CardKeys : public kit::OpenCardTest {
 protected:
  void expectOn(int row) {
    EXPECT_EQ(standsOn(), 500 + row);
    EXPECT_EQ(card(u"txtNotas"), u"Texto " + toText(row));
    EXPECT_EQ(state(), limpia);
  }
};

constexpr int ctrl = 2, shift = 1;

TEST_F(CardKeys, ctrl_with_comma_or_full_stop_goes_to_the_neighbour) {
  for (const TextView kind : kit::allKinds) {
    struct {
      int code, target;
    } const keys[] = {{188, 1}, {190, 3}};
    for (const auto& key : keys) {
      for (const int mask : {ctrl, ctrl | shift}) {
        openOn(kind, [&] {
          user.presses(key.code, mask);
          expectOn(key.target);
        });
      }
    }
  }
}

TEST_F(CardKeys, the_keys_without_ctrl_do_nothing) {
  openOn(u"Nota", [&] {
    for (const int code : {86, 188, 190})
      for (const int mask : {0, static_cast<int>(shift), 4}) user.presses(code, mask);
    expectOn(2);
    EXPECT_TRUE(form().Visible());
  });
}

TEST_F(CardKeys, other_keys_with_ctrl_do_nothing) {
  openOn(u"Nota", [&] {
    for (const int code : {13, 65, 187, 189, 191}) user.presses(code, ctrl);
    expectOn(2);
  });
}

TEST_F(CardKeys, a_key_does_not_pass_over_the_check_of_the_control) {
  openOn(u"Anuncio", [&] {
    ASSERT_TRUE(user.enters(u"txtNDias"));
    change({{u"txtNDias", u"300"}});
    expectBox(u"Introduzca un número entre 0 y 255.", 48, u"Error");
    user.presses(188, ctrl);
    EXPECT_EQ(standsOn(), 502);
  });
}

TEST_F(CardKeys, escape_hides_a_clean_card_and_stores_its_place) {
  for (const TextView kind : kit::allKinds) {
    openOn(kind, [&] {
      user.presses(27);
      EXPECT_FALSE(form().Visible());
      EXPECT_TRUE(form().loaded());
      EXPECT_TRUE(here.settings.stored(u"Agencia", form().Name(), u"DocsWidth"));
    });
  }
}

TEST_F(CardKeys, escape_with_ctrl_closes_too) {
  openOn(u"Nota", [&] {
    user.presses(27, ctrl);
    EXPECT_FALSE(form().Visible());
  });
}

TEST_F(CardKeys, escape_asks_about_changes_and_closes_after_yes_or_no) {
  for (const int answer : {yes, no}) {
    openOn(u"Nota", [&] {
      change({{u"txtNotas", u"Nuevo texto"}});
      expectQuestion(changedNote, answer);
      user.presses(27);
      EXPECT_FALSE(form().Visible());
      EXPECT_EQ(state(), limpia);
      EXPECT_EQ(at(2, u"Notas").text(), answer == yes ? u"Nuevo texto" : u"Texto 2");
    });
  }
}

TEST_F(CardKeys, escape_answered_cancel_leaves_the_card_open_and_changed) {
  openOn(u"Nota", [&] {
    change({{u"txtNotas", u"Nuevo texto"}});
    expectQuestion(changedNote, cancel);
    user.presses(27);
    EXPECT_TRUE(form().Visible());
    EXPECT_EQ(state(), modificada);
  });
}

TEST_F(CardKeys, escape_on_a_value_that_is_refused_leaves_the_card_open_without_a_question) {
  openOn(u"Anuncio", [&] {
    ASSERT_TRUE(user.enters(u"txtNDias"));
    change({{u"txtNDias", u"300"}});
    expectBox(u"Introduzca un número entre 0 y 255.", 48, u"Error");
    user.presses(27);
    EXPECT_TRUE(form().Visible());
    EXPECT_EQ(state(), modificada);
  });
}

TEST_F(CardKeys, escape_makes_a_card_that_was_half_filled_clean) {
  openOn(u"Nota", [&] {
    instance.EstadoFicha = cargando;
    user.presses(27);
    EXPECT_FALSE(form().Visible());
    EXPECT_EQ(state(), limpia);
  });
}

TEST_F(CardKeys, an_escape_whose_write_fails_leaves_the_card_open_and_changed) {
  openOn(u"Nota", [&] {
    change({{u"txtNotas", u"Nuevo texto"}});
    expectQuestion(changedNote, yes);
    here.faults.failNext("Recordset.Update", dao::failure::locked);
    expectReport(u"GrabaRegistro de CNota", dao::failure::locked);
    user.presses(27);
    EXPECT_TRUE(form().Visible());
    EXPECT_EQ(state(), modificada);
    EXPECT_EQ(card(u"txtNotas"), u"Nuevo texto");
  });
}

TEST_F(CardKeys, an_escape_whose_pane_cannot_be_remembered_closes_all_the_same) {
  openOn(u"Nota", [&] {
    here.faults.failNth("Settings.save", 6, failure::internalError);
    expectReport(u"dNota_UnLoad de CNota", failure::internalError);
    user.presses(27);
    EXPECT_FALSE(form().Visible());
    EXPECT_EQ(state(), limpia);
  });
}

TEST_F(CardKeys, an_escape_that_finds_no_form_is_reported) {
  openOn(u"Nota", [&] {
    here.screen.activeFormOf = [] { return ObjectRef(); };
    expectReport(u"dNota_KeyDown de CNota", failure::objectNotSet);
    dNota_KeyDown(instance, 27, 0);
    EXPECT_EQ(state(), limpia);
    EXPECT_TRUE(form().Visible());
  });
}

}  // namespace
}  // namespace ovalia
