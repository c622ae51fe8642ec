#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "component/CNota.h"
#include "tests/cardkit/AgencyStatements.h"
#include "tests/cardkit/CardTest.h"
#include "tests/component/HeldNota.h"

namespace ovalia {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// What a host does with attachments without a card being open.
class AttachmentMembers : private HeldNota, public kit::AgencyTest {
 protected:
  AttachmentMembers() : AgencyTest(*held) {}
  void SetUp() override {
    AgencyTest::SetUp();
    kit::answersAttachments(*database);
    documents = kit::attachmentTable(*database, u"DocuNotaIP");
    here.files.putFolder(u"\\Datos\\Agencia");
    givenList(u"Nota");
  }
  void TearDown() override {
    held.reset();
    AgencyTest::TearDown();
  }
  std::vector<Text> tree() const { return here.files.filesBelow(u"\\Datos\\Agencia"); }

  using HeldNota::nota;
  kit::FakeTableRef documents;
};

TEST_F(AttachmentMembers, make_the_folder_of_a_record) {
  EXPECT_EQ(nota.CreaPathDoc(4073), u"Doc4\\Doc0\\Doc7\\Doc0\\");
  EXPECT_TRUE(here.files.exists(u"\\Datos\\Agencia\\Doc4\\Doc0\\Doc7\\Doc0"));
}

TEST_F(AttachmentMembers, give_a_name_to_store_a_file_by) {
  EXPECT_EQ(nota.CreaNombreDoc(4073), u"4073F00.doc");
  Text ext = u".pdf";
  EXPECT_EQ(nota.CreaNombreDoc(4073, ext), u"4073F00.pdf");
  EXPECT_EQ(ext, u".pdf");
  ext = u"docx";
  EXPECT_EQ(nota.CreaNombreDoc(4073, ext), u"4073F00.doc");
  EXPECT_EQ(ext, u".doc");
}

TEST_F(AttachmentMembers, give_a_name_to_show_a_copy_by) {
  documents->add({1, 120, 1, 501, u"Copia de plano.pdf", u"120F00.pdf"});
  Text name = u"plano.pdf";
  EXPECT_EQ(nota.GenerarNombreCopia(name), u"Copia(2) de plano.pdf");
  EXPECT_EQ(name, u"plano.pdf");
}

TEST_F(AttachmentMembers, write_the_row_of_a_file_stored_already) {
  EXPECT_TRUE(nota.AniadirArch(u"\\home\\ana\\plano.pdf", u"120F00.pdf"));
  EXPECT_EQ(documents->at(0, u"NombreOrg").text(), u"plano.pdf");
  EXPECT_EQ(documents->at(0, u"NombreArch").text(), u"120F00.pdf");
  EXPECT_EQ(stored(u"NArchivos").toLong(), 1);
}

TEST_F(AttachmentMembers, attach_what_the_user_chooses_with_its_row_unless_told_otherwise) {
  here.files.putFile(u"\\home\\ana\\plano.pdf");
  host.dlgfrmbase->answering(u"ShowOpen", [&](Arguments) -> Variant {
    host.dlgfrmbase->with(u"fileName", u"\\home\\ana\\plano.pdf");
    return {};
  });
  nota.AdjuntarDocumento(false);
  EXPECT_THAT(documents->rows, IsEmpty());
  nota.AdjuntarDocumento();
  EXPECT_EQ(documents->rows.size(), 1u);
  EXPECT_THAT(tree(), ElementsAre(u"Doc1\\Doc2\\Doc0\\120F00.pdf", u"Doc1\\Doc2\\Doc0\\120F01.pdf"));
}

TEST_F(AttachmentMembers, of_a_component_that_was_given_nothing_tell_it_and_give_nothing) {
  CNota bare;
  bare.AppDirUser = u"\\Datos\\Agencia";
  bare.DocuAsoc = u"DocuNotaIP";
  for (const char* member : {"AdjuntarDocumento", "AniadirArch"})
    expectReport(fromUtf8(member) + u" de CNota", failure::objectNotSet);
  bare.AdjuntarDocumento();
  EXPECT_FALSE(bare.AniadirArch(u"plano.pdf", u"120F00.pdf"));
  EXPECT_THAT(tree(), IsEmpty());
}

}  // namespace
}  // namespace ovalia
