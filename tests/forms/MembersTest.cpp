#include "routines/TextHelpers.h"
#include "tests/forms/FormTest.h"

namespace ovalia::forms {
namespace {

class Members : public FormTest {
 protected:
  std::shared_ptr<Card> note = made(frmNota());
  std::shared_ptr<Card> visit = made(frmVisita());
};

TEST_F(Members, of_a_form_are_reached_by_name_without_regard_to_case) {
  EXPECT_EQ(note->get(u"name").text(), u"frmNota");
  EXPECT_EQ(note->get(u"Visible").toBoolean(), false);
  note->put(u"Caption", u"Una");
  EXPECT_EQ(note->get(u"caption").text(), u"Una");
  note->put(u"KeyPreview", true);
  EXPECT_TRUE(note->get(u"KeyPreview").toBoolean());
  for (const TextView place : {u"Left", u"Top", u"Width", u"Height"}) {
    note->put(place, 7000);
    EXPECT_EQ(note->get(place).toDouble(), 7000) << toUtf8(place);
  }
  EXPECT_EQ(note->get(u"ScaleHeight").toDouble(), 7000 - frameHeight);
  EXPECT_EQ(note->get(u"ScaleWidth").toDouble(), 7000 - frameWidth);
  note->put(u"WindowState", 2);
  EXPECT_EQ(note->get(u"WindowState").toLong(), 2);
  EXPECT_FALSE(note->get(u"ActiveControl").toObject());
}

TEST_F(Members, that_a_form_lacks_fail_with_438) {
  EXPECT_EQ(failureOf([&] { note->get(u"vClase"); }), failure::noSuchMember);
  EXPECT_EQ(failureOf([&] { note->put(u"Name", u"x"); }), failure::noSuchMember);
  EXPECT_EQ(failureOf([&] { note->put(u"vClase", 1); }), failure::noSuchMember);
  EXPECT_EQ(failureOf([&] { note->call(u"Ajuste_N_Notas"); }), failure::noSuchMember);
  EXPECT_EQ(failureOf([&] { note->get(u""); }), failure::noSuchMember);
}

TEST_F(Members, of_a_form_are_its_controls_too) {
  note->control(u"txtAsunto")->setValue(u"Llaves");
  EXPECT_EQ(note->get(u"txtAsunto").plain().text(), u"Llaves");
}

TEST_F(Members, of_a_form_that_run_something) {
  bool found = false;
  note->BuscaElemento.connect([&](std::int16_t& mode, Text& criterion, bool& answer) {
    EXPECT_EQ(mode, 2);
    EXPECT_EQ(criterion, u"Asunto Like '*'");
    answer = found;
  });
  const auto search = [&] {
    return callMember(note, u"BuscarElemento", {2, u"Asunto Like '*'"}).toBoolean();
  };
  EXPECT_FALSE(search());
  found = true;
  EXPECT_TRUE(search());
  EXPECT_EQ(failureOf([&] { callMember(note, u"BuscarElemento", {2}); }), failure::wrongArguments);

  note->control(u"splitDocumentos")->setHeight(1);
  note->setHeight(9000);
  note->control(u"splitDocumentos")->setHeight(1);
  note->call(u"Form_Resize");
  EXPECT_NE(note->control(u"splitDocumentos")->Height(), 1);

  desk.whileShown([&] {
    note->call(u"SetFocus");
    note->call(u"Hide");
  });
  note->call(u"Show");
  EXPECT_EQ(desk.windows, (Names{u"frmNota show", u"frmNota activate", u"frmNota hide"}));
}

TEST_F(Members, controls_are_found_by_name_or_fail_with_730) {
  const ObjectRef controls = note->Controls();
  EXPECT_EQ(getMember(getMember(controls, u"", {u"TXTASUNTO"}).toObject(), u"Name").text(), u"txtAsunto");
  EXPECT_EQ(getMember(getMember(controls, u"Item", {0}).toObject(), u"Name").text(), u"SSAtb");
  EXPECT_EQ(getMember(controls, u"Count").toLong(), std::int32_t(note->controls().size()));
  EXPECT_EQ(failureOf([&] { getMember(controls, u"", {u"cboComercial"}); }), failure::noSuchControl);
  EXPECT_EQ(failureOf([&] { getMember(controls, u"", {999}); }), failure::noSuchControl);
  EXPECT_EQ(failureOf([&] { getMember(controls, u"", {-1}); }), failure::noSuchControl);
  EXPECT_EQ(failureOf([&] { getMember(controls, u""); }), failure::wrongArguments);
  EXPECT_EQ(failureOf([&] { getMember(controls, u"Nada"); }), failure::noSuchMember);
  EXPECT_EQ(failureOf([&] { putMember(controls, u"Item", 1); }), failure::noSuchMember);
  EXPECT_EQ(failureOf([&] { callMember(controls, u"Clear"); }), failure::noSuchMember);
  EXPECT_EQ(failureOf([&] { note->control(u"cboComercial"); }), failure::noSuchControl);
  EXPECT_EQ(failureOf([&] { note->control(u"fralinea1", 7); }), failure::noSuchControl);
}

TEST_F(Members, asking_by_trying_works_on_the_collection) {
  EXPECT_TRUE(ExisteControl(note->Controls(), u"splitDocumentos"));
  EXPECT_TRUE(ExisteControl(note->get(u"Controls").toObject(), u"cboAcceso"));
  EXPECT_FALSE(ExisteControl(note->Controls(), u"cboComercial"));
  EXPECT_TRUE(ExisteControl(visit->Controls(), u"cboComercial"));
}

TEST_F(Members, a_control_of_another_type_than_wanted_is_13) {
  EXPECT_EQ(failureOf([&] { note->as<CheckBox>(u"txtAsunto"); }), failure::typeMismatch);
}

TEST_F(Members, of_every_control) {
  for (const FormDesign* design : allCardDesigns()) {
    const auto card = made(*design);
    for (const ControlRef& control : card->controls()) {
      control->put(u"Tag", u"HacerAlgo");
      EXPECT_EQ(control->get(u"tag").text(), u"HacerAlgo");
      control->put(u"Enabled", false);
      EXPECT_FALSE(control->get(u"Enabled").toBoolean());
      control->put(u"Visible", true);
      EXPECT_TRUE(control->get(u"Visible").toBoolean());
      for (const TextView place : {u"Left", u"Top", u"Width", u"Height"}) {
        control->put(place, 321);
        EXPECT_EQ(control->get(place).toDouble(), 321) << toUtf8(control->Name());
      }
      EXPECT_EQ(failureOf([&] { control->get(u"Nada"); }), failure::noSuchMember) << toUtf8(control->Name());
      EXPECT_EQ(failureOf([&] { control->put(u"Nada", 1); }), failure::noSuchMember);
      EXPECT_EQ(failureOf([&] { control->put(u"Name", u"x"); }), failure::noSuchMember);
      EXPECT_EQ(failureOf([&] { control->call(u"Nada"); }), failure::noSuchMember);
      EXPECT_EQ(control->get(u"TabIndex").toLong(), control->design().tab);
    }
  }
}

TEST_F(Members, the_value_is_the_default_member_where_there_is_one) {
  const std::pair<TextView, Variant> values[] = {
      {u"txtAsunto", u"Llaves"}, {u"cboAcceso", u"Correo"}, {u"chkAviso", 1}, {u"lblDonde", u"Donde"}};
  for (const auto& [name, value] : values) {
    visit->control(name)->put(u"", value);
    EXPECT_EQ(visit->control(name)->get(u"").text(), value.text()) << toUtf8(name);
    EXPECT_EQ(Variant(ObjectRef(visit->control(name))).text(), value.text());
  }
  visit->control(u"dtpFechaFin")->put(u"", u"12/03/26");
  EXPECT_EQ(visit->control(u"dtpFechaFin")->get(u"Value").text(), u"12/03/2026");
  EXPECT_EQ(visit->control(u"fraAsistentes")->get(u"").text(), u"Asistentes");
  for (const TextView name : {u"ImgBell", u"SSAtb", u"splitDocumentos", u"LsvDocu", u"fralinea1", u"mnuA"}) {
    EXPECT_EQ(failureOf([&] { visit->control(name)->get(u""); }), failure::noSuchMember) << toUtf8(name);
    EXPECT_EQ(failureOf([&] { visit->control(name)->put(u"", 1); }), failure::noSuchMember) << toUtf8(name);
  }
}

TEST_F(Members, of_one_kind_are_not_those_of_another) {
  EXPECT_EQ(failureOf([&] { note->control(u"txtAsunto")->get(u"Value"); }), failure::noSuchMember);
  EXPECT_EQ(failureOf([&] { note->control(u"chkAvisoNota")->get(u"Text"); }), failure::noSuchMember);
  EXPECT_EQ(failureOf([&] { note->control(u"txtAsunto")->call(u"AddItem"); }), failure::noSuchMember);
  EXPECT_EQ(failureOf([&] { note->control(u"lblAsunto")->get(u"Text"); }), failure::noSuchMember);
}

TEST_F(Members, of_a_combo) {
  Control& combo = *visit->control(u"cboAcceso");
  callMember(visit->control(u"cboAcceso"), u"AddItem", {u"Correo"});
  callMember(visit->control(u"cboAcceso"), u"additem", {u"Teléfono"});
  EXPECT_EQ(combo.get(u"NewIndex").toLong(), 1);
  Variant place[] = {std::int32_t(1)};
  combo.put(u"ItemData", 7, place);
  EXPECT_EQ(combo.get(u"ItemData", place).toLong(), 7);
  EXPECT_EQ(combo.get(u"List", place).text(), u"Teléfono");
  EXPECT_EQ(combo.get(u"ListCount").toLong(), 2);
  combo.put(u"Text", u"teléfono");
  EXPECT_EQ(combo.get(u"ListIndex").toLong(), 1);
  EXPECT_EQ(combo.get(u"Text").text(), u"teléfono") << "what was assigned stands as it is";
  place[0] = std::int32_t(2);
  EXPECT_EQ(failureOf([&] { combo.get(u"List", place); }), failure::badArgument);
  EXPECT_EQ(failureOf([&] { combo.get(u"List"); }), failure::wrongArguments);
  EXPECT_EQ(failureOf([&] { combo.put(u"ItemData", 1); }), failure::wrongArguments);
  EXPECT_EQ(failureOf([&] { combo.call(u"AddItem"); }), failure::wrongArguments);
  combo.call(u"Clear");
  EXPECT_EQ(combo.get(u"ListCount").toLong(), 0);
}

TEST_F(Members, the_focus_is_set_by_name) {
  desk.whileShown([&] {
    note->control(u"txtCategorias")->call(u"SetFocus");
    EXPECT_EQ(getMember(note->get(u"ActiveControl").toObject(), u"Name").text(), u"txtCategorias");
  });
  note->Show();
}

// Splitter.

TEST_F(Members, the_panes_of_the_splitter_share_its_width) {
  const ObjectRef splitter = note->control(u"splitDocumentos");
  const auto pane = [&](int number) { return getMember(splitter, u"Panes", {number}).toObject(); };
  putMember(pane(1), u"Width", 2000);
  EXPECT_EQ(getMember(pane(1), u"Width").toDouble(), 2000);
  EXPECT_EQ(getMember(pane(2), u"Width").toDouble(), 6375 - 2000);
  putMember(pane(2), u"Width", 5375);
  EXPECT_EQ(getMember(pane(1), u"Width").toDouble(), 1000);
  EXPECT_EQ(getMember(pane(1), u"Name").text(), u"Pane A");
  EXPECT_EQ(getMember(pane(2), u"Name").text(), u"Pane B");
  EXPECT_EQ(failureOf([&] { pane(3); }), failure::indexOutOfBounds);
  EXPECT_EQ(failureOf([&] { pane(0); }), failure::indexOutOfBounds);
  EXPECT_EQ(failureOf([&] { getMember(pane(1), u"Height"); }), failure::noSuchMember);
  EXPECT_EQ(failureOf([&] { getMember(splitter, u"Panes"); }), failure::wrongArguments);
}

TEST_F(Members, a_pane_takes_only_the_room_there_is) {
  Splitter& splitter = *note->as<Splitter>(u"splitDocumentos");
  splitter.setPaneWidth(9999);
  EXPECT_EQ(splitter.PaneWidth(), 6375);
  splitter.setPaneWidth(-5);
  EXPECT_EQ(splitter.PaneWidth(), 0);
  desk.whileShown([&] {
    user.dragsPane(1234);
    EXPECT_EQ(splitter.PaneWidth(), 1234);
  });
  note->Show();
}

TEST_F(Members, the_list_is_in_the_first_pane_and_the_text_in_the_second) {
  for (const FormDesign* design : allCardDesigns()) {
    const auto card = made(*design);
    EXPECT_EQ(card->control(u"LsvDocu")->design().container, u"splitDocumentos");
    EXPECT_EQ(card->control(u"txtNotas")->design().container, u"splitDocumentos");
    EXPECT_EQ(card->as<Splitter>(u"splitDocumentos")->PaneWidth(), card->control(u"LsvDocu")->Width());
  }
}

}  // namespace
}  // namespace ovalia::forms
