#include "routines/Messages.h"

#include <gtest/gtest.h>

#include "routines/ModuleValues.h"
#include "tests/kit/TestPlatform.h"

namespace ovalia {
namespace {

class Messages : public kit::LogicTest {
 protected:
  bool& flag = moduleValues().MensajeEnCurso;
};

TEST_F(Messages, a_box_gets_text_buttons_and_title_and_gives_the_button) {
  for (const int button : {1, 2, 6, 7}) {
    expectBox(u"¿Desea borrar la ficha activa?", 36, u"Borrar", button);
    EXPECT_EQ(MostrarMensaje(u"¿Desea borrar la ficha activa?", 36, u"Borrar"), button);
  }
}

TEST_F(Messages, a_box_without_a_title_leaves_it_to_the_platform) {
  expectBox(u"Error en nueva nota.", 16, u"");
  MostrarMensaje(u"Error en nueva nota.", 16, u"");
}

TEST_F(Messages, the_flag_is_up_while_a_box_is_shown_and_as_before_afterwards) {
  for (const bool before : {false, true}) {
    flag = before;
    expectBox(u"Hola").whileUp([&] { EXPECT_TRUE(flag); });
    MostrarMensaje(u"Hola", 0, u"");
    EXPECT_EQ(flag, before);
  }
}

TEST_F(Messages, a_box_that_cannot_be_shown_is_reported_and_gives_no_button) {
  here.faults.failNext("Screen.messageBox", 75);
  expectReport(u"MostrarMensaje() de RutinasErr", 75);
  EXPECT_EQ(MostrarMensaje(u"Hola", 4, u""), 0);
}

TEST_F(Messages, an_input_box_takes_every_combination_of_title_and_initial_text) {
  for (const Text title : {u"", u"Aviso"}) {
    for (const Text initial : {u"", u"ayer"}) {
      here.expectInput(u"¿Cuándo?", title, initial, u"hoy");
      EXPECT_EQ(PedirMensaje(u"¿Cuándo?", title, initial), u"hoy");
    }
  }
}

TEST_F(Messages, a_cancelled_input_box_gives_the_empty_text) {
  here.expectInput(u"¿Cuándo?", u"", u"ayer", u"");
  EXPECT_EQ(PedirMensaje(u"¿Cuándo?", u"", u"ayer"), u"");
}

TEST_F(Messages, the_flag_is_up_while_an_input_box_is_shown_and_as_before_afterwards) {
  for (const bool before : {false, true}) {
    flag = before;
    here.expectInput(u"¿Cuándo?", u"", u"", u"hoy").whileUp([&] { EXPECT_TRUE(flag); });
    PedirMensaje(u"¿Cuándo?", u"", u"");
    EXPECT_EQ(flag, before);
  }
}

TEST_F(Messages, an_input_box_that_cannot_be_shown_is_reported_and_gives_the_empty_text) {
  here.faults.failNext("Screen.inputBox", 75);
  expectReport(u"PedirMensaje() de RutinasErr", 75);
  EXPECT_EQ(PedirMensaje(u"¿Cuándo?", u"", u"ayer"), u"");
}

}  // namespace
}  // namespace ovalia
