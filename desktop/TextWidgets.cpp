#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSignalBlocker>

#include "desktop/ControlWidget.h"
#include "desktop/DropData.h"
#include "desktop/ElidedText.h"
#include "desktop/LineEnds.h"
#include "desktop/QtText.h"

namespace ovalia::desktop {

using forms::Property;

namespace {

class LineEdit : public ElidedLineEdit {
 public:
  using ElidedLineEdit::ElidedLineEdit;
  std::function<void()> doubleClicked;

 protected:
  void mouseDoubleClickEvent(QMouseEvent* event) override {
    ElidedLineEdit::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton && doubleClicked) doubleClicked();
  }
};

// Letters on a colour of the form's own are as dark or light as it needs, on a disabled box too.
void paintBack(QWidget& edit, std::uint32_t color) {
  QPalette palette;
  if (color != forms::windowBackground) {
    const QColor back(color & 0xFF, color >> 8 & 0xFF, color >> 16 & 0xFF);
    const QColor letters = qGray(back.rgb()) < 128 ? Qt::white : Qt::black;
    palette.setColor(QPalette::Base, back);
    palette.setColor(QPalette::Text, letters);
    palette.setColor(QPalette::Disabled, QPalette::Text, letters);
  }
  edit.setPalette(palette);
}

class LineWidget : public ControlWidget {
 public:
  LineWidget(const forms::ControlRef& control, QWidget* parent) : LineWidget(control, new LineEdit(parent)) {}

  void follow(Property property) override {
    const QSignalBlocker silent(edit_);
    const QString text = toQt(box().text());
    if (property == Property::Value && edit_->text() != text) {
      edit_->setText(text);
      edit_->setCursorPosition(box().SelStart());
    } else if (property == Property::Selection) {
      edit_->setSelection(box().SelStart(), box().SelLength());
    } else if (property == Property::BackColor) {
      paintBack(*edit_, box().BackColor());
    }
    ControlWidget::follow(property);
  }

 private:
  LineWidget(const forms::ControlRef& control, LineEdit* edit) : ControlWidget(control, edit), edit_(edit) {
    edit->setReadOnly(control->has(forms::readOnly));
    edit->doubleClicked = [kept = std::static_pointer_cast<forms::TextBox>(control)] {
      kept->userDoubleClicks();
    };
    connect(edit, &QLineEdit::textEdited, this, [this](const QString& text) {
      const QPointer<LineWidget> self(this);
      box().userTypes(fromQt(text));
      if (self) follow(Property::Value);
    });
    const auto select = [this] {
      const int length = static_cast<int>(edit_->selectedText().size());
      box().userSelects(length ? edit_->selectionStart() : edit_->cursorPosition(), length);
    };
    connect(edit, &QLineEdit::selectionChanged, this, select);
    connect(edit, &QLineEdit::cursorPositionChanged, this, select);
  }

  forms::TextBox& box() const { return static_cast<forms::TextBox&>(control()); }

  LineEdit* edit_;
};

// Files dropped on it go to the form. Text moves only within it.
class LinesEdit : public QPlainTextEdit {
 public:
  LinesEdit(const forms::ControlRef& control, QWidget* parent)
      : QPlainTextEdit(parent), drops_(control, *this) {}

 protected:
  void dragEnterEvent(QDragEnterEvent* event) override {
    if (own(*event)) return QPlainTextEdit::dragEnterEvent(event);
    drops_.over(*event);
  }
  void dragMoveEvent(QDragMoveEvent* event) override {
    if (own(*event)) return QPlainTextEdit::dragMoveEvent(event);
    drops_.over(*event);
  }
  void dropEvent(QDropEvent* event) override {
    if (own(*event)) return QPlainTextEdit::dropEvent(event);
    drops_.dropped(*event);
  }

 private:
  bool own(const QDropEvent& event) const { return event.source() == this || event.source() == viewport(); }

  FileDrops drops_;
};

class LinesWidget : public ControlWidget {
 public:
  LinesWidget(const forms::ControlRef& control, QWidget* parent)
      : LinesWidget(control, new LinesEdit(control, parent)) {}

  void follow(Property property) override {
    const QSignalBlocker silent(edit_);
    if (property == Property::Value && shown() != shownLines(box().text())) {
      edit_->setPlainText(shownLines(box().text()));
    } else if (property == Property::Selection) {
      QTextCursor cursor = edit_->textCursor();
      cursor.setPosition(shownPosition(box().text(), box().SelStart()));
      cursor.setPosition(shownPosition(box().text(), box().SelStart() + box().SelLength()),
                         QTextCursor::KeepAnchor);
      edit_->setTextCursor(cursor);
    } else if (property == Property::BackColor) {
      paintBack(*edit_, box().BackColor());
    }
    ControlWidget::follow(property);
  }

 private:
  LinesWidget(const forms::ControlRef& control, LinesEdit* edit) : ControlWidget(control, edit), edit_(edit) {
    edit->setTabChangesFocus(true);
    edit->setReadOnly(control->has(forms::readOnly));
    connect(edit, &QPlainTextEdit::textChanged, this, [this] {
      const QPointer<LinesWidget> self(this);
      if (shown() == shownLines(box().text())) return;
      box().userTypes(storedLines(shown()));
      if (self) follow(Property::Value);
    });
    const auto select = [this] {
      const QTextCursor cursor = edit_->textCursor();
      const int start = storedPosition(box().text(), cursor.selectionStart());
      box().userSelects(start, storedPosition(box().text(), cursor.selectionEnd()) - start);
    };
    connect(edit, &QPlainTextEdit::cursorPositionChanged, this, select);
    connect(edit, &QPlainTextEdit::selectionChanged, this, select);
  }

  // The raw text: the plain one turns hard blanks into common ones.
  QString shown() const {
    QString text = edit_->document()->toRawText();
    return text.replace(QChar::ParagraphSeparator, u'\n').replace(QChar::LineSeparator, u'\n');
  }
  forms::TextBox& box() const { return static_cast<forms::TextBox&>(control()); }

  LinesEdit* edit_;
};

}  // namespace

ControlWidgetPtr makeTextWidget(const forms::ControlRef& control, QWidget* parent) {
  if (control->has(forms::multiLine)) return std::make_unique<LinesWidget>(control, parent);
  return std::make_unique<LineWidget>(control, parent);
}

}  // namespace ovalia::desktop
