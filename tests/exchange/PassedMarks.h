#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "exchange/PassingMarks.h"
#include "tests/cardkit/Attachments.h"
#include "tests/cardkit/RecordingScreen.h"

namespace ovalia {

// Tests of what the host is handed for a document or a mail, on the note 501 of record 120. The property of
// record 120 and its owner are in the agency's tables.
class PassedMarks : public kit::AttachmentsTest {
 protected:
  // One event of the component: the marks by index, "Asunto: Llaves", ": " for an index without a mark.
  struct Passed {
    std::vector<Text> marks;
    ObjectRef word;
    bool mail;
  };
  std::vector<Passed> passed;

  void SetUp() override {
    AttachmentsTest::SetUp();
    kit::attachmentTable(*database, u"DocuAnuncioIP");
    property = database->table(u"Inmueble",
                               {{u"IdInm", dao::dbLong},
                                {u"IdPropietario", dao::dbLong},
                                {u"Numero"},
                                {u"Piso"},
                                {u"Referencia"},
                                {u"GastosComu", dao::dbDouble},
                                {u"Notas", dao::dbMemo},
                                {u"Precio", dao::dbCurrency}},
                               {{120, 22, u"12", u"3º B", u"R-120", 45.5, u"Con ascensor.", price(1000)}});
    database->tableNamed(u"Cliente")->rows[1]->values = {22, u"Eva Núñez", u"611 222 333", u"912 345 678"};
    host.answers.PasaDatosaDoc = [this](Variant& marks, Variant& texts, ObjectRef& word) {
      passed.push_back({listed(marks, texts), word, false});
    };
    host.answers.PasaDatosEMail = [this](Variant& marks, Variant& texts) {
      passed.push_back({listed(marks, texts), {}, true});
    };
  }

  static Variant price(double euros) { return Variant(euros).toCurrency(); }

  // Hands over the marks, as they are for a mail unless told otherwise, and gives those that are set.
  std::vector<Text> pass(std::int32_t modo = paraCorreo) {
    ObjectRef word;
    passed.clear();
    Pasa_Datos_Dlg(instance, modo, word);
    return set();
  }
  std::vector<Text> onCard(std::int32_t modo = paraCorreo) {
    std::vector<Text> marks;
    openCard([&] {
      database->opened.clear();
      marks = pass(modo);
    });
    return marks;
  }

  static std::vector<Text> listed(const Variant& marks, const Variant& texts) {
    std::vector<Text> all;
    for (std::int32_t i = 0; i <= 60; ++i)
      all.push_back(
          join(getMember(marks.toObject(), u"", {i}), u": ", getMember(texts.toObject(), u"", {i})));
    return all;
  }

  // Of the last event: "0 Asunto: Llaves", the indexes without a mark left out.
  std::vector<Text> set() const {
    std::vector<Text> marks;
    if (passed.empty()) return marks;
    for (std::size_t i = 0; i < passed.back().marks.size(); ++i)
      if (const Text& mark = passed.back().marks[i]; mark != u": ")
        marks.push_back(join(toText(std::int64_t(i)), u" ", mark));
    return marks;
  }
  Text at(std::size_t index) const {
    return passed.empty() ? Text(u"nothing was passed") : passed.back().marks.at(index);
  }

  // A field of the row on which the list stands, and a column for it where the list has none.
  void give(TextView column, Variant value) {
    for (const kit::FakeColumn& known : list->columns)
      if (sameName(known.name, column)) {
        list->at(0, column) = std::move(value);
        return;
      }
    list->columns.push_back({Text(column), dao::dbLong});
    for (const kit::FakeRowRef& row : list->rows) row->values.push_back(value);
  }

  // The host's grid that has the focus, and the list behind it.
  void focusOn(TextView grid, TextView data) {
    host.FichaInm->with(u"ActiveControl", kit::named(grid));
    const auto control = std::make_shared<kit::FakeObject>();
    control->with(u"Recordset", nota.crs);
    host.FichaInm->with(data, control);
  }
  void focusOnNotes() { focusOn(u"grdNota", u"datNota"); }

  kit::FakeTableRef property;
};

// Runs an operation with the first call of its surroundings failing, then with the second, and so on until a
// run meets no failure; `check` is told which it was. Gives the number of failing runs.
inline int failEachCall(kit::TestPlatform& here, std::int32_t number, const std::function<void()>& before,
                        const std::function<void()>& run,
                        const std::function<void(const kit::RecordingScreen&)>& check) {
  for (int nth = 1;; ++nth) {
    if (nth > 500) throw std::logic_error("the operation never comes to its end");
    SCOPED_TRACE("call " + std::to_string(nth) + " fails with " + std::to_string(number));
    before();
    kit::RecordingScreen screen(here.faults, here.screen);
    here.platform.screen = &screen;
    here.faults.failNth("", nth, number);
    run();
    const bool met = here.faults.unmet().empty();
    here.faults.heal();
    if (met) check(screen);
    here.files.appended.clear();
    here.platform.screen = &here.screen;
    if (!met) return nth - 1;
  }
}

}  // namespace ovalia
