#include "desktop/Surroundings.h"

#include <QClipboard>
#include <QDir>
#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QTimer>

#include "forms/CardForm.h"
#include "tests/desktop/Desk.h"

namespace ovalia::desktop {

namespace {

using testing::ElementsAre;

class Here : public testing::Test {
 protected:
  // Runs while the next dialog is up; it must come.
  template <class Dialog>
  void whenUp(std::function<void(Dialog&)> action) {
    QTimer::singleShot(0, [this, action = std::move(action)] {
      auto* dialog = dynamic_cast<Dialog*>(QApplication::activeModalWidget());
      ASSERT_TRUE(dialog);
      came = true;
      QApplication::setActiveWindow(dialog);
      action(*dialog);
    });
  }
  static QStringList buttons(const QDialog& box) {
    QStringList texts;
    for (const QPushButton* button : box.findChildren<QPushButton*>()) texts << button->text();
    return texts;
  }
  int ask(int flags, const std::function<void(QMessageBox&)>& action, TextView title = u"") {
    came = false;
    whenUp<QMessageBox>(action);
    const int answer = here.platform().screen->messageBox(u"Línea uno\r\n<b>dos</b>", flags, title);
    EXPECT_TRUE(came);
    return answer;
  }
  static void press(QDialog& box, const QString& text) {
    for (QPushButton* button : box.findChildren<QPushButton*>())
      if (button->text() == text) return button->click();
    ADD_FAILURE() << "no button " << text.toStdString();
  }

  Surroundings here{AppInfo{.title = u"Agencia", .path = {}, .major = 2, .minor = 3, .revision = 4}};
  bool came = false;
};

TEST_F(Here, are_this_threads_platform_while_they_live) {
  EXPECT_EQ(&Platform::current(), &here.platform());
  EXPECT_EQ(Platform::current().app.title, u"Agencia");
  EXPECT_EQ(Platform::current().app.path.substr(0, 1), u"\\");
  EXPECT_GT(Platform::current().clock->now().days, 45000);
}

TEST_F(Here, a_message_box_shows_its_text_to_the_letter_under_the_applications_title) {
  ask(64, [&](QMessageBox& box) {
    EXPECT_EQ(box.text(), QStringLiteral("Línea uno\n<b>dos</b>"));
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
    EXPECT_EQ(box.windowTitle(), QStringLiteral("Agencia"));
    EXPECT_EQ(box.icon(), QMessageBox::Information);
    EXPECT_THAT(buttons(box), ElementsAre("&Aceptar"));
    box.reject();
  });
  ask(
      48 + 4096,
      [&](QMessageBox& box) {
        EXPECT_EQ(box.icon(), QMessageBox::Warning);
        EXPECT_EQ(box.windowTitle(), QStringLiteral("Borrar"));
        EXPECT_TRUE(box.windowFlags() & Qt::WindowStaysOnTopHint);
        box.reject();
      },
      u"Borrar");
}

TEST_F(Here, message_boxes_give_the_classic_codes_of_their_buttons) {
  struct Row {
    int flags;
    const char* button;
    int code;
  };
  for (const Row& row :
       {Row{0, "&Aceptar", 1}, Row{1, "&Aceptar", 1}, Row{1, "&Cancelar", 2}, Row{3, "&Sí", 6},
        Row{3, "&No", 7}, Row{3, "&Cancelar", 2}, Row{4, "&Sí", 6}, Row{4, "&No", 7}, Row{2, "A&nular", 3},
        Row{2, "&Reintentar", 4}, Row{2, "&Omitir", 5}, Row{5, "&Reintentar", 4}})
    EXPECT_EQ(ask(row.flags, [&](QMessageBox& box) { press(box, QString::fromUtf8(row.button)); }), row.code)
        << row.flags << " " << row.button;
}

TEST_F(Here, the_buttons_of_a_question_stand_in_their_order_and_the_flag_names_the_default) {
  ask(3, [&](QMessageBox& box) {
    EXPECT_THAT(buttons(box), ElementsAre("&Sí", "&No", "&Cancelar"));
    QList<int> places;
    for (const QPushButton* button : box.findChildren<QPushButton*>()) places << button->x();
    EXPECT_TRUE(std::is_sorted(places.begin(), places.end()));
    EXPECT_EQ(box.defaultButton()->text(), QStringLiteral("&Sí"));
    box.reject();
  });
  ask(4 + 256, [&](QMessageBox& box) {
    EXPECT_EQ(box.defaultButton()->text(), QStringLiteral("&No"));
    press(box, QStringLiteral("&No"));
  });
}

TEST_F(Here, escape_cancels_where_there_is_a_cancel_and_a_yes_or_no_must_be_answered) {
  const auto escape = [](QMessageBox& box) { key(&box, Qt::Key_Escape); };
  EXPECT_EQ(ask(3, escape), 2);
  EXPECT_EQ(ask(1, escape), 2);
  EXPECT_EQ(ask(0, escape), 1);
  EXPECT_EQ(ask(4,
                [&](QMessageBox& box) {
                  key(&box, Qt::Key_Escape);
                  box.close();
                  EXPECT_TRUE(box.isVisible());
                  press(box, QStringLiteral("&Sí"));
                }),
            6);
}

TEST_F(Here, a_letter_answers) {
  EXPECT_EQ(ask(4, [](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_N, Qt::AltModifier); }), 7);
}

TEST_F(Here, a_box_whose_window_goes_away_goes_with_it_and_is_answered_by_its_close_box) {
  auto* window = new QWidget;
  window->show();
  QApplication::setActiveWindow(window);
  const auto close = [&](QMessageBox& box) {
    EXPECT_EQ(box.parentWidget(), window);
    delete window;
  };
  EXPECT_EQ(ask(3, close), 2);
  QWidget hidden;
  QApplication::setActiveWindow(&hidden);
  ask(0, [](QMessageBox& box) {
    EXPECT_EQ(box.parentWidget(), nullptr);
    box.accept();
  });
}

TEST_F(Here, an_input_box_gives_the_text_or_nothing) {
  const auto type = [&](const char* button) {
    whenUp<QInputDialog>([&, button](QInputDialog& box) {
      EXPECT_EQ(box.textValue(), QStringLiteral("antes"));
      EXPECT_THAT(buttons(box), testing::UnorderedElementsAre("&Aceptar", "&Cancelar"));
      box.setTextValue(QStringLiteral("después"));
      press(box, button);
    });
    return here.platform().screen->inputBox(u"Diga", u"", u"antes");
  };
  EXPECT_EQ(type("&Aceptar"), u"después");
  EXPECT_EQ(type("&Cancelar"), u"");
}

TEST_F(Here, the_hourglass_is_over_everything_but_a_box) {
  Screen& screen = *here.platform().screen;
  screen.setMousePointer(11);
  screen.setMousePointer(11);
  ASSERT_TRUE(QApplication::overrideCursor());
  EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
  ask(0, [&](QMessageBox& box) {
    EXPECT_FALSE(QApplication::overrideCursor());
    box.accept();
  });
  EXPECT_TRUE(QApplication::overrideCursor());
  EXPECT_EQ(screen.mousePointer(), 11);
  screen.setMousePointer(0);
  EXPECT_FALSE(QApplication::overrideCursor());
}

TEST_F(Here, the_screen_is_as_large_as_the_desk_in_twips) {
  const QRect desk = QApplication::primaryScreen()->virtualGeometry();
  EXPECT_EQ(here.platform().screen->width(), desk.width() * 15);
  EXPECT_EQ(here.platform().screen->height(), desk.height() * 15);
}

TEST_F(Here, the_active_form_is_the_card_then_the_hosts_own_then_none) {
  Screen& screen = *here.platform().screen;
  EXPECT_EQ(screen.activeForm(), nullptr);
  EXPECT_EQ(screen.activeControl(), nullptr);
  const auto host = std::make_shared<MemberTable>();
  here.setHostForms({.active = [=] { return host; }, .loaded = [=] { return std::vector<ObjectRef>{host}; }});
  EXPECT_EQ(screen.activeForm(), host);
  EXPECT_EQ(screen.activeControl(), nullptr);  // it has no such member
  const auto card = std::make_shared<forms::CardForm>(forms::frmLlamada());
  card->setCaption(u"x");
  EXPECT_THAT(screen.forms(), ElementsAre(ObjectRef(host), ObjectRef(card)));
  QTimer::singleShot(0, [&] {
    EXPECT_EQ(screen.activeForm(), card);
    EXPECT_EQ(getMember(screen.activeControl(), u"Name").text(), u"txtNotas");
    card->Unload();
  });
  card->Show();
  EXPECT_EQ(screen.activeForm(), host);
}

TEST_F(Here, the_toolkit_speaks_spanish) {
  EXPECT_EQ(QCoreApplication::translate("QPlatformTheme", "Cancel"), QStringLiteral("Cancelar"));
}

TEST_F(Here, outside_components_are_found_by_their_names) {
  Objects& objects = *here.platform().objects;
  for (const TextView name : {u"ZipLibrary.CGZipFiles", u"Zandrel.CZandrel", u"trivane.ctrivane",
                              u"Mosken.CMosken", u"Perlaz.CPerlaz"})
    EXPECT_TRUE(objects.create(name)) << toUtf8(name);
  EXPECT_THROW(objects.create(u"Otra.Cosa"), Failure);
}

class DesktopFiles : public Here {
 protected:
  Text write(const QString& name, const QByteArray& bytes = "x") {
    QFile file(folder.filePath(name));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
    return logicPath(fromQt(file.fileName()));
  }
  QTemporaryDir folder{QDir::tempPath() + "/Ovalia ñ XXXXXX"};
};

TEST_F(DesktopFiles, files_go_over_the_clipboard_as_addresses_with_the_mark_of_a_copy) {
  Clipboard& clipboard = *here.platform().clipboard;
  const Text one = write("Año 1.doc"), two = write("b.txt");
  ASSERT_TRUE(clipboard.open());
  clipboard.empty();
  EXPECT_FALSE(clipboard.has(Clipboard::filesFormat));
  EXPECT_TRUE(clipboard.setFiles(std::vector<Text>{one, two}));
  EXPECT_TRUE(clipboard.setDropEffect(1));
  clipboard.close();
  EXPECT_TRUE(clipboard.has(Clipboard::filesFormat));
  EXPECT_FALSE(clipboard.has(Clipboard::bitmapFormat));
  EXPECT_THAT(clipboard.files(), ElementsAre(one, two));
  const QMimeData* data = QApplication::clipboard()->mimeData();
  EXPECT_EQ(data->urls().size(), 2);
  EXPECT_TRUE(data->data("x-special/gnome-copied-files").startsWith("copy\nfile:///"));
  EXPECT_TRUE(data->data("text/uri-list").contains("A%C3%B1o%201.doc"));
}

TEST_F(DesktopFiles, a_file_copied_under_another_spelling_goes_by_the_disks) {
  Clipboard& clipboard = *here.platform().clipboard;
  const Text one = write("Nota.DOC");
  clipboard.open();
  clipboard.setFiles(std::vector<Text>{one.substr(0, one.size() - 8) + u"NOTA.doc"});
  clipboard.close();
  EXPECT_THAT(clipboard.files(), ElementsAre(one));
}

TEST_F(DesktopFiles, text_and_pictures_on_the_clipboard_are_no_files) {
  QApplication::clipboard()->setText("file:///x");
  EXPECT_FALSE(here.platform().clipboard->has(Clipboard::filesFormat));
  QApplication::clipboard()->setImage(QImage(4, 4, QImage::Format_RGB32));
  EXPECT_TRUE(here.platform().clipboard->has(Clipboard::bitmapFormat));
  EXPECT_TRUE(here.platform().clipboard->files().empty());
}

TEST_F(DesktopFiles, a_file_goes_to_the_trash_whatever_its_spelling) {
  const Text path = write("Borrar.txt");
  const auto result = here.platform().shell->recycle(path.substr(0, path.size() - 10) + u"BORRAR.TXT");
  EXPECT_EQ(result.code, 0);
  EXPECT_FALSE(result.aborted);
  EXPECT_FALSE(QFile::exists(folder.filePath("Borrar.txt")));
}

TEST_F(DesktopFiles, a_missing_file_gives_the_systems_number_for_it) {
  const auto result = here.platform().shell->recycle(write("x") + u"no");
  EXPECT_EQ(result.code, 2);
  EXPECT_EQ(result.lastError, 2);
  EXPECT_EQ(here.platform().shell->recycle(u"C:\\nada").code, 2);
  EXPECT_EQ(here.platform().shell->recycle(u"").code, 2);
}

TEST_F(DesktopFiles, a_folder_does_not_go_to_the_trash_with_all_that_lies_in_it) {
  ASSERT_TRUE(QDir(folder.path()).mkdir("Doc0"));
  write("Doc0/b.doc");
  const auto result = here.platform().shell->recycle(logicPath(fromQt(folder.filePath("Doc0"))));
  EXPECT_EQ(result.code, 2);
  EXPECT_TRUE(QFile::exists(folder.filePath("Doc0/b.doc")));
}

TEST_F(DesktopFiles, where_there_is_no_trash_the_file_stays) {
  // The file lies on the file system of /proc, which takes no trash.
  const auto result = here.platform().shell->recycle(u"\\proc\\self\\comm");
  EXPECT_NE(result.code, 0);
  EXPECT_EQ(result.code, result.lastError);
  EXPECT_TRUE(QFile::exists("/proc/self/comm"));
}

TEST_F(DesktopFiles, the_screen_picture_shows_the_programs_windows_in_their_places) {
  const Text path = logicPath(fromQt(folder.filePath("Captura.bmp")));
  EXPECT_THROW(here.platform().shell->saveScreenPicture(path), Failure);
  QWidget red, blue;
  red.setStyleSheet("background: red");
  blue.setStyleSheet("background: blue");
  red.setGeometry(100, 100, 60, 40);
  blue.setGeometry(220, 140, 40, 40);
  red.show();
  blue.show();
  here.platform().shell->saveScreenPicture(path);
  const QImage picture(folder.filePath("Captura.bmp"), "BMP");
  const qreal sharp = qApp->devicePixelRatio();
  EXPECT_EQ(picture.size(), QSize(160, 80) * sharp);
  EXPECT_EQ(picture.pixelColor(QPoint(10, 10) * sharp), QColor(Qt::red));
  EXPECT_EQ(picture.pixelColor(QPoint(140, 60) * sharp), QColor(Qt::blue));
  EXPECT_THROW(here.platform().shell->saveScreenPicture(u"\\no\\hay\\x.bmp"), Failure);
}

TEST_F(DesktopFiles, versions_are_read_from_windows_programs_and_from_nothing_else) {
  QByteArray program("MZ");
  program += QByteArray(200, '\0') +
             QByteArray::fromHex(
                 "bd04effe00000100"
                 "0300020005000100") +
             QByteArray(40, '\0');
  const auto version = here.platform().shell->fileVersion(write("libro.dll", program));
  ASSERT_TRUE(version);
  EXPECT_EQ(version->major, 2);
  EXPECT_EQ(version->minor, 3);
  EXPECT_EQ(version->build, 5);  // the low word, as it is shown
  EXPECT_FALSE(here.platform().shell->fileVersion(write("texto.txt", "hola")));
  EXPECT_FALSE(
      here.platform().shell->fileVersion(write("corto.dll", "MZ" + QByteArray::fromHex("bd04effe00000100"))));
  EXPECT_FALSE(here.platform().shell->fileVersion(u"\\no\\hay"));
}

TEST_F(DesktopFiles, the_system_is_named) {
  EXPECT_FALSE(here.platform().shell->systemVersion().name.empty());
}

}  // namespace

}  // namespace ovalia::desktop
