// Documents on a card as its user has them in hand: real windows, files, clipboard and trash.
#include <gmock/gmock.h>

#include <QPlainTextEdit>
#include <QStatusBar>

#include "desktop/LeavingFile.h"
#include "desktop/Progress.h"
#include "tests/host/DocumentsAtTheDesk.h"

namespace ovalia::host {

using deskkit::enter;
using deskkit::escape;
using deskkit::letters;
using deskkit::press;
using deskkit::tab;
using deskkit::types;
using desktop::fromQt;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

bool drop(QWidget& over, const QMimeData& data) {
  QDragEnterEvent in(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
  QApplication::sendEvent(&over, &in);
  QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, {});
  QApplication::sendEvent(&over, &drop);
  return in.isAccepted() && drop.isAccepted();
}

}  // namespace

class DocumentsOfANote : public DocumentsAtTheDesk {
 protected:
  static QWidget& notes() {
    return *static_cast<QPlainTextEdit*>(deskkit::inputOf(card(), u"txtNotas"))->viewport();
  }
  void confirmsRemoval() {
    asked(join(u"El documento adjunto a la nota se borrará.", CRLF, CRLF, u"¿Desea continuar?"), 68,
          u"Borrar", 6, [] { letters("S"); });
  }
};

TEST_F(DocumentsOfANote, files_copied_in_a_file_manager_are_pasted_by_ctrl_v_and_write_nothing_into_the_box) {
  onNote({file("Año 1.txt", "uno"), file("🏠.jpg", "dos"), file("100% #?.pdf", "tres"),
          file("dos\nlíneas.doc", "4")},
         [&] {
           EXPECT_THAT(listed(), ElementsAre("Año 1.txt", "🏠.jpg", "100% #?.pdf", "dos\nlíneas.doc"));
           EXPECT_EQ(focused(), u"txtAsunto");
           EXPECT_EQ(shown(u"txtAsunto"), "Llaves");
           EXPECT_FALSE(enabled(u"ID_Guardar"));
           QApplication::clipboard()->setText("de la ");
           press(Qt::Key_V, Qt::ControlModifier);
           EXPECT_NE(shown(u"txtAsunto"), "Llaves") << "text is pasted as ever";
         });
}

TEST_F(DocumentsOfANote, a_cut_in_a_file_manager_is_pasted_as_a_copy) {
  const QUrl source = file("plano.pdf", "plano");
  onNote({}, [&] {
    auto* data = new QMimeData;
    data->setData("x-special/gnome-copied-files", "cut\n" + source.toEncoded());
    QApplication::clipboard()->setMimeData(data);
    press(Qt::Key_V, Qt::ControlModifier);
    data = new QMimeData;
    data->setUrls({source});
    data->setData("application/x-kde-cutselection", "1");
    QApplication::clipboard()->setMimeData(data);
    press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_THAT(listed(), ElementsAre("plano.pdf", "plano.pdf"));
  });
  EXPECT_TRUE(QFile::exists(source.toLocalFile()));
}

TEST_F(DocumentsOfANote, a_document_copied_by_ctrl_c_is_on_the_clipboard_as_the_file_managers_write_it) {
  onNote({file("plano de l'Eixample.pdf", "plano")}, [&] {
    tabTo(u"LsvDocu");
    press(Qt::Key_Down);
    press(Qt::Key_C, Qt::ControlModifier);
    const QMimeData* data = QApplication::clipboard()->mimeData();
    ASSERT_TRUE(data);
    ASSERT_EQ(data->urls().size(), 1);
    const QByteArray address = data->urls().front().toEncoded();
    EXPECT_TRUE(QFile::exists(data->urls().front().toLocalFile()));
    EXPECT_EQ(data->data("text/uri-list"), address + "\r\n");
    EXPECT_EQ(data->data("x-special/gnome-copied-files"), "copy\n" + address);
    EXPECT_EQ(data->data("application/x-kde-cutselection"), "0");
    EXPECT_FALSE(data->hasText() && data->formats().contains("text/plain"));
  });
}

TEST_F(DocumentsOfANote, files_dropped_on_list_or_notes_are_attached_and_all_else_refused) {
  onNote({file("uno.txt", "uno")}, [&] {
    QMimeData several, remote, text;
    several.setUrls({file("dos.txt", "dos"), QUrl("https://example.org/x.pdf"), file("Ñandú 🏠.txt", "tres")});
    remote.setUrls({QUrl("https://example.org/x.pdf")});
    text.setText("hola");
    EXPECT_TRUE(drop(*list().viewport(), several));
    EXPECT_TRUE(drop(notes(), several));
    EXPECT_THAT(listed(), ElementsAre("uno.txt", "dos.txt", "Ñandú 🏠.txt", "dos.txt", "Ñandú 🏠.txt"));
    for (const QMimeData* refused : {&remote, &text}) {
      EXPECT_FALSE(drop(*list().viewport(), *refused));
      EXPECT_FALSE(drop(notes(), *refused));
    }
    EXPECT_EQ(shown(u"txtNotas"), "");
    EXPECT_EQ(rows(), 5);
  });
}

TEST_F(DocumentsOfANote, a_document_is_dragged_out_under_the_name_it_is_shown_by) {
  onNote({file("Contrato de Íñigo.docx", "contrato"), file("Contrato de Íñigo.docx", "contrato")}, [&] {
    const auto documents = card().as<forms::ListView>(u"LsvDocu");
    const Text path = documents->userDragsOut(2);
    EXPECT_EQ(documents->selectedIndex(), 2);
    EXPECT_TRUE(path.ends_with(u".doc")) << toUtf8(path);
    const desktop::LeavingFile leaving(path, documents->item(2).text);
    ASSERT_EQ(leaving.urls().size(), 1);
    QFile copy(leaving.urls().front().toLocalFile());
    EXPECT_TRUE(copy.fileName().endsWith("/Contrato de Íñigo.docx")) << copy.fileName().toStdString();
    ASSERT_TRUE(copy.open(QFile::ReadOnly));
    EXPECT_EQ(copy.readAll(), "contrato");
    QFile::remove(QString::fromStdString(toUtf8(nativePath(path))));
    EXPECT_EQ(documents->userDragsOut(2), u"") << "and without a word where the file is gone";
  });
}

TEST_F(DocumentsOfANote, the_keyboard_reaches_the_list_opens_renames_and_leaves_it) {
  onNote({file("carta.doc", "uno"), file("plano.pdf", "dos")}, [&] {
    tabTo(u"LsvDocu");
    press(Qt::Key_Down);
    enter();
    ASSERT_EQ(keyed.opened.size(), 1u);
    EXPECT_TRUE(QFile::exists(desktop::toQt(keyed.opened[0])));
    types("p");
    press(Qt::Key_F2);
    press(Qt::Key_A, Qt::ControlModifier);
    types("Plano del ático.pdf\n");
    EXPECT_THAT(listed(), ElementsAre("carta.doc", "Plano del ático.pdf"));
    EXPECT_EQ(one(u"SELECT COUNT(*) FROM DocuNotaIP WHERE NombreOrg = 'Plano del ático.pdf'").toLong(), 1);
    EXPECT_EQ(focused(), u"LsvDocu");
    tab();
    EXPECT_EQ(focused(), u"txtAsunto");
    tab(false);
    EXPECT_EQ(focused(), u"LsvDocu");
    tab(false);
    EXPECT_EQ(focused(), u"txtNotas");
  });
}

TEST_F(DocumentsOfANote, delete_removes_after_its_question_and_with_the_last_one_the_focus_goes_on) {
  onNote({file("carta.doc", "uno"), file("plano.pdf", "dos")}, [&] {
    tabTo(u"LsvDocu");
    press(Qt::Key_Delete);
    EXPECT_EQ(rows(), 2) << "nothing is selected";
    press(Qt::Key_Down);
    confirmsRemoval();
    press(Qt::Key_Delete);
    EXPECT_THAT(listed(), ElementsAre("plano.pdf"));
    EXPECT_EQ(focused(), u"LsvDocu");
    press(Qt::Key_Down);
    confirmsRemoval();
    press(Qt::Key_Delete);
    EXPECT_THAT(listed(), IsEmpty());
    EXPECT_FALSE(list().isVisible());
    EXPECT_EQ(focused(), u"txtAsunto");
    press(Qt::Key_End);
    types("!");
    EXPECT_EQ(shown(u"txtAsunto"), "Llaves!");
    EXPECT_TRUE(enabled(u"ID_Guardar"));
  });
  EXPECT_EQ(rows(), 0);
  EXPECT_EQ(QDir(home() + "/data/Trash/files").entryList(QDir::Files).size(), 2);
}

TEST_F(DocumentsOfANote, the_width_of_the_list_set_by_keys_is_remembered) {
  double width = 0;
  onNote({file("carta.doc", "uno")}, [&] {
    tab(false);
    ASSERT_EQ(focused(), u"LsvDocu");
    const double before = card().as<forms::Splitter>(u"splitDocumentos")->PaneWidth();
    for (int i = 0; i < 4; ++i) press(Qt::Key_Right, Qt::AltModifier);
    width = card().as<forms::Splitter>(u"splitDocumentos")->PaneWidth();
    EXPECT_NEAR(width, before + 600, 30);
  });
  EXPECT_EQ(here.settings.stored(u"Agencia", u"frmNota", u"DocsWidth"), Variant(width).text());
}

TEST_F(DocumentsOfANote,
       two_hundred_files_show_how_far_they_are_keep_the_window_drawn_and_are_attached_once) {
  constexpr int many = 200;
  QMimeData data, more;
  QList<QUrl> all;
  for (int i = 0; i < many; ++i)
    all << file(QStringLiteral("%1.txt").arg(i, 3, 10, QChar(u'0')), QByteArray(1000, 'x'));
  data.setUrls(all);
  more.setUrls({file("otro.txt", "otro")});
  onNote({}, [&] {
    struct Watch : QObject {
      int paints = 0;
      bool eventFilter(QObject*, QEvent* event) override {
        paints += event->type() == QEvent::Paint;
        return false;
      }
    } watch;
    desktop::CardWindow& shownCard = *deskkit::windowOf(card());
    shownCard.installEventFilter(&watch);
    QTimer meanwhile;
    QStringList told;
    int refused = 0;
    meanwhile.callOnTimeout([&] {
      shownCard.update();
      if (!desktop::Progress::current().breathing()) return;
      if (const QString text = window->statusBar()->currentMessage(); !text.isEmpty()) told << text;
      refused += !drop(notes(), more);
      press(Qt::Key_V, Qt::ControlModifier);
      press(Qt::Key_Escape, Qt::NoModifier, QStringLiteral("\x1b"));
    });
    copied(more.urls());
    meanwhile.start(1);
    EXPECT_TRUE(drop(notes(), data));
    meanwhile.stop();
    EXPECT_GT(watch.paints, 3);
    EXPECT_GT(refused, 3);
    ASSERT_FALSE(told.isEmpty());
    EXPECT_TRUE(QRegularExpression("^Copiando documento \\d+ de 200$").match(told.back()).hasMatch())
        << told.back().toStdString();
    EXPECT_EQ(list().count(), many);
    EXPECT_EQ(rows(), many);
    EXPECT_TRUE(deskkit::eventually([&] { return window->statusBar()->currentMessage().isEmpty(); }));
    EXPECT_TRUE(card().Visible());
  });
}

}  // namespace ovalia::host
