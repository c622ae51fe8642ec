#pragma once

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <functional>

#include "desktop/ListSource.h"

namespace ovalia::desktop {

// A list to choose from. What is typed narrows it, without regard to case and accents. Enter and a double
// click choose, Escape cancels; Insert, F2 and Delete do what the buttons do that are there.
class PickListDialog : public QDialog {
 public:
  struct Settings {
    Text title;
    Text chosen;       // selected at first, if the list has it
    double width = 0;  // of the list, twips
    bool mayAdd = false, mayRename = false, mayDelete = false;
    bool offersAll = false;  // a first line "(Todos)", which chooses ""
  };

  PickListDialog(ListSource& source, const Settings& settings);

  // Reads the rows; a failure goes to the caller.
  void load();

  Text chosen() const;
  const Text& added() const { return added_; }  // the name added last, "" for none

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* object, QEvent* event) override;

 private:
  void build(double width);
  QPushButton* addButton(const QString& text, const QString& tip, bool there);
  void fill();
  void select(TextView name);
  void enableButtons();
  const ListSource::Row* current() const;
  Text askName(TextView prompt, TextView initial, const ListSource::Row* except);
  void add();
  void rename();
  void removeRow();
  bool tried(TextView name, const std::function<void()>& change);

  ListSource& source_;
  Settings settings_;
  std::vector<ListSource::Row> rows_;
  Text added_;
  QLineEdit* search_ = nullptr;
  QListWidget* list_ = nullptr;
  QLabel* count_ = nullptr;
  QPushButton *add_ = nullptr, *rename_ = nullptr, *remove_ = nullptr, *accept_ = nullptr;
};

}  // namespace ovalia::desktop
