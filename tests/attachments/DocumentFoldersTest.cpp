#include "attachments/DocumentFolders.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/cardkit/Attachments.h"

namespace ovalia {
namespace {

struct Numbered {
  TextView number, folder;
};

constexpr Numbered numbered[] = {
    {u"0", u"Doc0\\"},
    {u"1", u"Doc0\\"},
    {u"7", u"Doc0\\"},
    {u"9", u"Doc0\\"},
    {u"10", u"Doc1\\Doc0\\"},
    {u"19", u"Doc1\\Doc0\\"},
    {u"37", u"Doc3\\Doc0\\"},
    {u"105", u"Doc1\\Doc0\\Doc0\\"},
    {u"4073", u"Doc4\\Doc0\\Doc7\\Doc0\\"},
    {u"4070", u"Doc4\\Doc0\\Doc7\\Doc0\\"},
    {u"1000000", u"Doc1\\Doc0\\Doc0\\Doc0\\Doc0\\Doc0\\Doc0\\"},
    // The sign is a character like any other.
    {u"-5", u"Doc-\\Doc0\\"},
    {u"-51", u"Doc-\\Doc5\\Doc0\\"},
};

TEST(NumberedFolder, has_a_level_for_each_digit_but_the_last_and_a_closing_one) {
  for (const Numbered& row : numbered) EXPECT_EQ(numberedFolder(row.number), row.folder);
}

TEST(NumberedFolder, is_shared_by_ten_records) {
  for (char16_t last = u'0'; last <= u'9'; ++last)
    EXPECT_EQ(numberedFolder(u"407" + Text(1, last)), u"Doc4\\Doc0\\Doc7\\Doc0\\");
}

class DocumentFolders : public kit::AttachmentsTest {};

TEST_F(DocumentFolders, a_number_without_a_digit_has_no_folder) {
  expectReport(u"QuePath de CNota", failure::outOfStackSpace);
  EXPECT_EQ(QuePath(u""), u"");
}

TEST_F(DocumentFolders, are_made_level_by_level_from_the_data_folder) {
  EXPECT_EQ(CreaPathDoc(instance, 4073), u"Doc4\\Doc0\\Doc7\\Doc0\\");
  for (const TextView level : {u"Doc4", u"Doc4\\Doc0", u"Doc4\\Doc0\\Doc7", u"Doc4\\Doc0\\Doc7\\Doc0"})
    EXPECT_TRUE(here.files.exists(agencyFolder + u"\\" + Text(level)));
  EXPECT_EQ(here.faults.visits("Files.makeDirectory"), 4);
}

TEST_F(DocumentFolders, that_are_there_are_left_alone_whatever_their_spelling) {
  here.files.putFolder(agencyFolder + u"\\DOC4\\doc0");
  EXPECT_EQ(CreaPathDoc(instance, 407), u"Doc4\\Doc0\\Doc0\\");
  EXPECT_EQ(here.faults.visits("Files.makeDirectory"), 1);
  EXPECT_EQ(CreaPathDoc(instance, 407), u"Doc4\\Doc0\\Doc0\\");
  EXPECT_EQ(here.faults.visits("Files.makeDirectory"), 1);
}

TEST_F(DocumentFolders, a_level_missing_in_the_middle_does_not_hinder) {
  here.files.putFolder(agencyFolder + u"\\Doc4");
  EXPECT_EQ(CreaPathDoc(instance, 4073), u"Doc4\\Doc0\\Doc7\\Doc0\\");
  EXPECT_TRUE(here.files.exists(agencyFolder + u"\\Doc4\\Doc0\\Doc7\\Doc0"));
}

TEST_F(DocumentFolders, the_extreme_numbers_have_folders_too) {
  EXPECT_EQ(CreaPathDoc(instance, std::numeric_limits<std::int32_t>::max()),
            u"Doc2\\Doc1\\Doc4\\Doc7\\Doc4\\Doc8\\Doc3\\Doc6\\Doc4\\Doc0\\");
  EXPECT_EQ(CreaPathDoc(instance, std::numeric_limits<std::int32_t>::min()),
            u"Doc-\\Doc2\\Doc1\\Doc4\\Doc7\\Doc4\\Doc8\\Doc3\\Doc6\\Doc4\\Doc0\\");
}

TEST_F(DocumentFolders, the_data_folder_itself_is_made_but_not_the_one_it_lies_in) {
  nota.AppDirUser = u"\\Datos\\Nueva";
  EXPECT_EQ(CreaPathDoc(instance, 7), u"Doc0\\");
  EXPECT_TRUE(here.files.exists(u"\\Datos\\Nueva\\Doc0"));

  nota.AppDirUser = u"\\Otra\\Nueva";
  expectReport(u"CreaPathDoc de CNota", failure::pathNotFound);
  EXPECT_EQ(CreaPathDoc(instance, 7), u"");
  EXPECT_FALSE(here.files.exists(u"\\Otra"));
}

TEST_F(DocumentFolders, the_data_folder_may_be_in_the_systems_form_and_stays_as_the_host_set_it) {
  for (const TextView form : {u"/Datos/Agencia", u"\\Datos\\Agencia\\", u"/Datos/Agencia/"}) {
    nota.AppDirUser = form;
    EXPECT_EQ(CreaPathDoc(instance, 37), u"Doc3\\Doc0\\");
    EXPECT_EQ(nota.AppDirUser, form);
  }
  EXPECT_TRUE(here.files.exists(u"\\Datos\\Agencia\\Doc3\\Doc0"));
  EXPECT_EQ(here.faults.visits("Files.makeDirectory"), 2);
}

TEST_F(DocumentFolders, a_data_folder_that_is_no_path_is_refused) {
  for (const TextView name : {u"Datos", u"C:\\Datos"}) {
    nota.AppDirUser = name;
    expectReport(u"CreaPathDoc de CNota", failure::pathNotFound);
    EXPECT_EQ(CreaPathDoc(instance, 7), u"");
  }
}

TEST_F(DocumentFolders, a_file_in_the_place_of_a_level_is_reported) {
  here.files.putFile(agencyFolder + u"\\Doc4", u"un fichero");
  expectReport(u"CreaPathDoc de CNota", failure::pathFileAccess);
  EXPECT_EQ(CreaPathDoc(instance, 4073), u"");
  EXPECT_EQ(here.files.content(agencyFolder + u"\\Doc4"), u"un fichero");
}

TEST_F(DocumentFolders, a_level_that_cannot_be_made_leaves_those_before_it) {
  here.faults.failNth("Files.makeDirectory", 3, failure::permissionDenied);
  expectReport(u"CreaPathDoc de CNota", failure::permissionDenied);
  EXPECT_EQ(CreaPathDoc(instance, 4073), u"");
  EXPECT_TRUE(here.files.exists(agencyFolder + u"\\Doc4\\Doc0"));
  EXPECT_FALSE(here.files.exists(agencyFolder + u"\\Doc4\\Doc0\\Doc7"));
}

// A disk on which another desk is always the quicker one to make a folder.
class QuickerDesk : public kit::FakeFiles {
 public:
  using FakeFiles::FakeFiles;
  void makeDirectory(TextView path) override {
    FakeFiles::makeDirectory(path);
    FakeFiles::makeDirectory(path);
  }
};

TEST_F(DocumentFolders, that_another_desk_makes_meanwhile_are_as_good) {
  QuickerDesk disk(here.faults);
  disk.putFolder(agencyFolder);
  here.platform.files = &disk;
  EXPECT_EQ(CreaPathDoc(instance, 407), u"Doc4\\Doc0\\Doc0\\");
  EXPECT_TRUE(disk.exists(agencyFolder + u"\\Doc4\\Doc0\\Doc0"));
  here.platform.files = &here.files;
}

TEST_F(DocumentFolders, a_level_that_could_not_be_looked_at_and_is_there_is_reported_and_used) {
  here.files.putFolder(agencyFolder + u"\\Doc0");
  here.faults.failNth("Files.attributes", 2, failure::permissionDenied);
  expectReport(u"ExisteDirectorio() de RutinasErr, ruta:\\Datos\\Agencia\\Doc0\\", failure::permissionDenied);
  EXPECT_EQ(CreaPathDoc(instance, 7), u"Doc0\\");
}

}  // namespace
}  // namespace ovalia
