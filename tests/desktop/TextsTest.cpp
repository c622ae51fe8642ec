// What the desktop makes of texts, keys and typed dates: no window needed.
#include <gmock/gmock.h>

#include "desktop/KeyCodes.h"
#include "desktop/LineEnds.h"
#include "desktop/QtText.h"
#include "desktop/Scale.h"
#include "desktop/TypedMoment.h"

namespace ovalia::desktop {

namespace {

TEST(Texts, cross_unit_by_unit_with_half_pairs_and_marks) {
  const Text odd = {0xFEFF, u'a', 0xD83D, u'\0', u'ñ'};
  EXPECT_EQ(fromQt(toQt(odd)), odd);
}

TEST(Texts, are_read_aloud_without_mnemonic_and_colon) {
  EXPECT_EQ(spoken(u"&Categorías"), QStringLiteral("Categorías"));
  EXPECT_EQ(spoken(u"Cita creada por: "), QStringLiteral("Cita creada por"));
  EXPECT_EQ(spoken(u"A && B &"), QStringLiteral("A & B"));
}

TEST(Lines, are_shown_with_one_sign_and_stored_with_two) {
  EXPECT_EQ(shownLines(u"a\r\nb\nc\rd"), QStringLiteral("a\nb\nc\nd"));
  EXPECT_EQ(storedLines(QStringLiteral("a\nb")), u"a\r\nb");
}

TEST(Lines, have_positions_in_both) {
  const TextView stored = u"ab\r\ncd\r\n";
  const int pairs[][2] = {{0, 0}, {2, 2}, {4, 3}, {6, 5}, {8, 6}};
  for (const auto& [model, shown] : pairs) {
    EXPECT_EQ(shownPosition(stored, model), shown);
    EXPECT_EQ(storedPosition(stored, shown), model);
  }
}

TEST(Keys, have_their_virtual_numbers) {
  EXPECT_EQ(virtualKey(Qt::Key_Escape, {}), 27);
  EXPECT_EQ(virtualKey(Qt::Key_Return, {}), 13);
  EXPECT_EQ(virtualKey(Qt::Key_Enter, Qt::KeypadModifier), 13);
  EXPECT_EQ(virtualKey(Qt::Key_V, Qt::ControlModifier), 86);
  EXPECT_EQ(virtualKey(Qt::Key_7, {}), 55);
  EXPECT_EQ(virtualKey(Qt::Key_7, Qt::KeypadModifier), 103);
  EXPECT_EQ(virtualKey(Qt::Key_F4, {}), 115);
  EXPECT_EQ(virtualKey(Qt::Key_Period, Qt::KeypadModifier), 110);
}

TEST(Keys, of_comma_and_full_stop_are_the_same_with_shift_on_the_spanish_keyboard) {
  EXPECT_EQ(virtualKey(Qt::Key_Comma, Qt::ControlModifier), 188);
  EXPECT_EQ(virtualKey(Qt::Key_Semicolon, Qt::ControlModifier | Qt::ShiftModifier), 188);
  EXPECT_EQ(virtualKey(Qt::Key_Period, Qt::ControlModifier), 190);
  EXPECT_EQ(virtualKey(Qt::Key_Colon, Qt::ShiftModifier), 190);
  EXPECT_EQ(virtualKey(Qt::Key_Ntilde, {}), 192);
}

TEST(Keys, that_no_keyboard_of_old_had_have_no_number) {
  EXPECT_EQ(virtualKey(Qt::Key_LaunchMail, {}), 0);
  EXPECT_EQ(virtualKey(0x263A, {}), 0);
}

TEST(Keys, give_a_mask_of_shift_ctrl_and_alt) {
  EXPECT_EQ(shiftMask(Qt::ShiftModifier), 1);
  EXPECT_EQ(shiftMask(Qt::ControlModifier | Qt::AltModifier), 6);
  EXPECT_EQ(shiftMask(Qt::KeypadModifier), 0);
}

TEST(Twips, are_fifteen_a_pixel_at_96_dots_and_seven_and_a_half_at_192) {
  EXPECT_EQ(Scale(96).pixels(6375), 425);
  EXPECT_EQ(Scale(192).pixels(6375), 850);
  EXPECT_EQ(Scale(96).twips(425), 6375);
  EXPECT_EQ(Scale(192).twips(2), 15);
}

TEST(Twips, round_edges_so_that_neighbours_touch) {
  const Scale scale(96);
  EXPECT_EQ(scale.rect(7, 0, 100, 15).right() + 1, scale.rect(107, 0, 100, 15).left());
}

class Typed : public testing::Test {
 protected:
  Typed() { regional.thisYear = 2026; }
  std::string day(TextView text) {
    const auto date = typedDay(text, *dateFrom({2026, 3, 9}), regional);
    return date ? toUtf8(formatDate(*date, u"dd/MM/yy", regional)) : "-";
  }
  static std::string time(TextView text) {
    const auto date = typedTime(text);
    return date ? toUtf8(formatDate(*date, u"hh:mm:ss", Regional())) : "-";
  }
  Regional regional;
};

TEST_F(Typed, days_may_be_short) {
  EXPECT_EQ(day(u"5/3/25"), "05/03/25");
  EXPECT_EQ(day(u" 05-03-2025 "), "05/03/25");
  EXPECT_EQ(day(u"050325"), "05/03/25");
  EXPECT_EQ(day(u"05032025"), "05/03/25");
  EXPECT_EQ(day(u"5.3"), "05/03/26");
  EXPECT_EQ(day(u"0503"), "05/03/26");
  EXPECT_EQ(day(u"5"), "05/03/26");
}

TEST_F(Typed, two_digits_of_a_year_mean_the_regional_century) {
  EXPECT_EQ(partsOf(*typedDay(u"1/1/46", {}, regional)).year, 2046);
  EXPECT_EQ(partsOf(*typedDay(u"1/1/47", {}, regional)).year, 1947);
}

TEST_F(Typed, what_names_no_day_is_none) {
  for (const TextView text : {u"", u"31/02/25", u"5/13/25", u"5/3/025", u"x", u"1/2/3/4", u"123456789"})
    EXPECT_EQ(day(text), "-") << toUtf8(text);
}

TEST_F(Typed, times_may_be_short) {
  EXPECT_EQ(time(u"9"), "09:00:00");
  EXPECT_EQ(time(u"9:5"), "09:05:00");
  EXPECT_EQ(time(u"930"), "09:30:00");
  EXPECT_EQ(time(u"093015"), "09:30:15");
  EXPECT_EQ(time(u"24:00"), "-");
  EXPECT_EQ(time(u"9:60"), "-");
}

TEST_F(Typed, a_day_is_whole_when_it_cannot_become_another) {
  EXPECT_TRUE(wholeDay(u"05/03/25"));
  EXPECT_TRUE(wholeDay(u"5/3/2025"));
  EXPECT_FALSE(wholeDay(u"05/03/20"));
  EXPECT_FALSE(wholeDay(u"05/03/2"));
  EXPECT_FALSE(wholeDay(u"05/03"));
  EXPECT_FALSE(wholeDay(u"050325"));
  EXPECT_TRUE(wholeTime(u"09:30"));
  EXPECT_TRUE(wholeTime(u"9:30:15"));
  EXPECT_FALSE(wholeTime(u"09:3"));
  EXPECT_FALSE(wholeTime(u"09:30:"));
}

}  // namespace

}  // namespace ovalia::desktop
