#include "host/TemplateCheck.h"

#include <gmock/gmock.h>
#include <sys/wait.h>

#include "host/DocumentMarks.h"
#include "host/SampleTemplates.h"
#include "tests/host/WordProcessing.h"

namespace ovalia::host {

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using testing::Not;

class TemplateChecks : public testing::Test {
 protected:
  TemplateReport check(const std::string& content) {
    folder.putFile("Carta.dot", content);
    return checkTemplate(folder.path() / "Carta.dot");
  }
  std::string summary(const std::string& content) {
    folder.putFile("Carta.dot", content);
    return toUtf8(templateSummary(folder.path() / "Carta.dot"));
  }
  static std::string page(std::initializer_list<const char*> bookmarks) {
    std::string text = "{\\rtf1 ";
    for (const std::string name : bookmarks)
      text += "{\\*\\bkmkstart " + name + "}{\\*\\bkmkend " + name + "}";
    return text + "}";
  }
  // The program as its user starts it.
  std::pair<int, std::string> start(const std::string& file) {
    const std::string output = (folder.path() / "salida.txt").string();
    const int status = std::system(("env -u DISPLAY timeout 100 " AGENCIA_PROGRAM " --check-template '" +
                                    file + "' > '" + output + "' 2>&1")
                                       .c_str());
    return {WEXITSTATUS(status), folder.content("salida.txt")};
  }

  kit::TemporaryFolder folder;
};

TEST_F(TemplateChecks, find_the_sample_templates_good) {
  std::set<std::string> kinds;
  for (const SampleFile& file : sampleTemplates()) {
    const TemplateReport report = check(file.content);
    EXPECT_TRUE(report.good) << toUtf8(file.path) << "\n" << toUtf8(report.text);
    const bool ofCalls = file.path.starts_with(u"Plantillas\\Llamada\\");
    EXPECT_THAT(toUtf8(report.text), HasSubstr(ofCalls ? "  Asunto\n" : "  Referencia\n"));
    EXPECT_TRUE(file.path.ends_with(u".dot"));
    kinds.insert(fs::path(toUtf8(replaceAll(file.path, u"\\", u"/"))).parent_path().string());
  }
  EXPECT_THAT(kinds, testing::ElementsAre("Plantillas", "Plantillas/Anuncio", "Plantillas/Llamada",
                                          "Plantillas/Nota", "Plantillas/Visita"));
}

TEST_F(TemplateChecks, tell_what_is_filled_and_what_is_not_known) {
  const TemplateReport report = check(page(
      {"Asunto", "Ubicaci\\'f3n", "Autor2", "Refrencia", "Zzzzzzzz", "_GoBack", "asunto", "Asunto_Copy_1"}));
  EXPECT_FALSE(report.good);
  EXPECT_EQ(toUtf8(report.text), "Plantilla: " + (folder.path() / "Carta.dot").string() +
                                     "\n"
                                     "Marcadores que se rellenan:\n"
                                     "  Asunto\n"
                                     "  Ubicación (en una lista, lo mismo que «Donde»)\n"
                                     "  Autor2 (en una ficha, lo mismo que «Autor»)\n"
                                     "Marcadores desconocidos, que se quedan como están:\n"
                                     "  Refrencia (¿quería decir «Referencia»?)\n"
                                     "  Zzzzzzzz\n");
}

TEST_F(TemplateChecks, find_fault_with_what_cannot_be_filled) {
  EXPECT_THAT(toUtf8(check(page({"_GoBack"})).text), HasSubstr("No tiene ningún marcador que rellenar."));
  EXPECT_THAT(toUtf8(check("Hola").text), HasSubstr("no es un documento RTF"));
  EXPECT_THAT(toUtf8(check("{\\rtf1 {\\*\\bkmkstart Asunto}}").text), HasSubstr("no tiene final"));
  EXPECT_THAT(toUtf8(checkTemplate(folder.path() / "nada.dot").text), HasSubstr("No existe la plantilla"));
  EXPECT_FALSE(check("").good);
  const Programs none(true);
  EXPECT_THAT(toUtf8(check("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1").text), HasSubstr("hace falta LibreOffice"));
}

TEST_F(TemplateChecks, are_a_command_of_the_program_that_needs_no_screen) {
  folder.putFile("buena.dot", page({"Asunto"}));
  folder.putFile("mala.dot", page({"Asunto", "Asumto"}));
  const auto good = start((folder.path() / "buena.dot").string());
  EXPECT_EQ(good.first, 0);
  EXPECT_THAT(good.second, HasSubstr("La plantilla está bien."));
  const auto bad = start((folder.path() / "mala.dot").string());
  EXPECT_EQ(bad.first, 1);
  EXPECT_THAT(bad.second, HasSubstr("Asumto (¿quería decir «Asunto»?)"));
  EXPECT_EQ(start("/no/hay.dot").first, 1);
}

TEST_F(TemplateChecks, say_in_a_line_what_the_chooser_shows) {
  EXPECT_EQ(summary(page({"Asunto", "Firma", "Fecha"})), "Datos: Asunto, Fecha");
  EXPECT_EQ(summary(page({})), "No tiene ningún dato que rellenar.");
  EXPECT_THAT(summary("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1"), HasSubstr("se convertirá al usarla"));
  EXPECT_THAT(summary("{\\rtf1 "), HasSubstr("está dañada"));
}

// The page for authors has a row for each mark, in the words of the program.
TEST(MarksOfDocuments, stand_all_on_the_page_for_authors) {
  std::ifstream file(OVALIA_DOCS "/plantillas.md");
  std::vector<std::string> rows;
  bool there = false;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with("## ")) there = line == "## Los marcadores";
    if (there && line.starts_with("| `")) rows.push_back(line);
  }
  std::vector<std::string> expected;
  for (const DocumentMark& mark : documentMarks()) {
    const Text where = mark.source == MarkSource::both ? u"las dos"
                       : mark.source == MarkSource::card
                           ? u"la ficha; en una lista, `" + Text(mark.same) + u"`"
                           : u"la lista; en una ficha, `" + Text(mark.same) + u"`";
    expected.push_back(toUtf8(join(u"| `", mark.name, u"` | ", mark.meaning, u" | ",
                                   replaceAll(mark.example, u"|", u"\\|"), u" | ", where, u" |")));
  }
  EXPECT_EQ(rows, expected);
}

TEST(MarksOfDocuments, have_each_one_row_and_a_known_stand_in) {
  std::set<Text, NameLess> names;
  for (const DocumentMark& mark : documentMarks()) {
    EXPECT_TRUE(names.emplace(mark.name).second) << toUtf8(mark.name);
    EXPECT_EQ(mark.source == MarkSource::both, mark.same.empty()) << toUtf8(mark.name);
    EXPECT_TRUE(mark.same.empty() || documentMark(mark.same)) << toUtf8(mark.name);
    EXPECT_FALSE(mark.meaning.empty() || mark.example.empty());
  }
  EXPECT_EQ(documentMark(u"ubicación")->name, u"Ubicación");
  EXPECT_EQ(documentMark(u"Ubicacion"), nullptr);
}

}  // namespace

}  // namespace ovalia::host
