#include <gtest/gtest.h>

#include "component/CNota.h"
#include "tests/cardkit/CardTest.h"

namespace ovalia {
namespace {

// A whole component as its host has it, with a user before its cards.
class CardCommands : public kit::AgencyTest {
 protected:
  CardCommands() : AgencyTest(component) {}

  void SetUp() override {
    AgencyTest::SetUp();
    givenList(u"Nota", {{{u"Notas", u"Uno"}}, {{u"Notas", u"Dos"}}, {{u"Notas", u"Tres"}}});
    standOn(2);
  }

  Text card(TextView control) { return desk.card().control(control)->value().text(); }

  CNota component;
};

TEST_F(CardCommands, an_edit_is_saved_by_the_tool_and_the_card_closes_without_a_question) {
  desk.whileShown([&] {
    user.types(u"txtNotas", u"Dos y medio");
    user.clicks(u"ID_Guardar");
    EXPECT_EQ(stored(u"Notas", 2).text(), u"Dos y medio");
    EXPECT_TRUE(user.closes());
  });
  component.AbreNota();
}

TEST_F(CardCommands, an_edit_that_another_user_was_faster_with_is_refused_by_the_tool) {
  desk.whileShown([&] {
    user.types(u"txtNotas", u"Dos y medio");
    otherUser.writes(u"Notas", u"De otro");
    expectBox(
        u"La ficha acaba de ser modificada por otro usuario.\r\n"
        u"Sus cambios son cancelados y se visualiza la última modificación.",
        48, u"Guardar");
    user.clicks(u"ID_Guardar");
    EXPECT_EQ(card(u"txtNotas"), u"De otro");
  });
  component.AbreNota();
}

TEST_F(CardCommands, an_edit_is_asked_about_when_the_card_moves_on) {
  desk.whileShown([&] {
    user.types(u"txtNotas", u"Dos y medio");
    expectBox(u"¿Desea guardar los cambios realizados en la nota?", 35, u"Guardar", 6);
    user.clicks(u"ID_Siguiente");
    EXPECT_EQ(stored(u"Notas", 2).text(), u"Dos y medio");
    EXPECT_EQ(card(u"txtNotas"), u"Tres");
  });
  component.AbreNota();
}

TEST_F(CardCommands, an_edit_is_asked_about_when_the_card_is_closed) {
  desk.whileShown([&] {
    user.types(u"txtNotas", u"Dos y medio");
    expectBox(u"¿Desea guardar los cambios realizados en la nota?", 35, u"Guardar", 2);
    EXPECT_FALSE(user.closes());
    expectBox(u"¿Desea guardar los cambios realizados en la nota?", 35, u"Guardar", 7);
    EXPECT_TRUE(user.closes());
  });
  component.AbreNota();
  EXPECT_EQ(stored(u"Notas", 2).text(), u"Dos");
}

TEST_F(CardCommands, an_edit_is_undone_by_the_tool) {
  desk.whileShown([&] {
    user.types(u"txtNotas", u"Dos y medio");
    user.clicks(u"ID_DeshacerCambios");
    EXPECT_EQ(card(u"txtNotas"), u"Dos");
    EXPECT_TRUE(user.closes());
  });
  component.AbreNota();
}

TEST_F(CardCommands, the_host_can_open_the_search) {
  const auto dialog = std::make_shared<kit::FakeObject>();
  dialog->answering(u"Mostrar", [&](Arguments) -> Variant {
    const ObjectRef window = dialog->property(u"VentanaJefa").toObject();
    EXPECT_TRUE(callMember(window, u"BuscarElemento", {1, u"Notas = 'Uno'"}).toBoolean());
    return {};
  });
  here.objects.add(u"Mosken.CMosken", [&] { return dialog; });
  desk.whileShown([&] {
    component.Buscar_Nota();
    EXPECT_EQ(card(u"txtNotas"), u"Uno");
  });
  component.AbreNota();
}

TEST_F(CardCommands, the_host_can_have_the_document_tools_refreshed) {
  desk.whileShown([&] {
    const auto paste = desk.card().toolbars().tool(u"ID_Pegar");
    for (const bool files : {true, false}) {
      here.clipboard.holdsFiles = files;
      component.CambiarMenuNotas();
      EXPECT_EQ(paste->Enabled(), files);
    }
  });
  component.AbreNota();
}

}  // namespace
}  // namespace ovalia
