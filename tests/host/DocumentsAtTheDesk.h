#pragma once

#include <QApplication>
#include <QClipboard>
#include <QDir>
#include <QListWidget>
#include <QMimeData>
#include <QUrl>

#include "desktop/DesktopClipboard.h"
#include "desktop/DesktopShell.h"
#include "desktop/LivelyFiles.h"
#include "desktop/QtText.h"
#include "routines/ModuleValues.h"
#include "tests/host/AtTheDesk.h"
#include "tests/host/TestDisk.h"

namespace ovalia::host {

// A desk with real files, clipboard and trash.
class DocumentsAtTheDesk : public AtTheDesk {
 protected:
  DocumentsAtTheDesk() {
    here.platform.files = &files;
    here.platform.clipboard = &clipboard;
    here.platform.shell = &shell;
    moduleValues().ErrLogPath = here.files.temporary + u"ErrLog.txt";
    folder.putFolder("tmp");
    qputenv("XDG_DATA_HOME", (home() + "/data").toUtf8());
    QDir(home()).mkpath("data");
    QApplication::clipboard()->clear();
  }
  void TearDown() override {
    QApplication::clipboard()->clear();
    here.platform.files = &here.files;
    here.platform.clipboard = &here.clipboard;
    here.platform.shell = &here.shell;
    AtTheDesk::TearDown();
  }

  QString home() const { return QString::fromStdString(folder.path().native()); }
  QUrl file(const QString& name, const QByteArray& content) {
    QDir(home()).mkpath("suyos");
    QFile made(home() + "/suyos/" + name);
    EXPECT_TRUE(made.open(QFile::WriteOnly)) << name.toStdString();
    made.write(content);
    return QUrl::fromLocalFile(made.fileName());
  }
  static void copied(const QList<QUrl>& files) {
    auto* data = new QMimeData;
    data->setUrls(files);
    QApplication::clipboard()->setMimeData(data);
  }

  // On the row of a list, with those documents.
  void onRow(ListPane& pane, const QList<QUrl>& documents, const Keys& doing) {
    onCard(pane, [&] {
      if (!documents.isEmpty()) {
        copied(documents);
        deskkit::press(Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(list().count(), documents.size());
      }
      doing();
      if (enabled(u"ID_DeshacerCambios"))
        deskkit::letters("FD");  // passing over a date at midnight counts as a change
      deskkit::escape();
    });
  }

  // On a new note of a property of its own, with those documents.
  void onNote(const QList<QUrl>& documents, const Keys& doing) {
    const std::int32_t property = addProperty();
    note = addNote(property, u"Llaves");
    onRow(pane(u"grdNota", property), documents, doing);
  }
  static QListWidget& list() { return dynamic_cast<QListWidget&>(*deskkit::inputOf(card(), u"LsvDocu")); }
  static QStringList listed() {
    QStringList names;
    for (int i = 0; i < list().count(); ++i) names << list().item(i)->text();
    return names;
  }
  std::int32_t rows() {
    return one(u"SELECT COUNT(*) FROM DocuNotaIP WHERE IdNota = " + toText(note)).toLong();
  }

  TestDisk<desktop::LivelyFiles> files{here.files, folder.logic(u"tmp\\")};
  desktop::DesktopClipboard clipboard;
  desktop::DesktopShell shell;
  std::int32_t note = 0;
};

}  // namespace ovalia::host
