#pragma once

#include <QDialog>
#include <QListWidget>
#include <QPixmap>
#include <QPointer>
#include <QTimer>
#include <filesystem>
#include <functional>
#include <optional>

#include "forms/Form.h"
#include "host/TourBook.h"

namespace ovalia::host {

// The one who plays a tour: acts on the program's windows by mouse and keys, answers the boxes that are due
// and takes pictures. A dialog that nobody announced is a failure in the book, leaves its picture in
// "aviso.png" and is taken down, so that the tour ends.
class TourStage {
 public:
  TourStage(TourBook& book, std::filesystem::path folder);

  // Runs `opening`, which shows a card and returns when it has closed, and `onCard` while it is up. A card
  // that is left open is a failure and is hidden.
  void withCard(const std::function<void()>& opening, const std::function<void()>& onCard);

  // The same for a form of that name that comes up over the card. Inside, the card below is that form.
  void withForm(TextView name, const std::function<void()>& opening, const std::function<void()>& onForm);

  forms::Form& card();  // the one that is up
  QString shown(TextView control);
  QWidget& drawn(TextView control);
  void describe();  // title and contents of the card, into the book

  void types(TextView control, const QString& text);  // in place of what is there
  void clicks(TextView control);
  void presses(TextView tool);                      // on the toolbar
  void chooses(TextView tool, TextView menu = {});  // in a menu, which opens where it is named
  void closes();                                    // by the close box

  // While `doing` runs a message box comes up that holds the text and is answered by the button of that
  // caption. A picture is taken of it where a name is given.
  void answers(const QString& text, const QString& button, const char* pictureName,
               const std::function<void()>& doing);

  // While `doing` runs the dialog of that name or title comes up, and `use` puts it away.
  void uses(const QString& dialog, const std::function<void(QDialog&)>& use,
            const std::function<void()>& doing);

  // The card with what stands over it; a window alone.
  void picture(const std::string& name);
  void pictureOf(QWidget& window, const std::string& name);

  static void press(QWidget& widget, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier,
                    const QString& text = {});
  static void type(QWidget& widget, const QString& text);
  static void clickItem(QListWidget& list, int row);
  static void clickButton(QDialog& dialog, const QString& name);

 private:
  // A dialog that is due.
  struct Meeting {
    std::function<bool(QDialog&)> isIt;
    std::function<void(QDialog&)> handle;
    QString what;
    bool came = false;
  };

  using FormRef = std::shared_ptr<forms::Form>;

  void whileUp(const std::function<FormRef()>& wanted, const std::function<void()>& opening,
               const std::function<void()>& onForm);
  void meet(Meeting meeting, const std::function<void()>& doing);
  void look();
  void refuse(QDialog& dialog);
  FormRef form() const;
  bool isUp(const FormRef& form) const;
  void leave();
  void save(const QPixmap& drawn, const std::string& name);
  QWidget* window() const;
  QWidget* widget(TextView control);

  TourBook& book_;
  std::filesystem::path folder_;
  std::optional<std::weak_ptr<forms::Form>> over_;  // the form that stands over the card
  QTimer watch_;
  Meeting* due_ = nullptr;
  QPointer<QDialog> met_;  // the dialog that is being handled
  int looks_ = 0;          // at it
};

}  // namespace ovalia::host
