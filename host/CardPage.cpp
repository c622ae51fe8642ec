#include "host/CardPage.h"

#include <QApplication>
#include <QGridLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTabBar>
#include <QTimer>
#include <QVBoxLayout>

#include "desktop/QtText.h"
#include "host/Contract.h"
#include "host/Escapes.h"

namespace ovalia::host {

using desktop::fromQt;
using desktop::toQt;

namespace {

constexpr int memoLines = 3;

void setFieldText(QWidget* box, const QString& text) {
  if (auto* line = qobject_cast<QLineEdit*>(box)) {
    if (line->text() == text) return;
    line->setText(text);
    line->setCursorPosition(0);
  } else if (auto* memo = qobject_cast<QPlainTextEdit*>(box); memo && memo->toPlainText() != text) {
    memo->setPlainText(text);
  }
}

}  // namespace

CardPage::CardPage(std::shared_ptr<HostCard> card, QWidget* parent)
    : QWidget(parent), card_(std::move(card)), contract_(cardContract(card_)) {
  auto* all = new QVBoxLayout(this);
  all->addLayout(new QGridLayout);
  buildFields();
  pages_ = new QTabWidget(this);
  buildLists();
  all->addWidget(pages_, 1);

  card_->activeControl = [this] { return lastControl_; };
  card_->refreshed = [this] { refresh(); };
  card_->gone = [this] { gone(); };
  card_->counted = [this](AnnotationList& list) { showCount(list); };
  card_->marked = [this](TextView grid) {
    ListPane* marked = pane(grid);
    return marked ? marked->grid().selectedKeys() : std::vector<std::int32_t>();
  };
  QObject::connect(save_, &QPushButton::clicked, this, telling([this] { card_->save(); }));
  QObject::connect(undo_, &QPushButton::clicked, this, telling([this] { card_->undo(); }));
  QObject::connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
    if (now && isAncestorOf(now)) lastControl_ = fromQt(now->objectName());
  });
  refresh();
}

CardPage::~CardPage() {
  card_->activeControl = [] { return Text(); };
  card_->refreshed = [] {};
  card_->gone = [] {};
  card_->counted = [](AnnotationList&) {};
  card_->marked = [](TextView) { return std::vector<std::int32_t>(); };
  for (const auto& list : card_->lists()) list->changed = [] {};
}

// Two columns of labelled boxes; wide ones below, over both.
void CardPage::buildFields() {
  auto* grid = static_cast<QGridLayout*>(layout()->itemAt(0)->layout());
  int place = 0;
  for (const FieldDesign& field : card_->form().fields) {
    if (field.wide && place % 2) ++place;
    const int row = place / 2, column = place % 2 * 2;
    auto* label = new QLabel(toQt(field.label) + u':', this);
    QWidget* box;
    if (field.kind == FieldKind::Memo) {
      auto* memo = new QPlainTextEdit(this);
      memo->setTabChangesFocus(true);
      memo->setFixedHeight(memo->fontMetrics().lineSpacing() * memoLines + 12);
      QObject::connect(memo, &QPlainTextEdit::textChanged, this,
                       telling([this, &field, memo] { edited(field, memo->toPlainText()); }));
      box = memo;
    } else {
      auto* line = new QLineEdit(this);
      line->setReadOnly(field.kind == FieldKind::Shown);
      if (line->isReadOnly()) {
        line->setFocusPolicy(Qt::ClickFocus);
        QPalette grey = line->palette();
        grey.setColor(QPalette::Base, grey.color(QPalette::Window));
        line->setPalette(grey);
      }
      QObject::connect(line, &QLineEdit::textEdited, this,
                       telling([this, &field](const QString& text) { edited(field, text); }));
      box = line;
    }
    box->setObjectName(toQt(field.control));
    box->setAccessibleName(desktop::spoken(field.label));
    label->setBuddy(box);
    grid->addWidget(label, row, column, field.kind == FieldKind::Memo ? Qt::AlignTop : Qt::AlignVCenter);
    grid->addWidget(box, row, column + 1, 1, field.wide ? 3 : 1);
    fields_[&field] = box;
    place += field.wide ? 2 : 1;
  }
  save_ = new QPushButton(QStringLiteral("&Guardar"), this);
  undo_ = new QPushButton(QStringLiteral("Deshacer &cambios"), this);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(save_);
  buttons->addWidget(undo_);
  grid->addLayout(buttons, (place + 1) / 2, 0, 1, 4);
  grid->setColumnStretch(1, 1);
  grid->setColumnStretch(3, 1);
}

void CardPage::buildLists() {
  for (const auto& list : card_->lists()) {
    auto* pane = new ListPane(*list, this);
    panes_.push_back(pane);
    pages_->addTab(pane, toQt(list->design().caption));
    pane->rowChanged = [this] { followCalls(); };
    list->changed = [this, pane] {
      pane->followList();
      showCount(pane->list());
      followCalls();
    };
  }
  // A page chosen by its letter is there to be worked on; one reached along the bar is not yet.
  QObject::connect(pages_, &QTabWidget::currentChanged, this, [this](int index) {
    if (!pages_->tabBar()->hasFocus()) panes_[static_cast<std::size_t>(index)]->grid().setFocus();
  });
  pages_->tabBar()->installEventFilter(this);
  if (!panes_.empty()) setFocusProxy(&panes_.front()->grid());
}

// The letter of the page that is there already leads into its grid as well.
bool CardPage::eventFilter(QObject* object, QEvent* event) {
  if (object == pages_->tabBar() && event->type() == QEvent::Shortcut)
    QTimer::singleShot(
        0, this, [this] { panes_[static_cast<std::size_t>(pages_->currentIndex())]->grid().setFocus(); });
  return QWidget::eventFilter(object, event);
}

void CardPage::followCalls() {
  if (!card_->followAdvertisement()) return;
  ListPane* calls = pane(u"grdLlamada");
  calls->followList();
  showCount(calls->list());
}

void CardPage::showCount(AnnotationList& list) {
  QString caption = toQt(list.design().caption);
  if (list.parent()) caption += QStringLiteral(" (%1)").arg(list.count());
  pages_->setTabText(pages_->indexOf(pane(list.design().grid)), caption);
}

void CardPage::edited(const FieldDesign& field, const QString& text) {
  if (filling_) return;
  card_->userEdits(field, fromQt(text));
  save_->setEnabled(card_->state() != HostCard::clean);
  undo_->setEnabled(card_->state() != HostCard::clean);
}

void CardPage::refresh() {
  filling_ = true;
  for (const auto& [field, box] : fields_) setFieldText(box, toQt(card_->shown(*field)));
  filling_ = false;
  save_->setEnabled(card_->state() != HostCard::clean);
  undo_->setEnabled(card_->state() != HostCard::clean);
  for (ListPane* pane : panes_) {
    pane->followList();
    showCount(pane->list());
  }
  followCalls();
  captionChanged();
}

ListPane* CardPage::pane(TextView grid) {
  for (ListPane* pane : panes_)
    if (sameName(pane->list().design().grid, grid)) return pane;
  return nullptr;
}

void CardPage::showPane(ListPane& pane) { pages_->setCurrentWidget(&pane); }

}  // namespace ovalia::host
