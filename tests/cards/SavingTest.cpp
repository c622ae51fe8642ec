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

  // A new annotation: its row is there, the card is blank.
  void makeNew() { instance.EstadoFicha = nueva; }
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

TEST_F(Saving, every_command_that_would_leave_the_card_offers_an_unknown_access_type_to_the_host_and_stops) {
  struct {
    TextView group, id;
  } const commands[] = {{u"Fichas", u"ID_Guardar"},       {u"Archivo", u"ID_Salir"},
                        {u"Navegacion", u"ID_Primero"},   {u"Navegacion", u"ID_Anterior"},
                        {u"Navegacion", u"ID_Siguiente"}, {u"Navegacion", u"ID_Ultimo"}};
  for (const auto& chosen : commands) {
    openOn(u"Nota", [&] {
      ASSERT_TRUE(user.enters(u"cboAcceso"));
      change({{u"cboAcceso", u"Carta"}});
      command(chosen.group, chosen.id);
      EXPECT_EQ(host.events, std::vector<Text>{u"ChkTipoAccNota(Carta)"}) << toUtf8(chosen.id);
      EXPECT_TRUE(form().Visible());
      EXPECT_EQ(standsOn(), 502);
      EXPECT_EQ(crs().updates, 0);
      EXPECT_EQ(state(), modificada);
    });
  }
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

TEST_F(Saving, asked_to_ask_and_answered_no_the_control_goes_on_being_tracked) {
  openOn(u"Nota", [&] {
    change({{u"txtNotas", u"Nuevo texto"}});
    control(u"txtNotas").Tag = HacerNada;
    expectQuestion(u"¿Desea guardar los cambios realizados en la nota?", no);
    Guardar(instance, u"Preguntar");
    EXPECT_EQ(crs().updates, 0);
    EXPECT_EQ(instance.EstadoFicha, limpia);
    EXPECT_EQ(tag(u"txtNotas"), HacerAlgo);
  });
}

TEST_F(Saving, a_save_that_does_not_come_to_pass_leaves_the_tracking) {
  openOn(u"Nota", [&] {
    change({{u"txtNotas", u"Nuevo texto"}});
    control(u"txtNotas").Tag = HacerNada;
    expectQuestion(u"¿Desea guardar los cambios realizados en la nota?", cancel);
    Guardar(instance, u"Preguntar");
    EXPECT_EQ(tag(u"txtNotas"), HacerNada);
  });
}

TEST_F(Saving, the_control_with_the_focus_is_checked_and_no_other) {
  openOn(u"Visita", [&] {
    change({{u"cboComercial", u"Nadie"}, {u"txtNotas", u"  Nuevo texto "}, {u"txtAsunto", u" Otro "}});
    Guardar(instance, u"NoPreguntar");
    EXPECT_TRUE(host.events.empty());
    EXPECT_EQ(at(2, u"Notas").text(), u"Nuevo texto");
    EXPECT_EQ(at(2, u"Asunto").text(), u" Otro ");
    EXPECT_TRUE(at(2, u"IdComercial").isNull());
  });
}

TEST_F(Saving, a_card_that_shows_another_version_or_the_record_again_has_the_saving_tools_off_alone) {
  for (const bool stale : {true, false}) {
    openOn(u"Nota", [&] {
      change({{u"txtNotas", u"Nuevo texto"}});
      form().toolbars().tool(u"ID_Guardar")->setEnabled(true);
      form().toolbars().tool(u"ID_Imprimir")->setEnabled(false);
      if (stale) {
        anotherWrites();
        expectBox(staleText, 48, u"Guardar");
        Guardar(instance, u"NoPreguntar");
      } else {
        DeshacerCambios(instance);
      }
      EXPECT_FALSE(enabled(u"ID_Guardar"));
      EXPECT_FALSE(enabled(u"ID_Imprimir"));
      EXPECT_EQ(tag(u"txtNotas"), HacerAlgo);
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

TEST_F(Saving, undo_of_a_new_annotation_deletes_its_row_and_shows_the_neighbour) {
  openOn(u"Nota", [&] {
    makeNew();
    DeshacerCambios(instance);
    EXPECT_EQ(instance.EstadoFicha, limpia);
    EXPECT_EQ(list->rows.size(), 2u);
    EXPECT_EQ(standsOn(), 503);
    EXPECT_EQ(card(u"txtNotas"), u"Texto 3");
  });
}

TEST_F(Saving, undo_tells_the_user_of_a_new_row_that_could_not_be_deleted) {
  openOn(u"Nota", [&] {
    makeNew();
    here.faults.failNext("Recordset.Delete", dao::failure::referenced);
    expectBox(u"Imposible eliminar el dato ya que está siendo utilizado por otras fichas.", 64, u"Borrar");
    expectBox(u"La ficha no ha podido ser borrada.", 48);
    DeshacerCambios(instance);
    EXPECT_EQ(instance.EstadoFicha, nueva);
    EXPECT_EQ(standsOn(), 502);
    EXPECT_EQ(list->rows.size(), 3u);
    EXPECT_TRUE(form().Visible());
  });
}

}  // namespace
}  // namespace ovalia
