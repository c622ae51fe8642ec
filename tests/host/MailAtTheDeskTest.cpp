// Annotations that go out as mails: from the card of each kind to what the receiver's server has.
#include <gmock/gmock.h>

#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>

#include "tests/deskkit/MailParts.h"
#include "tests/deskkit/MailServer.h"
#include "tests/host/KindsAtTheDesk.h"
#include "tests/host/WordProcessing.h"

namespace ovalia::host {

using deskkit::enter;
using deskkit::escape;
using deskkit::headField;
using deskkit::headOf;
using deskkit::letters;
using deskkit::MailServer;
using deskkit::partsOf;
using deskkit::press;
using deskkit::tab;
using deskkit::types;
using testing::ElementsAre;
using testing::HasSubstr;

class MailAtTheDesk : public KindsAtTheDesk {
 protected:
  MailAtTheDesk() { setting(u"Remitente", u"lucia@agencia.es"); }

  void setting(TextView key, TextView value) {
    here.settings.put(here.platform.app.title, u"Correo", key, value);
  }
  // In the mail of the card, with that server.
  void mailing(const Text& server, const Keys& keys) {
    setting(u"Servidor", server);
    onDialog("Enviar correo", keys, [] { letters("AE"); });
    EXPECT_EQ(QApplication::activeModalWidget(), deskkit::windowOf(card()));
  }
  static QDialog& mail() { return dynamic_cast<QDialog&>(*QApplication::activeModalWidget()); }
  static bool isUp() {
    const QWidget* top = QApplication::activeModalWidget();
    return top && top->windowTitle() == "Enviar correo";
  }
  static std::string said() { return mail().findChild<QLabel*>("mensaje")->text().toStdString(); }
  static QStringList attached() {
    const auto* list = mail().findChild<QListWidget*>("adjuntos");
    QStringList shown;
    for (int i = 0; i < list->count(); ++i) shown << list->item(i)->text();
    return shown;
  }
  static void sends(const std::function<bool()>& done) {
    letters("E");
    EXPECT_TRUE(deskkit::eventually(done)) << said();
  }
  static void sends() {
    sends([] { return !isUp(); });
  }
  // Sent and not taken.
  static void sendsInVain() {
    sends([] { return said().starts_with("El mensaje no se ha enviado: "); });
  }
  static bool writes(TextView control, const QString& text) {
    write(control, text);
    return shown(control) == text;
  }
  void asksToClose(int answer) {
    asked(u"¿Desea cerrar el mensaje sin enviarlo?", 36, u"Correo", answer,
          [=] { letters(answer == 6 ? "S" : "N"); });
  }
  QList<QUrl> documents(const KindAtTheDesk& kind) {
    if (kind.documents.empty()) return {};
    return {file("Plano , del ático.pdf", "%PDF plano\r\n"), file("Ñandú «señal».txt", "uno\ndos")};
  }
};

TEST_F(MailAtTheDesk, an_annotation_of_each_kind_reaches_the_server_with_its_subject_text_and_documents) {
  constexpr const char* subjects[] = {"Llaves de l'ático «B»", "Visita de la señora",
                                      "Anuncio en Revista D'Hogar", "Llamada por el anuncio"};
  for (std::size_t i = 0; i < std::size(kindsAtTheDesk); ++i) {
    const KindAtTheDesk& kind = kindsAtTheDesk[i];
    const std::size_t count = kind.documents.empty() ? 0 : 2;
    MailServer smtp(MailServer::Accepts);
    onKind(kind, documents(kind), [&] {
      mailing(smtp.url(), [&] {
        EXPECT_EQ(mail().findChild<QLineEdit*>("asunto")->text(), subjects[i]);
        EXPECT_EQ(mail().findChild<QPlainTextEdit*>("texto")->toPlainText(),
                  desktop::toQt(notes).remove('\r'));
        if (count) {
          EXPECT_THAT(attached(),
                      ElementsAre("Plano , del ático.pdf (12 bytes)", "Ñandú «señal».txt (7 bytes)"));
        }
        types("ana@cliente.es");
        sends();
      });
    });
    smtp.finish();
    EXPECT_EQ(keyed.mails.back().subject, fromUtf8(subjects[i]));
    EXPECT_EQ(keyed.mails.back().body, notes);
    ASSERT_EQ(keyed.mails.back().attachments.size(), count);
    EXPECT_THAT(smtp.commands, HasSubstr("MAIL FROM:<lucia@agencia.es>"));
    EXPECT_THAT(smtp.commands, HasSubstr("RCPT TO:<ana@cliente.es>"));
    const QByteArray message = QByteArray::fromStdString(smtp.message);
    EXPECT_EQ(headField(headOf(message), "Subject"), subjects[i]);
    const auto parts = partsOf(message);
    ASSERT_EQ(std::size_t(parts.size()), 1 + count);
    EXPECT_EQ(parts[0].content.trimmed(), desktop::toQt(notes).toUtf8());
    if (!count) continue;
    EXPECT_EQ(parts[1].name, "Plano , del ático.pdf");
    EXPECT_EQ(parts[1].content, "%PDF plano\r\n");
    EXPECT_EQ(parts[2].name, "Ñandú «señal».txt");
    EXPECT_EQ(parts[2].content, "uno\ndos");
  }
  EXPECT_EQ(keyed.mails.size(), 4u);
}

TEST_F(MailAtTheDesk, what_is_not_saved_yet_is_mailed_and_stays_unsaved_on_the_card) {
  MailServer smtp(MailServer::Accepts);
  onKind(noteKind, {}, [&] {
    EXPECT_TRUE(writes(u"txtAsunto", "Sin guardar: «Peña»"));
    EXPECT_TRUE(writes(u"txtNotas", "Escrito ahora: 3 €\ny aquí"));
    mailing(smtp.url(), [] {
      types("ana@cliente.es");
      sends();
    });
    EXPECT_EQ(shown(u"txtAsunto"), "Sin guardar: «Peña»");
    EXPECT_EQ(shown(u"txtNotas"), "Escrito ahora: 3 €\ny aquí");
    EXPECT_EQ(focused(), u"txtNotas");
    EXPECT_TRUE(enabled(u"ID_Guardar"));
    letters("FG");
  });
  smtp.finish();
  const QByteArray message = QByteArray::fromStdString(smtp.message);
  EXPECT_EQ(headField(headOf(message), "Subject"), "Sin guardar: «Peña»");
  EXPECT_EQ(partsOf(message)[0].content.trimmed(), "Escrito ahora: 3 €\r\ny aquí");
  EXPECT_EQ(stored(u"NotaIP", u"Asunto", keyOf(noteKind)).text(), u"Sin guardar: «Peña»");
}

TEST_F(MailAtTheDesk, what_is_changed_in_the_mail_changes_the_mail_alone) {
  MailServer smtp(MailServer::Accepts);
  onKind(noteKind, documents(noteKind), [&] {
    mailing(smtp.url(), [] {
      types("ana@cliente.es; Óscar <oscar@agencia.es>");
      tab();
      press(Qt::Key_A, Qt::ControlModifier);
      types("Otro asunto");
      tab();
      press(Qt::Key_A, Qt::ControlModifier);
      types("Otro texto");
      tab();
      press(Qt::Key_Space, Qt::NoModifier, " ");
      press(Qt::Key_Return, Qt::ControlModifier);
      EXPECT_TRUE(deskkit::eventually([] { return !isUp(); }));
    });
    EXPECT_EQ(shown(u"txtAsunto"), "Llaves de l'ático «B»");
    EXPECT_FALSE(enabled(u"ID_Guardar"));
    EXPECT_EQ(list().count(), 2);
  });
  smtp.finish();
  EXPECT_THAT(smtp.commands, HasSubstr("RCPT TO:<oscar@agencia.es>"));
  const QByteArray message = QByteArray::fromStdString(smtp.message);
  EXPECT_EQ(headField(headOf(message), "Subject"), "Otro asunto");
  const auto parts = partsOf(message);
  ASSERT_EQ(parts.size(), 2);
  EXPECT_EQ(parts[0].content.trimmed(), "Otro texto");
  EXPECT_EQ(parts[1].name, "Ñandú «señal».txt");
}

TEST_F(MailAtTheDesk,
       a_mail_that_is_cancelled_reaches_nobody_and_is_asked_about_where_something_was_written) {
  MailServer smtp(MailServer::Accepts);
  onKind(noteKind, {}, [&] {
    EXPECT_TRUE(writes(u"txtAsunto", "A medias"));
    mailing(smtp.url(), [] { escape(); });
    mailing(smtp.url(), [&] {
      types("ana@cliente.es");
      asksToClose(7);
      escape();
      EXPECT_TRUE(isUp());
      EXPECT_EQ(mail().findChild<QLineEdit*>("para")->text(), "ana@cliente.es");
      asksToClose(6);
      escape();
      EXPECT_FALSE(isUp());
    });
    EXPECT_EQ(shown(u"txtAsunto"), "A medias");
    EXPECT_EQ(focused(), u"txtAsunto");
    EXPECT_TRUE(enabled(u"ID_Guardar"));
  });
  smtp.finish();
  EXPECT_EQ(smtp.commands, "");
  EXPECT_EQ(keyed.mails.size(), 2u);
}

TEST_F(MailAtTheDesk, a_mail_that_the_server_refuses_stays_and_the_card_loses_nothing) {
  onKind(noteKind, documents(noteKind), [&] {
    EXPECT_TRUE(writes(u"txtNotas", "Sin guardar"));
    for (const auto& [manner, reason] : {std::pair(MailServer::RefusesRecipient, "550 no such user here"),
                                         {MailServer::RefusesMessage, "554 looks like nonsense"},
                                         {MailServer::Drops, "cortado"}}) {
      MailServer smtp(manner);
      mailing(smtp.url(), [&, reason = reason] {
        types("nadie@cliente.es");
        sendsInVain();
        EXPECT_THAT(said(), HasSubstr(reason));
        EXPECT_EQ(mail().findChild<QLineEdit*>("para")->text(), "nadie@cliente.es");
        EXPECT_EQ(mail().findChild<QPlainTextEdit*>("texto")->toPlainText(), "Sin guardar");
        EXPECT_EQ(attached().size(), 2);
        asksToClose(6);
        escape();
      });
      EXPECT_EQ(shown(u"txtNotas"), "Sin guardar");
      EXPECT_TRUE(enabled(u"ID_Guardar"));
      EXPECT_EQ(list().count(), 2);
    }
    MailServer smtp(MailServer::Accepts);
    mailing(smtp.url(), [] {
      types("ana@cliente.es");
      sends();
    });
    smtp.finish();
    EXPECT_THAT(smtp.message, HasSubstr("Sin guardar"));
  });
  EXPECT_EQ(one(u"SELECT COUNT(*) FROM DocuNotaIP WHERE IdNota = " + toText(keyOf(noteKind))).toLong(), 2);
}

TEST_F(MailAtTheDesk, a_document_that_is_gone_stays_at_home_and_the_others_go) {
  MailServer smtp(MailServer::Accepts);
  onKind(visitKind, documents(visitKind), [&] {
    const Text first = one(u"SELECT NombreArch FROM DocuVisitaIP WHERE NombreOrg Like 'Plano*'").text();
    for (const auto& entry : std::filesystem::recursive_directory_iterator(workplace.agency.documents))
      if (entry.path().filename() == toUtf8(first)) std::filesystem::remove(entry.path());
    mailing(smtp.url(), [] {
      EXPECT_THAT(attached(),
                  ElementsAre("Plano , del ático.pdf (no se encuentra)", "Ñandú «señal».txt (7 bytes)"));
      types("ana@cliente.es");
      sends();
    });
  });
  smtp.finish();
  const auto parts = partsOf(QByteArray::fromStdString(smtp.message));
  ASSERT_EQ(parts.size(), 2);
  EXPECT_EQ(parts[1].name, "Ñandú «señal».txt");
}

TEST_F(MailAtTheDesk, a_new_annotation_is_mailed_before_it_was_ever_saved) {
  MailServer smtp(MailServer::Accepts);
  onKind(noteKind, {}, [&] {
    letters("FN");
    EXPECT_TRUE(writes(u"txtAsunto", "Recién empezada"));
    mailing(smtp.url(), [] {
      types("ana@cliente.es");
      sends();
    });
    EXPECT_EQ(shown(u"txtAsunto"), "Recién empezada");
  });
  smtp.finish();
  EXPECT_EQ(headField(headOf(QByteArray::fromStdString(smtp.message)), "Subject"), "Recién empezada");
  EXPECT_EQ(one(u"SELECT COUNT(*) FROM NotaIP WHERE IdInm = " + toText(property)).toLong(), 1);
}

TEST_F(MailAtTheDesk, a_mail_to_a_server_that_is_not_there_can_be_kept_as_a_file) {
  folder.putFolder("casa/Documents");
  const std::string house = (folder.path() / "casa").string();
  const Environment home("HOME", house), config("XDG_CONFIG_HOME", house);
  onKind(noteKind, documents(noteKind), [&] {
    mailing(u"smtp://127.0.0.1:1", [&] {
      types("ana@cliente.es");
      sendsInVain();
      here.screen.expectBoxLike(u"El mensaje se ha guardado en:", u"para enviarlo.", 64, u"Correo", 1);
      prepared.add([] { enter(); });
      letters("G");
      EXPECT_TRUE(deskkit::eventually([] { return !isUp(); }));
    });
  });
  const QStringList kept = QDir(QString::fromStdString((folder.path() / "casa/Documents").native()))
                               .entryList({"*.eml"}, QDir::Files);
  ASSERT_EQ(kept.size(), 1);
  const QByteArray message =
      QByteArray::fromStdString(folder.content("casa/Documents/" + kept[0].toStdString()));
  EXPECT_EQ(headField(headOf(message), "Subject"), "Llaves de l'ático «B»");
  EXPECT_EQ(partsOf(message).size(), 3);
}

}  // namespace ovalia::host
