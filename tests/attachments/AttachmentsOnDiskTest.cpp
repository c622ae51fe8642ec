#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <thread>

#include "attachments/AddingAttachments.h"
#include "attachments/StoredNames.h"
#include "tests/attachments/OnDisk.h"
#include "tests/system/SyncWatch.h"

namespace ovalia {
namespace {

namespace fs = std::filesystem;
using system::test::FileSizeLimit;
using system::test::OrdinaryUser;
using testing::ElementsAre;
using testing::IsEmpty;

// Files of any kind and in any trouble are added.
class AddingOnDisk : public OnDisk {
 protected:
  void add(TextView name) { AdjuntarFichero(instance, tree.logic(name), 120, true); }
  Text reporter(TextView name) { return u"AdjuntarFichero de CNota, ruta:" + tree.logic(name); }
};

TEST_F(AddingOnDisk, a_copy_is_complete_before_its_row_is_written) {
  std::string content;
  for (int i = 0; i < 1'500'000; ++i) content += char(i * 31);
  tree.putFile("plano.pdf", content);
  bool written = false;
  database->onExecute = [&, before = database->onExecute](TextView sql) {
    written = true;
    EXPECT_EQ(tree.content(leafOf("120F00.pdf")), content);
    return before(sql);
  };
  add(u"plano.pdf");
  EXPECT_TRUE(written);
  EXPECT_THAT(rows(), ElementsAre(u"1: 120 1 501 plano.pdf < 120F00.pdf"));
  EXPECT_EQ(tree.content("plano.pdf"), content);
}

TEST_F(AddingOnDisk, a_copy_its_name_and_its_folders_are_brought_to_disk_before_its_row_is_written) {
  tree.putFile("plano.pdf", "el plano");
  system::test::SyncWatch watch(tree.path());
  std::vector<std::string> brought;
  database->onExecute = [&, before = database->onExecute](TextView sql) {
    brought = watch.brought;
    return before(sql);
  };
  add(u"plano.pdf");
  EXPECT_THAT(brought, ElementsAre("Agencia", "Agencia/Doc1", "Agencia/Doc1/Doc2", leafOf("120F00.pdf"),
                                   "Agencia/Doc1/Doc2/Doc0"));
}

TEST_F(AddingOnDisk, a_copy_that_cannot_be_brought_to_disk_leaves_neither_file_nor_row) {
  tree.putFile("plano.pdf", "el plano");
  tree.putFolder("Agencia/Doc1/Doc2/Doc0");
  struct {
    int error;
    std::int32_t number;
  } const troubles[] = {{ENOSPC, failure::diskFull}, {EIO, failure::pathFileAccess}};
  for (const auto& trouble : troubles) {
    system::test::SyncWatch watch(tree.path());
    watch.failing = trouble.error;
    expectReport(reporter(u"plano.pdf"), trouble.number);
    add(u"plano.pdf");
    EXPECT_THAT(storedFiles(), IsEmpty());
    EXPECT_THAT(rows(), IsEmpty());
    EXPECT_EQ(counter(), 0);
  }
}

// It is copied as far as it had come; what is written meanwhile may be in it or not.
TEST_F(AddingOnDisk, a_source_that_grows_while_it_is_copied_is_a_copy_of_its_beginning) {
  const std::string begun(2'000'000, 'x');
  constexpr int mostChunks = 100;
  tree.putFile("registro.txt", begun);
  std::atomic<bool> grows = false, done = false;
  std::thread other([&] {
    std::ofstream file(tree.path() / "registro.txt", std::ios::app | std::ios::binary);
    for (int i = 0; i < mostChunks && !done; ++i) {
      file << std::string(16 * 1024, 'y') << std::flush;
      grows = true;
    }
  });
  while (!grows) std::this_thread::yield();
  add(u"registro.txt");
  done = true;
  other.join();
  ASSERT_EQ(rows().size(), 1u);
  const std::string copy = tree.content(leafOf("120F00.txt"));
  EXPECT_TRUE(copy.starts_with(begun));
  EXPECT_TRUE(tree.content("registro.txt").starts_with(copy));
}

TEST_F(AddingOnDisk, a_source_that_another_program_holds_open_is_copied) {
  tree.putFile("plano.pdf", "el plano");
  std::fstream holder(tree.path() / "plano.pdf");
  add(u"plano.pdf");
  EXPECT_EQ(tree.content(leafOf("120F00.pdf")), "el plano");
  holder << "otro";
  holder.close();
  EXPECT_EQ(tree.content(leafOf("120F00.pdf")), "el plano") << "a copy of its own";
}

TEST_F(AddingOnDisk, of_sources_that_differ_in_case_only_the_one_named_is_taken) {
  tree.putFile("PLANO.pdf", "grande");
  tree.putFile("plano.pdf", "pequeño");
  add(u"plano.pdf");
  add(u"PLANO.pdf");
  EXPECT_EQ(tree.content(leafOf("120F00.pdf")), "pequeño");
  EXPECT_EQ(tree.content(leafOf("120F01.pdf")), "grande");
}

TEST_F(AddingOnDisk, names_of_any_kind_are_taken) {
  const std::string names[] = {"con blanco.pdf",
                               " .pdf",
                               "árbol ñandú.pdf",
                               "dos\nlíneas.pdf",
                               "plano 😀.pdf",
                               "sin_extension",
                               std::string(196, 'n') + ".pdf",
                               "l'Hospitalet.pdf",
                               "-rf.pdf",
                               "a*b?.pdf",
                               "Pe\xF1"
                               "a.pdf"};
  for (const std::string& name : names) {
    tree.putFile(name, name);
    documents->rows.clear();
    add(fromUtf8(name));
    ASSERT_EQ(documents->rows.size(), 1u) << name;
    EXPECT_EQ(documents->at(0, u"NombreOrg").toText(), fromUtf8(name));
    EXPECT_EQ(tree.content(leafOf(toUtf8(documents->at(0, u"NombreArch").toText()))), name);
  }
  EXPECT_EQ(storedFiles().size(), std::size(names)) << "each is a file of its own";
}

TEST_F(AddingOnDisk, a_full_disk_leaves_no_half_file) {
  tree.putFile("grande.pdf", std::string(1'000'000, 'x'));
  expectReport(reporter(u"grande.pdf"), failure::diskFull);
  {
    const FileSizeLimit limit(600'000);
    add(u"grande.pdf");
  }
  EXPECT_THAT(storedFiles(), IsEmpty());
  EXPECT_THAT(rows(), IsEmpty());
  EXPECT_EQ(counter(), 0);
  add(u"grande.pdf");
  EXPECT_THAT(storedFiles(), ElementsAre("120F00.pdf")) << "once there is room it goes in by the same name";
}

TEST_F(AddingOnDisk, a_folder_that_is_read_only_refuses) {
  tree.putFile("plano.pdf");
  tree.putFolder("Agencia/Doc1/Doc2/Doc0");
  fs::permissions(tree.path(), fs::perms::all);
  fs::permissions(tree.path() / "Agencia/Doc1/Doc2/Doc0", fs::perms(0555));
  expectReport(reporter(u"plano.pdf"), failure::permissionDenied);
  {
    const OrdinaryUser user;
    add(u"plano.pdf");
  }
  EXPECT_THAT(storedFiles(), IsEmpty());
  EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(AddingOnDisk, a_data_folder_that_is_read_only_takes_no_new_level) {
  tree.putFile("plano.pdf");
  fs::permissions(tree.path(), fs::perms::all);
  fs::permissions(tree.path() / "Agencia", fs::perms(0555));
  expectReport(u"CreaPathDoc de CNota", failure::permissionDenied);
  expectReport(u"CreaPathDoc de CNota", failure::permissionDenied);
  expectReport(reporter(u"plano.pdf"), failure::pathNotFound);
  {
    const OrdinaryUser user;
    add(u"plano.pdf");
  }
  EXPECT_TRUE(fs::is_empty(tree.path() / "Agencia"));
  EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(AddingOnDisk, a_source_that_may_not_be_read_leaves_nothing) {
  tree.putFile("secreto.pdf", "x");
  fs::permissions(tree.path(), fs::perms::all);
  fs::permissions(tree.path() / "Agencia", fs::perms::all);
  fs::permissions(tree.path() / "secreto.pdf", fs::perms::none);
  expectReport(reporter(u"secreto.pdf"), failure::permissionDenied);
  {
    const OrdinaryUser user;
    add(u"secreto.pdf");
  }
  EXPECT_THAT(storedFiles(), IsEmpty());
  EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(AddingOnDisk, a_source_that_vanishes_leaves_nothing) {
  tree.putFile("plano.pdf");
  disk.files.beforeCopy = [&] { fs::remove(tree.path() / "plano.pdf"); };
  expectReport(reporter(u"plano.pdf"), failure::fileNotFound);
  add(u"plano.pdf");
  EXPECT_THAT(storedFiles(), IsEmpty());
}

TEST_F(AddingOnDisk, another_users_file_of_the_same_name_is_never_replaced) {
  tree.putFile("plano.pdf", "el mío");
  disk.files.beforeCopy = [&] { tree.putFile(leafOf("120F00.pdf"), "el suyo"); };
  expectReport(reporter(u"plano.pdf"), failure::fileAlreadyExists);
  add(u"plano.pdf");
  EXPECT_EQ(tree.content(leafOf("120F00.pdf")), "el suyo");
  EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(AddingOnDisk, a_name_that_differs_in_case_only_is_taken) {
  tree.putFile("plano.pdf", "el mío");
  tree.putFile(leafOf("120f00.PDF"), "el suyo");
  add(u"plano.pdf");
  EXPECT_THAT(storedFiles(), ElementsAre("120F01.pdf", "120f00.PDF"));
  EXPECT_EQ(tree.content(leafOf("120f00.PDF")), "el suyo");
}

TEST_F(AddingOnDisk, a_folder_in_the_place_of_the_file_is_left_alone) {
  tree.putFile("plano.pdf");
  tree.putFile(leafOf("120F00.pdf/dentro.txt"), "x");
  expectReport(reporter(u"plano.pdf"), failure::pathFileAccess);
  add(u"plano.pdf");
  EXPECT_THAT(storedFiles(), ElementsAre("dentro.txt"));
  EXPECT_THAT(rows(), IsEmpty());
}

TEST_F(AddingOnDisk, levels_spelt_otherwise_are_used_as_they_are) {
  tree.putFolder("Agencia/DOC1/doc2");
  tree.putFile("plano.pdf", "x");
  add(u"plano.pdf");
  EXPECT_EQ(tree.content("Agencia/DOC1/doc2/Doc0/120F00.pdf"), "x");
  EXPECT_FALSE(tree.has("Agencia/Doc1"));
}

TEST_F(AddingOnDisk, ten_thousand_numbers_in_a_folder_are_stepped_over) {
  for (int i = 0; i < 10'000; ++i)
    tree.putFile(leafOf(toUtf8(storedName(120, static_cast<std::int16_t>(i), u".pdf"))));
  tree.putFile("plano.pdf", "x");
  add(u"plano.pdf");
  EXPECT_THAT(rows(), ElementsAre(u"1: 120 1 501 plano.pdf < 120F10000.pdf"));
  EXPECT_EQ(tree.content(leafOf("120F10000.pdf")), "x");
}

// A table that somebody has damaged, and files that its names would lead to.
TEST_F(AddingOnDisk, damaged_names_in_the_table_lead_nowhere) {
  tree.putFile("agenciaF7.doc", "la base de datos");
  tree.putFile("plano.pdf", "x");
  for (const TextView name : {u"..\\..\\..\\..\\agenciaF7.doc", u"../../../../agenciaF7.doc", u"..", u""}) {
    documents->rows.clear();
    documents->add({1, 120, 1, 501, u"x", name});
    const bool hasNumber = name.find(u'F') != TextView::npos;
    if (hasNumber) {
      expectReport(u"CreaNombreDoc de CNota", failure::badArgument);
      expectReport(reporter(u"plano.pdf"), failure::pathNotFound);
    }
    add(u"plano.pdf");
  }
  EXPECT_EQ(tree.content("agenciaF7.doc"), "la base de datos");
  EXPECT_THAT(storedFiles(), ElementsAre("120F00.pdf", "120F01.pdf"));
}

}  // namespace
}  // namespace ovalia
