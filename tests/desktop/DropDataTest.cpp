#include "desktop/DropData.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QSysInfo>
#include <QUrl>

namespace ovalia::desktop {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<Text> filesIn(const char* format, const QByteArray& content) {
  QMimeData data;
  data.setData(format, content);
  return filesOf(&data);
}

TEST(FilesOfData, are_named_with_accents_drawn_signs_line_ends_and_signs_that_addresses_encode) {
  EXPECT_THAT(filesIn("text/uri-list",
                      "file:///home/ana/A%C3%B1o%201.doc\r\nfile:///home/ana/%F0%9F%8F%A0.jpg\r\n"
                      "file:///home/ana/dos%0Al%C3%ADneas.txt\r\nfile:///home/ana/100%25%20%23%3F.pdf\r\n"),
              ElementsAre(u"\\home\\ana\\Año 1.doc", u"\\home\\ana\\🏠.jpg", u"\\home\\ana\\dos\nlíneas.txt",
                          u"\\home\\ana\\100% #?.pdf"));
}

TEST(FilesOfData, are_those_of_this_machine_alone) {
  const QByteArray here = QSysInfo::machineHostName().toUtf8();
  EXPECT_THAT(
      filesIn("text/uri-list",
              "# copiado\r\nhttps://example.org/a.doc\r\nsftp://otro/b.doc\r\nfile://servidor/c.doc\r\n"
              "file://localhost/d.doc\r\nfile://" +
                  here + "/e.doc\r\n"),
      ElementsAre(u"\\d.doc", u"\\e.doc"));
}

TEST(FilesOfData, never_name_another_file_than_the_one_meant) {
  EXPECT_THAT(filesIn("text/uri-list", "file:///home/ana/..%5C..%5Cetc%5Cpasswd\r\nfile:///a%00b\r\n"),
              IsEmpty());
}

TEST(FilesOfData, are_read_from_the_marks_of_file_managers_too) {
  EXPECT_THAT(filesIn("x-special/gnome-copied-files", "copy\nfile:///a/1.doc\nfile:///a/2%20b.doc"),
              ElementsAre(u"\\a\\1.doc", u"\\a\\2 b.doc"));
  EXPECT_THAT(filesIn("x-special/gnome-copied-files", "cut\nfile:///a/1.doc"), ElementsAre(u"\\a\\1.doc"));
  EXPECT_THAT(filesIn("x-special/mate-copied-files", "copy\nfile:///a/1.doc\n"), ElementsAre(u"\\a\\1.doc"));
  EXPECT_THAT(filesIn("text/plain", "x-special/nautilus-clipboard\ncopy\nfile:///a/1.doc\n"),
              ElementsAre(u"\\a\\1.doc"));
  QMimeData cut;
  cut.setUrls({QUrl::fromLocalFile("/a/1.doc")});
  cut.setData("application/x-kde-cutselection", "1");
  EXPECT_THAT(filesOf(&cut), ElementsAre(u"\\a\\1.doc")) << "the source stays where it is all the same";
}

TEST(FilesOfData, are_none_in_text_pictures_and_nothing) {
  EXPECT_THAT(filesIn("text/plain", "file:///a/1.doc\nfile:///a/2.doc\nfile:///a/3.doc"), IsEmpty());
  EXPECT_THAT(filesIn("image/png", "file:///a"), IsEmpty());
  EXPECT_THAT(filesOf(nullptr), IsEmpty());
}

}  // namespace

}  // namespace ovalia::desktop
