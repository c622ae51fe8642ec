#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <functional>
#include <vector>

#include "desktop/PickerEdit.h"
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

// Asks what to look for and where, and steps through what there is of it; the card behind shows each. It
// stands beside the card where the desk has room. Enter takes the first, and from then on the next; F3 and
// Shift+F3 go on and back; Escape closes. What comes of a step is told in the dialog itself.
class SearchDialog : public QDialog {
 public:
  // True when something was found. What it throws is told to the user and logged.
  using Step = std::function<bool(SearchMode, const Text& criterion)>;

  // `wish` outlives the dialog and follows what the user enters.
  SearchDialog(std::vector<SearchField> fields, Step step, SearchWish& wish, QWidget* owner);

  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void build();
  void buildButtons(QVBoxLayout& column);
  PickerEdit* addPicker(const char* name, Date& day);
  void showWish();
  void placeBeside(const QWidget& owner);

  const SearchField& field() const;
  void fieldChosen();
  void periodChosen();
  void changed();

  Text criterion() const;
  bool complete();
  void search(SearchMode mode);
  void tell(TextView message);

  std::vector<SearchField> fields_;
  Step step_;
  SearchWish& wish_;
  QComboBox* field_ = nullptr;
  QLabel *textLabel_ = nullptr, *periodLabel_ = nullptr, *andLabel_ = nullptr;
  QLineEdit* text_ = nullptr;
  QCheckBox *whole_ = nullptr, *accents_ = nullptr;
  QComboBox* period_ = nullptr;
  QWidget* days_ = nullptr;
  PickerEdit *first_ = nullptr, *second_ = nullptr;
  QPushButton *toFirst_ = nullptr, *toNext_ = nullptr;
  QLabel* message_ = nullptr;
};

// The place for a window of that size that leaves the other one free: right of it, left, below, above; where
// the desk has no such room, the desk's far corner. All in pixels.
QPoint placeBeside(const QRect& other, QSize size, const QRect& desk);

}  // namespace ovalia::desktop
