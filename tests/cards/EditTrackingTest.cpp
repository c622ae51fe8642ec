#include "cards/EditTracking.h"

#include <gtest/gtest.h>

#include <vector>

#include "tests/cards/TrackedCard.h"

namespace ovalia {
namespace {

using EditTracking = kit::TrackedCard;

// The comparison of a control that changes.

struct Edited {
  TextView tipo;
  TextView control;
  TextView field;
  Variant value;  // put into the control
  Variant same;   // of the field, for which the control shows no change
};

const std::vector<Edited>& editedControls() {
  static const std::vector<Edited> rows = {
      {u"Nota", u"txtAsunto", u"Asunto", u"Otro", u"Otro"},
      {u"Nota", u"dtpFechaAlta", u"FechaAlta", u"05/03/2026", kit::on(2026, 3, 5, 10, 15)},
      {u"Nota", u"dtpHoraAlta", u"FechaAlta", u"11:00:01", kit::on(2026, 3, 2, 11, 0, 1)},
      {u"Nota", u"cboUsuario", u"Usuario", u"Benito Gil", u"Benito Gil"},
      {u"Nota", u"txtCategorias", u"Categorias", u"Otra", u"Otra"},
      {u"Nota", u"txtNotas", u"Notas", u"Otro texto", u"Otro texto"},
      {u"Nota", u"cboAcceso", u"TipoAccNota", u"Correo", u"Correo"},
      {u"Nota", u"chkAvisoNota", u"Aviso", 0, false},
      {u"Nota", u"cboUsuarioAviso", u"UsuarioAviso", u"Ana Ruiz", u"Ana Ruiz"},
      {u"Nota", u"dtpFechaAviso", u"FechaAviso", u"05/03/2026", kit::on(2026, 3, 5)},
      {u"Visita", u"txtAsunto", u"Asunto", u"Otro", u"Otro"},
      {u"Visita", u"txtCliente", u"Cliente", u"Eva Núñez", u"Eva Núñez"},
      {u"Visita", u"txtUbicacion", u"Donde", u"Otro sitio", u"Otro sitio"},
      {u"Visita", u"dtpFechaAlta", u"FechaComienzo", u"09/03/2026", kit::on(2026, 3, 9, 9, 30)},
      {u"Visita", u"dtpHoraAlta", u"FechaComienzo", u"8:00:00", kit::on(2026, 3, 10, 8, 0)},
      {u"Visita", u"dtpFechaFin", u"FechaFin", u"11/03/2026", kit::on(2026, 3, 11, 10, 45)},
      {u"Visita", u"dtpHoraFin", u"FechaFin", u"12:00:00", kit::on(2026, 3, 10, 12, 0)},
      {u"Visita", u"cboUsuario", u"Usuario", u"Benito Gil", u"Benito Gil"},
      {u"Visita", u"cboComercial", u"IdComercial", u"Ana Ruiz", 1},
      {u"Visita", u"txtCategorias", u"Categorias", u"Otra", u"Otra"},
      {u"Visita", u"txtOtraAgencia", u"Agencia", u"Fincas López", u"Fincas López"},
      {u"Visita", u"txtNotas", u"Notas", u"Otro texto", u"Otro texto"},
      {u"Visita", u"cboAcceso", u"TipoAccNota", u"Correo", u"Correo"},
      {u"Visita", u"chkAviso", u"Aviso", 0, false},
      {u"Visita", u"chkConfirmada", u"Confirmada", 0, false},
      {u"Anuncio", u"txtDonde", u"Donde", u"Otro medio", u"Otro medio"},
      {u"Anuncio", u"txtNDias", u"NDias", u"7", std::uint8_t(7)},
      {u"Anuncio", u"dtpFechaAlta", u"FechaAlta", u"05/03/2026", kit::on(2026, 3, 5, 10, 15)},
      {u"Anuncio", u"dtpHoraAlta", u"FechaAlta", u"11:00:01", kit::on(2026, 3, 2, 11, 0, 1)},
      {u"Anuncio", u"dtpFechaInicio", u"FechaInicio", u"05/03/2026", kit::on(2026, 3, 5)},
      {u"Anuncio", u"dtpFechaEnvio", u"FechaEnvio", u"05/03/2026", kit::on(2026, 3, 5, 12, 0, 30)},
      {u"Anuncio", u"dtpHoraEnvio", u"FechaEnvio", u"13:00:00", kit::on(2026, 3, 4, 13, 0)},
      {u"Anuncio", u"chkEnviar", u"Enviar", 0, false},
      {u"Anuncio", u"cboUsuario", u"Usuario", u"Benito Gil", u"Benito Gil"},
      {u"Anuncio", u"txtCategorias", u"Categorias", u"Otra", u"Otra"},
      {u"Anuncio", u"txtNotas", u"Notas", u"Otro texto", u"Otro texto"},
      {u"Anuncio", u"cboAcceso", u"TipoAccNota", u"Correo", u"Correo"},
      {u"Llamada", u"dtpFechaAlta", u"FechaAlta", u"05/03/2026", kit::on(2026, 3, 5, 10, 15)},
      {u"Llamada", u"dtpHoraAlta", u"FechaAlta", u"11:00:01", kit::on(2026, 3, 2, 11, 0, 1)},
      {u"Llamada", u"cboUsuario", u"Usuario", u"Benito Gil", u"Benito Gil"},
      {u"Llamada", u"txtNotas", u"Notas", u"Otro texto", u"Otro texto"},
  };
  return rows;
}

TEST_F(EditTracking, a_change_to_another_value_than_the_fields_marks_the_card_as_changed) {
  for (const Edited& row : editedControls()) {
    with(row.tipo, {}, [&] {
      focus(row.control);
      track(row.control);
      control(row.control).setValue(row.value);
      EXPECT_EQ(state(), modificada) << toUtf8(row.tipo) << " " << toUtf8(row.control);
      EXPECT_TRUE(enabled(u"ID_Guardar") && enabled(u"ID_DeshacerCambios"));
    });
  }
}

TEST_F(EditTracking, a_change_to_the_fields_own_value_marks_the_card_as_clean) {
  for (const Edited& row : editedControls()) {
    with(row.tipo, {}, [&] {
      focus(row.control);
      track(row.control);
      setState(modificada);
      otherUser.writes(row.field, row.same);
      control(row.control).setValue(row.value);
      EXPECT_EQ(state(), limpia) << toUtf8(row.tipo) << " " << toUtf8(row.control);
      EXPECT_FALSE(enabled(u"ID_Guardar") || enabled(u"ID_DeshacerCambios"));
    });
  }
}

TEST_F(EditTracking, a_control_that_is_not_tracked_is_not_compared) {
  for (const Edited& row : editedControls()) {
    for (const TextView untracked : {TextView(u""), HacerNada}) {
      with(row.tipo, {}, [&] {
        focus(row.control);
        setState(limpia);
        control(row.control).Tag = untracked;
        control(row.control).setValue(row.value);
        EXPECT_EQ(state(), limpia) << toUtf8(row.tipo) << " " << toUtf8(row.control);
      });
    }
  }
}

TEST_F(EditTracking, a_ticked_box_counts_as_changed_even_against_true) {
  struct Row {
    TextView tipo, box, field;
  };
  const std::vector<Row> rows = {
      {u"Nota", u"chkAvisoNota", u"Aviso"},       {u"Visita", u"chkAviso", u"Aviso"},
      {u"Visita", u"chkRealizada", u"Realizada"}, {u"Visita", u"chkAnulada", u"Anulada"},
      {u"Anuncio", u"chkEnviar", u"Enviar"},
  };
  for (const Row& row : rows) {
    with(row.tipo, {{Text(row.field), false}}, [&] {
      otherUser.writes(row.field, true);
      user.ticks(row.box);
      EXPECT_EQ(state(), modificada) << toUtf8(row.box);
    });
  }
}

TEST_F(EditTracking, a_box_that_is_unticked_again_is_clean_again) {
  with(u"Visita", {}, [&] {
    user.ticks(u"chkRealizada");
    EXPECT_EQ(state(), modificada);
    user.unticks(u"chkRealizada");
    EXPECT_EQ(state(), limpia);
  });
}

TEST_F(EditTracking, a_trailing_blank_leaves_the_card_clean) {
  with(u"Nota", {}, [&] {
    user.types(u"txtAsunto", u"Llaves en portería ");
    EXPECT_EQ(state(), limpia);
  });
}

TEST_F(EditTracking, blanks_against_a_null_field_leave_the_card_clean) {
  with(u"Nota", {{u"Asunto", Null}}, [&] {
    user.types(u"txtAsunto", u"   ");
    EXPECT_EQ(state(), limpia);
    user.types(u"txtAsunto", u"x");
    EXPECT_EQ(state(), modificada);
    user.types(u"txtAsunto", u"");
    EXPECT_EQ(state(), limpia);
  });
}

TEST_F(EditTracking, the_number_of_days_set_back_cleans_the_card_and_text_that_is_no_number_does_not_fail) {
  with(u"Anuncio", {{u"NDias", std::uint8_t(5)}}, [&] {
    user.types(u"txtNDias", u"cinco");
    EXPECT_EQ(state(), modificada);
    user.types(u"txtNDias", u"5,0");
    EXPECT_EQ(state(), limpia);
  });
}

TEST_F(EditTracking, the_sending_date_unticked_against_a_null_field_is_still_a_change) {
  with(u"Anuncio", {}, [&] {
    focus(u"dtpFechaEnvio");
    otherUser.writes(u"FechaEnvio", Null);
    user.sets(u"dtpFechaEnvio", Null);
    EXPECT_EQ(state(), modificada) << "the hour is text enough";
    EXPECT_FALSE(enabled(u"dtpHoraEnvio"));
    user.sets(u"dtpFechaEnvio", u"05/03/2026");
    EXPECT_TRUE(enabled(u"dtpHoraEnvio"));
  });
}

TEST_F(EditTracking, a_picker_put_on_no_date_differs_from_a_field_without_one) {
  with(u"Visita", {}, [&] {
    focus(u"dtpFechaFin");
    track(u"dtpFechaFin");
    otherUser.writes(u"FechaFin", Date{});
    form().setFilling(true);
    control(u"dtpHoraFin").setValue(u"00:00:00");
    control(u"dtpFechaFin").setValue(u"30-12-99");
    form().setFilling(false);
    EXPECT_EQ(state(), modificada) << "the field is compared as nothing at all";
  });
}

TEST_F(EditTracking, pickers_are_joined_as_day_zero_with_hyphens_and_an_hour_without_its_day) {
  with(u"Visita", {}, [&] {
    list->columns.at(list->column(u"FechaFin")).type = dao::dbText;  // shows what it is compared with
    focus(u"dtpFechaFin");
    const auto joined = [&](TextView date, const Variant& hour) {
      track(u"dtpFechaFin");
      form().setFilling(true);
      control(u"dtpFechaFin").setValue(date);
      control(u"dtpHoraFin").setValue(hour);
      form().setFilling(false);
      track(u"dtpFechaFin");
      dNota_Cambio(instance, ref(u"dtpFechaFin"), u"FechaFin");
      return state() == limpia;
    };
    list->at(0, u"FechaFin") = u"30-12-99 0:00:00";
    EXPECT_TRUE(joined(u"30-12-99", u"00:00:00"));
    list->at(0, u"FechaFin") = u"10/03/2026 0:15:00";
    EXPECT_TRUE(joined(u"10/03/2026", kit::on(1899, 12, 31, 0, 15, 0))) << "an end past midnight";
    list->at(0, u"FechaFin") = u"30/12/1999 10:00:00";
    EXPECT_TRUE(joined(u"30/12/99", u"10:00:00")) << "a day of 1999";
  });
}

TEST_F(EditTracking, a_lead_time_is_always_a_change_against_a_date) {
  with(u"Visita", {}, [&] {
    user.types(u"cboTiempoAviso", u"30 minutos");
    EXPECT_EQ(state(), modificada);
    user.types(u"cboTiempoAviso", u"15 minutos");
    EXPECT_EQ(state(), modificada) << "the very words the field was shown with";
  });
}

TEST_F(EditTracking, fields_of_a_type_that_is_not_compared_keep_the_state_and_the_tools_follow_all_the_same) {
  with(u"Anuncio", {}, [&] {
    focus(u"txtNDias");
    list->columns.at(list->column(u"NDias")).type = dao::dbDouble;
    list->at(0, u"NDias") = 15.0;
    form().toolbars().tool(u"ID_Guardar")->setEnabled(true);
    user.types(u"txtNDias", u"99");
    EXPECT_EQ(state(), limpia);
    EXPECT_FALSE(enabled(u"ID_Guardar"));
  });
}

// Salespeople.

TEST_F(EditTracking, the_salesperson_is_compared_by_the_key_of_the_name) {
  for (const bool two : {false, true}) {
    nota.DosComerciales = two;
    with(u"Visita", {}, [&] {
      user.types(u"cboComercial", u"Ana Ruiz");
      EXPECT_EQ(database->opened.back(), u"SELECT IdUsuario FROM Usuario WHERE Nombre = 'Ana Ruiz'");
      EXPECT_EQ(state(), modificada);
      user.types(u"cboComercial", u"benito gil");
      EXPECT_EQ(state(), limpia) << "the database does not mind the case";
    });
  }
}

TEST_F(EditTracking, a_salesperson_that_nobody_is_has_the_key_zero) {
  with(u"Visita", {}, [&] {
    user.types(u"cboComercial", u"Nadie");
    EXPECT_EQ(state(), modificada);
    otherUser.writes(u"IdComercial", 0);
    user.types(u"cboComercial", u"Ninguno");
    EXPECT_EQ(state(), limpia);
  });
}

TEST_F(EditTracking, a_salespersons_name_is_quoted) {
  with(u"Visita", {}, [&] {
    user.types(u"cboComercial", u"O'Dea");
    EXPECT_EQ(database->opened.back(), u"SELECT IdUsuario FROM Usuario WHERE Nombre = 'O''Dea'");
  });
}

TEST_F(EditTracking, the_second_salespersons_name_is_held_against_a_key_and_always_differs) {
  nota.DosComerciales = true;
  with(u"Visita", {}, [&] {
    user.types(u"cboComercial2", u"Ana Ruiz");
    EXPECT_EQ(state(), modificada);
    user.types(u"cboComercial2", u"Carmen Soler");
    EXPECT_EQ(state(), modificada) << "the very name the record has";
  });
}

// States.

TEST_F(EditTracking, a_new_card_stays_new_whatever_is_typed_and_its_tools_stay) {
  with(u"Nota", {}, [&] {
    setState(nueva);
    control(u"txtAsunto").Tag = HacerAlgo;
    form().toolbars().tool(u"ID_Guardar")->setEnabled(true);
    form().toolbars().tool(u"ID_Primero")->setEnabled(true);
    user.types(u"txtAsunto", u"Otro");
    user.types(u"txtAsunto", u"Llaves en portería");
    user.types(u"txtNotas", u"Otro");
    EXPECT_EQ(state(), nueva);
    EXPECT_TRUE(enabled(u"ID_Guardar"));
    EXPECT_TRUE(enabled(u"ID_Primero")) << "a single record would have it off";
  });
}

TEST_F(EditTracking, while_a_card_is_filled_a_change_does_nothing_at_all) {
  with(u"Nota", {}, [&] {
    user.enters(u"chkAvisoNota");
    setState(cargando);
    control(u"chkAvisoNota").setValue(0);
    EXPECT_EQ(state(), cargando);
    for (const TextView companion : {u"dtpFechaAviso", u"lblA", u"cboUsuarioAviso"})
      EXPECT_TRUE(enabled(companion)) << toUtf8(companion);
  });
}

TEST_F(EditTracking, the_state_reflects_the_control_that_was_compared_last) {
  with(u"Nota", {}, [&] {
    user.types(u"txtAsunto", u"Otro");
    control(u"txtNotas").Tag = HacerAlgo;  // not by the protocol, which limits this
    user.types(u"txtNotas", u"Otro texto");
    user.types(u"txtNotas", u"Tiene prisa por vender.");
    EXPECT_EQ(state(), limpia);
    EXPECT_EQ(card(u"txtAsunto"), u"Otro");
  });
}

TEST_F(EditTracking, the_protocol_keeps_a_card_changed_when_another_control_is_set_back) {
  with(u"Nota", {}, [&] {
    user.types(u"txtAsunto", u"Otro");
    EXPECT_EQ(tag(u"txtAsunto"), HacerAlgo);
    user.types(u"txtNotas", u"Otro texto");
    EXPECT_EQ(tag(u"txtAsunto"), u"");
    EXPECT_EQ(tag(u"txtNotas"), HacerNada);
    user.types(u"txtNotas", u"Tiene prisa por vender.");
    EXPECT_EQ(state(), modificada);
    user.types(u"txtAsunto", u"Llaves en portería");
    EXPECT_EQ(state(), modificada) << "it no longer tracks either";
  });
}

TEST_F(EditTracking, a_text_set_back_in_the_control_that_was_changed_cleans_the_card) {
  with(u"Nota", {}, [&] {
    user.types(u"txtAsunto", u"Otro");
    EXPECT_EQ(state(), modificada);
    user.types(u"txtAsunto", u"Llaves en portería");
    EXPECT_EQ(state(), limpia);
    EXPECT_FALSE(enabled(u"ID_Guardar"));
  });
}

TEST_F(EditTracking, an_edit_leaves_the_tools_of_a_saved_record_as_they_are) {
  with(u"Nota", {}, [&] {
    user.enters(u"txtAsunto");
    for (const bool before : {true, false}) {
      for (const TextView tool : {u"ID_Imprimir", u"ID_Aniadir", u"ID_Borrar", u"ID_Buscar"})
        form().toolbars().tool(tool)->setEnabled(before);
      user.types(u"txtAsunto", before ? u"Otro" : u"Llaves en portería");
      EXPECT_EQ(state(), before ? modificada : limpia);
      for (const TextView tool : {u"ID_Imprimir", u"ID_Aniadir", u"ID_Borrar", u"ID_Buscar"})
        EXPECT_EQ(enabled(tool), before) << toUtf8(tool);
    }
  });
}

TEST_F(EditTracking, the_new_state_of_a_card_is_told_to_nobody_but_the_tools) {
  with(u"Nota", {}, [&] {
    EXPECT_EQ(NuevoEstado(instance, limpia, u"a", u"b"), modificada);
    EXPECT_EQ(NuevoEstado(instance, modificada, u"a", u"a "), limpia);
    EXPECT_EQ(NuevoEstado(instance, modificada, u"a", 1.5), modificada);
    EXPECT_EQ(NuevoEstado(instance, limpia, u"a", 1.5), limpia);
    EXPECT_EQ(state(), limpia);
  });
}

TEST_F(EditTracking, other_states_come_back_without_a_comparison_and_without_the_tools) {
  with(u"Nota", {}, [&] {
    desk.tools.clear();
    const auto gone = nota.crs->fields().item(u"Asunto");
    nota.crs->MoveNext();
    for (const std::int32_t other : {nueva, cargando, 7, -1})
      EXPECT_EQ(NuevoEstado(instance, other, u"a", gone), other) << "reading the field would fail";
    EXPECT_TRUE(desk.tools.empty());
    nota.crs->MoveFirst();
  });
}

}  // namespace
}  // namespace ovalia
