#include <gtest/gtest.h>

#include "cards/EditTracking.h"
#include "cards/Saving.h"
#include "tests/cardkit/OpenCard.h"

namespace ovalia {
namespace {

class SaveQuestion : public kit::OpenCardTest {
 protected:
  // Another user writes the row that the card shows.
  void anotherWrites() {
    at(2, u"FechaActualizacion") = kit::on(2026, 3, 9, 10, 0, 0);
    at(2, u"Notas") = u"De otro";
  }

  bool ask(TextView action) { return AvisoCambio(instance, u"Preguntar", action); }

  // A new annotation: its row is there, the card is blank.
  void makeNew() { instance.EstadoFicha = nueva; }

  // The list loses the row it stands on while the question is up.
  std::function<void()> runOut() {
    return [this] {
      crs().MoveLast();
      crs().MoveNext();
    };
  }
};

struct Question {
  TextView tipo, fresh, changed;
};

TEST_F(SaveQuestion, the_question_is_worded_by_kind_and_state) {
  constexpr Question questions[] = {
      {u"Nota", u"¿Desea guardar la nueva nota?", u"¿Desea guardar los cambios realizados en la nota?"},
      {u"Visita", u"¿Desea guardar la nueva visita?", u"¿Desea guardar los cambios realizados en la visita?"},
      {u"Anuncio", u"¿Desea guardar el nuevo anuncio?",
       u"¿Desea guardar los cambios realizados en el anuncio?"},
      {u"Llamada", u"¿Desea guardar la nueva llamada?",
       u"¿Desea guardar los cambios realizados en la llamada?"},
  };
  for (const Question& question : questions) {
    openOn(question.tipo, [&] {
      instance.EstadoFicha = nueva;
      expectQuestion(Text(question.fresh), cancel);
      EXPECT_FALSE(ask(u"Save"));
      EXPECT_EQ(instance.EstadoFicha, nueva);
      instance.EstadoFicha = modificada;
      expectQuestion(Text(question.changed), cancel);
      EXPECT_FALSE(ask(u"Save"));
      EXPECT_EQ(instance.EstadoFicha, modificada);
    });
  }
}

TEST_F(SaveQuestion, a_kind_that_is_none_of_the_four_is_called_a_card) {
  openOn(u"Nota", [&] {
    nota.Tipo = u"nota";
    instance.EstadoFicha = nueva;
    expectQuestion(u"¿Desea guardar la nueva ficha?", cancel);
    EXPECT_FALSE(ask(u"Save"));
    instance.EstadoFicha = modificada;
    expectQuestion(u"¿Desea guardar los cambios realizados en la ficha?", cancel);
    EXPECT_FALSE(ask(u"Save"));
  });
}

TEST_F(SaveQuestion, a_clean_card_lets_the_caller_go_on_without_a_question) {
  openOn(u"Nota", [&] {
    EXPECT_TRUE(ask(u"Move"));
    EXPECT_TRUE(AvisoCambio(instance, u"NoPreguntar", u"Save"));
    EXPECT_EQ(crs().updates, 0);
    EXPECT_TRUE(here.screen.pointers.empty());
  });
}

TEST_F(SaveQuestion, a_card_that_is_being_filled_lets_the_caller_go_on_without_a_question) {
  openOn(u"Nota", [&] {
    instance.EstadoFicha = cargando;
    EXPECT_TRUE(ask(u"UnLoad"));
    EXPECT_EQ(instance.EstadoFicha, cargando);
    EXPECT_EQ(crs().updates, 0);
  });
}

TEST_F(SaveQuestion, any_other_word_than_preguntar_saves_without_asking) {
  for (const TextView word : {u"NoPreguntar", u"preguntar", u""}) {
    openOn(u"Nota", [&] {
      change({{u"txtNotas", u"Nuevo texto"}});
      EXPECT_TRUE(AvisoCambio(instance, word, u"Save"));
      EXPECT_EQ(at(2, u"Notas").text(), u"Nuevo texto");
    });
  }
}

TEST_F(SaveQuestion, answered_yes_the_card_is_written_and_the_title_composed_again) {
  for (const std::int32_t state : {nueva, modificada}) {
    openOn(u"Nota", [&] {
      change({{u"txtNotas", u"Nuevo texto"}});
      instance.EstadoFicha = state;
      form().setCaption(u"Otro título");
      control(u"txtNotas").Tag = HacerNada;
      expectQuestion(state == nueva ? u"¿Desea guardar la nueva nota?"
                                    : u"¿Desea guardar los cambios realizados en la nota?",
                     yes);
      EXPECT_TRUE(ask(u"UnLoad"));
      EXPECT_EQ(at(2, u"Notas").text(), u"Nuevo texto");
      EXPECT_EQ(instance.EstadoFicha, limpia);
      EXPECT_EQ(form().Caption(), u"Inmueble 120 - Nota: 2/3");
      EXPECT_EQ(tag(u"txtNotas"), u"HacerAlgo");
      EXPECT_EQ(host.FichaInm->journal, std::vector<Text>{u"Ajuste_N_Notas()"});
      EXPECT_EQ(here.screen.pointers, (std::vector<int>{11, 0}));
    });
  }
}

TEST_F(SaveQuestion, answered_yes_it_saves_over_another_users_write_without_a_word) {
  for (const TextView action : {u"Move", u"UnLoad"}) {
    openOn(u"Nota", [&] {
      change({{u"txtNotas", u"Nuevo texto"}});
      anotherWrites();
      expectQuestion(u"¿Desea guardar los cambios realizados en la nota?", yes);
      EXPECT_TRUE(ask(action));
      EXPECT_EQ(at(2, u"Notas").text(), u"Nuevo texto");
    });
  }
}

TEST_F(SaveQuestion, a_save_leaves_another_users_count_of_documents_alone) {
  openOn(u"Nota", [&] {
    change({{u"txtNotas", u"Nuevo texto"}});
    at(2, u"NArchivos") = std::int32_t(4);
    EXPECT_TRUE(AvisoCambio(instance, u"NoPreguntar", u"Save"));
    EXPECT_EQ(at(2, u"NArchivos").toLong(), 4);
  });
}

TEST_F(SaveQuestion, answered_no_a_changed_card_is_clean_but_not_filled_again) {
  for (const TextView action : {u"Save", u"Move", u"UnLoad"}) {
    openOn(u"Nota", [&] {
      change({{u"txtNotas", u"Nuevo texto"}});
      expectQuestion(u"¿Desea guardar los cambios realizados en la nota?", no);
      EXPECT_TRUE(ask(action));
      EXPECT_EQ(instance.EstadoFicha, limpia);
      EXPECT_EQ(card(u"txtNotas"), u"Nuevo texto");
      EXPECT_EQ(at(2, u"Notas").text(), u"Texto 2");
      EXPECT_EQ(crs().updates, 0);
      EXPECT_EQ(crs().deletes, 0);
      EXPECT_EQ(here.screen.pointers, (std::vector<int>{11, 0}));
    });
  }
}

TEST_F(SaveQuestion, answered_no_the_tools_follow_unless_the_caller_moves_on) {
  struct {
    TextView action;
    bool stillOn;
  } const cases[] = {{u"Save", false}, {u"UnLoad", false}, {u"Move", true}};
  for (const auto& expected : cases) {
    openOn(u"Nota", [&] {
      change({});
      form().toolbars().tool(u"ID_Guardar")->setEnabled(true);
      expectQuestion(u"¿Desea guardar los cambios realizados en la nota?", no);
      EXPECT_TRUE(ask(expected.action));
      EXPECT_EQ(enabled(u"ID_Guardar"), expected.stillOn);
    });
  }
}

TEST_F(SaveQuestion, answered_no_a_new_card_loses_its_row_and_lets_the_caller_go_on) {
  struct {
    TextView action;
    std::int32_t standsOn;
    bool visible;
  } const cases[] = {{u"Save", 503, true}, {u"Move", 503, true}, {u"UnLoad", 501, false}};
  for (const auto& expected : cases) {
    openOn(u"Nota", [&] {
      makeNew();
      expectQuestion(u"¿Desea guardar la nueva nota?", no);
      EXPECT_TRUE(ask(expected.action));
      EXPECT_EQ(instance.EstadoFicha, limpia);
      EXPECT_EQ(crs().updates, 0);
      EXPECT_EQ(crs().deletes, 1);
      EXPECT_EQ(list->rows.size(), 2u);
      EXPECT_EQ(standsOn(), expected.standsOn);
      EXPECT_EQ(form().Visible(), expected.visible);
      EXPECT_EQ(here.screen.pointers, (std::vector<int>{11, 0}));
    });
  }
}

TEST_F(SaveQuestion, answered_no_a_new_card_whose_row_was_the_only_one_is_hidden_whatever_was_to_follow) {
  for (const TextView action : {u"Save", u"Move", u"UnLoad"}) {
    listOf(u"Nota", 1);
    open(1, [&] {
      makeNew();
      expectQuestion(u"¿Desea guardar la nueva nota?", no);
      EXPECT_TRUE(ask(action));
      EXPECT_EQ(instance.EstadoFicha, limpia);
      EXPECT_TRUE(crs().isEOF());
      EXPECT_TRUE(list->rows.empty());
      EXPECT_FALSE(form().Visible());
    });
  }
}

TEST_F(SaveQuestion, answered_no_a_new_card_whose_row_is_used_elsewhere_keeps_it_and_lets_the_caller_go_on) {
  openOn(u"Nota", [&] {
    makeNew();
    here.faults.failNext("Recordset.Delete", dao::failure::referenced);
    expectQuestion(u"¿Desea guardar la nueva nota?", no);
    expectBox(u"Imposible eliminar el dato ya que está siendo utilizado por otras fichas.", 64, u"Borrar");
    EXPECT_TRUE(ask(u"Save"));
    EXPECT_EQ(instance.EstadoFicha, limpia);
    EXPECT_EQ(list->rows.size(), 3u);
    EXPECT_EQ(standsOn(), 502);
    EXPECT_TRUE(form().Visible());
  });
}

TEST_F(SaveQuestion, cancelled_everything_stays_and_the_card_takes_the_focus) {
  for (const std::int32_t state : {nueva, modificada}) {
    openOn(u"Llamada", [&] {
      change({{u"txtNotas", u"Nuevo texto"}});
      instance.EstadoFicha = state;
      desk.windows.clear();
      form().toolbars().tool(u"ID_Guardar")->setEnabled(true);
      expectQuestion(state == nueva ? u"¿Desea guardar la nueva llamada?"
                                    : u"¿Desea guardar los cambios realizados en la llamada?",
                     cancel);
      EXPECT_FALSE(ask(u"Move"));
      EXPECT_EQ(instance.EstadoFicha, state);
      EXPECT_EQ(card(u"txtNotas"), u"Nuevo texto");
      EXPECT_EQ(crs().updates, 0);
      EXPECT_EQ(desk.windows, std::vector<Text>{u"frmLlamada activate"});
      EXPECT_TRUE(form().Visible());
      EXPECT_TRUE(enabled(u"ID_Guardar"));
      EXPECT_TRUE(here.screen.pointers.empty());
    });
  }
}

TEST_F(SaveQuestion, a_list_that_has_run_out_hides_the_card_after_any_answer_but_a_move) {
  struct {
    TextView action;
    int answer;
    bool result, visible;
  } const cases[] = {
      {u"Save", no, true, false},
      {u"UnLoad", no, true, false},
      {u"Move", no, true, true},
      {u"Save", cancel, false, false},
  };
  for (const auto& expected : cases) {
    openOn(u"Nota", [&] {
      change({});
      expectQuestion(u"¿Desea guardar los cambios realizados en la nota?", expected.answer).whileUp(runOut());
      EXPECT_EQ(ask(expected.action), expected.result);
      EXPECT_EQ(form().Visible(), expected.visible);
      EXPECT_EQ(instance.EstadoFicha, limpia);
    });
  }
}

}  // namespace
}  // namespace ovalia
