// Mails as programs of all ages write them, whole and damaged.
#include "desktop/MailReading.h"

#include "desktop/MailMessage.h"
#include "platform/Regional.h"
#include "tests/desktop/Desk.h"
#include "tests/kit/TemporaryFolder.h"

namespace ovalia::desktop {

class MailReading : public kit::LogicTest {
 protected:
  // Line ends are written as "\n" and go into the file as "\r\n".
  std::optional<ReadMail> read(const std::string& mail) {
    std::string bytes;
    for (const char c : mail) bytes += c == '\n' ? std::string("\r\n") : std::string(1, c);
    return readBytes(bytes);
  }
  std::optional<ReadMail> readBytes(const std::string& bytes) {
    const std::string number = std::to_string(++count_);
    folder.putFile(number + ".eml", bytes);
    folder.putFolder("adjuntos" + number);
    return readMail(folder.logic(fromUtf8(number + ".eml")), folder.logic(fromUtf8("adjuntos" + number)));
  }
  std::string content(const ReadAttachment& attached) {
    std::ifstream file(toUtf8(nativePath(attached.path)), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  static std::vector<std::string> names(const ReadMail& mail) {
    std::vector<std::string> all;
    for (const ReadAttachment& attached : mail.attachments) all.push_back(toUtf8(attached.name));
    return all;
  }
  static Text momentOf(const ReadMail& mail) {
    return mail.date ? formatDate(*mail.date, u"dd/MM/yyyy hh:nn", Regional()) : Text(u"ninguna");
  }

  kit::TemporaryFolder folder;

 private:
  int count_ = 0;
};

using testing::ElementsAre;

TEST_F(MailReading, takes_encoded_words_of_any_charset_in_the_head) {
  const auto mail = read(
      "From: =?iso-8859-1?Q?Jos=E9_Mu=F1oz?= <jose@cliente.es>\n"
      "To: \"Agencia, Central\" <info@agencia.es>,\n =?UTF-8?B?THVjw61h?= <l@agencia.es>\n"
      "Subject: =?windows-1252?Q?Precio:_200.000_=80_?=\n =?utf-8?Q?=E2=80=94_=C3=A1tico?=\n"
      "Date: Mon, 9 Mar 2026 10:20:30 +0000\n\nHola\n");
  ASSERT_TRUE(mail);
  EXPECT_EQ(mail->from, u"José Muñoz <jose@cliente.es>");
  EXPECT_EQ(mail->to, u"\"Agencia, Central\" <info@agencia.es>, Lucía <l@agencia.es>");
  EXPECT_EQ(mail->subject, u"Precio: 200.000 € — ático");
  EXPECT_EQ(mail->text, u"Hola");
  EXPECT_TRUE(mail->attachments.empty());
}

TEST_F(MailReading, takes_letters_that_stand_in_the_head_as_they_are) {
  EXPECT_EQ(read("Subject: \xC3\x81tico\n\na")->subject, u"Ático");
  EXPECT_EQ(read("Subject: \xC1tico\n\na")->subject, u"Ático");
}

TEST_F(MailReading, takes_texts_of_any_charset_and_encoding) {
  const std::string head = "Subject: a\nMIME-Version: 1.0\nContent-Type: text/plain; charset=";
  EXPECT_EQ(read(head + "iso-8859-1\nContent-Transfer-Encoding: 8bit\n\nA\xF1o\n")->text, u"Año");
  EXPECT_EQ(read(head + "windows-1252\nContent-Transfer-Encoding: quoted-printable\n\n=80 20=\n0\n")->text,
            u"€ 200");
  EXPECT_EQ(read(head + "utf-8\nContent-Transfer-Encoding: base64\n\nQcOxbw0KZG9z\n")->text, u"Año\r\ndos");
  EXPECT_EQ(read(head + "\"no-hay-tal\"\n\nhola\n")->text, u"hola");
  EXPECT_EQ(read("Subject: a\n\nuno\n\n\ndos\n\n\n")->text, u"uno\r\n\r\n\r\ndos");
}

TEST_F(MailReading, takes_texts_that_name_no_charset_or_one_that_does_not_exist) {
  for (const char* head :
       {"", "Content-Type: text/plain\n", "Content-Type: text/plain; charset=us-ascii\n",
        "Content-Type: text/plain; charset=x-unknown\n", "Content-Type: text/plain; charset=no-hay-tal\n"}) {
    EXPECT_EQ(read(std::string("Subject: a\n") + head + "\nA\xC3\xB1o \xE2\x82\xAC\n")->text, u"Año €")
        << head;
    EXPECT_EQ(read(std::string("Subject: a\n") + head + "\nA\xF1o \x80\n")->text, u"Año €") << head;
  }
  EXPECT_EQ(
      read("Subject: a\nContent-Type: text/plain; charset=utf-8\n\nA\xC3\xB1o \xF1 fin\n")->text.substr(0, 4),
      u"Año ")
      << "one letter that is spoilt spoils no other";
}

// Programs of Windows call their charset by the name of the one that it grew out of.
TEST_F(MailReading, takes_the_letters_of_windows_under_an_older_name) {
  for (const char* name : {"iso-8859-1", "ISO_8859-1", "latin1"})
    EXPECT_EQ(read(std::string("Subject: a\nContent-Type: text/plain; charset=") + name +
                   "\nContent-Transfer-Encoding: quoted-printable\n\n=93Ca=F1a=94 =80 =85\n")
                  ->text,
              u"“Caña” € …")
        << name;
}

TEST_F(MailReading, takes_the_charset_that_html_names_itself) {
  const std::string head = "Subject: a\nContent-Type: text/html\n\n<html><head>";
  EXPECT_EQ(read(head + "<meta http-equiv=\"Content-Type\" content=\"text/html; charset=iso-8859-7\"></head>"
                        "<p>\xE1\xE2\n")
                ->text,
            u"αβ");
  EXPECT_EQ(read(head + "<META CHARSET='utf-8'><p>A\xC3\xB1o\n")->text, u"Año");
  EXPECT_EQ(read(head + "<p>A\xF1o\n")->text, u"Año");
}

TEST_F(MailReading, takes_mails_from_boxes_of_many_and_from_editors) {
  const std::string mail = "Subject: a\nFrom: a@b.es\n\nhola\n";
  for (const std::string before : {"From ana@b.es Mon Mar  9 10:20:30 2026\n", "\xEF\xBB\xBF", "\n\n"}) {
    const auto found = read(before + mail);
    ASSERT_TRUE(found) << before;
    EXPECT_EQ(found->subject, u"a") << before;
    EXPECT_EQ(found->text, u"hola") << before;
  }
}

TEST_F(MailReading, tells_who_else_has_it) {
  EXPECT_EQ(read("Subject: a\nTo: a@b.es\nCc: =?utf-8?Q?Luc=C3=ADa?= <l@b.es>, c@b.es\n\nhola\n")->copies,
            u"Lucía <l@b.es>, c@b.es");
}

TEST_F(MailReading, makes_text_of_html_and_fetches_nothing) {
  const auto mail = read(
      "Subject: a\nContent-Type: text/html; charset=utf-8\n\n"
      "<html><head><style>p{color:red}</style><script>alert(1)</script></head>"
      "<body><p>Buenos d&iacute;as:</p><p>El <b>ático</b> &amp; el bajo<br>Saludos</p>"
      "<img src=\"file:///etc/hostname\"><img src=\"http://127.0.0.1:1/x.png\"></body></html>\n");
  EXPECT_EQ(mail->text, u"Buenos días:\r\nEl ático & el bajo\r\nSaludos");
  EXPECT_TRUE(mail->attachments.empty());
}

TEST_F(MailReading, takes_the_plain_one_of_two_texts) {
  const std::string head = "Subject: a\nContent-Type: multipart/alternative; boundary=x\n\n";
  const std::string html = "--x\nContent-Type: text/html\n\n<p>en HTML</p>\n";
  EXPECT_EQ(read(head + "--x\nContent-Type: text/plain\n\nsin más\n" + html + "--x--\n")->text, u"sin más");
  EXPECT_EQ(read(head + "--x\nContent-Type: text/plain\n\n  \n" + html + "--x--\n")->text, u"en HTML");
  EXPECT_EQ(read(head + html + "--x--\n")->text, u"en HTML");
}

TEST_F(MailReading, keeps_the_images_of_a_text_and_an_invitation) {
  const auto mail = read(
      "Subject: a\nContent-Type: multipart/related; boundary=r\n\n"
      "--r\nContent-Type: multipart/alternative; boundary=x\n\n"
      "--x\nContent-Type: text/plain\n\nhola\n"
      "--x\nContent-Type: text/html\n\n<img src=\"cid:1\">\n"
      "--x\nContent-Type: text/calendar; method=REQUEST\n\nBEGIN:VCALENDAR\n--x--\n"
      "--r\nContent-Type: image/png\nContent-ID: <1>\nContent-Disposition: inline\n"
      "Content-Transfer-Encoding: base64\n\niVBORw0K\n--r--\n");
  EXPECT_EQ(mail->text, u"hola");
  EXPECT_THAT(names(*mail), ElementsAre("adjunto 1.ics", "adjunto 2.png"));
  EXPECT_EQ(content(mail->attachments[1]), "\x89PNG\r\n");
}

TEST_F(MailReading, takes_attachments_by_the_names_that_any_program_gives_them) {
  const auto part = [](const std::string& head) {
    return "--m\n" + head + "\nContent-Transfer-Encoding: base64\n\nAAEC/w==\n";
  };
  const auto mail = read(
      "Subject: a\nContent-Type: multipart/mixed; boundary=m\n\npreámbulo\n"
      "--m\nContent-Type: text/plain\n\nuno\n" +
      part("Content-Type: application/pdf\n"
           "Content-Disposition: attachment; filename*=utf-8''Plano%20%C3%A1tico%2C%203%C2%BA.pdf") +
      part("Content-Type: application/pdf; name=\"=?iso-8859-1?Q?a=F1o.pdf?=\"") +
      part("Content-Type: application/pdf\nContent-Disposition: attachment;\n"
           " filename*0*=iso-8859-1''larg%ED;\n filename*1=\"simo.pdf\"") +
      part("Content-Type: image/jpeg\nContent-Disposition: attachment") +
      part("Content-Type: application/pdf; name=\"repetido.pdf\"") +
      part("Content-Type: application/pdf; name=\"repetido.pdf\"") +
      "--m\nContent-Type: text/plain\n\ndos\n"
      "--m\nContent-Type: text/plain; name=lista.txt\n\nno es el texto\n--m--\nepílogo\n");
  EXPECT_EQ(mail->text, u"uno\r\n\r\ndos");
  EXPECT_THAT(names(*mail), ElementsAre("Plano ático, 3º.pdf", "año.pdf", "largísimo.pdf", "adjunto 4.jpg",
                                        "repetido.pdf", "repetido.pdf", "lista.txt"));
  EXPECT_EQ(content(mail->attachments[0]), std::string("\0\1\2\xFF", 4));
  EXPECT_NE(mail->attachments[4].path, mail->attachments[5].path);
}

TEST_F(MailReading, lets_no_attachment_leave_its_folder) {
  const auto named = [](const std::string& name) {
    return "--m\nContent-Type: application/pdf\nContent-Disposition: attachment; filename=\"" + name +
           "\"\n\nx\n";
  };
  const auto mail = read("Subject: a\nContent-Type: multipart/mixed; boundary=m\n\n" +
                         named("../../fuera.pdf") + named("/etc/passwd") + named("C:\\\\Windows\\\\x.pdf") +
                         named("..") + named("/") + named(std::string(400, 'a') + ".pdf") + "--m--\n");
  const auto found = names(*mail);
  ASSERT_EQ(found.size(), 6u);
  for (const ReadAttachment& attached : mail->attachments) {
    EXPECT_EQ(attached.name.find_first_of(u"/\\"), Text::npos);
    EXPECT_EQ(content(attached), "x");
  }
  EXPECT_EQ(found[0], "....fuera.pdf");
  EXPECT_EQ(found[3], "adjunto 4.pdf");
  EXPECT_LE(found[5].size(), 255u);
  EXPECT_FALSE(std::filesystem::exists(folder.path().parent_path() / "fuera.pdf"));
}

TEST_F(MailReading, keeps_a_mail_in_a_mail_as_a_file_that_can_be_read_again) {
  const auto mail = read(
      "Subject: fuera\nContent-Type: multipart/mixed; boundary=m\n\n--m\nContent-Type: text/plain\n\nmira\n"
      "--m\nContent-Type: message/rfc822\n\nSubject: =?utf-8?Q?dentro/=C3=A1?=\nFrom: "
      "a@b.es\n\nhola\n--m--\n");
  EXPECT_EQ(mail->text, u"mira");
  EXPECT_THAT(names(*mail), ElementsAre("dentroá.eml"));
  const auto inner = readBytes(content(mail->attachments[0]));
  ASSERT_TRUE(inner);
  EXPECT_EQ(inner->subject, u"dentro/á");
  EXPECT_EQ(inner->text, u"hola");
}

TEST_F(MailReading, gives_the_moment_in_local_time_or_none) {
  const auto moment = [&](const std::string& date) { return momentOf(*read("Subject: a\n" + date + "\na")); };
  qputenv("TZ", "Europe/Madrid");
  EXPECT_EQ(moment("Date: Mon, 09 Mar 2026 10:20:30 +0000\n"), u"09/03/2026 11:20");
  EXPECT_EQ(moment("Date: Thu, 9 Jul 2026 23:50:00 -0500\n"), u"10/07/2026 06:50");
  qunsetenv("TZ");
  for (const char* none : {"", "Date: ayer\n", "Date:\n", "Date: Mon, 99 Foo 2026 10:20:30 +0000\n",
                           "Date: Thu, 1 Jan 1604 00:00:00 +0000\n"})
    EXPECT_EQ(moment(none), u"ninguna") << none;
}

TEST_F(MailReading, reads_damaged_mails_as_far_as_they_go) {
  const std::string head = "Subject: a\nContent-Type: multipart/mixed; boundary=m\n\n";
  auto mail = read(head +
                   "--m\nContent-Type: text/plain\n\nhola\n--m\nContent-Type: application/pdf; "
                   "name=x.pdf\nContent-Transfer-Encoding: base64\n\nAAEC/w");
  EXPECT_EQ(mail->text, u"hola");
  ASSERT_EQ(names(*mail).size(), 1u);
  EXPECT_EQ(content(mail->attachments[0]).substr(0, 3), std::string("\0\1\2", 3));
  EXPECT_EQ(read(head + "sin partes\n")->text, u"sin partes");
  EXPECT_EQ(read("Subject: a\nContent-Type: multipart/mixed\n\nsin marcas\n")->subject, u"a");
  mail =
      read("Subject: a\nContent-Type: text/plain; charset=utf-8\nContent-Transfer-Encoding: base64\n\n%%%\n");
  EXPECT_TRUE(mail);
  EXPECT_TRUE(read("Subject: solo la cabecera\n"));
  EXPECT_EQ(read(std::string("Subject: a\n\nuno\0dos\n", 20))->text, u"unodos") << "a zero is no end";
}

TEST_F(MailReading, does_not_follow_parts_in_parts_without_end) {
  std::string mail = "Subject: a\n";
  for (int i = 0; i < 2000; ++i) {
    const std::string mark = "m" + std::to_string(i);
    mail += "Content-Type: multipart/mixed; boundary=" + mark + "\n\n--" + mark + "\n";
  }
  EXPECT_TRUE(read(mail + "\nhola\n"));
}

// The program would stand still for minutes.
TEST_F(MailReading, does_not_follow_html_in_html_without_end) {
  const std::string head = "Subject: a\nContent-Type: text/html\n\n<style>b{}</style>";
  for (const std::string mark : {"<div>", "<b>", "<table><tr><td>"}) {
    std::string html = head;
    for (int i = 0; i < 100000; ++i) html += mark;
    const auto mail = read(html + "<p>uno &amp; dos</p><p>tres</p>\n");
    EXPECT_EQ(toUtf8(mail->text).substr(toUtf8(mail->text).find_first_not_of("\r\n ")), "uno & dos\r\ntres")
        << mark;
  }
  for (const std::string mark : {"<", "<head ", "<p ", "&", "<p>", "<li>", "<td>"}) {
    std::string html = head;
    for (int i = 0; i < 100000; ++i) html += mark;
    EXPECT_TRUE(read(html + "\n")) << mark;
  }
}

TEST_F(MailReading, refuses_what_is_no_mail) {
  EXPECT_FALSE(read(""));
  EXPECT_FALSE(read("una carta\n\nque no es un correo\n"));
  EXPECT_FALSE(readBytes(std::string("\x89PNG\r\n\x1A\n\0\0\0\rIHDR", 16)));
  try {
    readMail(folder.logic(u"nada.eml"), folder.logic());
    ADD_FAILURE();
  } catch (const Failure& failure) {
    EXPECT_EQ(failure.number(), 53);
  }
}

TEST_F(MailReading, takes_back_what_was_composed_here) {
  std::string bytes;
  for (int i = 0; i < 10 << 20; ++i) bytes += static_cast<char>(i * 31 + i / 977);
  folder.putFile("4073F00.pdf", bytes);
  QFile file(toQt(fromUtf8((folder.path() / "m.eml").native())));
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  writeMail({u"l@a.es",
             u"Ana <a@b.es>",
             u"Año",
             u"uno\r\ndos",
             {{folder.logic(u"4073F00.pdf"), u"Plano ático.pdf"}}},
            file);
  file.close();
  folder.putFolder("fuera");
  const auto mail = readMail(folder.logic(u"m.eml"), folder.logic(u"fuera"));
  ASSERT_TRUE(mail);
  EXPECT_EQ(mail->subject, u"Año");
  EXPECT_EQ(mail->to, u"Ana <a@b.es>");
  EXPECT_EQ(mail->text, u"uno\r\ndos");
  ASSERT_THAT(names(*mail), ElementsAre("Plano ático.pdf"));
  EXPECT_TRUE(content(mail->attachments[0]) == bytes);
}

}  // namespace ovalia::desktop
