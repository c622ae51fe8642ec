#include "desktop/Archiver.h"

#include <zip.h>

#include <QFile>
#include <map>

#include "desktop/Surroundings.h"
#include "tests/desktop/Desk.h"

namespace ovalia::desktop {

namespace {

using testing::ElementsAre;
using testing::Pair;

class Archive : public testing::Test {
 protected:
  void write(const QString& name, const QByteArray& bytes) {
    QFile file(folder.filePath(name));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }
  Text path(const QString& name) { return logicPath(fromQt(folder.filePath(name))); }
  ObjectRef archiver() {
    const ObjectRef made = here.platform().objects->create(u"ZipLibrary.CGZipFiles");
    putMember(made, u"ZipFileName", path("envio.zip"));
    putMember(made, u"UpdatingZip", false);
    return made;
  }
  std::map<std::string, std::string> contents() {
    std::map<std::string, std::string> found;
    zip_t* zip = zip_open(QFile::encodeName(folder.filePath("envio.zip")).constData(), ZIP_RDONLY, nullptr);
    if (!zip) return found;
    for (zip_int64_t i = 0; i < zip_get_num_entries(zip, 0); ++i) {
      zip_stat_t stat;
      zip_stat_index(zip, i, 0, &stat);
      std::string bytes(stat.size, '\0');
      zip_file_t* file = zip_fopen_index(zip, i, 0);
      EXPECT_EQ(zip_fread(file, bytes.data(), bytes.size()), static_cast<zip_int64_t>(bytes.size()));
      zip_fclose(file);
      found[stat.name] = bytes;
    }
    zip_close(zip);
    return found;
  }

  Surroundings here;
  QTemporaryDir folder{QDir::tempPath() + "/Ovalia ñ XXXXXX"};
};

TEST_F(Archive, holds_what_masks_and_paths_name) {
  write("system.txt", "uno");
  write("ErrLog[_].TXT", "dos");
  write("Captura.bmp", QByteArray(100000, 'x'));
  write("otro.doc", "no");
  const ObjectRef zip = archiver();
  callMember(zip, u"AddFile", {path("*.txt")});
  callMember(zip, u"AddFile", {path("captura.BMP")});
  callMember(zip, u"AddFile", {path("falta.doc")});
  EXPECT_EQ(callMember(zip, u"MakeZipFile").toLong(), 0);
  EXPECT_EQ(callMember(zip, u"GetLastMessage").toText(), u"");
  EXPECT_THAT(contents(), ElementsAre(Pair("Captura.bmp", std::string(100000, 'x')),
                                      Pair("ErrLog[_].TXT", "dos"), Pair("system.txt", "uno")));
}

TEST_F(Archive, takes_a_file_once_and_two_of_one_name_both) {
  write("a.txt", "raíz");
  QDir(folder.path()).mkdir("sub");
  write("sub/a.txt", "sub");
  const ObjectRef zip = archiver();
  for (const char* name : {"a.txt", "*.txt", "sub/a.txt"}) callMember(zip, u"AddFile", {path(name)});
  EXPECT_EQ(callMember(zip, u"MakeZipFile").toLong(), 0);
  EXPECT_THAT(contents(), ElementsAre(Pair("a (2).txt", "sub"), Pair("a.txt", "raíz")));
}

TEST_F(Archive, replaces_an_older_one_unless_it_updates_it) {
  write("uno.txt", "1");
  write("dos.txt", "2");
  ObjectRef zip = archiver();
  callMember(zip, u"AddFile", {path("uno.txt")});
  EXPECT_EQ(callMember(zip, u"MakeZipFile").toLong(), 0);
  zip = archiver();
  putMember(zip, u"UpdatingZip", true);
  callMember(zip, u"AddFile", {path("dos.txt")});
  EXPECT_EQ(callMember(zip, u"MakeZipFile").toLong(), 0);
  EXPECT_EQ(contents().size(), 2u);
  zip = archiver();
  callMember(zip, u"AddFile", {path("dos.txt")});
  EXPECT_EQ(callMember(zip, u"MakeZipFile").toLong(), 0);
  EXPECT_THAT(contents(), ElementsAre(Pair("dos.txt", "2")));
}

TEST_F(Archive, that_cannot_be_made_says_why) {
  ObjectRef zip = archiver();
  EXPECT_NE(callMember(zip, u"MakeZipFile").toLong(), 0);
  EXPECT_EQ(callMember(zip, u"GetLastMessage").toText(), u"No hay archivos que comprimir.");
  write("uno.txt", "1");
  zip = archiver();
  putMember(zip, u"ZipFileName", path("no/hay/envio.zip"));
  callMember(zip, u"AddFile", {path("uno.txt")});
  EXPECT_NE(callMember(zip, u"MakeZipFile").toLong(), 0);
  EXPECT_EQ(callMember(zip, u"GetLastMessage").toText(), u"no se puede escribir en la carpeta.");
}

TEST_F(Archive, a_name_that_is_no_path_is_a_failure_of_the_file_system) {
  EXPECT_THROW(callMember(archiver(), u"AddFile", {u"suelto.txt"}), Failure);
}

}  // namespace

}  // namespace ovalia::desktop
