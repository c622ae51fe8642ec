#pragma once

#include <QAbstractTableModel>
#include <QCache>
#include <vector>

#include "forms/Grid.h"

namespace ovalia::desktop {

// The rows of a form's grid as the toolkit's view asks for them: read when they are shown, kept while they
// are near. While the grid's redraw is off none is read, and one that is not kept is empty.
class GridRows : public QAbstractTableModel {
 public:
  GridRows(const forms::Grid& grid, QObject* parent);

  void readAgain();                   // the rows are others, or others' doing has changed them
  void forget() { grid_ = nullptr; }  // the form goes; what is kept stays

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;

  // A cell shows its text on one line; its tip has the lines. A row that cannot be read says so in its first
  // cell.
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

 private:
  using Row = std::vector<QString>;
  QString textAt(int row, std::size_t column) const;
  Row read(int row) const;

  const forms::Grid* grid_;
  std::span<const forms::ColumnDesign> columns_;
  int count_ = 0;
  mutable QCache<int, Row> near_;
};

}  // namespace ovalia::desktop
