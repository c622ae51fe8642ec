#pragma once

#include "component/OpenAndClose.h"
#include "instance/Instance.h"
#include "tests/cardkit/AgencyData.h"
#include "tests/cardkit/AgencyHost.h"
#include "tests/cardkit/CardWalker.h"
#include "tests/cardkit/Desk.h"
#include "tests/cardkit/User.h"
#include "tests/kit/TestPlatform.h"

namespace ovalia::kit {

// Somebody at another desk, who works on the rows of the list without this recordset noticing.
class OtherUser {
 public:
  // A field of the row on which `crs` stands, saved a minute after the last save.
  void writes(TextView field, Variant value);
  void deletesTheRow();

 private:
  friend class AgencyTest;
  NotaSurface* nota_ = nullptr;
  FakeTableRef list_;
};

// An agency with its database, its host, a desk with a user before it and a list of annotations. The
// component itself is the derived fixture's: CardTest has the procedures over a bare Instance, component
// tests a whole CNota.
class AgencyTest : public LogicTest {
 protected:
  // `nota` is not touched before SetUp.
  explicit AgencyTest(NotaSurface& nota) : surface_(nota) {}
  void SetUp() override;
  void TearDown() override;

  // A list of one kind, standing on its first row: an entry for each row, the fields in which it differs from
  // the believable annotation. Sets `Tipo`, `Nota`, `IdPr`, `DocuAsoc` and `crs`. Columns named in `without`
  // are not delivered.
  void givenList(TextView tipo, std::vector<Fields> rows = {{}}, const std::vector<Text>& without = {});
  void standOn(int row);  // from 1

  // What the table behind the list holds now, by row from 1.
  Variant stored(TextView field, int row = 1) const;

  FakeTableRef list;
  std::shared_ptr<FakeDatabase> database = agencyDatabase(here.faults);
  AgencyHost host{here.screen};
  Desk desk{here.screen};
  User user{desk};
  OtherUser otherUser;

 private:
  NotaSurface& surface_;
};

// Tests of the procedures behind a card, which work on an Instance.
//
//   TEST_F(Saving, a_stale_card_is_refused_and_shows_the_other_users_version) {
//     openCard(u"Nota", {{u"Asunto", u"Llaves"}}, [&] {
//       user.types(u"txtAsunto", u"Llaves del ático");
//       otherUser.writes(u"Asunto", u"Ya devueltas");
//       expectBox(u"La ficha acaba de ser modificada por otro usuario. ...", 48, u"Guardar");
//       user.clicks(u"ID_Guardar");
//       EXPECT_EQ(card(u"txtAsunto"), u"Ya devueltas");
//       EXPECT_EQ(state(), limpia);
//     });
//   }
//
// A card that comes up in state 0 is walked over before its script runs: no control differs from its field.
// At the end of the test the cards are taken down as the component's end does; a test that is not about
// closing puts a card with unsaved changes away inside its script.
class CardTest : public AgencyTest {
 protected:
  CardTest() : AgencyTest(nota) {}
  void TearDown() override;

  // AbreNota on the list as it stands, or on a list of one such annotation. Without a script the card is
  // opened and closed by its box.
  void openCard(Desk::Script whileShown = {});
  void openCard(TextView tipo, Fields fields, Desk::Script whileShown = {});

  // The card is gone, and nobody is asked about unsaved changes.
  void putAway();

  std::int32_t state() const { return instance.EstadoFicha; }
  forms::CardForm& form() const { return instance.card(); }
  forms::Control& control(TextView name) const { return *form().control(name); }
  Text card(TextView control) const { return onCard(*form().control(control)); }
  Text tag(TextView control) const { return form().control(control)->Tag; }
  bool enabled(TextView toolOrControl) const;
  Text caption() const { return form().Caption(); }

  NotaSurface nota;
  Instance instance{nota};
};

}  // namespace ovalia::kit
