// Prints from a card to where the user wants them, over an office suite of the test's own.
#include <QComboBox>

#include "tests/host/TemplatesAtTheDesk.h"

namespace ovalia::host {

using deskkit::enter;
using deskkit::escape;
using deskkit::letters;
using deskkit::press;
using deskkit::types;
using testing::HasSubstr;
using testing::IsEmpty;

class PrintingAtTheDesk : public TemplatesAtTheDesk {
 protected:
  PrintingAtTheDesk() {
    desktop::TemplatePicking::current().printers = [] {
      return std::vector<Text>{u"Planta 1", u"Planta 2 «color»"};
    };
  }

  std::string native(const char* name) const { return (folder.path() / name).string(); }

  // Chooses the sheet of a visit, and by the arrows where it goes.
  static Keys choosing(int place, const char* shown) {
    return [=] {
      types("Hoja de visita");
      letters("D");
      auto& where = dynamic_cast<QComboBox&>(*QApplication::activeModalWidget()->focusWidget());
      press(Qt::Key_Home);
      for (int i = 0; i < place; ++i) press(Qt::Key_Down);
      EXPECT_EQ(where.currentText(), shown);
      enter();
    };
  }
  void printsTo(int place, const char* shown) { printing(visitKind, choosing(place, shown)); }
  void printsToPrinter() { printsTo(1, "Impresora Planta 2 «color»"); }
  void printsToPdf() { printsTo(3, "Fichero PDF..."); }

  Programs office{false};
};

TEST_F(PrintingAtTheDesk, a_visit_goes_to_the_printer_that_was_chosen_which_is_proposed_from_then_on) {
  office.put("soffice", "for word; do echo \"$word\"; done > '" + native("orden.txt") +
                            "'\nfor last; do :; done; cp \"$last\" '" + native("hoja.rtf") + "'\n");
  onKind(visitKind, {}, [&] {
    write(u"txtNotas", "Escrito ahora");
    printsToPrinter();
    EXPECT_THAT(folder.content("orden.txt"), HasSubstr("--pt\nPlanta 2 «color»\n"));
    EXPECT_THAT(folder.content("hoja.rtf"), HasSubstr("{\\uc1 Escrito ahora}"));
    EXPECT_TRUE(enabled(u"ID_Guardar")) << "and is not saved by it";
    printing(visitKind, [] {
      EXPECT_EQ(QApplication::activeModalWidget()->findChild<QComboBox*>("destino")->currentText(),
                "Impresora Planta 2 «color»");
      escape();
    });
  });
  EXPECT_TRUE(keyed.opened.empty());
  EXPECT_THAT(filesIn(folder.path() / "tmp"), IsEmpty());
}

TEST_F(PrintingAtTheDesk, a_print_that_fails_is_told_and_the_card_goes_on) {
  office.put("soffice", "exit 77\n");
  onKind(visitKind, {}, [&] {
    told(u"LibreOffice no ha podido imprimir", u"Imprimir");
    printsToPrinter();
    cardStillWorks(u"VisitaIP", keyOf(visitKind));
  });
  EXPECT_THAT(filesIn(folder.path() / "tmp"), IsEmpty());
}

TEST_F(PrintingAtTheDesk, a_file_is_saved_where_the_user_says_or_not_at_all) {
  office.put("soffice",
             "for last; do :; done\nwhile test \"$1\" != --outdir; do shift; done\n"
             "name=$(basename \"$last\" .rtf)\necho '%PDF' > \"$2/$name.pdf\"\n");
  onKind(visitKind, {}, [&] {
    printsToPdf();
    EXPECT_EQ(keyed.question.name, u"Hoja de visita.pdf");
    EXPECT_THAT(filesIn(folder.path() / "suyos"), IsEmpty());
    folder.putFolder("suyos");
    keyed.files = {{folder.logic(u"suyos\\Visita de Íñigo")}};
    printsToPdf();
  });
  EXPECT_EQ(folder.content("suyos/Visita de Íñigo.pdf"), "%PDF\n");
  EXPECT_THAT(filesIn(folder.path() / "tmp"), IsEmpty());
  EXPECT_TRUE(keyed.opened.empty());
}

TEST_F(PrintingAtTheDesk, without_an_office_suite_the_document_is_shown_and_the_user_is_told_why) {
  const Programs none(true);
  onKind(visitKind, {}, [&] {
    told(u"Para imprimir desde aquí hace falta LibreOffice", u"Imprimir");
    printsToPrinter();
    EXPECT_EQ(at("Cliente"), filledWith(u"O'Donnell «Pat», Señora"));
  });
  EXPECT_EQ(keyed.opened.size(), 1u);
}

}  // namespace ovalia::host
