#include <QHeaderView>
#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTableView>
#include <QToolTip>
#include <algorithm>
#include <numeric>

#include "desktop/ControlWidget.h"
#include "desktop/GridRows.h"
#include "desktop/KeyCodes.h"
#include "desktop/Scale.h"
#include "routines/Trap.h"

namespace ovalia::desktop {

using forms::Property;

namespace {

constexpr int shiftKey = 1, ctrlKey = 2, altKey = 4;
constexpr double headWidth = 240, rowAir = 90;  // twips

// Cells whose text is cut have a tip that is not. The current row is framed as a whole, not its first cell.
class Cells : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                 const QModelIndex& index) override {
    const int margin = view->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, view) + 1;
    const QString shown = index.data().toString(), whole = index.data(Qt::ToolTipRole).toString();
    const bool fits =
        view->fontMetrics().horizontalAdvance(shown) <= option.rect.width() - 2 * margin && shown == whole;
    if (fits)
      QToolTip::hideText();
    else
      QToolTip::showText(event->globalPos(),
                         QStringLiteral("<p style='white-space:pre-wrap'>%1</p>").arg(whole.toHtmlEscaped()),
                         view);
    return true;
  }

 protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
    QStyledItemDelegate::initStyleOption(option, index);
    option->state &= ~QStyle::State_HasFocus;
  }
};

// The heads of the rows: an arrow points to the current one. A press on a head is one on its row.
class RowHeads : public QHeaderView {
 public:
  explicit RowHeads(QWidget* parent) : QHeaderView(Qt::Vertical, parent) {
    setSectionResizeMode(Fixed);
    const Scale scale = Scale::of(*this);
    setDefaultSectionSize(fontMetrics().height() + scale.pixels(rowAir));
    setFixedWidth(scale.pixels(headWidth));
  }

  std::function<void(QMouseEvent&)> pressed;

 protected:
  void mousePressEvent(QMouseEvent* event) override { pressed(*event); }
  void mouseDoubleClickEvent(QMouseEvent* event) override { pressed(*event); }
  void mouseMoveEvent(QMouseEvent*) override {}
  void mouseReleaseEvent(QMouseEvent*) override {}

  void paintSection(QPainter* painter, const QRect& rect, int row) const override {
    painter->save();
    QHeaderView::paintSection(painter, rect, row);
    painter->restore();
    if (row != selectionModel()->currentIndex().row()) return;
    QStyleOption arrow;
    arrow.initFrom(this);
    const int side = std::min(rect.width(), rect.height()) * 3 / 4;
    arrow.rect = QStyle::alignedRect(layoutDirection(), Qt::AlignCenter, QSize(side, side), rect);
    style()->drawPrimitive(QStyle::PE_IndicatorArrowRight, &arrow, painter, this);
  }
};

// A step through the rows; `page` rows are in sight.
struct StepRow {
  int key;
  int (*target)(int current, int last, int page);
};

constexpr StepRow steps[] = {
    {Qt::Key_Up, [](int current, int, int) { return current - 1; }},
    {Qt::Key_Down, [](int current, int, int) { return current + 1; }},
    {Qt::Key_PageUp, [](int current, int, int page) { return current - page; }},
    {Qt::Key_PageDown, [](int current, int, int page) { return current + page; }},
    {Qt::Key_Home, [](int, int, int) { return 0; }},
    {Qt::Key_End, [](int, int last, int) { return last; }},
};

// Selects nothing by itself: current row and marks are the grid's.
class RowsView : public QTableView {
 public:
  RowsView(std::shared_ptr<forms::Grid> grid, QWidget* parent)
      : QTableView(parent), grid_(std::move(grid)), rows_(new GridRows(*grid_, this)) {
    setModel(rows_);
    setItemDelegate(new Cells(this));
    setSelectionMode(NoSelection);
    setSelectionBehavior(SelectRows);
    setEditTriggers(NoEditTriggers);
    setAlternatingRowColors(true);
    setShowGrid(false);
    setWordWrap(false);
    setCornerButtonEnabled(false);
    setVerticalScrollMode(ScrollPerItem);
    auto* heads = new RowHeads(this);
    heads->pressed = [this](QMouseEvent& event) { press(event); };
    setVerticalHeader(heads);
    setUpHeadings();
  }

  void forget() { rows_->forget(); }

  void followRows() {
    rows_->readAgain();
    followCurrent();
    followMarks();
  }

  void followCurrent() {
    const QModelIndex current = rows_->index(grid_->currentRow(), firstColumn());
    selectionModel()->setCurrentIndex(current, QItemSelectionModel::NoUpdate);
    if (current.isValid()) scrollTo(current);
    viewport()->update();
    verticalHeader()->viewport()->update();
  }

  void followMarks() {
    std::vector<std::int32_t> places;
    resumeNext([&] { places = grid_->markedRows(); });
    std::ranges::sort(places);
    QItemSelection marked;
    for (std::size_t from = 0; from < places.size();) {
      std::size_t to = from + 1;
      while (to < places.size() && places[to] <= places[to - 1] + 1) ++to;
      if (places[to - 1] >= 0)
        marked.select(cell(std::max(places[from], 0), 0), cell(places[to - 1], lastColumn()));
      from = to;
    }
    selectionModel()->select(marked, QItemSelectionModel::ClearAndSelect);
  }

  // The toolkit's arrow of what it calls descending points upwards.
  void followHeadings() {
    int sorted = -1;
    for (int column = 0; column <= lastColumn(); ++column)
      if (!grid_->headStyle(column).empty()) sorted = column;
    const bool up = sorted >= 0 && grid_->headStyle(sorted) == forms::styleAsc;
    horizontalHeader()->setSortIndicator(sorted, up ? Qt::DescendingOrder : Qt::AscendingOrder);
  }

  bool takesKey(const QKeyEvent& event) {
    const int shift = shiftMask(event.modifiers());
    if (shift & altKey) return false;
    const auto kept = grid_;
    if (event.key() == Qt::Key_Delete && shift == 0) {
      if (!event.isAutoRepeat()) kept->userDeletes();
      return true;
    }
    if (event.key() == Qt::Key_Space) return markCurrent(shift), true;
    if (event.key() == Qt::Key_Left) return slide(QScrollBar::SliderSingleStepSub);
    if (event.key() == Qt::Key_Right) return slide(QScrollBar::SliderSingleStepAdd);
    return step(event.key(), shift);
  }

 protected:
  void mousePressEvent(QMouseEvent* event) override { press(*event); }
  void mouseDoubleClickEvent(QMouseEvent* event) override { press(*event); }
  void mouseMoveEvent(QMouseEvent*) override {}
  void mouseReleaseEvent(QMouseEvent*) override {}
  void keyPressEvent(QKeyEvent* event) override { event->ignore(); }

  void resizeEvent(QResizeEvent* event) override {
    QTableView::resizeEvent(event);
    fitColumns();
  }

  void paintEvent(QPaintEvent* event) override {
    QTableView::paintEvent(event);
    if (!hasFocus() || !currentIndex().isValid()) return;
    const int row = currentIndex().row();
    const bool marked = selectionModel()->isSelected(currentIndex());
    QPainter painter(viewport());
    // The styles' own frame is left out or too faint beside the colour of a mark.
    painter.setPen(
        QPen(palette().color(marked ? QPalette::HighlightedText : QPalette::Text), 1, Qt::DotLine));
    painter.drawRect(
        QRect(0, rowViewportPosition(row), viewport()->width(), rowHeight(row)).adjusted(0, 0, -1, -1));
  }

 private:
  QModelIndex cell(int row, int column) const { return rows_->index(row, column); }
  int lastColumn() const { return rows_->columnCount() - 1; }
  int firstColumn() const {
    const auto columns = grid_->columns();
    return static_cast<int>(std::ranges::find(columns, false, &forms::ColumnDesign::hidden) -
                            columns.begin());
  }

  void setUpHeadings() {
    QHeaderView* headings = horizontalHeader();
    // Pressed, the toolkit would make a row current by itself.
    disconnect(headings, &QHeaderView::sectionPressed, this, nullptr);
    disconnect(headings, &QHeaderView::sectionEntered, this, nullptr);
    headings->setSectionsClickable(true);
    headings->setHighlightSections(false);
    headings->setSortIndicatorShown(true);
    headings->setTextElideMode(Qt::ElideRight);
    headings->setResizeContentsPrecision(0);
    for (int column = 0; column <= lastColumn(); ++column) {
      const forms::ColumnDesign& design = grid_->columns()[static_cast<std::size_t>(column)];
      shares_.push_back(design.hidden ? 0 : design.width);
      setColumnHidden(column, design.hidden);
    }
    // The toolkit turns the arrow by itself, before anybody has sorted.
    connect(headings, &QHeaderView::sectionClicked, this, [this](int column) {
      const QPointer<RowsView> self(this);
      const auto kept = grid_;
      kept->userClicksHeading(column);
      if (self) followHeadings();
    });
    connect(headings, &QHeaderView::sectionResized, this, [this](int column) {
      if (!fitting_) fillUp(column);
    });
  }

  // The user has given a column its width: the last one takes what is left.
  void fillUp(int resized) {
    const int last = lastColumn();
    int others = 0;
    for (int column = 0; column < last; ++column) others += columnWidth(column);
    const int least = resized == last ? columnWidth(last) : horizontalHeader()->minimumSectionSize();
    fitting_ = true;
    setColumnWidth(last, std::max(least, viewport()->width() - others));
    fitting_ = false;
    for (int column = 0; column <= last; ++column) shares_[std::size_t(column)] = columnWidth(column);
  }

  // The columns share the room; one that the user has widened has a larger share from then on.
  void fitColumns() {
    const double whole = std::accumulate(shares_.begin(), shares_.end(), 0.0);
    if (whole <= 0) return;
    fitting_ = true;
    double before = 0;
    for (int column = 0; column <= lastColumn(); ++column) {
      const double after = before + shares_[std::size_t(column)];
      const auto edge = [&](double share) { return static_cast<int>(viewport()->width() * share / whole); };
      if (!isColumnHidden(column)) setColumnWidth(column, edge(after) - edge(before));
      before = after;
    }
    fitting_ = false;
  }

  void press(QMouseEvent& event) {
    const auto kept = grid_;
    if (event.button() == Qt::LeftButton)
      kept->userClicksRow(rowAt(event.position().toPoint().y()), shiftMask(event.modifiers()));
  }

  bool slide(QScrollBar::SliderAction action) { return horizontalScrollBar()->triggerAction(action), true; }

  // Next to other marks; one that is there stays.
  void markCurrent(int shift) {
    const auto kept = grid_;
    if (shift != 0) return kept->userClicksRow(kept->currentRow(), shift);
    if (!selectionModel()->isSelected(currentIndex())) kept->userClicksRow(kept->currentRow(), ctrlKey);
  }

  bool step(int key, int shift) {
    const auto found = std::ranges::find(steps, key, &StepRow::key);
    if (found == std::end(steps)) return false;
    const auto kept = grid_;
    const int last = rows_->rowCount() - 1;
    const int page = std::max(1, viewport()->height() / verticalHeader()->defaultSectionSize() - 1);
    const int target = std::clamp(found->target(kept->currentRow(), last, page), 0, std::max(last, 0));
    if (shift == ctrlKey)
      kept->userMovesTo(target);
    else
      kept->userClicksRow(target, shift & shiftKey);
    return true;
  }

  std::shared_ptr<forms::Grid> grid_;
  GridRows* rows_;
  std::vector<double> shares_;  // of the room, by column
  bool fitting_ = false;
};

class GridWidget : public ControlWidget {
 public:
  GridWidget(const forms::ControlRef& control, QWidget* parent)
      : ControlWidget(control, new RowsView(std::static_pointer_cast<forms::Grid>(control), parent)),
        view_(static_cast<RowsView*>(widget())) {}
  ~GridWidget() override {
    if (view_) view_->forget();
  }

  bool takesKey(QKeyEvent& event) override { return view_->takesKey(event); }
  bool asksForFocus() const override { return true; }

  void follow(Property property) override {
    switch (property) {
      case Property::Rows:
        return view_->followRows();
      case Property::CurrentRow:
        return view_->followCurrent();
      case Property::Marks:
        return view_->followMarks();
      case Property::Headings:
        return view_->followHeadings();
      default:
        return ControlWidget::follow(property);
    }
  }

 private:
  QPointer<RowsView> view_;
};

}  // namespace

ControlWidgetPtr makeGridWidget(const forms::ControlRef& control, QWidget* parent) {
  return std::make_unique<GridWidget>(control, parent);
}

}  // namespace ovalia::desktop
