#include "routines/TextHelpers.h"

#include <gtest/gtest.h>

#include "tests/kit/FakeDatabase.h"
#include "tests/kit/FakeObject.h"
#include "tests/kit/TestPlatform.h"

namespace ovalia {
namespace {

using kit::FakeObject;

class TextHelpers : public kit::LogicTest {};

TEST_F(TextHelpers, zero_padding_acts_on_one_character_only) {
  EXPECT_EQ(CeroPadding(u"7"), u"07");
  EXPECT_EQ(CeroPadding(u"12"), u"12");
  EXPECT_EQ(CeroPadding(u""), u"");
  EXPECT_EQ(CeroPadding(u"123"), u"123");
  EXPECT_EQ(CeroPadding(u"x"), u"0x");
}

TEST_F(TextHelpers, padding_fills_with_zeros_and_never_cuts) {
  EXPECT_EQ(Padding(u"7", 3), u"007");
  EXPECT_EQ(Padding(u"123", 2), u"123");
  EXPECT_EQ(Padding(u"12", 2), u"12");
  EXPECT_EQ(Padding(u"", 2), u"00");
  EXPECT_EQ(Padding(u"", 0), u"");
  EXPECT_EQ(Padding(u"7", -5), u"7");
}

TEST_F(TextHelpers, text_of_a_buffer_ends_before_its_first_nul_untrimmed) {
  EXPECT_EQ(TrimNull(Text(u" abc\0xyz\0", 9)), u" abc");
  EXPECT_EQ(TrimNull(Text(u" abc \0", 6)), u" abc ");
}

TEST_F(TextHelpers, text_of_a_buffer_that_begins_with_nul_is_empty) {
  EXPECT_EQ(TrimNull(Text(u"\0abc", 4)), u"");
}

TEST_F(TextHelpers, text_without_nul_loses_the_blanks_around_it) {
  EXPECT_EQ(TrimNull(u" abc "), u"abc");
  EXPECT_EQ(TrimNull(u"\tabc\r\n"), u"\tabc\r\n");
  EXPECT_EQ(TrimNull(u""), u"");
}

TEST_F(TextHelpers, a_number_is_grouped_without_decimals) {
  EXPECT_EQ(FormatNum(166386), u"166.386");
  EXPECT_EQ(FormatNum(0), u"0");
  EXPECT_EQ(FormatNum(1234567.89), u"1.234.568");
  EXPECT_EQ(FormatNum(-1234.4), u"-1.234");
  EXPECT_EQ(FormatNum(Currency{1805000000}), u"180.500");
  EXPECT_EQ(FormatNum(u"1234,5"), u"1.235");
}

TEST_F(TextHelpers, a_half_is_rounded_away_from_zero) {
  EXPECT_EQ(FormatNum(2.5), u"3");
  EXPECT_EQ(FormatNum(-2.5), u"-3");
  EXPECT_EQ(FormatNum(0.5), u"1");
}

TEST_F(TextHelpers, grouping_follows_the_regional_settings) {
  here.platform.regional.grouping = u' ';
  EXPECT_EQ(FormatNum(166386), u"166 386");
}

TEST_F(TextHelpers, no_number_is_the_empty_text_and_not_zero) { EXPECT_EQ(FormatNum(Null), u""); }

TEST_F(TextHelpers, a_number_that_is_none_is_reported) {
  expectReport(u"FormatNum() de RutinasErr", 13);
  EXPECT_EQ(FormatNum(u"caro"), u"");
}

struct ByteRow {
  Variant given;
  bool fine;
  TextView rewritten;
};

class ByteCheck : public kit::LogicTest, public testing::WithParamInterface<ByteRow> {};

TEST_P(ByteCheck, accepts_whole_numbers_of_a_byte_and_trims_the_callers_value) {
  Variant value = GetParam().given;
  EXPECT_EQ(ComprobarByte(value, false), GetParam().fine);
  EXPECT_EQ(value.text(), GetParam().rewritten);
}

INSTANTIATE_TEST_SUITE_P(TextHelpers, ByteCheck,
                         testing::Values(ByteRow{u"  12 ", true, u"12"}, ByteRow{u"", true, u""},
                                         ByteRow{u"   ", true, u""}, ByteRow{u"0", true, u"0"},
                                         ByteRow{u"255", true, u"255"}, ByteRow{u"256", false, u"256"},
                                         ByteRow{u"-1", false, u"-1"}, ByteRow{u"abc", false, u"abc"},
                                         // Whatever converts to a whole number passes.
                                         ByteRow{u"1,5", true, u"1,5"}, ByteRow{u"255,4", true, u"255,4"},
                                         ByteRow{u"255,5", false, u"255,5"}, ByteRow{u"-0,5", true, u"-0,5"},
                                         ByteRow{u"1e2", true, u"1e2"}, ByteRow{u"&HFF", true, u"&HFF"},
                                         ByteRow{u"1 2", false, u"1 2"}, ByteRow{Variant{}, true, u""},
                                         ByteRow{Variant(7), true, u"7"}, ByteRow{Null, false, u""}));

TEST_F(ByteCheck, tells_of_a_refusal_where_asked_to) {
  for (const TextView text : {u"256", u"-1", u"abc"}) {
    Variant value(text);
    expectBox(u"Introduzca un número entre 0 y 255.", 48, u"Error");
    EXPECT_FALSE(ComprobarByte(value, true));
  }
}

TEST_F(ByteCheck, is_silent_about_what_it_accepts) {
  for (const TextView text : {u"", u"12"}) {
    Variant value(text);
    EXPECT_TRUE(ComprobarByte(value, true));
  }
}

TEST_F(ByteCheck, an_overflow_is_reported_and_counts_as_fine) {
  Variant value(u" 3000000000 ");
  expectReport(u"ComprobarByte() de RutinasErr", 6);
  EXPECT_TRUE(ComprobarByte(value, true));
  EXPECT_EQ(value.text(), u"3000000000");
}

class Selecting : public kit::LogicTest {};

TEST_F(Selecting, marks_the_whole_text_of_a_control) {
  const auto box = std::make_shared<FakeObject>();
  box->with(u"Text", u"Señora");
  Remarcar(box);
  EXPECT_EQ(box->journal, (std::vector<Text>{u"SelStart = 0", u"SelLength = 6"}));
}

TEST_F(Selecting, sets_nothing_on_an_empty_control) {
  const auto box = std::make_shared<FakeObject>();
  box->with(u"Text", u"");
  Remarcar(box);
  EXPECT_TRUE(box->journal.empty());
}

TEST_F(Selecting, of_a_control_that_has_no_text_is_reported) {
  expectReport(u"Remarcar() de RutinasErr", 438);
  Remarcar(std::make_shared<FakeObject>());
}

class Existence : public kit::LogicTest {
 protected:
  Existence() {
    controls->answering(u"", [](Arguments given) -> Variant {
      if (sameName(given[0].text(), u"cboAcceso")) return kit::named(u"cboAcceso");
      if (given[0].text() == u"numero") return 7;
      throw Failure(730);
    });
  }
  std::shared_ptr<FakeObject> controls = std::make_shared<FakeObject>();
};

TEST_F(Existence, is_found_by_trying) {
  EXPECT_TRUE(ExisteControl(controls, u"cboAcceso"));
  EXPECT_FALSE(ExisteControl(controls, u"splitDocumentos"));
}

TEST_F(Existence, takes_what_is_no_object_for_missing) { EXPECT_FALSE(ExisteControl(controls, u"numero")); }

TEST_F(Existence, reports_nothing_even_without_a_collection) {
  EXPECT_FALSE(ExisteControl(ObjectRef{}, u"cboAcceso"));
  EXPECT_FALSE(ExisteControl(std::make_shared<FakeObject>(), u"cboAcceso"));
}

TEST_F(Existence, of_a_column_asks_the_fields_without_regard_to_case) {
  const auto database = std::make_shared<kit::FakeDatabase>(here.faults);
  database->table(u"NotaIP", {{u"IdNota", dao::dbLong}, {u"Narchivos", dao::dbLong}});
  const auto rows = database->OpenRecordset(u"NotaIP");
  EXPECT_TRUE(ExisteControl(rows->fields(), u"NArchivos"));
  EXPECT_FALSE(ExisteControl(rows->fields(), u"IdAgencia"));
}

}  // namespace
}  // namespace ovalia
