#pragma once

#include <gtest/gtest.h>

#include "cards/Search.h"
#include "tests/cardkit/FailingCard.h"

namespace ovalia::kit {

// A card that is searched through its list; the dialog is a double.
class Searching : public FailingCardTest {
 protected:
  void SetUp() override {
    FailingCardTest::SetUp();
    dialog->giving(u"Mostrar", {});
    here.objects.add(u"Mosken.CMosken", [this] { return dialog; });
  }

  bool search(std::int16_t mode, TextView criterion) {
    bool found = true;
    CNota_BuscaElemento(instance, mode, criterion, found);
    return found;
  }

  void expectOn(int row) {
    EXPECT_EQ(standsOn(), 500 + row);
    EXPECT_EQ(card(u"txtNotas"), u"Texto " + toText(row));
    EXPECT_EQ(state(), limpia);
  }

  std::shared_ptr<FakeObject> dialog = std::make_shared<FakeObject>();
};

}  // namespace ovalia::kit
