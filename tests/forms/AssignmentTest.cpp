#include <cmath>

#include "tests/forms/FormTest.h"

namespace ovalia::forms {
namespace {

// What an assignment from code raises, and what the same raises when the user does it.
class Assignment : public FormTest {
 protected:
  void visit(const std::function<void(Card&)>& script) {
    shown(frmVisita(), [&](Card& card) {
      for (const TextView name : {u"cboUsuario", u"cboAcceso"})
        for (const TextView entry : {u"Ana Ruiz", u"Benito Gil"}) card.as<ComboBox>(name)->AddItem(entry);
      script(card);
    });
  }
};

TEST_F(Assignment, of_a_text_raises_a_change_if_it_changes) {
  visit([&](Card& card) {
    TextBox& box = *card.as<TextBox>(u"txtUbicacion");
    EXPECT_EQ(card.raisedBy([&] { box.setText(u"Calle Mayor"); }), Names{u"Cambio Donde"});
    EXPECT_EQ(card.raisedBy([&] { box.setText(u"Calle Mayor"); }), Names{});
    EXPECT_EQ(card.raisedBy([&] { box.setText(u"calle mayor"); }), Names{u"Cambio Donde"});
    EXPECT_EQ(card.handedOver, Names{u"txtAsunto"}) << "the active control, not the one that changed";
    EXPECT_EQ(failureOf([&] { box.setValue(Null); }), failure::invalidUseOfNull);
    EXPECT_EQ(card.raisedBy([&] { user.types(u"txtUbicacion", u"x"); }),
              (Names{u"Validar", u"CogerFoco", u"Cambio Donde"}));
    EXPECT_EQ(card.raisedBy([&] { user.types(u"txtUbicacion", u"x"); }), Names{});
  });
}

TEST_F(Assignment, of_an_editable_combo_raises_a_change_and_no_click) {
  visit([&](Card& card) {
    ComboBox& combo = *card.as<ComboBox>(u"cboAcceso");
    EXPECT_EQ(card.raisedBy([&] { combo.setText(u"Cualquiera"); }), Names{u"Cambio TipoAccNota"});
    EXPECT_EQ(combo.ListIndex(), -1);
    EXPECT_EQ(card.raisedBy([&] { combo.setText(u"Cualquiera"); }), Names{});
    EXPECT_EQ(card.raisedBy([&] { combo.setText(u"Benito Gil"); }), Names{u"Cambio TipoAccNota"});
    EXPECT_EQ(combo.ListIndex(), 1);
  });
}

TEST_F(Assignment, of_a_drop_down_list_raises_a_click_if_the_selection_changes) {
  visit([&](Card& card) {
    ComboBox& combo = *card.as<ComboBox>(u"cboUsuario");
    EXPECT_EQ(card.raisedBy([&] { combo.setText(u"Benito Gil"); }), Names{u"Cambio Usuario"});
    EXPECT_EQ(card.raisedBy([&] { combo.setText(u"Benito Gil"); }), Names{});
    EXPECT_EQ(card.raisedBy([&] { combo.setText(u"BENITO GIL"); }), Names{});
    EXPECT_EQ(card.raisedBy([&] { combo.setText(u"ana ruiz"); }), Names{u"Cambio Usuario"});
    EXPECT_EQ(combo.text(), u"Ana Ruiz") << "the list's spelling";
  });
}

TEST_F(Assignment, of_a_name_that_the_list_lacks_fails_with_383_and_of_null_with_94) {
  visit([&](Card& card) {
    ComboBox& combo = *card.as<ComboBox>(u"cboUsuario");
    combo.setText(u"Ana Ruiz");
    EXPECT_EQ(failureOf([&] { combo.setText(u"Nadie"); }), failure::notInList);
    EXPECT_EQ(failureOf([&] { combo.setValue(Null); }), failure::invalidUseOfNull);
    EXPECT_EQ(failureOf([&] { combo.put(u"", u"Nadie"); }), failure::notInList);
    EXPECT_EQ(failureOf([&] { combo.put(u"Text", Null); }), failure::invalidUseOfNull);
    EXPECT_EQ(combo.text(), u"Ana Ruiz");
  });
}

TEST_F(Assignment, of_nothing_deselects_a_drop_down_list) {
  visit([&](Card& card) {
    ComboBox& combo = *card.as<ComboBox>(u"cboUsuario");
    combo.setText(u"Ana Ruiz");
    EXPECT_EQ(card.raisedBy([&] { combo.setText(u""); }), Names{u"Cambio Usuario"});
    EXPECT_EQ(combo.text(), u"");
    EXPECT_EQ(combo.ListIndex(), -1);
  });
}

TEST_F(Assignment, a_pick_raises_a_click_only_and_typing_a_change_only) {
  visit([&](Card& card) {
    user.enters(u"cboAcceso");
    EXPECT_EQ(card.raisedBy([&] { user.picks(u"cboAcceso", u"Ana Ruiz"); }), Names{u"Cambio TipoAccNota"});
    EXPECT_EQ(card.raisedBy([&] { user.types(u"cboAcceso", u"Ana"); }), Names{u"Cambio TipoAccNota"});
    EXPECT_EQ(card.raisedBy([&] { user.types(u"cboAcceso", u"Ana"); }), Names{});
    user.enters(u"cboUsuario");
    EXPECT_EQ(card.raisedBy([&] { user.picks(u"cboUsuario", u"Ana Ruiz"); }), Names{u"Cambio Usuario"});
    EXPECT_EQ(card.raisedBy([&] { card.as<ComboBox>(u"cboUsuario")->userTypes(u"Benito Gil"); }), Names{})
        << "nobody types in a drop-down list";
    EXPECT_EQ(card.as<ComboBox>(u"cboUsuario")->text(), u"Ana Ruiz");
  });
}

TEST_F(Assignment, of_the_entries_of_a_list_raises_nothing) {
  visit([&](Card& card) {
    ComboBox& combo = *card.as<ComboBox>(u"cboAcceso");
    combo.setText(u"Ana Ruiz");
    EXPECT_EQ(card.raisedBy([&] {
      combo.AddItem(u"Carmen");
      EXPECT_EQ(combo.NewIndex(), 2);
      combo.setItemData(2, 44);
      EXPECT_EQ(combo.entries()[2].data, 44);
      combo.Clear();
    }),
              Names{});
    EXPECT_TRUE(combo.entries().empty());
    EXPECT_EQ(combo.text(), u"Ana Ruiz") << "what was typed stays";
    EXPECT_EQ(failureOf([&] { combo.setItemData(0, 1); }), failure::badArgument);
    card.as<ComboBox>(u"cboUsuario")->setText(u"Ana Ruiz");
    card.as<ComboBox>(u"cboUsuario")->Clear();
    EXPECT_EQ(card.as<ComboBox>(u"cboUsuario")->text(), u"") << "a drop-down list has nothing else";
  });
}

TEST_F(Assignment, of_a_check_box_raises_a_click_if_it_changes) {
  visit([&](Card& card) {
    CheckBox& box = *card.as<CheckBox>(u"chkConfirmada");
    EXPECT_EQ(card.raisedBy([&] { box.setTick(1); }), Names{u"Cambio Confirmada"});
    EXPECT_EQ(card.raisedBy([&] { box.setValue(1); }), Names{});
    EXPECT_EQ(card.raisedBy([&] { box.put(u"Value", 0); }), Names{u"Cambio Confirmada"});
    EXPECT_EQ(failureOf([&] { box.setTick(2); }), failure::badArgument);
    user.enters(u"chkConfirmada");
    EXPECT_EQ(card.raisedBy([&] { user.ticks(u"chkConfirmada"); }), Names{u"Cambio Confirmada"});
    EXPECT_EQ(box.Value(), 1);
  });
}

TEST_F(Assignment, of_a_picker_raises_a_change_if_it_changes) {
  visit([&](Card& card) {
    DTPicker& picker = *card.as<DTPicker>(u"dtpFechaFin");
    EXPECT_EQ(card.raisedBy([&] { picker.setValue(u"12/03/26"); }), Names{u"Cambio FechaFin"});
    EXPECT_EQ(card.raisedBy([&] { picker.setValue(u"12/03/2026"); }), Names{}) << "the same day";
    EXPECT_EQ(failureOf([&] { picker.setValue(u"mañana"); }), failure::typeMismatch);
    EXPECT_EQ(failureOf([&] { picker.setValue(Null); }), failure::invalidUseOfNull) << "without a check box";
    user.enters(u"dtpFechaFin");
    EXPECT_EQ(card.raisedBy([&] { user.sets(u"dtpFechaFin", u"13/03/26"); }), Names{u"Cambio FechaFin"});
    EXPECT_EQ(card.raisedBy([&] { user.sets(u"dtpFechaFin", u"13/03/26"); }), Names{});
  });
}

TEST_F(Assignment, of_anything_that_is_no_value_raises_nothing) {
  visit([&](Card& card) {
    EXPECT_EQ(card.raisedBy([&] {
      for (const TextView name : {u"txtUbicacion", u"cboUsuario", u"chkAviso", u"dtpFechaFin", u"lblDonde"}) {
        Control& control = *card.control(name);
        control.setEnabled(false);
        control.setVisible(false);
        control.setWidth(100);
        control.setLeft(100);
        control.Tag = u"HacerAlgo";
      }
      card.control(u"lblDonde")->setValue(u"Otro");
      card.as<TextBox>(u"txtUbicacion")->setSelection(0, 0);
    }),
              Names{});
    EXPECT_EQ(card.control(u"lblDonde")->Caption(), u"Otro");
  });
}

TEST_F(Assignment, of_a_size_lays_the_form_out_anew_and_of_a_place_does_not) {
  const auto card = made(frmNota());
  TextBox& box = *card->as<TextBox>(u"txtAsunto");
  card->setWidth(7745);
  EXPECT_EQ(box.Width(), 6655);
  box.setWidth(1);
  card->setLeft(500);
  card->setTop(500);
  card->setWidth(7745);
  EXPECT_EQ(box.Width(), 1) << "nothing has changed in size";
  card->setWindowState(2);
  EXPECT_EQ(box.Width(), 6655);
}

// What a disabled or hidden control does for the user: nothing.

TEST_F(Assignment, the_user_can_do_nothing_to_a_control_that_is_disabled_or_hidden) {
  visit([&](Card& card) {
    for (const bool hide : {false, true}) {
      for (const TextView name : {u"txtUbicacion", u"cboAcceso", u"cboUsuario", u"chkAviso", u"dtpFechaFin",
                                  u"cmdCategorias", u"LsvDocu"}) {
        card.control(name)->setEnabled(hide);
        card.control(name)->setVisible(!hide);
      }
      EXPECT_EQ(card.raisedBy([&] {
        card.as<TextBox>(u"txtUbicacion")->userTypes(u"x");
        card.as<TextBox>(u"txtUbicacion")->userDoubleClicks();
        card.as<ComboBox>(u"cboAcceso")->userTypes(u"x");
        card.as<ComboBox>(u"cboUsuario")->userPicks(0);
        card.as<CheckBox>(u"chkAviso")->userToggles();
        card.as<DTPicker>(u"dtpFechaFin")->userSets(u"12/03/26");
        card.as<CommandButton>(u"cmdCategorias")->userClicks();
        card.as<ListView>(u"LsvDocu")->userClicks(0, 1);
        EXPECT_FALSE(card.userFocuses(*card.control(u"txtUbicacion")));
      }),
                Names{});
      EXPECT_EQ(card.ActiveControl()->Name(), u"txtAsunto");
      EXPECT_EQ(card.as<TextBox>(u"txtUbicacion")->text(), u"");
      EXPECT_EQ(card.as<CheckBox>(u"chkAviso")->Value(), 0);
    }
  });
}

TEST_F(Assignment, nobody_types_into_the_telephone_which_raises_nothing) {
  visit([&](Card& card) {
    EXPECT_EQ(card.raisedBy([&] {
      user.types(u"txtTfnoCliente", u"600");
      card.control(u"txtTfnoCliente")->setValue(u"600 111 222");
      user.enters(u"txtTfnoCliente");
    }),
              Names{u"Validar"})
        << "of the control that was left";
    EXPECT_EQ(card.as<TextBox>(u"txtTfnoCliente")->text(), u"600 111 222");
  });
}

TEST_F(Assignment, a_pick_outside_of_the_list_is_none) {
  visit([&](Card& card) {
    EXPECT_EQ(card.raisedBy([&] {
      card.as<ComboBox>(u"cboUsuario")->userPicks(2);
      card.as<ComboBox>(u"cboUsuario")->userPicks(-1);
    }),
              Names{});
  });
}

// Pickers.

class Picker : public Assignment {};

TEST_F(Picker, starts_on_day_zero_or_on_null_where_it_has_a_check_box) {
  const auto card = made(frmAnuncio());
  EXPECT_EQ(card->control(u"dtpFechaAlta")->value().toDouble(), 0);
  EXPECT_EQ(card->control(u"dtpHoraEnvio")->value().toDouble(), 0);
  EXPECT_TRUE(card->control(u"dtpFechaEnvio")->value().isNull());
}

TEST_F(Picker, reads_hyphens_as_the_empty_date_and_slashes_as_a_day) {
  const auto card = made(frmVisita());
  DTPicker& day = *card->as<DTPicker>(u"dtpFechaFin");
  day.setValue(u"30/12/99");
  EXPECT_EQ(day.Value().toDate(), dateFrom({1999, 12, 30, 0, 0, 0}).value());
  EXPECT_EQ(day.text(), u"30/12/1999");
  day.setValue(u"30-12-99");
  EXPECT_EQ(day.Value().toDouble(), 0);
  EXPECT_EQ(day.text(), u"30-12-99");
}

TEST_F(Picker, as_text_joins_to_the_moment_that_was_set) {
  const auto card = made(frmVisita());
  DTPicker& day = *card->as<DTPicker>(u"dtpFechaFin");
  DTPicker& hour = *card->as<DTPicker>(u"dtpHoraFin");
  EXPECT_EQ(join(day.text(), u" ", hour.text()), u"30-12-99 0:00:00");
  EXPECT_EQ(Variant(join(day.text(), u" ", hour.text())).toDate(), Date{0});
  day.setValue(u"07/03/05");
  hour.setValue(u"09:05:00");
  EXPECT_EQ(join(day.text(), u" ", hour.text()), u"07/03/2005 9:05:00");
}

TEST_F(Picker, of_a_time_keeps_its_day_and_writes_its_time_alone) {
  const auto card = made(frmVisita());
  DTPicker& hour = *card->as<DTPicker>(u"dtpHoraFin");
  hour.setValue(Date{1 + 0.25 / 24});
  EXPECT_EQ(hour.text(), u"0:15:00");
  EXPECT_GT(hour.Value().toDouble(), 1);
  hour.setValue(Date{0.25 / 24});
  EXPECT_LT(hour.Value().toDouble(), 1) << "the same time of another day is another value";
}

TEST_F(Picker, with_a_check_box_enables_the_hour_before_its_change_is_known) {
  shown(frmAnuncio(), [&](Card& card) {
    Control& hour = *card.control(u"dtpHoraEnvio");
    bool enabled = false;
    card.Cambio.connect([&](ControlRef&, Text&) { enabled = hour.Enabled(); });
    EXPECT_EQ(card.raisedBy([&] { card.control(u"dtpFechaEnvio")->setValue(u"04/03/26"); }),
              Names{u"Cambio FechaEnvio"});
    EXPECT_TRUE(enabled);
    hour.setValue(u"12:00:00");
    EXPECT_EQ(card.raisedBy([&] { user.sets(u"dtpFechaEnvio", Null); }),
              (Names{u"Validar", u"CogerFoco", u"Cambio FechaEnvio"}));
    EXPECT_FALSE(enabled);
    EXPECT_EQ(card.as<DTPicker>(u"dtpHoraEnvio")->text(), u"12:00:00") << "a disabled picker keeps its value";
    EXPECT_EQ(card.as<DTPicker>(u"dtpFechaEnvio")->text(), u"");
    EXPECT_EQ(card.raisedBy([&] { user.sets(u"dtpFechaEnvio", Null); }), Names{});
  });
}

TEST_F(Picker, no_other_picker_has_a_check_box) {
  for (const FormDesign* design : allCardDesigns())
    for (const ControlDesign& control : design->controls)
      EXPECT_EQ((control.style & nullable) != 0, control.name == u"dtpFechaEnvio") << toUtf8(control.name);
}

TEST_F(Picker, no_other_picker_enables_anything) {
  visit([&](Card& card) {
    card.control(u"dtpHoraAlta")->setEnabled(false);
    card.control(u"dtpFechaAlta")->setValue(u"04/03/26");
    EXPECT_FALSE(card.control(u"dtpHoraAlta")->Enabled());
  });
}

// What views draw.

TEST_F(Assignment, the_view_is_told_of_every_change_and_of_nothing_else) {
  visit([&](Card& card) {
    desk.changes.clear();
    card.control(u"txtUbicacion")->setValue(u"x");
    card.control(u"txtUbicacion")->setEnabled(false);
    card.control(u"txtUbicacion")->setEnabled(false);
    card.control(u"lblDonde")->setValue(u"Otro");
    card.control(u"cboAcceso")->setVisible(false);
    card.control(u"cboAcceso")->setLeft(4);
    card.as<ComboBox>(u"cboAcceso")->AddItem(u"x");
    card.as<Splitter>(u"splitDocumentos")->setPaneWidth(1000);
    const std::vector<std::pair<Text, Property>> expected{
        {u"txtUbicacion", Property::Value},       {u"txtUbicacion", Property::Enabled},
        {u"lblDonde", Property::Caption},         {u"cboAcceso", Property::Visible},
        {u"cboAcceso", Property::Place},          {u"cboAcceso", Property::List},
        {u"splitDocumentos", Property::PaneWidth}};
    EXPECT_EQ(desk.changes, expected);
  });
}

TEST_F(Assignment, a_text_is_selected_from_code_as_far_as_it_goes) {
  visit([&](Card& card) {
    TextBox& box = *card.as<TextBox>(u"txtUbicacion");
    box.setText(u"Mayor");
    box.setSelection(0, 99);
    EXPECT_EQ(box.SelLength(), 5);
    box.setSelection(-3, 2);
    EXPECT_EQ(box.SelStart(), 0);
    box.userSelects(2, 2);
    EXPECT_EQ(box.SelStart(), 2);
    box.put(u"SelStart", 1);
    EXPECT_EQ(box.SelLength(), 0) << "a new start drops the selection";
    box.put(u"SelLength", 3);
    EXPECT_EQ(box.get(u"SelLength").toLong(), 3);
    box.setText(u"Otra");
    EXPECT_EQ(box.SelLength(), 0);
  });
}

}  // namespace
}  // namespace ovalia::forms
