#include "component/OpenAndClose.h"

#include "cards/Closing.h"
#include "instance/Kinds.h"
#include "tests/cardkit/CardTest.h"

namespace ovalia {
namespace {

using Names = std::vector<Text>;

class OpenAndClose : public kit::CardTest {
 protected:
  // What a closing of the card stores, in order.
  Names stored(const std::function<void()>& whileShown = {}) {
    here.settings.saved.clear();
    openCard(whileShown);
    return here.settings.saved;
  }
  const Names notePlace{u"frmNota|Estado=0", u"frmNota|Top=4800", u"frmNota|Left=10275",
                        u"frmNota|Height=6600", u"frmNota|Width=8250"};
  Names noteClosed(TextView width) const {
    Names all = notePlace;
    all.push_back(u"frmNota|DocsWidth=" + Text(width));
    return all;
  }
};

TEST_F(OpenAndClose, each_kind_has_its_form_and_its_key) {
  const std::tuple<TextView, TextView, CardRef Instance::*, TextView> rows[] = {
      {u"Nota", u"frmNota", &Instance::dlgNota, u"IdNota"},
      {u"Visita", u"frmVisita", &Instance::dlgVisita, u"IdVisita"},
      {u"Anuncio", u"frmAnuncio", &Instance::dlgAnuncio, u"IdAnuncio"},
      {u"Llamada", u"frmLlamada", &Instance::dlgLlamada, u"IdLlamada"}};
  std::size_t made = 0;
  for (const auto& [tipo, name, reference, key] : rows) {
    EXPECT_FALSE(instance.*reference);
    openCard(tipo, {}, [&, name = name, reference = reference] {
      EXPECT_EQ(form().Name(), name);
      EXPECT_EQ(instance.dNota, instance.*reference);
    });
    EXPECT_EQ(kinds()[made].tipo, tipo);
    EXPECT_EQ(kindOf(tipo)->keyColumn, key);
    ++made;
  }
  EXPECT_EQ(kinds().size(), made);
}

TEST_F(OpenAndClose, a_kind_outside_the_four_does_nothing_silently) {
  for (const TextView tipo : {u"", u"nota", u"NOTA", u"Notas", u" Nota"}) {
    instance.FormActiva.reset();
    givenList(u"Nota");
    nota.Tipo = tipo;
    AbreNota(instance);
    EXPECT_EQ(instance.FormActiva, host.FichaInm) << "the host's form is taken down all the same";
    instance.FormActiva.reset();
    CreaNota(instance);
    EXPECT_FALSE(instance.FormActiva);
    EXPECT_FALSE(instance.dNota);
    EXPECT_EQ(state(), limpia);
  }
  EXPECT_TRUE(desk.windows.empty());
}

TEST_F(OpenAndClose, the_preset_key_has_no_effect_on_opening) {
  nota.IdAnota = 5;
  openCard(u"Nota", {}, [&] { EXPECT_TRUE(enabled(u"ID_Aniadir")); });
  EXPECT_TRUE(nota.bPermitirCreacion);
}

TEST_F(OpenAndClose, after_a_creation_with_a_preset_key_the_cards_new_tool_is_disabled) {
  nota.IdAnota = 5;
  nota.Tipo = u"";
  CreaNota(instance);
  openCard(u"Nota", {}, [&] { EXPECT_FALSE(enabled(u"ID_Aniadir")); });
}

TEST_F(OpenAndClose, opening_loads_then_fills_then_shows) {
  std::size_t listed = 0, filled = 0;
  openCard(u"Nota", {}, [&] {
    for (std::size_t i = 0; i < desk.changes.size(); ++i) {
      if (desk.changes[i] == std::pair(Text(u"cboUsuario"), forms::Property::List)) listed = i;
      if (desk.changes[i] == std::pair(Text(u"txtAsunto"), forms::Property::Value)) filled = i;
    }
    EXPECT_EQ(desk.windows, Names{u"frmNota show"});
  });
  EXPECT_LT(listed, filled);
}

TEST_F(OpenAndClose, the_hosts_form_is_remembered_for_good) {
  openCard(u"Nota", {});
  EXPECT_EQ(instance.FormActiva, host.FichaInm);
  host.shows(host.FichaUsuario);
  EXPECT_EQ(instance.FormActiva, host.FichaInm);
  openCard(u"Nota", {});
  EXPECT_EQ(instance.FormActiva, host.FichaUsuario);
}

TEST_F(OpenAndClose, a_show_ends_when_the_card_is_hidden_or_unloaded) {
  openCard(u"Nota", {}, [&] { form().Hide(); });
  EXPECT_TRUE(form().loaded());
  openCard(u"Nota", {}, [&] { EXPECT_TRUE(user.closes()); });
  EXPECT_FALSE(form().loaded());
}

TEST_F(OpenAndClose, the_same_form_opens_again_and_fills_its_lists_afresh_after_an_unload) {
  openCard(u"Visita", {});
  const CardRef first = instance.dlgVisita;
  int loads = 0;
  first->Load.connect([&] { ++loads; });
  database->tableNamed(u"Usuario")->add({4, u"Diego Mora"});
  openCard(u"Visita", {}, [&] {
    EXPECT_EQ(instance.dlgVisita, first);
    EXPECT_EQ(form().as<forms::ComboBox>(u"cboTiempoAviso")->entries().size(), 19u);
    EXPECT_EQ(form().as<forms::ComboBox>(u"cboUsuario")->entries().size(), 4u);
  });
  EXPECT_EQ(loads, 1);
}

TEST_F(OpenAndClose, a_form_that_was_only_hidden_opens_again_as_it_was) {
  here.settings.put(u"Agencia", u"frmVisita", u"DocsWidth", u"1000");
  givenList(u"Visita", {{}}, {u"NArchivos"});
  openCard([&] {
    form().setKeyPreview(false);
    form().Hide();
  });
  int loads = 0;
  form().Load.connect([&] { ++loads; });
  database->tableNamed(u"Usuario")->add({4, u"Diego Mora"});
  here.settings.put(u"Agencia", u"frmVisita", u"DocsWidth", u"1500");
  here.settings.put(u"Agencia", u"frmVisita", u"Top", u"900");
  nota.bPermitirCreacion = false;
  openCard([&] {
    EXPECT_EQ(form().as<forms::ComboBox>(u"cboTiempoAviso")->entries().size(), 19u) << "not 38";
    EXPECT_EQ(form().as<forms::ComboBox>(u"cboUsuario")->entries().size(), 3u) << "the list is stale";
    EXPECT_EQ(tag(u"splitDocumentos"), u"1000");
    EXPECT_EQ(form().Top(), (16200 - 8400) / 2);
    EXPECT_TRUE(enabled(u"ID_Aniadir"));
  });
  EXPECT_EQ(loads, 0);
}

TEST_F(OpenAndClose, a_closing_in_state_0_stores_place_and_pane_width_and_asks_nothing) {
  givenList(u"Nota");
  EXPECT_EQ(stored(), noteClosed(u"2200"));
}

TEST_F(OpenAndClose, a_closing_stores_the_width_to_which_the_pane_was_dragged) {
  givenList(u"Nota", {{}}, {u"NArchivos"});
  EXPECT_EQ(stored([&] {
              control(u"splitDocumentos").Tag = u"999";
              user.dragsPane(1750);
            }),
            noteClosed(u"1750"));
}

TEST_F(OpenAndClose, a_closing_with_the_list_hidden_stores_the_width_that_the_splitter_remembers) {
  givenList(u"Nota");
  EXPECT_EQ(stored([&] {
              control(u"splitDocumentos").Tag = u"1900";
              control(u"LsvDocu").setVisible(false);
              form().as<forms::Splitter>(u"splitDocumentos")->setPaneWidth(0);
            }),
            noteClosed(u"1900"));
}

TEST_F(OpenAndClose, a_closing_of_a_minimised_card_stores_no_place) {
  givenList(u"Nota");
  EXPECT_EQ(stored([&] { user.minimises(); }), (Names{u"frmNota|Estado=1", u"frmNota|DocsWidth=2200"}));
}

TEST_F(OpenAndClose, a_card_opens_where_it_was_closed) {
  givenList(u"Nota", {{}}, {u"NArchivos"});
  openCard([&] {
    form().userMoves(300, 400);
    user.resizes(8000, 5000);
    user.dragsPane(1750);
  });
  openCard([&] {
    EXPECT_EQ(form().Left(), 300);
    EXPECT_EQ(form().Top(), 400);
    EXPECT_EQ(form().Width(), 8000);
    EXPECT_EQ(form().Height(), 5000);
    EXPECT_EQ(tag(u"splitDocumentos"), u"1750");
  });
}

TEST_F(OpenAndClose, the_pane_width_goes_under_the_hosts_title) {
  host.cApp->with(u"title", u"Otra");
  openCard(u"Nota", {});
  EXPECT_EQ(here.settings.stored(u"Otra", u"frmNota", u"DocsWidth"), u"2200");
  EXPECT_EQ(here.settings.stored(u"Agencia", u"frmNota", u"DocsWidth"), std::nullopt);
}

TEST_F(OpenAndClose, a_failure_while_closing_is_reported_and_the_closing_goes_on) {
  givenList(u"Nota");
  openCard([&] {
    host.cApp->failing(u"title", failure::noSuchMember);
    expectReport(u"dNota_UnLoad de CNota", failure::noSuchMember);
    EXPECT_TRUE(user.closes());
  });
  EXPECT_EQ(here.settings.saved, notePlace) << "what came before it stays done";
}

TEST_F(OpenAndClose, a_place_that_cannot_be_stored_does_not_keep_the_width_from_being) {
  givenList(u"Nota");
  openCard([&] {
    here.faults.failNext("Settings.save", failure::permissionDenied);
    expectReport(u"GuardarVentana() de RutinasErr", failure::permissionDenied);
    EXPECT_TRUE(user.closes());
  });
  EXPECT_EQ(here.settings.saved, Names{u"frmNota|DocsWidth=2200"});
}

TEST_F(OpenAndClose, a_new_or_changed_card_with_a_value_that_is_refused_stays_without_the_save_question) {
  for (const std::int32_t unsaved : {nueva, modificada})
    openCard(u"Anuncio", {}, [&] {
      here.settings.saved.clear();
      user.types(u"txtNDias", u"300");
      instance.EstadoFicha = unsaved;
      expectBox(u"Introduzca un número entre 0 y 255.", 48, u"Error");
      EXPECT_FALSE(user.closes());
      EXPECT_TRUE(form().Visible());
      EXPECT_EQ(state(), unsaved);
      EXPECT_TRUE(here.settings.saved.empty());
      instance.EstadoFicha = limpia;
    });
}

TEST_F(OpenAndClose, a_closing_that_was_refused_before_stores_nothing) {
  givenList(u"Nota");
  bool cancel = true;
  openCard([&] {
    dNota_UnLoad(instance, cancel);
    EXPECT_TRUE(cancel);
    EXPECT_TRUE(here.settings.saved.empty());
  });
}

// Failures at the start.

TEST_F(OpenAndClose, without_the_hosts_main_form_it_is_reported_and_nothing_shown) {
  givenList(u"Nota");
  nota.frmBase.reset();
  expectReport(u"AbreNota de CNota", failure::objectNotSet);
  AbreNota(instance);
  EXPECT_TRUE(desk.windows.empty());
}

TEST_F(OpenAndClose, a_main_form_without_the_member_is_reported_and_nothing_shown) {
  givenList(u"Nota");
  nota.frmBase = kit::named(u"frmBase");
  expectReport(u"AbreNota de CNota", failure::noSuchMember);
  AbreNota(instance);
  EXPECT_TRUE(desk.windows.empty());
}

TEST_F(OpenAndClose, the_same_kind_from_inside_an_event_is_refilled_and_then_fails_with_400) {
  givenList(u"Nota", {{}, {{u"Asunto", u"Segunda"}}});
  openCard([&] {
    standOn(2);
    expectReport(u"AbreNota de CNota", failure::alreadyShown);
    AbreNota(instance);
    EXPECT_EQ(card(u"txtAsunto"), u"Segunda");
    EXPECT_TRUE(form().Visible());
  });
}

TEST_F(OpenAndClose, another_kind_from_inside_an_event_is_shown_over_the_first) {
  openCard(u"Nota", {}, [&] {
    const CardRef below = instance.dNota;
    openCard(u"Llamada", {}, [&] {
      EXPECT_EQ(&desk.top(), instance.dlgLlamada.get());
      EXPECT_TRUE(below->Visible());
    });
    EXPECT_EQ(&desk.top(), below.get());
    EXPECT_EQ(instance.dNota, instance.dlgLlamada) << "the common procedures stay with the inner card";
  });
}

// The end.

class Ending : public OpenAndClose {
 protected:
  void openHidden(TextView tipo) {
    openCard(tipo, {}, [&] { form().Hide(); });
    form().UnLoad.connect([this, name = form().Name()](bool&) { unloaded.push_back(name); });
  }
  Names unloaded;
};

TEST_F(Ending, unloads_the_forms_in_the_order_of_the_kinds_and_lets_go) {
  for (const TextView tipo : {u"Llamada", u"Anuncio", u"Visita", u"Nota"}) openHidden(tipo);
  Class_Terminate(instance);
  EXPECT_EQ(unloaded, (Names{u"frmNota", u"frmVisita", u"frmAnuncio", u"frmLlamada"}));
  for (const Kind& kind : kinds()) EXPECT_FALSE(instance.*(kind.form));
  EXPECT_FALSE(instance.dNota);
  EXPECT_TRUE(forms::Runtime::current().loadedForms().empty());
}

TEST_F(Ending, unloads_only_what_was_ever_opened) {
  openHidden(u"Anuncio");
  Class_Terminate(instance);
  EXPECT_EQ(unloaded, Names{u"frmAnuncio"});
}

TEST_F(Ending, of_an_object_that_opened_nothing_does_nothing) {
  Class_Terminate(instance);
  EXPECT_TRUE(desk.windows.empty());
  EXPECT_TRUE(here.settings.saved.empty());
}

TEST_F(Ending, stores_the_place_of_a_hidden_card) {
  openHidden(u"Nota");
  EXPECT_TRUE(here.settings.saved.empty());
  Class_Terminate(instance);
  EXPECT_EQ(here.settings.saved, noteClosed(u"2200"));
}

TEST_F(Ending, stores_nothing_of_a_card_that_was_unloaded_before) {
  openCard(u"Nota", {});
  here.settings.saved.clear();
  Class_Terminate(instance);
  EXPECT_TRUE(here.settings.saved.empty());
}

// A window that does not let itself be taken down.
class StuckView : public forms::FormView {
 public:
  explicit StuckView(const bool& stuck) : stuck_(stuck) {}
  void show() override {}
  void runModal() override {}
  void hide() override {
    if (stuck_) throw Failure(failure::internalError);
  }
  void activate() override {}
  void formChanged(forms::FormProperty) override {}
  void controlChanged(forms::Control&, forms::Property) override {}
  void toolChanged(forms::ActiveToolBars&, TextView) override {}
  void focusChanged() override {}
  void popupMenu(forms::ActiveToolBars&, TextView, const std::optional<forms::Point>&) override {}

 private:
  const bool& stuck_;
};

TEST_F(Ending, stops_at_a_window_that_cannot_be_taken_down) {
  bool stuck = false;
  forms::Runtime::current().setViewFactory([&](forms::Form&) { return std::make_shared<StuckView>(stuck); });
  for (const TextView tipo : {u"Nota", u"Visita"}) {
    givenList(tipo);
    AbreNota(instance);
  }
  stuck = true;
  expectReport(u"Class_Terminate de CNota", failure::internalError);
  Class_Terminate(instance);
  EXPECT_TRUE(instance.dlgVisita->loaded()) << "the steps behind it are undone";
  EXPECT_TRUE(instance.dNota);
  stuck = false;
  Class_Terminate(instance);
  EXPECT_FALSE(instance.dlgNota || instance.dlgVisita || instance.dNota);
}

TEST_F(Ending, lets_go_of_a_card_that_refuses) {
  openHidden(u"Nota");
  const std::weak_ptr<forms::CardForm> card = instance.dlgNota;
  form().UnLoad.connect([](bool& cancel) { cancel = true; });
  Class_Terminate(instance);
  EXPECT_FALSE(instance.dlgNota);
  EXPECT_TRUE(card.expired());
}

}  // namespace
}  // namespace ovalia
