#include "tests/host/desk/Clerk.h"

#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QKeySequence>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QMimeData>
#include <QTest>
#include <QToolBar>
#include <QToolButton>
#include <QUrl>

#include "desktop/QtText.h"
#include "tests/deskkit/Cards.h"
#include "tests/deskkit/Keyboard.h"
#include "tests/host/desk/Conversation.h"

namespace ovalia::host {

namespace {

[[noreturn]] void cannot(const std::string& why) { throw Failure(failure::badArgument, fromUtf8(why)); }

// The first word, and what follows the blank after it.
std::pair<std::string_view, std::string_view> parted(std::string_view line) {
  const std::size_t blank = line.find(' ');
  if (blank == line.npos) return {line, {}};
  return {line.substr(0, blank), line.substr(blank + 1)};
}

std::int32_t number(std::string_view digits) { return Variant(fromUtf8(digits)).toLong(); }

forms::Form& card() {
  const auto form = forms::Runtime::current().activeForm();
  if (!form) cannot("no card is open");
  return *form;
}

template <class Part>
Part& partOf(QWidget* whole, const char* name) {
  auto* found = whole ? whole->findChild<Part*>(QString::fromLatin1(name)) : nullptr;
  if (!found) cannot(std::string("there is no ") + name);
  return *found;
}

// A line end is the Enter key.
QString withLineEnds(std::string_view text) {
  return QString::fromStdString(std::string(text)).replace(QStringLiteral("⏎"), QStringLiteral("\n"));
}

}  // namespace

// ---- what it can do ----

struct Clerk::Verb {
  std::string_view word;
  void (Clerk::*run)(std::string_view rest);
};

constexpr Clerk::Verb Clerk::verbs[] = {{"property", &Clerk::property}, {"open", &Clerk::open},
                                        {"new", &Clerk::create},        {"type", &Clerk::type},
                                        {"tool", &Clerk::tool},         {"key", &Clerk::key},
                                        {"attach", &Clerk::attach},     {"press", &Clerk::press},
                                        {"find", &Clerk::find},         {"close", &Clerk::close}};

Clerk::Clerk(MainWindow& window, BeepingScreen& screen) : window_(window), screen_(screen) {}

std::string Clerk::obey(const std::string& line) {
  const auto [word, rest] = parted(line);
  if (word == "tell") return "is " + tell(rest);
  for (const Verb& verb : verbs)
    if (verb.word == word) {
      (this->*verb.run)(rest);
      return "done";
    }
  cannot("no such command");
}

ListPane& Clerk::pane(std::string_view grid) {
  CardPage* page = window_.openCard(hostForm(u"FichaInm"), property_);
  ListPane* found = page ? page->pane(fromUtf8(grid)) : nullptr;
  if (!found) cannot("there is no such list");
  page->showPane(*found);
  return *found;
}

void Clerk::property(std::string_view digits) { property_ = number(digits); }

void Clerk::open(std::string_view gridAndKey) {
  const auto [grid, key] = parted(gridAndKey);
  pane_ = &pane(grid);
  pane_->grid().reload(number(key));
  if (pane_->grid().currentKey() != number(key)) cannot("the list has no such row");
  pane_->openCurrent();
}

void Clerk::create(std::string_view grid) {
  pane_ = &pane(grid);
  pane_->addNew();
}

void Clerk::type(std::string_view controlAndText) {
  const auto [control, text] = parted(controlAndText);
  QWidget* input = deskkit::inputOf(card(), fromUtf8(control));
  if (!input) cannot("there is no such control");
  QTest::mouseClick(input, Qt::LeftButton);
  deskkit::press(Qt::Key_A, Qt::ControlModifier);
  text.empty() ? deskkit::press(Qt::Key_Delete) : deskkit::types(withLineEnds(text));
}

void Clerk::tool(std::string_view id) {
  const auto* window = deskkit::windowOf(card());
  const auto* bar = window ? window->findChild<QToolBar*>() : nullptr;
  if (!bar) cannot("the card has no tools");
  for (QToolButton* button : bar->findChildren<QToolButton*>()) {
    const QAction* action = button->defaultAction();
    if (!action || action->objectName() != QString::fromStdString(std::string(id))) continue;
    if (!button->isEnabled()) cannot("the tool is disabled");
    return button->click();
  }
  cannot("there is no such tool");
}

void Clerk::key(std::string_view sequence) {
  const QKeySequence keys(QString::fromStdString(std::string(sequence)), QKeySequence::PortableText);
  if (keys.count() != 1 || keys[0].key() == Qt::Key_unknown) cannot("there is no such key");
  deskkit::press(keys[0].key(), keys[0].keyboardModifiers());
}

void Clerk::attach(std::string_view path) {
  auto* files = new QMimeData;
  files->setUrls({QUrl::fromLocalFile(QString::fromStdString(std::string(path)))});
  QApplication::clipboard()->setMimeData(files);
  deskkit::press(Qt::Key_V, Qt::ControlModifier);
}

void Clerk::press(std::string_view caption) {
  auto* box = qobject_cast<QMessageBox*>(windowOnTop());
  if (!box) cannot("no box is up");
  for (QAbstractButton* button : box->buttons())
    if (button->text().remove(u'&').toStdString() == caption)
      return QTest::mouseClick(button, Qt::LeftButton);
  cannot("the box has no such button");
}

void Clerk::find(std::string_view fieldAndText) {
  const auto [field, text] = parted(fieldAndText);
  QWidget* dialog = windowOnTop();
  partOf<QComboBox>(dialog, "campo").setCurrentText(QString::fromStdString(std::string(field)));
  auto& input = partOf<QLineEdit>(dialog, "texto");
  QTest::mouseClick(&input, Qt::LeftButton);
  deskkit::press(Qt::Key_A, Qt::ControlModifier);
  deskkit::types(withLineEnds(text));
  deskkit::press(Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
}

void Clerk::close(std::string_view) {
  if (!windowOnTop()) cannot("there is nothing to close");
  windowOnTop()->close();
}

// ---- what it can say ----

struct Clerk::Question {
  std::string_view word;
  Text (*answer)(Clerk& clerk, const Text& of);
};

const Clerk::Question Clerk::questions[] = {
    // what the card shows
    {"caption", [](Clerk&, const Text&) { return card().Caption(); }},
    {"shown", [](Clerk&, const Text& control) { return desktop::fromQt(deskkit::shownIn(card(), control)); }},
    {"enabled",
     [](Clerk&, const Text& tool) { return Text(card().toolbars().tool(tool)->Enabled() ? u"yes" : u"no"); }},
    // the list behind it: the key it stands on (0 for a row that is gone), where that is, all its keys
    {"row", [](Clerk& clerk, const Text&) { return toText(clerk.pane_->list().currentKey()); }},
    {"place", [](Clerk& clerk, const Text&) { return clerk.place(); }},
    {"keys", [](Clerk& clerk, const Text& grid) { return clerk.keys(toUtf8(grid)); }},
    // the desk
    {"pointer", [](Clerk& clerk, const Text&) { return toText(clerk.screen_.mousePointer()); }},
    {"beeps", [](Clerk& clerk, const Text&) { return toText(clerk.screen_.beeps); }},
    {"message",
     [](Clerk&, const Text&) { return desktop::fromQt(partOf<QLabel>(windowOnTop(), "mensaje").text()); }},
};

std::string Clerk::tell(std::string_view question) {
  const auto [word, of] = parted(question);
  for (const Question& each : questions)
    if (each.word == word) return toUtf8(replaceAll(each.answer(*this, fromUtf8(of)), u"\n", u"⏎"));
  cannot("no such question");
}

Text Clerk::place() {
  dao::Recordset& rows = *pane_->list().recordset();
  const Text at = rows.isBOF()   ? Text(u"before")
                  : rows.isEOF() ? Text(u"behind")
                                 : toText(rows.AbsolutePosition() + 1);
  return join(at, u"/", rows.RecordCount());
}

Text Clerk::keys(std::string_view grid) {
  const auto rows = pane(grid).list().separateRecordset();
  Text all;
  for (; !rows->isEOF(); rows->MoveNext()) all += join(all.empty() ? u"" : u" ", rows->value(u"IdAnota"));
  return all;
}

}  // namespace ovalia::host
