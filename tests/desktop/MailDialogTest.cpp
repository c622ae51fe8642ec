// A mail that its user looks through, fills in and sends, over servers that take it and servers that do not.
#include "desktop/MailDialog.h"

#include <QDir>
#include <QElapsedTimer>
#include <QPointer>
#include <QStandardPaths>
#include <QTimer>
#include <fstream>

#include "system/FileSystem.h"
#include "tests/deskkit/MailParts.h"
#include "tests/deskkit/MailServer.h"
#include "tests/desktop/Desk.h"
#include "tests/kit/TemporaryFolder.h"

namespace ovalia::desktop {

using deskkit::enter;
using deskkit::escape;
using deskkit::headField;
using deskkit::headOf;
using deskkit::letters;
using deskkit::MailPart;
using deskkit::MailServer;
using deskkit::partsOf;
using deskkit::press;
using deskkit::tab;
using deskkit::types;
using testing::HasSubstr;

class MailsOfTheUser : public DeskTest {
 protected:
  // Shows the dialog and plays while it is up; what it said last is kept.
  bool whileUp(const MailMessage& draft, const Text& server, const std::function<void()>& keys,
               std::chrono::seconds patience = std::chrono::seconds(10)) {
    MailDialog dialog(draft, {.url = server, .patience = patience}, nullptr);
    shown_ = &dialog;
    deskkit::meanwhile([&] {
      keys();
      if (dialog.isVisible()) dialog.QDialog::done(QDialog::Rejected);
    });
    dialog.exec();
    said = dialog.findChild<QLabel*>("mensaje")->text().toStdString();
    return dialog.sent();
  }
  // A button by its letter: it is seen to go down and up before it does what it says.
  void clicks(const char* letter) {
    letters(letter);
    EXPECT_TRUE(deskkit::eventually([this] {
      for (const QPushButton* button : shown_ ? shown_->findChildren<QPushButton*>() : QList<QPushButton*>())
        if (button->isDown()) return false;
      return true;
    }));
  }
  MailDialog& dialog() { return *shown_; }
  QListWidget& list() { return *shown_->findChild<QListWidget*>("adjuntos"); }
  std::string message() { return shown_->findChild<QLabel*>("mensaje")->text().toStdString(); }
  static MailMessage draft() {
    return {u"Lucía Ferrándiz <lucia@agencia.es>",
            u"",
            u"Llaves del ático de Peñíscola, 3º «B»",
            u"Buenos días:\r\n.\r\n.uno\r\nAño €",
            {}};
  }
  MailAttachment file(const char* name, const std::string& content, Text shown) {
    folder.putFile(name, content);
    return {folder.logic(fromUtf8(name)), std::move(shown)};
  }
  static QDir documents() {
    return QDir(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
  }
  static QStringList kept() { return documents().entryList({"*.eml"}); }
  void SetUp() override {
    DeskTest::SetUp();
    QDir().mkpath(documents().path());
    for (const QString& file : kept()) QFile::remove(documents().filePath(file));
  }

  kit::TemporaryFolder folder;
  std::string said;

 private:
  QPointer<MailDialog> shown_;
};

TEST_F(MailsOfTheUser, reach_the_server_as_they_were_written) {
  MailServer smtp(MailServer::Accepts);
  std::string bytes;
  for (int i = 0; i < 100000; ++i) bytes += static_cast<char>(i * 7 + i / 256);
  bytes += "\r\n.\r\nfin\n";
  MailMessage mail = draft();
  mail.attachments = {file("4073F00.pdf", bytes, u"Plano, del ático y «señal».pdf"),
                      file("4073F01.txt", "uno\ndos\r\ntres", u"notas.txt"), file("4073F02.doc", "", u"")};
  EXPECT_TRUE(whileUp(mail, smtp.url(), [&] {
    types("ana@cliente.es; Óscar Güell <oscar@agencia.es>");
    clicks("E");
  }));
  smtp.finish();
  EXPECT_THAT(smtp.commands, HasSubstr("MAIL FROM:<lucia@agencia.es>"));
  EXPECT_THAT(smtp.commands, HasSubstr("RCPT TO:<ana@cliente.es>"));
  EXPECT_THAT(smtp.commands, HasSubstr("RCPT TO:<oscar@agencia.es>"));
  const QByteArray message = QByteArray::fromStdString(smtp.message);
  for (const char c : message) ASSERT_GE(c, 0) << "only the seven bits of the old lines";
  const QByteArray head = headOf(message);
  EXPECT_EQ(headField(head, "Subject"), "Llaves del ático de Peñíscola, 3º «B»");
  EXPECT_EQ(headField(head, "From"), "Lucía Ferrándiz <lucia@agencia.es>");
  EXPECT_EQ(headField(head, "To"), "ana@cliente.es, Óscar Güell <oscar@agencia.es>");
  const QList<MailPart> parts = partsOf(message);
  ASSERT_EQ(parts.size(), 4);
  EXPECT_THAT(parts[0].head.toStdString(), HasSubstr("charset=utf-8"));
  EXPECT_EQ(parts[0].content.trimmed(), "Buenos días:\r\n.\r\n.uno\r\nAño €");
  EXPECT_EQ(parts[1].name, "Plano, del ático y «señal».pdf");
  EXPECT_EQ(parts[1].content.toStdString(), bytes);
  EXPECT_THAT(parts[1].head.toStdString(), HasSubstr("application/pdf"));
  EXPECT_EQ(parts[2].name, "notas.txt");
  EXPECT_EQ(parts[2].content, "uno\ndos\r\ntres") << "nobody turns the line ends of a document";
  EXPECT_EQ(parts[3].name, "4073F02.doc");
  EXPECT_EQ(parts[3].content, "");
  EXPECT_TRUE(kept().isEmpty());
}

TEST_F(MailsOfTheUser, are_filled_in_with_the_keyboard_alone) {
  MailServer smtp(MailServer::Accepts);
  MailMessage mail = draft();
  mail.attachments = {file("1F00.pdf", "uno", u"uno.pdf"), file("1F01.pdf", "dos", u"dos.pdf")};
  EXPECT_TRUE(whileUp(mail, smtp.url(), [&] {
    types("ana@cliente.es");
    enter();
    EXPECT_TRUE(dialog().isVisible()) << "Enter in a box sends nothing";
    tab();
    press(Qt::Key_A, Qt::ControlModifier);
    types("otro asunto");
    letters("T");
    press(Qt::Key_A, Qt::ControlModifier);
    types("otro texto");
    tab();
    EXPECT_TRUE(list().hasFocus());
    press(Qt::Key_Space, Qt::NoModifier, " ");
    press(Qt::Key_Return, Qt::ControlModifier);
  }));
  smtp.finish();
  const QByteArray message = QByteArray::fromStdString(smtp.message);
  EXPECT_EQ(headField(headOf(message), "Subject"), "otro asunto");
  const auto parts = partsOf(message);
  ASSERT_EQ(parts.size(), 2);
  EXPECT_EQ(parts[0].content.trimmed(), "otro texto");
  EXPECT_EQ(parts[1].name, "dos.pdf");
}

TEST_F(MailsOfTheUser, have_a_letter_for_each_box_and_button) {
  whileUp(draft(), u"smtp://127.0.0.1:1", [&] {
    for (const auto& [letter, name] :
         {std::pair("S", "asunto"), {"T", "texto"}, {"D", "adjuntos"}, {"P", "para"}}) {
      letters(letter);
      EXPECT_EQ(dialog().focusWidget()->objectName(), QLatin1String(name));
    }
    clicks("C");
    EXPECT_FALSE(dialog().isVisible());
  });
}

TEST_F(MailsOfTheUser, need_an_address) {
  struct Row {
    const char *typed, *said;
  };
  for (const Row& row : {Row{"", "Escriba la dirección del destinatario."},
                         Row{"   ", "Escriba la dirección del destinatario."},
                         Row{"Ana", "«Ana» no es una dirección de correo."},
                         Row{"ana@", "«ana@» no es una dirección de correo."},
                         Row{"a@b@c.es", "«a@b@c.es» no es una dirección de correo."},
                         Row{"ana@b.es, pepe", "«ana@b.es, pepe» no es una dirección de correo."}}) {
    EXPECT_FALSE(whileUp(draft(), u"smtp://127.0.0.1:1", [&] {
      types(row.typed);
      letters("T");
      clicks("E");
      EXPECT_EQ(message(), row.said);
      EXPECT_EQ(dialog().focusWidget()->objectName(), "para");
    })) << row.typed;
  }
}

TEST_F(MailsOfTheUser, stay_open_when_the_server_refuses_them_and_go_to_the_next_one) {
  struct Row {
    MailServer::Manner manner;
    const char *reason, *reply;
  };
  for (const Row& row :
       {Row{MailServer::RefusesRecipient, "no acepta al remitente o al destinatario",
            "550 no such user here"},
        Row{MailServer::RefusesConversation, "rechaza el mensaje", "554 no service here"},
        Row{MailServer::RefusesSender, "no acepta al remitente", "530 authentication required"},
        Row{MailServer::RefusesData, "no acepta al remitente", "451 come back later"},
        Row{MailServer::RefusesMessage, "rechaza el mensaje", "554 looks like nonsense"},
        Row{MailServer::RefusesSize, "no acepta al remitente", "552 message size exceeds the limit"},
        Row{MailServer::Drops, "cortado", ""}}) {
    MailServer smtp(row.manner);
    MailMessage mail = draft();
    mail.to = u"ana@cliente.es";
    mail.attachments = {file("1F00.pdf", std::string(200000, 'x'), u"x.pdf")};
    EXPECT_FALSE(whileUp(mail, smtp.url(), [&] {
      clicks("E");
      EXPECT_TRUE(dialog().isVisible());
      EXPECT_TRUE(dialog().findChild<QLineEdit*>("para")->isEnabled());
    }));
    smtp.finish();
    EXPECT_THAT(said, testing::StartsWith("El mensaje no se ha enviado: "));
    EXPECT_THAT(said, HasSubstr(row.reason));
    EXPECT_THAT(said, HasSubstr(row.reply));
    if (row.manner == MailServer::RefusesSize) {
      EXPECT_EQ(smtp.message, "") << "refused before it was sent";
    }
  }
  EXPECT_TRUE(kept().isEmpty());
}

// Else one of them would have it twice when it is sent again.
TEST_F(MailsOfTheUser, reach_nobody_when_the_server_refuses_one_of_several) {
  MailServer smtp(MailServer::RefusesSecondRecipient);
  MailMessage mail = draft();
  mail.to = u"ana@cliente.es; oscar@agencia.es; lucia@agencia.es";
  EXPECT_FALSE(whileUp(mail, smtp.url(), [&] { clicks("E"); }));
  smtp.finish();
  EXPECT_THAT(said, HasSubstr("no acepta al remitente o al destinatario"));
  EXPECT_THAT(said, HasSubstr("550 no such user here"));
  EXPECT_THAT(smtp.commands, HasSubstr("RCPT TO:<oscar@agencia.es>"));
  EXPECT_THAT(smtp.commands, testing::Not(HasSubstr("DATA")));
  EXPECT_EQ(smtp.message, "");
}

TEST_F(MailsOfTheUser, keep_what_stands_behind_a_zero) {
  MailMessage mail = draft();
  mail.body = Text(u"uno\0dos", 7);
  QFile out(toQt(fromUtf8((folder.path() / "mensaje.eml").native())));
  ASSERT_TRUE(out.open(QIODevice::ReadWrite));
  writeMail(mail, out);
  out.seek(0);
  EXPECT_EQ(partsOf(out.readAll())[0].content.trimmed(), "unodos");
}

// Counts how often the windows' loop comes round.
class Pulse {
 public:
  Pulse() {
    QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { ++beats; });
    timer_.start(20);
  }
  int beats = 0;

 private:
  QTimer timer_;
};

TEST_F(MailsOfTheUser, let_the_window_live_while_a_server_is_silent) {
  for (const auto manner : {MailServer::Silent, MailServer::SilentAtTheEnd}) {
    MailServer smtp(manner);
    MailMessage mail = draft();
    mail.to = u"ana@cliente.es";
    EXPECT_FALSE(whileUp(
        mail, smtp.url(),
        [&] {
          Pulse pulse;
          clicks("E");
          EXPECT_GT(pulse.beats, 10);
        },
        std::chrono::seconds(1)));
    EXPECT_THAT(said, HasSubstr("el servidor no responde"));
  }
}

TEST_F(MailsOfTheUser, are_given_up_when_the_server_takes_no_more_of_them) {
  MailServer smtp(MailServer::StopsListening);
  MailMessage mail = draft();
  mail.to = u"ana@cliente.es";
  mail.attachments = {file("1F00.pdf", std::string(20 << 20, 'x'), u"x.pdf")};
  EXPECT_FALSE(whileUp(
      mail, smtp.url(), [&] { clicks("E"); }, std::chrono::seconds(1)));
  EXPECT_THAT(said, HasSubstr("el servidor no responde"));
}

TEST_F(MailsOfTheUser, are_called_back_with_escape) {
  MailServer smtp(MailServer::Silent);
  MailMessage mail = draft();
  mail.to = u"ana@cliente.es";
  QElapsedTimer clock;
  clock.start();
  EXPECT_FALSE(whileUp(
      mail, smtp.url(),
      [&] {
        QTimer::singleShot(200, [&] {
          EXPECT_EQ(message(), "Enviando el mensaje...");
          EXPECT_FALSE(dialog().findChild<QLineEdit*>("para")->isEnabled());
          escape();
        });
        clicks("E");
        EXPECT_TRUE(dialog().isVisible());
      },
      std::chrono::seconds(60)));
  EXPECT_THAT(said, HasSubstr("se ha cancelado el envío"));
  EXPECT_LT(clock.elapsed(), 20000);
}

TEST_F(MailsOfTheUser, leave_out_a_document_that_is_not_there_and_say_when_one_goes_away) {
  MailServer smtp(MailServer::Accepts);
  MailMessage mail = draft();
  mail.to = u"ana@cliente.es";
  mail.attachments = {{folder.logic(u"nada.pdf"), u"nada.pdf"}, file("1F00.pdf", "uno", u"uno.pdf")};
  EXPECT_TRUE(whileUp(mail, smtp.url(), [&] {
    EXPECT_EQ(list().item(0)->text(), "nada.pdf (no se encuentra)");
    EXPECT_EQ(list().item(0)->checkState(), Qt::Unchecked);
    EXPECT_EQ(list().item(1)->text(), "uno.pdf (3 bytes)");
    letters("D");
    press(Qt::Key_Space, Qt::NoModifier, " ");
    EXPECT_EQ(list().item(0)->checkState(), Qt::Unchecked);
    std::filesystem::rename(folder.path() / "1F00.pdf", folder.path() / "fuera");
    clicks("E");
    EXPECT_THAT(message(), HasSubstr("uno de los documentos ya no se encuentra"));
    std::filesystem::rename(folder.path() / "fuera", folder.path() / "1F00.pdf");
    clicks("E");
  }));
  smtp.finish();
  const auto parts = partsOf(QByteArray::fromStdString(smtp.message));
  ASSERT_EQ(parts.size(), 2);
  EXPECT_EQ(parts[1].name, "uno.pdf");
}

TEST_F(MailsOfTheUser, are_closed_after_a_question_where_something_was_written) {
  whileUp(draft(), u"smtp://127.0.0.1:1", [&] {
    types("ana");
    expectBox(u"¿Desea cerrar el mensaje sin enviarlo?", 36, u"Correo", 7);
    escape();
    EXPECT_TRUE(dialog().isVisible());
    expectBox(u"¿Desea cerrar el mensaje sin enviarlo?", 36, u"Correo", 6);
    escape();
    EXPECT_FALSE(dialog().isVisible());
  });
  whileUp(draft(), u"smtp://127.0.0.1:1", [&] {
    escape();
    EXPECT_FALSE(dialog().isVisible()) << "nothing was written";
  });
}

TEST_F(MailsOfTheUser, can_be_kept_for_another_program) {
  here.screen.expectBoxLike(u"El mensaje se ha guardado en:", u"para enviarlo.", 64, u"Correo", 1);
  whileUp(draft(), u"smtp://127.0.0.1:1", [&] {
    clicks("G");
    EXPECT_FALSE(dialog().isVisible());
  });
  ASSERT_EQ(kept().size(), 1);
  QFile file(documents().filePath(kept().front()));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QByteArray message = file.readAll();
  EXPECT_TRUE(message.startsWith("X-Unsent: 1\r\n"));
  EXPECT_EQ(headField(headOf(message), "Subject"), "Llaves del ático de Peñíscola, 3º «B»");
  EXPECT_EQ(partsOf(message).size(), 1);
}

// In kB: what this process has had in memory at most since the last time that was reset.
long peak() {
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);)
    if (line.starts_with("VmHWM:")) return std::stol(line.substr(6));
  return 0;
}

TEST_F(MailsOfTheUser, are_composed_without_a_large_document_in_memory) {
  constexpr int megabytes = 96;
  MailMessage mail = draft();
  mail.to = u"ana@cliente.es";
  mail.attachments = {file("1F00.avi", "", u"vídeo.avi")};
  std::filesystem::resize_file(folder.path() / "1F00.avi", megabytes << 20);
  std::ofstream("/proc/self/clear_refs") << "5";
  const long before = peak();
  QFile out(toQt(fromUtf8((folder.path() / "mensaje.eml").native())));
  ASSERT_TRUE(out.open(QIODevice::ReadWrite));
  writeMail(mail, out);
  EXPECT_GT(out.size(), qint64(megabytes) * 1000 * 1000 * 4 / 3);
  EXPECT_LT(peak() - before, 40 * 1024);
}

TEST_F(MailsOfTheUser, that_find_no_room_on_the_disk_fail) {
  QFile full("/dev/full");
  ASSERT_TRUE(full.open(QIODevice::WriteOnly));
  try {
    writeMail(draft(), full);
    ADD_FAILURE();
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.number(), 61);
  }
}

TEST(MailAddresses, stand_alone_or_behind_names) {
  EXPECT_EQ(mailAddresses(u""), std::vector<Text>());
  EXPECT_EQ(mailAddresses(u"a@b.es"), std::vector<Text>{u"a@b.es"});
  EXPECT_EQ(mailAddresses(u"Ana Ñ <a@b.es>;\"Pérez, Luis\" <l@c.es> , d@e.es"),
            (std::vector<Text>{u"a@b.es", u"l@c.es", u"d@e.es"}));
  for (TextView none : {u"ana", u"a@", u"@b", u"a b@c.es", u"a@b.es; x", u"<>"})
    EXPECT_FALSE(mailAddresses(none)) << toUtf8(none);
}

}  // namespace ovalia::desktop
