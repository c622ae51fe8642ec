#pragma once

#include <functional>
#include <initializer_list>
#include <utility>

#include "tests/cardkit/CardTest.h"
#include "tests/kit/FakeRecordset.h"

namespace ovalia::kit {

inline constexpr TextView allKinds[] = {u"Nota", u"Visita", u"Anuncio", u"Llamada"};

// Tests of what happens on a card that is open on a list of several annotations. They speak from inside the
// modal show; a card with unsaved changes is put away by itself.
// The host's card on top is record 777 and shows advertisement 321.
class OpenCardTest : public CardTest {
 protected:
  void SetUp() override;

  // A list of `count` annotations with the texts "Texto 1", "Texto 2" ... and the keys 501, 502 ...
  void listOf(TextView kind, int count = 3, const std::vector<Text>& without = {});

  // Opens the card on a row (from 1) of the list, puts the focus on `txtNotas` and runs the test's part. What
  // the opening left in the journals is forgotten.
  void open(int row, const std::function<void()>& whileOpen);

  // A list of three, open on the second.
  void openOn(TextView kind, const std::function<void()>& whileOpen);

  // Puts a value on the card as a fill would: no rule between controls acts on it, no change is noticed.
  void put(TextView name, const Variant& value);

  // Puts values on the card and makes it count as changed.
  void change(std::initializer_list<std::pair<TextView, Variant>> values);

  // Chooses a tool, enabled or not.
  void command(TextView group, TextView id);

  FakeRecordset& crs() { return dynamic_cast<FakeRecordset&>(deref(nota.crs)); }
  Variant& at(int row, TextView name) { return list->at(static_cast<std::size_t>(row) - 1, name); }
  std::int32_t standsOn() { return crs().value(u"IdAnota").toLong(); }

  // The save question, answered.
  FakeScreen::Expectation& expectQuestion(Text text, int answer) {
    return expectBox(std::move(text), 35, u"Guardar", answer);
  }

  static constexpr int yes = 6, no = 7, cancel = 2;
};

}  // namespace ovalia::kit
