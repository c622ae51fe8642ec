// The four cards as the toolkit draws them, at the resolution that the environment gives: what a designer
// would look at, and what can be measured of it.
#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QGroupBox>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyleOption>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>

#include "tests/desktop/Desk.h"

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

  static QString artefact(const Card& card, const char* kind) {
    QDir().mkpath("pictures");
    return QStringLiteral("pictures/%1_%2_%3dpi_x%4.png")
        .arg(card.name, kind)
        .arg(QApplication::primaryScreen()->logicalDotsPerInchX())
        .arg(qApp->devicePixelRatio());
  }

  static QSize room(const QWidget& widget) {
    if (auto* button = qobject_cast<const QPushButton*>(&widget)) {
      QStyleOptionButton option;
      option.initFrom(button);
      return button->style()->subElementRect(QStyle::SE_PushButtonContents, &option, button).size();
    }
    if (auto* check = qobject_cast<const QCheckBox*>(&widget)) {
      QStyleOptionButton option;
      option.initFrom(check);
      return check->style()->subElementRect(QStyle::SE_CheckBoxContents, &option, check).size();
    }
    return widget.size();
  }

  static QString textOf(const QWidget& widget) {
    if (auto* label = qobject_cast<const QLabel*>(&widget)) return label->text();
    if (auto* button = qobject_cast<const QAbstractButton*>(&widget))
      return qobject_cast<const QToolButton*>(button) ? QString() : spoken(fromQt(button->text()));
    if (auto* line = qobject_cast<const QLineEdit*>(&widget)) return line->text();
    if (auto* combo = qobject_cast<const QComboBox*>(&widget))
      return combo->isEditable() ? QString() : combo->currentText();
    return {};
  }

  // Every text that does not fit the place it has.
  static QStringList cutTexts(const CardWindow& window) {
    QStringList cut;
    for (const QWidget* widget : window.findChildren<QWidget*>()) {
      const QString text = textOf(*widget);
      if (!widget->isVisible() || text.isEmpty()) continue;
      QSize place = room(*widget);
      if (auto* combo = qobject_cast<const QComboBox*>(widget)) {
        QStyleOptionComboBox option;
        option.initFrom(combo);
        place = combo->style()
                    ->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, combo)
                    .size();
      }
      if (auto* line = qobject_cast<const QLineEdit*>(widget)) {
        QStyleOptionFrame option;
        option.initFrom(line);
        place =
            line->style()->subElementRect(QStyle::SE_LineEditContents, &option, line).size() - QSize(4, 0);
        if (!line->actions().isEmpty()) place -= QSize(line->height(), 0);
      }
      const QFontMetrics letters = widget->fontMetrics();
      const QSize needed(letters.horizontalAdvance(text), letters.height());
      if (needed.width() > place.width() || needed.height() > place.height() + 1)
        cut << QStringLiteral("%1 «%2» needs %3x%4, has %5x%6")
                   .arg(widget->objectName(), text)
                   .arg(needed.width())
                   .arg(needed.height())
                   .arg(place.width())
                   .arg(place.height());
    }
    return cut;
  }

  // Lines of an array are found in the order of the design.
  static QWidget* drawn(forms::Form& form, const forms::Control& control) {
    const auto all = windowOf(form)->findChildren<QWidget*>(qname(control.Name()));
    int place = 0;
    for (const auto& other : form.controls()) {
      if (other.get() == &control) break;
      place += other->Name() == control.Name();
    }
    return place < all.size() ? all[place] : nullptr;
  }

  // Pairs of controls that lie over each other.
  static QStringList overlaps(forms::Form& form) {
    QStringList found;
    const auto& controls = form.controls();
    for (std::size_t i = 0; i < controls.size(); ++i)
      for (std::size_t j = i + 1; j < controls.size(); ++j) {
        const QWidget* a = drawn(form, *controls[i]);
        const QWidget* b = drawn(form, *controls[j]);
        if (!a || !b || a->parentWidget() != b->parentWidget() || !a->isVisible() || !b->isVisible())
          continue;
        if (a->geometry().intersects(b->geometry()))
          found << a->objectName() + QStringLiteral(" over ") + b->objectName();
      }
    return found;
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
    EXPECT_TRUE(window.grab().save(artefact(GetParam(), "minimum")));
    card->setWidth(card->design().width);
    card->setHeight(card->design().height);
    QCoreApplication::processEvents();
    EXPECT_EQ(cutTexts(window).join("\n").toStdString(), "");
    EXPECT_EQ(overlaps(*card).join("\n").toStdString(), "");
    EXPECT_TRUE(window.grab().save(artefact(GetParam(), "first")));
    card->setWidth(card->Width() * 1.5);
    card->setHeight(card->Height() * 1.4);
    QCoreApplication::processEvents();
    EXPECT_EQ(cutTexts(window).join("\n").toStdString(), "");
    EXPECT_EQ(overlaps(*card).join("\n").toStdString(), "");
    EXPECT_TRUE(window.grab().save(artefact(GetParam(), "enlarged")));
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
