#include "desktop/TemplatePickerDialog.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPrinterInfo>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/FoldedText.h"
#include "desktop/QtText.h"
#include "desktop/Scale.h"
#include "platform/Platform.h"
#include "system/PathLookup.h"

namespace ovalia::desktop {

namespace {

constexpr int nameRole = Qt::UserRole;  // the place in the list of names
constexpr double atLeastWide = 6600;    // twips
constexpr double atLeastHigh = 5400;

// What word processors and other systems keep beside a document while it is in use; it ends like the
// document.
bool isCompanion(TextView name) { return name.starts_with(u"~$") || name.starts_with(u'.'); }

QString withoutEnding(const QString& name) {
  const qsizetype point = name.lastIndexOf(u'.');
  return point > 0 ? name.left(point) : name;
}

std::vector<Text> systemPrinters() {
  std::vector<Text> names;
  const QString usual = QPrinterInfo::defaultPrinterName();
  for (const QString& name : QPrinterInfo::availablePrinterNames())
    names.insert(name == usual ? names.begin() : names.end(), fromQt(name));
  return names;
}

std::vector<Text> printers() {
  const auto& given = TemplatePicking::current().printers;
  return given ? given() : systemPrinters();
}

QString described(TextView path) {
  const auto& describe = TemplatePicking::current().describe;
  return describe ? toQt(describe(nativePath(path))) : QString();
}

}  // namespace

TemplatePickerDialog::TemplatePickerDialog(TextView mask, bool asksWhere) {
  setObjectName(QStringLiteral("plantillas"));
  setWindowTitle(asksWhere ? QStringLiteral("Imprimir con una plantilla")
                           : QStringLiteral("Elegir una plantilla"));
  setWindowModality(Qt::ApplicationModal);
  build(asksWhere);
  read(mask);
  fill();
  select(TemplatePicking::current().chosen);
  search_->setFocus();
}

void TemplatePickerDialog::build(bool asksWhere) {
  search_ = new QLineEdit(this);
  search_->setObjectName(QStringLiteral("buscar"));
  search_->setPlaceholderText(QStringLiteral("Escriba para buscar"));
  search_->setClearButtonEnabled(true);
  search_->setAccessibleName(QStringLiteral("Buscar"));
  search_->installEventFilter(this);
  auto* label = new QLabel(QStringLiteral("&Buscar:"), this);
  label->setBuddy(search_);
  list_ = new QListWidget(this);
  list_->setObjectName(QStringLiteral("lista"));
  list_->setAccessibleName(QStringLiteral("Plantillas"));
  list_->setUniformItemSizes(true);
  about_ = new QLabel(this);
  about_->setObjectName(QStringLiteral("datos"));
  about_->setTextFormat(Qt::PlainText);
  about_->setWordWrap(true);
  about_->setAlignment(Qt::AlignTop | Qt::AlignLeft);
  about_->setMinimumHeight(fontMetrics().lineSpacing() * 3);

  auto* row = new QHBoxLayout;
  row->addWidget(label);
  row->addWidget(search_, 1);
  auto* whole = new QVBoxLayout(this);
  whole->addLayout(row);
  whole->addWidget(list_, 1);
  whole->addWidget(about_);
  if (asksWhere) buildWhere();

  accept_ = new QPushButton(asksWhere ? QStringLiteral("&Imprimir") : QStringLiteral("&Aceptar"), this);
  accept_->setDefault(true);
  auto* cancel = new QPushButton(QStringLiteral("&Cancelar"), this);
  cancel->setAutoDefault(false);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(accept_);
  buttons->addWidget(cancel);
  whole->addLayout(buttons);
  const Scale scale = Scale::of(*this);
  resize(sizeHint().expandedTo(QSize(scale.pixels(atLeastWide), scale.pixels(atLeastHigh))));

  connect(search_, &QLineEdit::textChanged, this, [this] { fill(); });
  connect(list_, &QListWidget::currentRowChanged, this, [this] { showSelected(); });
  connect(list_, &QListWidget::itemDoubleClicked, this, [this] { accept(); });
  connect(accept_, &QPushButton::clicked, this, [this] { accept(); });
  connect(cancel, &QPushButton::clicked, this, [this] { reject(); });
}

void TemplatePickerDialog::buildWhere() {
  where_ = new QComboBox(this);
  where_->setObjectName(QStringLiteral("destino"));
  where_->setAccessibleName(QStringLiteral("Destino"));
  auto* label = new QLabel(QStringLiteral("&Destino:"), this);
  label->setBuddy(where_);
  const auto add = [&](const QString& text, PrintWish place) {
    where_->addItem(text);
    places_.push_back(std::move(place));
  };
  for (Text& printer : printers()) {
    const QString text = QStringLiteral("Impresora %1").arg(toQt(printer));
    add(text, {PrintWish::Where::printer, std::move(printer)});
  }
  add(QStringLiteral("Documento nuevo en pantalla"), {PrintWish::Where::screen});
  add(QStringLiteral("Fichero PDF..."), {PrintWish::Where::pdf});
  const auto last = std::ranges::find(places_, TemplatePicking::current().wish);
  where_->setCurrentIndex(last == places_.end() ? 0 : static_cast<int>(last - places_.begin()));
  auto* row = new QHBoxLayout;
  row->addWidget(label);
  row->addWidget(where_, 1);
  static_cast<QVBoxLayout*>(layout())->addLayout(row);
}

void TemplatePickerDialog::read(TextView mask) {
  const auto end = mask.rfind(u'\\');
  folder_ = end == TextView::npos ? Text() : Text(mask.substr(0, end + 1));
  const TextView wanted = end == TextView::npos ? mask : mask.substr(end + 1);
  const QString shownFolder = toQt(nativePath(folder_));
  try {
    for (const Files::Entry& entry : Platform::current().files->list(folder_))
      if (!(entry.attributes & Files::directoryAttribute) && !isCompanion(entry.name) &&
          system::fitsMask(entry.name, wanted))
        names_.push_back(entry.name);
    problem_ = QStringLiteral("No hay ninguna plantilla en la carpeta %1.").arg(shownFolder);
  } catch (...) {
    problem_ = QStringLiteral("No se puede leer la carpeta %1. %2")
                   .arg(shownFolder, toQt(currentFailure().description()));
  }
  std::ranges::sort(names_, {}, [](const Text& name) { return std::pair(folded(toQt(name)), name); });
}

void TemplatePickerDialog::fill() {
  const Text kept = path();
  const QString wanted = folded(search_->text().trimmed());
  list_->clear();
  for (std::size_t i = 0; i < names_.size(); ++i) {
    const QString shown = withoutEnding(toQt(names_[i]));
    if (!folded(shown).contains(wanted)) continue;
    auto* item = new QListWidgetItem(shown, list_);
    item->setData(nameRole, static_cast<int>(i));
    item->setToolTip(toQt(names_[i]));
  }
  list_->setCurrentRow(0);
  select(kept);
  showSelected();
}

void TemplatePickerDialog::select(TextView path) {
  for (int i = 0; i < list_->count(); ++i)
    if (folder_ + names_[list_->item(i)->data(nameRole).toUInt()] == path) list_->setCurrentRow(i);
}

void TemplatePickerDialog::showSelected() {
  accept_->setEnabled(list_->currentItem());
  if (list_->currentItem()) return about_->setText(described(path()));
  about_->setText(names_.empty() ? problem_ : QStringLiteral("Ninguna plantilla se llama así."));
}

const Text& TemplatePickerDialog::name() const {
  static const Text none;
  const QListWidgetItem* item = list_->currentItem();
  return item ? names_[item->data(nameRole).toUInt()] : none;
}

Text TemplatePickerDialog::path() const { return name().empty() ? Text() : folder_ + name(); }

PrintWish TemplatePickerDialog::wish() const {
  return where_ ? places_[static_cast<std::size_t>(where_->currentIndex())] : PrintWish();
}

// The arrows in the search box walk the list.
bool TemplatePickerDialog::eventFilter(QObject* object, QEvent* event) {
  if (object == search_ && event->type() == QEvent::KeyPress) {
    constexpr int walking[] = {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown};
    if (std::ranges::count(walking, static_cast<QKeyEvent&>(*event).key())) {
      QCoreApplication::sendEvent(list_, event);
      return true;
    }
  }
  return QDialog::eventFilter(object, event);
}

}  // namespace ovalia::desktop
