#include "host/GridView.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QProxyStyle>

#include "host/Escapes.h"

namespace ovalia::host {

namespace {

std::vector<ModelColumn> modelColumns(const std::vector<GridView::Column>& columns) {
  std::vector<ModelColumn> made;
  for (const auto& column : columns) made.push_back({column.field, column.heading});
  return made;
}

// Air between the columns: a number at the right of one is apart from a text at the left of the next.
class Airy : public QProxyStyle {
 public:
  int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override {
    const int usual = QProxyStyle::pixelMetric(metric, option, widget);
    return metric == PM_FocusFrameHMargin || metric == PM_HeaderMargin ? usual + 4 : usual;
  }
};

}  // namespace

GridView::GridView(const QString& name, const std::vector<Column>& columns, const Text& key, bool severalRows,
                   QWidget* parent)
    : QTableView(parent), model_(new RecordsetModel(modelColumns(columns), key, this)), columns_(columns) {
  setObjectName(name);
  setAccessibleName(name);
  setModel(model_);
  setSelectionBehavior(SelectRows);
  setSelectionMode(severalRows ? ExtendedSelection : SingleSelection);
  setEditTriggers(NoEditTriggers);
  setAlternatingRowColors(true);
  setTabKeyNavigation(false);
  setWordWrap(false);
  setShowGrid(false);
  auto* airy = new Airy;
  airy->setParent(this);
  setStyle(airy);
  horizontalHeader()->setStyle(airy);
  verticalHeader()->hide();
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() * 3 / 2);
  horizontalHeader()->setStretchLastSection(true);
  horizontalHeader()->setHighlightSections(false);
  QObject::connect(selectionModel(), &QItemSelectionModel::currentRowChanged, this, telling([this] {
                     if (!following_) moved();
                   }));
  QObject::connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, telling([this] {
                     if (!following_) moved();
                   }));
}

void GridView::fitColumns() {
  const int character = fontMetrics().averageCharWidth();
  int shown = 0;
  for (const Column& column : columns_)
    if (model_->headerData(shown, Qt::Horizontal).toString() == column.heading)
      setColumnWidth(shown++, character * (column.characters + 4));
}

void GridView::show(dao::RecordsetRef rows, std::int32_t key) {
  following_ = true;
  model_->setRecordset(std::move(rows));
  fitColumns();
  goTo(key);
  following_ = false;
}

void GridView::reload(std::int32_t key) {
  following_ = true;
  model_->reload();
  goTo(key);
  following_ = false;
}

void GridView::goTo(std::int32_t key) {
  const int row = std::max(model_->rowOf(key), 0);
  if (row >= model_->rowCount()) return;
  const QModelIndex index = model_->index(row, 0);
  selectionModel()->setCurrentIndex(index, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  scrollTo(index);
}

std::int32_t GridView::currentKey() const { return model_->keyAt(currentIndex().row()); }

std::vector<std::int32_t> GridView::selectedKeys() const {
  std::vector<std::int32_t> keys;
  for (const QModelIndex& index : selectionModel()->selectedRows())
    if (const std::int32_t key = model_->keyAt(index.row())) keys.push_back(key);
  return keys;
}

void GridView::keyPressEvent(QKeyEvent* event) {
  const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
  if (enter && currentIndex().isValid())
    opened();
  else
    QTableView::keyPressEvent(event);
}

void GridView::mouseDoubleClickEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton && indexAt(event->pos()).isValid()) opened();
}

void GridView::focusInEvent(QFocusEvent* event) {
  QTableView::focusInEvent(event);
  if (!currentIndex().isValid() && model_->rowCount()) goTo(0);
}

}  // namespace ovalia::host
