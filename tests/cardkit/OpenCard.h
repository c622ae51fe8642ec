#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "instance/Instance.h"
#include "tests/kit/FakeDatabase.h"
#include "tests/kit/FakeObject.h"
#include "tests/kit/FakeRecordset.h"
#include "tests/kit/TestPlatform.h"

namespace ovalia::kit {

inline constexpr TextView allKinds[] = {u"Nota", u"Visita", u"Anuncio", u"Llamada"};

// The moment of a day, as the list's fields hold it.
Date moment(int year, int month, int day, int hour = 0, int minute = 0, int second = 0);

// Says how a recordset was told to update.
class WatchedRecordset : public FakeRecordset {
 public:
  using FakeRecordset::FakeRecordset;
  std::optional<std::pair<int, bool>> updateArguments;
  void Update(int type = 1, bool force = false) override {
    updateArguments = {type, force};
    FakeRecordset::Update(type, force);
  }
};

// A test of what happens on a card that is open on a list of annotations of parent 120. The card runs without
// a window: the test speaks from inside the modal show, on the private state of the component.
//
// The users are Ana 9, Luis 8 and Marta 7, who works; the access types "Privado" 3 and "Público" 2; the
// clients "Sr. Pons" 40 and "Sra. Gil" 41; the agencies "Costa" 60 and "Sierra" 61. Look-ups of "Nadie" and
// "" find no row.
class OpenCardTest : public LogicTest {
 protected:
  OpenCardTest();
  ~OpenCardTest() override;

  // A list of `count` rows of a kind: keys 11, 12, ..., texts "Asunto 1", "Asunto 2" ... Columns in `without`
  // are left out.
  void listOf(TextView kind, std::size_t count = 3, std::initializer_list<TextView> without = {});

  // Opens the card on a row (from 1) of the list, puts the focus on `txtNotas` and runs the test's part.
  void open(std::size_t row, const std::function<void()>& whileOpen);

  // A list of three rows, open on the second.
  void openOn(TextView kind, const std::function<void()>& whileOpen);

  forms::CardForm& card() { return nota.card(); }
  forms::ControlRef control(TextView name) { return card().control(name); }
  Text shown(TextView name) { return control(name)->value().text(); }

  // Puts a value on the card as a fill would: no rule between controls acts on it.
  void put(TextView name, const Variant& value);

  // Puts values on the card and makes it count as changed.
  void change(std::initializer_list<std::pair<TextView, Variant>> values);

  void focus(TextView name);
  bool enabled(TextView tool) { return card().toolbars().tool(tool)->Enabled(); }
  void key(int code, int shift = 0) { card().userKey(code, shift); }

  Variant field(TextView name) { return crs->value(name); }
  Variant& stored(std::size_t row, TextView name) { return rows->at(row - 1, name); }
  std::int32_t standsOn() { return crs->value(u"IdAnota").toLong(); }

  // The save question, answered.
  FakeScreen::Expectation& expectQuestion(Text text, int answer) {
    return expectBox(std::move(text), 35, u"Guardar", answer);
  }

  NotaSurface surface;
  Instance nota{surface};
  std::shared_ptr<FakeDatabase> agency;
  FakeTableRef rows;
  std::shared_ptr<WatchedRecordset> crs;
  std::shared_ptr<FakeObject> mainForm, hostForm, controller, shownAdvertisement;

  int activations = 0;  // how often the card was brought to the front

  static constexpr int yes = 6, no = 7, cancel = 2;

 private:
  std::function<void()> script_;
};

}  // namespace ovalia::kit
