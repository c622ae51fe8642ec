#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <vector>

#include "desktop/PickerEdit.h"
#include "platform/Object.h"
#include "platform/Text.h"

class QVBoxLayout;

namespace ovalia::desktop {

struct SearchField {
  Text label, name;
  bool date = false;
};

// The numbers that a card knows the steps by.
enum class SearchMode : std::int16_t { First = 1, Next = 2, Previous = 3 };

// What the user looks for.
struct SearchWish {
  Text label;  // of the field
  Text text;
  bool wholeField = false, anyAccents = true;
  int period = 0;      // which of the offered ones
  Date first, second;  // day zero for none
};

// Asks what to look for and where, and steps through what there is of it: the card's `BuscarElemento` shows
// each. Over a modal window it is a second window of that one: the user turns from one to the other as they
// like, the dialog stays above, and goes when the other goes. Over any other it is modal itself. It stands
// beside its owner where the desk has room. Enter takes the first hit, and from then on the next; F3 and
// Shift+F3 go on and back; F6 turns to the card and back; Escape closes. What comes of a step is told in the
// dialog itself, and that a step would take unsaved changes with it.
class SearchDialog : public QDialog {
 public:
  // Begins with `wish`, which outlives the dialog and follows what the user enters.
  SearchDialog(std::vector<SearchField> fields, ObjectRef card, SearchWish& wish, QWidget* owner);

  // The one that searches for that card now; null when none does.
  static SearchDialog* of(const ObjectRef& card);

  // Returns when it is closed, or deleted.
  void run();
  void bringToFront();

  void done(int result) override;
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void build();
  QLabel* addLines(const char* name);
  void buildButtons(QVBoxLayout& column);
  void followOwner(QWidget& owner);
  void turn();
  PickerEdit* addPicker(const char* name, Date& day);
  void showWish();
  void focusInput();
  void placeBeside(const QWidget& owner);

  const SearchField& field() const;
  void fieldChosen();
  void periodChosen();
  void changed();

  Text criterion() const;
  bool complete();
  bool step(SearchMode mode);
  void search(SearchMode mode);
  void tell(TextView message);
  void warn(bool unsaved);

  std::vector<SearchField> fields_;
  ObjectRef card_;
  SearchWish wish_;
  SearchWish& kept_;
  QComboBox* field_ = nullptr;
  QLabel *textLabel_ = nullptr, *periodLabel_ = nullptr, *andLabel_ = nullptr;
  QLineEdit* text_ = nullptr;
  QCheckBox *whole_ = nullptr, *accents_ = nullptr;
  QComboBox* period_ = nullptr;
  QWidget* days_ = nullptr;
  PickerEdit *first_ = nullptr, *second_ = nullptr;
  QPushButton *toFirst_ = nullptr, *toNext_ = nullptr;
  QLabel *message_ = nullptr, *warning_ = nullptr;
};

// The place for a window of that size that leaves the other one free: right of it, left, below, above; where
// the desk has no such room, the desk's far corner. All in pixels.
QPoint placeBeside(const QRect& other, QSize size, const QRect& desk);

}  // namespace ovalia::desktop
