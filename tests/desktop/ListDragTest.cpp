#include <QDrag>
#include <QMimeData>
#include <QUrl>

#include "desktop/DropData.h"
#include "tests/desktop/DocumentList.h"

namespace ovalia::desktop {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// Sends the events of a drag: without a screen no real one moves.
class Drag : public DocumentListWidget {
 protected:
  bool drag(QWidget* over, const QMimeData& data) {
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(over, &enter);
    QDragMoveEvent move(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(over, &move);
    if (!enter.isAccepted() || !move.isAccepted()) return false;
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(over, &drop);
    return true;
  }
  // The drags that the program starts; each ends at once. A child is no drag yet when it is added.
  class Departures : public QObject {
   public:
    Departures() { qApp->installEventFilter(this); }
    std::vector<QDrag*> drags() const {
      std::vector<QDrag*> found;
      for (QObject* child : added_)
        if (auto* drag = qobject_cast<QDrag*>(child)) found.push_back(drag);
      return found;
    }
    bool eventFilter(QObject*, QEvent* event) override {
      if (event->type() == QEvent::ChildAdded) added_.emplace_back(static_cast<QChildEvent*>(event)->child());
      return false;
    }

   private:
    std::vector<QPointer<QObject>> added_;
  };
  // Presses an item and moves off with it.
  void pull(int row) {
    const QPoint from = at(row);
    QTest::mousePress(list->viewport(), Qt::LeftButton, {}, from);
    for (int step = 1; step <= 3; ++step) {
      const QPoint to = from + QPoint(step * QApplication::startDragDistance(), 0);
      QMouseEvent move(QEvent::MouseMove, to, list->viewport()->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                       {});
      QApplication::sendEvent(list->viewport(), &move);
    }
  }
  static void setFiles(QMimeData& data) {
    data.setUrls({QUrl::fromLocalFile("/datos/Año 1.doc"), QUrl("https://example.org/x"),
                  QUrl::fromLocalFile("/datos/b.txt")});
  }
};

TEST_F(Drag, files_dropped_on_the_list_or_the_notes_reach_the_form_by_the_logics_paths) {
  up([&] {
    QMimeData data;
    setFiles(data);
    auto* notes = static_cast<QAbstractScrollArea*>(target(*form, u"txtNotas"));
    EXPECT_TRUE(drag(list->viewport(), data));
    EXPECT_TRUE(drag(notes->viewport(), data));
    EXPECT_EQ(form->count("Drop LsvDocu"), 1);
    EXPECT_EQ(form->count("Drop txtNotas"), 1);
    EXPECT_THAT(form->dropped, ElementsAre(u"\\datos\\Año 1.doc", u"\\datos\\b.txt", u"\\datos\\Año 1.doc",
                                           u"\\datos\\b.txt"));
    EXPECT_EQ(form->control(u"txtNotas")->get(u"").text(), u"");
  });
}

TEST_F(Drag, an_effect_of_nothing_refuses_the_drop) {
  up([&] {
    QMimeData data;
    setFiles(data);
    form->dragEffect = 0;
    EXPECT_FALSE(drag(list->viewport(), data));
    EXPECT_EQ(form->count("DragOver LsvDocu"), 1);
    EXPECT_THAT(form->dropped, IsEmpty());
  });
}

TEST_F(Drag, text_addresses_of_other_machines_and_what_may_only_be_moved_are_refused_everywhere) {
  up([&] {
    QMimeData text, remote, files;
    text.setText(QStringLiteral("hola"));
    remote.setUrls({QUrl("https://example.org/plano.pdf")});
    remote.setText(QStringLiteral("https://example.org/plano.pdf"));
    setFiles(files);
    auto* notes = static_cast<QAbstractScrollArea*>(target(*form, u"txtNotas"))->viewport();
    for (QWidget* over : {list->viewport(), notes}) {
      EXPECT_FALSE(drag(over, text));
      EXPECT_FALSE(drag(over, remote));
      QDragEnterEvent moved(QPoint(5, 5), Qt::MoveAction, &files, Qt::LeftButton, {});
      QApplication::sendEvent(over, &moved);
      EXPECT_FALSE(moved.isAccepted());
    }
    EXPECT_THAT(form->log, IsEmpty());
    EXPECT_EQ(form->control(u"txtNotas")->get(u"").text(), u"");
    for (const TextView box : {u"txtUno", u"cboLibre", u"dtpFecha"})
      EXPECT_FALSE(target(*form, box)->acceptDrops()) << toUtf8(box);
  });
}

TEST_F(Drag, a_document_leaves_as_a_copy_under_the_name_shown_and_not_as_the_stored_file) {
  QTemporaryDir folder;
  QDir(folder.path()).mkdir("Brenox");
  here.files.temporary = logicPath(fromQt(folder.path())) + u"\\";
  QFile stored(folder.filePath("4073F00.doc"));
  ASSERT_TRUE(stored.open(QFile::WriteOnly));
  stored.close();
  form->leaving = logicPath(fromQt(stored.fileName()));
  up([&] {
    Departures departures;
    pull(1);
    const auto drags = departures.drags();
    ASSERT_EQ(drags.size(), 1u);
    EXPECT_EQ(model->selectedIndex(), 2);
    EXPECT_THAT(form->log, ElementsAre("ItemClick LsvDocu", "DragOut 2"));
    EXPECT_EQ(drags[0]->supportedActions(), Qt::CopyAction);
    EXPECT_FALSE(drags[0]->pixmap().isNull());
    ASSERT_EQ(drags[0]->mimeData()->urls().size(), 1);
    EXPECT_EQ(drags[0]->mimeData()->urls()[0].fileName(), QStringLiteral("dos.txt"));
  });
}

TEST_F(Drag, nothing_leaves_where_the_form_knows_no_file) {
  up([&] {
    Departures departures;
    pull(0);
    EXPECT_THAT(form->log, ElementsAre("ItemClick LsvDocu", "DragOut 1"));
    EXPECT_THAT(departures.drags(), IsEmpty());
  });
}

TEST(DragData, has_the_members_that_a_drop_reads) {
  QMimeData data;
  data.setUrls({QUrl::fromLocalFile("/a/b.doc")});
  const ObjectRef object = dragData(data);
  EXPECT_TRUE(callMember(object, u"GetFormat", {15}).toBoolean());
  EXPECT_FALSE(callMember(object, u"GetFormat", {2}).toBoolean());
  EXPECT_EQ(getMember(getMember(object, u"Files").toObject(), u"Count").toLong(), 1);
  EXPECT_EQ(getMember(object, u"Files", {1}).toText(), u"\\a\\b.doc");
}

}  // namespace

}  // namespace ovalia::desktop
