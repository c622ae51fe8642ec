// Two users who save, in two processes.
#include "tests/host/TwoDesks.h"

namespace ovalia::host {
namespace {

class TwoDesksSaving : public TwoDesks {};

TEST_F(TwoDesksSaving, the_one_who_saves_second_is_refused_and_shown_what_the_first_wrote) {
  struct {
    std::string grid, table, key;
  } const kinds[] = {{"grdNota", "NotaIP", "IdNota"},
                     {"grdVisita", "VisitaIP", "IdVisita"},
                     {"grdAnuncio", "AnuncioIP", "IdAnuncio"},
                     {"grdLlamada", "LlamadaAIP", "IdLlamada"}};
  for (DeskProcess* desk : {&begona, &luis}) does(*desk, "property 1");
  for (const auto& kind : kinds) {
    const std::string shown = begona.answerTo("tell keys " + kind.grid).substr(3);
    const std::string first = shown.substr(0, shown.find(' '));
    const std::string opening = "open " + kind.grid + ' ' + first;
    const std::string card = begona.answerTo(opening);
    EXPECT_THAT(card, testing::StartsWith("card ")) << kind.grid;
    EXPECT_EQ(luis.answerTo(opening), card);
    does(begona, "type txtNotas Señal de 3.000 €⏎de Begoña");
    does(luis, "type txtNotas Llaves en portería⏎de Luis");
    does(luis, "tool ID_Guardar");
    EXPECT_EQ(begona.answerTo("tool ID_Guardar"), writtenByAnother);
    EXPECT_EQ(begona.answerTo("tell shown txtNotas"), "is Señal de 3.000 €⏎de Begoña");
    does(begona, "press Aceptar");
    EXPECT_EQ(begona.answerTo("tell shown txtNotas"), "is Llaves en portería⏎de Luis");
    EXPECT_EQ(begona.answerTo("tell caption"), "is " + card.substr(5));
    EXPECT_EQ(begona.answerTo("tell enabled ID_Guardar"), "is no");
    EXPECT_EQ(begona.answerTo("tell pointer"), "is 0");
    EXPECT_EQ(one("SELECT Notas FROM " + kind.table + " WHERE " + kind.key + " = " + first),
              "Llaves en portería\r\nde Luis");
    for (DeskProcess* desk : {&begona, &luis}) does(*desk, "close");
  }
}

TEST_F(TwoDesksSaving, the_refused_one_may_write_again_and_then_the_other_is_refused) {
  open(begona, 2);
  open(luis, 2);
  does(begona, "type txtNotas de Begoña");
  does(luis, "type txtNotas de Luis");
  does(luis, "tool ID_Guardar");
  EXPECT_EQ(begona.answerTo("tool ID_Guardar"), writtenByAnother);
  does(begona, "press Aceptar");
  does(begona, "type txtNotas otra vez de Begoña");
  waitForNextSecond();
  does(begona, "tool ID_Guardar");
  EXPECT_EQ(stored(2), "otra vez de Begoña");
  does(luis, "type txtAsunto Asunto de Luis");
  EXPECT_EQ(luis.answerTo("tool ID_Guardar"), writtenByAnother);
  does(luis, "press Aceptar");
  EXPECT_EQ(luis.answerTo("tell shown txtNotas"), "is otra vez de Begoña");
  EXPECT_EQ(luis.answerTo("tell shown txtAsunto"), "is Segunda");
  EXPECT_EQ(stored(2, "Asunto"), "Segunda");
  for (DeskProcess* desk : {&begona, &luis}) does(*desk, "close");
}

// The check is the save command's alone.
TEST_F(TwoDesksSaving, a_move_and_a_close_that_save_write_over_the_others_work_without_a_word) {
  for (const std::string leaving : {"key Ctrl+.", "close"}) {
    open(begona, 2);
    open(luis, 2);
    does(begona, "type txtNotas de Begoña, " + leaving);
    does(luis, "type txtAsunto Asunto de Luis");
    does(luis, "tool ID_Guardar");
    EXPECT_EQ(stored(2, "Asunto"), "Asunto de Luis");
    EXPECT_EQ(begona.answerTo(leaving), changedNote);
    does(begona, "press Sí");
    EXPECT_EQ(stored(2), "de Begoña, " + leaving);
    EXPECT_EQ(stored(2, "Asunto"), "Segunda");
    if (leaving != "close") does(begona, "close");
    does(luis, "close");
  }
}

TEST_F(TwoDesksSaving, a_move_that_does_not_save_leaves_the_others_work_and_coming_back_shows_it) {
  open(begona, 2);
  open(luis, 2);
  does(begona, "type txtNotas de Begoña");
  does(luis, "type txtNotas de Luis");
  does(luis, "tool ID_Guardar");
  EXPECT_EQ(begona.answerTo("tool ID_Siguiente"), changedNote);
  does(begona, "press No");
  does(begona, "tool ID_Anterior");
  EXPECT_EQ(begona.answerTo("tell shown txtNotas"), "is de Luis");
  EXPECT_EQ(stored(2), "de Luis");
  for (DeskProcess* desk : {&begona, &luis}) does(*desk, "close");
}

TEST_F(TwoDesksSaving, undoing_changes_shows_what_the_other_has_written_meanwhile) {
  open(begona, 2);
  open(luis, 2);
  does(begona, "type txtNotas de Begoña");
  does(luis, "type txtNotas de Luis");
  does(luis, "tool ID_Guardar");
  does(begona, "tool ID_DeshacerCambios");
  EXPECT_EQ(begona.answerTo("tell shown txtNotas"), "is de Luis");
  does(begona, "type txtNotas ahora Begoña");
  does(begona, "tool ID_Guardar");
  EXPECT_EQ(stored(2), "ahora Begoña");
  for (DeskProcess* desk : {&begona, &luis}) does(*desk, "close");
}

TEST_F(TwoDesksSaving, a_save_waits_for_one_that_is_under_way) {
  open(begona, 2);
  does(begona, "type txtNotas de Begoña");
  witness->Execute(u"BEGIN IMMEDIATE");
  witness->Execute(u"UPDATE NotaIP SET Notas = 'de otro' WHERE IdNota = " + toText(key(3)));
  begona.begins("tool ID_Guardar");
  EXPECT_FALSE(begona.answersWithin(500));
  witness->Execute(u"COMMIT");
  EXPECT_EQ(begona.answer(), "done");
  EXPECT_EQ(stored(2), "de Begoña");
  EXPECT_EQ(stored(3), "de otro");
  does(begona, "close");
}

}  // namespace
}  // namespace ovalia::host
