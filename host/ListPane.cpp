#include "host/ListPane.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "desktop/QtText.h"
#include "host/Escapes.h"

namespace ovalia::host {

using desktop::toQt;

namespace {

struct Wording {
  Kind kind;
  const char16_t* add;
};
constexpr Wording wordings[] = {{Kind::Nota, u"Nota nueva"},
                                {Kind::Visita, u"Visita nueva"},
                                {Kind::Anuncio, u"Anuncio nuevo"},
                                {Kind::Llamada, u"Llamada nueva"}};

std::vector<GridView::Column> columnsOf(Kind kind) {
  std::vector<GridView::Column> columns;
  for (const GridColumn& column : gridColumns(kind))
    columns.push_back({Text(column.field), toQt(column.heading), column.characters});
  return columns;
}

}  // namespace

ListPane::ListPane(AnnotationList& list, QWidget* parent) : QWidget(parent), list_(list) {
  const Kind kind = list.annotations().kind;
  grid_ = new GridView(toQt(list.design().grid), columnsOf(kind), u"IdAnota", kind == Kind::Nota, this);
  grid_->setAccessibleName(desktop::spoken(list.design().caption));
  open_ = new QPushButton(QStringLiteral("A&brir"), this);
  add_ = new QPushButton(QStringLiteral("Añadi&r"), this);
  add_->setToolTip(toQt(wordings[static_cast<std::size_t>(kind)].add));
  open_->setToolTip(QStringLiteral("Abre la ficha de la fila (Intro)"));

  auto* buttons = new QVBoxLayout;
  buttons->addWidget(open_);
  if (list.design().mayCreate) buttons->addWidget(add_);
  if (list.design().mayCreate && kind == Kind::Nota) buttons->addWidget(mailButton());
  add_->setVisible(list.design().mayCreate);
  buttons->addStretch();
  auto* all = new QHBoxLayout(this);
  all->addWidget(grid_, 1);
  all->addLayout(buttons);

  grid_->opened = [this] { openCurrent(); };
  grid_->moved = [this] { rowMoved(); };
  QObject::connect(open_, &QPushButton::clicked, this, telling([this] { openCurrent(); }));
  QObject::connect(add_, &QPushButton::clicked, this, telling([this] { addNew(); }));
}

QPushButton* ListPane::mailButton() {
  import_ = new QPushButton(QStringLiteral("Importar correo..."), this);
  import_->setToolTip(QStringLiteral("Hace notas de correos guardados como ficheros .eml (Control+I)"));
  import_->setShortcut(Qt::CTRL | Qt::Key_I);
  QObject::connect(import_, &QPushButton::clicked, this, telling([this] { importMails(); }));
  return import_;
}

void ListPane::fill() {
  filled_ = true;
  shownParent_ = list_.parent();
  grid_->show(list_.separateRecordset(), list_.currentKey());
  followButtons();
}

void ListPane::followList() {
  if (!isVisible()) {
    filled_ = false;
  } else if (!filled_ || shownParent_ != list_.parent()) {
    fill();
  } else {
    grid_->reload(list_.currentKey());
    followButtons();
  }
}

void ListPane::showEvent(QShowEvent* event) {
  if (!filled_) fill();
  QWidget::showEvent(event);
}

void ListPane::followButtons() {
  open_->setEnabled(grid_->currentKey() != 0);
  add_->setEnabled(list_.mayCreate());
  if (import_) import_->setEnabled(list_.mayCreate());
}

void ListPane::rowMoved() {
  followButtons();
  const std::int32_t key = grid_->currentKey();
  if (key && key != list_.currentKey()) list_.goTo(key);
  rowChanged();
}

void ListPane::openCurrent() {
  const std::int32_t key = grid_->currentKey();
  if (key && list_.goTo(key)) list_.openCard();
}

void ListPane::addNew() {
  if (list_.mayCreate()) list_.createCard();
}

void ListPane::importMails() {
  const std::int32_t note = list_.takeMails();
  if (note && list_.goTo(note)) list_.changed();
}

}  // namespace ovalia::host
