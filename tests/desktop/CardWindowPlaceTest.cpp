#include <QScreen>

#include "tests/desktop/Desk.h"
#include "tests/desktop/SampleForm.h"

namespace ovalia::desktop {

namespace {

class WindowPlace : public DeskTest {
 protected:
  std::shared_ptr<SampleForm> form = std::make_shared<SampleForm>();
};

TEST_F(WindowPlace, a_window_that_nobody_moved_keeps_the_forms_own_numbers) {
  form->setLeft(1001);
  form->setTop(502);
  form->setWidth(6752);
  whileShown(*form, [&] {
    QCoreApplication::processEvents();
    EXPECT_EQ(windowOf(*form)->frameGeometry().topLeft(), QPoint(67, 33));
  });
  EXPECT_EQ(form->Left(), 1001);
  EXPECT_EQ(form->Top(), 502);
  EXPECT_EQ(form->Width(), 6752);
  EXPECT_EQ(form->Height(), 5460);
}

TEST_F(WindowPlace, what_the_user_moves_and_resizes_is_told_in_twips) {
  whileShown(*form, [&] {
    CardWindow& window = *windowOf(*form);
    form->forget();
    window.move(120, 80);
    EXPECT_TRUE(eventually([&] { return form->Left() == 1800 && form->Top() == 1200; }));
    EXPECT_EQ(form->Width(), 6745);
    window.resize(window.width() + 20, window.height() + 10);
    EXPECT_TRUE(eventually([&] { return form->Width() != 6745; }));
    EXPECT_NEAR(form->Width(), 6745 + 300, 8);
    EXPECT_NEAR(form->Height(), 5460 + 150, 8);
    EXPECT_EQ(form->count("Resize"), 1);
    window.resize(window.width() - 20, window.height() - 10);
    EXPECT_TRUE(eventually([&] { return form->Width() == 6745; }));
  });
}

TEST_F(WindowPlace, the_window_state_goes_both_ways) {
  whileShown(*form, [&] {
    CardWindow& window = *windowOf(*form);
    form->setWindowState(2);
    EXPECT_TRUE(eventually([&] { return window.isMaximized() && form->Width() > 6745; }));
    form->setWindowState(0);
    EXPECT_TRUE(eventually([&] { return !window.isMaximized() && form->Width() == 6745; }));
    window.showMaximized();
    EXPECT_TRUE(eventually([&] { return form->WindowState() == 2; }));
    window.showMinimized();
    EXPECT_TRUE(eventually([&] { return form->WindowState() == 1; }));
  });
}

TEST_F(WindowPlace, a_maximised_form_opens_maximised_and_goes_back_to_its_place) {
  form->setLeft(900);
  form->setTop(600);
  form->setWindowState(2);
  whileShown(*form, [&] {
    EXPECT_TRUE(eventually([&] { return windowOf(*form)->isMaximized(); }));
    windowOf(*form)->showNormal();
    EXPECT_TRUE(eventually([&] { return form->WindowState() == 0; }));
    EXPECT_TRUE(eventually([&] { return form->Width() == 6745; }));
    EXPECT_EQ(form->Left(), 900);
  });
}

TEST_F(WindowPlace, a_place_beyond_every_screen_is_drawn_on_one_and_stays_as_it_is_in_the_form) {
  form->setLeft(90000);
  form->setTop(-5000);
  whileShown(*form, [&] {
    QCoreApplication::processEvents();
    const QRect frame = windowOf(*form)->geometry();
    EXPECT_TRUE(QApplication::primaryScreen()->availableGeometry().contains(frame))
        << frame.x() << " " << frame.y();
  });
  EXPECT_EQ(form->Left(), 90000);
  EXPECT_EQ(form->Top(), -5000);
}

TEST_F(WindowPlace, the_caption_is_the_windows_title) {
  whileShown(*form, [&] {
    form->setCaption(u"Nota & más");
    EXPECT_EQ(windowOf(*form)->windowTitle(), QStringLiteral("Nota & más"));
  });
}

}  // namespace

}  // namespace ovalia::desktop
