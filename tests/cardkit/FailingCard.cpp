#include "tests/cardkit/FailingCard.h"

#include <algorithm>
#include <stdexcept>

namespace ovalia::kit {

int FailingCardTest::failEachCallIn(TextView kind, std::int32_t number, const EachCall& each) {
  for (int nth = 1;; ++nth) {
    if (nth > 500) throw std::logic_error("the statement never comes to its end");
    bool met = false;
    openOn(kind, [&] {
      each.before();
      RecordingScreen screen(here.faults, here.screen);
      screen.saveAnswer = each.saveAnswer;
      here.platform.screen = &screen;
      here.faults.failNth("", nth, number);
      each.statement();
      met = here.faults.unmet().empty();
      here.faults.heal();
      here.platform.screen = &here.screen;
      here.files.appended.clear();
      SCOPED_TRACE("call " + std::to_string(nth) + " of " + toUtf8(kind) + " fails with " +
                   std::to_string(number));
      if (met) each.check(screen);
    });
    if (!met) return nth - 1;
  }
}

std::vector<Text> FailingCardTest::reporters(const RecordingScreen& screen) {
  std::vector<Text> names;
  for (const Text& box : screen.boxes)
    if (const Text name = RecordingScreen::reportedBy(box); !name.empty()) names.push_back(name);
  return names;
}

bool FailingCardTest::same(const std::vector<Variant>& a, const std::vector<Variant>& b) {
  return std::ranges::equal(
      a, b, [](const Variant& x, const Variant& y) { return x.type() == y.type() && x.text() == y.text(); });
}

void FailingCardTest::expectNothingLost(const std::vector<Variant>& before) {
  if (at(2, u"Notas").text() == typed) return;
  EXPECT_TRUE(same(rowNow(2), before));
  EXPECT_EQ(card(u"txtNotas"), typed);
  EXPECT_EQ(state(), modificada);
}

Text FailingCardTest::left(const FakeScreen& screen) {
  const std::int32_t row = crs().AbsolutePosition() + 1;
  const Text shown = card(u"txtNotas");
  const TextView how = shown == kept ? u"kept" : shown == u"Texto " + toText(row) ? u"filled" : u"other";
  return join(row == 0 ? Text(u"no row") : toText(row), u", ", how, u", ", state(), u", ", screen.pointer);
}

}  // namespace ovalia::kit
