#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <vector>

#include "cards/NewAnnotation.h"
#include "tests/cardkit/CardTest.h"
#include "tests/kit/FakeRecordset.h"

namespace ovalia::kit {

// A card whose list takes new rows. The clock stands at 9 March 2026, 10:20:30; the user is Carmen Soler, key
// 3, the parent record 120, the advertisement that the host's form shows 77.
class NewRows : public CardTest {
 protected:
  void SetUp() override {
    CardTest::SetUp();
    advertisement->answering(u"", [](Arguments asked) -> Variant {
      return sameName(asked[0].toText(), u"IdAnota") ? Variant(77) : Variant(Null);
    });
    dynamic_cast<FakeObject&>(*host.FichaInm->property(u"datAnuncio").toObject())
        .with(u"Recordset", advertisement);
  }

  // A list into which a statement inserts a row of this moment by this user, found by the criterion alone.
  void givenNewRows(TextView tipo, const std::vector<Text>& without = {}) {
    givenList(tipo, {{}}, without);
    database->onExecute = [this, tipo = Text(tipo)](TextView) {
      const int place = static_cast<int>(list->rows.size());
      list->add(annotation(tipo, list->columns, place,
                           {{u"IdUsuario", 3}, {u"FechaAlta", on(2026, 3, 9, 10, 20, 30)}}));
      return 1;
    };
    recognise(nota.crs);
  }

  // The double knows no dates in criteria: a row made at this moment is the one.
  void recognise(const dao::RecordsetRef& rows) {
    dynamic_cast<FakeRecordset&>(*rows).matcher = [this](TextView, const FakeRow& row) {
      return row.values.at(list->column(u"FechaAlta")).toDate() == on(2026, 3, 9, 10, 20, 30);
    };
  }

  std::vector<Text> criteria() const { return dynamic_cast<FakeRecordset&>(*nota.crs).criteria; }

  // Opens a card on the first row, makes a new annotation and runs what is to be said of it.
  void create(
      bool expected, const std::function<void()>& then = [] {}) {
    openCard([&, expected] {
      EXPECT_EQ(Nuevo(instance), expected);
      then();
      putAway();
    });
  }

  bool rowInserted() const { return list->rows.size() == 2; }

  std::shared_ptr<FakeObject> advertisement = std::make_shared<FakeObject>();
};

}  // namespace ovalia::kit
