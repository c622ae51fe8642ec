#include "host/MainWindow.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QMessageBox>
#include <QScreen>
#include <QStatusBar>
#include <QTabBar>

#include "desktop/Progress.h"
#include "desktop/QtText.h"
#include "host/Escapes.h"
#include "host/MovingNotes.h"
#include "host/PlaceMemory.h"
#include "platform/Platform.h"

namespace ovalia::host {

using desktop::fromQt;
using desktop::toQt;

namespace {
constexpr TextView recordGone = u"La ficha ya no existe: otro usuario la ha borrado.";
constexpr TextView noNotesToMove =
    u"Las notas se mueven desde la ficha de la que cuelgan: abra la de un inmueble, un expediente o un "
    u"proyecto, y marque en su lista las que quiera mover.";
}  // namespace

class MainWindow::Frame : public MainFrame {
 public:
  explicit Frame(MainWindow& window) : window_(window) {}
  ObjectRef activeForm() override { return window_.activeForm(); }
  Text statusText() override { return fromQt(window_.status_->text()); }
  void setStatusText(TextView text) override { window_.status_->setText(toQt(text)); }

 private:
  MainWindow& window_;
};

MainWindow::MainWindow(Workplace& workplace)
    : workplace_(workplace),
      pages_(new QTabWidget(this)),
      status_(new QLabel(QStringLiteral("Listo"), this)),
      frame_(std::make_shared<Frame>(*this)) {
  workplace_.cApp = applicationContract(Platform::current().app.title);
  workplace_.frmBase = mainFormContract(frame_, workplace_.dialogs);
  setWindowTitle(toQt(Platform::current().app.title));
  pages_->setTabsClosable(true);
  pages_->setDocumentMode(true);
  pages_->setMovable(false);
  setCentralWidget(pages_);
  statusBar()->addWidget(status_, 1);
  statusBar()->addPermanentWidget(new QLabel(toQt(workplace_.agency.user), this));

  for (const HostForm& form : hostForms()) {
    auto* page = new ListPage(form, workplace_, pages_);
    const int index = pages_->addTab(page, desktop::spoken(form.listCaption));
    for (auto side : {QTabBar::LeftSide, QTabBar::RightSide})
      pages_->tabBar()->setTabButton(index, side, nullptr);
    page->opened = [this, &form](std::int32_t record) { openCard(form, record); };
  }
  QObject::connect(pages_, &QTabWidget::tabCloseRequested, this,
                   telling([this](int index) { closePage(index); }));
  buildMenus();
  desktop::Progress::current().tell = [bar = statusBar()](const QString& text) { bar->showMessage(text); };
  const int character = fontMetrics().averageCharWidth();
  resize(QSize(character * 165, fontMetrics().height() * 40).boundedTo(screen()->availableSize()));
  pages_->currentWidget()->setFocus();
}

MainWindow::~MainWindow() {
  desktop::Progress::current().tell = {};
  // Cards go before the pieces that their lists work with.
  while (pages_->count()) delete pages_->widget(0);
}

void MainWindow::buildMenus() {
  const auto add = [this](QMenu* menu, const QString& text, const QKeySequence& keys, auto&& action) {
    QAction* made = menu->addAction(text);
    made->setShortcut(keys);
    QObject::connect(made, &QAction::triggered, this, telling(action));
  };
  QMenu* file = menuBar()->addMenu(QStringLiteral("Arch&ivo"));
  add(file, QStringLiteral("&Salir"), QKeySequence(Qt::CTRL | Qt::Key_Q), [this] { close(); });
  QMenu* cards = menuBar()->addMenu(QStringLiteral("&Fichas"));
  int number = 0;
  for (const HostForm& form : hostForms()) {
    add(cards, toQt(form.listCaption), QKeySequence(Qt::CTRL | Qt::Key(Qt::Key_1 + number)), [this, number] {
      pages_->setCurrentIndex(number);
      pages_->currentWidget()->setFocus();
    });
    ++number;
  }
  cards->addSeparator();
  add(cards, QStringLiteral("&Guardar"), QKeySequence(Qt::CTRL | Qt::Key_S), [this] {
    if (CardPage* page = cardAt(pages_->currentIndex())) page->card().save();
  });
  add(cards, QStringLiteral("Act&ualizar"), QKeySequence(Qt::Key_F5), [this] {
    CardPage* page = cardAt(pages_->currentIndex());
    if (page && page->card().settle()) page->card().reload();
    if (auto* list = dynamic_cast<ListPage*>(pages_->currentWidget())) list->reload();
  });
  add(cards, QStringLiteral("&Mover notas ..."), QKeySequence(Qt::CTRL | Qt::Key_M), [this] { moveNotes(); });
  add(cards, QStringLiteral("&Cerrar ficha"), QKeySequence(Qt::CTRL | Qt::Key_W),
      [this] { closePage(pages_->currentIndex()); });
  QMenu* help = menuBar()->addMenu(QStringLiteral("A&yuda"));
  add(help, QStringLiteral("&Acerca de la agencia ..."), {}, [this] { about(); });
}

CardPage* MainWindow::openCard(const HostForm& form, std::int32_t record) {
  for (int i = 0; i < pages_->count(); ++i)
    if (CardPage* page = cardAt(i);
        page && &page->card().form() == &form && page->card().record() == record) {
      pages_->setCurrentIndex(i);
      return page;
    }
  try {
    auto* page = new CardPage(std::make_shared<HostCard>(form, workplace_, record), pages_);
    const int index = pages_->addTab(page, toQt(page->card().caption()));
    page->captionChanged = [this, page] {
      pages_->setTabText(pages_->indexOf(page), toQt(page->card().caption()));
    };
    page->gone = [this, page] { dropPage(*page); };
    pages_->setCurrentIndex(index);
    page->setFocus();
    return page;
  } catch (const Failure& failure) {
    workplace_.dialogs.tell(form.caption, failure.number() == dao::failure::noCurrentRecord
                                              ? Text(recordGone)
                                              : u"La ficha no se puede abrir. " + failure.description());
    return nullptr;
  }
}

ListPage* MainWindow::listPage(const HostForm& form) {
  for (int i = 0; i < pages_->count(); ++i)
    if (auto* page = dynamic_cast<ListPage*>(pages_->widget(i)); page && &page->form() == &form) return page;
  return nullptr;
}

ObjectRef MainWindow::activeForm() {
  QWidget* page = pages_->currentWidget();
  if (auto* card = dynamic_cast<CardPage*>(page)) return card->contract();
  if (auto* list = dynamic_cast<ListPage*>(page)) return list->contract();
  return nullptr;
}

CardPage* MainWindow::cardAt(int index) { return dynamic_cast<CardPage*>(pages_->widget(index)); }

bool MainWindow::closeCard(CardPage& page) { return page.card().checkChanges() && page.card().settle(); }

// Where they went is another record's card, which may be open too.
void MainWindow::moveNotes() {
  CardPage* page = cardAt(pages_->currentIndex());
  const AnnotationList* notes = page ? movableNotes(page->card()) : nullptr;
  if (!notes) return workplace_.dialogs.tell(u"Mover notas", noNotesToMove);
  page->showPane(*page->pane(notes->design().grid));
  const MovedNotes moved = moveMarkedNotes(page->card(), workplace_);
  if (moved.record == 0) return;
  for (int i = 0; i < pages_->count(); ++i) {
    CardPage* each = cardAt(i);
    AnnotationList* list = each ? each->card().list(notes->design().grid) : nullptr;
    if (!list || list->design().table != notes->design().table) continue;
    list->reload();
    list->changed();
  }
  frame_->setStatusText(
      (moved.count == 1 ? Text(u"Una nota movida a ") : toText(moved.count) + u" notas movidas a ") +
      moved.name);
}

void MainWindow::closePage(int index) {
  CardPage* page = cardAt(index);
  if (page && closeCard(*page)) removePage(*page);
}

void MainWindow::removePage(CardPage& page) {
  pages_->removeTab(pages_->indexOf(&page));
  pages_->setCurrentWidget(listPage(page.card().form()));
  pages_->currentWidget()->setFocus();
  page.deleteLater();
}

// The page of a record that is no more. Under a card of one of its lists it stays until that has closed.
void MainWindow::dropPage(CardPage& page) {
  workplace_.dialogs.tell(page.card().form().caption, recordGone);
  if (!QApplication::activeModalWidget()) removePage(page);
}

void MainWindow::closeEvent(QCloseEvent* event) {
  for (int i = 0; i < pages_->count(); ++i) {
    CardPage* page = cardAt(i);
    if (!page || page->card().state() == HostCard::clean) continue;
    pages_->setCurrentIndex(i);
    if (!closeCard(*page)) return event->ignore();
  }
  keepPlace(*this);
  event->accept();
}

void MainWindow::about() {
  QMessageBox::about(
      this, windowTitle(),
      QStringLiteral("%1\n\nBase de datos: %2\nDocumentos: %3\nUsuario: %4")
          .arg(windowTitle(), toQt(fromUtf8(workplace_.agency.file.native())),
               toQt(fromUtf8(workplace_.agency.documents.native())), toQt(workplace_.agency.user)));
}

}  // namespace ovalia::host
