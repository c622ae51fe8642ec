#include "desktop/Progress.h"

#include <QPaintEvent>
#include <QTimer>

#include "desktop/LivelyFiles.h"
#include "tests/desktop/Desk.h"
#include "tests/desktop/SampleView.h"

namespace ovalia::desktop {

namespace {

using testing::IsEmpty;

class Progressing : public View {
 protected:
  Progressing() {
    Progress::current().tell = [this](const QString& text) {
      told << text;
      if (on && !text.isEmpty()) on();
    };
  }
  ~Progressing() override { Progress::current().tell = {}; }
  void TearDown() override {
    ended();
    View::TearDown();
  }
  // The loop comes round.
  bool ended() {
    return eventually([&] { return told.isEmpty() || told.back().isEmpty(); });
  }
  Text path(const QString& name) const { return logicPath(fromQt(folder.filePath(name))); }
  void work(int files, int milliseconds) {
    for (int i = 0; i < files; ++i) {
      Progress::current().next();
      QTest::qSleep(milliseconds);
      Progress::current().breathe();
    }
  }

  QTemporaryDir folder;
  QStringList told;
  std::function<void()> on;
};

class Painted : public QObject {
 public:
  int count = 0;
  bool eventFilter(QObject*, QEvent* event) override {
    count += event->type() == QEvent::Paint;
    return false;
  }
};

TEST_F(Progressing, tells_which_of_how_many_is_being_copied_and_when_it_is_over) {
  up([&] {
    Progress::current().expect(10);
    work(10, 50);
    EXPECT_THAT(told, testing::Contains(QStringLiteral("Copiando documento 10 de 10")));
    EXPECT_FALSE(told.back().isEmpty());
    EXPECT_TRUE(ended());
    told.clear();
    work(8, 60);
    EXPECT_EQ(told.back(), QStringLiteral("Copiando documentos: 8")) << "where nobody knows how many";
  });
}

TEST_F(Progressing, says_nothing_of_what_takes_a_moment) {
  up([&] {
    Progress::current().expect(3);
    work(3, 1);
    QCoreApplication::processEvents();
    QTest::qWait(50);
    EXPECT_THAT(told, IsEmpty());
  });
}

TEST_F(Progressing, windows_are_drawn_meanwhile_and_what_the_user_does_gets_nowhere) {
  form->setKeyPreview(true);
  up([&] {
    Painted painted;
    windowOf(*form)->installEventFilter(&painted);
    QTimer redraw;
    redraw.callOnTimeout([&] {
      windowOf(*form)->update();
      QTest::keyClick(target(u"txtUno"), Qt::Key_X);
      QTest::mouseClick(target(u"cmdLista"), Qt::LeftButton);
      windowOf(*form)->close();
    });
    redraw.start(1);
    work(10, 50);
    redraw.stop();
    EXPECT_GE(painted.count, 5);
    EXPECT_THAT(form->log, IsEmpty());
    EXPECT_TRUE(form->Visible());
    EXPECT_EQ(value(u"txtUno"), u"");
    QTest::keyClick(target(u"txtUno"), Qt::Key_X);
    EXPECT_EQ(form->count("Key 88 0"), 1) << "afterwards all is as before";
  });
}

TEST_F(Progressing, a_box_that_comes_between_does_not_end_it_and_can_be_answered) {
  up([&] {
    Progress::current().expect(12);
    work(6, 60);
    QTimer::singleShot(100, [] { QApplication::activeModalWidget()->close(); });
    QDialog box(windowOf(*form));
    box.exec();
    EXPECT_FALSE(told.contains(QString()));
    work(6, 60);
    EXPECT_EQ(told.back(), QStringLiteral("Copiando documento 12 de 12"));
  });
}

TEST_F(Progressing, a_copy_counts_and_gives_its_failure) {
  up([&] {
    QFile source(folder.filePath("uno.txt"));
    ASSERT_TRUE(source.open(QFile::WriteOnly));
    source.write("uno");
    source.close();
    LivelyFiles files;
    files.copy(path("uno.txt"), path("dos.txt"), false);
    QFile copy(folder.filePath("dos.txt"));
    ASSERT_TRUE(copy.open(QFile::ReadOnly));
    EXPECT_EQ(copy.readAll(), "uno");
    const auto number = [&](TextView from, TextView to) {
      try {
        files.copy(from, to, false);
        return 0;
      } catch (const Failure& failure) {
        return static_cast<int>(failure.number());
      }
    };
    EXPECT_EQ(number(path("uno.txt"), path("dos.txt")), failure::fileAlreadyExists);
    EXPECT_EQ(number(path("tres.txt"), path("cuatro.txt")), failure::fileNotFound);
  });
}

}  // namespace

}  // namespace ovalia::desktop
