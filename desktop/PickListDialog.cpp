#include "desktop/PickListDialog.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/FoldedText.h"
#include "desktop/QtText.h"
#include "desktop/Scale.h"
#include "platform/Platform.h"

namespace ovalia::desktop {

namespace {

constexpr int rowRole = Qt::UserRole;
constexpr int allRow = -1;
constexpr double narrowest = 4200;  // twips
constexpr double lowest = 4800;

constexpr int exclamation = 48;
constexpr int yesNoQuestionNo = 4 + 32 + 256;
constexpr int yes = 6;

}  // namespace

PickListDialog::PickListDialog(ListSource& source, const Settings& settings)
    : source_(source), settings_(settings) {
  setWindowTitle(toQt(settings.title));
  setWindowModality(Qt::ApplicationModal);
  setObjectName(QStringLiteral("listado"));
  build(settings.width);
}

void PickListDialog::build(double width) {
  search_ = new QLineEdit(this);
  search_->setObjectName(QStringLiteral("buscar"));
  search_->setPlaceholderText(QStringLiteral("Escriba para buscar"));
  search_->setClearButtonEnabled(true);
  search_->installEventFilter(this);
  auto* label = new QLabel(QStringLiteral("&Buscar:"), this);
  label->setBuddy(search_);
  search_->setAccessibleName(QStringLiteral("Buscar"));

  list_ = new QListWidget(this);
  list_->setObjectName(QStringLiteral("lista"));
  list_->setAccessibleName(windowTitle());
  list_->setUniformItemSizes(true);
  count_ = new QLabel(this);
  count_->setTextFormat(Qt::PlainText);

  auto* row = new QHBoxLayout;
  row->addWidget(label);
  row->addWidget(search_, 1);
  auto* side = new QVBoxLayout;
  accept_ = addButton(QStringLiteral("&Aceptar"), QStringLiteral("Elegir el elemento señalado"), true);
  QPushButton* cancel = addButton(QStringLiteral("&Cancelar"), QStringLiteral("Cerrar sin elegir"), true);
  add_ = addButton(QStringLiteral("&Nuevo..."), QStringLiteral("Añadir un elemento (Insertar)"),
                   settings_.mayAdd);
  rename_ = addButton(QStringLiteral("&Modificar..."), QStringLiteral("Cambiar el nombre (F2)"),
                      settings_.mayRename);
  remove_ =
      addButton(QStringLiteral("B&orrar"), QStringLiteral("Borrar el elemento (Supr)"), settings_.mayDelete);
  accept_->setDefault(true);
  side->addWidget(accept_);
  side->addWidget(cancel);
  side->addSpacing(12);
  for (QPushButton* button : {add_, rename_, remove_}) side->addWidget(button);
  side->addStretch();

  auto* left = new QVBoxLayout;
  left->addLayout(row);
  left->addWidget(list_, 1);
  left->addWidget(count_);
  auto* whole = new QHBoxLayout(this);
  whole->addLayout(left, 1);
  whole->addLayout(side);

  const Scale scale = Scale::of(*this);
  list_->setMinimumWidth(scale.pixels(std::max(width, narrowest / 2)));
  resize(sizeHint().expandedTo(QSize(scale.pixels(narrowest), scale.pixels(lowest))));

  connect(search_, &QLineEdit::textChanged, this, [this] { fill(); });
  connect(list_, &QListWidget::currentRowChanged, this, [this] { enableButtons(); });
  connect(list_, &QListWidget::itemDoubleClicked, this, [this] { accept(); });
  connect(accept_, &QPushButton::clicked, this, [this] { accept(); });
  connect(cancel, &QPushButton::clicked, this, [this] { reject(); });
  connect(add_, &QPushButton::clicked, this, [this] { add(); });
  connect(rename_, &QPushButton::clicked, this, [this] { rename(); });
  connect(remove_, &QPushButton::clicked, this, [this] { removeRow(); });
}

QPushButton* PickListDialog::addButton(const QString& text, const QString& tip, bool there) {
  auto* button = new QPushButton(text, this);
  button->setToolTip(tip);
  button->setAutoDefault(false);
  button->setVisible(there);
  return button;
}

void PickListDialog::load() {
  rows_ = source_.rows();
  fill();
  select(settings_.chosen);
  search_->setFocus();
}

void PickListDialog::fill() {
  const ListSource::Row* before = current();
  const Text kept = before ? before->name : Text();
  const QString wanted = folded(search_->text().trimmed());
  list_->clear();
  if (settings_.offersAll && wanted.isEmpty()) {
    auto* all = new QListWidgetItem(QStringLiteral("(Todos)"), list_);
    all->setData(rowRole, allRow);
  }
  for (std::size_t i = 0; i < rows_.size(); ++i) {
    const QString name = toQt(rows_[i].name);
    if (!folded(name).contains(wanted)) continue;
    auto* item = new QListWidgetItem(name, list_);
    item->setData(rowRole, static_cast<int>(i));
  }
  select(kept);
  if (list_->currentRow() < 0) list_->setCurrentRow(0);
  const int shown = list_->count() - (settings_.offersAll && wanted.isEmpty() ? 1 : 0);
  count_->setText(shown == 1 ? QStringLiteral("1 elemento") : QStringLiteral("%1 elementos").arg(shown));
  enableButtons();
}

void PickListDialog::select(TextView name) {
  if (name.empty()) return;
  for (int i = 0; i < list_->count(); ++i) {
    if (!sameName(fromQt(list_->item(i)->text()), name)) continue;
    list_->setCurrentRow(i);
    list_->scrollToItem(list_->item(i));
    return;
  }
}

void PickListDialog::enableButtons() {
  accept_->setEnabled(list_->currentItem() != nullptr);
  rename_->setEnabled(current() && !current()->id.isEmpty());
  remove_->setEnabled(current() && !current()->id.isEmpty());
}

const ListSource::Row* PickListDialog::current() const {
  const QListWidgetItem* item = list_->currentItem();
  const int row = item ? item->data(rowRole).toInt() : allRow;
  return row == allRow ? nullptr : &rows_[static_cast<std::size_t>(row)];
}

Text PickListDialog::chosen() const {
  const ListSource::Row* row = current();
  return row ? row->name : Text();
}

// "" when the user gives none or one that the list has already.
Text PickListDialog::askName(TextView prompt, TextView initial, const ListSource::Row* except) {
  Screen& screen = *Platform::current().screen;
  Text name = trimBlanks(screen.inputBox(prompt, settings_.title, initial));
  if (name.empty() || name == initial) return {};
  const bool there = std::any_of(rows_.begin(), rows_.end(), [&](const ListSource::Row& row) {
    return &row != except && sameName(row.name, name);
  });
  if (!there) return name;
  screen.messageBox(listFailureText(Failure(dao::failure::duplicateKey), name), exclamation, settings_.title);
  return {};
}

// Does it, reads the rows again and tells the user when it could not be done.
bool PickListDialog::tried(TextView name, const std::function<void()>& change) {
  try {
    change();
    rows_ = source_.rows();
    return true;
  } catch (...) {
    Platform::current().screen->messageBox(listFailureText(currentFailure(), name), exclamation,
                                           settings_.title);
    return false;
  }
}

void PickListDialog::add() {
  const Text name = askName(u"Nombre del nuevo elemento:", fromQt(search_->text().trimmed()), nullptr);
  if (name.empty() || !tried(name, [&] { source_.add(name); })) return;
  added_ = name;
  search_->clear();
  fill();
  select(name);
}

void PickListDialog::rename() {
  const ListSource::Row* row = current();
  if (!row || row->id.isEmpty()) return;
  const ListSource::Row old = *row;
  const Text name = askName(u"Nuevo nombre:", old.name, row);
  if (name.empty() || !tried(name, [&] { source_.rename(old.id, name); })) return;
  if (added_ == old.name) added_ = name;
  search_->clear();
  fill();
  select(name);
}

void PickListDialog::removeRow() {
  const ListSource::Row* row = current();
  if (!row || row->id.isEmpty()) return;
  const ListSource::Row old = *row;
  const int place = list_->currentRow();
  const int answer = Platform::current().screen->messageBox(
      join(u"¿Desea borrar «", old.name, u"» de la lista?"), yesNoQuestionNo, settings_.title);
  if (answer != yes || !tried(old.name, [&] { source_.remove(old.id); })) return;
  if (added_ == old.name) added_.clear();
  fill();
  list_->setCurrentRow(std::min(place, list_->count() - 1));
}

void PickListDialog::keyPressEvent(QKeyEvent* event) {
  struct KeyRow {
    int key;
    QPushButton* button;
  };
  for (const KeyRow& row :
       {KeyRow{Qt::Key_Insert, add_}, KeyRow{Qt::Key_F2, rename_}, KeyRow{Qt::Key_Delete, remove_},
        KeyRow{Qt::Key_Return, accept_}, KeyRow{Qt::Key_Enter, accept_}})
    if (event->key() == row.key)
      return row.button->isVisible() && row.button->isEnabled() ? row.button->click() : void();
  QDialog::keyPressEvent(event);
}

// The arrows in the search box walk the list.
bool PickListDialog::eventFilter(QObject* object, QEvent* event) {
  if (object == search_ && event->type() == QEvent::KeyPress) {
    auto& key = static_cast<QKeyEvent&>(*event);
    switch (key.key()) {
      case Qt::Key_Up:
      case Qt::Key_Down:
      case Qt::Key_PageUp:
      case Qt::Key_PageDown:
        QCoreApplication::sendEvent(list_, event);
        return true;
      default:
        break;
    }
  }
  return QDialog::eventFilter(object, event);
}

}  // namespace ovalia::desktop
