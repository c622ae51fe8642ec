// The two forms about models as the toolkit draws them: keys, buttons, place and size, and their pictures.
#include <QAccessible>
#include <QPushButton>
#include <QScreen>

#include "desktop/Scale.h"
#include "tests/deskkit/Cards.h"
#include "tests/desktop/ModelForms.h"
#include "tests/desktop/Pictures.h"

namespace ovalia::desktop {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

QPushButton* button(const forms::Form& form, TextView name) {
  return qobject_cast<QPushButton*>(deskkit::widgetOf(form, name));
}

}  // namespace

TEST_F(ModelForms, each_form_shows_its_caption_and_every_control_with_its_own) {
  const auto shows = [&] {
    EXPECT_EQ(windowOf(*form)->windowTitle(), qname(form->design().caption));
    for (const auto& control : form->controls()) {
      if (!control->Visible()) continue;
      QWidget* drawn = widget(*form, control->Name());
      ASSERT_NE(drawn, nullptr) << toUtf8(control->Name());
      EXPECT_TRUE(drawn->isVisible()) << toUtf8(control->Name());
      if (auto* pressed = qobject_cast<QPushButton*>(drawn)) {
        EXPECT_EQ(pressed->text(), qname(control->design().caption));
      }
    }
  };
  making(shows);
  fill(2);
  list(shows);
}

TEST_F(ModelForms, everything_that_can_be_reached_has_a_name_for_those_who_hear_it) {
  const auto named = [&] {
    for (const auto& control : form->controls()) {
      QWidget* reached = target(*form, control->Name());
      if (!reached || reached->focusPolicy() == Qt::NoFocus) continue;
      EXPECT_FALSE(QAccessible::queryAccessibleInterface(reached)->text(QAccessible::Name).isEmpty())
          << toUtf8(control->Name());
    }
  };
  making(named);
  list(named);
}

TEST_F(ModelForms, tab_goes_once_through_all_in_the_order_of_the_form) {
  const auto walks = [&] {
    std::vector<forms::ControlRef> reachable;
    for (const auto& control : form->controls())
      if (control->takesFocus() && control->design().tab >= 0) reachable.push_back(control);
    std::ranges::sort(reachable, {}, [](const auto& control) { return control->design().tab; });
    for (const auto& expected : reachable) {
      EXPECT_EQ(active(*form), expected->Name());
      EXPECT_EQ(QApplication::focusWidget(), target(*form, expected->Name()));
      deskkit::tab();
    }
    EXPECT_EQ(active(*form), reachable.front()->Name());
  };
  making(walks);
  fill(2);
  list(walks);
}

TEST_F(ModelForms, enter_is_the_default_button_but_in_the_notes_and_on_another_button) {
  making([&] {
    EXPECT_TRUE(button(*form, u"cmdAceptar")->isDefault());
    deskkit::enter();
    EXPECT_THAT(form->log, ElementsAre("Click cmdAceptar"));
    form->userFocuses(*form->control(u"txtNotas"));
    deskkit::enter();
    EXPECT_EQ(count("Click cmdAceptar"), 1);
    EXPECT_EQ(form->as<forms::TextBox>(u"txtNotas")->text(), u"\r\n");
    form->userFocuses(*form->control(u"cmdMateria"));
    deskkit::enter();
    EXPECT_EQ(count("Click cmdMateria"), 1);
    form->userFocuses(*form->control(u"cmdAceptar"));
    deskkit::enter();
    EXPECT_EQ(count("Click cmdAceptar"), 2);
  });
}

TEST_F(ModelForms, escape_is_the_cancel_button_wherever_the_focus_is) {
  const auto cancels = [&] {
    for (const TextView box : {u"txtMateria", u"txtNotas", u"cmdMateria"}) {
      form->userFocuses(*form->control(box));
      form->log.clear();
      deskkit::escape();
      EXPECT_THAT(form->log, ElementsAre("Click cmdCancelar"));
    }
  };
  making(cancels);
  fill(1);
  list(cancels);
}

TEST_F(ModelForms, enter_in_the_list_chooses_nothing_by_itself) {
  fill(2);
  list([&] {
    deskkit::enter();
    EXPECT_THAT(form->log, IsEmpty());
  });
}

TEST_F(ModelForms, shift_and_enter_in_a_box_is_told_and_writes_nothing) {
  making([&] {
    for (const TextView box : {u"txtMateria", u"txtSubMateria"}) {
      form->userFocuses(*form->control(box));
      deskkit::enter(Qt::ShiftModifier);
      EXPECT_EQ(count("ShiftEnter " + toUtf8(box)), 1);
    }
    EXPECT_EQ(count("Click cmdAceptar"), 0);
  });
}

TEST_F(ModelForms, the_underlined_letters_press_the_buttons) {
  making([&] {
    deskkit::letters("M");
    EXPECT_TRUE(eventually([&] { return count("Click cmdMateria") == 1; }));
    deskkit::letters("S");
    EXPECT_TRUE(eventually([&] { return count("Click cmdSubMateria") == 1; }));
    deskkit::letters("A");
    EXPECT_TRUE(eventually([&] { return count("Click cmdAceptar") == 1; }));
    deskkit::letters("C");
    EXPECT_TRUE(eventually([&] { return count("Click cmdCancelar") == 1; }));
  });
}

TEST_F(ModelForms, a_sign_that_the_form_refuses_reaches_no_box_by_whatever_way_it_is_typed) {
  making([&] {
    form->refusedSign = u'\'';
    form->userFocuses(*form->control(u"txtMateria"));
    QWidget* box = target(*form, u"txtMateria");
    typeText(box, "D'Ors");
    EXPECT_EQ(shown(*form, u"txtMateria"), "DOrs");
    QInputMethodEvent composed;
    composed.setCommitString(QStringLiteral("é'ú"));
    QApplication::sendEvent(box, &composed);
    EXPECT_EQ(form->as<forms::TextBox>(u"txtMateria")->text(), u"DOrséú");
  });
}

TEST_F(ModelForms, the_colour_behind_a_box_is_the_forms_and_its_text_can_be_read_on_it) {
  fill(1);
  list([&] {
    const auto box = form->as<forms::TextBox>(u"txtTMateria");
    QWidget* drawn = target(*form, u"txtTMateria");
    box->setText(u"Fianza");
    box->setEnabled(false);
    box->setBackColor(0xC0A080);
    EXPECT_EQ(drawn->palette().color(QPalette::Disabled, QPalette::Base), QColor(0x80, 0xA0, 0xC0));
    EXPECT_EQ(drawn->palette().color(QPalette::Disabled, QPalette::Text), QColor(Qt::black));
    box->setBackColor(forms::windowBackground);
    EXPECT_EQ(drawn->palette().color(QPalette::Active, QPalette::Base),
              QApplication::palette().color(QPalette::Active, QPalette::Base));
  });
}

TEST_F(ModelForms, a_form_without_bars_stands_in_the_middle_of_the_window_over_which_it_comes_and_stays_put) {
  QWidget main;
  main.setGeometry(100, 60, 640, 420);
  main.show();
  QApplication::setActiveWindow(&main);
  making([&] {
    CardWindow& window = *windowOf(*form);
    const QPoint apart = window.frameGeometry().center() - main.frameGeometry().center();
    EXPECT_LE(apart.manhattanLength(), 4);
    EXPECT_EQ(window.windowHandle()->transientParent(), main.windowHandle());
    EXPECT_TRUE(window.isModal());
    EXPECT_NEAR(form->Left(), Scale::of(window).twips(window.x()), 15);
    window.move(20, 30);
    QCoreApplication::processEvents();
    form->setCaption(u"Otro");
    EXPECT_EQ(window.frameGeometry().topLeft(), QPoint(20, 30));
  });
}

TEST_F(ModelForms, a_form_without_bars_gets_no_smaller_than_its_minimum) {
  making([&] {
    CardWindow& window = *windowOf(*form);
    const Scale scale = Scale::of(window);
    window.resize(50, 50);
    QCoreApplication::processEvents();
    EXPECT_EQ(window.size(), QSize(scale.pixels(form->design().minimumWidth - forms::frameWidth),
                                   scale.pixels(form->design().minimumHeight - form->design().frame)));
    EXPECT_NEAR(form->Height(), form->design().minimumHeight, 15);
  });
}

TEST_F(ModelForms, what_the_user_adds_to_the_window_the_grid_gets) {
  fill(3);
  list([&] {
    CardWindow& window = *windowOf(*form);
    const QSize before = view().size();
    window.resize(window.size() + QSize(60, 45));
    QCoreApplication::processEvents();
    EXPECT_NEAR((view().size() - before).width(), 60, 1);
    EXPECT_NEAR((view().size() - before).height(), 45, 1);
    EXPECT_TRUE(window.rect().contains(button(*form, u"cmdCancelar")->geometry()));
  });
}

// At the resolution that the environment gives, as the pictures of the cards.
class ModelCardPictures : public ModelForms {
 protected:
  void looksRight(const QString& name) {
    CardWindow& window = *windowOf(*form);
    const std::pair<const char*, double> sizes[] = {{"minimum", 0}, {"first", 1}, {"enlarged", 1.5}};
    for (const auto& [kind, factor] : sizes) {
      const forms::FormDesign& design = form->design();
      form->setWidth(std::max<double>(design.minimumWidth, factor * design.width));
      form->setHeight(std::max<double>(design.minimumHeight, factor * design.height));
      QCoreApplication::processEvents();
      EXPECT_EQ(cutTexts(window).join("\n").toStdString(), "") << kind;
      EXPECT_EQ(overlaps(*form).join("\n").toStdString(), "") << kind;
      EXPECT_TRUE(savePicture(window, name, kind));
    }
  }
};

TEST_F(ModelCardPictures, of_the_making_of_a_model_cut_nothing_and_overlap_nothing) {
  making([&] {
    form->as<forms::TextBox>(u"txtNombre")->setText(u"Contrato de arras.doc");
    form->as<forms::TextBox>(u"txtNotas")->setText(u"Con señal.\r\nPara vivienda habitual.");
    form->as<forms::TextBox>(u"txtMateria")->setText(u"Compraventa");
    form->as<forms::TextBox>(u"txtSubMateria")->setText(u"Arras");
    looksRight("frmModelo");
  });
}

TEST_F(ModelCardPictures, of_the_list_of_models_cut_nothing_and_overlap_nothing) {
  fill(30);
  list([&] {
    form->as<forms::TextBox>(u"txtMateria")->setText(u"Alquiler");
    const auto part = form->as<forms::TextBox>(u"txtTMateria");
    part->setText(u"Fianza");
    part->setEnabled(false);
    part->setBackColor(0xC0C0C0);
    form->control(u"cmdSubMateria")->setEnabled(false);
    form->control(u"cmdSel")->setCaption(u"Quitar Selec.");
    clickRow(1);
    clickRow(3, Qt::ControlModifier);
    looksRight("ListaModelos");
  });
}

}  // namespace ovalia::desktop
