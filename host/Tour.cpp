#include "host/Tour.h"

#include <QApplication>
#include <QDialog>
#include <QMessageBox>
#include <QTimer>
#include <array>
#include <fstream>
#include <map>

#include "desktop/QtText.h"
#include "forms/Form.h"
#include "platform/Platform.h"

namespace ovalia::host {

using desktop::fromQt;
using desktop::toQt;
namespace fs = std::filesystem;

namespace {

constexpr int lookEveryMilliseconds = 50;
constexpr int patienceMilliseconds = 20000;

struct Stop {
  const char16_t* grid;
  const char* picture;
};
constexpr Stop stops[] = {{u"grdNota", "nota.png"},
                          {u"grdVisita", "visita.png"},
                          {u"grdAnuncio", "anuncio.png"},
                          {u"grdLlamada", "llamada.png"}};

// A tour starts from nobody's settings and leaves nobody's changed.
class PassingSettings : public Settings {
 public:
  PassingSettings() { Platform::current().settings = this; }
  ~PassingSettings() override { Platform::current().settings = before_; }
  PassingSettings(const PassingSettings&) = delete;
  PassingSettings& operator=(const PassingSettings&) = delete;

  Text get(TextView application, TextView section, TextView key, TextView fallback) override {
    const auto found = values_.find({Text(application), Text(section), Text(key)});
    return found == values_.end() ? Text(fallback) : found->second;
  }
  void save(TextView application, TextView section, TextView key, TextView value) override {
    values_[{Text(application), Text(section), Text(key)}] = value;
  }
  std::vector<std::pair<Text, Text>> all(TextView application, TextView section) override {
    std::vector<std::pair<Text, Text>> pairs;
    for (const auto& [name, value] : values_)
      if (name[0] == application && name[1] == section) pairs.emplace_back(name[2], value);
    return pairs;
  }

 private:
  Settings* before_ = Platform::current().settings;
  std::map<std::array<Text, 3>, Text> values_;
};

class Tour {
 public:
  Tour(MainWindow& window, fs::path folder)
      : window_(window),
        folder_(std::move(folder)),
        transcript_(folder_ / "transcript.txt", std::ios::binary) {}

  bool play() {
    if (!transcript_) return false;
    CardPage* page = openFirstProperty();
    if (!page) return false;
    for (const Stop& stop : stops) visit(*page, stop);
    write(fine_ ? u"Recorrido terminado sin avisos." : u"Recorrido terminado CON AVISOS.");
    return fine_ && transcript_.flush().good();
  }

 private:
  void write(TextView line) { transcript_ << toUtf8(line) << '\n'; }
  void fail(TextView line) {
    fine_ = false;
    write(u"AVISO: " + Text(line));
  }

  void picture(QWidget& widget, const char* name) {
    QApplication::processEvents();
    if (!widget.grab().save(QString::fromStdString((folder_ / name).string())))
      fail(u"no se puede escribir " + fromUtf8(name));
  }

  CardPage* openFirstProperty() {
    const HostForm& properties = hostForm(u"FichaInm");
    window_.show();
    CardPage* page = window_.openCard(properties, window_.listPage(properties)->grid().currentKey());
    if (page) {
      write(u"Ficha abierta: " + page->card().caption());
      picture(window_, "agencia.png");
    } else {
      fail(u"no se ha abierto ningún inmueble");
    }
    return page;
  }

  // The card is modal: what is to be done while it is up waits for it in the event loop.
  void visit(CardPage& page, const Stop& stop) {
    ListPane* pane = page.pane(stop.grid);
    page.showPane(*pane);
    QApplication::processEvents();
    write(u"\n== " + fromQt(desktop::spoken(pane->list().design().caption)) + u" (" +
          toText(pane->list().count()) + u")");
    shown_ = false;
    waited_ = 0;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] { look(stop); });
    watch.start(lookEveryMilliseconds);
    pane->openCurrent();
    if (!shown_) fail(u"la ficha no se ha abierto");
  }

  void look(const Stop& stop) {
    waited_ += lookEveryMilliseconds;
    if (closeBox()) return;
    const auto card = forms::Runtime::current().activeForm();
    if (!card || !card->Visible() || !QApplication::activeModalWidget()) {
      if (waited_ > patienceMilliseconds) fail(u"la ficha no responde"), QApplication::exit(1);
      return;
    }
    if (!shown_) {
      shown_ = true;
      describe(*card);
      picture(*QApplication::activeModalWidget(), stop.picture);
    }
    if (!card->userCloses()) fail(u"la ficha no se ha dejado cerrar");
  }

  // A box is what must not come up; it is taken down so that the tour ends.
  bool closeBox() {
    auto* box = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!box) return false;
    auto* message = qobject_cast<QMessageBox*>(box);
    fail(u"cuadro «" + fromQt(box->windowTitle()) + u"» " + (message ? fromQt(message->text()) : Text()));
    picture(*box, "aviso.png");
    box->done(QDialog::Rejected);
    return true;
  }

  void describe(forms::Form& card) {
    write(u"Formulario: " + card.Name());
    write(u"Título: " + card.Caption());
    for (const forms::ControlRef& control : card.controls()) {
      const std::optional<Text> value = valueOf(*control);
      if (value) write(u"  " + control->Name() + u" = " + replaceAll(*value, CRLF, u"⏎"));
    }
    std::vector<forms::ListItem> documents = card.as<forms::ListView>(u"LsvDocu")->items();
    for (const forms::ListItem& item : documents) write(u"  documento: " + item.text);
  }

  static std::optional<Text> valueOf(forms::Control& control) {
    using enum forms::ControlType;
    switch (control.type()) {
      case TextBox:
      case ComboBox:
      case CheckBox:
        return control.value().text();
      case DTPicker:
        return dynamic_cast<forms::DTPicker&>(control).text();
      case Label:
        return control.Caption();
      default:
        return {};
    }
  }

  MainWindow& window_;
  fs::path folder_;
  std::ofstream transcript_;
  bool fine_ = true;
  bool shown_ = false;
  int waited_ = 0;
};

}  // namespace

bool playTour(MainWindow& window, const fs::path& folder) {
  std::error_code error;
  fs::create_directories(folder, error);
  const PassingSettings passing;
  return !error && Tour(window, folder).play();
}

}  // namespace ovalia::host
