#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "attachments/AddingAttachments.h"
#include "attachments/AttachmentOperations.h"
#include "attachments/DeletingAttachments.h"
#include "tests/attachments/OnDisk.h"
#include "tests/cards/MarkedNotes.h"

namespace ovalia {
namespace {

namespace fs = std::filesystem;
using system::test::OrdinaryUser;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

// What is done with the documents of a card, on disk.
class OperationsOnDisk : public OnDisk {
 protected:
  void SetUp() override {
    OnDisk::SetUp();
    document("120F00.pdf", "el plano");
    tree.putFolder("Ana");
  }

  // A document as an earlier add has left it.
  void document(std::string_view name, std::string_view content) {
    tree.putFile(leafOf(name), content);
    const auto key = static_cast<std::int32_t>(documents->rows.size()) + 1;
    documents->add({key, 120, 1, 501, u"plano.pdf", fromUtf8(name)});
    list->at(0, u"NArchivos") = key;
  }

  void onSelected(const std::function<void()>& script) {
    openCard([&] {
      user.clicksItem(1);
      script();
    });
  }
  void saveAs(TextView inside) {
    userSavesAs(tree.logic(inside));
    onSelected([&] { GuardarComo(instance); });
  }

  std::vector<std::string> inBin() const {
    std::vector<std::string> contents;
    for (const auto& entry : fs::directory_iterator(tree.path() / "Papelera"))
      contents.push_back(tree.content("Papelera/" + entry.path().filename().string()));
    return contents;
  }
};

TEST_F(OperationsOnDisk, saving_over_a_file_puts_it_into_the_bin_first) {
  tree.putFile("Ana/copia.pdf", "lo de antes");
  disk.files.beforeCopy = [&] {
    EXPECT_FALSE(tree.has("Ana/copia.pdf"));
    EXPECT_THAT(inBin(), ElementsAre("lo de antes"));
  };
  saveAs(u"Ana\\COPIA.pdf");
  EXPECT_EQ(tree.content("Ana/COPIA.pdf"), "el plano");
  EXPECT_EQ(tree.content(leafOf("120F00.pdf")), "el plano");
}

TEST_F(OperationsOnDisk, a_document_does_not_replace_itself_by_whatever_way_it_is_reached) {
  fs::create_symlink(tree.path() / leafOf("120F00.pdf"), tree.path() / "Ana/atajo.pdf");
  fs::create_hard_link(tree.path() / leafOf("120F00.pdf"), tree.path() / "Ana/otra.pdf");
  fs::create_directory_symlink(tree.path() / "Agencia", tree.path() / "Ana/Red");
  for (const TextView itself :
       {u"Ana\\atajo.pdf", u"Ana\\otra.pdf", u"Ana\\Red\\Doc1\\Doc2\\Doc0\\120F00.pdf",
        u"Ana\\red\\doc1\\Doc2\\Doc0\\120f00.PDF", u"Agencia\\Doc1\\Doc2\\Doc0\\120F00.pdf"}) {
    expectReport(u"GuardarComo de CNota", failure::permissionDenied);
    saveAs(itself);
    EXPECT_THAT(disk.shell.recycled, IsEmpty()) << toUtf8(itself);
    EXPECT_EQ(tree.content(leafOf("120F00.pdf")), "el plano");
  }
  EXPECT_TRUE(fs::is_symlink(tree.path() / "Ana/atajo.pdf"));
}

TEST_F(OperationsOnDisk, a_data_folder_that_is_a_link_itself_keeps_its_documents_too) {
  fs::create_directory_symlink(tree.path() / "Agencia", tree.path() / "Red");
  nota.AppDirUser = fromUtf8((tree.path() / "Red").string());
  expectReport(u"GuardarComo de CNota", failure::permissionDenied);
  saveAs(u"Agencia\\Doc1\\Doc2\\Doc0\\120F00.pdf");
  EXPECT_THAT(disk.shell.recycled, IsEmpty());
  EXPECT_EQ(tree.content(leafOf("120F00.pdf")), "el plano");
}

TEST_F(OperationsOnDisk, names_to_save_as_may_be_of_any_kind_that_the_disk_takes) {
  for (const std::string& name :
       {std::string("año ñandú 😀.pdf"), std::string("dos\nlíneas.pdf"), std::string(200, 'n') + ".pdf",
        std::string("a*b?.pdf"), std::string(" .pdf")}) {
    saveAs(u"Ana\\" + fromUtf8(name));
    EXPECT_EQ(tree.content("Ana/" + name), "el plano") << name;
  }
  expectReport(u"GuardarComo de CNota", failure::pathFileAccess);
  saveAs(u"Ana\\" + Text(200, u'ñ') + u".pdf");
  EXPECT_THAT(disk.shell.recycled, IsEmpty());
}

TEST_F(OperationsOnDisk, a_folder_to_save_in_that_is_read_only_is_reported_and_keeps_what_it_holds) {
  tree.putFile("Ana/copia.pdf", "lo de antes");
  fs::permissions(tree.path(), fs::perms::all);
  fs::permissions(tree.path() / "Ana", fs::perms(0555));
  expectReport(u"GuardarComo de CNota", failure::permissionDenied);
  {
    const OrdinaryUser user;
    saveAs(u"Ana\\copia.pdf");
  }
  EXPECT_EQ(tree.content("Ana/copia.pdf"), "lo de antes");
}

TEST_F(OperationsOnDisk, documents_of_a_tree_that_is_read_only_can_be_opened_copied_and_saved_elsewhere) {
  for (const char* folder : {"", "Agencia", "Agencia/Doc1", "Agencia/Doc1/Doc2", "Agencia/Doc1/Doc2/Doc0"})
    fs::permissions(tree.path() / folder, fs::perms(0555));
  fs::permissions(tree.path() / "Ana", fs::perms::all);
  {
    const OrdinaryUser user;
    userSavesAs(tree.logic(u"Ana\\copia.pdf"));
    onSelected([&] {
      AbrirDocNota(instance);
      CopiarAPortapapeles(instance);
      GuardarComo(instance);
    });
  }
  EXPECT_THAT(host.events, SizeIs(1));
  EXPECT_THAT(here.clipboard.fileList, SizeIs(1));
  EXPECT_EQ(tree.content("Ana/copia.pdf"), "el plano");
  fs::permissions(tree.path(), fs::perms::all);
}

TEST_F(OperationsOnDisk, a_document_that_is_held_open_can_be_saved_elsewhere_and_deleted) {
  std::ifstream holder(tree.path() / leafOf("120F00.pdf"));
  saveAs(u"Ana\\copia.pdf");
  EXPECT_EQ(tree.content("Ana/copia.pdf"), "el plano");
  EXPECT_TRUE(BorrarDocNota(instance, u"120F00.pdf", false));
  EXPECT_THAT(storedFiles(), IsEmpty());
  EXPECT_THAT(rows(), IsEmpty());
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(holder), {}), "el plano");
}

TEST_F(OperationsOnDisk, a_deleted_document_lies_in_the_bin) {
  EXPECT_TRUE(BorrarDocNota(instance, u"120F00.pdf", false));
  EXPECT_THAT(inBin(), ElementsAre("el plano"));
  EXPECT_THAT(storedFiles(), IsEmpty());
}

TEST_F(OperationsOnDisk, a_row_whose_file_is_gone_opens_nothing_and_goes_when_it_is_deleted) {
  fs::remove(tree.path() / leafOf("120F00.pdf"));
  onSelected([&] {
    expectBox(u"El documento que intenta abrir no existe.", 64, u"Documento");
    AbrirDocNota(instance);
    expectBox(u"Error devuelto: 2, 2");
    EXPECT_TRUE(BorrarDocNota(instance, u"120F00.pdf", false));
  });
  EXPECT_THAT(rows(), IsEmpty());
  EXPECT_THAT(host.events, IsEmpty());
}

TEST_F(OperationsOnDisk, a_file_whose_row_is_gone_is_stepped_over_and_stays) {
  documents->rows.clear();
  tree.putFile("carta.pdf", "la carta");
  AdjuntarFichero(instance, tree.logic(u"carta.pdf"), 120, true);
  EXPECT_EQ(tree.content(leafOf("120F00.pdf")), "el plano");
  EXPECT_EQ(tree.content(leafOf("120F01.pdf")), "la carta");
}

// A table that somebody has damaged. The names lead to a file above the data folder, to another record's
// documents, and to the folder of all those whose numbers begin alike.
TEST_F(OperationsOnDisk, damaged_names_reach_no_other_file) {
  tree.putFile("secreto.pdf", "secreto");
  tree.putFile("Agencia/Doc1/Doc2/otra.pdf", "de otra ficha");
  tree.putFile(leafOf("Doc0/1200F00.pdf"), "de otra más");
  tree.putFile("Ana/copia.pdf", "lo de antes");
  struct {
    TextView name;
    bool canBeNone;  // it is no name at all, which is known without looking
  } const damaged[] = {{u"..\\..\\..\\..\\secreto.pdf", true},
                       {u"../../../../secreto.pdf", true},
                       {u"..\\otra.pdf", true},
                       {u"../otra.pdf", true},
                       {u"..", true},
                       {u".", true},
                       {u"Doc0", false},
                       {u"Doc0\\1200F00.pdf", true}};
  for (const auto& row : damaged) {
    SCOPED_TRACE(toUtf8(row.name));
    documents->rows.clear();
    documents->add({1, 120, 1, 501, u"plano.pdf", row.name});
    list->at(0, u"NArchivos") = 1;
    userSavesAs(tree.logic(u"Ana\\copia.pdf"));
    onSelected([&] {
      expectBox(u"El documento que intenta abrir no existe.", 64, u"Documento");
      AbrirDocNota(instance);
      expectBox(u"El documento que intenta copiar no existe.", 64, u"Documento");
      CopiarAPortapapeles(instance);
      expectReport(u"GuardarComo de CNota", row.canBeNone ? failure::pathNotFound : failure::pathFileAccess);
      GuardarComo(instance);
      if (row.canBeNone)
        here.screen.expectBoxLike(u"El documento adjunto (", u") no existe.", 48, u"Borrar", 1);
      else
        expectBox(u"Error devuelto: 2, 2");
      EXPECT_TRUE(BorrarDocNota(instance, row.name, false));
    });
    EXPECT_THAT(rows(), IsEmpty());
  }
  EXPECT_EQ(tree.content("secreto.pdf"), "secreto");
  EXPECT_EQ(tree.content("Ana/copia.pdf"), "lo de antes");
  EXPECT_THAT(storedFiles(), ElementsAre("1200F00.pdf", "120F00.pdf", "otra.pdf"));
  EXPECT_THAT(inBin(), IsEmpty());
  EXPECT_THAT(host.events, IsEmpty());
}

// Annotations that move take their documents along, on disk.
class MovingOnDisk : public MovingAnnotations {
 protected:
  void SetUp() override {
    MovingAnnotations::SetUp();
    disk.use(nota);
    stored(1, "120F00.pdf", "el plano");
    stored(2, "120F01.pdf", "el contrato");
  }
  void stored(std::int32_t key, std::string_view name, std::string_view content) {
    disk.tree.putFile(oldLeaf + std::string(name), content);
    documents->add({key, 120, 1, 501, u"plano", fromUtf8(name)});
  }
  std::string content(const std::string& name) const { return disk.tree.content(name); }
  void allowEveryone() {
    for (const auto& entry : fs::recursive_directory_iterator(disk.tree.path()))
      fs::permissions(entry.path(), fs::perms::all);
    fs::permissions(disk.tree.path(), fs::perms::all);
  }

  const std::string oldLeaf = "Agencia/Doc1/Doc2/Doc0/", newLeafOnDisk = "Agencia/Doc4/Doc0/Doc7/Doc0/";
  Disk disk{here};
};

TEST_F(MovingOnDisk, documents_lie_in_the_new_folder_and_the_old_ones_in_the_bin) {
  move();
  EXPECT_EQ(content(newLeafOnDisk + "4073F00.pdf"), "el plano");
  EXPECT_EQ(content(newLeafOnDisk + "4073F01.pdf"), "el contrato");
  EXPECT_EQ(content("Papelera/120F00.pdf"), "el plano");
  EXPECT_THAT(disk.storedFiles(), ElementsAre("4073F00.pdf", "4073F01.pdf"));
  EXPECT_TRUE(moved(501));
}

TEST_F(MovingOnDisk, a_name_that_appears_meanwhile_is_never_replaced_and_nothing_is_lost) {
  disk.files.beforeCopy = [&] { disk.tree.putFile(newLeafOnDisk + "4073F00.pdf", "de otro"); };
  expectReport(u"TrasladaNotas de CNota", failure::fileAlreadyExists);
  move();
  EXPECT_EQ(content(newLeafOnDisk + "4073F00.pdf"), "de otro");
  EXPECT_EQ(content(oldLeaf + "120F00.pdf"), "el plano");
  EXPECT_FALSE(moved(501));
}

TEST_F(MovingOnDisk, a_full_disk_leaves_no_half_file_and_the_documents_where_they_are) {
  disk.tree.putFile(oldLeaf + "120F01.pdf", std::string(1'000'000, 'x'));
  expectReport(u"TrasladaNotas de CNota", failure::diskFull);
  {
    const system::test::FileSizeLimit limit(600'000);
    move();
  }
  EXPECT_THAT(disk.storedFiles(), ElementsAre("120F00.pdf", "120F01.pdf", "4073F00.pdf"))
      << "what was copied before stays, without a row";
  EXPECT_FALSE(moved(501));
  EXPECT_EQ(documents->at(0, u"NombreArch").text(), u"120F00.pdf");
}

TEST_F(MovingOnDisk, a_tree_that_is_read_only_moves_nothing) {
  allowEveryone();
  fs::permissions(disk.tree.path() / "Agencia", fs::perms(0555));
  expectReport(u"CreaPathDoc de CNota", failure::permissionDenied);
  expectReport(u"TrasladaNotas de CNota", failure::pathNotFound);
  {
    const OrdinaryUser user;
    move();
  }
  EXPECT_THAT(disk.storedFiles(), ElementsAre("120F00.pdf", "120F01.pdf"));
  EXPECT_FALSE(moved(501));
}

TEST_F(MovingOnDisk, an_old_folder_that_is_read_only_keeps_the_old_files_and_the_rows_move) {
  allowEveryone();
  fs::permissions(disk.tree.path() / oldLeaf, fs::perms(0555));
  expectBox(u"Error devuelto: 5, 5");
  expectBox(u"Error devuelto: 5, 5");
  {
    const OrdinaryUser user;
    move();
  }
  EXPECT_EQ(content(oldLeaf + "120F00.pdf"), "el plano");
  EXPECT_EQ(content(newLeafOnDisk + "4073F00.pdf"), "el plano");
  EXPECT_TRUE(moved(501));
}

TEST_F(MovingOnDisk, a_document_that_may_not_be_read_ends_it_with_nothing_moved) {
  allowEveryone();
  fs::permissions(disk.tree.path() / oldLeaf / "120F00.pdf", fs::perms::none);
  expectReport(u"TrasladaNotas de CNota", failure::permissionDenied);
  {
    const OrdinaryUser user;
    move();
  }
  EXPECT_THAT(disk.storedFiles(), ElementsAre("120F00.pdf", "120F01.pdf"));
  EXPECT_FALSE(moved(501));
}

}  // namespace
}  // namespace ovalia
