#pragma once

#include <QAbstractTableModel>
#include <QCache>
#include <vector>

#include "platform/dao.h"

namespace ovalia::host {

struct ModelColumn {
  Text field;
  QString heading;
};

// How a field shows in a grid: dates without seconds, "no date" and Null empty, a ticked box as "Sí", the
// first line of a long text.
QString gridText(const Variant& value);

// The rows of a recordset for a grid, read when they are shown and kept while they are near. It has the
// recordset to itself: it moves it at will.
class RecordsetModel : public QAbstractTableModel {
 public:
  // Columns that the recordset lacks are left out. `key` names the field that tells rows apart.
  RecordsetModel(std::vector<ModelColumn> columns, Text key, QObject* parent = nullptr);

  void setRecordset(dao::RecordsetRef rows);
  void reload();

  std::int32_t keyAt(int row) const;  // 0 where there is no row, or it is gone
  int rowOf(std::int32_t key) const;  // -1 where there is none

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;

 private:
  struct Row {
    std::vector<QString> cells;
    std::int32_t key = 0;
  };
  const Row& rowAt(int row) const;
  Row read(int row) const;
  QVariant alignment(std::size_t column) const;  // numbers to the right, under a heading to the right

  std::vector<ModelColumn> all_;
  std::vector<ModelColumn> columns_;
  std::vector<bool> numbers_;
  Text key_;
  dao::RecordsetRef rows_;
  mutable QCache<int, Row> near_;
};

}  // namespace ovalia::host
