// That a desk's troubles are not overlooked.
#include "tests/host/DeskProcess.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/host/HostTest.h"

namespace ovalia::host {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::ThrowsMessage;

class Desks : public testing::Test {
 protected:
  const std::string user = "Begoña Núñez";
  kit::TemporaryFolder folder;
  std::filesystem::path file = sampleFile(folder.path(), 2500);
};

TEST_F(Desks, that_cannot_start_fail_with_what_they_say) {
  EXPECT_THAT([&] { DeskProcess(folder.path() / "nada.db", user); },
              ThrowsMessage<DeskFailure>(
                  AllOf(HasSubstr(user), HasSubstr("has ended"), HasSubstr("No se puede abrir"))));
  EXPECT_THAT([&] { DeskProcess(file, "Nadie"); }, ThrowsMessage<DeskFailure>(HasSubstr("«Nadie»")));
}

TEST_F(Desks, that_end_unasked_fail_at_the_next_answer) {
  DeskProcess desk(file, user);
  desk.kill();
  EXPECT_THAT([&] { desk.answer(); }, ThrowsMessage<DeskFailure>(HasSubstr("has crashed")));
}

TEST_F(Desks, are_told_of_when_they_are_left_with_a_card_open) {
  DeskProcess desk(file, user);
  EXPECT_THAT(desk.answerTo("open grdNota 1"), testing::StartsWith("card Inmueble: 1 - Nota: "));
  EXPECT_THAT(desk.leave(), AllOf(HasSubstr("has left with 3"), HasSubstr("card Inmueble: 1 - Nota: ")));
}

TEST_F(Desks, say_what_they_cannot_do) {
  DeskProcess desk(file, user);
  const std::pair<std::string, std::string> cases[] = {
      {"dance", "no such command"},          {"tell fortunes", "no such question"},
      {"open grdNota 99999", "no such row"}, {"open grdNada 1", "no such list"},
      {"type txtNotas x", "no card"},        {"tell caption", "no card"},
      {"tool ID_Guardar", "no card"},        {"press Aceptar", "no box"},
      {"find Notas x", "no campo"},          {"key Hyper+Boton", "no such key"},
      {"close", "nothing to close"},
  };
  for (const auto& [command, reason] : cases)
    EXPECT_THAT(desk.answerTo(command), AllOf(testing::StartsWith("fail "), HasSubstr(reason))) << command;
  EXPECT_THAT(desk.answerTo("open grdNota 1"), testing::StartsWith("card "));
  EXPECT_THAT(desk.answerTo("tool ID_Guardar"), HasSubstr("disabled"));
  EXPECT_THAT(desk.answerTo("tool ID_Nada"), HasSubstr("no such tool"));
  EXPECT_THAT(desk.answerTo("type txtNada x"), HasSubstr("no such control"));
  EXPECT_EQ(desk.answerTo("close"), "done");
  EXPECT_EQ(desk.leave(), "");
}

}  // namespace
}  // namespace ovalia::host
