#include "host/Tour.h"

#include <QApplication>
#include <QComboBox>
#include <array>

#include "desktop/QtText.h"
#include "host/BulkFile.h"
#include "host/PassingBin.h"
#include "host/PassingSettings.h"
#include "host/TourBook.h"
#include "host/TourDocuments.h"
#include "host/TourMail.h"
#include "host/TourModels.h"
#include "host/TourPrints.h"
#include "host/TourStage.h"
#include "host/TourWitness.h"

namespace ovalia::host {

using desktop::fromQt;
using desktop::toQt;
namespace fs = std::filesystem;

namespace {

// What is done on one kind of annotation.
struct Chapter {
  TextView grid;
  std::string picture;  // what the names of its pictures begin with
  TextView one;         // "la nota"
  TextView control;     // that is written into
  TextView field;       // that it shows, also what the search dialog calls it
  std::array<TextView, 4> held;
};
const Chapter chapters[] = {
    {u"grdNota",
     "nota",
     u"la nota",
     u"txtAsunto",
     u"Asunto",
     {u"Asunto", u"Categorias", u"Notas", u"FechaActualizacion"}},
    {u"grdVisita",
     "visita",
     u"la visita",
     u"txtAsunto",
     u"Asunto",
     {u"Asunto", u"Donde", u"FechaComienzo", u"FechaActualizacion"}},
    {u"grdAnuncio",
     "anuncio",
     u"el anuncio",
     u"txtNotas",
     u"Notas",
     {u"Donde", u"NDias", u"Notas", u"FechaActualizacion"}},
    {u"grdLlamada",
     "llamada",
     u"la llamada",
     u"txtNotas",
     u"Notas",
     {u"FechaAlta", u"IdUsuario", u"Notas", u"FechaActualizacion"}},
};

constexpr TextView changedText = u"Cambiado en el recorrido: ático, 3º izda.";
constexpr TextView refusedText = u"Esto no llega a guardarse";
constexpr TextView othersText = u"Escrito por otro usuario: señal de 3.000 € | \"sí\"";
constexpr TextView wantedText = u"otro usuario";
constexpr TextView createdText = u"Creado en el recorrido: L'Hospital, ¡mañana!";

constexpr std::int32_t theNewest = -1;  // in place of a key

class Tour {
 public:
  Tour(MainWindow& window, TourDialogs& dialogs, const fs::path& folder)
      : window_(window),
        dialogs_(dialogs),
        folder_(folder),
        book_(folder),
        stage_(book_, folder),
        witness_(window.agency().file) {}

  bool play() {
    book_.chapter(u"Ficha del inmueble");
    if (CardPage* page = openFirstProperty()) {
      for (const Chapter& chapter : chapters) play(*page, chapter);
      const TourCast cast{window_, dialogs_, book_, stage_, witness_, folder_};
      playDocuments(cast, *page);
      playPrints(cast, *page);
      playModels(cast, *page);
      playMail(cast, *page);
    }
    return book_.close();
  }

 private:
  CardPage* openFirstProperty() {
    const HostForm& properties = hostForm(u"FichaInm");
    window_.show();
    CardPage* page = window_.openCard(properties, window_.listPage(properties)->grid().currentKey());
    book_.check(page != nullptr, u"se abre el primer inmueble de la lista");
    if (page) book_.line(u"Ficha: " + page->card().caption());
    if (page) stage_.pictureOf(window_, "agencia.png");
    return page;
  }

  void play(CardPage& page, const Chapter& chapter) {
    chapter_ = &chapter;
    pane_ = page.pane(chapter.grid);
    page.showPane(*pane_);
    QApplication::processEvents();
    book_.chapter(fromQt(desktop::spoken(pane_->list().design().caption)));
    const std::int32_t key = pane_->grid().currentKey();
    look(key);
    change(key);
    refuse(key);
    create();
    search(key);
  }

  // ---- the steps ----

  void look(std::int32_t key) {
    step(u"Abrir " + Text(chapter_->one) + u" en la que está la lista", key, [&] {
      stage_.withCard([&] { pane_->openCurrent(); },
                      [&] {
                        stage_.describe();
                        stage_.picture(picture(".png"));
                        checkPlace(1);
                        stage_.closes();
                      });
    });
  }

  void change(std::int32_t key) {
    step(u"Cambiar «" + Text(chapter_->field) + u"», querer cerrar, quedarse y guardar", key, [&] {
      stage_.withCard([&] { pane_->openCurrent(); },
                      [&] {
                        write(changedText);
                        stage_.picture(picture("-cambiada.png"));
                        stage_.answers(question(), QStringLiteral("Cancelar"),
                                       picture("-pregunta.png").c_str(), [&] { stage_.closes(); });
                        checkHeld(key, changedText, false);
                        stage_.presses(u"ID_Guardar");
                        stage_.closes();
                      });
    });
    checkHeld(key, changedText, true);
  }

  void refuse(std::int32_t key) {
    step(u"Guardar sobre lo que otro usuario acaba de escribir", key, [&] {
      stage_.withCard([&] { pane_->openCurrent(); },
                      [&] {
                        write(refusedText);
                        writeAsAnother(key);
                        stage_.answers(QStringLiteral("La ficha acaba de ser modificada por otro usuario."),
                                       QStringLiteral("Aceptar"), nullptr,
                                       [&] { stage_.presses(u"ID_Guardar"); });
                        stage_.picture(picture("-rechazada.png"));
                        checkShown(othersText);
                        stage_.closes();
                      });
    });
    checkHeld(key, othersText, true);
  }

  void create() {
    const std::int32_t before = witness_.newest(table()), rows = listed();
    step(u"Crear una anotación, escribir «" + Text(chapter_->field) + u"» y guardar", theNewest, [&] {
      stage_.withCard([&] { pane_->addNew(); },
                      [&] {
                        book_.line(u"Título: " + stage_.card().Caption());
                        checkShown(u"");
                        write(createdText);
                        stage_.picture(picture("-nueva.png"));
                        stage_.presses(u"ID_Guardar");
                        stage_.closes();
                      });
    });
    const std::int32_t made = witness_.newest(table());
    book_.check(made > before && listed() == rows + 1, u"hay una fila más en la lista");
    checkHeld(made, createdText, true);
  }

  void search(std::int32_t key) {
    step(u"Buscar en «" + Text(chapter_->field) + u"» lo que escribió el otro usuario", key, [&] {
      stage_.withCard([&] { pane_->openCurrent(); },
                      [&] {
                        checkShown(createdText);
                        stage_.uses(
                            QStringLiteral("buscador"), [&](QDialog& dialog) { searchIn(dialog); },
                            [&] { stage_.presses(u"ID_Buscar"); });
                        book_.line(u"Título: " + stage_.card().Caption());
                        checkShown(othersText);
                        stage_.closes();
                      });
    });
    checkHeld(key, othersText, true);
  }

  void searchIn(QDialog& dialog) {
    auto* field = dialog.findChild<QComboBox*>(QStringLiteral("campo"));
    auto* text = dialog.findChild<QWidget*>(QStringLiteral("texto"));
    if (field && text) {
      field->setCurrentText(toQt(chapter_->field));
      TourStage::type(*text, toQt(wantedText));
      TourStage::press(*text, Qt::Key_Return);
      book_.line(u"Se busca «" + Text(wantedText) + u"»");
      stage_.picture(picture("-encontrada.png"));
    }
    dialog.reject();
  }

  // ---- what they are made of ----

  // What is done, with what the database held before and after.
  void step(const Text& what, std::int32_t key, const std::function<void()>& doing) {
    book_.step(what);
    tellHeld(u"Antes", key);
    doing();
    tellHeld(u"Después", key);
  }

  void tellHeld(TextView when, std::int32_t key) {
    const bool newest = key == theNewest;
    book_.line(Text(when) + u", en la base de datos: " + toText(listed()) + u" en la lista; " +
               Text(newest ? u"la última creada, " : u"") +
               witness_.row(table(), newest ? witness_.newest(table()) : key, chapter_->held));
  }

  void write(TextView text) {
    stage_.types(chapter_->control, toQt(text));
    checkShown(text);
  }

  // A minute ahead, for stamps within one second are the same.
  void writeAsAnother(std::int32_t key) {
    constexpr double minute = 1.0 / (24 * 60);
    const Date now = Platform::current().clock->now();
    witness_.write(table(), key, chapter_->field, othersText, Date{now.days + minute});
    book_.line(u"Otro usuario escribe mientras tanto: " + witness_.row(table(), key, chapter_->held));
  }

  void checkShown(TextView text) {
    book_.check(stage_.shown(chapter_->control) == toQt(text),
                text.empty() ? Text(u"la ficha está en blanco") : u"la ficha muestra «" + Text(text) + u"»");
  }

  void checkHeld(std::int32_t key, TextView text, bool held) {
    book_.check((witness_.value(table(), key, chapter_->field) == text) == held,
                u"la base de datos " + Text(held ? u"tiene" : u"no tiene") + u" «" + Text(text) + u"»");
  }

  void checkPlace(std::int32_t row) {
    const Text end = toText(row) + u"/" + toText(listed());
    book_.check(stage_.card().Caption().ends_with(end), u"el título termina en " + end);
  }

  std::int32_t listed() { return witness_.count(pane_->list().query()); }
  TextView table() const { return pane_->list().design().table; }
  std::string picture(const char* end) const { return chapter_->picture + end; }
  QString question() const {
    return QStringLiteral("¿Desea guardar los cambios realizados en ") + toQt(chapter_->one) + u'?';
  }

  MainWindow& window_;
  TourDialogs& dialogs_;
  const fs::path folder_;
  TourBook book_;
  TourStage stage_;
  TourWitness witness_;
  const Chapter* chapter_ = nullptr;
  ListPane* pane_ = nullptr;
};

}  // namespace

bool playTour(MainWindow& window, TourDialogs& dialogs, const fs::path& folder) {
  const PassingSettings settings;
  const PassingBin bin(folder / "papelera");
  prepareMail();
  return Tour(window, dialogs, fs::absolute(folder)).play();
}

fs::path copyForTour(const fs::path& database, const fs::path& folder) {
  const fs::path copy = fs::absolute(folder) / "agencia.db";
  try {
    copyDatabaseFile(database, copy);
    copyFolder(documentsFolder(database), documentsFolder(copy));
    makeSampleDocuments(documentsFolder(copy));
  } catch (const Failure& failure) {
    throw StartFailure(failure.description());
  }
  return copy;
}

}  // namespace ovalia::host
