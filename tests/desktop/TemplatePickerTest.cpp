#include "desktop/TemplatePicker.h"

#include <QDir>
#include <QTimer>
#include <QWindow>

#include "desktop/TemplatePickerDialog.h"
#include "tests/desktop/Desk.h"

namespace ovalia::desktop {

namespace {

using Where = PrintWish::Where;

class Templates : public DeskTest {
 protected:
  void SetUp() override {
    DeskTest::SetUp();
    for (const TextView name : {u"Órden de anuncio.dot", u"carta al propietario.DOT", u"Hoja de visita.dot",
                                u"modelo.doc", u"Ñandú.v2.dot"})
      here.files.putFile(Text(u"\\datos\\Plantillas\\") + Text(name));
    here.files.putFolder(u"\\datos\\Plantillas\\Visita.dot");
    TemplatePicking::current() = {};
    TemplatePicking::current().printers = [this] { return printers; };
  }
  void TearDown() override {
    TemplatePicking::current() = {};
    DeskTest::TearDown();
  }

  // Shows the chooser, runs `actions` on it and closes it when they left it open.
  bool show(bool asksWhere, const std::function<void()>& actions,
            TextView mask = u"\\datos\\Plantillas\\*.dot") {
    picker = makeTemplatePicker();
    putMember(picker, u"HayDonde", asksWhere);
    putMember(picker, u"HayCual", false);
    bool ran = false;
    QTimer::singleShot(0, [&] {
      dialog = dynamic_cast<TemplatePickerDialog*>(QApplication::activeModalWidget());
      ASSERT_TRUE(dialog);
      ran = true;
      QApplication::setActiveWindow(dialog);
      search = dialog->findChild<QLineEdit*>("buscar");
      list = dialog->findChild<QListWidget*>("lista");
      about = dialog->findChild<QLabel*>("datos");
      where = dialog->findChild<QComboBox*>("destino");
      actions();
      if (dialog->isVisible()) dialog->reject();
    });
    const bool chosen = callMember(picker, u"Mostrar", {Text(mask)}).toBoolean();
    EXPECT_TRUE(ran);
    return chosen;
  }
  QStringList shown() {
    QStringList texts;
    for (int i = 0; i < list->count(); ++i) texts << list->item(i)->text();
    return texts;
  }
  QStringList places() {
    QStringList texts;
    for (int i = 0; i < where->count(); ++i) texts << where->itemText(i);
    return texts;
  }
  QString current() { return list->currentItem() ? list->currentItem()->text() : QString(); }
  bool mayAccept() {
    for (QPushButton* button : dialog->findChildren<QPushButton*>())
      if (button->isDefault()) return button->isEnabled();
    return false;
  }
  Text answer(TextView name) { return getMember(picker, name).text(); }
  const std::optional<PrintWish>& wish() { return TemplatePicking::current().wish; }

  ObjectRef picker;
  std::vector<Text> printers;
  TemplatePickerDialog* dialog = nullptr;
  QLineEdit* search = nullptr;
  QListWidget* list = nullptr;
  QLabel* about = nullptr;
  QComboBox* where = nullptr;
};

TEST_F(Templates, are_listed_without_their_ending_and_in_order) {
  EXPECT_FALSE(show(false, [&] {
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Elegir una plantilla"));
    EXPECT_EQ(shown(),
              (QStringList{"carta al propietario", "Hoja de visita", "Ñandú.v2", "Órden de anuncio"}));
    EXPECT_EQ(current(), "carta al propietario");
    EXPECT_TRUE(search->hasFocus());
    EXPECT_EQ(where, nullptr);
  }));
  EXPECT_EQ(answer(u"QueImprimir"), u"");
  EXPECT_EQ(answer(u"NomFich"), u"");
}

TEST_F(Templates, are_chosen_by_typing_and_enter) {
  EXPECT_TRUE(show(false, [&] {
    typeText(search, QStringLiteral("nandu"));
    EXPECT_EQ(shown(), (QStringList{"Ñandú.v2"}));
    key(search, Qt::Key_Return, {}, "\r");
  }));
  EXPECT_EQ(answer(u"QueImprimir"), u"\\datos\\Plantillas\\Ñandú.v2.dot");
  EXPECT_EQ(answer(u"NomFich"), u"Ñandú.v2.dot");
  EXPECT_FALSE(wish().has_value());
}

TEST_F(Templates, are_walked_through_by_the_arrows_and_kept_while_the_list_narrows) {
  EXPECT_TRUE(show(false, [&] {
    key(search, Qt::Key_Down);
    EXPECT_EQ(current(), "Hoja de visita");
    typeText(search, QStringLiteral("a d"));
    EXPECT_EQ(shown(), (QStringList{"Hoja de visita"}));
    search->clear();
    EXPECT_EQ(current(), "Hoja de visita");
    key(search, Qt::Key_Down);
    key(search, Qt::Key_Enter, {}, "\r");
  }));
  EXPECT_EQ(answer(u"NomFich"), u"Ñandú.v2.dot");
}

TEST_F(Templates, are_chosen_by_a_double_click_in_the_spelling_of_the_disk) {
  EXPECT_TRUE(show(false, [&] {
    const QPoint place = list->visualItemRect(list->item(0)).center();
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, place);
  }));
  EXPECT_EQ(answer(u"QueImprimir"), u"\\datos\\Plantillas\\carta al propietario.DOT");
}

TEST_F(Templates, are_left_alone_by_escape) {
  EXPECT_FALSE(show(true, [&] {
    key(search, Qt::Key_Escape, {}, "\x1b");
    EXPECT_FALSE(dialog->isVisible());
  }));
  EXPECT_EQ(answer(u"QueImprimir"), u"");
  EXPECT_FALSE(wish().has_value());
}

TEST_F(Templates, begin_with_the_one_chosen_last) {
  EXPECT_TRUE(show(false, [&] {
    typeText(search, QStringLiteral("hoja"));
    key(search, Qt::Key_Return, {}, "\r");
  }));
  show(false, [&] { EXPECT_EQ(current(), "Hoja de visita"); });
}

TEST_F(Templates, are_described_by_whoever_knows_about_them) {
  std::vector<Text> asked;
  TemplatePicking::current().describe = [&](TextView path) {
    asked.emplace_back(path);
    return Text(u"Datos: Asunto, Fecha");
  };
  show(false, [&] {
    EXPECT_EQ(about->text(), "Datos: Asunto, Fecha");
    EXPECT_EQ(asked.back(), u"/datos/Plantillas/carta al propietario.DOT");
    typeText(search, QStringLiteral("zzz"));
    EXPECT_EQ(about->text(), QStringLiteral("Ninguna plantilla se llama así."));
    EXPECT_FALSE(mayAccept());
    key(search, Qt::Key_Return, {}, "\r");
    EXPECT_TRUE(dialog->isVisible());
  });
}

TEST_F(Templates, are_not_what_other_programs_keep_beside_them) {
  for (TextView name : {u"Carta.dot", u"~$Carta.dot", u"~$rta.dot", u"._Carta.dot", u".~lock.Carta.dot#"})
    here.files.putFile(u"\\datos\\usada\\" + Text(name));
  show(
      false, [&] { EXPECT_EQ(shown(), (QStringList{"Carta"})); }, u"\\datos\\usada\\*.dot");
}

TEST_F(Templates, of_a_folder_without_any_are_none) {
  here.files.putFile(u"\\datos\\vacia\\modelo.doc");
  EXPECT_FALSE(show(
      false,
      [&] {
        EXPECT_TRUE(shown().isEmpty());
        EXPECT_EQ(about->text(), QStringLiteral("No hay ninguna plantilla en la carpeta /datos/vacia/."));
        EXPECT_FALSE(mayAccept());
        key(search, Qt::Key_Down);
        key(search, Qt::Key_Return, {}, "\r");
        EXPECT_TRUE(dialog->isVisible());
      },
      u"\\datos\\vacia\\*.dot"));
}

TEST_F(Templates, of_a_folder_that_is_missing_or_closed_are_told_so) {
  const auto told = [&](TextView mask) {
    QString text;
    EXPECT_FALSE(show(
        false, [&] { text = about->text(); }, mask));
    return text.toStdString();
  };
  EXPECT_THAT(told(u"\\datos\\nada\\*.dot"),
              testing::StartsWith("No se puede leer la carpeta /datos/nada/. "));
  EXPECT_THAT(told(u"*.dot"), testing::StartsWith("No se puede leer la carpeta "));
  here.faults.failNext("Files.list", failure::permissionDenied);
  EXPECT_THAT(told(u"\\datos\\Plantillas\\*.dot"), testing::HasSubstr(toUtf8(failureText(70))));
}

TEST_F(Templates, to_print_with_ask_for_a_printer_the_screen_or_a_file) {
  printers = {u"Oficina", u"Planta 2"};
  EXPECT_TRUE(show(true, [&] {
    EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Imprimir con una plantilla"));
    EXPECT_EQ(places(), (QStringList{"Impresora Oficina", "Impresora Planta 2", "Documento nuevo en pantalla",
                                     "Fichero PDF..."}));
    EXPECT_EQ(where->currentIndex(), 0);
    where->setCurrentIndex(1);
    key(search, Qt::Key_Return, {}, "\r");
  }));
  EXPECT_EQ(wish(), (PrintWish{Where::printer, u"Planta 2"}));
  EXPECT_TRUE(show(true, [&] {
    EXPECT_EQ(where->currentText(), "Impresora Planta 2");
    where->setCurrentIndex(3);
    key(search, Qt::Key_Return, {}, "\r");
  }));
  EXPECT_EQ(wish(), (PrintWish{Where::pdf}));
}

TEST_F(Templates, to_print_with_go_to_the_screen_where_there_is_no_printer) {
  EXPECT_TRUE(show(true, [&] { key(search, Qt::Key_Return, {}, "\r"); }));
  EXPECT_EQ(wish(), (PrintWish{Where::screen}));
}

TEST_F(Templates, to_print_with_do_not_go_to_a_printer_that_is_gone) {
  TemplatePicking::current().wish = PrintWish{Where::printer, u"Vieja"};
  printers = {u"Oficina"};
  show(true, [&] { EXPECT_EQ(where->currentText(), "Impresora Oficina"); });
}

TEST_F(Templates, stand_over_the_window_of_their_user) {
  QWidget window;
  window.show();
  QApplication::setActiveWindow(&window);
  show(true, [&] {
    EXPECT_EQ(dialog->windowHandle()->transientParent(), window.windowHandle());
    EXPECT_TRUE(dialog->isModal());
  });
}

TEST_F(Templates, are_reached_by_tab_from_top_to_bottom_and_by_letters_of_their_own) {
  show(true, [&] {
    std::vector<std::string> order;
    for (int i = 0; i < 5; ++i) {
      auto* button = qobject_cast<QPushButton*>(QApplication::focusWidget());
      order.push_back((button ? button->text() : QApplication::focusWidget()->objectName()).toStdString());
      key(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_THAT(order, testing::ElementsAre("buscar", "lista", "destino", "&Imprimir", "&Cancelar"));
  });
}

TEST_F(Templates, have_a_chooser_that_wants_a_mask_and_looks_well) {
  picker = makeTemplatePicker();
  EXPECT_THROW(callMember(picker, u"Mostrar"), Failure);
  QDir().mkpath("pictures");
  TemplatePicking::current().describe = [](TextView) {
    return Text(
        u"Datos: Referencia, Cliente, Tfno1, Tfno2, Comienzo, Fin, Ubicación, Referencia2, Numero, Precio");
  };
  printers = {u"Oficina"};
  show(true, [&] {
    QApplication::processEvents();
    EXPECT_TRUE(dialog->grab().save(QStringLiteral("pictures/plantillas.png")));
    EXPECT_LE(about->heightForWidth(about->width()), about->height());
    for (auto* each : dialog->findChildren<QLabel*>())
      EXPECT_TRUE(each->wordWrap() || each->width() >= each->sizeHint().width());
  });
}

}  // namespace

}  // namespace ovalia::desktop
