// Documents as the word processor itself has them: filled here, opened and drawn there.
#include "host/Office.h"

#include <gmock/gmock.h>

#include "host/SampleTemplates.h"
#include "host/TemplateFailure.h"
#include "host/TemplateFile.h"
#include "system/RunProgram.h"
#include "tests/host/WordProcessing.h"

namespace ovalia::host {

namespace {

using namespace std::chrono_literals;
namespace fs = std::filesystem;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;

class Office : public WordProcessing {
 protected:
  void SetUp() override {
    ASSERT_TRUE(officeInstalled()) << "tools/packages installs it";
    ASSERT_TRUE(system::findProgram({"pdftotext"})) << "tools/packages installs it";
  }

  // What is read on the pages of a PDF file.
  std::string read(const char* pdf) {
    const std::string text = native("leido.txt");
    EXPECT_EQ(system::runProgram({"pdftotext", "-layout", native(pdf), text}, 60s), system::ProgramEnd::done);
    return folder.content("leido.txt");
  }
  void putSample(TextView path) {
    for (const SampleFile& file : sampleTemplates())
      if (file.path == path) return putTemplate(file.content);
    FAIL() << toUtf8(path);
  }
};

TEST_F(Office, shows_the_values_in_their_places) {
  putSample(u"Plantillas\\Visita\\Hoja de visita.dot");
  fill(newLetter(),
       {{8, {u"Notas", u"Le gusta la terraza.\r\n¿Hará oferta?\tSí: 150.000 € {ojo} \\ \U0001D11E"}},
        {14, {u"Cliente", u"O'Donnell Ibáñez, Begoña"}},
        {10, {u"Comienzo", u"09/03/26 - 17:00"}},
        {13, {u"Donde", u"Calle Colón, 4"}},
        {27, {u"Referencia", u"V-0120"}},
        {28, {u"Referencia2", u"V-0120"}},
        {33, {u"Precio", u"150.000"}},
        {37, {u"Numero", u"12 - 3º B"}},
        {39, {u"Tfno2", u""}},
        {41, {u"Tfno1", u"963 555 121"}}});
  convertDocument(native("Doc0/1F00.doc"), "pdf", native("hoja.pdf"));
  const std::string text = read("hoja.pdf");
  for (const char* line :
       {"Ref\\.: V-0120", "Visitante: +O'Donnell Ibáñez, Begoña", "Teléfonos: +963 555 121",
        "Comienzo: +09/03/26 - 17:00", "Lugar: +Calle Colón, 4", "Inmueble: +V-0120, número 12 - 3º B",
        "Precio: +150\\.000 euros", "Firma de O'Donnell Ibáñez, Begoña:", "Fin: *\n",
        "Le gusta la terraza\\.\n+¿Hará oferta\\? +Sí: 150\\.000 € \\{ojo\\} \\\\"})
    EXPECT_THAT(text, ContainsRegex(line));
  EXPECT_THAT(text, Not(HasSubstr("[")));
}

// What authors do in the word processor comes out in its own way of writing it.
TEST_F(Office, saves_templates_that_are_filled_wherever_their_marks_stand) {
  folder.putFile(
      "origen.rtf",
      rtf("{\\header cabeza " + bookmark("Referencia") +
          "\\par}{\\*\\bkmkstart Notas}uno\\par dos\\par tres{\\*\\bkmkend Notas}\\par "
          "{\\field{\\*\\fldinst HYPERLINK \"http://a.es\"}{\\fldrslt {\\*\\bkmkstart "
          "Autor}enlace{\\*\\bkmkend "
          "Autor}}}\\par \\trowd\\cellx3000\\cellx6000\\intbl a " +
          bookmark("Precio") +
          "\\cell {\\*\\bkmkstart Gastos}b\\par c{\\*\\bkmkend Gastos}\\cell\\row \\pard nota{\\super " +
          "\\chftn{\\footnote\\pard al pie " + bookmark("Fecha") + "}} fin\\par"));
  convertDocument(native("origen.rtf"), "rtf", native("Plantillas/Carta.dot"));
  fill(newLetter(), {{0, {u"Referencia", u"V-0120"}},
                     {1, {u"Notas", u"Peña"}},
                     {2, {u"Autor", u"Óscar"}},
                     {3, {u"Precio", u"150"}},
                     {4, {u"Gastos", u"45"}},
                     {5, {u"Fecha", u"08/03/26"}}});
  EXPECT_TRUE(dialogs.told.empty());
  convertDocument(native("Doc0/1F00.doc"), "pdf", native("carta.pdf"));
  const std::string text = read("carta.pdf");
  for (const char* line : {"cabeza V-0120\n", "\nPeña\nÓscar\n", "a 150 +45\n", "al pie 08/03/26"})
    EXPECT_THAT(text, ContainsRegex(line));
}

TEST_F(Office, gives_a_template_of_the_old_format_that_is_filled_like_any_other) {
  folder.putFile(
      "origen.rtf",
      rtf("Lugar: {\\*\\bkmkstart Ubicaci\\'f3n}aqu\\'ed{\\*\\bkmkend Ubicaci\\'f3n}\\par Asunto: " +
          bookmark("Asunto") + "\\par"));
  convertDocument(native("origen.rtf"), "doc", native("Plantillas/Carta.dot"));
  ASSERT_TRUE(isForeignFormat(folder.content("Plantillas/Carta.dot")));
  fill(newLetter(), {{10, {u"Ubicación", u"Peñíscola"}}, {0, {u"Asunto", u"uno\r\ndos"}}});
  EXPECT_TRUE(dialogs.told.empty());
  convertDocument(native("Doc0/1F00.doc"), "pdf", native("carta.pdf"));
  EXPECT_THAT(read("carta.pdf"), ContainsRegex("Lugar: Peñíscola\n+Asunto: uno\n+dos"));
}

TEST_F(Office, prints_into_a_file_that_the_user_names) {
  putSample(u"Plantillas\\Llamada\\Parte de llamada.dot");
  desktop::TemplatePicking::current().wish = {desktop::PrintWish::Where::pdf};
  dialogs.files = {{folder.logic(u"parte de hoy")}};
  fill(newLetter(u""), {{0, {u"Asunto", u"Llamada por el anuncio"}}, {21, {u"Id", u"7"}}});
  EXPECT_TRUE(dialogs.told.empty());
  EXPECT_THAT(read("parte de hoy.pdf"), ContainsRegex("Asunto: +Llamada por el anuncio\n"));
  EXPECT_THAT(filesIn("tmp"), testing::IsEmpty());
}

TEST_F(Office, draws_the_first_page_of_a_document) {
  folder.putFile("carta.doc", rtf("Hola\\page Adi\\'f3s\\par"));
  pictureOfDocument(native("carta.doc"), native("carta.png"));
  EXPECT_EQ(folder.content("carta.png").substr(1, 3), "PNG");
  EXPECT_GT(folder.content("carta.png").size(), 1000u);
  EXPECT_TRUE(folder.has("carta.pdf"));
}

TEST_F(Office, leaves_the_file_that_is_there_when_it_cannot_convert) {
  folder.putFile("viejo.pdf", "el de ayer");
  EXPECT_THROW(convertDocument(native("nada.rtf"), "pdf", native("viejo.pdf")), TemplateFailure);
  EXPECT_EQ(folder.content("viejo.pdf"), "el de ayer");
  Programs programs(false);
  programs.put("soffice", "while test \"$1\" != --outdir; do shift; done\necho nuevo > \"$2/carta.pdf\"\n");
  folder.putFile("carta.rtf", rtf("Hola"));
  folder.putFolder("carpeta");
  EXPECT_THROW(convertDocument(native("carta.rtf"), "pdf", native("carpeta")), TemplateFailure);
  convertDocument(native("carta.rtf"), "pdf", native("viejo.pdf"));
  EXPECT_EQ(folder.content("viejo.pdf"), "nuevo\n");
}

TEST_F(Office, cannot_convert_what_is_no_document) {
  const std::string nothing = native("nada.rtf");
  EXPECT_THROW(convertDocument(nothing, "pdf", native("nada.pdf")), TemplateFailure);
  EXPECT_FALSE(folder.has("nada.pdf"));
}

TEST_F(Office, that_hangs_is_told_of) {
  Programs programs(false);
  programs.put("soffice", "sleep 100\n");
  try {
    convertDocument("/tmp/nada.rtf", "pdf", native("nada.pdf"), {}, 100ms);
    FAIL() << "no failure";
  } catch (const TemplateFailure& failure) {
    EXPECT_THAT(toUtf8(failure.message), HasSubstr("tarda demasiado"));
  }
}

}  // namespace

}  // namespace ovalia::host
