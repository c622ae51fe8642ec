#pragma once

#include <gtest/gtest.h>

#include <string_view>

#include "cards/Navigation.h"
#include "tests/cardkit/FailingCard.h"

namespace ovalia::kit {

// A move from the second row of three.
struct MoveCase {
  TextView tool, name;
  void (*run)(Instance& nota);
  int target;
  std::string_view step;  // what it asks of the list
};

inline constexpr MoveCase moves[] = {
    {u"ID_Primero", u"Primero de CNota", Primero, 1, "Recordset.MoveFirst"},
    {u"ID_Anterior", u"Anterior de CNota", Anterior, 1, "Recordset.MovePrevious"},
    {u"ID_Siguiente", u"Siguiente de CNota", Siguiente, 3, "Recordset.MoveNext"},
    {u"ID_Ultimo", u"Ultimo de CNota", Ultimo, 3, "Recordset.MoveLast"},
};

// A card that is moved through its list.
class Moving : public FailingCardTest {
 protected:
  const Text changedNote = u"¿Desea guardar los cambios realizados en la nota?";

  void expectOn(int row) {
    EXPECT_EQ(standsOn(), 500 + row);
    EXPECT_EQ(card(u"txtNotas"), u"Texto " + toText(row));
    EXPECT_EQ(state(), limpia);
  }
};

}  // namespace ovalia::kit
