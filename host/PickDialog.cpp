#include "host/PickDialog.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace ovalia::host {

PickDialog::PickDialog(const QString& title, const QStringList& names, const QStringList& chosen,
                       bool several, QWidget* parent)
    : QDialog(parent), several_(several), wanted_(new QLineEdit(this)), list_(new QListWidget(this)) {
  setObjectName(QStringLiteral("elegir"));
  setWindowTitle(title);
  auto* label = new QLabel(QStringLiteral("&Buscar:"), this);
  label->setBuddy(wanted_);
  list_->setAccessibleName(title);
  list_->setSpacing(1);
  auto* buttons = new QDialogButtonBox(this);
  buttons->addButton(QStringLiteral("&Aceptar"), QDialogButtonBox::AcceptRole)->setDefault(true);
  buttons->addButton(QStringLiteral("&Cancelar"), QDialogButtonBox::RejectRole);
  auto* all = new QVBoxLayout(this);
  all->addWidget(label);
  all->addWidget(wanted_);
  all->addWidget(list_, 1);
  all->addWidget(buttons);

  for (const QString& name : names) {
    auto* item = new QListWidgetItem(name, list_);
    const bool isChosen = chosen.contains(name, Qt::CaseInsensitive);
    if (several) item->setCheckState(isChosen ? Qt::Checked : Qt::Unchecked);
    if (isChosen && !list_->currentItem()) list_->setCurrentItem(item);
  }
  if (!list_->currentItem()) list_->setCurrentRow(0);
  list_->setFocus();

  QObject::connect(wanted_, &QLineEdit::textChanged, this, [this](const QString& text) { filter(text); });
  QObject::connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
  QObject::connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  if (!several) QObject::connect(list_, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
  resize(fontMetrics().averageCharWidth() * 50, fontMetrics().height() * 24);
}

void PickDialog::filter(const QString& wanted) {
  QListWidgetItem* first = nullptr;
  for (int i = 0; i < list_->count(); ++i) {
    QListWidgetItem* item = list_->item(i);
    item->setHidden(!item->text().contains(wanted, Qt::CaseInsensitive));
    if (!first && !item->isHidden()) first = item;
  }
  if (list_->currentItem() && list_->currentItem()->isHidden()) list_->setCurrentItem(first);
}

QStringList PickDialog::chosen() const {
  QStringList names;
  for (int i = 0; i < list_->count(); ++i) {
    const QListWidgetItem* item = list_->item(i);
    const bool isChosen = several_ ? item->checkState() == Qt::Checked : item == list_->currentItem();
    if (isChosen) names += item->text();
  }
  return names;
}

}  // namespace ovalia::host
