#include "host/WordProcessor.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include "tests/host/WordProcessing.h"

namespace ovalia::host {

namespace {

namespace fs = std::filesystem;
using desktop::PrintWish;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

const GivenMarks subjectOnly{{0, {u"Asunto", u"Llaves del ático\r\nde Peña"}}};

void wish(PrintWish::Where where, Text printer = {}) {
  desktop::TemplatePicking::current().wish = PrintWish{where, std::move(printer)};
}

TEST_F(WordProcessing, makes_a_document_fills_it_by_the_names_of_its_marks_and_opens_it) {
  putTemplate(rtf("Asunto: " + bookmark("Asunto") + ", " + bookmark("Fecha") + bookmark("Firma")));
  const ObjectRef document = newLetter();
  ASSERT_TRUE(document);
  EXPECT_TRUE(folder.has("Doc0/1F00.doc"));
  EXPECT_THAT(dialogs.opened, IsEmpty());
  fill(document, {{7, {u"Fecha", u"08/03/26"}}, {30, {u"Asunto", u"Llaves"}}});
  EXPECT_EQ(folder.content("Doc0/1F00.doc"), rtf("Asunto: " + holding("Asunto", "Llaves") + ", " +
                                                 holding("Fecha", "08/03/26") + bookmark("Firma")));
  EXPECT_THAT(dialogs.opened, ElementsAre(fromUtf8(native("Doc0/1F00.doc"))));
  EXPECT_EQ(dialogs.openedAs, u"Carta.rtf");
  EXPECT_THAT(filesIn("tmp"), IsEmpty());
  EXPECT_THAT(dialogs.told, IsEmpty());
}

TEST_F(WordProcessing, says_of_a_document_what_it_is) {
  putTemplate(rtf(bookmark("Asunto")));
  const ObjectRef document = newLetter();
  EXPECT_EQ(getMember(document, u"Documento").text(), fromUtf8(native("Doc0/1F00.doc")));
  EXPECT_EQ(getMember(document, u"Plantilla").text(), fromUtf8(native("Plantillas/Carta.dot")));
  EXPECT_THROW(callMember(document, u"Rellenar"), Failure);
}

TEST_F(WordProcessing, empties_the_bookmarks_of_marks_that_are_empty_or_not_given) {
  putTemplate(rtf(bookmark("Asunto") + bookmark("Notas") + bookmark("Referencia")));
  fill(newLetter(), {{0, {u"Asunto", u""}}, {1, {u"Autor", u"Ana"}}});
  EXPECT_EQ(folder.content("Doc0/1F00.doc"),
            rtf(holding("Asunto", "") + holding("Notas", "") + holding("Referencia", "")));
}

TEST_F(WordProcessing, takes_the_filled_one_of_a_mark_that_is_given_twice) {
  putTemplate(rtf(bookmark("Comercial2") + bookmark("Asunto")));
  fill(newLetter(), {{5, {u"Comercial2", u""}},
                     {17, {u"Comercial2", u"Ana"}},
                     {22, {u"Comercial2", u""}},
                     {0, {u"Asunto", u"uno"}},
                     {1, {u"Asunto", u"dos"}}});
  EXPECT_EQ(folder.content("Doc0/1F00.doc"), rtf(holding("Comercial2", "Ana") + holding("Asunto", "uno")));
}

TEST_F(WordProcessing, puts_a_marks_text_where_its_second_name_stands_and_is_not_given) {
  putTemplate(rtf(bookmark("Autor2") + bookmark("Donde") + bookmark("Notas2") + bookmark("Tfno2")));
  fill(newLetter(), {{2, {u"Autor", u"Ana"}},
                     {10, {u"Ubicación", u"Colón"}},
                     {8, {u"Notas", u"si"}},
                     {9, {u"Notas2", u""}},
                     {41, {u"Tfno1", u"963"}}});
  EXPECT_EQ(folder.content("Doc0/1F00.doc"), rtf(holding("Autor2", "Ana") + holding("Donde", "Col\\u243?n") +
                                                 holding("Notas2", "") + holding("Tfno2", "")));
}

TEST_F(WordProcessing, takes_paths_in_the_systems_form_and_in_any_case) {
  putTemplate(rtf(bookmark("Asunto")));
  const Text data = fromUtf8(folder.path().string());
  const ObjectRef document =
      newDocument(workplace, data + u"\\DOC0\\\\1F01.doc", data + u"\\plantillas\\CARTA.dot");
  fill(document, subjectOnly);
  EXPECT_EQ(folder.content("Doc0/1F01.doc"),
            rtf(holding("Asunto", "Llaves del \\u225?tico\\line de Pe\\u241?a")));
}

TEST_F(WordProcessing, does_nothing_without_a_document) {
  fillDocument(subjectOnly.names(), subjectOnly.texts(), nullptr);
  EXPECT_THAT(dialogs.told, IsEmpty());
}

TEST_F(WordProcessing, never_replaces_a_document) {
  putTemplate(rtf(bookmark("Asunto")));
  folder.putFile("Doc0/1f00.DOC", "de otro");
  EXPECT_EQ(newLetter(), nullptr);
  EXPECT_THAT(told(), StartsWith("Plantilla: Ya existe el documento " + native("Doc0/1f00.DOC")));
  EXPECT_EQ(folder.content("Doc0/1f00.DOC"), "de otro");
}

TEST_F(WordProcessing, tells_of_a_folder_that_is_missing_and_of_one_that_cannot_be_written_to) {
  putTemplate(rtf(bookmark("Asunto")));
  EXPECT_EQ(newLetter(u"Doc7\\1F00.doc"), nullptr);
  EXPECT_THAT(told(), HasSubstr("No existe la carpeta en la que debe guardarse el documento"));
  dialogs.told.clear();
  folder.putFile("Doc1", "un fichero");
  EXPECT_EQ(newLetter(u"Doc1\\1F00.doc"), nullptr);
  EXPECT_THAT(told(), HasSubstr("No existe la carpeta"));
}

TEST_F(WordProcessing, leaves_no_document_of_a_template_that_cannot_be_used) {
  const struct {
    std::string content, told;
  } bad[] = {
      {"Hola", "no es un documento RTF"},
      {"{\\rtf1 {hola}", "está dañada"},
      {rtf("{\\*\\bkmkstart Asunto}"), "«Asunto» de la plantilla no tiene final"},
      {rtf("{\\*\\bkmkstart Asunto}" + bookmark("Fecha") + "{\\*\\bkmkend Asunto}"), "dentro del marcador"},
  };
  for (const auto& row : bad) {
    dialogs.told.clear();
    putTemplate(row.content);
    EXPECT_EQ(newLetter(), nullptr);
    EXPECT_THAT(told(), HasSubstr(row.told));
    EXPECT_THAT(filesIn("Doc0"), IsEmpty());
    EXPECT_THAT(filesIn("tmp"), IsEmpty());
  }
  fs::remove(folder.path() / "Plantillas" / "Carta.dot");
  dialogs.told.clear();
  EXPECT_EQ(newLetter(), nullptr);
  EXPECT_THAT(told(), HasSubstr("No existe la plantilla"));
  folder.putFolder("Plantillas/Carta.dot");
  dialogs.told.clear();
  EXPECT_EQ(newLetter(), nullptr);
  EXPECT_THAT(told(), HasSubstr("No existe la plantilla"));
}

TEST_F(WordProcessing, makes_a_document_of_a_template_without_marks_and_of_one_that_may_only_be_read) {
  putTemplate(rtf("Hola" + bookmark("Firma")));
  fs::permissions(folder.path() / "Plantillas" / "Carta.dot", fs::perms::owner_read);
  fill(newLetter(), subjectOnly);
  EXPECT_EQ(folder.content("Doc0/1F00.doc"), rtf("Hola" + bookmark("Firma")));
  EXPECT_NE(fs::status(native("Doc0/1F00.doc")).permissions() & fs::perms::owner_write, fs::perms::none);
}

TEST_F(WordProcessing, leaves_no_document_that_could_not_be_filled) {
  putTemplate(rtf(bookmark("Asunto")));
  const ObjectRef document = newLetter();
  const Variant nothing;
  fillDocument(nothing, nothing, document);
  EXPECT_THAT(told(), StartsWith("Plantilla: No se ha podido crear el documento."));
  EXPECT_FALSE(folder.has("Doc0/1F00.doc"));
  EXPECT_THAT(dialogs.opened, IsEmpty());
}

TEST_F(WordProcessing, keeps_a_document_that_no_program_opens) {
  putTemplate(rtf(bookmark("Asunto")));
  dialogs.opens = false;
  fill(newLetter(), subjectOnly);
  EXPECT_THAT(told(), HasSubstr("El documento está hecho, pero no hay ningún programa"));
  EXPECT_TRUE(folder.has("Doc0/1F00.doc"));
}

TEST_F(WordProcessing, shows_a_print_on_the_screen_from_a_file_of_the_users_own) {
  putTemplate(rtf(bookmark("Asunto")));
  wish(PrintWish::Where::screen);
  const ObjectRef document = newLetter(u"");
  ASSERT_TRUE(document);
  fill(document, {{0, {u"Asunto", u"Llaves"}}});
  ASSERT_EQ(filesIn("tmp").size(), 1u);
  const std::string file = native(("tmp/" + filesIn("tmp")[0]).c_str());
  EXPECT_THAT(dialogs.opened, ElementsAre(fromUtf8(file)));
  EXPECT_EQ(folder.content("tmp/" + filesIn("tmp")[0]), rtf(holding("Asunto", "Llaves")));
  EXPECT_EQ(fs::status(file).permissions(), fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_THAT(filesIn("Doc0"), IsEmpty());
}

TEST_F(WordProcessing, takes_away_prints_of_earlier_days_and_nothing_else) {
  putTemplate(rtf(bookmark("Asunto")));
  const auto yesterday = fs::file_time_type::clock::now() - std::chrono::hours(25);
  for (const char* name : {"tmp/Impreso-aaaaaa.rtf", "tmp/Impreso-bbbbbb.rtf", "tmp/otro.rtf"}) {
    folder.putFile(name, "x");
    if (std::string(name) != "tmp/Impreso-bbbbbb.rtf") fs::last_write_time(folder.path() / name, yesterday);
  }
  { const ObjectRef document = newLetter(u""); }
  EXPECT_THAT(filesIn("tmp"), testing::UnorderedElementsAre("Impreso-bbbbbb.rtf", "otro.rtf"));
}

TEST_F(WordProcessing, prints_on_the_chosen_printer_and_leaves_nothing) {
  putTemplate(rtf(bookmark("Asunto")));
  Programs programs(false);
  programs.put("soffice", "for word; do echo \"$word\"; done > '" + native("orden.txt") +
                              "'\nfor last; do :; done; cp \"$last\" '" + native("hoja.rtf") + "'\n");
  wish(PrintWish::Where::printer, u"Planta 2");
  fill(newLetter(u""), {{0, {u"Asunto", u"Llaves"}}});
  EXPECT_THAT(folder.content("orden.txt"), HasSubstr("--headless\n"));
  EXPECT_THAT(folder.content("orden.txt"), HasSubstr("--pt\nPlanta 2\n" + native("tmp/Impreso-")));
  EXPECT_EQ(folder.content("hoja.rtf"), rtf(holding("Asunto", "Llaves")));
  EXPECT_THAT(filesIn("tmp"), IsEmpty());
  EXPECT_THAT(dialogs.told, IsEmpty());
  EXPECT_THAT(dialogs.opened, IsEmpty());
}

TEST_F(WordProcessing, tells_of_a_print_that_fails) {
  putTemplate(rtf(bookmark("Asunto")));
  Programs programs(false);
  programs.put("soffice", "exit 77\n");
  wish(PrintWish::Where::printer, u"Planta 2");
  fill(newLetter(u""), subjectOnly);
  EXPECT_THAT(told(), StartsWith("Imprimir: LibreOffice no ha podido imprimir"));
  EXPECT_THAT(filesIn("tmp"), IsEmpty());
}

TEST_F(WordProcessing, shows_a_print_where_there_is_no_office_to_print_it_with) {
  putTemplate(rtf(bookmark("Asunto")));
  const Programs none(true);
  wish(PrintWish::Where::printer, u"Planta 2");
  fill(newLetter(u""), subjectOnly);
  EXPECT_THAT(told(), HasSubstr("hace falta LibreOffice"));
  EXPECT_EQ(dialogs.opened.size(), 1u);
  EXPECT_EQ(filesIn("tmp").size(), 1u);
}

TEST_F(WordProcessing, saves_no_file_of_a_print_that_is_cancelled) {
  putTemplate(rtf(bookmark("Asunto")));
  wish(PrintWish::Where::pdf);
  fill(newLetter(u""), subjectOnly);
  EXPECT_EQ(dialogs.question.name, u"Carta.pdf");
  EXPECT_THAT(filesIn("tmp"), IsEmpty());
  EXPECT_THAT(dialogs.told, IsEmpty());
}

TEST_F(WordProcessing, says_what_is_missing_for_a_template_of_an_old_format) {
  putTemplate("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1 y lo que sigue");
  const Programs none(true);
  EXPECT_EQ(newLetter(), nullptr);
  EXPECT_THAT(told(), HasSubstr("hace falta LibreOffice, que no está instalado en este ordenador"));
  EXPECT_THAT(told(), HasSubstr("guarde la plantilla como RTF"));
}

TEST_F(WordProcessing, says_when_an_old_template_gives_no_document) {
  putTemplate("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1 y lo que sigue");
  Programs programs(false);
  programs.put("soffice", "exit 0\n");
  EXPECT_EQ(newLetter(), nullptr);
  EXPECT_THAT(told(), HasSubstr("LibreOffice no ha podido convertir"));
}

}  // namespace

}  // namespace ovalia::host
