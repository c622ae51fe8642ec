#include <gtest/gtest.h>

#include "cards/RecordToCard.h"
#include "tests/cardkit/CardTest.h"

namespace ovalia {
namespace {

using kit::on;

class DatesToFields : public kit::CardTest {
 protected:
  void SetUp() override {
    CardTest::SetUp();
    givenList(u"Visita");
    nota.crs->Edit();
  }
  Variant written(TextView text) {
    FechayHora(instance, u"FechaFin", text);
    return nota.crs->value(u"FechaFin");
  }
};

TEST_F(DatesToFields, a_text_becomes_the_fields_date) {
  EXPECT_EQ(written(u"07/03/2005 9:05:00").toDate(), on(2005, 3, 7, 9, 5));
  EXPECT_EQ(written(u"07/03/05 00:00:00").toDate(), on(2005, 3, 7));
}

TEST_F(DatesToFields, the_empty_date_of_a_card_is_day_zero) {
  EXPECT_EQ(written(u"30-12-99 0:00:00").toDouble(), 0);
  EXPECT_EQ(written(u"30/12/99 0:00:00").toDate(), on(1999, 12, 30));
}

TEST_F(DatesToFields, a_blank_text_leaves_the_field_as_it_was) {
  for (const TextView text : {u"", u" ", u"   "})
    EXPECT_EQ(written(text).toDate(), on(2026, 3, 10, 10, 45)) << toUtf8(text);
}

TEST_F(DatesToFields, a_text_that_is_no_date_is_reported_with_field_and_text_and_keeps_the_field) {
  expectReport(u"FechayHora de CNota (FechaFin, mañana) ", failure::typeMismatch);
  EXPECT_EQ(written(u"mañana").toDate(), on(2026, 3, 10, 10, 45));
}

TEST_F(DatesToFields, a_field_that_the_list_lacks_is_reported) {
  expectReport(u"FechayHora de CNota (Fecha, 07/03/2005) ", dao::failure::notInCollection);
  FechayHora(instance, u"Fecha", u"07/03/2005");
}

TEST_F(DatesToFields, a_row_that_is_not_being_edited_is_reported) {
  nota.crs->CancelUpdate();
  expectReport(u"FechayHora de CNota (FechaFin, 07/03/2005) ", dao::failure::updateWithoutEdit);
  FechayHora(instance, u"FechaFin", u"07/03/2005");
}

}  // namespace
}  // namespace ovalia
