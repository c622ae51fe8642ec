#include "routines/ClipboardFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/kit/TestPlatform.h"

namespace ovalia {
namespace {

using testing::ElementsAre;

class CopyingFiles : public kit::LogicTest {
 protected:
  const std::vector<Text> files = {u"\\datos\\uno.doc", u"\\datos\\dos ñ.pdf"};
};

TEST_F(CopyingFiles, puts_them_there_with_the_mark_of_a_copy) {
  EXPECT_TRUE(ClipboardCopyFiles(files));
  EXPECT_EQ(here.clipboard.fileList, files);
  EXPECT_THAT(here.clipboard.steps, ElementsAre("open", "empty", "setFiles", "setDropEffect 1", "close"));
}

TEST_F(CopyingFiles, takes_the_place_of_what_was_there) {
  here.clipboard.holdsBitmap = true;
  ClipboardCopyFiles(std::vector<Text>{u"\\datos\\uno.doc"});
  EXPECT_FALSE(here.clipboard.holdsBitmap);
}

TEST_F(CopyingFiles, a_clipboard_that_does_not_open_is_left_alone) {
  here.clipboard.refusesToOpen = true;
  EXPECT_FALSE(ClipboardCopyFiles(files));
  EXPECT_THAT(here.clipboard.steps, ElementsAre("open"));
}

TEST_F(CopyingFiles, a_clipboard_that_does_not_take_them_is_closed_without_the_mark) {
  here.clipboard.refusesFiles = true;
  EXPECT_FALSE(ClipboardCopyFiles(files));
  EXPECT_THAT(here.clipboard.steps, ElementsAre("open", "empty", "setFiles", "close"));
}

TEST_F(CopyingFiles, no_file_at_all_is_reported_and_leaves_the_clipboard_open_and_empty) {
  expectReport(u"ClipboardCopyFiles() de RutinasErr", failure::indexOutOfRange);
  EXPECT_FALSE(ClipboardCopyFiles({}));
  EXPECT_THAT(here.clipboard.steps, ElementsAre("open", "empty"));
  EXPECT_TRUE(here.clipboard.isOpen);
}

TEST_F(CopyingFiles, once_they_are_there_the_result_stays_true_whatever_fails_behind_them) {
  for (const char* step : {"Clipboard.setDropEffect", "Clipboard.close"}) {
    here.faults.failNext(step, 51);
    expectReport(u"ClipboardCopyFiles() de RutinasErr", 51);
    EXPECT_TRUE(ClipboardCopyFiles(files));
    EXPECT_TRUE(here.clipboard.isOpen);
  }
}

class PastingFiles : public kit::LogicTest {
 protected:
  std::vector<Text> files = {u"marca"};
};

TEST_F(PastingFiles, gives_their_number_and_paths) {
  here.clipboard.fileList = {u"\\datos\\uno.doc", u"\\datos\\con blanco .pdf "};
  here.clipboard.holdsFiles = true;
  EXPECT_EQ(ClipboardPasteFiles(files), 2);
  EXPECT_EQ(files, here.clipboard.fileList) << "blanks around a path are part of it";
  EXPECT_THAT(here.clipboard.steps, ElementsAre("open", "files", "close"));
}

TEST_F(PastingFiles, a_clipboard_with_something_else_is_minus_1_and_leaves_the_array_alone) {
  here.clipboard.holdsBitmap = true;
  EXPECT_EQ(ClipboardPasteFiles(files), -1);
  EXPECT_THAT(files, ElementsAre(u"marca"));
  EXPECT_TRUE(here.clipboard.steps.empty());
}

TEST_F(PastingFiles, a_clipboard_that_does_not_open_is_0_and_leaves_the_array_alone) {
  here.clipboard.holdsFiles = true;
  here.clipboard.refusesToOpen = true;
  EXPECT_EQ(ClipboardPasteFiles(files), 0);
  EXPECT_THAT(files, ElementsAre(u"marca"));
}

TEST_F(PastingFiles, files_that_cannot_be_read_are_reported_and_leave_the_clipboard_open) {
  here.clipboard.holdsFiles = true;
  here.faults.failNext("Clipboard.files", 51);
  expectReport(u"ClipboardPasteFiles() de RutinasErr", 51);
  EXPECT_EQ(ClipboardPasteFiles(files), 0);
  EXPECT_TRUE(here.clipboard.isOpen);
}

}  // namespace
}  // namespace ovalia
