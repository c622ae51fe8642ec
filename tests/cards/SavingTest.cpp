#include "cards/Saving.h"

#include <gtest/gtest.h>

#include "cards/EditTracking.h"
#include "tests/cardkit/OpenCard.h"

namespace ovalia {
namespace {

using kit::allKinds;

const Text staleText =
    u"La ficha acaba de ser modificada por otro usuario.\r\n"
    u"Sus cambios son cancelados y se visualiza la última modificación.";

class Saving : public kit::OpenCardTest {
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

// The save command.

TEST_F(Saving, a_clean_card_is_left_alone) {
  openOn(u"Nota", [&] {
    anotherWrites();
    Guardar(instance, u"NoPreguntar");
    EXPECT_EQ(crs().updates, 0);
    EXPECT_EQ(instance.EstadoFicha, limpia);
    EXPECT_EQ(card(u"txtNotas"), u"Texto 2");
  });
}

TEST_F(Saving, a_card_that_is_being_filled_is_left_alone) {
  openOn(u"Nota", [&] {
    put(u"txtNotas", u"Nuevo texto");
    instance.EstadoFicha = cargando;
    Guardar(instance, u"NoPreguntar");
    EXPECT_EQ(crs().updates, 0);
    EXPECT_EQ(instance.EstadoFicha, cargando);
  });
}

TEST_F(Saving, a_changed_card_is_written_without_a_question_and_is_clean_afterwards) {
  for (const TextView kind : allKinds) {
    openOn(kind, [&] {
      change({{u"txtNotas", u"Nuevo texto"}});
      Guardar(instance, u"NoPreguntar");
      EXPECT_EQ(at(2, u"Notas").text(), u"Nuevo texto");
      EXPECT_EQ(crs().updates, 1);
      EXPECT_FALSE(crs().editing());
      EXPECT_EQ(instance.EstadoFicha, limpia);
      EXPECT_EQ(here.screen.pointers, (std::vector<int>{11, 0}));
    });
  }
}

TEST_F(Saving, the_card_remembers_the_stamp_it_has_written) {
  openOn(u"Nota", [&] {
    EXPECT_EQ(card(u"lblActualizacion"), u"05/03/2026 18:30:15");
    change({{u"txtNotas", u"Nuevo texto"}});
    Guardar(instance, u"NoPreguntar");
    EXPECT_EQ(at(2, u"FechaActualizacion").text(), u"09/03/2026 10:20:30");
    EXPECT_EQ(card(u"lblActualizacion"), u"09/03/2026 10:20:30");
  });
}

TEST_F(Saving, a_second_save_after_a_further_edit_is_not_taken_for_another_users_write) {
  openOn(u"Nota", [&] {
    for (const TextView text : {u"Uno", u"Dos"}) {
      here.clock.time.second += 1;
      change({{u"txtNotas", text}});
      Guardar(instance, u"NoPreguntar");
      EXPECT_EQ(at(2, u"Notas").text(), text);
    }
  });
}

TEST_F(Saving, the_saving_tools_go_off_and_the_record_tools_on) {
  openOn(u"Nota", [&] {
    change({{u"txtNotas", u"Nuevo texto"}});
    for (const TextView tool : {u"ID_Guardar", u"ID_DeshacerCambios"})
      form().toolbars().tool(tool)->setEnabled(true);
    form().toolbars().tool(u"ID_Imprimir")->setEnabled(false);
    Guardar(instance, u"NoPreguntar");
    EXPECT_FALSE(enabled(u"ID_Guardar"));
    EXPECT_FALSE(enabled(u"ID_DeshacerCambios"));
    EXPECT_TRUE(enabled(u"ID_Imprimir"));
  });
}

TEST_F(Saving, the_control_the_user_stays_in_goes_on_being_tracked) {
  openOn(u"Nota", [&] {
    change({{u"txtNotas", u"Nuevo texto"}});
    control(u"txtNotas").Tag = HacerNada;
    Guardar(instance, u"NoPreguntar");
    EXPECT_EQ(control(u"txtNotas").Tag, u"HacerAlgo");
    form().as<forms::TextBox>(u"txtNotas")->userTypes(u"Más texto");
    EXPECT_EQ(instance.EstadoFicha, modificada);
  });
}

TEST_F(Saving, a_changed_card_that_another_user_has_written_meanwhile_shows_that_version_instead) {
  for (const TextView kind : allKinds) {
    openOn(kind, [&] {
      change({{u"txtNotas", u"Nuevo texto"}});
      anotherWrites();
      expectBox(staleText, 48, u"Guardar");
      Guardar(instance, u"NoPreguntar");
      EXPECT_EQ(card(u"txtNotas"), u"De otro");
      EXPECT_EQ(at(2, u"Notas").text(), u"De otro");
      EXPECT_EQ(card(u"lblActualizacion"), u"09/03/2026 10:00:00");
      EXPECT_EQ(crs().updates, 0);
      EXPECT_EQ(instance.EstadoFicha, limpia);
    });
  }
}

TEST_F(Saving, writes_within_one_second_are_not_noticed) {
  openOn(u"Nota", [&] {
    change({{u"txtNotas", u"Nuevo texto"}});
    at(2, u"Notas") = u"De otro";
    Guardar(instance, u"NoPreguntar");
    EXPECT_EQ(at(2, u"Notas").text(), u"Nuevo texto");
  });
}

TEST_F(Saving, a_row_without_a_stamp_agrees_with_an_empty_label) {
  listOf(u"Nota");
  at(2, u"FechaActualizacion") = Null;
  open(2, [&] {
    EXPECT_EQ(card(u"lblActualizacion"), u"");
    change({{u"txtNotas", u"Nuevo texto"}});
    Guardar(instance, u"NoPreguntar");
    EXPECT_EQ(at(2, u"Notas").text(), u"Nuevo texto");
  });
}

TEST_F(Saving, a_new_annotation_is_saved_without_looking_for_another_users_write) {
  openOn(u"Nota", [&] {
    put(u"txtNotas", u"Nuevo texto");
    put(u"lblActualizacion", u"");
    makeNew();
    anotherWrites();
    Guardar(instance, u"NoPreguntar");
    EXPECT_EQ(at(2, u"Notas").text(), u"Nuevo texto");
    EXPECT_EQ(instance.EstadoFicha, limpia);
  });
}

TEST_F(Saving, a_value_that_is_refused_keeps_the_card_from_being_written) {
  openOn(u"Anuncio", [&] {
    ASSERT_TRUE(user.enters(u"txtNDias"));
    change({{u"txtNDias", u"300"}});
    expectBox(u"Introduzca un número entre 0 y 255.", 48, u"Error");
    Guardar(instance, u"NoPreguntar");
    EXPECT_EQ(crs().updates, 0);
    EXPECT_FALSE(crs().editing());
    EXPECT_EQ(at(2, u"NDias").text(), u"15");
    EXPECT_EQ(instance.EstadoFicha, modificada);
    EXPECT_EQ(card(u"txtNDias"), u"300");
  });
}

TEST_F(Saving, asked_to_ask_the_command_asks) {
  openOn(u"Nota", [&] {
    change({{u"txtNotas", u"Nuevo texto"}});
    expectQuestion(u"¿Desea guardar los cambios realizados en la nota?", cancel);
    Guardar(instance, u"Preguntar");
    EXPECT_EQ(crs().updates, 0);
    EXPECT_EQ(instance.EstadoFicha, modificada);
  });
}

// The question.

struct Question {
  TextView tipo, fresh, changed;
};

TEST_F(Saving, the_question_is_worded_by_kind_and_state) {
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

TEST_F(Saving, a_kind_that_is_none_of_the_four_is_called_a_card) {
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

TEST_F(Saving, a_clean_card_lets_the_caller_go_on_without_a_question) {
  openOn(u"Nota", [&] {
    EXPECT_TRUE(ask(u"Move"));
    EXPECT_TRUE(AvisoCambio(instance, u"NoPreguntar", u"Save"));
    EXPECT_EQ(crs().updates, 0);
    EXPECT_TRUE(here.screen.pointers.empty());
  });
}

TEST_F(Saving, a_card_that_is_being_filled_lets_the_caller_go_on_without_a_question) {
  openOn(u"Nota", [&] {
    instance.EstadoFicha = cargando;
    EXPECT_TRUE(ask(u"UnLoad"));
    EXPECT_EQ(instance.EstadoFicha, cargando);
    EXPECT_EQ(crs().updates, 0);
  });
}

TEST_F(Saving, any_other_word_than_preguntar_saves_without_asking) {
  for (const TextView word : {u"NoPreguntar", u"preguntar", u""}) {
    openOn(u"Nota", [&] {
      change({{u"txtNotas", u"Nuevo texto"}});
      EXPECT_TRUE(AvisoCambio(instance, word, u"Save"));
      EXPECT_EQ(at(2, u"Notas").text(), u"Nuevo texto");
    });
  }
}

TEST_F(Saving, answered_yes_the_card_is_written_and_the_title_composed_again) {
  for (const std::int32_t state : {nueva, modificada}) {
    openOn(u"Nota", [&] {
      change({{u"txtNotas", u"Nuevo texto"}});
      instance.EstadoFicha = state;
      form().setCaption(u"Otro título");
      host.FichaInm->journal.clear();
      expectQuestion(state == nueva ? u"¿Desea guardar la nueva nota?"
                                    : u"¿Desea guardar los cambios realizados en la nota?",
                     yes);
      EXPECT_TRUE(ask(u"UnLoad"));
      EXPECT_EQ(at(2, u"Notas").text(), u"Nuevo texto");
      EXPECT_EQ(instance.EstadoFicha, limpia);
      EXPECT_EQ(form().Caption(), u"Inmueble 120 - Nota: 2/3");
      EXPECT_EQ(host.FichaInm->journal, std::vector<Text>{u"Ajuste_N_Notas()"});
      EXPECT_EQ(here.screen.pointers, (std::vector<int>{11, 0}));
    });
  }
}

TEST_F(Saving, answered_yes_it_saves_over_another_users_write_without_a_word) {
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

TEST_F(Saving, a_save_leaves_another_users_count_of_documents_alone) {
  openOn(u"Nota", [&] {
    change({{u"txtNotas", u"Nuevo texto"}});
    at(2, u"NArchivos") = std::int32_t(4);
    EXPECT_TRUE(AvisoCambio(instance, u"NoPreguntar", u"Save"));
    EXPECT_EQ(at(2, u"NArchivos").toLong(), 4);
  });
}

TEST_F(Saving, answered_no_a_changed_card_is_clean_but_not_filled_again) {
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

TEST_F(Saving, answered_no_the_tools_follow_unless_the_caller_moves_on) {
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

TEST_F(Saving, answered_no_a_new_card_lets_the_caller_go_on) {
  openOn(u"Nota", [&] {
    makeNew();
    expectQuestion(u"¿Desea guardar la nueva nota?", no);
    EXPECT_TRUE(ask(u"Save"));
    EXPECT_EQ(instance.EstadoFicha, limpia);
    EXPECT_EQ(crs().updates, 0);
  });
}

TEST_F(Saving, cancelled_everything_stays_and_the_card_takes_the_focus) {
  for (const std::int32_t state : {nueva, modificada}) {
    openOn(u"Llamada", [&] {
      change({{u"txtNotas", u"Nuevo texto"}});
      instance.EstadoFicha = state;
      desk.windows.clear();
      expectQuestion(state == nueva ? u"¿Desea guardar la nueva llamada?"
                                    : u"¿Desea guardar los cambios realizados en la llamada?",
                     cancel);
      EXPECT_FALSE(ask(u"Move"));
      EXPECT_EQ(instance.EstadoFicha, state);
      EXPECT_EQ(card(u"txtNotas"), u"Nuevo texto");
      EXPECT_EQ(crs().updates, 0);
      EXPECT_EQ(desk.windows, std::vector<Text>{u"frmLlamada activate"});
      EXPECT_TRUE(form().Visible());
      EXPECT_TRUE(here.screen.pointers.empty());
    });
  }
}

TEST_F(Saving, a_list_that_has_run_out_hides_the_card_after_any_answer_but_a_move) {
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

TEST_F(Saving, a_hook_before_the_write_lets_every_card_through) { EXPECT_TRUE(Preguardar()); }

// The undo command.

TEST_F(Saving, undo_shows_the_record_again_without_a_question) {
  for (const TextView kind : allKinds) {
    openOn(kind, [&] {
      change({{u"txtNotas", u"Nuevo texto"}});
      anotherWrites();
      DeshacerCambios(instance);
      EXPECT_EQ(card(u"txtNotas"), u"De otro");
      EXPECT_EQ(instance.EstadoFicha, limpia);
      EXPECT_EQ(crs().updates, 0);
      EXPECT_TRUE(form().Visible());
    });
  }
}

TEST_F(Saving, undo_on_an_empty_list_hides_the_card_and_ends) {
  for (const std::int32_t state : {limpia, nueva, modificada, cargando}) {
    openOn(u"Nota", [&] {
      instance.EstadoFicha = state;
      put(u"txtNotas", u"Nuevo texto");
      list->rows.clear();
      crs().Requery();
      DeshacerCambios(instance);
      EXPECT_EQ(instance.EstadoFicha, limpia);
      EXPECT_FALSE(form().Visible());
      EXPECT_EQ(card(u"txtNotas"), u"Nuevo texto");
    });
  }
}

TEST_F(Saving, undo_tells_the_user_of_a_new_row_that_could_not_be_deleted) {
  openOn(u"Nota", [&] {
    makeNew();
    expectBox(u"La ficha no ha podido ser borrada.", 48);
    DeshacerCambios(instance);
    EXPECT_EQ(instance.EstadoFicha, nueva);
  });
}

}  // namespace
}  // namespace ovalia
