#include "host/MailDraft.h"

#include <gmock/gmock.h>

#include "desktop/MailDelivery.h"
#include "host/MailSending.h"
#include "tests/host/HostTest.h"

namespace ovalia::host {

using testing::ElementsAre;
using testing::HasSubstr;

class MailDrafts : public HostTest {
 protected:
  // "name < path" of each document.
  std::vector<std::string> listed(TextView names, TextView paths) {
    std::vector<std::string> all;
    for (const auto& document : listedDocuments(names, paths))
      all.push_back(toUtf8(document.name + u" < " + document.path));
    return all;
  }
  void put(TextView path) {
    here.files.putFolder(path.substr(0, path.rfind(u'\\')));
    here.files.putFile(path, u"x");
  }
  static Variant array(std::vector<Text> texts) {
    texts.resize(61);
    auto object = std::make_shared<MemberTable>();
    object->property(u"", [texts](Arguments a) -> Variant { return texts.at(std::size_t(a[0].toLong())); });
    return Variant(object);
  }
};

TEST_F(MailDrafts, take_what_the_marks_say_by_their_names) {
  put(u"\\datos\\Doc0\\1F00.pdf");
  const Variant marks = array({u"AdjuntoEMail", u"Notas", u"", u"Adjunto", u"Asunto"});
  const Variant values =
      array({u"\\datos\\Doc0\\1F00.pdf", u"Buenos días:\r\nuno", u"nada", u"Plano.pdf.", u"Llaves"});
  here.settings.put(here.platform.app.title, u"Correo", u"Remitente", u"l@a.es");
  const auto draft = mailDraft(workplace, marks, values);
  EXPECT_EQ(draft.from, u"l@a.es");
  EXPECT_EQ(draft.to, u"");
  EXPECT_EQ(draft.subject, u"Llaves");
  EXPECT_EQ(draft.body, u"Buenos días:\r\nuno");
  ASSERT_EQ(draft.attachments.size(), 1u);
  EXPECT_EQ(draft.attachments[0].name, u"Plano.pdf");
  EXPECT_EQ(draft.attachments[0].path, u"\\datos\\Doc0\\1F00.pdf");
}

TEST_F(MailDrafts, come_from_whoever_works_here_unless_the_settings_say_so) {
  database().Execute(u"UPDATE Usuario SET Correo = 'yo@agencia.es' WHERE Nombre = 'Administrador'");
  const Variant none = array({});
  EXPECT_EQ(mailDraft(workplace, none, none).from, u"yo@agencia.es");
  EXPECT_TRUE(mailDraft(workplace, none, none).attachments.empty());
  workplace.agency.user = u"Nadie";
  EXPECT_EQ(mailDraft(workplace, none, none).from, u"");
}

TEST_F(MailDrafts, attach_each_document_under_its_name) {
  for (TextView path : {u"\\d\\1F00.pdf", u"\\d\\1F01.doc", u"\\d\\1F02.doc"}) put(path);
  EXPECT_THAT(listed(u"a.pdf , b.docx , c.", u"\\d\\1F00.pdf , \\d\\1F01.doc , \\d\\1F02.doc"),
              ElementsAre("a.pdf < \\d\\1F00.pdf", "b.docx < \\d\\1F01.doc", "c < \\d\\1F02.doc"));
  EXPECT_THAT(listed(u"", u""), ElementsAre());
  EXPECT_THAT(listed(u"Carta...", u"\\d\\1F01.doc"), ElementsAre("Carta.. < \\d\\1F01.doc"));
}

TEST_F(MailDrafts, tell_commas_in_folders_from_those_between_paths) {
  put(u"\\Ana , Luis\\Doc0\\1F00.pdf");
  put(u"\\Ana , \\Doc0\\1F01.doc");
  EXPECT_THAT(listed(u"a.pdf , b.doc.", u"\\Ana , Luis\\Doc0\\1F00.pdf , \\Ana , \\Doc0\\1F01.doc"),
              ElementsAre("a.pdf < \\Ana , Luis\\Doc0\\1F00.pdf", "b.doc < \\Ana , \\Doc0\\1F01.doc"));
}

TEST_F(MailDrafts, know_where_a_path_ends_whose_file_is_missing) {
  put(u"\\Ana , Luis\\1F02.doc");
  EXPECT_THAT(listed(u"a.pdf , b.pdf , c.doc.",
                     u"\\Ana , Luis\\1F00.pdf , \\Ana , Luis\\1F01.pdf , \\Ana , Luis\\1F02.doc"),
              ElementsAre("a.pdf < \\Ana , Luis\\1F00.pdf", "b.pdf < \\Ana , Luis\\1F01.pdf",
                          "c.doc < \\Ana , Luis\\1F02.doc"));
}

TEST_F(MailDrafts, tell_commas_in_names_by_the_extensions_or_leave_the_names_out) {
  for (TextView path : {u"\\d\\1F00.pdf", u"\\d\\1F01.xls"}) put(path);
  const Text both = u"\\d\\1F00.pdf , \\d\\1F01.xls";
  EXPECT_THAT(listed(u"Ana , Luis.pdf , cuentas.xls.", both),
              ElementsAre("Ana , Luis.pdf < \\d\\1F00.pdf", "cuentas.xls < \\d\\1F01.xls"));
  EXPECT_THAT(listed(u"a.pdf , uno , dos.XLS.", both),
              ElementsAre("a.pdf < \\d\\1F00.pdf", "uno , dos.XLS < \\d\\1F01.xls"));
  EXPECT_THAT(listed(u"uno , dos , tres.", both), ElementsAre(" < \\d\\1F00.pdf", " < \\d\\1F01.xls"));
  EXPECT_THAT(listed(u"uno.", both), ElementsAre(" < \\d\\1F00.pdf", " < \\d\\1F01.xls"));
}

TEST_F(MailDrafts, are_soon_made_of_many_names_that_do_not_fit) {
  Text names, paths;
  for (int i = 0; i < 40; ++i) {
    const Text path = u"\\d\\" + toText(i) + (i < 39 ? u".doc" : u".pdf");
    put(path);
    paths += (i ? u" , " : u"") + path;
    names += u"a , b , ";
  }
  const auto documents = listedDocuments(names + u"plano.", paths);
  ASSERT_EQ(documents.size(), 40u);
  EXPECT_EQ(documents[39].name, u"");
}

TEST_F(MailDrafts, reach_the_disk_in_the_systems_form_of_their_paths_too) {
  put(u"\\d\\1F00.pdf");
  EXPECT_THAT(listed(u"a.pdf.", u"/d/1F00.pdf"), ElementsAre("a.pdf < \\d\\1F00.pdf"));
}

// Without a mail program on the path, in a home of the test's own.
class MailsWithoutProgram : public MailDrafts {
 protected:
  MailsWithoutProgram() {
    folder.putFolder("Documents");
    for (auto& [name, before] : surroundings_) {
      before = qgetenv(name);
      qputenv(name, folder.path().native().c_str());
    }
  }
  ~MailsWithoutProgram() override {
    for (const auto& [name, before] : surroundings_) qputenv(name, before);
  }

 private:
  std::pair<const char*, QByteArray> surroundings_[3] = {{"PATH", {}}, {"HOME", {}}, {"XDG_CONFIG_HOME", {}}};
};

TEST_F(MailsWithoutProgram, are_kept_and_opened_as_files) {
  sendByProgram(dialogs, {u"", u"", u"Llaves", u"texto", {}});
  ASSERT_EQ(dialogs.opened.size(), 1u);
  EXPECT_TRUE(dialogs.opened[0].starts_with(nativePath(folder.logic(u"Documents\\Correo "))));
  EXPECT_TRUE(dialogs.opened[0].ends_with(u".eml"));
  EXPECT_TRUE(dialogs.told.empty());
}

TEST_F(MailsWithoutProgram, say_where_they_are_when_nothing_opens_them_and_what_is_missing) {
  dialogs.opens = false;
  sendByProgram(dialogs, {u"", u"", u"Llaves", u"texto", {{u"\\d\\1F00.pdf", u"Plano.pdf"}}});
  ASSERT_EQ(dialogs.told.size(), 2u);
  EXPECT_EQ(dialogs.told[0], u"Correo: El correo va sin estos documentos, que no se encuentran:\nPlano.pdf");
  EXPECT_THAT(toUtf8(dialogs.told[1]),
              HasSubstr("No hay ningún programa de correo.\n\nEl mensaje se ha guardado en:"));
  EXPECT_THAT(toUtf8(dialogs.told[1]), HasSubstr(toUtf8(dialogs.opened[0])));
}

}  // namespace ovalia::host
