#include "platform/Text.h"

#include <gtest/gtest.h>

#include <map>

namespace ovalia {
namespace {

TEST(Utf8, writes_every_length_of_sequence) {
  EXPECT_EQ(toUtf8(u"a ñ € 😀"), "a \xC3\xB1 \xE2\x82\xAC \xF0\x9F\x98\x80");
  EXPECT_EQ(toUtf8(u""), "");
  EXPECT_EQ(toUtf8(Text(1, u'\0')), std::string(1, '\0'));
}

TEST(Utf8, reads_what_it_wrote) {
  const Text all = u"Ibáñez \u007F\u0080\u07FF\u0800\uFFFF\U00010000\U0010FFFF";
  EXPECT_EQ(fromUtf8(toUtf8(all)), all);
}

TEST(Utf8, a_lone_surrogate_becomes_the_replacement_character) {
  const Text high(1, char16_t(0xD83D)), low(1, char16_t(0xDE00));
  EXPECT_EQ(toUtf8(u"a" + high + u"b"),
            "a\xEF\xBF\xBD"
            "b");
  EXPECT_EQ(toUtf8(low + high), "\xEF\xBF\xBD\xEF\xBF\xBD");
}

TEST(Utf8, every_byte_that_is_no_utf8_becomes_one_replacement_character) {
  const std::map<std::string, Text> readings = {
      {"a\xFF"
       "b",
       u"a\uFFFDb"},
      {"\xC3", u"\uFFFD"},                                // cut off
      {"\xE2\x82", u"\uFFFD\uFFFD"},                      // cut off
      {"\xC0\x80", u"\uFFFD\uFFFD"},                      // overlong
      {"\xE0\x80\x80", u"\uFFFD\uFFFD\uFFFD"},            // overlong
      {"\xED\xA0\x80", u"\uFFFD\uFFFD\uFFFD"},            // a surrogate
      {"\xF4\x90\x80\x80", u"\uFFFD\uFFFD\uFFFD\uFFFD"},  // beyond Unicode
      {"\x80x", u"\uFFFDx"},
      {"Pe\xF1"
       "a",
       u"Pe\uFFFDa"},
  };
  for (const auto& [bytes, text] : readings)
    EXPECT_EQ(fromUtf8(bytes), text) << testing::PrintToString(bytes);
}

TEST(LowerCase, covers_the_whole_of_unicode) {
  EXPECT_EQ(lowerCase(u"DÍA Ñ ÇÀÜ"), u"día ñ çàü");
  EXPECT_EQ(lowerCase(u"ΑΒΓ ЖЯ ԱՖ"), u"αβγ жя աֆ");
  EXPECT_EQ(lowerCase(u"ĀĂ ŹŻ Ÿ Ǆ Ⅷ Ⓐ Ａ ẞ"), u"āă źż ÿ ǆ ⅷ ⓐ ａ ß");
  EXPECT_EQ(lowerCase(u"𐐀𞤀"), u"𐐨𞤢");
  EXPECT_EQ(lowerCase(u"İ"), u"i");
}

TEST(LowerCase, leaves_everything_else_alone) {
  const Text others = u"día ß ª º 1@[`{ 日本 😀 \u00D7\u00F7";
  EXPECT_EQ(lowerCase(others), others);
  const Text lone(1, char16_t(0xD801));
  EXPECT_EQ(lowerCase(lone), lone);
}

TEST(LowerCase, is_stable_for_each_code_point) {
  for (char32_t code = 1; code < 0x20000; ++code) {
    if (code >= 0xD800 && code < 0xE000) continue;
    Text text;
    if (code < 0x10000) {
      text = char16_t(code);
    } else {
      text = char16_t(0xD800 + ((code - 0x10000) >> 10));
      text += char16_t(0xDC00 + ((code - 0x10000) & 0x3FF));
    }
    const Text lower = lowerCase(text);
    ASSERT_EQ(lowerCase(lower), lower) << std::hex << std::uint32_t(code);
    ASSERT_TRUE(sameName(text, lower)) << std::hex << std::uint32_t(code);
  }
}

TEST(SameName, goes_without_case_but_with_accents) {
  EXPECT_TRUE(sameName(u"NArchivos", u"Narchivos"));
  EXPECT_TRUE(sameName(u"AÑO", u"año"));
  EXPECT_FALSE(sameName(u"Año", u"Ano"));
  EXPECT_FALSE(sameName(u"Nota", u"Notas"));
  EXPECT_FALSE(sameName(u"", u"a"));
  EXPECT_TRUE(sameName(u"", u""));
}

TEST(NameLess, is_an_order_without_case) {
  const NameLess less;
  EXPECT_TRUE(less(u"a", u"B"));
  EXPECT_TRUE(less(u"A", u"b"));
  EXPECT_FALSE(less(u"b", u"A"));
  EXPECT_TRUE(less(u"ab", u"ABC"));
  EXPECT_FALSE(less(u"ABC", u"ab"));
  EXPECT_FALSE(less(u"x", u"X"));
  const std::map<Text, int, NameLess> numbers = {{u"Uno", 1}, {u"DOS", 2}};
  EXPECT_EQ(numbers.at(u"uno"), 1);
  EXPECT_TRUE(numbers.contains(TextView(u"Dos")));
}

TEST(TrimBlanks, takes_blanks_off_both_ends_and_nothing_else) {
  EXPECT_EQ(trimBlanks(u"  a b  "), u"a b");
  EXPECT_EQ(trimBlanks(u" \ta\r\n "), u"\ta\r\n");
  EXPECT_EQ(trimBlanks(u"\u00A0a\u00A0"), u"\u00A0a\u00A0");
  EXPECT_EQ(trimBlanks(u"   "), u"");
  EXPECT_EQ(trimBlanks(u""), u"");
}

TEST(ReplaceAll, goes_from_the_left_without_looking_at_what_it_put_in) {
  EXPECT_EQ(replaceAll(u"carta.dot", u".dot", u".doc"), u"carta.doc");
  EXPECT_EQ(replaceAll(u"O'Donnell's", u"'", u"''"), u"O''Donnell''s");
  EXPECT_EQ(replaceAll(u"aaa", u"aa", u"b"), u"ba");
  EXPECT_EQ(replaceAll(u".DOT", u".dot", u".doc"), u".DOT");
  EXPECT_EQ(replaceAll(u"abc", u"", u"x"), u"abc");
  EXPECT_EQ(replaceAll(u"abc", u"b", u""), u"ac");
  EXPECT_EQ(replaceAll(u"", u"b", u"c"), u"");
}

TEST(ToText, writes_plain_digits) {
  EXPECT_EQ(toText(0), u"0");
  EXPECT_EQ(toText(-4073), u"-4073");
  EXPECT_EQ(toText(1234567), u"1234567");
  EXPECT_EQ(toText(INT64_MIN), u"-9223372036854775808");
}

}  // namespace
}  // namespace ovalia
