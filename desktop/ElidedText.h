#pragma once

#include <QLineEdit>

namespace ovalia::desktop {

// A box of one line that ends a text too long for it in "…" while nobody is writing in it.
class ElidedLineEdit : public QLineEdit {
 public:
  using QLineEdit::QLineEdit;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QRect room() const;  // for the letters
};

}  // namespace ovalia::desktop
