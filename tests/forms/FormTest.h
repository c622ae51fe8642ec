#pragma once

#include <gtest/gtest.h>

#include "forms/CardForm.h"
#include "tests/cardkit/Desk.h"
#include "tests/cardkit/User.h"
#include "tests/kit/TestPlatform.h"

namespace ovalia::forms {

using Names = std::vector<Text>;

// A card without a component behind it, and a journal of the events it raises, each with the field name or id
// it carries: "Cambio Asunto", "Menu Fichas ID_Guardar", "KeyDown 27 0".
class Card : public CardForm {
 public:
  explicit Card(const FormDesign& design);

  Names journal;
  Names handedOver;           // the control that each Cambio, CogerFoco and Validar carried; "-" for none
  std::vector<Text> refused;  // names of controls whose check fails

  using CardForm::cmdCancelar_Click;

  // What was raised while something was done.
  template <class Action>
  Names raisedBy(Action action) {
    journal.clear();
    handedOver.clear();
    action();
    return journal;
  }
};

class FormTest : public kit::LogicTest {
 protected:
  void TearDown() override {
    desk.verify();
    LogicTest::TearDown();
  }
  std::shared_ptr<Card> made(const FormDesign& design) { return std::make_shared<Card>(design); }

  // A card of that design, shown while the script runs.
  void shown(const FormDesign& design, const std::function<void(Card&)>& script);

  kit::Desk desk{here.screen};
  kit::User user{desk};
};

// The four designs, for tests of what all cards share.
const std::vector<const FormDesign*>& allCardDesigns();

// The number an action fails with; 0 when it does not.
template <class Action>
std::int32_t failureOf(Action action) {
  try {
    action();
    return 0;
  } catch (const Failure& failure) {
    return failure.number();
  }
}

}  // namespace ovalia::forms
