#include "host/RtfTemplate.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

#include "host/TemplateFailure.h"

namespace ovalia::host {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

std::string page(const std::string& body, const std::string& start = "{\\rtf1\\ansi\\ansicpg1252\\deff0 ") {
  return start + body + "}";
}
std::string bookmark(const std::string& name, const std::string& inside) {
  return "{\\*\\bkmkstart " + name + "}" + inside + "{\\*\\bkmkend " + name + "}";
}

using Values = std::map<Text, Text>;

std::string filled(const std::string& document, const Values& values) {
  return filledRtf(document, [&](TextView name) {
    const auto found = values.find(Text(name));
    return found == values.end() ? std::optional<Text>() : found->second;
  });
}
std::string filledBody(const std::string& body, const Values& values) { return filled(page(body), values); }

std::string refusal(const std::string& document, const Values& values = {{u"A", u"x"}, {u"B", u"y"}}) {
  try {
    filled(document, values);
  } catch (const TemplateFailure& failure) {
    return toUtf8(failure.message);
  }
  return "";
}

TEST(RtfFilling, puts_the_text_in_the_bookmark_and_leaves_all_else_to_the_letter) {
  EXPECT_EQ(filledBody("Hola \\b " + bookmark("A", "aqui") + "\\b0 , adios\\par", {{u"A", u"Ana"}}),
            page("Hola \\b " + bookmark("A", "{\\uc1 Ana}") + "\\b0 , adios\\par"));
}

TEST(RtfFilling, fills_an_empty_bookmark_and_empties_one_without_text) {
  EXPECT_EQ(filledBody(bookmark("A", "") + bookmark("B", "algo"), {{u"A", u"Ana"}, {u"B", u""}}),
            page(bookmark("A", "{\\uc1 Ana}") + bookmark("B", "")));
}

TEST(RtfFilling, leaves_a_bookmark_alone_that_nobody_knows) {
  const std::string body = bookmark("_GoBack", "x") + bookmark("Firma", "y");
  EXPECT_EQ(filledBody(body, {{u"A", u"Ana"}}), page(body));
}

TEST(RtfFilling, fills_every_place_of_a_name_in_any_case) {
  EXPECT_EQ(filledBody("{\\header " + bookmark("a", "1") + "}" + bookmark("A", "2") + "{\\footer " +
                           bookmark("A", "") + "}",
                       {{u"A", u"x"}, {u"a", u"x"}}),
            page("{\\header " + bookmark("a", "{\\uc1 x}") + "}" + bookmark("A", "{\\uc1 x}") + "{\\footer " +
                 bookmark("A", "{\\uc1 x}") + "}"));
}

TEST(RtfFilling, keeps_the_looks_of_the_first_text_that_it_replaces) {
  EXPECT_EQ(filledBody(bookmark("A", "{\\rtlch \\ltrch\\b uno}{\\i  dos\\'e1\\u241?}"), {{u"A", u"x"}}),
            page(bookmark("A", "{\\rtlch \\ltrch\\b {\\uc1 x}}{\\i }")));
}

TEST(RtfFilling, takes_fields_and_pictures_out_as_a_whole) {
  EXPECT_EQ(filledBody(bookmark("A", "{\\field{\\*\\fldinst DATE}{\\fldrslt hoy}}{\\pict 00ff}{\\*\\cosa 1}"),
                       {{u"A", u"x"}}),
            page(bookmark("A", "{\\uc1 x}")));
}

// Old forms have fields to fill in, each with a bookmark that begins within.
TEST(RtfFilling, takes_the_field_of_a_form_for_the_text_of_its_bookmark) {
  const std::string field =
      "{\\field{\\*\\fldinst {{\\*\\bkmkstart A} FORMTEXT }{{\\*\\formfield{\\*\\ffname A}}}}{\\fldrslt "
      "{r}}}";
  EXPECT_EQ(filledBody("uno " + field + "\\sectd {{\\*\\bkmkend A} dos}", {{u"A", u"x"}}),
            page("uno {\\uc1 x}\\sectd {{\\*\\bkmkend A} dos}"));
  EXPECT_EQ(filledBody("{\\header " + field + "{\\*\\bkmkend A}}", {{u"A", u""}}),
            page("{\\header {\\*\\bkmkend A}}"));
  EXPECT_EQ(filledBody("uno " + field + "{\\*\\bkmkend A}", {}), page("uno " + field + "{\\*\\bkmkend A}"));
  EXPECT_THAT(refusal(page("{\\header " + field + "}{\\*\\bkmkend A}")),
              HasSubstr("en una parte del documento"));
  EXPECT_THAT(refusal(page("{\\field{\\*\\fldinst IF " + field + "}{\\fldrslt s}}{\\*\\bkmkend A}")),
              HasSubstr("dentro de un campo"));
}

TEST(RtfFilling, keeps_cells_and_groups_that_reach_over_the_end) {
  EXPECT_EQ(filledBody("{\\b " + std::string("{\\*\\bkmkstart A}uno\\cell }{\\i dos{\\*\\bkmkend A}}"),
                       {{u"A", u"x"}}),
            page("{\\b {\\*\\bkmkstart A}{\\uc1 x}\\cell }{\\i {\\*\\bkmkend A}}"));
}

TEST(RtfFilling, joins_paragraphs_inside_but_not_with_the_next_one) {
  EXPECT_EQ(filledBody(bookmark("A", "uno\\par dos\\par ") + "tres", {{u"A", u"x"}}),
            page(bookmark("A", "{\\uc1 x}\\par ") + "tres"));
  EXPECT_EQ(filledBody(bookmark("A", "\\par "), {{u"A", u"x"}}), page(bookmark("A", "{\\uc1 x}\\par ")));
}

TEST(RtfFilling, keeps_the_signs_of_lists_and_the_frames_of_tables_in_tables) {
  for (const char* sign :
       {"{\\listtext\\f1 \\'b7\\tab }", "{\\pntext\\f1 \\'b7\\tab }{\\*\\pn\\pnlvlblt{\\pntxtb\\'b7}}",
        "{\\*\\nesttableprops\\trowd\\nestrow}{\\nonesttables\\par }"})
    EXPECT_EQ(filledBody(bookmark("A", std::string(sign) + "uno"), {{u"A", u"x"}}),
              page(bookmark("A", std::string(sign) + "{\\uc1 x}")))
        << sign;
}

// A word processor writes the bookmark over a link so that one of its ends is within.
TEST(RtfFilling, changes_the_text_of_a_link_that_a_bookmark_reaches_into) {
  const std::string start = "{\\*\\bkmkstart A}", end = "{\\*\\bkmkend A}",
                    link = "{\\field{\\*\\fldinst HYPERLINK x}";
  EXPECT_EQ(filledBody(link + "{\\fldrslt {\\ul " + start + "enlace}{}}}" + end + " y", {{u"A", u"x"}}),
            page(link + "{\\fldrslt {\\ul " + start + "{\\uc1 x}}{}}}" + end + " y"));
  EXPECT_EQ(filledBody(start + "uno" + link + "{\\fldrslt enl" + end + "ace}}", {{u"A", u"x"}}),
            page(start + "{\\uc1 x}" + link + "{\\fldrslt " + end + "ace}}"));
}

TEST(RtfFilling, begins_with_the_first_of_several_beginnings) {
  const std::string again = "{\\*\\bkmkstart A}";
  EXPECT_EQ(filledBody(again + "uno\\par " + bookmark("A", "dos") + "\\par ", {{u"A", u"x"}}),
            page(again + "{\\uc1 x}" + again + "{\\*\\bkmkend A}\\par "));
}

TEST(RtfFilling, puts_no_text_where_a_change_was_struck_out) {
  EXPECT_EQ(
      filledBody(bookmark("A", "{\\b\\deleted\\revauthdel1 viejo}{\\i\\revised nuevo}"), {{u"A", u"x"}}),
      page(bookmark("A", "{\\uc1 x}{\\i\\revised }")));
}

TEST(RtfFilling, takes_the_sign_of_a_note_out_with_the_note) {
  EXPECT_EQ(filledBody(bookmark("A", "uno{\\super\\chftn {\\footnote\\chftn nota}}"), {{u"A", u"x"}}),
            page(bookmark("A", "{\\uc1 x}{\\super}")));
}

TEST(RtfFilling, knows_a_backslash_before_a_line_end_for_the_end_of_a_paragraph) {
  EXPECT_EQ(filledBody(bookmark("A", "uno\\\n") + "dos", {{u"A", u"x"}}),
            page(bookmark("A", "{\\uc1 x}\\\n") + "dos"));
}

// Old readers have a drawing of their own of each text box.
TEST(RtfFilling, fills_a_box_in_both_of_its_drawings) {
  const auto boxes = [](const std::string& inside) {
    return "{\\shp{\\*\\shpinst{\\shptxt " + bookmark("A", inside) +
           "}}{\\shprslt{\\*\\do\\dptxbx{\\dptxbxtext " + bookmark("A", inside) + "}\\dpx1}}}";
  };
  EXPECT_EQ(filledBody(boxes("1"), {{u"A", u"x"}}), page(boxes("{\\uc1 x}")));
}

TEST(RtfFilling, skips_the_bytes_of_a_picture_whatever_they_look_like) {
  const std::string picture = "{\\pict\\bin7 }}{\\*\\}x";
  EXPECT_EQ(filledBody(picture + "}" + bookmark("A", ""), {{u"A", u"x"}}),
            page(picture + "}" + bookmark("A", "{\\uc1 x}")));
}

TEST(RtfFilling, leaves_foreign_bookmarks_inside_one_in_place) {
  EXPECT_EQ(filledBody("{\\*\\bkmkstart A}uno{\\*\\bkmkstart _Toc}dos{\\*\\bkmkend A}tres{\\*\\bkmkend _Toc}",
                       {{u"A", u"x"}}),
            page("{\\*\\bkmkstart A}{\\uc1 x}{\\*\\bkmkstart _Toc}{\\*\\bkmkend A}tres{\\*\\bkmkend _Toc}"));
}

TEST(RtfTexts, write_what_is_not_plain_so_that_any_reader_has_it) {
  EXPECT_EQ(rtfText(u"Peña {1} \\ 3"), "Pe\\u241?a \\{1\\} \\\\ 3");
  EXPECT_EQ(rtfText(u"€\U0001F600\uFFFD"), "\\u8364?\\u-10179?\\u-8704?\\u-3?");
  EXPECT_EQ(rtfText(u"a\r\nb\nc\rd\ve\tf"), "a\\line b\\line c\\line d\\line e\\tab f");
  EXPECT_EQ(rtfText(u"\r\n\r\n"), "\\line \\line ");
  EXPECT_EQ(rtfText(Text(u"a\0b\x07", 4)), "ab");
  EXPECT_EQ(rtfText(u"\u00A0\x7f"), "\\u160?\x7f");
}

TEST(RtfNames, are_read_in_every_way_of_writing_an_accent) {
  const auto names = [](const std::string& body, const char* start = "{\\rtf1\\ansi ") {
    return rtfBookmarks(page(body, start));
  };
  for (const char* written :
       {"Ubicaci\\'f3n", "Ubicaci\\'F3n", "Ubicaci\\u243?n", "Ubicaci\\u243\\'f3n", "Ubicaci\\uc0\\u243 n",
        "Ubicaci\\uc2\\u243 xxn", "Ubicaci\xF3n", "Ubi\r\ncaci\\'f3n ", "Ubicaci{}\\'f3n"})
    EXPECT_THAT(names(bookmark(written, "x")), ElementsAre(u"Ubicación")) << written;
  EXPECT_THAT(names(bookmark("Ubicaci\xC3\xB3n", "x"), "{\\rtf1\\ansi\\ansicpg65001 "),
              ElementsAre(u"Ubicación"));
  EXPECT_THAT(names(bookmark("\\'80uro\\'93", "x")), ElementsAre(u"€uro“"));
  EXPECT_THAT(names("\\uc0 " + bookmark("Ubicaci\\u243 n", "x")), ElementsAre(u"Ubicación"));
}

TEST(RtfNames, are_read_in_the_code_page_of_the_document) {
  struct Row {
    const char *start, *written;
  };
  for (const Row& row : {Row{"{\\rtf1\\pca ", "Ubicaci\\'a2n"},
                         {"{\\rtf1\\pc ", "Ubicaci\\'a2n"},
                         {"{\\rtf1\\mac ", "Ubicaci\\'97n"},
                         {"{\\rtf1\\ansi\\ansicpg850 ", "Ubicaci\\'a2n"},
                         {"{\\rtf1\\ansi\\ansicpg1250 ", "Ubicaci\\'f3n"},
                         {"{\\rtf1\\mac\\ansicpg10000 ", "Ubicaci\\'97n"},
                         {"{\\rtf1\\ansi\\ansicpg99999 ", "Ubicaci\\'f3n"}})
    EXPECT_THAT(rtfBookmarks(page(bookmark(row.written, "x"), row.start)), ElementsAre(u"Ubicación"))
        << row.start;
  EXPECT_THAT(rtfBookmarks(page(bookmark("\\'c1\\'e2", "x"), "{\\rtf1\\ansi\\ansicpg1253 ")),
              ElementsAre(u"Αβ"));
  EXPECT_THAT(rtfBookmarks(page(bookmark("\\'93\\'fa\\'81", "x"), "{\\rtf1\\ansi\\ansicpg932 ")),
              ElementsAre(u"日\uFFFD"));
}

// A name beyond the code page stands there twice, once for old readers.
TEST(RtfNames, are_those_for_new_readers_where_there_are_two) {
  const auto end = [](const std::string& which) {
    return "{\\upr{\\*\\bkmk" + which + " Ubicaci?n}{\\*\\ud{\\*\\bkmk" + which + " Ubicaci\\u243 ?n}}}";
  };
  const std::string body = end("start") + "x" + end("end");
  EXPECT_THAT(rtfBookmarks(page(body)), ElementsAre(u"Ubicación"));
  EXPECT_EQ(filledBody(body, {{u"Ubicación", u"Colón"}}),
            page(end("start") + "{\\uc1 Col\\u243?n}" + end("end")));
  EXPECT_EQ(filledBody(bookmark("A", "uno" + body + "dos"), {{u"A", u"y"}}),
            page(bookmark("A", "{\\uc1 y}" + end("start") + end("end"))));
}

TEST(RtfNames, are_told_once_each_in_their_order_with_those_of_headers_and_boxes) {
  EXPECT_THAT(rtfBookmarks(page("{\\header " + bookmark("B", "") + "}" + bookmark("A", "") +
                                bookmark("b", "") + "{\\shp{\\*\\shpinst{\\shptxt " + bookmark("C", "") +
                                "}}}{\\*\\bkmkend D}{\\*\\bkmkstart\\bkmkcolf1\\bkmkcoll2 E}")),
              ElementsAre(u"B", u"A", u"C", u"E"));
  EXPECT_EQ(filledBody("{\\shp{\\*\\shpinst{\\shptxt " + bookmark("A", "1") + "}}}", {{u"A", u"x"}}),
            page("{\\shp{\\*\\shpinst{\\shptxt " + bookmark("A", "{\\uc1 x}") + "}}}"));
}

TEST(RtfDamage, is_refused_with_a_word_of_help) {
  for (const std::string document :
       {"", "{\\rtf", "{\\rtf1 hola", "{\\rtf1 {hola}", "{\\rtf1 hola}}", "{\\rtf1 hola} y mas", "{\\rtf1 \\",
        "{\\rtf1 \\'f", "{\\rtf1 \\'zz}", "{\\rtf1 \\bin9 x}", "{\\rtf1 \\bin-1 x}",
        "{\\rtf1 \\fs99999999999}", "Hola", "{\\urtf1 hola}", "\xEF\xBB\xBF{\\rtf1 hola}"})
    EXPECT_THAT(refusal(document), HasSubstr("su procesador de textos y ")) << document;
  EXPECT_EQ(refusal(std::string("{\\rtf1 hola}\r\n\0\0", 16)), "");
}

TEST(RtfDamage, of_a_bookmark_names_it) {
  EXPECT_THAT(refusal(page("{\\*\\bkmkstart A}x")), HasSubstr("«A» de la plantilla no tiene final"));
  EXPECT_THAT(refusal(page("x{\\*\\bkmkend A}")),
              HasSubstr("«A» de la plantilla termina sin haber empezado"));
  EXPECT_THAT(refusal(page("{\\*\\bkmkstart A}{\\*\\bkmkstart A}{\\*\\bkmkend A}{\\*\\bkmkend A}")),
              HasSubstr("«A» de la plantilla termina sin haber empezado"));
  EXPECT_THAT(refusal(page("{\\header {\\*\\bkmkstart A}x}{\\*\\bkmkend A}")),
              HasSubstr("empieza en una parte del documento y termina en otra"));
  EXPECT_THAT(refusal(page("{\\field{\\*\\fldinst " + bookmark("A", "x") + "}{\\fldrslt }}")),
              HasSubstr("«A» de la plantilla está dentro de un campo"));
  EXPECT_THAT(refusal(page(bookmark("A", "x" + bookmark("B", "y")))),
              HasSubstr("«B» de la plantilla está dentro del marcador «A»"));
  EXPECT_THAT(refusal(page("{\\*\\bkmkstart A}{\\*\\bkmkstart B}{\\*\\bkmkend A}{\\*\\bkmkend B}")),
              HasSubstr("«B» de la plantilla está dentro del marcador «A» o se cruza con él"));
  EXPECT_EQ(refusal(page(bookmark("A", "") + bookmark("B", "") + "{\\*\\bkmkstart C}")), "");
}

// A document is cut at every byte, and every byte of it is spoilt: it is filled or refused, nothing else.
TEST(RtfDamage, of_any_kind_never_leaves_more_than_a_refusal) {
  const std::string whole = page("{\\fonttbl{\\f0 A;}}{\\header " + bookmark("A", "\\'e1\\u241?") + "}{\\b " +
                                 bookmark("B", "{\\i x}\\par\\bin2 {{") + "}{\\field{\\*\\fldinst X}}");
  ASSERT_EQ(refusal(whole), "");
  for (std::size_t length = 0; length < whole.size(); ++length)
    EXPECT_NE(refusal(whole.substr(0, length)), "") << length;
  for (std::size_t at = 0; at < whole.size(); ++at)
    for (const char c : {'{', '}', '\\', 'x', '9', '\0', '\n', '*'}) {
      std::string spoilt = whole;
      spoilt[at] = c;
      refusal(spoilt);
    }
}

}  // namespace

}  // namespace ovalia::host
