#include "cards/EditTracking.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/cards/TrackedCard.h"

namespace ovalia {
namespace {

using EnteringControls = kit::TrackedCard;

// The tracking of a control that takes the focus.

TEST_F(EnteringControls, a_control_that_takes_the_focus_is_tracked_by_the_state_of_the_card) {
  struct Row {
    std::int32_t state;
    TextView before, after;
  };
  const std::vector<Row> rows = {
      {limpia, u"", HacerAlgo},           {limpia, HacerNada, HacerAlgo},
      {limpia, HacerAlgo, HacerAlgo},     {nueva, u"", u""},
      {nueva, HacerNada, HacerNada},      {nueva, HacerAlgo, HacerAlgo},
      {modificada, u"", HacerNada},       {modificada, HacerNada, HacerNada},
      {modificada, HacerAlgo, HacerAlgo}, {cargando, u"", HacerAlgo},
      {cargando, HacerNada, HacerAlgo},   {7, u"", HacerAlgo},
  };
  with(u"Nota", {}, [&] {
    for (const Row& row : rows) {
      control(u"txtAsunto").Tag = row.before;
      PrepararTag(row.state, control(u"txtAsunto"));
      EXPECT_EQ(tag(u"txtAsunto"), row.after) << row.state << " " << toUtf8(row.before);
    }
  });
}

TEST_F(EnteringControls, the_words_of_a_tag_are_these) {
  EXPECT_EQ(HacerAlgo, u"HacerAlgo");
  EXPECT_EQ(HacerNada, u"HacerNada");
}

TEST_F(EnteringControls, entering_a_text_box_selects_its_text_but_the_large_one_keeps_its_caret) {
  with(u"Nota", {}, [&] {
    focus(u"txtCategorias");
    const auto categories = form().as<forms::TextBox>(u"txtCategorias");
    EXPECT_EQ(categories->SelStart(), 0);
    EXPECT_EQ(categories->SelLength(), 15);
    focus(u"txtNotas");
    EXPECT_EQ(form().as<forms::TextBox>(u"txtNotas")->SelLength(), 0);
    EXPECT_EQ(tag(u"txtNotas"), HacerAlgo);
  });
}

TEST_F(EnteringControls, entering_a_control_that_is_no_text_box_selects_nothing) {
  with(u"Nota", {}, [&] {
    focus(u"cboAcceso");
    EXPECT_EQ(tag(u"cboAcceso"), HacerAlgo);
    EXPECT_FALSE(desk.told(u"cboAcceso", forms::Property::Selection));
  });
}

TEST_F(EnteringControls, text_is_selected_in_every_state) {
  with(u"Nota", {}, [&] {
    for (const std::int32_t state : {nueva, modificada, cargando}) {
      setState(state);
      form().as<forms::TextBox>(u"txtAsunto")->setSelection(3, 0);
      dNota_CogerFoco(instance, ref(u"txtAsunto"));
      EXPECT_EQ(form().as<forms::TextBox>(u"txtAsunto")->SelLength(), 18) << state;
    }
  });
}

// Pickers are compared when they are entered.

struct Entered {
  TextView tipo;
  TextView picker;
  TextView field;
};

constexpr Entered enteredPickers[] = {
    {u"Nota", u"dtpFechaAlta", u"FechaAlta"},        {u"Nota", u"dtpHoraAlta", u"FechaAlta"},
    {u"Anuncio", u"dtpFechaAlta", u"FechaAlta"},     {u"Anuncio", u"dtpHoraAlta", u"FechaAlta"},
    {u"Llamada", u"dtpFechaAlta", u"FechaAlta"},     {u"Llamada", u"dtpHoraAlta", u"FechaAlta"},
    {u"Visita", u"dtpFechaAlta", u"FechaAlta"},      {u"Visita", u"dtpHoraAlta", u"FechaAlta"},
    {u"Visita", u"dtpFechaFin", u"FechaFin"},        {u"Visita", u"dtpHoraFin", u"FechaFin"},
    {u"Anuncio", u"dtpFechaInicio", u"FechaInicio"}, {u"Anuncio", u"dtpFechaEnvio", u"FechaEnvio"},
    {u"Anuncio", u"dtpHoraEnvio", u"FechaEnvio"},
};

TEST_F(EnteringControls, entering_a_picker_that_shows_its_field_leaves_the_card_clean) {
  for (const Entered& row : enteredPickers) {
    with(row.tipo, {}, [&] {
      if (row.tipo == u"Visita" && row.field == u"FechaAlta") return;
      focus(row.picker);
      EXPECT_EQ(state(), limpia) << toUtf8(row.tipo) << " " << toUtf8(row.picker);
      EXPECT_EQ(tag(row.picker), HacerAlgo);
    });
  }
}

TEST_F(EnteringControls, entering_a_picker_whose_field_was_written_meanwhile_counts_as_a_change) {
  for (const Entered& row : enteredPickers) {
    with(row.tipo, {}, [&] {
      otherUser.writes(row.field, kit::on(2026, 1, 2, 3, 4, 5));
      focus(row.picker);
      EXPECT_EQ(state(), modificada) << toUtf8(row.tipo) << " " << toUtf8(row.picker);
      EXPECT_TRUE(enabled(u"ID_Guardar"));
    });
  }
}

TEST_F(EnteringControls, the_start_of_a_visit_is_held_against_the_day_it_was_written_down) {
  with(u"Visita", {}, [&] {
    focus(u"dtpFechaAlta");
    EXPECT_EQ(state(), modificada);
  });
  with(u"Visita", {{u"FechaAlta", kit::on(2026, 3, 10, 9, 30)}}, [&] {
    focus(u"dtpFechaAlta");
    EXPECT_EQ(state(), limpia);
  });
}

TEST_F(EnteringControls, entering_the_other_picker_of_a_note_compares_nothing) {
  with(u"Nota", {}, [&] {
    otherUser.writes(u"FechaAviso", kit::on(2026, 1, 2));
    focus(u"dtpFechaAviso");
    EXPECT_EQ(state(), limpia);
  });
}

TEST_F(EnteringControls, entering_the_sending_date_of_an_unsent_advertisement_counts_as_a_change) {
  with(u"Anuncio", {{u"FechaEnvio", Null}}, [&] {
    focus(u"dtpFechaEnvio");
    EXPECT_EQ(state(), modificada);
  });
}

TEST_F(EnteringControls, entering_a_picker_whose_field_is_null_counts_as_a_change) {
  with(u"Visita", {{u"FechaFin", Null}}, [&] {
    focus(u"dtpHoraFin");
    EXPECT_EQ(state(), modificada);
  });
  with(u"Anuncio", {{u"FechaInicio", Null}}, [&] {
    focus(u"dtpFechaInicio");
    EXPECT_EQ(state(), modificada);
  });
}

TEST_F(EnteringControls, entering_a_picker_at_exactly_midnight_counts_as_a_change) {
  with(u"Nota", {{u"FechaAlta", kit::on(2026, 3, 2)}}, [&] {
    focus(u"dtpFechaAlta");
    EXPECT_EQ(state(), modificada);
  });
  with(u"Anuncio", {{u"FechaInicio", kit::on(2026, 3, 6)}}, [&] {
    focus(u"dtpFechaInicio");
    EXPECT_EQ(state(), limpia) << "a date alone has no time in its text either";
  });
}

TEST_F(EnteringControls, an_untracked_picker_is_not_compared_on_entering) {
  with(u"Nota", {}, [&] {
    setState(modificada);
    focus(u"dtpFechaAlta");
    EXPECT_EQ(tag(u"dtpFechaAlta"), HacerNada);
    EXPECT_EQ(state(), modificada) << "it shows its field, and would clean the card";
  });
}

TEST_F(EnteringControls, a_picker_that_is_still_tracked_can_clean_a_changed_card_by_being_entered) {
  with(u"Nota", {}, [&] {
    focus(u"dtpFechaAlta");
    setState(modificada);
    dNota_CogerFoco(instance, ref(u"dtpFechaAlta"));
    EXPECT_EQ(state(), limpia);
  });
}

}  // namespace
}  // namespace ovalia
