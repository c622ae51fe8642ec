#include "attachments/StoredPaths.h"

#include <gtest/gtest.h>

#include "routines/Trap.h"
#include "tests/cardkit/Attachments.h"

namespace ovalia {
namespace {

constexpr TextView leadingOutside[] = {
    u"..",
    u".",
    u"",
    u"..\\..\\agencia.db",
    u"../../agencia.db",
    u"..\\120F00.doc",
    u"\\etc\\passwd",
    u"/etc/passwd",
    u"120F00.doc\\",
    u"120F00.doc/",
    u"Sub\\120F00.doc",
    u"Sub/120F00.doc",
    u"\\",
    u"/",
    TextView(u"120F00.doc\0.pdf", 15),
};

constexpr TextView harmless[] = {
    u"120F00.doc", u"120F100.pdf", u"-5F00.doc", u"120F00.b.c",  u"120F00.ñ ó", u"120F00.d😀",
    u"...",        u"..doc",       u".oculto",   u"120F00.a\nb", u"120F00.a*b", u"informe final.docx",
};

class StoredPaths : public kit::AttachmentsTest {};

TEST_F(StoredPaths, join_data_folder_folder_and_name) {
  EXPECT_EQ(storedPath(instance, u"Doc1\\Doc0\\", u"10F00.doc"), u"\\Datos\\Agencia\\Doc1\\Doc0\\10F00.doc");
  EXPECT_EQ(storedPathForCopy(instance, u"Doc1\\Doc0\\", u"10F00.doc"),
            u"\\Datos\\Agencia\\Doc1\\Doc0\\\\10F00.doc");
}

TEST_F(StoredPaths, in_both_spellings_reach_one_file) {
  attached(u"120F00.doc", u"plano.doc");
  for (const Text& path : {storedPath(instance, u"Doc1\\Doc2\\Doc0\\", u"120F00.doc"),
                           storedPathForCopy(instance, u"Doc1\\Doc2\\Doc0\\", u"120F00.doc")})
    EXPECT_EQ(here.files.content(path), u"anterior");
}

TEST_F(StoredPaths, take_the_data_folder_in_the_systems_form_too) {
  nota.AppDirUser = u"/srv/Agencia Ñuño";
  EXPECT_EQ(dataFolder(instance), u"\\srv\\Agencia Ñuño");
  EXPECT_EQ(storedPath(instance, u"Doc0\\", u"7F00.doc"), u"\\srv\\Agencia Ñuño\\Doc0\\7F00.doc");
}

TEST_F(StoredPaths, no_name_leads_out_of_the_folder) {
  for (const TextView name : leadingOutside) {
    EXPECT_FALSE(isStoredName(name)) << toUtf8(name);
    for (const auto join : {storedPath, storedPathForCopy})
      EXPECT_EQ(resumeNext([&] { join(instance, u"Doc0\\", name); }), failure::pathNotFound) << toUtf8(name);
  }
}

TEST_F(StoredPaths, all_other_names_stand_for_themselves) {
  for (const TextView name : harmless) {
    EXPECT_TRUE(isStoredName(name)) << toUtf8(name);
    EXPECT_EQ(storedPath(instance, u"Doc0\\", name), u"\\Datos\\Agencia\\Doc0\\" + Text(name));
  }
}

TEST_F(StoredPaths, a_folder_that_could_not_be_made_gives_no_path) {
  for (const auto join : {storedPath, storedPathForCopy})
    EXPECT_EQ(resumeNext([&] { join(instance, u"", u"120F00.doc"); }), failure::pathNotFound);
}

TEST_F(StoredPaths, a_file_is_found_in_the_disks_spelling_and_counts_as_stored_in_its_own_alone) {
  attached(u"120F00.doc", u"plano.doc");
  const Text folder = u"Doc1\\Doc2\\Doc0\\";
  EXPECT_EQ(storedFile(instance, folder, u"120f00.DOC"), u"120F00.doc");
  EXPECT_FALSE(isStored(instance, folder, u"120f00.DOC"));
  EXPECT_TRUE(isStored(instance, folder, u"120F00.doc"));
  EXPECT_EQ(storedFile(instance, folder, u"120F01.doc"), u"");
  EXPECT_FALSE(isStored(instance, folder, u"120F01.doc"));
  EXPECT_FALSE(isStored(instance, folder, u"*.doc")) << "a mask is no name";
}

TEST_F(StoredPaths, no_file_is_looked_for_by_a_name_that_is_none_or_without_a_folder) {
  here.files.putFile(agencyFolder + u"\\120F00.doc");
  for (const TextView name : leadingOutside) {
    EXPECT_EQ(storedFile(instance, u"Doc0\\", name), u"") << toUtf8(name);
    EXPECT_FALSE(isStored(instance, u"Doc0\\", name)) << toUtf8(name);
  }
  EXPECT_EQ(storedFile(instance, u"", u"120F00.doc"), u"");
  EXPECT_FALSE(isStored(instance, u"", u"120F00.doc"));
  EXPECT_EQ(here.faults.visits("Files.firstMatch"), 0);
}

TEST_F(StoredPaths, a_refused_name_is_told_with_what_to_do) {
  try {
    storedPath(instance, u"Doc0\\", u"..\\x");
    FAIL();
  } catch (const Failure& failed) {
    EXPECT_EQ(failed.description(),
              u"\"..\\x\" no es un nombre de fichero guardado válido. Corrija el nombre en la tabla de "
              u"documentos o el del fichero de origen.");
  }
}

}  // namespace
}  // namespace ovalia
