#include "tests/forms/FormTest.h"

namespace ovalia::forms {
namespace {

class Focus : public FormTest {};

TEST_F(Focus, leaving_a_control_checks_it_while_it_is_still_the_active_one) {
  shown(frmNota(), [&](Card& card) {
    EXPECT_EQ(card.raisedBy([&] { EXPECT_TRUE(user.enters(u"txtCategorias")); }),
              (Names{u"Validar", u"CogerFoco"}));
    EXPECT_EQ(card.handedOver, (Names{u"txtAsunto", u"txtCategorias"}));
  });
}

TEST_F(Focus, a_refused_check_keeps_it_and_nothing_else_happens) {
  for (const TextView name : {u"txtCategorias", u"cboAcceso", u"cboUsuario", u"dtpFechaAlta", u"txtNotas"})
    shown(frmNota(), [&](Card& card) {
      user.enters(name);
      card.refused = {Text(name)};
      EXPECT_EQ(card.raisedBy([&] { EXPECT_FALSE(user.enters(u"txtAsunto")); }), Names{u"Validar"});
      EXPECT_EQ(card.ActiveControl()->Name(), name);
      EXPECT_EQ(desk.focused.back(), name) << "the view is told to put it back";
      card.raisedBy([&] { user.types(u"txtAsunto", u"x"); });
      EXPECT_EQ(card.as<TextBox>(u"txtAsunto")->text(), u"") << "nor is anything typed elsewhere";
    });
}

TEST_F(Focus, a_check_box_loses_it_whatever_its_check_says) {
  shown(frmNota(), [&](Card& card) {
    user.enters(u"chkAvisoNota");
    card.refused = {u"chkAvisoNota"};
    EXPECT_EQ(card.raisedBy([&] { EXPECT_TRUE(user.enters(u"txtAsunto")); }),
              (Names{u"Validar", u"CogerFoco"}));
    EXPECT_EQ(card.handedOver, (Names{u"chkAvisoNota", u"txtAsunto"}))
        << "the box is the active one until then";
  });
}

TEST_F(Focus, controls_without_a_check_let_it_go) {
  shown(frmNota(), [&](Card& card) {
    user.enters(u"LsvDocu");
    EXPECT_EQ(card.raisedBy([&] { user.enters(u"txtAsunto"); }), Names{u"CogerFoco"});
  });
}

TEST_F(Focus, set_from_code_goes_the_same_way) {
  shown(frmNota(), [&](Card& card) {
    EXPECT_EQ(card.raisedBy([&] { card.control(u"txtCategorias")->SetFocus(); }),
              (Names{u"Validar", u"CogerFoco"}));
    EXPECT_EQ(card.raisedBy([&] { card.control(u"txtCategorias")->SetFocus(); }), Names{});
    card.refused = {u"txtCategorias"};
    card.control(u"txtAsunto")->SetFocus();
    EXPECT_EQ(card.ActiveControl()->Name(), u"txtCategorias");
  });
}

TEST_F(Focus, set_from_code_on_what_cannot_take_it_fails_with_5) {
  shown(frmVisita(), [&](Card& card) {
    card.control(u"txtCliente")->setEnabled(false);
    card.control(u"txtUbicacion")->setVisible(false);
    for (const TextView name : {u"txtCliente", u"txtUbicacion", u"cboComercial2", u"lblCliente", u"SSAtb"})
      EXPECT_EQ(failureOf([&] { card.control(name)->SetFocus(); }), failure::badArgument) << toUtf8(name);
    EXPECT_EQ(card.ActiveControl()->Name(), u"txtAsunto");
  });
}

TEST_F(Focus, buttons_take_it_on_a_click_and_check_the_control_that_is_left) {
  shown(frmNota(), [&](Card& card) {
    EXPECT_EQ(card.raisedBy([&] { user.clicks(u"cmdCategorias"); }), (Names{u"Validar", u"VerLista"}));
    EXPECT_EQ(card.ActiveControl()->Name(), u"cmdCategorias");
    EXPECT_EQ(card.raisedBy([&] { user.clicks(u"cmdCategorias"); }), Names{u"VerLista"});
  });
}

TEST_F(Focus, a_refused_check_keeps_a_button_from_being_clicked) {
  shown(frmNota(), [&](Card& card) {
    card.refused = {u"txtAsunto"};
    EXPECT_EQ(card.raisedBy([&] { user.clicks(u"cmdCategorias"); }), Names{u"Validar"});
    EXPECT_EQ(card.ActiveControl()->Name(), u"txtAsunto");
  });
}

TEST_F(Focus, goes_to_the_next_in_the_tab_order_when_its_control_is_hidden_or_disabled_and_checks_nothing) {
  shown(frmNota(), [&](Card& card) {
    user.enters(u"LsvDocu");
    EXPECT_EQ(card.raisedBy([&] { card.control(u"LsvDocu")->setVisible(false); }), Names{u"CogerFoco"});
    EXPECT_EQ(card.ActiveControl()->Name(), u"txtAsunto") << "the list is the last one";
    EXPECT_EQ(desk.focused.back(), u"txtAsunto");
    EXPECT_EQ(card.raisedBy([&] { card.control(u"txtAsunto")->setEnabled(false); }), Names{u"CogerFoco"});
    EXPECT_EQ(card.ActiveControl()->Name(), u"cboAcceso");
    card.control(u"LsvDocu")->setVisible(true);
    card.control(u"txtCategorias")->setEnabled(false);
    EXPECT_EQ(card.ActiveControl()->Name(), u"cboAcceso") << "nothing that has it not";
  });
}

TEST_F(Focus, stays_with_a_control_that_is_hidden_and_shown_again_before_the_handler_ends) {
  shown(frmNota(), [&](Card& card) {
    user.enters(u"LsvDocu");
    bool seen = false;
    card.Menu.connect([&](Text&, Text& id) {
      card.control(u"LsvDocu")->setVisible(false);
      EXPECT_EQ(card.ActiveControl()->Name(), u"LsvDocu");
      if (id == u"ID_Guardar") card.control(u"LsvDocu")->setVisible(true);
      seen = true;
    });
    user.clicks(u"ID_Guardar");
    EXPECT_TRUE(seen);
    EXPECT_EQ(card.ActiveControl()->Name(), u"LsvDocu");
    user.clicks(u"ID_Buscar");
    EXPECT_EQ(card.ActiveControl()->Name(), u"txtAsunto");
  });
}

TEST_F(Focus, leaves_a_control_that_a_search_has_hidden_when_the_card_is_on_what_was_found) {
  shown(frmNota(), [&](Card& card) {
    user.enters(u"LsvDocu");
    card.BuscaElemento.connect(
        [&](std::int16_t&, Text&, bool&) { card.control(u"LsvDocu")->setVisible(false); });
    card.Menu.connect([&](Text&, Text&) {
      card.BuscarElemento(1, u"x");
      EXPECT_EQ(card.ActiveControl()->Name(), u"txtAsunto") << "the search goes on";
    });
    user.clicks(u"ID_Buscar");
  });
}

TEST_F(Focus, is_neither_taken_nor_checked_by_tools_and_menus) {
  shown(frmNota(), [&](Card& card) {
    EXPECT_EQ(card.raisedBy([&] {
      user.clicks(u"ID_Guardar");
      user.opensMenu(u"ID_mnuFichas");
      user.pressesArrow(u"ID_BAdjuntar");
    }),
              Names{u"Menu Fichas ID_Guardar"});
    EXPECT_EQ(card.ActiveControl()->Name(), u"txtAsunto");
  });
}

TEST_F(Focus, goes_round_by_tab_and_back) {
  shown(frmNota(), [&](Card& card) {
    Names forwards, backwards;
    do {
      forwards.push_back(card.ActiveControl()->Name());
      user.tabs();
    } while (card.ActiveControl()->Name() != u"txtAsunto");
    EXPECT_EQ(forwards, (Names{u"txtAsunto", u"cboAcceso", u"cmdCategorias", u"txtCategorias",
                               u"dtpFechaAlta", u"dtpHoraAlta", u"cboUsuario", u"chkAvisoNota",
                               u"dtpFechaAviso", u"cboUsuarioAviso", u"txtNotas", u"LsvDocu"}));
    user.tabs(false);
    EXPECT_EQ(card.ActiveControl()->Name(), u"LsvDocu");
    user.tabs(false);
    EXPECT_EQ(card.ActiveControl()->Name(), u"txtNotas");
  });
}

TEST_F(Focus, passes_over_what_is_disabled_or_hidden) {
  shown(frmVisita(), [&](Card& card) {
    card.control(u"cboTiempoAviso")->setEnabled(false);
    user.enters(u"chkAviso");
    user.tabs();
    EXPECT_EQ(card.ActiveControl()->Name(), u"chkConfirmada");
    user.enters(u"txtOtraAgencia");
    user.tabs();
    EXPECT_EQ(card.ActiveControl()->Name(), u"chkAviso") << "the second salesperson does not show";
  });
}

TEST_F(Focus, reaches_every_control_that_the_user_can_change) {
  for (const FormDesign* design : allCardDesigns())
    shown(*design, [&](Card& card) {
      for (const ControlRef& control : card.controls()) {
        const ControlType type = control->type();
        const bool changes = type == ControlType::TextBox || type == ControlType::ComboBox ||
                             type == ControlType::CheckBox || type == ControlType::DTPicker ||
                             type == ControlType::CommandButton || type == ControlType::ListView;
        EXPECT_EQ(control->design().tab >= 0, changes) << toUtf8(design->name) << toUtf8(control->Name());
      }
    });
}

TEST_F(Focus, is_given_by_the_users_doing) {
  shown(frmVisita(), [&](Card& card) {
    const auto active = [&] { return card.ActiveControl()->Name(); };
    user.types(u"txtUbicacion", u"x");
    EXPECT_EQ(active(), u"txtUbicacion");
    user.ticks(u"chkAviso");
    EXPECT_EQ(active(), u"chkAviso");
    user.sets(u"dtpFechaFin", u"12/03/26");
    EXPECT_EQ(active(), u"dtpFechaFin");
    user.types(u"cboAcceso", u"x");
    EXPECT_EQ(active(), u"cboAcceso");
    user.doubleClicks(u"txtCliente");
    EXPECT_EQ(active(), u"txtCliente");
    user.clicksItem(0);
    EXPECT_EQ(active(), u"LsvDocu");
  });
}

TEST_F(Focus, changes_only_on_a_form_that_is_shown_raise_events) {
  const auto card = made(frmNota());
  card->Caption();
  EXPECT_EQ(card->raisedBy([&] { card->control(u"txtNotas")->SetFocus(); }), Names{});
}

TEST_F(Focus, moved_on_by_the_check_itself_stays_where_the_check_put_it) {
  shown(frmNota(), [&](Card& card) {
    bool once = true;
    card.Validar.connect([&](ControlRef&, bool&) {
      if (std::exchange(once, false)) card.control(u"txtNotas")->SetFocus();
    });
    user.enters(u"txtCategorias");
    EXPECT_EQ(card.ActiveControl()->Name(), u"txtNotas");
  });
}

TEST_F(Focus, of_a_card_closed_by_the_check_is_gone) {
  const auto card = made(frmNota());
  card->Validar.connect([&](ControlRef&, bool&) { card->Unload(); });
  desk.whileShown([&] { EXPECT_FALSE(user.enters(u"txtCategorias")); });
  card->Show();
  EXPECT_FALSE(card->loaded());
}

// Keys.

TEST_F(Focus, the_card_sees_keys_first_and_only_with_key_preview) {
  shown(frmNota(), [&](Card& card) {
    EXPECT_EQ(card.raisedBy([&] { user.presses(kit::User::escape); }), Names{});
    card.setKeyPreview(true);
    EXPECT_EQ(card.raisedBy([&] { user.presses(kit::User::keyV, kit::User::ctrlKey); }),
              Names{u"KeyDown 86 2"});
    user.enters(u"txtCategorias");
    EXPECT_EQ(card.raisedBy([&] { user.presses(kit::User::enter, kit::User::shiftKey); }),
              (Names{u"KeyDown 13 1", u"VerLista"}));
  });
}

TEST_F(Focus, a_key_goes_no_further_on_a_card_that_it_hid) {
  shown(frmNota(), [&](Card& card) {
    card.setKeyPreview(true);
    card.KeyDown.connect([&](std::int16_t&, std::int16_t&) { card.Hide(); });
    user.enters(u"txtCategorias");
    EXPECT_EQ(card.raisedBy([&] { user.presses(kit::User::enter, kit::User::shiftKey); }),
              Names{u"KeyDown 13 1"});
  });
}

}  // namespace
}  // namespace ovalia::forms
