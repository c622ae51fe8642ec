#include "cards/Deletion.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <ostream>

#include "cards/Saving.h"
#include "tests/cards/DocumentedNotes.h"

namespace ovalia {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr TextView kinds[] = {u"Nota", u"Visita", u"Anuncio", u"Llamada"};

class Deletion : public kit::DocumentedNotes {
 protected:
  void expectRemaining(std::vector<std::int32_t> keys) { EXPECT_EQ(this->keys(), keys); }

  // The neighbour is shown as the record it is.
  void expectShown(std::int32_t key) {
    EXPECT_EQ(standsOn(), key);
    EXPECT_EQ(card(u"txtNotas"), u"Texto " + toText(key - 500));
    EXPECT_TRUE(kit::guiltyControls(instance).empty());
    EXPECT_TRUE(form().Visible());
    EXPECT_EQ(state(), limpia);
  }
};

// The question.

TEST_F(Deletion, asks_first_and_deletes_only_on_yes) {
  for (const int answer : {no, 2, 0}) {
    openOn(u"Nota", [&] {
      expectActiveCardQuestion(answer);
      Borrar(instance, true, u"");
      EXPECT_EQ(crs().deletes, 0);
      expectShown(502);
    });
  }
  openOn(u"Nota", [&] {
    expectActiveCardQuestion(yes);
    Borrar(instance, true, u"");
    expectRemaining({501, 503});
  });
}

TEST_F(Deletion, asks_nothing_where_it_is_told_not_to) {
  openOn(u"Nota", [&] {
    Borrar(instance, false, u"");
    expectRemaining({501, 503});
  });
}

TEST_F(Deletion, is_what_the_tool_does_after_asking) {
  for (const TextView kind : kinds) {
    openOn(kind, [&] {
      expectActiveCardQuestion(yes);
      user.clicks(u"ID_Borrar");
      expectRemaining({501, 503});
      expectShown(503);
    });
  }
}

// The neighbour.

TEST_F(Deletion, shows_the_next_row_and_behind_the_last_the_one_before) {
  struct {
    int row;
    std::int32_t neighbour;
    Text caption;
  } const cases[] = {{1, 502, u"1/2"}, {2, 503, u"2/2"}, {3, 502, u"2/2"}};
  for (const TextView kind : kinds) {
    for (const auto& expected : cases) {
      listOf(kind);
      open(expected.row, [&] {
        Borrar(instance, false, u"");
        EXPECT_EQ(list->rows.size(), 2u);
        expectShown(expected.neighbour);
        EXPECT_TRUE(caption().ends_with(expected.caption)) << toUtf8(caption());
      });
    }
  }
}

TEST_F(Deletion, of_the_only_row_hides_the_card_and_leaves_state_0) {
  for (const TextView kind : kinds) {
    for (const TextView action : {u"", u"Move", u"Save", u"UnLoad"}) {
      listOf(kind, 1);
      open(1, [&] {
        instance.EstadoFicha = modificada;
        Borrar(instance, false, action);
        EXPECT_THAT(list->rows, IsEmpty());
        EXPECT_TRUE(crs().isBOF() && crs().isEOF());
        EXPECT_EQ(crs().AbsolutePosition(), -1);
        EXPECT_FALSE(form().Visible());
        EXPECT_TRUE(form().loaded());
        EXPECT_EQ(state(), limpia);
      });
    }
  }
}

TEST_F(Deletion, while_the_card_closes_hides_it_and_goes_to_the_first_row) {
  for (const int row : {1, 2, 3}) {
    listOf(u"Nota");
    open(row, [&] {
      Borrar(instance, false, u"UnLoad");
      EXPECT_FALSE(form().Visible());
      EXPECT_EQ(standsOn(), row == 1 ? 502 : 501);
      EXPECT_EQ(card(u"txtNotas"), u"Texto " + toText(row)) << "not filled again";
      EXPECT_EQ(state(), limpia);
    });
  }
}

TEST_F(Deletion, drops_what_was_typed) {
  for (const std::int32_t any : {nueva, modificada}) {
    openOn(u"Nota", [&] {
      change({{u"txtNotas", u"Nuevo texto"}});
      instance.EstadoFicha = any;
      Borrar(instance, false, u"");
      expectShown(503);
      EXPECT_EQ(crs().updates, 0);
    });
  }
}

TEST_F(Deletion, drops_an_edit_that_a_failed_save_has_left_pending) {
  openOn(u"Nota", [&] {
    crs().Edit();
    crs().setValue(u"Notas", u"a medias");
    Borrar(instance, false, u"");
    EXPECT_FALSE(crs().editing());
    expectShown(503);
  });
}

TEST_F(Deletion, sets_the_tools_by_the_neighbour) {
  openOn(u"Nota", [&] {
    instance.EstadoFicha = modificada;
    for (const TextView id : {u"ID_Guardar", u"ID_DeshacerCambios"})
      form().toolbars().tool(id)->setEnabled(true);
    for (const TextView id : {u"ID_Buscar", u"ID_Imprimir"}) form().toolbars().tool(id)->setEnabled(false);
    Borrar(instance, false, u"");
    EXPECT_TRUE(enabled(u"ID_Buscar"));
    EXPECT_TRUE(enabled(u"ID_Imprimir"));
    EXPECT_FALSE(enabled(u"ID_Guardar"));
    EXPECT_FALSE(enabled(u"ID_DeshacerCambios"));
    EXPECT_TRUE(enabled(u"ID_Borrar"));
    EXPECT_TRUE(enabled(u"ID_Anterior"));
    EXPECT_FALSE(enabled(u"ID_Siguiente"));
    EXPECT_EQ(host.calls(*host.FichaInm, u"Ajuste_N_Notas"), 1);
  });
}

// Another annotation than the current one.

TEST_F(Deletion, of_a_given_annotation_shows_the_neighbour_of_the_current_one) {
  struct {
    int row;
    std::int32_t deleted, shown;
  } const cases[] = {{1, 503, 502}, {3, 501, 502}, {2, 501, 503}};
  for (const auto& expected : cases) {
    listOf(u"Nota");
    open(expected.row, [&] {
      BorrarUno(instance, expected.deleted, u"");
      EXPECT_THAT(keys(), testing::Not(testing::Contains(expected.deleted)));
      EXPECT_EQ(list->rows.size(), 2u);
      expectShown(expected.shown);
    });
  }
}

TEST_F(Deletion, of_the_annotation_right_after_the_current_one_hides_the_card_though_rows_remain) {
  openOn(u"Nota", [&] {
    BorrarUno(instance, 503, u"");
    expectRemaining({501, 502});
    EXPECT_FALSE(form().Visible());
    EXPECT_EQ(state(), limpia);
  });
}

TEST_F(Deletion, of_the_one_before_the_last_from_the_last_finds_nothing_to_show) {
  listOf(u"Nota");
  open(3, [&] {
    expectBox(u"La ficha acaba de ser borrada por otro usuario y\r\nno se volverá a visualizar.", 4144,
              u"Error");
    BorrarUno(instance, 502, u"");
    expectRemaining({501, 503});
    EXPECT_EQ(state(), limpia);
    EXPECT_EQ(crs().AbsolutePosition(), -1);
    crs().MoveFirst();
  });
}

TEST_F(Deletion, of_an_annotation_that_is_not_in_the_list_is_reported_and_deletes_no_other) {
  for (const int row : {1, 2, 3}) {
    listOf(u"Nota");
    open(row, [&] {
      instance.EstadoFicha = modificada;
      expectReport(u"BorrarUno de CNota", dao::failure::noCurrentRecord);
      BorrarUno(instance, 999, u"");
      expectRemaining({501, 502, 503});
      EXPECT_EQ(standsOn(), 500 + row);
      EXPECT_EQ(state(), modificada);
      EXPECT_TRUE(form().Visible());
    });
  }
}

TEST_F(Deletion, of_an_annotation_that_another_user_has_deleted_deletes_no_other) {
  openOn(u"Nota", [&] {
    list->vanish(0);
    expectReport(u"BorrarUno de CNota", dao::failure::noCurrentRecord);
    BorrarUno(instance, 501, u"");
    expectRemaining({502, 503});
    expectShown(502);
  });
}

// Where nothing is deleted.

TEST_F(Deletion, without_a_current_row_is_told) {
  for (const bool empty : {false, true}) {
    openOn(u"Nota", [&] {
      if (empty) {
        list->rows.clear();
        crs().Requery();
      } else {
        crs().MoveLast();
        crs().MoveNext();
      }
      const std::int32_t any = empty ? modificada : cargando;
      instance.EstadoFicha = any;
      expectBox(u"Error: No hay ningún registro activo.", 4144);
      Borrar(instance, false, u"");
      EXPECT_EQ(crs().deletes, 0);
      EXPECT_EQ(state(), any) << "a card that is being filled is told too";
      EXPECT_TRUE(form().Visible());
    });
  }
}

TEST_F(Deletion, while_the_card_is_being_filled_does_nothing) {
  openOn(u"Nota", [&] {
    instance.EstadoFicha = cargando;
    Borrar(instance, false, u"UnLoad");
    EXPECT_EQ(crs().deletes, 0);
    EXPECT_EQ(standsOn(), 502);
    EXPECT_EQ(state(), cargando);
    EXPECT_TRUE(form().Visible());
  });
}

TEST_F(Deletion, a_row_that_others_use_stays_with_its_card) {
  for (const TextView action : {u"", u"UnLoad"}) {
    openOn(u"Anuncio", [&] {
      change({{u"txtNotas", u"Nuevo texto"}});
      here.faults.failNext("Recordset.Delete", dao::failure::referenced);
      expectUsedElsewhere();
      Borrar(instance, false, action);
      expectRemaining({501, 502, 503});
      EXPECT_EQ(standsOn(), 502);
      EXPECT_EQ(card(u"txtNotas"), u"Nuevo texto");
      EXPECT_EQ(state(), modificada);
      EXPECT_TRUE(form().Visible());
    });
  }
}

// The attachments.

TEST_F(Deletion, one_attachment_is_asked_about_in_the_singular_and_goes_along) {
  documented({1, 1, 1});
  open(2, [&] {
    expectOneQuestion(yes);
    Borrar(instance, false, u"");
    expectRemaining({501, 503});
    expectShown(503);
    EXPECT_THAT(attachmentsOf(502), IsEmpty());
    EXPECT_THAT(here.shell.recycled, ElementsAre(fileOf(502, 0)));
    EXPECT_THAT(attachmentsOf(503), testing::SizeIs(1));
    EXPECT_TRUE(here.files.exists(fileOf(503, 0)));
  });
}

TEST_F(Deletion, several_attachments_are_asked_about_in_the_plural_and_go_from_the_last_to_the_first) {
  documented({0, 3, 0});
  open(2, [&] {
    expectSeveralQuestion(yes);
    Borrar(instance, false, u"");
    expectRemaining({501, 503});
    EXPECT_THAT(here.shell.recycled, ElementsAre(fileOf(502, 2), fileOf(502, 1), fileOf(502, 0)));
    EXPECT_THAT(attachmentsOf(502), IsEmpty());
    expectShown(503);
  });
}

TEST_F(Deletion, each_attachment_is_selected_before_it_goes) {
  documented({0, 2, 0});
  open(2, [&] {
    std::vector<Text> selected;
    for (const int nth : {1, 2})
      here.faults.onNth("Shell.recycle", nth, [&] {
        const auto documentList = form().as<forms::ListView>(u"LsvDocu");
        selected.push_back(documentList->item(documentList->selectedIndex()).key);
      });
    expectSeveralQuestion(yes);
    Borrar(instance, false, u"");
    EXPECT_THAT(selected, ElementsAre(nameOf(502, 1), nameOf(502, 0)));
  });
}

TEST_F(Deletion, with_the_tool_both_questions_come_in_turn) {
  documented({0, 1, 0});
  open(2, [&] {
    expectActiveCardQuestion(yes);
    expectOneQuestion(yes);
    user.clicks(u"ID_Borrar");
    expectRemaining({501, 503});
  });
}

TEST_F(Deletion, attachments_that_are_to_stay_keep_the_annotation) {
  for (const TextView action : {u"", u"Move", u"UnLoad"}) {
    documented({0, 2, 0});
    open(2, [&] {
      instance.EstadoFicha = modificada;
      expectSeveralQuestion(no);
      Borrar(instance, false, action);
      expectRemaining({501, 502, 503});
      EXPECT_EQ(standsOn(), 502);
      EXPECT_EQ(state(), modificada);
      EXPECT_TRUE(form().Visible());
      EXPECT_THAT(attachmentsOf(502), testing::SizeIs(2));
      EXPECT_THAT(here.shell.recycled, IsEmpty());
    });
  }
}

TEST_F(Deletion, the_first_attachment_that_cannot_go_keeps_the_rest_and_the_annotation) {
  documented({0, 3, 0});
  open(2, [&] {
    expectSeveralQuestion(yes);
    here.faults.failNth("Recordset.Update", 2, failure::permissionDenied);
    expectBox(u"El documento adjunto (" + fileOf(502, 1) +
                  u") está abierto en Word;\r\nciérrelo y vuelva a intentarlo.",
              48, u"Borrar");
    Borrar(instance, false, u"");
    expectRemaining({501, 502, 503});
    EXPECT_THAT(attachmentsOf(502), ElementsAre(nameOf(502, 0), nameOf(502, 1)));
    EXPECT_TRUE(here.files.exists(fileOf(502, 0)));
    EXPECT_EQ(standsOn(), 502);
    EXPECT_EQ(state(), limpia);
    EXPECT_TRUE(form().Visible());
  });
}

TEST_F(Deletion, of_a_row_that_others_use_its_attachments_are_gone_before_the_refusal) {
  documented({0, 2, 0});
  open(2, [&] {
    expectSeveralQuestion(yes);
    here.faults.failNext("Recordset.Delete", dao::failure::referenced);
    expectUsedElsewhere();
    Borrar(instance, false, u"");
    expectRemaining({501, 502, 503});
    EXPECT_EQ(standsOn(), 502);
    EXPECT_EQ(card(u"txtNotas"), u"Texto 2");
    EXPECT_EQ(state(), limpia);
    EXPECT_THAT(attachmentsOf(502), IsEmpty());
    EXPECT_THAT(here.shell.recycled, testing::SizeIs(2));
    EXPECT_EQ(at(2, u"NArchivos").toLong(), 0);
    EXPECT_FALSE(control(u"LsvDocu").Visible());
  });
}

TEST_F(Deletion, a_counter_below_the_number_of_rows_empties_the_list_and_the_annotation_goes) {
  documented({0, 3, 0});
  at(2, u"NArchivos") = 1;
  open(2, [&] {
    expectSeveralQuestion(yes);
    expectReport(u"SemiBorrar de CNota", failure::indexOutOfBounds);
    Borrar(instance, false, u"");
    expectRemaining({501, 503});
    EXPECT_THAT(attachmentsOf(502), ElementsAre(nameOf(502, 0), nameOf(502, 1))) << "left behind";
  });
}

TEST_F(Deletion, of_another_annotation_takes_the_files_of_the_one_on_the_card) {
  documented({1, 0, 1});
  open(1, [&] {
    expectOneQuestion(yes);
    expectBox(u"Problemas al borra en Archivo.");
    BorrarUno(instance, 503, u"");
    expectRemaining({501, 502});
    EXPECT_THAT(here.shell.recycled, ElementsAre(fileOf(501, 0)));
    EXPECT_THAT(attachmentsOf(501), ElementsAre(nameOf(501, 0)));
    EXPECT_THAT(attachmentsOf(503), ElementsAre(nameOf(503, 0)));
  });
}

TEST_F(Deletion, a_declined_new_annotation_with_attachments_is_asked_about_all_the_same) {
  documented({0, 1, 0});
  open(2, [&] {
    instance.EstadoFicha = nueva;
    expectOneQuestion(no);
    Borrar(instance, false, u"");
    EXPECT_EQ(state(), nueva);
    expectRemaining({501, 502, 503});
  });
}

TEST_F(Deletion, undoing_a_new_annotation_with_attachments_asks_about_them_too) {
  documented({0, 2, 0});
  open(2, [&] {
    instance.EstadoFicha = nueva;
    expectSeveralQuestion(no);
    expectBox(u"La ficha no ha podido ser borrada.", 48);
    DeshacerCambios(instance);
    EXPECT_EQ(state(), nueva);
    expectRemaining({501, 502, 503});
    EXPECT_THAT(attachmentsOf(502), testing::SizeIs(2));
    expectSeveralQuestion(yes);
    DeshacerCambios(instance);
    expectRemaining({501, 503});
    EXPECT_THAT(attachmentsOf(502), IsEmpty());
    expectShown(503);
  });
}

// The steps by themselves.

TEST_F(Deletion, the_first_step_says_whether_the_annotation_may_go) {
  documented({0, 1, 0});
  open(1, [&] { EXPECT_TRUE(SemiBorrar(instance, 501)) << "nothing to ask about"; });
  open(2, [&] {
    expectOneQuestion(no);
    EXPECT_FALSE(SemiBorrar(instance, 502));
    expectOneQuestion(yes);
    EXPECT_TRUE(SemiBorrar(instance, 502));
    expectRemaining({501, 502, 503});
    EXPECT_THAT(attachmentsOf(502), IsEmpty());
  });
}

TEST_F(Deletion, the_last_step_does_nothing) {
  openOn(u"Nota", [&] {
    const int before = here.faults.visits("");
    AfterBorrar(instance, 502);
    EXPECT_EQ(here.faults.visits(""), before);
  });
}

TEST_F(Deletion, without_a_card_the_row_goes_and_the_first_step_is_reported) {
  listOf(u"Nota");
  standOn(2);
  expectReport(u"SemiBorrar de CNota", failure::objectNotSet);
  expectReport(u"RefrescoFicha de CNota", failure::objectNotSet);
  BorrarUno(instance, -1, u"");
  expectRemaining({501, 503});
  EXPECT_EQ(standsOn(), 503);
  EXPECT_EQ(state(), limpia);
}

TEST_F(Deletion, without_a_list_is_reported) {
  expectReport(u"BorrarUno de CNota", failure::objectNotSet);
  Borrar(instance, false, u"");
}

}  // namespace
}  // namespace ovalia
