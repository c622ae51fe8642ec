#include "desktop/LeavingFile.h"

#include <QFileInfo>
#include <QUrl>

#include "tests/desktop/Desk.h"

namespace ovalia::desktop {

namespace {

class Leaving : public DeskTest {
 protected:
  Leaving() {
    here.files.temporary = logicPath(fromQt(folder.path())) + u"\\";
    QDir(folder.path()).mkdir("Brenox");
  }
  Text stored(const char* name, const QByteArray& content) {
    QFile file(folder.filePath(name));
    EXPECT_TRUE(file.open(QFile::WriteOnly));
    file.write(content);
    return logicPath(fromQt(folder.filePath(name)));
  }
  static QString fileOf(const QMimeData& data) {
    return data.urls().size() == 1 ? data.urls().front().toLocalFile() : QString();
  }
  static QByteArray contentOf(const QString& name) {
    QFile file(name);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
  }

  QTemporaryDir folder;
};

TEST_F(Leaving, offers_one_address_of_a_copy_under_the_name_shown) {
  const Text path = stored("4073F00.doc", "contrato");
  const LeavingFile data(path, u"Contrato de Íñigo 🏠.docx");
  EXPECT_EQ(data.formats(), QStringList{"text/uri-list"});
  const QString copy = fileOf(data);
  EXPECT_EQ(QFileInfo(copy).fileName(), QStringLiteral("Contrato de Íñigo 🏠.docx"));
  EXPECT_TRUE(copy.startsWith(folder.filePath("Brenox/")));
  EXPECT_EQ(contentOf(copy), "contrato");
  EXPECT_EQ(fileOf(data), copy) << "one copy, however often it is asked for";
  EXPECT_EQ(QFileInfo(QFileInfo(copy).path() + "/..").permissions() & (QFile::ReadOther | QFile::ReadGroup),
            QFile::Permissions());
  QFile::remove(copy);
  EXPECT_EQ(contentOf(folder.filePath("4073F00.doc")), "contrato") << "whatever becomes of the copy";
}

TEST_F(Leaving, two_documents_of_one_name_keep_their_contents) {
  const LeavingFile one(stored("4073F00.pdf", "uno"), u"plano.pdf"),
      two(stored("4073F01.pdf", "dos"), u"plano.pdf");
  EXPECT_EQ(contentOf(fileOf(one)), "uno");
  EXPECT_EQ(contentOf(fileOf(two)), "dos");
  EXPECT_EQ(QFileInfo(fileOf(one)).fileName(), QFileInfo(fileOf(two)).fileName());
}

TEST_F(Leaving, nothing_is_copied_until_somebody_asks) {
  const LeavingFile data(stored("4073F00.pdf", "uno"), u"sin pedir.pdf");
  EXPECT_TRUE(data.hasUrls());
  QDirIterator all(folder.path(), {"sin pedir.pdf"}, QDir::Files, QDirIterator::Subdirectories);
  EXPECT_FALSE(all.hasNext());
}

TEST_F(Leaving, a_name_that_no_file_can_bear_is_made_one_that_can) {
  EXPECT_EQ(leavingName(u"a/b\\c\nd\t.pdf"), QStringLiteral("abcd.pdf"));
  EXPECT_EQ(leavingName(u"l'Hospitalet: 1?.pdf"), QStringLiteral("l'Hospitalet: 1?.pdf"));
  EXPECT_EQ(leavingName(u".."), QString());
  EXPECT_EQ(leavingName(u" / "), QString());
  const QString cut = leavingName(Text(200, u'ñ') + u".docx");
  EXPECT_TRUE(cut.endsWith("ñ.docx"));
  EXPECT_EQ(cut.toUtf8().size(), 255);
  Text houses;
  for (int i = 0; i < 100; ++i) houses += u"🏠";
  EXPECT_EQ(leavingName(houses).toUtf8().size(), 252) << "no half of a sign";
  const LeavingFile unnamed(stored("4073F02.pdf", "tres"), u"..");
  EXPECT_EQ(QFileInfo(fileOf(unnamed)).fileName(), QStringLiteral("4073F02.pdf"));
}

TEST_F(Leaving, a_document_that_is_gone_gives_no_address) {
  const LeavingFile data(logicPath(fromQt(folder.filePath("nada.pdf"))), u"nada.pdf");
  EXPECT_TRUE(data.urls().isEmpty());
}

}  // namespace

}  // namespace ovalia::desktop
