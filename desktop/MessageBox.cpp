#include "desktop/MessageBox.h"

#include <QCloseEvent>
#include <QInputDialog>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <array>

#include "desktop/DialogOwner.h"

namespace ovalia::desktop {

namespace {

enum Code { None = 0, Ok = 1, Cancel = 2, Abort = 3, Retry = 4, Ignore = 5, Yes = 6, No = 7 };

struct ButtonRow {
  Code code;
  const char16_t* text;
};

constexpr std::array<ButtonRow, 8> buttonRows{{{None, u""},
                                               {Ok, u"&Aceptar"},
                                               {Cancel, u"&Cancelar"},
                                               {Abort, u"A&nular"},
                                               {Retry, u"&Reintentar"},
                                               {Ignore, u"&Omitir"},
                                               {Yes, u"&Sí"},
                                               {No, u"&No"}}};

// By the lowest four bits of the flag word; `escape` is what the close box gives.
struct BoxRow {
  std::array<Code, 3> buttons;
  Code escape;
};

constexpr std::array<BoxRow, 6> boxRows{{{{Ok, None, None}, Ok},
                                         {{Ok, Cancel, None}, Cancel},
                                         {{Abort, Retry, Ignore}, None},
                                         {{Yes, No, Cancel}, Cancel},
                                         {{Yes, No, None}, None},
                                         {{Retry, Cancel, None}, Cancel}}};

struct IconRow {
  int flag;
  QMessageBox::Icon icon;
};

constexpr std::array<IconRow, 4> iconRows{{{16, QMessageBox::Critical},
                                           {32, QMessageBox::Question},
                                           {48, QMessageBox::Warning},
                                           {64, QMessageBox::Information}}};

constexpr int systemModal = 4096;

class Box : public QMessageBox {
 public:
  using QMessageBox::QMessageBox;
  bool mustAnswer = false;

 protected:
  void closeEvent(QCloseEvent* event) override {
    if (mustAnswer)
      event->ignore();
    else
      QMessageBox::closeEvent(event);
  }
  void keyPressEvent(QKeyEvent* event) override {
    if (mustAnswer && event->key() == Qt::Key_Escape)
      event->ignore();
    else
      QMessageBox::keyPressEvent(event);
  }
};

QString textOf(Code code) { return QString::fromUtf16(buttonRows[code].text); }

QString lines(QString text) { return text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")); }

}  // namespace

int showMessageBox(const QString& message, int flags, const QString& title) {
  const auto kind = static_cast<std::size_t>(flags & 15);
  const BoxRow& row = boxRows[kind < boxRows.size() ? kind : 0];
  // Gone after its loop when the window under it has gone; the answer is then that of its close box.
  const QPointer<Box> kept(new Box(dialogOwner()));
  Box& box = *kept;
  box.setWindowTitle(title);
  box.setTextFormat(Qt::PlainText);
  box.setText(lines(message));
  box.setWindowModality(Qt::ApplicationModal);
  if (flags & systemModal) box.setWindowFlag(Qt::WindowStaysOnTopHint);
  for (const IconRow& icon : iconRows)
    if ((flags & 0x70) == icon.flag) box.setIcon(icon.icon);

  std::array<QPushButton*, 3> made{};
  const auto standard = static_cast<std::size_t>(flags >> 8 & 3);
  for (std::size_t i = 0; i < row.buttons.size() && row.buttons[i] != None; ++i) {
    // All of one role: the buttons keep the order of the row.
    made[i] = box.addButton(textOf(row.buttons[i]), QMessageBox::AcceptRole);
    if (i == standard) box.setDefaultButton(made[i]);
    if (row.buttons[i] == row.escape) box.setEscapeButton(made[i]);
  }
  box.mustAnswer = row.escape == None;
  box.exec();
  Code answer = row.escape == None ? No : row.escape;
  if (!kept) return answer;
  for (std::size_t i = 0; i < made.size(); ++i)
    if (made[i] && box.clickedButton() == made[i]) answer = row.buttons[i];
  delete kept;
  return answer;
}

QString showInputBox(const QString& prompt, const QString& title, const QString& initial) {
  const QPointer<QInputDialog> kept(new QInputDialog(dialogOwner()));
  QInputDialog& box = *kept;
  box.setWindowTitle(title);
  box.setLabelText(lines(prompt));
  box.setTextValue(initial);
  box.setOkButtonText(textOf(Ok));
  box.setCancelButtonText(textOf(Cancel));
  box.setWindowModality(Qt::ApplicationModal);
  const bool accepted = box.exec() == QDialog::Accepted;
  if (!kept) return {};
  const QString text = accepted ? box.textValue() : QString();
  delete kept;
  return text;
}

}  // namespace ovalia::desktop
