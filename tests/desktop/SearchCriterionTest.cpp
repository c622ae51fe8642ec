// The conditions that the search dialog makes of what is entered: no window and no database needed.
#include "desktop/SearchCriterion.h"

#include <gmock/gmock.h>

#include "tests/kit/TestPlatform.h"

namespace ovalia::desktop {

namespace {

class Criterion : public kit::LogicTest {
 protected:
  static std::string part(TextView wanted, bool anyAccents = false) {
    return toUtf8(textCriterion(u"Notas", wanted, false, anyAccents));
  }
  static std::string whole(TextView wanted, bool anyAccents = false) {
    return toUtf8(textCriterion(u"Notas", wanted, true, anyAccents));
  }
  static Date day(int year, int month, int of, int hour = 0) { return *dateFrom({year, month, of, hour}); }
  static std::string days(std::optional<Date> from, std::optional<Date> to) {
    return toUtf8(dateCriterion(u"FechaAlta", from, to));
  }
};

TEST_F(Criterion, a_text_may_stand_anywhere_in_the_field_or_be_all_of_it) {
  EXPECT_EQ(part(u"llave"), "[Notas] Like '*llave*'");
  EXPECT_EQ(whole(u"llave"), "[Notas] Like 'llave'");
}

TEST_F(Criterion, nothing_to_look_for_gives_none) {
  EXPECT_EQ(part(u""), "");
  EXPECT_EQ(whole(u""), "");
  EXPECT_EQ(days({}, {}), "");
}

TEST_F(Criterion, quotes_are_doubled) {
  EXPECT_EQ(part(u"O'Donnell 'a'"), "[Notas] Like '*O''Donnell ''a''*'");
}

TEST_F(Criterion, a_bar_stands_outside_the_literals) {
  EXPECT_EQ(part(u"a|b"), "[Notas] Like '*a' + chr(124) + 'b*'");
  EXPECT_EQ(whole(u"||"), "[Notas] Like '' + chr(124) + '' + chr(124) + ''");
}

TEST_F(Criterion, wildcards_stand_for_themselves) {
  for (const bool accents : {false, true}) {
    EXPECT_EQ(part(u"5* ¿?", accents), "[Notas] Like '*5[*] ¿[?]*'");
    EXPECT_EQ(whole(u"#1 [x] !-%_", accents), "[Notas] Like '[#]1 [[]x] !-%_'");
  }
}

TEST_F(Criterion, without_regard_to_accents_each_vowel_is_the_set_of_its_marked_forms) {
  EXPECT_EQ(part(u"mesa", true), "[Notas] Like '*m[eéèêë]s[aáàâäãå]*'");
  EXPECT_EQ(whole(u"ÍOÜ", true), "[Notas] Like '[iíìîï][oóòôöõ][uúùûü]'");
  EXPECT_EQ(whole(u"çy", true), "[Notas] Like '[cç][yýÿ]'");
  EXPECT_EQ(part(u"mésa"), "[Notas] Like '*mésa*'");
}

TEST_F(Criterion, n_and_its_tilde_are_two_letters) { EXPECT_EQ(whole(u"nñÑ", true), "[Notas] Like 'nñÑ'"); }

TEST_F(Criterion, pairs_of_a_character_beyond_the_first_plane_stay_together) {
  EXPECT_EQ(whole(u"🏠", true), "[Notas] Like '🏠'");
}

TEST_F(Criterion, a_day_is_wholly_in_and_the_next_midnight_out) {
  EXPECT_EQ(days(day(2005, 3, 7), day(2005, 3, 7)),
            "[FechaAlta] >= #03/07/2005# And [FechaAlta] < #03/08/2005#");
  EXPECT_EQ(days(day(2005, 3, 7, 18), day(2005, 3, 7, 9)),
            "[FechaAlta] >= #03/07/2005# And [FechaAlta] < #03/08/2005#");
}

TEST_F(Criterion, a_day_before_day_zero_is_wholly_in_too) {
  EXPECT_EQ(days(day(1899, 12, 28, 18), day(1899, 12, 28, 9)),
            "[FechaAlta] >= #12/28/1899# And [FechaAlta] < #12/29/1899#");
}

TEST_F(Criterion, a_range_may_be_open_at_either_end) {
  EXPECT_EQ(days(day(2005, 3, 7), {}), "[FechaAlta] >= #03/07/2005#");
  EXPECT_EQ(days({}, day(2005, 12, 31)), "[FechaAlta] < #01/01/2006#");
}

TEST_F(Criterion, days_in_the_wrong_order_are_put_right) {
  EXPECT_EQ(days(day(2006, 1, 2), day(2005, 3, 7)), days(day(2005, 3, 7), day(2006, 1, 2)));
}

TEST_F(Criterion, years_of_any_century_are_written_with_four_digits) {
  EXPECT_EQ(days(day(1925, 5, 1), {}), "[FechaAlta] >= #05/01/1925#");
  EXPECT_EQ(days(day(1899, 12, 30), {}), "[FechaAlta] >= #12/30/1899#");
  EXPECT_EQ(days(day(987, 5, 1), {}), "[FechaAlta] >= #05/01/0987#");
}

TEST_F(Criterion, the_last_of_all_days_has_no_midnight_after_it) {
  EXPECT_EQ(days({}, day(9999, 12, 31)), "[FechaAlta] Is Not Null");
  EXPECT_EQ(days({}, day(9999, 12, 30)), "[FechaAlta] < #12/31/9999#");
}

TEST_F(Criterion, the_regional_settings_have_no_part_in_it) {
  here.platform.regional.dateSeparator = u'.';
  EXPECT_EQ(days(day(2005, 3, 7), {}), "[FechaAlta] >= #03/07/2005#");
}

}  // namespace

}  // namespace ovalia::desktop
