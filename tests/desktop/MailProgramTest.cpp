// A mail in the hands of the desktop's mail program: a small program of the test's own stands on the path.
#include "desktop/MailProgram.h"

#include <signal.h>
#include <sys/stat.h>

#include <QDir>
#include <QStandardPaths>
#include <QTimer>

#include "system/FileSystem.h"
#include "tests/desktop/Desk.h"
#include "tests/kit/TemporaryFolder.h"

namespace ovalia::desktop {

using testing::ElementsAre;
using testing::HasSubstr;

class MailProgram : public DeskTest {
 protected:
  MailProgram() {
    here.platform.files = &files;
    QDir(cache()).removeRecursively();
    folder.putFolder("programas");
    qputenv("PATH", (folder.path() / "programas").native().c_str());
  }
  ~MailProgram() override {
    qputenv("PATH", path_);
    here.platform.files = &here.files;
  }
  static QString cache() {
    return QStandardPaths::writableLocation(QStandardPaths::CacheLocation) + "/correo";
  }
  // Writes its arguments down, one behind a zero, and what it finds in the files it is given; then does that.
  void install(const std::string& then = "exit 0") {
    const auto program = folder.path() / "programas" / "xdg-email";
    folder.putFile("programas/xdg-email", "#!/bin/sh\nPATH=/usr/bin:/bin\nprintf '%s\\0' \"$@\" >\"" +
                                              log("a") +
                                              "\"\nfor f; do test -f \"$f\" && cat \"$f\"; done >\"" +
                                              log("c") + "\"\n" + then + "\n");
    chmod(program.c_str(), 0755);
  }
  std::string log(const std::string& name) { return (folder.path() / name).native(); }
  std::vector<std::string> arguments() {
    std::vector<std::string> all;
    std::istringstream read(folder.content("a"));
    for (std::string one; std::getline(read, one, '\0');) all.push_back(one);
    return all;
  }
  MailAttachment file(const char* name, const std::string& content, Text shown) {
    folder.putFile(name, content);
    return {folder.logic(fromUtf8(name)), std::move(shown)};
  }

  kit::TemporaryFolder folder;
  system::FileSystem files;

 private:
  const QByteArray path_ = qgetenv("PATH");
};

TEST_F(MailProgram, gets_subject_text_and_the_documents_under_the_names_they_are_shown_by) {
  install();
  EXPECT_EQ(openInMailProgram(
                {u"",
                 u"",
                 u"Llaves del ático",
                 u"Buenos días:\r\n-- Año \"€\" $HOME",
                 {file("1F00.pdf", "uno", u"Plano, 3º.pdf"), file("1F01.doc", "dos", u"Plano, 3º.pdf"),
                  file("1F02.doc", "tres", u"../fuera/carta.doc")}}),
            u"");
  const auto given = arguments();
  ASSERT_EQ(given.size(), 11u);
  EXPECT_THAT(
      std::vector(given.begin(), given.begin() + 5),
      ElementsAre("--utf8", "--subject", "Llaves del ático", "--body", "Buenos días:\n-- Año \"€\" $HOME"));
  EXPECT_EQ(given[5], "--attach");
  EXPECT_THAT(given[6], testing::EndsWith("/1/Plano, 3º.pdf"));
  EXPECT_THAT(given[8], testing::EndsWith("/2/Plano, 3º.pdf"));
  EXPECT_THAT(given[10], testing::EndsWith("/3/..fueracarta.doc"));
  EXPECT_EQ(folder.content("c"), "unodostres");
}

TEST_F(MailProgram, gets_the_address_where_there_is_one) {
  install();
  EXPECT_EQ(openInMailProgram({u"", u"Ana <ana@cliente.es>; b+1@c.es", u"a\r\nb", u"-c", {}}), u"");
  EXPECT_THAT(arguments(),
              ElementsAre("--utf8", "--subject", "a b", "--body", "-c", "mailto:ana@cliente.es,b%2B1@c.es"));
}

TEST_F(MailProgram, takes_no_address_for_an_option) {
  install();
  EXPECT_EQ(openInMailProgram({u"", u"--attach=/etc/passwd@c.es", u"-x", u"", {}}), u"");
  EXPECT_THAT(arguments(),
              ElementsAre("--utf8", "--subject", "-x", "mailto:--attach%3D%2Fetc%2Fpasswd@c.es"));
}

// The desktop's own refuses options without a text.
TEST_F(MailProgram, is_not_told_of_a_subject_or_a_text_that_is_empty) {
  install("for word; do test -n \"$word\" || exit 1; done");
  EXPECT_EQ(openInMailProgram({u"", u"", u"", u"texto", {}}), u"");
  EXPECT_THAT(arguments(), ElementsAre("--utf8", "--body", "texto"));
  EXPECT_EQ(openInMailProgram({u"", u"", u" \r\n", u"", {file("1F00.pdf", "uno", u"uno.pdf")}}), u"");
  ASSERT_EQ(arguments().size(), 3u);
  EXPECT_EQ(arguments()[1], "--attach");
  EXPECT_EQ(openInMailProgram({}), u"");
  EXPECT_THAT(arguments(), ElementsAre("--utf8"));
}

TEST_F(MailProgram, that_is_missing_or_fails_is_told) {
  const MailMessage mail{u"", u"", u"a", u"b", {}};
  EXPECT_EQ(openInMailProgram(mail), u"No hay ningún programa de correo.");
  install("exit 4");
  EXPECT_EQ(openInMailProgram(mail), u"El programa de correo no ha podido abrirse (código 4).");
  install("kill -9 $$");
  EXPECT_EQ(openInMailProgram(mail), u"El programa de correo ha fallado.");
  folder.putFile("programas/xdg-email", "#!/no/hay/tal\n");
  EXPECT_EQ(openInMailProgram(mail), u"El programa de correo no se puede abrir.");
}

TEST_F(MailProgram, does_not_take_a_text_that_no_command_line_holds) {
  install();
  EXPECT_EQ(openInMailProgram({u"", u"", u"a", Text(300000, u'x'), {}}),
            u"El programa de correo no se puede abrir.");
}

TEST_F(MailProgram, that_goes_on_running_has_the_mail_and_the_windows_live_meanwhile) {
  install("echo $$ >\"" + log("proceso") + "\"\nfor second in 1 2 3 4 5 6 7 8 9; do test -f \"" +
          log("sigue") + "\" && break; sleep 1; done\necho fin >\"" + log("fin") + "\"");
  int beats = 0;
  QTimer pulse;
  QObject::connect(&pulse, &QTimer::timeout, &pulse, [&] { ++beats; });
  pulse.start(10);
  EXPECT_EQ(openInMailProgram({u"", u"", u"a", u"b", {}}, std::chrono::milliseconds(500)), u"");
  EXPECT_FALSE(folder.has("fin"));
  EXPECT_GT(beats, 1);
  folder.putFile("sigue", "");
  EXPECT_TRUE(eventually([&] { return folder.has("fin"); })) << "it was left alone";
  const pid_t program = std::stoi(folder.content("proceso"));
  EXPECT_TRUE(eventually([&] { return kill(program, 0) != 0; })) << "nothing is kept of it once it has ended";
}

TEST_F(MailProgram, gets_no_document_that_is_not_there) {
  install();
  try {
    openInMailProgram({u"", u"", u"a", u"b", {{folder.logic(u"nada.pdf"), u"nada.pdf"}}});
    ADD_FAILURE();
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.number(), 53);
  }
}

TEST_F(MailProgram, has_a_day_to_read_its_copies) {
  install();
  const MailMessage mail{u"", u"", u"a", u"b", {file("1F00.pdf", "uno", u"uno.pdf")}};
  openInMailProgram(mail);
  const QStringList first = QDir(cache()).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
  ASSERT_EQ(first.size(), 1);
  openInMailProgram(mail);
  EXPECT_EQ(QDir(cache()).entryList(QDir::Dirs | QDir::NoDotAndDotDot).size(), 2);
  const auto old = std::filesystem::file_time_type::clock::now() - std::chrono::hours(25);
  std::filesystem::last_write_time((cache() + u'/' + first[0]).toStdString(), old);
  openInMailProgram(mail);
  const QStringList left = QDir(cache()).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
  EXPECT_EQ(left.size(), 2);
  EXPECT_FALSE(left.contains(first[0]));
}

}  // namespace ovalia::desktop
