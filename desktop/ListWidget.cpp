#include <QApplication>
#include <QContextMenuEvent>
#include <QListWidget>
#include <QSignalBlocker>

#include "desktop/ControlWidget.h"
#include "desktop/DropData.h"
#include "desktop/Icons.h"
#include "desktop/QtText.h"
#include "desktop/Scale.h"

namespace ovalia::desktop {

using forms::ListItem;
using forms::Property;

namespace {

constexpr int rightButton = 2;

// How the three views of the model are laid out.
struct ViewRow {
  QListView::ViewMode mode;
  QListView::Flow flow;
  double icon;  // twips
  bool grid;
};
constexpr ViewRow views[] = {
    {QListView::IconMode, QListView::LeftToRight, 480, true},
    {QListView::ListMode, QListView::LeftToRight, 240, true},
    {QListView::ListMode, QListView::TopToBottom, 240, false},
};

class DocumentList : public QListWidget {
 public:
  DocumentList(const forms::ControlRef& control, QWidget* parent)
      : QListWidget(parent), list_(std::static_pointer_cast<forms::ListView>(control)), drops_(control) {
    setEditTriggers(control->has(forms::labelEdit) ? SelectedClicked | EditKeyPressed : NoEditTriggers);
    setSelectionMode(SingleSelection);
    setTextElideMode(Qt::ElideMiddle);
    setResizeMode(Adjust);
    setDragEnabled(false);
    setAcceptDrops(true);
  }

  void leaveEditor() {
    if (state() == EditingState) setFocus();
  }

  std::optional<QPoint> menuPlace() const {
    if (!byKeyboard_) return {};
    const QRect item = currentItem() ? visualItemRect(currentItem()) : QRect();
    return viewport()->mapToGlobal(item.isValid() ? item.center() : QPoint(4, 4));
  }

  std::function<void()> acted;  // the user did something: what is drawn may differ from the model

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override {
    if (std::exchange(afterDoubleClick_, false)) return;
    QListWidget::mouseReleaseEvent(event);
    if (event->button() != Qt::LeftButton && event->button() != Qt::RightButton) return;
    const int index = indexAt(event->position().toPoint()).row() + 1;
    act([=](forms::ListView& list, int button) { list.userClicks(index, button); },
        event->button() == Qt::LeftButton ? 1 : rightButton);
  }

  void mouseDoubleClickEvent(QMouseEvent* event) override {
    afterDoubleClick_ = true;
    if (event->button() != Qt::LeftButton) return;
    act([](forms::ListView& list, int index) { list.userDoubleClicks(index); },
        indexAt(event->position().toPoint()).row() + 1);
  }

  void keyPressEvent(QKeyEvent* event) override {
    const int before = currentRow();
    QListWidget::keyPressEvent(event);
    if (currentRow() != before)
      act([](forms::ListView& list, int index) { list.userSelects(index); }, currentRow() + 1);
  }

  void contextMenuEvent(QContextMenuEvent* event) override {
    event->accept();
    if (event->reason() != QContextMenuEvent::Keyboard) return;
    byKeyboard_ = true;
    const QPointer<DocumentList> self(this);
    act([](forms::ListView& list, int button) { list.userClicks(list.selectedIndex(), button); },
        rightButton);
    if (self) byKeyboard_ = false;
  }

  void dragEnterEvent(QDragEnterEvent* event) override {
    event->setAccepted(drops_.over(*event) && event->isAccepted());
  }
  void dragMoveEvent(QDragMoveEvent* event) override {
    event->setAccepted(drops_.over(*event) && event->isAccepted());
  }
  void dropEvent(QDropEvent* event) override { drops_.dropped(*event); }

 private:
  template <class Action>
  void act(Action action, int argument) {
    const QPointer<DocumentList> self(this);
    const auto kept = list_;
    action(*kept, argument);
    if (self && acted) acted();
  }

  std::shared_ptr<forms::ListView> list_;
  FileDrops drops_;
  bool afterDoubleClick_ = false;
  bool byKeyboard_ = false;  // while it asks for a menu
};

class ListWidget : public ControlWidget {
 public:
  ListWidget(const forms::ControlRef& control, QWidget* parent)
      : ListWidget(control, new DocumentList(control, parent)) {}

  void commit() override { list_->leaveEditor(); }
  std::optional<QPoint> menuPlace() const override { return list_->menuPlace(); }

  void follow(Property property) override {
    const QSignalBlocker silent(list_);
    if (property == Property::Items) followItems();
    if (property == Property::Items || property == Property::SelectedItem) followSelection();
    if (property == Property::View) followView();
    ControlWidget::follow(property);
  }

 private:
  ListWidget(const forms::ControlRef& control, DocumentList* list)
      : ControlWidget(control, list), list_(list) {
    list->acted = [this, self = QPointer<ListWidget>(this)] {
      if (self) follow(Property::SelectedItem);
    };
    connect(list, &QListWidget::itemChanged, this, [this](QListWidgetItem* item) {
      const QPointer<ListWidget> self(this);
      model().userEditsLabel(fromQt(item->text()));
      if (self) follow(Property::Items);
    });
  }

  void followItems() {
    const auto& items = model().items();
    const int count = static_cast<int>(items.size());
    while (list_->count() > count) delete list_->takeItem(count);
    while (list_->count() < count) list_->addItem(new QListWidgetItem);
    for (int row = 0; row < count; ++row) {
      const ListItem& shown = items[static_cast<std::size_t>(row)];
      QListWidgetItem& item = *list_->item(row);
      item.setText(toQt(shown.text));
      item.setToolTip(toQt(shown.text));
      item.setIcon(icon(shown.icon));
      item.setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled |
                    (control().has(forms::labelEdit) ? Qt::ItemIsEditable : Qt::NoItemFlags));
    }
  }

  void followSelection() {
    const int row = model().selectedIndex() - 1;
    if (row < 0) {
      list_->clearSelection();
      list_->setCurrentRow(-1);
    } else {
      list_->setCurrentRow(row, QItemSelectionModel::ClearAndSelect);
    }
  }

  void followView() {
    const ViewRow& view = views[model().View()];
    const int line = list_->fontMetrics().height();
    const int icon = Scale::of(*list_).pixels(view.icon);
    list_->setViewMode(view.mode);
    list_->setFlow(view.flow);
    list_->setWrapping(true);
    list_->setMovement(QListView::Static);
    list_->setResizeMode(QListView::Adjust);
    list_->setIconSize(QSize(icon, icon));
    list_->setWordWrap(view.mode == QListView::IconMode);
    list_->setGridSize(!view.grid                         ? QSize()
                       : view.mode == QListView::IconMode ? QSize(line * 6, icon + 2 * line + 8)
                                                          : QSize(line * 10, icon + 6));
    list_->viewport()->setAcceptDrops(true);
  }

  forms::ListView& model() const { return static_cast<forms::ListView&>(control()); }

  DocumentList* list_;
};

}  // namespace

ControlWidgetPtr makeListWidget(const forms::ControlRef& control, QWidget* parent) {
  return std::make_unique<ListWidget>(control, parent);
}

}  // namespace ovalia::desktop
