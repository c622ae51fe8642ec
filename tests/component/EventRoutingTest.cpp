#include "component/EventRouting.h"

#include "instance/Kinds.h"
#include "tests/cardkit/CardTest.h"

namespace ovalia {
namespace {

class EventRouting : public kit::CardTest {};

TEST_F(EventRouting, every_event_of_every_form_has_its_listener) {
  for (const Kind& kind : kinds()) {
    const auto card = std::make_shared<forms::CardForm>(kind.design());
    connectCard(instance, *card);
    EXPECT_TRUE(card->ActualizaDocs.connected());
    EXPECT_TRUE(card->Menu.connected());
    EXPECT_TRUE(card->Validar.connected());
    EXPECT_TRUE(card->Cambio.connected());
    EXPECT_TRUE(card->CogerFoco.connected());
    EXPECT_TRUE(card->KeyDown.connected());
    EXPECT_TRUE(card->Load.connected());
    EXPECT_TRUE(card->UnLoad.connected());
    EXPECT_TRUE(card->VerLista.connected());
    EXPECT_TRUE(card->BuscaElemento.connected());
    EXPECT_TRUE(card->OLEDragDrop.connected());
    EXPECT_TRUE(card->OLEDragOver.connected());
    EXPECT_FALSE(card->loaded()) << "connecting touches no window";
  }
}

TEST_F(EventRouting, a_control_that_passes_its_check_loses_its_mark) {
  for (const Kind& kind : kinds())
    openCard(kind.tipo, {}, [&] {
      user.enters(u"txtNotas");
      control(u"txtNotas").Tag = u"HacerAlgo";
      EXPECT_TRUE(user.enters(u"cboUsuario"));
      EXPECT_EQ(tag(u"txtNotas"), u"") << toUtf8(kind.tipo);
    });
}

TEST_F(EventRouting, a_check_box_that_is_left_loses_its_mark_too) {
  openCard(u"Nota", {}, [&] {
    user.enters(u"chkAvisoNota");
    control(u"chkAvisoNota").Tag = u"HacerAlgo";
    user.enters(u"txtNotas");
    EXPECT_EQ(tag(u"chkAvisoNota"), u"");
  });
}

TEST_F(EventRouting, a_check_without_a_control_is_survived) {
  openCard(u"Nota", {}, [&] {
    forms::ControlRef none;
    bool cancel = false;
    form().Validar(none, cancel);
    EXPECT_FALSE(cancel);
  });
}

TEST_F(EventRouting, the_close_box_stores_the_place_on_every_card) {
  for (const Kind& kind : kinds()) {
    here.settings.saved.clear();
    openCard(kind.tipo, {}, [&] { EXPECT_TRUE(user.closes()); });
    EXPECT_EQ(here.settings.saved.size(), 6u) << toUtf8(kind.tipo);
  }
}

}  // namespace
}  // namespace ovalia
