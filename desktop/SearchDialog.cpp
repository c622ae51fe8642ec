#include "desktop/SearchDialog.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QEventLoop>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPointer>
#include <QScreen>
#include <QShortcut>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>
#include <array>
#include <optional>

#include "desktop/CardWindow.h"
#include "desktop/DialogOwner.h"
#include "desktop/LineEnds.h"
#include "desktop/QtText.h"
#include "desktop/Scale.h"
#include "desktop/SearchCriterion.h"
#include "platform/Failure.h"
#include "routines/ErrorLog.h"

namespace ovalia::desktop {

namespace {

constexpr double textWidth = 3900;  // twips
constexpr double dayWidth = 1500;

// The button of each step, and what is said when nothing was found.
struct StepRow {
  SearchMode mode;
  const char16_t *caption, *tip, *nothing;
  int key;  // with the modifiers; 0 for none
};
constexpr std::array steps{
    StepRow{SearchMode::First, u"&Primero", u"Buscar desde el principio de la lista",
            u"No se ha encontrado en ninguna ficha de la lista.", 0},
    StepRow{SearchMode::Next, u"&Siguiente", u"Buscar hacia delante (F3)",
            u"No hay más hacia delante: la ficha es la misma.", Qt::Key_F3},
    StepRow{SearchMode::Previous, u"&Anterior", u"Buscar hacia atrás (Mayús+F3)",
            u"No hay más hacia atrás: la ficha es la misma.", int(Qt::SHIFT) | int(Qt::Key_F3)},
};

// Which days count as hits, by the days that are entered.
struct PeriodRow {
  const char16_t* caption;
  bool fromFirst, toFirst, toSecond;
};
constexpr std::array periods{
    PeriodRow{u"El día", true, true, false}, PeriodRow{u"Desde el", true, false, false},
    PeriodRow{u"Hasta el", false, true, false}, PeriodRow{u"Entre el", true, false, true}};

// The command of a card that there is something to do for while it has unsaved changes.
constexpr TextView saveTool = u"ID_Guardar";

QString caption(const char16_t* text) { return toQt(TextView(text)); }

// The window keeps its size whatever it shows.
void keepPlace(QWidget& part) {
  QSizePolicy policy = part.sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  part.setSizePolicy(policy);
}

void sayAloud(QWidget& part) {
  QAccessibleEvent said(&part, QAccessible::Alert);
  QAccessible::updateAccessibility(&said);
}

std::optional<Date> given(Date day) {
  if (day.days == 0) return std::nullopt;
  return day;
}

}  // namespace

SearchDialog::SearchDialog(std::vector<SearchField> fields, ObjectRef card, SearchWish& wish, QWidget* owner)
    : QDialog(owner), fields_(std::move(fields)), card_(std::move(card)), wish_(wish), kept_(wish) {
  setWindowTitle(QStringLiteral("Buscar"));
  setWindowModality(Qt::ApplicationModal);
  setObjectName(QStringLiteral("buscador"));
  build();
  showWish();
  if (owner) followOwner(*owner);
}

SearchDialog* SearchDialog::of(const ObjectRef& card) {
  for (QWidget* window : QApplication::topLevelWidgets())
    if (auto* dialog = dynamic_cast<SearchDialog*>(window);
        dialog && dialog->isVisible() && dialog->card_ == card)
      return dialog;
  return nullptr;
}

// Not `exec`: that makes every dialog modal.
void SearchDialog::run() {
  QEventLoop loop;
  connect(this, &QDialog::finished, &loop, &QEventLoop::quit);
  connect(this, &QObject::destroyed, &loop, &QEventLoop::quit);
  bringToFront();
  loop.exec();
}

void SearchDialog::bringToFront() {
  isMinimized() ? showNormal() : show();
  raise();
  activateWindow();
  focusInput();
}

void SearchDialog::done(int result) {
  const bool active = isActiveWindow();
  QDialog::done(result);
  if (active && parentWidget() && parentWidget()->isVisible()) parentWidget()->activateWindow();
}

void SearchDialog::followOwner(QWidget& owner) {
  adjustSize();  // one that is resized when it shows is placed without regard to its frame
  placeBeside(owner);
  owner.installEventFilter(this);
  if (const auto* save = owner.findChild<QAction*>(toQt(saveTool))) {
    const auto follow = [this, save] { warn(save->isEnabled()); };
    connect(save, &QAction::changed, this, follow);
    follow();
  }
  if (!owner.isModal()) return;
  setWindowModality(Qt::NonModal);
  auto* turning = new QShortcut(QKeySequence(Qt::Key_F6), this);
  turning->setContext(Qt::ApplicationShortcut);
  connect(turning, &QShortcut::activated, this, [this] { turn(); });
}

void SearchDialog::turn() { (isActiveWindow() ? parentWidget() : this)->activateWindow(); }

void SearchDialog::build() {
  const Scale scale = Scale::of(*this);
  auto* grid = new QGridLayout;
  const auto addRow = [&](int row, const QString& text, QWidget* input) {
    auto* label = new QLabel(text, this);
    label->setBuddy(input);
    grid->addWidget(label, row, 0);
    grid->addWidget(input, row, 1);
    if (input->accessibleName().isEmpty()) input->setAccessibleName(spoken(fromQt(text)));
    return label;
  };

  field_ = new QComboBox(this);
  field_->setObjectName(QStringLiteral("campo"));
  for (const SearchField& each : fields_) field_->addItem(toQt(each.label));
  addRow(0, QStringLiteral("Buscar &en:"), field_);

  text_ = new QLineEdit(this);
  text_->setObjectName(QStringLiteral("texto"));
  text_->setClearButtonEnabled(true);
  text_->setMinimumWidth(scale.pixels(textWidth));
  textLabel_ = addRow(1, QStringLiteral("&Texto:"), text_);
  whole_ = new QCheckBox(QStringLiteral("Campo co&mpleto"), this);
  whole_->setObjectName(QStringLiteral("completo"));
  whole_->setToolTip(QStringLiteral("El campo es ese texto y nada más"));
  grid->addWidget(whole_, 2, 1);
  accents_ = new QCheckBox(QStringLiteral("Sin &distinguir acentos"), this);
  accents_->setObjectName(QStringLiteral("acentos"));
  accents_->setToolTip(QStringLiteral("«camion» encuentra también «camión»; la ñ sigue siendo otra letra"));
  grid->addWidget(accents_, 3, 1);

  period_ = new QComboBox(this);
  period_->setObjectName(QStringLiteral("periodo"));
  for (const PeriodRow& row : periods) period_->addItem(caption(row.caption));
  periodLabel_ = addRow(1, QStringLiteral("&Fecha:"), period_);
  days_ = new QWidget(this);
  auto* row = new QHBoxLayout(days_);
  row->setContentsMargins(0, 0, 0, 0);
  first_ = addPicker("primera", wish_.first);
  second_ = addPicker("segunda", wish_.second);
  second_->editor()->setAccessibleName(QStringLiteral("Y el día"));
  andLabel_ = new QLabel(QStringLiteral("&y el"), days_);
  andLabel_->setBuddy(second_->editor());
  for (QWidget* part : std::initializer_list<QWidget*>{first_, andLabel_, second_}) row->addWidget(part);
  row->addStretch();
  grid->addWidget(days_, 2, 1);

  for (QWidget* part : std::initializer_list<QWidget*>{textLabel_, text_, whole_, accents_, periodLabel_,
                                                       period_, days_, andLabel_, second_})
    keepPlace(*part);
  grid->setRowStretch(4, 1);
  message_ = addLines("mensaje");
  grid->addWidget(message_, 5, 0, 1, 2);
  warning_ = addLines("aviso");
  warning_->setText(QStringLiteral("La ficha tiene cambios sin guardar: el próximo paso los olvida."));
  warning_->setVisible(false);
  keepPlace(*warning_);
  grid->addWidget(warning_, 6, 0, 1, 2);

  auto* column = new QVBoxLayout;
  buildButtons(*column);
  auto* whole = new QHBoxLayout(this);
  whole->addLayout(grid, 1);
  whole->addSpacing(8);
  whole->addLayout(column);
  whole->setSizeConstraint(QLayout::SetFixedSize);
}

QLabel* SearchDialog::addLines(const char* name) {
  auto* lines = new QLabel(this);
  lines->setObjectName(QString::fromLatin1(name));
  lines->setTextFormat(Qt::PlainText);
  lines->setWordWrap(true);
  lines->setAlignment(Qt::AlignLeft | Qt::AlignTop);
  lines->setMinimumHeight(2 * lines->fontMetrics().lineSpacing());
  return lines;
}

void SearchDialog::buildButtons(QVBoxLayout& column) {
  for (const StepRow& row : steps) {
    auto* button = new QPushButton(caption(row.caption), this);
    button->setToolTip(caption(row.tip));
    connect(button, &QPushButton::clicked, this, [this, mode = row.mode] { search(mode); });
    if (row.key != 0)
      connect(new QShortcut(QKeySequence(row.key), this), &QShortcut::activated, this,
              [this, mode = row.mode] { search(mode); });
    if (row.mode == SearchMode::First) toFirst_ = button;
    if (row.mode == SearchMode::Next) toNext_ = button;
    column.addWidget(button);
  }
  column.addStretch();
  auto* close = new QPushButton(QStringLiteral("&Cerrar"), this);
  close->setToolTip(QStringLiteral("Cerrar el buscador (Esc)"));
  connect(close, &QPushButton::clicked, this, [this] { reject(); });
  column.addWidget(close);
  toFirst_->setDefault(true);
}

PickerEdit* SearchDialog::addPicker(const char* name, Date& day) {
  auto* picker = new PickerEdit(PickerEdit::Day, false, days_);
  picker->setObjectName(QString::fromLatin1(name));
  picker->setFixedWidth(Scale::of(*this).pixels(dayWidth));
  picker->editor()->installEventFilter(this);
  picker->showValue(day);
  picker->chosen = [this, picker, &day](const Variant& value) {
    day = value.toDate();
    picker->showValue(value);
    changed();
  };
  return picker;
}

// A field that this card has not gives way to the first.
void SearchDialog::showWish() {
  const auto same = [&](const SearchField& each) { return each.label == wish_.label; };
  const auto found = std::find_if(fields_.begin(), fields_.end(), same);
  field_->setCurrentIndex(found == fields_.end() ? 0 : static_cast<int>(found - fields_.begin()));
  text_->setText(shownLines(wish_.text));
  whole_->setChecked(wish_.wholeField);
  accents_->setChecked(wish_.anyAccents);
  period_->setCurrentIndex(wish_.period);
  periodChosen();
  fieldChosen();

  connect(field_, &QComboBox::currentIndexChanged, this, [this] { fieldChosen(), changed(); });
  connect(text_, &QLineEdit::textChanged, this, [this] { changed(); });
  connect(whole_, &QCheckBox::toggled, this, [this] { changed(); });
  connect(accents_, &QCheckBox::toggled, this, [this] { changed(); });
  connect(period_, &QComboBox::currentIndexChanged, this, [this] { periodChosen(), changed(); });
}

void SearchDialog::focusInput() {
  QLineEdit* input = field().date ? first_->editor() : text_;
  input->setFocus();
  input->selectAll();
}

const SearchField& SearchDialog::field() const {
  return fields_[static_cast<std::size_t>(field_->currentIndex())];
}

void SearchDialog::fieldChosen() {
  const bool date = field().date;
  for (QWidget* part : std::initializer_list<QWidget*>{textLabel_, text_, whole_, accents_})
    part->setVisible(!date);
  for (QWidget* part : std::initializer_list<QWidget*>{periodLabel_, period_, days_}) part->setVisible(date);
}

void SearchDialog::periodChosen() {
  const PeriodRow& row = periods[static_cast<std::size_t>(period_->currentIndex())];
  andLabel_->setVisible(row.toSecond);
  second_->setVisible(row.toSecond);
  first_->editor()->setAccessibleName(caption(row.caption));
}

// Something else is looked for from now on.
void SearchDialog::changed() {
  wish_.label = field().label;
  wish_.text = storedLines(text_->text());
  wish_.wholeField = whole_->isChecked();
  wish_.anyAccents = accents_->isChecked();
  wish_.period = period_->currentIndex();
  kept_ = wish_;
  toFirst_->setDefault(true);
  tell({});
}

Text SearchDialog::criterion() const {
  if (!field().date) return textCriterion(field().name, wish_.text, wish_.wholeField, wish_.anyAccents);
  const PeriodRow& row = periods[static_cast<std::size_t>(wish_.period)];
  const auto from = row.fromFirst ? given(wish_.first) : std::nullopt;
  const auto to = row.toSecond ? given(wish_.second) : row.toFirst ? given(wish_.first) : std::nullopt;
  return dateCriterion(field().name, from, to);
}

// Whether everything is there that the search asks for; if not the user is told and put on what is missing.
bool SearchDialog::complete() {
  first_->commit();
  second_->commit();
  const PeriodRow& row = periods[static_cast<std::size_t>(wish_.period)];
  const auto missing = [&](QWidget* input, TextView message) {
    tell(message);
    input->setFocus();
    return false;
  };
  if (!field().date) return !wish_.text.empty() || missing(text_, u"Escriba el texto que busca.");
  if (!given(wish_.first)) return missing(first_->editor(), u"Escriba la fecha que busca.");
  if (row.toSecond && !given(wish_.second))
    return missing(second_->editor(), u"Escriba también la segunda fecha.");
  return true;
}

// What is half typed on the card belongs to the row that the step leaves.
bool SearchDialog::step(SearchMode mode) {
  const ActingWindow acting(*this);
  const Text wanted = criterion();
  const ObjectRef card = card_;
  if (auto* window = dynamic_cast<CardWindow*>(parentWidget())) window->commit();
  return callMember(card, u"BuscarElemento", {std::int16_t(mode), wanted}).toBoolean();
}

void SearchDialog::search(SearchMode mode) {
  if (!complete()) return;
  // A step may end with the card, and the dialog goes with its window.
  const QPointer<SearchDialog> self(this);
  bool found = false;
  try {
    found = step(mode);
    if (!self) return;
  } catch (...) {
    const Failure failure = currentFailure();
    EscribirErrLog(failure.description(), failure.number(), u"Buscar");
    if (!self) return;
    return tell(join(u"No se ha podido buscar: ", failure.description()));
  }
  if (found) {
    tell(u"La ficha muestra una coincidencia.");
    toNext_->setDefault(true);
    if (toFirst_->hasFocus()) toNext_->setFocus();
    return;
  }
  for (const StepRow& row : steps)
    if (row.mode == mode) tell(row.nothing);
}

void SearchDialog::tell(TextView message) {
  message_->setText(toQt(message));
  if (!message.empty()) sayAloud(*message_);
}

void SearchDialog::warn(bool unsaved) {
  if (unsaved == !warning_->isHidden()) return;
  warning_->setVisible(unsaved);
  if (unsaved) sayAloud(*warning_);
}

// The owner's going, and the pickers' own keys; what was typed counts when the user goes on.
bool SearchDialog::eventFilter(QObject* object, QEvent* event) {
  // Minimising the owner is no going: that comes from the window system.
  if (object == parentWidget() && event->type() == QEvent::Hide && !event->spontaneous()) reject();
  for (PickerEdit* picker : {first_, second_}) {
    if (!picker || object != picker->editor()) continue;
    if (event->type() == QEvent::FocusOut) {
      picker->commit();
    } else if (event->type() == QEvent::KeyPress) {
      auto& key = static_cast<QKeyEvent&>(*event);
      const bool enter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
      return picker->takesKey(key) && !enter;
    }
  }
  return QDialog::eventFilter(object, event);
}

void SearchDialog::placeBeside(const QWidget& owner) {
  // The widget may not have learned yet what frame its window has been given.
  const QRect frame = owner.windowHandle() ? owner.windowHandle()->frameGeometry() : owner.frameGeometry();
  const QSize border = frame.size() - owner.size();
  move(desktop::placeBeside(frame, sizeHint() + border, owner.screen()->availableGeometry()));
}

QPoint placeBeside(const QRect& other, QSize size, const QRect& desk) {
  const QPoint far = desk.bottomRight() - QPoint(size.width() - 1, size.height() - 1);
  const QPoint level(std::clamp(other.left(), desk.left(), std::max(desk.left(), far.x())),
                     std::clamp(other.top(), desk.top(), std::max(desk.top(), far.y())));
  for (const QPoint& place :
       {QPoint(other.right() + 1, level.y()), QPoint(other.left() - size.width(), level.y()),
        QPoint(level.x(), other.bottom() + 1), QPoint(level.x(), other.top() - size.height())})
    if (desk.contains(QRect(place, size))) return place;
  return {std::max(desk.left(), far.x()), std::max(desk.top(), far.y())};
}

}  // namespace ovalia::desktop
