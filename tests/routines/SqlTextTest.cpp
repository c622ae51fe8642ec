#include "routines/SqlText.h"

#include <gtest/gtest.h>

#include "platform/Regional.h"
#include "tests/kit/TestPlatform.h"

namespace ovalia {
namespace {

class SqlText : public kit::LogicTest {
 protected:
  static Date on(const DateParts& parts) { return dateFrom(parts).value(); }
};

TEST_F(SqlText, the_inside_of_a_literal_doubles_quotes_and_takes_bars_out) {
  const std::pair<TextView, TextView> rows[] = {
      {u"", u""},
      {u"Llaves", u"Llaves"},
      {u"L'Eixample", u"L''Eixample"},
      {u"''", u"''''"},
      {u"a|b", u"a' + chr(124) + 'b"},
      {u"||", u"' + chr(124) + '' + chr(124) + '"},
      // The quotes that a bar brings in stay single.
      {u"'|", u"''' + chr(124) + '"},
      {u"|'", u"' + chr(124) + '''"},
      // Nothing else is escaped.
      {u"\"#*%\\\r\n", u"\"#*%\\\r\n"},
      {u"ñandú €", u"ñandú €"},
  };
  for (const auto& [text, inside] : rows) {
    EXPECT_EQ(Comilla(text), inside);
    EXPECT_EQ(ComillaSQL(text), u"'" + Text(inside) + u"'");
  }
}

TEST_F(SqlText, an_empty_text_is_two_quotes) { EXPECT_EQ(ComillaSQL(u""), u"''"); }

TEST_F(SqlText, a_date_literal_is_american_with_its_time) {
  EXPECT_EQ(VDate(on({2005, 3, 7, 9, 5, 0}), false), u"#03/07/05 09:05:00#");
  EXPECT_EQ(VDate(on({2026, 12, 31, 23, 59, 59}), false), u"#12/31/26 23:59:59#");
}

TEST_F(SqlText, midnight_still_shows_its_time) {
  EXPECT_EQ(VDate(on({2004, 12, 31, 0, 0, 0}), false), u"#12/31/04 00:00:00#");
}

TEST_F(SqlText, a_comma_follows_where_it_is_asked_for_and_never_comes_in_front) {
  EXPECT_EQ(VDate(on({2005, 3, 7, 9, 5, 0}), true), u"#03/07/05 09:05:00#, ");
  EXPECT_EQ(VDate(Null, true), u"NULL, ");
  EXPECT_EQ(VDate(Null, false), u"NULL");
}

TEST_F(SqlText, texts_and_numbers_become_dates_first_by_the_regional_order) {
  EXPECT_EQ(VDate(u"07/03/2005 9:05:00", false), u"#03/07/05 09:05:00#");
  EXPECT_EQ(VDate(u"07-03-05", false), u"#03/07/05 00:00:00#");
  EXPECT_EQ(VDate(38418.5, false), u"#03/07/05 12:00:00#");
  EXPECT_EQ(VDate(u"30-12-99 0:00:00", false), u"#12/30/99 00:00:00#");
  EXPECT_EQ(VDate(Variant{}, false), u"#12/30/99 00:00:00#");
}

TEST_F(SqlText, other_regional_settings_change_nothing_in_the_literal) {
  here.platform.regional.dateSeparator = u'.';
  here.platform.regional.timeSeparator = u'h';
  EXPECT_EQ(VDate(on({2005, 3, 7, 9, 5, 0}), false), u"#03/07/05 09:05:00#");
}

TEST_F(SqlText, a_text_that_is_no_date_is_reported_and_leaves_a_hole) {
  expectReport(u"VDate() de RutinasErr", 13);
  EXPECT_EQ(VDate(u"mañana", true), u"");
}

TEST_F(SqlText, a_date_has_two_digits_for_each_part_month_first) {
  EXPECT_EQ(FormatFecha(on({2005, 3, 7})), u"03/07/05");
  EXPECT_EQ(FormatFecha(on({1999, 12, 30})), u"12/30/99");
  EXPECT_EQ(FormatFecha(on({2000, 11, 10})), u"11/10/00");
  EXPECT_EQ(FormatFecha(Date{}), u"12/30/99");
}

TEST_F(SqlText, a_date_with_time_has_one_shape_whatever_shape_is_asked_for) {
  for (const TextView shape : {u"mm/dd/yy hh:mm:ss", u"dd/mm/yyyy", u""})
    EXPECT_EQ(FormatFechaHora(on({2005, 3, 7, 17, 5, 9}), shape), u"03/07/05 17:05:09");
}

}  // namespace
}  // namespace ovalia
