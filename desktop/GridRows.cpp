#include "desktop/GridRows.h"

#include <algorithm>

#include "desktop/LineEnds.h"
#include "desktop/QtText.h"

namespace ovalia::desktop {

namespace {

constexpr int rowsKept = 256;

QString unreadable(std::int32_t failure) {
  return failure == dao::failure::recordDeleted ? QStringLiteral("(borrado por otro usuario)")
                                                : QStringLiteral("(no se puede leer)");
}

}  // namespace

GridRows::GridRows(const forms::Grid& grid, QObject* parent)
    : QAbstractTableModel(parent), grid_(&grid), columns_(grid.columns()), near_(rowsKept) {}

void GridRows::readAgain() {
  beginResetModel();
  near_.clear();
  count_ = grid_ ? grid_->Rows() : 0;
  endResetModel();
}

int GridRows::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : count_; }

int GridRows::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

GridRows::Row GridRows::read(int row) const {
  const forms::GridRow found = grid_->row(row);
  Row cells;
  for (const Text& cell : found.cells) cells.push_back(shownLines(cell));
  const auto first = std::ranges::find(columns_, false, &forms::ColumnDesign::hidden) - columns_.begin();
  if (found.failure != 0) cells.at(static_cast<std::size_t>(first)) = unreadable(found.failure);
  return cells;
}

QString GridRows::textAt(int row, std::size_t column) const {
  if (const Row* kept = near_.object(row)) return kept->at(column);
  if (!grid_ || !grid_->Redraw()) return {};
  auto* made = new Row(read(row));
  const QString text = made->at(column);
  near_.insert(row, made);
  return text;
}

QVariant GridRows::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) return {};
  const QString text = textAt(index.row(), static_cast<std::size_t>(index.column()));
  return role == Qt::DisplayRole ? text.simplified() : text;
}

QVariant GridRows::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
  if (role == Qt::DisplayRole) return toQt(columns_[static_cast<std::size_t>(section)].heading);
  if (role == Qt::TextAlignmentRole) return QVariant(Qt::AlignVCenter | Qt::AlignLeft);
  return {};
}

}  // namespace ovalia::desktop
