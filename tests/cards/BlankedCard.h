#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "cards/BlankCard.h"
#include "tests/cardkit/CardTest.h"

namespace ovalia::kit {

struct Shown {
  TextView control;
  TextView value;
};

// A card that is blanked and looked at.
class BlankedCard : public CardTest {
 protected:
  // As whoever makes a new annotation does, from a card that shows one.
  void blank() {
    instance.EstadoFicha = cargando;
    FichaLimpia(instance);
    instance.EstadoFicha = limpia;
  }

  void expectOnCard(const std::vector<Shown>& rows) {
    for (const Shown& row : rows) EXPECT_EQ(card(row.control), row.value) << toUtf8(row.control);
  }

  std::vector<Text> textBoxes() const {
    std::vector<Text> names;
    for (const forms::ControlRef& box : form().controls())
      if (box->type() == forms::ControlType::TextBox) names.push_back(box->Name());
    return names;
  }
};

}  // namespace ovalia::kit
