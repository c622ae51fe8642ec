#pragma once

#include <QLabel>
#include <QPushButton>
#include <QWidget>

#include "host/AnnotationList.h"
#include "host/GridView.h"

namespace ovalia::host {

// A page of a card: the grid of one list of annotations, and the buttons that open and add.
class ListPane : public QWidget {
 public:
  explicit ListPane(AnnotationList& list, QWidget* parent = nullptr);

  AnnotationList& list() { return list_; }
  GridView& grid() { return *grid_; }

  // Reads the rows again, of another parent where the list stands on one, and goes to the list's row. A page
  // that is not to be seen waits until it is.
  void followList();

  void openCurrent();
  void addNew();
  void importMails();

  std::function<void()> rowChanged = [] {};  // the user is on another row; the list stands there too

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  QPushButton* mailButton();
  void fill();
  void followButtons();
  void rowMoved();

  AnnotationList& list_;
  GridView* grid_;
  QPushButton* open_;
  QPushButton* add_;
  QPushButton* import_ = nullptr;
  bool filled_ = false;
  std::int32_t shownParent_ = 0;
};

}  // namespace ovalia::host
