#pragma once

#include <QTableView>
#include <functional>

#include "host/RecordsetModel.h"

namespace ovalia::host {

// A read-only grid of rows. Double click and Enter open the current row; Tab leaves the grid.
class GridView : public QTableView {
 public:
  struct Column {
    Text field;
    QString heading;
    int characters;  // of width
  };

  GridView(const QString& name, const std::vector<Column>& columns, const Text& key, bool severalRows,
           QWidget* parent = nullptr);

  RecordsetModel& rows() { return *model_; }

  // Shows another recordset, or the same read again, on the row of that key; the first row where it is none
  // of them.
  void show(dao::RecordsetRef rows, std::int32_t key);
  void reload(std::int32_t key);

  std::int32_t currentKey() const;
  std::vector<std::int32_t> selectedKeys() const;

  std::function<void()> opened = [] {};
  std::function<void()> moved = [] {};  // the user is on another row, or has selected others

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  void goTo(std::int32_t key);
  void fitColumns();

  RecordsetModel* model_;
  std::vector<Column> columns_;
  bool following_ = false;
};

}  // namespace ovalia::host
