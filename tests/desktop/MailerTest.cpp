#include "desktop/Mailer.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#include "routines/Collection.h"
#include "tests/deskkit/MailServer.h"
#include "tests/desktop/Desk.h"

namespace ovalia::desktop {

namespace {

using deskkit::MailServer;
using testing::HasSubstr;

class Mail : public kit::LogicTest {
 protected:
  void SetUp() override {
    for (const QString& kept : eml()) QFile::remove(documents().filePath(kept));
    QDir().mkpath(documents().path());
    here.settings.put(here.platform.app.title, u"Correo", u"Remitente", u"agente@agencia.es");
  }
  void server(const Text& url) { here.settings.put(here.platform.app.title, u"Correo", u"Servidor", url); }
  static QDir documents() {
    return QDir(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
  }
  static QStringList eml() { return documents().entryList({"*.eml"}); }
  Text write(const QString& name, const QByteArray& bytes) {
    QFile file(folder.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    return logicPath(fromQt(file.fileName()));
  }
  bool send(std::vector<Text> paths = {}, std::chrono::seconds patience = std::chrono::seconds(10)) {
    const auto attachments = std::make_shared<Collection>();
    for (const Text& path : paths) attachments->add(path);
    return callMember(
               makeMailer(patience), u"EnviarCorreo",
               {u"soporte@brenox.es", u"Incidencia en el ático", u"Línea uno\r\n.\r\nAño €", attachments})
        .toBoolean();
  }
  static std::string body(const QString& file) {
    QFile in(file);
    EXPECT_TRUE(in.open(QIODevice::ReadOnly));
    return in.readAll().toStdString();
  }

  QTemporaryDir folder;
};

TEST_F(Mail, goes_to_the_server_with_its_attachments) {
  MailServer smtp(MailServer::Accepts);
  server(smtp.url());
  EXPECT_TRUE(send({write("Año.zip", QByteArray("PK\0\1", 4))}));
  smtp.finish();
  EXPECT_THAT(smtp.commands, HasSubstr("MAIL FROM:<agente@agencia.es>"));
  EXPECT_THAT(smtp.commands, HasSubstr("RCPT TO:<soporte@brenox.es>"));
  EXPECT_THAT(smtp.message, HasSubstr("From: agente@agencia.es"));
  EXPECT_THAT(smtp.message, HasSubstr("To: soporte@brenox.es"));
  EXPECT_THAT(smtp.message, HasSubstr("Subject: Incidencia en el =?UTF-8?"));
  EXPECT_THAT(smtp.message, HasSubstr("Message-Id: <"));
  EXPECT_THAT(smtp.message, HasSubstr("Date: "));
  EXPECT_THAT(smtp.message, HasSubstr("Content-Type: multipart/mixed"));
  EXPECT_THAT(smtp.message, HasSubstr("charset=utf-8"));
  EXPECT_THAT(smtp.message, HasSubstr("L=C3=ADnea uno"));
  EXPECT_THAT(smtp.message, HasSubstr("A=C3=B1o =E2=82=AC"));
  EXPECT_THAT(smtp.message, HasSubstr("UEsAAQ=="));
  EXPECT_TRUE(eml().isEmpty());
}

TEST_F(Mail, is_kept_where_nobody_else_reads_it) {
  here.screen.expectBoxLike(u"No hay un servidor de correo configurado.", u"para enviarlo.", 64, u"Correo",
                            1);
  send();
  ASSERT_EQ(eml().size(), 1);
  const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
  EXPECT_FALSE(QFile::permissions(documents().filePath(eml().front())) & others);
}

TEST_F(Mail, is_kept_in_the_home_folder_where_there_are_no_documents) {
  ASSERT_TRUE(QDir().rmdir(documents().path()));
  here.screen.expectBoxLike(u"No hay un servidor de correo configurado.", u"para enviarlo.", 64, u"Correo",
                            1);
  send();
  const QStringList kept = QDir::home().entryList({"Correo *.eml"});
  ASSERT_EQ(kept.size(), 1);
  EXPECT_TRUE(QDir::home().remove(kept.front()));
}

TEST_F(Mail, without_a_server_is_kept_as_a_file_and_the_user_told_where) {
  here.screen.expectBoxLike(u"No hay un servidor de correo configurado.", u"para enviarlo.", 64, u"Correo",
                            1);
  EXPECT_FALSE(send({write("a.txt", "hola")}));
  ASSERT_EQ(eml().size(), 1);
  const std::string kept = body(documents().filePath(eml().front()));
  EXPECT_THAT(kept, HasSubstr("X-Unsent: 1\r\n"));
  EXPECT_THAT(kept, HasSubstr("To: soporte@brenox.es\r\n"));
  EXPECT_THAT(kept, HasSubstr("aG9sYQ=="));
}

TEST_F(Mail, two_in_one_second_are_kept_both) {
  here.screen.expectBoxLike(u"No hay un servidor", u"enviarlo.", 64, u"Correo", 1);
  here.screen.expectBoxLike(u"No hay un servidor", u"enviarlo.", 64, u"Correo", 1);
  send();
  send();
  EXPECT_EQ(eml().size(), 2);
}

TEST_F(Mail, that_the_server_refuses_is_kept) {
  MailServer smtp(MailServer::RefusesRecipient);
  server(smtp.url());
  here.screen.expectBoxLike(
      u"El servidor de correo no ha aceptado el mensaje: el servidor no acepta al remitente",
      u"para enviarlo.", 48, u"Correo", 1);
  EXPECT_FALSE(send());
  EXPECT_EQ(eml().size(), 1);
}

TEST_F(Mail, to_a_server_that_says_nothing_is_kept_after_a_while) {
  MailServer smtp(MailServer::Silent);
  server(smtp.url());
  here.screen.expectBoxLike(u"El servidor de correo no ha aceptado el mensaje: el servidor no responde.",
                            u"para enviarlo.", 48, u"Correo", 1);
  EXPECT_FALSE(send({}, std::chrono::seconds(1)));
  EXPECT_EQ(eml().size(), 1);
}

TEST_F(Mail, to_an_address_where_nobody_listens_or_that_is_none_is_kept_and_the_reason_told) {
  struct Row {
    TextView url, reason;
  };
  for (const auto& [url, reason] :
       {Row{u"smtp://127.0.0.1:1", u"no se puede conectar con el servidor."},
        Row{u"http://127.0.0.1:1", u"la dirección del servidor debe empezar por smtp:// o smtps://."},
        Row{u"disparate", u"la dirección del servidor debe empezar por smtp:// o smtps://."},
        Row{u"smtp://", u"la dirección del servidor no está bien escrita."}}) {
    server(Text(url));
    here.screen.expectBoxLike(u"El servidor de correo no ha aceptado el mensaje: " + Text(reason),
                              u"enviarlo.", 48, u"Correo", 1);
    EXPECT_FALSE(send());
  }
  EXPECT_EQ(eml().size(), 4);
}

TEST_F(Mail, with_an_attachment_that_is_not_there_is_not_sent) {
  try {
    send({u"\\no\\hay.zip"});
    ADD_FAILURE();
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.number(), 53);
  }
}

TEST_F(Mail, no_line_of_a_subject_or_address_ends_early) {
  here.screen.expectBoxLike(u"No hay un servidor", u"enviarlo.", 64, u"Correo", 1);
  callMember(makeMailer(), u"EnviarCorreo",
             {u"a@b.es", u"uno\r\nBcc: otro@x.es", u"", std::make_shared<Collection>()});
  const std::string kept = body(documents().filePath(eml().front()));
  EXPECT_THAT(kept, testing::Not(HasSubstr("\nBcc:")));
}

}  // namespace

}  // namespace ovalia::desktop
