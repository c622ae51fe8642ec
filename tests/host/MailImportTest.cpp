// Mails that become notes, over the agency's own lists, tables and tree of documents.
#include "host/MailImport.h"

#include <gmock/gmock.h>

#include <QPushButton>

#include "desktop/LivelyFiles.h"
#include "tests/host/AtTheDesk.h"

namespace ovalia::host {

using testing::ElementsAre;
using testing::HasSubstr;

class MailImport : public AtTheDesk {
 protected:
  MailImport() {
    here.platform.files = &files;
    qputenv("TZ", "Europe/Madrid");
    here.clock.time = {2026, 3, 9, 10, 20, 30};
    property = addProperty();
  }
  ~MailImport() override {
    here.platform.files = &here.files;
    qunsetenv("TZ");
  }

  // A file with that mail, whose lines end in "\n" here.
  Text mail(const std::string& name, const std::string& text) {
    std::string bytes;
    for (const char c : text) bytes += c == '\n' ? std::string("\r\n") : std::string(1, c);
    folder.putFile(name, bytes);
    return folder.logic(fromUtf8(name));
  }
  std::int32_t import(const std::vector<Text>& chosen) {
    keyed.files = {chosen};
    AnnotationList list(host::list(u"FichaInm", u"grdNota"), desk);
    list.open(property);
    return importMails(desk, list);
  }
  Variant note(TextView column, std::int32_t key) { return stored(u"NotaIP", column, key); }
  std::int32_t notes() {
    return one(u"SELECT COUNT(*) FROM NotaIP WHERE IdInm = " + toText(property)).toLong();
  }
  // "shown name: content" of each document of a note, as the tree has it.
  std::vector<std::string> documents(std::int32_t key) {
    std::vector<std::string> all;
    const auto rows = database().OpenRecordset(
        u"SELECT * FROM DocuNotaIP WHERE IdNota = " + toText(key) + u" ORDER BY IdDocu", dao::dbOpenSnapshot);
    for (; !rows->isEOF(); rows->MoveNext()) {
      EXPECT_EQ(rows->value(u"Id").toLong(), property);
      all.push_back(toUtf8(rows->value(u"NombreOrg").text()) + ": " +
                    inTree(toUtf8(rows->value(u"NombreArch").text())));
    }
    return all;
  }
  std::string inTree(const std::string& name) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(workplace.agency.documents)) {
      if (entry.path().filename() != name) continue;
      std::ifstream file(entry.path(), std::ios::binary);
      return {std::istreambuf_iterator<char>(file), {}};
    }
    return "(no está)";
  }
  static std::string part(const std::string& name, const std::string& content) {
    return "--m\nContent-Type: application/octet-stream\nContent-Disposition: attachment; filename=\"" +
           name + "\"\n\n" + content + "\n";
  }

  std::int32_t property = 0;
  desktop::LivelyFiles files;
};

constexpr const char* head =
    "From: =?iso-8859-1?Q?Jos=E9_Mu=F1oz?= <jose@cliente.es>\nTo: info@agencia.es\n"
    "Subject: =?utf-8?Q?Visita_al_=C3=A1tico?=\nDate: Thu, 5 Mar 2026 18:30:00 +0100\nMIME-Version: 1.0\n";

TEST_F(MailImport, makes_a_note_with_subject_day_people_and_text) {
  const std::int32_t key = import(
      {mail("uno.eml", std::string(head) + "Content-Type: text/plain; charset=iso-8859-1\n\nA\xF1o\ndos\n")});
  ASSERT_NE(key, 0);
  EXPECT_EQ(notes(), 1);
  EXPECT_EQ(note(u"Asunto", key).text(), u"Visita al ático");
  EXPECT_EQ(toUtf8(note(u"Notas", key).text()),
            "De: José Muñoz <jose@cliente.es>\r\nPara: info@agencia.es\r\nFecha: 05/03/2026 18:30:00\r\n\r\n"
            "Año\r\ndos");
  EXPECT_EQ(note(u"FechaAlta", key).text(), u"05/03/2026 18:30:00");
  EXPECT_EQ(note(u"FechaActualizacion", key).text(), u"09/03/2026 10:20:30");
  EXPECT_EQ(note(u"IdUsuario", key).toLong(), 1);
  EXPECT_EQ(note(u"IdAgencia", key).toLong(), 1);
  EXPECT_EQ(note(u"NAgencia", key).toLong(), 1);
  EXPECT_EQ(note(u"NArchivos", key).toLong(), 0);
  EXPECT_EQ(keyed.question.filter, u"Correos (*.eml)|*.eml|Todos los ficheros (*.*)|*.*");
  EXPECT_TRUE(keyed.question.several);
}

TEST_F(MailImport, attaches_what_the_mail_brings) {
  const std::string large(10 << 20, 'g');
  const std::int32_t key =
      import({mail("uno.eml", std::string(head) +
                                  "Content-Type: multipart/mixed; boundary=m\n\n--m\n"
                                  "Content-Type: text/plain\n\nhola\n" +
                                  part("Plano.pdf", "uno") + part("../../fuera.txt", "dos") +
                                  part("grande.jpeg", large) + "--m--\n")});
  EXPECT_EQ(note(u"NArchivos", key).toLong(), 3);
  EXPECT_THAT(documents(key), ElementsAre("Plano.pdf: uno", "....fuera.txt: dos", "grande.jpeg: " + large));
}

TEST_F(MailImport, makes_a_note_for_each_mail_and_tells_of_those_that_are_none) {
  expectBox(
      u"No se ha podido importar todo:\ncarta.eml: no es un correo.\n"
      u"nada.eml: no se ha podido importar. No se encuentra el fichero. "
      u"Compruebe el nombre y que no se ha movido o borrado.",
      48, u"Importar correo");
  const std::int32_t last =
      import({mail("uno.eml", std::string(head) + "\nuno\n"), mail("carta.eml", "una carta\n\nsin más\n"),
              folder.logic(u"nada.eml"), mail("dos.eml", "Subject: dos\n\nsin fecha\n")});
  EXPECT_EQ(notes(), 2);
  EXPECT_EQ(note(u"Asunto", last).text(), u"dos");
  EXPECT_EQ(note(u"Notas", last).text(), u"sin fecha");
  EXPECT_EQ(note(u"FechaAlta", last).text(), u"09/03/2026 10:20:30") << "the day of the import";
}

TEST_F(MailImport, leaves_no_half_made_note_and_goes_on_with_the_next_mail) {
  database().Execute(
      u"CREATE TRIGGER Lleno BEFORE UPDATE ON NotaIP WHEN NEW.Asunto = 'uno' BEGIN SELECT RAISE(ABORT, "
      u"'no'); "
      u"END");
  here.screen.expectBoxLike(u"No se ha podido importar todo:\nuno.eml: no se ha podido importar.", u"", 48,
                            u"Importar correo", 1);
  const std::int32_t key =
      import({mail("uno.eml", "Subject: uno\n\nuno\n"), mail("dos.eml", "Subject: dos\n\ndos\n")});
  EXPECT_EQ(notes(), 1);
  EXPECT_EQ(note(u"Asunto", key).text(), u"dos");
}

TEST_F(MailImport, says_who_else_has_the_mail) {
  const std::int32_t key = import({mail("uno.eml", "Subject: uno\nCc: l@agencia.es\n\nhola\n")});
  EXPECT_EQ(note(u"Notas", key).text(), u"Copia: l@agencia.es\r\n\r\nhola");
}

TEST_F(MailImport, cuts_a_subject_that_no_column_takes) {
  const std::int32_t key = import({mail("uno.eml", "Subject: " + std::string(300, 's') + "\n\na\n")});
  EXPECT_EQ(note(u"Asunto", key).text(), Text(100, u's'));
  const std::int32_t none = import({mail("dos.eml", "From: a@b.es\n\na\n")});
  EXPECT_EQ(note(u"Asunto", none).text(), u"");
}

TEST_F(MailImport, keeps_quotes_and_bars_and_any_letter) {
  const std::int32_t key =
      import({mail("uno.eml",
                   "Subject: O'Donnell | \"uno\" #1\nContent-Type: text/plain; charset=utf-8\n\n"
                   "d'Ors | 🏠 <b>\n")});
  EXPECT_EQ(note(u"Asunto", key).text(), u"O'Donnell | \"uno\" #1");
  EXPECT_EQ(note(u"Notas", key).text(), u"d'Ors | 🏠 <b>");
}

TEST_F(MailImport, does_nothing_when_the_user_cancels) {
  EXPECT_EQ(import({}), 0);
  EXPECT_EQ(notes(), 0);
}

TEST_F(MailImport, keeps_the_note_and_tells_when_a_document_finds_no_place) {
  std::filesystem::remove_all(workplace.agency.documents);
  std::ofstream(workplace.agency.documents) << "a file stands where the folder should";
  // The log is on the disk too here, where no double looks for its entry.
  here.screen.expectBoxLike(u"Error en la rutina: CreaPathDoc de CNota", u"soporte técnico de Brenox?", 4148,
                            u"Error. - Versión: 3.05.12", 7);
  here.screen.expectBoxLike(u"No se ha podido importar todo:\nuno.eml: el documento «Plano.pdf»",
                            u"no se ha podido adjuntar.", 48, u"Importar correo", 1);
  const std::int32_t key =
      import({mail("uno.eml", "Subject: a\nContent-Type: multipart/mixed; boundary=m\n\n" +
                                  part("Plano.pdf", "uno") + "--m--\n")});
  EXPECT_EQ(note(u"Asunto", key).text(), u"a");
  EXPECT_EQ(note(u"NArchivos", key).toLong(), 0);
  std::filesystem::remove_all(workplace.agency.documents);
}

TEST_F(MailImport, is_a_button_of_the_list_of_notes_and_leads_to_the_new_one) {
  addNote(property, u"antes");
  ListPane& notesPane = pane(u"grdNota", property);
  keyed.files = {{mail("uno.eml", std::string(head) + "\nhola\n")}};
  deskkit::press(Qt::Key_I, Qt::ControlModifier);
  EXPECT_TRUE(deskkit::eventually([&] { return notes() == 2; })) << "the button is seen to go down first";
  EXPECT_EQ(notes(), 2);
  EXPECT_EQ(note(u"Asunto", notesPane.grid().currentKey()).text(), u"Visita al ático");
  EXPECT_EQ(notesPane.list().currentKey(), notesPane.grid().currentKey());
}

TEST_F(MailImport, is_offered_where_notes_are_made_and_nowhere_else) {
  CardPage& page = *window->openCard(hostForm(u"FichaInm"), property);
  for (const auto& [grid, offered] : {std::pair(u"grdNota", true),
                                      {u"grdVisita", false},
                                      {u"grdAnuncio", false},
                                      {u"grdLlamada", false},
                                      {u"grdHistorico", false}}) {
    bool found = false;
    for (const QPushButton* button : page.pane(grid)->findChildren<QPushButton*>())
      found = found || button->text() == "Importar correo...";
    EXPECT_EQ(found, offered) << toUtf8(grid);
  }
}

TEST_F(MailImport, from_an_open_card_leaves_the_card_on_its_note) {
  const std::int32_t before = addNote(property, u"antes");
  ListPane& notesPane = pane(u"grdNota", property);
  keyed.files = {{mail("uno.eml", std::string(head) + "Content-Type: multipart/mixed; boundary=m\n\n" +
                                      part("Plano.pdf", "uno") + "--m--\n")}};
  onCard(notesPane, [&] {
    deskkit::letters("AM");
    EXPECT_EQ(notes(), 2);
    EXPECT_EQ(shown(u"txtAsunto"), "antes");
    EXPECT_EQ(notesPane.list().currentKey(), before);
    deskkit::escape();
  });
}

}  // namespace ovalia::host
