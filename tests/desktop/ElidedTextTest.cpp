#include "desktop/ElidedText.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QStyleOptionComboBox>

#include "tests/desktop/Desk.h"

namespace ovalia::desktop {

namespace {

class Elided : public DeskTest {
 protected:
  static QImage drawn(QWidget& widget) { return widget.grab().toImage(); }
};

TEST_F(Elided, a_text_that_is_too_long_ends_in_dots_while_nobody_writes_in_it) {
  ElidedLineEdit box;
  QLineEdit plain;
  for (QLineEdit* each : {static_cast<QLineEdit*>(&box), &plain}) each->resize(90, 24);
  box.setText("Administración de fincas");
  // Drawn as a plain box would draw the text that ends in dots where the room ends.
  QString seen;
  for (int room = 90; room > 60 && seen.isEmpty(); --room) {
    plain.setText(box.fontMetrics().elidedText(box.text(), Qt::ElideRight, room));
    if (drawn(plain) == drawn(box)) seen = plain.text();
  }
  EXPECT_TRUE(seen.startsWith("Adminis") && seen.endsWith(u'…')) << seen.toStdString();
  EXPECT_EQ(box.text(), "Administración de fincas");
}

TEST_F(Elided, it_is_whole_again_for_the_one_who_writes) {
  QWidget window;
  ElidedLineEdit box(&window);
  QLineEdit other(&window);
  for (QLineEdit* each : {static_cast<QLineEdit*>(&box), &other}) {
    each->resize(90, 24);
    each->setText("Administración de fincas");
    each->setCursorPosition(0);
  }
  window.show();
  QApplication::setActiveWindow(&window);
  box.setFocus();
  const QImage writing = drawn(box);
  other.setFocus();
  EXPECT_EQ(writing.size(), drawn(other).size());
  EXPECT_NE(writing, drawn(box));
}

TEST_F(Elided, a_name_in_a_list_of_a_card_ends_in_dots_and_its_list_shows_it_whole) {
  const QString name = QStringLiteral("María de los Ángeles Fernández de Córdoba");
  const auto card = std::make_shared<forms::CardForm>(forms::frmNota());
  whileShown(*card, [&] {
    auto* combo = qobject_cast<QComboBox*>(target(*card, u"cboUsuario"));
    QStyleOptionComboBox option;
    option.initFrom(combo);
    const QRect room =
        combo->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, combo);
    const QString fits = combo->fontMetrics().elidedText(name, Qt::ElideRight, room.width() - 2);
    ASSERT_TRUE(fits.endsWith(u'…'));
    const auto list = card->as<forms::ComboBox>(u"cboUsuario");
    for (const QString& entry : {name, fits}) list->AddItem(fromQt(entry));

    list->put(u"", fromQt(name));
    const QImage cut = drawn(*combo);
    EXPECT_EQ(combo->currentText(), name);
    combo->showPopup();
    EXPECT_GE(combo->view()->width(), combo->fontMetrics().horizontalAdvance(name));
    combo->hidePopup();
    list->put(u"", fromQt(fits));
    EXPECT_EQ(cut, drawn(*combo));
  });
}

}  // namespace

}  // namespace ovalia::desktop
