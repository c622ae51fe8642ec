// Cards on a desk of several screens: on each of those that the environment gives.
#include <QScreen>

#include "desktop/DesktopScreen.h"
#include "routines/WindowPlace.h"
#include "tests/desktop/Desk.h"

namespace ovalia::desktop {

namespace {

class Monitors : public DeskTest {
 protected:
  // A card that puts itself where it stood when it was last closed.
  class Keeping : public forms::CardForm {
   public:
    Keeping() : CardForm(forms::frmLlamada()) {}

   protected:
    void onLoad() override { RestaurarVentana(shared_from_this()); }
    void onUnload(bool&) override { GuardarVentana(shared_from_this()); }
  };

  void SetUp() override {
    DeskTest::SetUp();
    here.screen.screenWidth = desk.width();
    here.screen.screenHeight = desk.height();
  }

  DesktopScreen desk;
};

TEST_F(Monitors, each_takes_back_the_cards_that_were_closed_on_it) {
  for (const QScreen* screen : QApplication::screens()) {
    const QPoint place = screen->availableGeometry().topLeft() + QPoint(40, 60);
    const auto card = std::make_shared<Keeping>();
    whileShown(*card, [&] {
      windowOf(*card)->move(place);
      QCoreApplication::processEvents();
      card->userCloses();
    });
    const auto again = std::make_shared<Keeping>();
    whileShown(*again, [&] {
      QCoreApplication::processEvents();
      // Some platforms set the frame's edge off.
      const QPoint apart = windowOf(*again)->frameGeometry().topLeft() - place;
      EXPECT_LE(apart.manhattanLength(), 4) << screen->name().toStdString();
      EXPECT_EQ(windowOf(*again)->screen(), screen);
    });
  }
}

TEST_F(Monitors, a_card_from_one_that_is_gone_comes_up_wholly_on_another) {
  for (const TextView key : {u"Left", u"Top"}) here.settings.save(u"Agencia", u"frmLlamada", key, u"900000");
  const auto card = std::make_shared<Keeping>();
  whileShown(*card, [&] {
    QCoreApplication::processEvents();
    const QRect frame = windowOf(*card)->frameGeometry();
    EXPECT_TRUE(windowOf(*card)->screen()->availableGeometry().contains(frame));
  });
}

}  // namespace

}  // namespace ovalia::desktop
