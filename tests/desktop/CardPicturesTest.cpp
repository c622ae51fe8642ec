// The four cards as the toolkit draws them, at the resolution that the environment gives: what a designer
// would look at, and what can be measured of it.
#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QComboBox>
#include <QPlainTextEdit>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>

#include "tests/desktop/Desk.h"
#include "tests/desktop/Pictures.h"

namespace ovalia::desktop {

namespace {

struct Card {
  const char* name;
  const forms::FormDesign& (*design)();
};

void PrintTo(const Card& card, std::ostream* out) { *out << card.name; }

class CardPictures : public DeskTest, public testing::WithParamInterface<Card> {
 protected:
  // A card in use: long texts, a few documents.
  static void fill(forms::CardForm& card) {
    card.setCaption(u"Nota nº 4073 de la Señora Ibáñez");
    const auto text = [&](TextView name, TextView value) {
      if (card.hasControl(name)) card.control(name)->put(u"", value);
    };
    for (const TextView name :
         {u"cboUsuario", u"cboUsuarioAviso", u"cboComercial", u"cboAcceso", u"cboTiempoAviso"})
      if (card.hasControl(name)) card.as<forms::ComboBox>(name)->AddItem(u"María José");
    for (const TextView name : {u"cboUsuario", u"cboUsuarioAviso", u"cboComercial"})
      text(name, u"María José");
    text(u"txtAsunto", u"Llaves del ático de la calle Bailén");
    text(u"cboAcceso", u"Privada");
    text(u"txtCategorias", u"Ventas; Urgente");
    text(u"txtUbicacion", u"Avenida de la Constitución, 12, 3º B");
    text(u"txtDonde", u"El Correo de Andalucía");
    text(u"txtCliente", u"Ibáñez Núñez, Begoña");
    text(u"txtTfnoCliente", u"954 123 456");
    text(u"txtOtraAgencia", u"Agencia Giralda");
    text(u"cboTiempoAviso", u"30 minutos");
    text(u"txtNDias", u"15");
    for (const TextView name :
         {u"dtpFechaAlta", u"dtpFechaFin", u"dtpFechaAviso", u"dtpFechaInicio", u"dtpFechaEnvio"})
      if (card.hasControl(name)) card.control(name)->put(u"", Date{46000});
    for (const TextView name : {u"dtpHoraAlta", u"dtpHoraFin", u"dtpHoraEnvio"})
      if (card.hasControl(name)) card.control(name)->put(u"", Date{0.4375});
    text(u"txtNotas", u"Pasar a recogerlas antes del viernes.\r\nPreguntar por don Julián.");
    const auto list = card.as<forms::ListView>(u"LsvDocu");
    for (const TextView kind : {u"doc", u"txt", u"xls", u"jpg", u"zip"})
      list->Add({Text(kind), join(u"Contrato.", kind), Text(kind)});
  }
};

constexpr Card cards[] = {{"frmNota", forms::frmNota},
                          {"frmVisita", forms::frmVisita},
                          {"frmAnuncio", forms::frmAnuncio},
                          {"frmLlamada", forms::frmLlamada}};

INSTANTIATE_TEST_SUITE_P(Cards, CardPictures, testing::ValuesIn(cards),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_P(CardPictures, no_text_is_cut_and_nothing_overlaps_at_the_minimum_size_the_first_and_enlarged) {
  const auto card = std::make_shared<forms::CardForm>(GetParam().design());
  card->setLeft(300);
  card->setTop(300);
  // From just above the minimum: at it the layout stays as it was before.
  card->setWidth(card->design().minimumWidth + 1);
  card->setHeight(card->design().minimumHeight + 1);
  fill(*card);
  whileShown(*card, [&] {
    CardWindow& window = *windowOf(*card);
    EXPECT_EQ(cutTexts(window).join("\n").toStdString(), "");
    EXPECT_EQ(overlaps(*card).join("\n").toStdString(), "");
    EXPECT_TRUE(savePicture(window, GetParam().name, "minimum"));
    card->setWidth(card->design().width);
    card->setHeight(card->design().height);
    QCoreApplication::processEvents();
    EXPECT_EQ(cutTexts(window).join("\n").toStdString(), "");
    EXPECT_EQ(overlaps(*card).join("\n").toStdString(), "");
    EXPECT_TRUE(savePicture(window, GetParam().name, "first"));
    card->setWidth(card->Width() * 1.5);
    card->setHeight(card->Height() * 1.4);
    QCoreApplication::processEvents();
    EXPECT_EQ(cutTexts(window).join("\n").toStdString(), "");
    EXPECT_EQ(overlaps(*card).join("\n").toStdString(), "");
    EXPECT_TRUE(savePicture(window, GetParam().name, "enlarged"));
  });
}

TEST_P(CardPictures, every_control_is_named_for_those_who_hear_it_and_has_a_tip_where_one_acts) {
  const auto card = std::make_shared<forms::CardForm>(GetParam().design());
  whileShown(*card, [&] {
    for (const auto& control : card->controls()) {
      const QWidget* typedInto = target(*card, control->Name());
      if (!typedInto || typedInto->focusPolicy() == Qt::NoFocus) continue;
      EXPECT_FALSE(typedInto->accessibleName().isEmpty()) << toUtf8(control->Name());
      EXPECT_FALSE(typedInto->toolTip().isEmpty()) << toUtf8(control->Name());
      if (!control->design().tip.empty()) {
        EXPECT_EQ(typedInto->toolTip(), qname(control->design().tip));
      }
    }
    for (auto* button : windowOf(*card)->findChild<QToolBar*>()->findChildren<QToolButton*>()) {
      if (!button->defaultAction()) continue;
      EXPECT_FALSE(button->accessibleName().isEmpty());
      EXPECT_FALSE(button->toolTip().isEmpty());
    }
  });
}

// The parts of composite controls too: the tick and the calendar of a date, for instance.
TEST_P(CardPictures, everything_that_can_be_acted_on_has_a_name_for_those_who_hear_it) {
  const auto card = std::make_shared<forms::CardForm>(GetParam().design());
  whileShown(*card, [&] {
    int asked = 0;
    for (QWidget* part : windowOf(*card)->findChildren<QWidget*>()) {
      const bool acts = qobject_cast<QAbstractButton*>(part) || qobject_cast<QLineEdit*>(part) ||
                        qobject_cast<QComboBox*>(part) || qobject_cast<QPlainTextEdit*>(part) ||
                        qobject_cast<QAbstractItemView*>(part);
      const bool ofCombo = qobject_cast<QComboBox*>(part->parentWidget());
      if (!acts || ofCombo || !part->isVisible() || part->objectName().startsWith("qt_")) continue;
      const QAccessibleInterface* told = QAccessible::queryAccessibleInterface(part);
      ASSERT_NE(told, nullptr);
      EXPECT_FALSE(told->text(QAccessible::Name).isEmpty())
          << part->metaObject()->className() << " in " << part->parentWidget()->objectName().toStdString();
      ++asked;
    }
    EXPECT_GT(asked, 15);
  });
}

TEST_P(CardPictures, tab_goes_once_through_all_that_can_be_reached_from_above_to_below) {
  const auto card = std::make_shared<forms::CardForm>(GetParam().design());
  whileShown(*card, [&] {
    std::vector<forms::ControlRef> reachable;
    for (const auto& control : card->controls())
      if (control->takesFocus() && control->design().tab >= 0) reachable.push_back(control);
    std::ranges::sort(reachable, {}, [](const auto& control) { return control->design().tab; });
    for (const auto& expected : reachable) {
      EXPECT_EQ(active(*card), expected->Name());
      QWidget* holder = QApplication::focusWidget();
      EXPECT_EQ(holder, target(*card, expected->Name()));
      key(holder, Qt::Key_Tab, {}, "\t");
    }
    EXPECT_EQ(active(*card), reachable.front()->Name());
    // No picker comes first: it would compare itself with the record before anybody touched it.
    EXPECT_NE(reachable.front()->type(), forms::ControlType::DTPicker);
  });
}

}  // namespace

}  // namespace ovalia::desktop
