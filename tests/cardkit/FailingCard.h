#pragma once

#include <functional>
#include <vector>

#include "tests/cardkit/OpenCard.h"
#include "tests/cardkit/RecordingScreen.h"

namespace ovalia::kit {

// Tests that go through every call that a statement makes of its surroundings, failing one after the other.
class FailingCardTest : public OpenCardTest {
 protected:
  struct EachCall {
    std::function<void()> before = [] {};  // on the card, opened on the second of three, before each run
    std::function<void()> statement;
    std::function<void(const RecordingScreen& screen)> check;  // what a failing run has left behind
    int saveAnswer = yes;
  };

  // Runs the statement on a card opened anew, failing with `number` at the first call, then at the second,
  // and so on until a run meets no failure. Any box may come. Gives the number of failing runs.
  int failEachCallIn(TextView kind, std::int32_t number, const EachCall& each);

  // The procedures that reported, in their order.
  static std::vector<Text> reporters(const RecordingScreen& screen);

  // A row of the table, as it is stored now.
  std::vector<Variant> rowNow(int row) const {
    return list->rows.at(static_cast<std::size_t>(row) - 1)->values;
  }
  static bool same(const std::vector<Variant>& a, const std::vector<Variant>& b);

  // What the user has put on the card: it is in the row it was typed for, the second, or still on the card of
  // a row that is as it was.
  const Text typed = u"Nuevo texto";
  void expectNothingLost(const std::vector<Variant>& before);

  // Puts a text on the card that no row has, so that a fill shows.
  void keep() { put(u"txtNotas", kept); }
  const Text kept = u"Lo que había";

  // What a run has left, as in "2, kept, 0, 11": the row on which the list stands, whether the card still
  // shows what it showed or that row ("filled"), its state, the pointer.
  Text left(const FakeScreen& screen);
};

}  // namespace ovalia::kit
