#pragma once

#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <vector>

#include "desktop/TemplatePicking.h"

namespace ovalia::desktop {

// The files that fit a mask, by their names without ending. What is typed narrows them, without regard to
// case and accents; Enter and a double click choose, Escape cancels.
class TemplatePickerDialog : public QDialog {
 public:
  // `mask` is a "\"-separated path with a mask for last component; `asksWhere` shows where a print can go.
  TemplatePickerDialog(TextView mask, bool asksWhere);

  const Text& name() const;  // of the file selected; "" while none is
  Text path() const;         // "\"-separated
  PrintWish wish() const;

 protected:
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void build(bool asksWhere);
  void buildWhere();
  void read(TextView mask);
  void fill();
  void select(TextView path);
  void showSelected();

  Text folder_;
  std::vector<Text> names_;        // of the files, in their order
  std::vector<PrintWish> places_;  // a place an entry of `where_`
  QString problem_;                // why there is nothing to choose from
  QLineEdit* search_ = nullptr;
  QListWidget* list_ = nullptr;
  QLabel* about_ = nullptr;
  QComboBox* where_ = nullptr;  // null where it is not asked
  QPushButton* accept_ = nullptr;
};

}  // namespace ovalia::desktop
