#include "host/ListPage.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/QtText.h"
#include "host/Contract.h"
#include "host/Escapes.h"

namespace ovalia::host {

using desktop::fromQt;
using desktop::toQt;

namespace {

std::vector<GridView::Column> columnsOf(const HostForm& form) {
  std::vector<GridView::Column> columns;
  for (const ListColumn& column : form.columns)
    columns.push_back({Text(column.field), toQt(column.heading), column.characters});
  return columns;
}

}  // namespace

ListPage::ListPage(const HostForm& form, Workplace& workplace, QWidget* parent)
    : QWidget(parent), form_(form), workplace_(workplace) {
  auto* label = new QLabel(QStringLiteral("B&uscar:"), this);
  wanted_ = new QLineEdit(this);
  wanted_->setObjectName(QStringLiteral("txtBuscar"));
  wanted_->setClearButtonEnabled(true);
  wanted_->setPlaceholderText(QStringLiteral("Parte de un texto"));
  label->setBuddy(wanted_);
  grid_ = new GridView(toQt(form.listForm), columnsOf(form), u"Id", false, this);
  grid_->setAccessibleName(desktop::spoken(form.listCaption));
  auto* open = new QPushButton(QStringLiteral("A&brir"), this);

  auto* top = new QHBoxLayout;
  top->addWidget(label);
  top->addWidget(wanted_, 1);
  top->addWidget(open);
  auto* all = new QVBoxLayout(this);
  all->addLayout(top);
  all->addWidget(grid_, 1);
  setFocusProxy(wanted_);
  wanted_->installEventFilter(this);
  QWidget::setTabOrder(wanted_, grid_);
  QWidget::setTabOrder(grid_, open);

  const auto openCurrent = [this] {
    if (const std::int32_t record = grid_->currentKey()) opened(record);
  };
  grid_->opened = openCurrent;
  QObject::connect(open, &QPushButton::clicked, this, telling(openCurrent));
  QObject::connect(wanted_, &QLineEdit::textChanged, this,
                   telling([this](const QString& text) { search(text); }));
  QObject::connect(wanted_, &QLineEdit::returnPressed, this, telling(openCurrent));

  const QPointer<ListPage> page(this);
  contract_ = listContract({Text(form.listForm), fromQt(desktop::spoken(form.listCaption)), Text(form.table),
                            Text(form.key), [page] { return page ? page->grid_->currentKey() : 0; },
                            [page]() -> ObjectRef { return page ? page->rows_ : nullptr; },
                            [page] {
                              if (page) page->reload();
                            }});
  search({});
}

void ListPage::search(const QString& wanted) {
  rows_ = workplace_.agency.database->OpenRecordset(searchQuery(form_, fromQt(wanted)), dao::dbOpenDynaset);
  grid_->show(rows_, 0);
}

// The arrows in the search box walk the list.
bool ListPage::eventFilter(QObject* object, QEvent* event) {
  constexpr int walking[] = {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown};
  const bool walks = object == wanted_ && event->type() == QEvent::KeyPress &&
                     std::ranges::find(walking, static_cast<QKeyEvent*>(event)->key()) != std::end(walking);
  if (walks) QCoreApplication::sendEvent(grid_, event);
  return walks;
}

void ListPage::reload() { grid_->reload(grid_->currentKey()); }

}  // namespace ovalia::host
