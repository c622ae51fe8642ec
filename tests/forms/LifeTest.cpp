#include "tests/forms/FormTest.h"
#include "tests/kit/FakeObject.h"

namespace ovalia::forms {
namespace {

class Life : public FormTest {};

// Touches of a form that bring its window into being, each on a form of its own.
struct Touch {
  const char* name;
  void (*touch)(Card&);
  bool loads = true;
};

class Touching : public Life, public testing::WithParamInterface<Touch> {};

TEST_P(Touching, a_form_loads_it_at_the_first_built_in_property_or_control) {
  const auto card = made(frmNota());
  GetParam().touch(*card);
  EXPECT_EQ(card->loaded(), GetParam().loads);
  EXPECT_EQ(card->journal, GetParam().loads ? Names{u"Load"} : Names{});
  GetParam().touch(*card);
  EXPECT_EQ(card->journal.size(), GetParam().loads ? 1u : 0u) << "once only";
}

INSTANTIATE_TEST_SUITE_P(
    , Touching,
    testing::Values(Touch{"KeyPreview", [](Card& c) { c.setKeyPreview(true); }},
                    Touch{"KeyPreview_read", [](Card& c) { c.KeyPreview(); }},
                    Touch{"Caption", [](Card& c) { c.Caption(); }},
                    Touch{"Caption_written", [](Card& c) { c.setCaption(u"x"); }},
                    Touch{"Width", [](Card& c) { c.Width(); }}, Touch{"Left", [](Card& c) { c.setLeft(3); }},
                    Touch{"WindowState", [](Card& c) { c.WindowState(); }},
                    Touch{"a_control", [](Card& c) { c.control(u"txtNotas"); }},
                    Touch{"asking_for_a_control", [](Card& c) { c.hasControl(u"nada"); }},
                    Touch{"ActiveControl", [](Card& c) { c.ActiveControl(); }},
                    Touch{"SetFocus", [](Card& c) { c.SetFocus(); }},
                    Touch{"Controls_by_name", [](Card& c) { getMember(c.Controls(), u"", {u"txtNotas"}); }},
                    Touch{"Name", [](Card& c) { c.Name(); }, false},
                    Touch{"Visible", [](Card& c) { c.Visible(); }, false},
                    Touch{"an_event_to_listen_to", [](Card& c) { c.Cambio.connected(); }, false},
                    Touch{"its_own_procedure", [](Card& c) { c.BuscarElemento(1, u""); }, false},
                    Touch{"Hide", [](Card& c) { c.Hide(); }, false},
                    Touch{"Unload", [](Card& c) { c.Unload(); }, false}),
    [](const auto& row) { return row.param.name; });

TEST_F(Life, the_load_runs_inside_the_access_with_all_controls_at_their_design) {
  const auto card = made(frmNota());
  card->Load.connect([&] {
    card->journal.push_back(card->Caption());
    card->control(u"txtAsunto")->setValue(u"de la carga");
    EXPECT_FALSE(card->ActiveControl());
    EXPECT_FALSE(card->Visible());
  });
  EXPECT_EQ(card->as<TextBox>(u"txtAsunto")->text(), u"de la carga");
  EXPECT_EQ(card->journal, (Names{u"Load", u"Nueva Nota", u"Cambio Asunto"}));
}

TEST_F(Life, a_window_that_cannot_be_made_leaves_none_and_the_next_touch_makes_it) {
  const auto card = made(frmNota());
  for (const char* measure : {"Screen.width", "Screen.height"}) {
    here.faults.failNext(measure, failure::internalError);
    EXPECT_EQ(failureOf([&] { card->setCaption(u"Otro"); }), failure::internalError);
    EXPECT_FALSE(card->loaded());
    EXPECT_TRUE(Runtime::current().loadedForms().empty());
  }
  Runtime::current().setViewFactory(
      [](Form&) -> std::shared_ptr<FormView> { throw Failure(failure::outOfMemory); });
  EXPECT_EQ(failureOf([&] { card->control(u"txtAsunto"); }), failure::outOfMemory);
  EXPECT_FALSE(card->loaded());
  EXPECT_TRUE(Runtime::current().loadedForms().empty());
  Runtime::current().setViewFactory({});
  EXPECT_EQ(card->raisedBy([&] { card->setCaption(u"Otro"); }), Names{u"Load"});
  EXPECT_EQ(card->control(u"txtAsunto")->value().text(), u"");
}

TEST_F(Life, a_show_goes_load_show_resize_focus) {
  const auto card = made(frmVisita());
  desk.whileShown([&] {
    EXPECT_TRUE(card->Visible());
    EXPECT_EQ(card->journal, (Names{u"Load", u"CogerFoco"}));
    EXPECT_EQ(card->ActiveControl()->Name(), u"txtAsunto") << "the first in the tab order";
    EXPECT_EQ(desk.windows, Names{u"frmVisita show"});
    EXPECT_EQ(desk.focused, Names{u"txtAsunto"});
  });
  card->Show();
}

TEST_F(Life, the_layout_follows_the_size_before_the_card_is_used) {
  const auto card = made(frmNota());
  card->setWidth(6745 + 500);
  card->control(u"txtAsunto")->setWidth(1);
  desk.whileShown([&] { EXPECT_EQ(card->control(u"txtAsunto")->Width(), 5655 + 500); });
  card->Show();
}

TEST_F(Life, no_picker_gets_the_first_focus) {
  for (const FormDesign* design : allCardDesigns())
    shown(*design, [](Card& card) { EXPECT_NE(card.ActiveControl()->type(), ControlType::DTPicker); });
}

TEST_F(Life, hiding_ends_the_show_and_keeps_the_window_as_it_is) {
  const auto card = made(frmVisita());
  desk.whileShown([&] {
    user.types(u"txtAsunto", u"Llaves");
    user.enters(u"txtUbicacion");
    card->control(u"txtUbicacion")->Tag = u"HacerAlgo";
    card->control(u"chkAnulada")->setVisible(false);
    card->control(u"cboTiempoAviso")->setEnabled(false);
    card->as<ComboBox>(u"cboUsuario")->AddItem(u"Ana");
    card->setKeyPreview(true);
    card->toolbars().tool(u"ID_Aniadir")->setEnabled(false);
    card->Hide();
    EXPECT_FALSE(card->Visible());
    EXPECT_TRUE(card->loaded());
  });
  card->Show();
  EXPECT_EQ(desk.windows.back(), u"frmVisita hide");

  card->journal.clear();
  desk.whileShown([&] {
    EXPECT_EQ(card->journal, Names{u"CogerFoco"}) << "no second Load";
    EXPECT_EQ(card->as<TextBox>(u"txtAsunto")->text(), u"Llaves");
    EXPECT_EQ(card->ActiveControl()->Name(), u"txtUbicacion");
    EXPECT_EQ(card->control(u"txtUbicacion")->Tag, u"HacerAlgo");
    EXPECT_FALSE(card->control(u"chkAnulada")->Visible());
    EXPECT_FALSE(card->control(u"cboTiempoAviso")->Enabled());
    EXPECT_EQ(card->as<ComboBox>(u"cboUsuario")->entries().size(), 1u);
    EXPECT_TRUE(card->KeyPreview());
    EXPECT_FALSE(card->toolbars().tool(u"ID_Aniadir")->Enabled());
  });
  card->Show();
}

TEST_F(Life, unloading_drops_window_and_controls_and_keeps_the_object) {
  const auto card = made(frmNota());
  desk.whileShown([&] {
    user.types(u"txtAsunto", u"Llaves");
    card->setCaption(u"Una");
    EXPECT_TRUE(user.closes());
    EXPECT_FALSE(card->Visible());
    EXPECT_FALSE(card->loaded());
  });
  card->Show();
  EXPECT_EQ(card->journal.back(), u"UnLoad");

  card->journal.clear();
  EXPECT_EQ(card->as<TextBox>(u"txtAsunto")->text(), u"");
  EXPECT_EQ(card->Caption(), u"Nueva Nota");
  EXPECT_EQ(card->control(u"txtAsunto")->Tag, u"");
  EXPECT_EQ(card->journal, Names{u"Load"}) << "it loads again";
}

TEST_F(Life, an_unload_can_be_refused_and_nothing_changes) {
  const auto card = made(frmNota());
  bool refuse = true;
  card->UnLoad.connect([&](bool& cancel) { cancel = refuse; });
  desk.whileShown([&] {
        user.types(u"txtAsunto", u"Llaves");
        EXPECT_FALSE(user.closes());
        EXPECT_TRUE(card->Visible());
        EXPECT_EQ(card->as<TextBox>(u"txtAsunto")->text(), u"Llaves");
        EXPECT_EQ(card->ActiveControl()->Name(), u"txtAsunto");
      })
      .staysOpen();
  card->Show();
  EXPECT_FALSE(card->Unload()) << "on a hidden form too";
  refuse = false;
  EXPECT_TRUE(card->Unload());
  EXPECT_FALSE(card->loaded());
}

TEST_F(Life, unloading_a_form_without_a_window_does_nothing) {
  const auto card = made(frmNota());
  EXPECT_TRUE(card->Unload());
  EXPECT_TRUE(card->journal.empty());
}

TEST_F(Life, hiding_inside_the_unload_is_harmless) {
  const auto card = made(frmNota());
  card->UnLoad.connect([&](bool&) { card->Hide(); });
  desk.whileShown([&] { EXPECT_TRUE(user.closes()); });
  card->Show();
  EXPECT_FALSE(card->loaded());
}

TEST_F(Life, hiding_twice_is_harmless) {
  const auto card = made(frmNota());
  desk.whileShown([&] {
    card->Hide();
    card->Hide();
  });
  card->Show();
  EXPECT_EQ(desk.windows, (Names{u"frmNota show", u"frmNota hide"}));
}

TEST_F(Life, showing_a_form_that_is_shown_fails_with_400) {
  shown(frmNota(), [](Card& card) { EXPECT_EQ(failureOf([&] { card.Show(); }), failure::alreadyShown); });
}

TEST_F(Life, another_form_may_be_shown_over_it) {
  const auto call = made(frmLlamada());
  shown(frmNota(), [&](Card& card) {
    desk.whileShown([&] {
      EXPECT_EQ(&desk.top(), call.get());
      EXPECT_TRUE(card.Visible());
    });
    call->Show();
    EXPECT_EQ(&desk.top(), &card);
  });
}

TEST_F(Life, an_unload_in_a_handler_of_one_of_its_controls_is_survived) {
  const auto card = made(frmNota());
  card->Cambio.connect([&](ControlRef&, Text&) { card->Unload(); });
  desk.whileShown([&] { user.types(u"txtAsunto", u"x"); });
  card->Show();
  EXPECT_FALSE(card->loaded());
}

TEST_F(Life, item_pressed_survives_an_unload_and_the_list_does_not) {
  const auto card = made(frmNota());
  const auto fillAndClick = [&](bool click) {
    const auto list = card->as<ListView>(u"LsvDocu");
    list->Add({u"1", u"carta.doc", u"doc"});
    if (click) user.clicksItem(1);
  };
  desk.whileShown([&] { fillAndClick(true); });
  card->Show();
  desk.whileShown([&] {
    EXPECT_TRUE(card->as<ListView>(u"LsvDocu")->items().empty());
    user.rightClicksItem(0);
    EXPECT_EQ(desk.popups.back().menu, u"ID_mnuLsvEnDoc");
  });
  card->Show();
}

TEST_F(Life, a_modal_show_without_views_returns_at_once_and_hides) {
  Runtime::current().setViewFactory({});
  const auto card = made(frmNota());
  card->Show();
  EXPECT_TRUE(card->loaded());
  EXPECT_FALSE(card->Visible());
}

// The screen's active form.

TEST_F(Life, the_active_form_is_the_hosts_until_a_card_is_shown_and_after) {
  here.screen.form = kit::named(u"FichaInm");
  const auto active = [&] { return getMember(here.screen.activeForm(), u"Name").text(); };
  const auto card = made(frmNota());
  card->Load.connect([&] { card->journal.push_back(active()); });
  card->Caption();
  EXPECT_EQ(card->journal.back(), u"FichaInm") << "a card that loads is not on the screen yet";
  desk.whileShown([&] {
    EXPECT_EQ(active(), u"frmNota");
    card->Hide();
    EXPECT_EQ(active(), u"FichaInm");
  });
  card->Show();
  EXPECT_EQ(active(), u"FichaInm");
}

TEST_F(Life, the_active_form_is_the_one_shown_last) {
  const auto call = made(frmLlamada());
  shown(frmNota(), [&](Card& card) {
    desk.whileShown([&] { EXPECT_EQ(Runtime::current().activeForm(), call); });
    call->Show();
    EXPECT_EQ(Runtime::current().activeForm().get(), &card);
  });
}

TEST_F(Life, a_card_whose_handler_runs_is_the_active_form_also_after_it_hid_itself) {
  here.screen.form = kit::named(u"FichaInm");
  shown(frmNota(), [&](Card& card) {
    card.setKeyPreview(true);
    card.KeyDown.connect([&](std::int16_t&, std::int16_t&) {
      card.Hide();
      EXPECT_EQ(Runtime::current().activeForm().get(), &card);
      Runtime::current().activeForm()->Hide();
    });
    user.presses(kit::User::escape);
    EXPECT_FALSE(Runtime::current().activeForm()) << "the handler is over";
  });
}

TEST_F(Life, the_loaded_forms_come_in_the_order_of_their_loading) {
  const auto note = made(frmNota()), call = made(frmLlamada());
  call->Caption();
  note->Caption();
  const auto names = [] {
    Names all;
    for (const auto& form : Runtime::current().loadedForms()) all.push_back(form->Name());
    return all;
  };
  EXPECT_EQ(names(), (Names{u"frmLlamada", u"frmNota"}));
  call->Unload();
  EXPECT_EQ(names(), Names{u"frmNota"});
}

TEST_F(Life, what_escapes_a_handler_is_logged_and_goes_no_further) {
  shown(frmNota(), [&](Card& card) {
    card.Menu.connect([](Text&, Text&) { throw Failure(failure::indexOutOfRange); });
    here.expectLogEntry(u"Evento de frmNota", failure::indexOutOfRange);
    user.clicks(u"ID_Guardar");
    EXPECT_TRUE(card.Visible());
  });
}

TEST_F(Life, the_view_is_told_of_caption_place_and_state) {
  shown(frmNota(), [&](Card& card) {
    card.setCaption(u"Una");
    card.setTop(10);
    card.setWindowState(2);
    EXPECT_EQ(desk.formChanges,
              (std::vector<std::pair<Text, FormProperty>>{{u"frmNota", FormProperty::Caption},
                                                          {u"frmNota", FormProperty::Place},
                                                          {u"frmNota", FormProperty::WindowState}}));
    card.SetFocus();
    EXPECT_EQ(desk.windows.back(), u"frmNota activate");
  });
}

TEST_F(Life, a_window_state_is_one_of_three) {
  const auto card = made(frmNota());
  EXPECT_EQ(failureOf([&] { card->setWindowState(3); }), failure::badArgument);
}

TEST_F(Life, what_the_user_does_to_the_window_is_not_told_back_to_the_view) {
  shown(frmNota(), [&](Card& card) {
    card.userMoves(100, 200);
    card.userResizes(8000, 5000);
    user.minimises();
    EXPECT_EQ(card.Left(), 100);
    EXPECT_EQ(card.Top(), 200);
    EXPECT_EQ(card.Width(), 8000);
    EXPECT_EQ(card.Height(), 5000);
    EXPECT_EQ(card.WindowState(), 1);
    EXPECT_TRUE(desk.formChanges.empty());
  });
}

}  // namespace
}  // namespace ovalia::forms
