#include <algorithm>

#include "tests/forms/FormTest.h"
#include "tests/kit/FakeObject.h"

namespace ovalia::forms {
namespace {

enum Raised : unsigned {
  change = 1,   // Change -> Cambio
  click = 2,    // Click -> Cambio
  focus = 4,    // GotFocus -> CogerFoco
  hold = 8,     // Validate -> Validar, a refusal keeps the focus
  leave = 16,   // LostFocus -> Validar, a refusal does not
  enter = 32,   // Shift and Enter -> VerLista
  list = 64,    // Click -> VerLista
  twice = 128,  // DblClick -> VerLista
  drag = 256,   // OLEDragOver, OLEDragDrop
};
constexpr unsigned text = change | focus | hold, combo = change | click | focus | hold,
                   dropDown = click | focus | hold, check = click | focus | leave,
                   picker = change | focus | hold;

struct Row {
  TextView control;
  unsigned raised;
  TextView field = {};
};

struct FormRows {
  const FormDesign& (*design)();
  std::vector<Row> rows;
};

// What each control of each form makes of its events; a control without a row raises nothing.
const std::vector<FormRows>& table() {
  static const std::vector<FormRows> all = {
      {frmNota,
       {{u"txtAsunto", text, u"Asunto"},
        {u"cboAcceso", combo | enter, u"TipoAccNota"},
        {u"cmdCategorias", list},
        {u"txtCategorias", text | enter, u"Categorias"},
        {u"dtpFechaAlta", picker, u"FechaAlta"},
        {u"dtpHoraAlta", picker, u"FechaAlta"},
        {u"cboUsuario", dropDown | enter, u"Usuario"},
        {u"chkAvisoNota", check, u"Aviso"},
        {u"dtpFechaAviso", picker, u"FechaAviso"},
        {u"cboUsuarioAviso", dropDown | enter, u"UsuarioAviso"},
        {u"txtNotas", text | drag, u"Notas"},
        {u"LsvDocu", drag}}},
      {frmVisita,
       {{u"txtAsunto", text, u"Asunto"},
        {u"cboAcceso", combo | enter, u"TipoAccNota"},
        {u"cmdCategorias", list},
        {u"txtCategorias", text | enter, u"Categorias"},
        {u"dtpFechaAlta", picker, u"FechaComienzo"},
        {u"dtpHoraAlta", picker, u"FechaComienzo"},
        {u"dtpFechaFin", picker, u"FechaFin"},
        {u"dtpHoraFin", picker, u"FechaFin"},
        {u"cboUsuario", dropDown, u"Usuario"},
        {u"txtUbicacion", text, u"Donde"},
        {u"txtCliente", text | enter | twice, u"Cliente"},
        {u"cboComercial", combo, u"IdComercial"},
        {u"txtOtraAgencia", text | enter, u"Agencia"},
        {u"cboComercial2", combo, u"IdComercial2"},
        {u"chkAviso", check, u"Aviso"},
        {u"cboTiempoAviso", combo, u"TiempoAviso"},
        {u"chkConfirmada", check, u"Confirmada"},
        {u"chkRealizada", check, u"Realizada"},
        {u"chkAnulada", check, u"Anulada"},
        {u"txtNotas", text | drag, u"Notas"},
        {u"LsvDocu", drag}}},
      {frmAnuncio,
       {{u"cmdMedioPubli", list},
        {u"txtDonde", text | enter, u"Donde"},
        {u"cboAcceso", combo | enter, u"TipoAccNota"},
        {u"cmdCategorias", list},
        {u"txtCategorias", text | enter, u"Categorias"},
        {u"dtpFechaAlta", picker, u"FechaAlta"},
        {u"dtpHoraAlta", picker, u"FechaAlta"},
        {u"cboUsuario", dropDown, u"Usuario"},
        {u"dtpFechaInicio", picker, u"FechaInicio"},
        {u"txtNDias", text, u"NDias"},
        {u"dtpFechaEnvio", picker, u"FechaEnvio"},
        {u"dtpHoraEnvio", picker, u"FechaEnvio"},
        {u"chkEnviar", check, u"Enviar"},
        {u"txtNotas", text | drag, u"Notas"},
        {u"LsvDocu", drag}}},
      {frmLlamada,
       {{u"dtpFechaAlta", picker, u"FechaAlta"},
        {u"dtpHoraAlta", picker, u"FechaAlta"},
        {u"cboUsuario", dropDown, u"Usuario"},
        {u"txtNotas", text | drag, u"Notas"},
        {u"LsvDocu", drag}}},
  };
  return all;
}

class Reduction : public FormTest {
 protected:
  using Check = std::function<void(Card&, Control&, unsigned raised, const Text& field)>;

  // Each control of each form in turn, on a card of its own that is shown, with what the table says of it.
  // Every control is visible and enabled, and the focus is elsewhere, on one whose leaving raises nothing.
  void eachControl(const Check& check) {
    for (const auto& [design, rows] : table())
      for (const ControlDesign& controlDesign : design().controls)
        shown(design(), [&, &rows = rows](Card& card) {
          const auto row = std::ranges::find(rows, controlDesign.name, &Row::control);
          Control& control = *card.control(controlDesign.name);
          SCOPED_TRACE(toUtf8(card.Name() + u"." + control.Name()));
          for (const ControlRef& other : card.controls()) {
            other->setVisible(true);
            other->setEnabled(true);
          }
          if (const auto combo = dynamic_cast<ComboBox*>(&control)) combo->AddItem(u"Ana Ruiz");
          card.userFocuses(*card.control(u"LsvDocu"));
          const bool known = row != rows.end();
          check(card, control, known ? row->raised : 0u, known ? Text(row->field) : Text());
        });
  }

  static bool takesFocus(const Control& control) { return control.takesFocus(); }
};

Names when(bool raised, std::initializer_list<Text> events) { return raised ? Names(events) : Names{}; }

TEST_F(Reduction, every_control_of_the_table_is_on_its_form) {
  for (const auto& [design, rows] : table())
    for (const Row& row : rows) EXPECT_TRUE(made(design())->hasControl(row.control)) << toUtf8(row.control);
}

TEST_F(Reduction, a_change_or_a_click_by_code_gives_cambio_with_the_field) {
  eachControl([](Card& card, Control& control, unsigned raised, const Text& field) {
    const auto assign = [&]() -> Variant {
      switch (control.type()) {
        case ControlType::TextBox:
          return u"Ana Ruiz";
        case ControlType::ComboBox:
          return u"Ana Ruiz";
        case ControlType::CheckBox:
          return 1;
        case ControlType::DTPicker:
          return u"12/03/26";
        default:
          return {};
      }
    }();
    if (assign.isEmpty()) return;
    const bool byChange = control.type() == ControlType::TextBox || control.type() == ControlType::DTPicker ||
                          (control.type() == ControlType::ComboBox && !control.has(dropDownList));
    card.setFilling(true);  // the rules between a visit's times raise events of their own
    EXPECT_EQ(card.raisedBy([&] { control.setValue(assign); }),
              when(raised & (byChange ? change : click), {u"Cambio " + field}));
    EXPECT_EQ(card.handedOver, when(!card.journal.empty(), {u"LsvDocu"}))
        << "the active control goes with it";
  });
}

TEST_F(Reduction, a_pick_from_a_combo_gives_cambio_with_the_field) {
  eachControl([](Card& card, Control& control, unsigned raised, const Text& field) {
    const auto combo = dynamic_cast<ComboBox*>(&control);
    if (!combo) return;
    card.userFocuses(control);
    EXPECT_EQ(card.raisedBy([&] { combo->userPicks(0); }), when(raised & click, {u"Cambio " + field}));
  });
}

TEST_F(Reduction, taking_the_focus_gives_coger_foco) {
  eachControl([](Card& card, Control& control, unsigned raised, const Text&) {
    if (!control.takesFocus() || control.Name() == u"LsvDocu") return;
    EXPECT_EQ(card.raisedBy([&] { card.userFocuses(control); }), when(raised & focus, {u"CogerFoco"}));
    EXPECT_EQ(card.handedOver, when(raised & focus, {control.Name()}));
  });
}

TEST_F(Reduction, leaving_gives_validar_and_a_refusal_holds_all_but_check_boxes) {
  eachControl([](Card& card, Control& control, unsigned raised, const Text&) {
    if (!control.takesFocus() || control.Name() == u"LsvDocu") return;
    card.userFocuses(control);
    card.refused = {control.Name()};
    EXPECT_EQ(card.raisedBy([&] { card.userFocuses(*card.control(u"LsvDocu")); }),
              when(raised & (hold | leave), {u"Validar"}));
    EXPECT_EQ(card.ActiveControl()->Name(), raised & hold ? control.Name() : Text(u"LsvDocu"));
    card.refused.clear();
  });
}

TEST_F(Reduction, shift_and_enter_gives_ver_lista) {
  eachControl([](Card& card, Control& control, unsigned raised, const Text&) {
    if (!control.takesFocus()) return;
    card.userFocuses(control);
    EXPECT_EQ(card.raisedBy([&] { card.userKey(13, 1); }), when(raised & enter, {u"VerLista"}));
    EXPECT_EQ(card.raisedBy([&] { card.userKey(13, 3); }), when(raised & enter, {u"VerLista"}))
        << "with another key beside Shift";
    EXPECT_EQ(card.raisedBy([&] {
      card.userKey(13, 0);
      card.userKey(13, 2);
      card.userKey(32, 1);
    }),
              Names{});
  });
}

TEST_F(Reduction, a_click_on_a_button_gives_ver_lista) {
  eachControl([](Card& card, Control& control, unsigned raised, const Text&) {
    const auto button = dynamic_cast<CommandButton*>(&control);
    if (!button) return;
    EXPECT_EQ(card.raisedBy([&] { button->userClicks(); }), when(raised & list, {u"VerLista"}));
  });
}

TEST_F(Reduction, a_double_click_on_the_client_gives_ver_lista) {
  eachControl([](Card& card, Control& control, unsigned raised, const Text&) {
    const auto box = dynamic_cast<TextBox*>(&control);
    if (!box) return;
    card.userFocuses(control);
    EXPECT_EQ(card.raisedBy([&] { box->userDoubleClicks(); }), when(raised & twice, {u"VerLista"}));
  });
}

TEST_F(Reduction, drags_go_on_from_text_and_list_with_the_effect) {
  eachControl([](Card& card, Control& control, unsigned raised, const Text&) {
    const ObjectRef files = kit::named(u"files");
    std::int32_t effect = 7;
    EXPECT_EQ(card.raisedBy([&] { card.userDragsOver(control, files, effect); }),
              when(raised & drag, {u"OLEDragOver 7"}));
    EXPECT_EQ(effect, raised & drag ? 1 : 7) << "the answer comes back";
    EXPECT_EQ(card.raisedBy([&] { card.userDrops(control, files); }), when(raised & drag, {u"OLEDragDrop"}));
  });
}

TEST_F(Reduction, a_cambio_before_the_first_show_carries_no_control) {
  const auto card = made(frmNota());
  card->control(u"txtAsunto")->setValue(u"x");
  EXPECT_EQ(card->handedOver, Names{u"-"});
}

TEST_F(Reduction, keys_load_and_unload_of_the_form_are_its_events) {
  const auto card = made(frmLlamada());
  desk.whileShown([&] {
    card->setKeyPreview(true);
    user.presses(39, 4);
  });
  card->Show();
  EXPECT_EQ(card->journal, (Names{u"Load", u"CogerFoco", u"KeyDown 39 4", u"UnLoad"}));
}

TEST_F(Reduction, a_closing_is_refused_by_the_event) {
  const auto card = made(frmLlamada());
  bool cancel = true;
  card->UnLoad.connect([&](bool& c) { c = cancel; });
  card->Caption();
  EXPECT_FALSE(card->Unload());
  cancel = false;
  EXPECT_TRUE(card->Unload());
}

}  // namespace
}  // namespace ovalia::forms
