#include <QApplication>
#include <QContextMenuEvent>
#include <QDrag>
#include <QListWidget>
#include <QSignalBlocker>
#include <QStyledItemDelegate>
#include <QTextDocument>
#include <algorithm>

#include "desktop/ControlWidget.h"
#include "desktop/DropData.h"
#include "desktop/Icons.h"
#include "desktop/LeavingFile.h"
#include "desktop/QtText.h"
#include "desktop/Scale.h"
#include "forms/Form.h"

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
  int column;   // least width in heights of a line; 0 is that of the longest name
};
constexpr ViewRow views[] = {
    {QListView::IconMode, QListView::LeftToRight, 480, 6},
    {QListView::ListMode, QListView::LeftToRight, 240, 10},
    {QListView::ListMode, QListView::TopToBottom, 240, 0},
};

// No name is wider than its column: it would be cut where its neighbour or the pane's edge begins.
class NameDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  int widest = 0;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    const QSize hint = QStyledItemDelegate::sizeHint(option, index);
    return {std::min(hint.width(), widest), hint.height()};
  }
};

// The tool that a key stands for while the list has the focus.
TextView toolOf(const QKeyEvent& event) {
  if (event.matches(QKeySequence::Copy)) return u"ID_Copiar";
  if (event.modifiers() & ~Qt::KeypadModifier) return {};
  switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
      return u"ID_Abrir";
    case Qt::Key_Delete:
      return u"ID_Quitar";
    default:
      return {};
  }
}

// The keys for which there must be an item to go on from.
bool startsFromItem(int key) {
  constexpr int keys[] = {Qt::Key_Up,     Qt::Key_Down,     Qt::Key_Left,  Qt::Key_Right, Qt::Key_Home,
                          Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Space, Qt::Key_F2};
  return std::ranges::find(keys, key) != std::end(keys);
}

// A name is a name, whatever signs are in it.
QString tipOf(const QString& name) { return Qt::mightBeRichText(name) ? name.toHtmlEscaped() : name; }

class DocumentList : public QListWidget {
 public:
  DocumentList(const forms::ControlRef& control, QWidget* parent)
      : QListWidget(parent),
        list_(std::static_pointer_cast<forms::ListView>(control)),
        drops_(control, *this) {
    setEditTriggers(control->has(forms::labelEdit) ? SelectedClicked | EditKeyPressed : NoEditTriggers);
    setSelectionMode(SingleSelection);
    setResizeMode(Adjust);
    setAcceptDrops(true);
    setItemDelegate(names_);
  }

  void layOut(const ViewRow& view) {
    view_ = &view;
    const bool large = view.mode == IconMode;
    const int icon = Scale::of(*this).pixels(view.icon);
    setViewMode(view.mode);
    setFlow(view.flow);
    setWrapping(true);
    setMovement(Static);
    setResizeMode(Adjust);
    setIconSize(QSize(icon, icon));
    // Each line of a name would lose its middle.
    setTextElideMode(large ? Qt::ElideRight : Qt::ElideMiddle);
    setWordWrap(large);
    setHorizontalScrollBarPolicy(view.column ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
    // Fixed items lose both.
    setDragEnabled(true);
    viewport()->setAcceptDrops(true);
    fitColumns();
  }

  // Icons, large and small, share the room there is. Without a scroll bar where all of them fit: the toolkit
  // sets room aside for one before it knows, and then shows it.
  void fitColumns() {
    if (!view_) return;
    const int icon = iconSize().height(), line = fontMetrics().height(), least = line * view_->column;
    if (least == 0) {
      names_->widest = std::max(1, viewport()->width() - 1);
      setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
      return setGridSize(QSize());
    }
    const QSize whole = maximumViewportSize();
    const int height = view_->mode == IconMode ? icon + 2 * line + 8 : icon + 6;
    int room = whole.width() - 1;
    const auto inRow = [&] { return std::max(1, room / least); };
    const bool fits = (count() + inRow() - 1) / inRow() * height <= whole.height();
    if (!fits) room -= style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    names_->widest = std::max(1, room / inRow());
    setVerticalScrollBarPolicy(fits ? Qt::ScrollBarAlwaysOff : Qt::ScrollBarAsNeeded);
    setGridSize(QSize(names_->widest, height));
  }

  // The state of a tool is right after the menu that it stands in has opened.
  bool takesKey(const QKeyEvent& event) {
    const TextView tool = toolOf(event);
    if (tool.empty()) return false;
    if (event.isAutoRepeat()) return true;
    const auto form = list_->form().shared_from_this();
    const auto bars = form->as<forms::ActiveToolBars>(u"SSAtb");
    bars->userOpensMenu(u"ID_mnuDocumentos");
    if (form->loaded()) bars->userSelects(tool);
    return true;
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
  void resizeEvent(QResizeEvent* event) override {
    fitColumns();
    QListWidget::resizeEvent(event);
  }

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

  // With nothing selected the first of these keys selects, and the next one moves.
  void keyPressEvent(QKeyEvent* event) override {
    const bool starts = list_->selectedIndex() == 0 && count() > 0 && startsFromItem(event->key());
    if (starts) setCurrentRow(std::max(currentRow(), 0));
    const QPointer<DocumentList> self(this);
    if (!starts || event->key() == Qt::Key_F2) QListWidget::keyPressEvent(event);
    if (!self) return;
    const int index = selectedItems().isEmpty() ? 0 : currentRow() + 1;
    if (index != list_->selectedIndex())
      act([](forms::ListView& list, int selected) { list.userSelects(selected); }, index);
  }

  void startDrag(Qt::DropActions) override {
    const int row = currentRow();
    if (row < 0) return;
    const QPointer<DocumentList> self(this);
    const auto kept = list_;
    const Text file = kept->userDragsOut(row + 1);
    if (!self || file.empty() || row >= count()) return;
    auto* drag = new QDrag(this);
    drag->setMimeData(new LeavingFile(file, fromQt(item(row)->text())));
    drag->setPixmap(item(row)->icon().pixmap(iconSize()));
    drag->exec(Qt::CopyAction);
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

  void dragEnterEvent(QDragEnterEvent* event) override { drops_.over(*event); }
  void dragMoveEvent(QDragMoveEvent* event) override { drops_.over(*event); }
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
  NameDelegate* names_ = new NameDelegate(this);
  const ViewRow* view_ = nullptr;
  bool afterDoubleClick_ = false;
  bool byKeyboard_ = false;  // while it asks for a menu
};

class ListWidget : public ControlWidget {
 public:
  ListWidget(const forms::ControlRef& control, QWidget* parent)
      : ListWidget(control, new DocumentList(control, parent)) {}

  void commit() override { list_->leaveEditor(); }
  bool takesKey(QKeyEvent& event) override { return list_->takesKey(event); }
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
      drawn_[static_cast<std::size_t>(list_->row(item))].text = fromQt(item->text());
      model().userEditsLabel(fromQt(item->text()));
      if (self) follow(Property::Items);
    });
  }

  // Only what differs: a list is filled item by item, and each tells that it changed.
  void followItems() {
    const auto& items = model().items();
    const int count = static_cast<int>(items.size());
    while (list_->count() > count) delete list_->takeItem(count);
    drawn_.resize(std::min(drawn_.size(), items.size()));
    for (std::size_t i = 0; i < items.size(); ++i) {
      if (i == drawn_.size()) {
        list_->addItem(new QListWidgetItem);
        drawn_.push_back(items[i]);
      } else if (drawn_[i] == items[i]) {
        continue;
      } else {
        drawn_[i] = items[i];
      }
      draw(*list_->item(static_cast<int>(i)), items[i]);
    }
    list_->fitColumns();
  }

  void draw(QListWidgetItem& item, const ListItem& shown) const {
    item.setText(toQt(shown.text));
    item.setToolTip(tipOf(toQt(shown.text)));
    item.setIcon(icon(shown.icon));
    item.setFlags(Qt::ItemIsSelectable | Qt::ItemIsEnabled | Qt::ItemIsDragEnabled |
                  (control().has(forms::labelEdit) ? Qt::ItemIsEditable : Qt::NoItemFlags));
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

  void followView() { list_->layOut(views[model().View()]); }

  forms::ListView& model() const { return static_cast<forms::ListView&>(control()); }

  DocumentList* list_;
  std::vector<ListItem> drawn_;
};

}  // namespace

ControlWidgetPtr makeListWidget(const forms::ControlRef& control, QWidget* parent) {
  return std::make_unique<ListWidget>(control, parent);
}

}  // namespace ovalia::desktop
