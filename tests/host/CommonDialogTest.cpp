#include "host/CommonDialog.h"

#include "tests/host/HostTest.h"

namespace ovalia::host {

class CommonDialog : public kit::LogicTest {
 protected:
  std::int32_t show(TextView method) {
    try {
      callMember(dialog, method);
    } catch (const Failure& failure) {
      return failure.number();
    }
    return 0;
  }

  ReadyDialogs dialogs;
  ObjectRef dialog = commonDialog(dialogs);
};

TEST_F(CommonDialog, asks_with_what_was_set) {
  putMember(dialog, u"DialogTitle", u"Captura de documentos");
  putMember(dialog, u"Filter", u"Documentos (*.*)|*.*");
  putMember(dialog, u"InitDir", u"\\srv\\documentos");
  putMember(dialog, u"FLAGS", std::int32_t(524804));
  putMember(dialog, u"MaxFileSize", std::int16_t(1024));
  show(u"ShowOpen");
  EXPECT_EQ(dialogs.question.title, u"Captura de documentos");
  EXPECT_EQ(dialogs.question.filter, u"Documentos (*.*)|*.*");
  EXPECT_EQ(dialogs.question.folder, u"\\srv\\documentos");
  EXPECT_TRUE(dialogs.question.several);
}

TEST_F(CommonDialog, one_file_comes_back_with_its_path) {
  dialogs.files = {{u"\\casa\\plano.pdf"}};
  EXPECT_EQ(show(u"ShowOpen"), 0);
  EXPECT_EQ(getMember(dialog, u"fileName").toText(), u"\\casa\\plano.pdf");
}

TEST_F(CommonDialog, several_files_come_back_as_their_folder_and_their_names) {
  dialogs.files = {{u"\\casa\\uno.pdf", u"\\casa\\dos.txt"}};
  EXPECT_EQ(show(u"ShowOpen"), 0);
  EXPECT_EQ(getMember(dialog, u"fileName").toText(), Text(u"\\casa\0uno.pdf\0dos.txt", 21));
}

TEST_F(CommonDialog, cancelling_fails_only_while_that_was_asked_for) {
  putMember(dialog, u"fileName", u"antes");
  for (TextView method : {u"ShowOpen", u"ShowSave", u"ShowPrinter"}) EXPECT_EQ(show(method), 0);
  putMember(dialog, u"CancelError", true);
  for (TextView method : {u"ShowOpen", u"ShowSave", u"ShowPrinter"})
    EXPECT_EQ(show(method), failure::dialogCancelled);
  EXPECT_EQ(getMember(dialog, u"fileName").toText(), u"antes");
}

TEST_F(CommonDialog, saving_proposes_the_name_and_gives_the_chosen_one) {
  putMember(dialog, u"fileName", u"copia.doc");
  dialogs.files = {{u"\\tmp\\otra.doc"}};
  EXPECT_EQ(show(u"ShowSave"), 0);
  EXPECT_EQ(dialogs.question.name, u"copia.doc");
  EXPECT_FALSE(dialogs.question.several);
  EXPECT_EQ(getMember(dialog, u"fileName").toText(), u"\\tmp\\otra.doc");
}

TEST_F(CommonDialog, a_chosen_printer_is_no_failure) {
  putMember(dialog, u"CancelError", true);
  dialogs.printerChosen = true;
  EXPECT_EQ(show(u"ShowPrinter"), 0);
}

}  // namespace ovalia::host
