#include "host/RecordsetModel.h"

#include <cmath>

#include "desktop/QtText.h"
#include "platform/Platform.h"

namespace ovalia::host {

using desktop::toQt;

namespace {

constexpr int rowsKept = 1024;
constexpr int longestText = 200;

QString dateText(Date date) {
  if (date.days == 0) return {};
  const bool wholeDay = date.days == std::floor(date.days);
  return toQt(formatDate(date, wholeDay ? u"dd/MM/yyyy" : u"dd/MM/yyyy hh:nn", regionalNow()));
}

bool isNumber(dao::DataType type) {
  switch (type) {
    case dao::dbByte:
    case dao::dbInteger:
    case dao::dbLong:
    case dao::dbCurrency:
    case dao::dbSingle:
    case dao::dbDouble:
      return true;
    default:
      return false;
  }
}

}  // namespace

QString gridText(const Variant& value) {
  if (value.type() == VarType::Date) return dateText(value.toDate());
  if (value.type() == VarType::Boolean) return value.toBoolean() ? QStringLiteral("Sí") : QString();
  if (value.type() == VarType::Currency) return toQt(formatGrouped(value.toDouble(), regionalNow()));
  const QString text = toQt(value.text());
  const auto lineEnd = text.indexOf(u'\n');
  return (lineEnd < 0 ? text : text.left(lineEnd)).left(longestText).trimmed();
}

RecordsetModel::RecordsetModel(std::vector<ModelColumn> columns, Text key, QObject* parent)
    : QAbstractTableModel(parent), all_(std::move(columns)), key_(std::move(key)), near_(rowsKept) {}

void RecordsetModel::setRecordset(dao::RecordsetRef rows) {
  beginResetModel();
  rows_ = std::move(rows);
  near_.clear();
  columns_.clear();
  numbers_.clear();
  for (const ModelColumn& column : all_) {
    if (!rows_ || !rows_->fields().contains(column.field)) continue;
    columns_.push_back(column);
    numbers_.push_back(isNumber(rows_->fields().item(column.field)->Type()));
  }
  endResetModel();
}

void RecordsetModel::reload() {
  if (!rows_) return;
  beginResetModel();
  rows_->Requery();
  near_.clear();
  endResetModel();
}

RecordsetModel::Row RecordsetModel::read(int row) const {
  Row made;
  made.cells.resize(columns_.size());
  try {
    rows_->setAbsolutePosition(row);
    made.key = rows_->value(key_).toLong();
    for (std::size_t i = 0; i < columns_.size(); ++i)
      made.cells[i] = gridText(rows_->value(columns_[i].field));
  } catch (const Failure& failure) {
    // A row that another user has deleted since the list was read goes at the next reload.
    const bool deleted = failure.number() == dao::failure::recordDeleted;
    made.key = 0;
    if (!made.cells.empty())
      made.cells[0] = deleted ? QStringLiteral("(borrada)") : QStringLiteral("(no se puede leer)");
  }
  return made;
}

const RecordsetModel::Row& RecordsetModel::rowAt(int row) const {
  if (const Row* kept = near_.object(row)) return *kept;
  auto* made = new Row(read(row));
  near_.insert(row, made);
  return *made;
}

std::int32_t RecordsetModel::keyAt(int row) const {
  return row < 0 || row >= rowCount() ? 0 : rowAt(row).key;
}

int RecordsetModel::rowOf(std::int32_t key) const {
  if (!rows_ || !key) return -1;
  rows_->FindFirst(key_ + u" = " + toText(key));
  return rows_->NoMatch() ? -1 : rows_->AbsolutePosition();
}

int RecordsetModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() || !rows_ ? 0 : rows_->RecordCount();
}

int RecordsetModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QVariant RecordsetModel::alignment(std::size_t column) const {
  return QVariant(Qt::AlignVCenter | (numbers_[column] ? Qt::AlignRight : Qt::AlignLeft));
}

QVariant RecordsetModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const auto column = static_cast<std::size_t>(index.column());
  if (role == Qt::DisplayRole) return rowAt(index.row()).cells[column];
  if (role == Qt::TextAlignmentRole) return alignment(column);
  return {};
}

QVariant RecordsetModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= columnCount()) return {};
  const auto column = static_cast<std::size_t>(section);
  if (role == Qt::DisplayRole) return columns_[column].heading;
  if (role == Qt::TextAlignmentRole) return alignment(column);
  return {};
}

}  // namespace ovalia::host
