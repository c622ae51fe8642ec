// A window from its coming to its going, with other windows over it.
#include <QDialog>
#include <QTimer>

#include "tests/desktop/SampleView.h"

namespace ovalia::desktop {

namespace {

using testing::ElementsAre;

}  // namespace

TEST_F(View, the_close_box_asks_and_a_refusal_keeps_the_window) {
  up([&] {
    form->staysOpen = true;
    windowOf(*form)->close();
    EXPECT_TRUE(form->Visible());
    EXPECT_TRUE(windowOf(*form)->isVisible());
    form->staysOpen = false;
    windowOf(*form)->close();
    EXPECT_FALSE(form->loaded());
    EXPECT_EQ(form->count("Unload"), 2);
  });
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(windowOf(*form), nullptr);
}

TEST_F(View, a_hidden_form_keeps_its_window_and_what_is_in_it) {
  QPointer<CardWindow> window;
  up([&] {
    window = windowOf(*form);
    typeText(target(u"txtUno"), QStringLiteral("queda"));
    form->Hide();
  });
  ASSERT_TRUE(window);
  EXPECT_FALSE(window->isVisible());
  up([&] {
    EXPECT_EQ(windowOf(*form), window);
    EXPECT_EQ(shown(u"txtUno"), QStringLiteral("queda"));
  });
}

TEST_F(View, the_form_may_go_while_one_of_its_widgets_handles_an_event) {
  form->on = [&](const std::string& entry) {
    if (entry == "Change txtUno" || entry == "Tool ID_Guardar" || entry == "Click chkAviso" ||
        entry == "Click cmdLista" || entry == "Change dtpFecha")
      form->Unload();
  };
  using Action = std::function<void()>;
  for (const Action& action :
       {Action([&] { typeText(target(u"txtUno"), QStringLiteral("x")); }),
        Action([&] { tool("ID_Guardar")->trigger(); }),
        Action([&] { QTest::mouseClick(target(u"chkAviso"), Qt::LeftButton, {}, QPoint(8, 9)); }),
        Action([&] { QTest::mouseClick(target(u"cmdLista"), Qt::LeftButton); }), Action([&] {
          focus(u"dtpFecha");
          typeText(target(u"dtpFecha"), QStringLiteral("05/03/25"));
        })}) {
    whileShown(*form, [&] {
      action();
      EXPECT_FALSE(form->loaded());
    });
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
}

TEST_F(View, the_form_may_go_while_a_handler_of_it_waits_for_a_dialog) {
  QPointer<CardWindow> window;
  form->on = [&](const std::string& entry) {
    if (entry != "Change txtUno") return;
    QTimer::singleShot(0, [&] { form->Unload(); });
    QTimer::singleShot(100, [] { QApplication::activeModalWidget()->close(); });
    QDialog box;
    box.setModal(true);
    box.exec();
    EXPECT_TRUE(window);  // the letter is still being typed
  };
  up([&] {
    window = windowOf(*form);
    typeText(target(u"txtUno"), QStringLiteral("x"));
    EXPECT_FALSE(form->loaded());
  });
  EXPECT_TRUE(eventually([&] { return !window; }));
}

TEST_F(View, a_failure_in_a_handler_is_logged_and_does_not_cross_the_loop) {
  form->on = [](const std::string& entry) {
    if (entry == "Change txtUno") throw Failure(failure::typeMismatch);
  };
  here.expectLogEntry(u"Evento de frmMuestra", 13);
  up([&] {
    typeText(target(u"txtUno"), QStringLiteral("x"));
    EXPECT_EQ(shown(u"txtUno"), QStringLiteral("x"));
  });
}

TEST_F(View, a_modal_form_over_another_returns_first) {
  const auto inner = std::make_shared<forms::CardForm>(forms::frmLlamada());
  std::vector<std::string> order;
  up([&] {
    whileShown(*inner, [&] {
      EXPECT_EQ(QApplication::activeModalWidget(), windowOf(*inner));
      order.push_back("inner up");
    });
    order.push_back("inner back");
  });
  order.push_back("outer back");
  EXPECT_THAT(order, ElementsAre("inner up", "inner back", "outer back"));
}

TEST_F(View, the_outer_form_hidden_from_within_returns_after_the_inner_one) {
  const auto inner = std::make_shared<forms::CardForm>(forms::frmLlamada());
  up([&] {
    whileShown(*inner, [&] {
      form->Hide();
      EXPECT_TRUE(inner->Visible());
    });
    EXPECT_FALSE(form->Visible());
  });
}

}  // namespace ovalia::desktop
