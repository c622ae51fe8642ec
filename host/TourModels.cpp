#include "host/TourModels.h"

#include <QApplication>
#include <QListWidget>
#include <QTableView>
#include <fstream>

#include "desktop/QtText.h"
#include "host/RtfTemplate.h"
#include "platform/Platform.h"

namespace ovalia::host {

using desktop::fromQt;
using desktop::toQt;
namespace fs = std::filesystem;

namespace {

constexpr TextView notesGrid = u"grdNota", documentList = u"LsvDocu", documentMenu = u"ID_mnuDocumentos";
constexpr TextView contract = u"Contrato de alquiler con garaje.rtf";
constexpr TextView contractNotes = u"Alquiler de vivienda y garaje: dos ejemplares, señal de 600 €";
constexpr TextView contractText =
    u"CONTRATO DE ALQUILER\n\nReunidos de una parte el propietario y de otra el inquilino, acuerdan...\n";

class ModelsChapter {
 public:
  ModelsChapter(const TourCast& cast, CardPage& page)
      : cast_(cast),
        book_(cast.book),
        stage_(cast.stage),
        page_(page),
        pane_(*page.pane(notesGrid)),
        original_(cast.folder / "originales" / toUtf8(contract)),
        models_(cast.window.agency().documents / "Plantillas") {}

  void play() {
    book_.chapter(u"Modelos");
    page_.showPane(pane_);
    QApplication::processEvents();
    note_ = pane_.grid().currentKey();
    writeOriginal();
    step(u"Adjuntar un documento y hacer de él un modelo", [&] {
      attachOriginal();
      create();
    });
    step(u"Hacer otro modelo con el mismo nombre", [&] { createAgain(); });
    step(u"Buscar el modelo en la lista y adjuntarlo", [&] { attachModel(); });
  }

 private:
  void step(TextView what, const std::function<void()>& onNote) {
    book_.step(what);
    stage_.withCard([&] { pane_.openCurrent(); },
                    [&] {
                      onNote();
                      stage_.closes();
                    });
    pane_.grid().reload(note_);
    for (const Text& row : cast_.witness.attachments(pane_.list().annotations().attachments, note_))
      book_.line(u"  " + row);
  }

  void writeOriginal() {
    fs::create_directories(original_.parent_path());
    std::ofstream(original_, std::ios::binary)
        << "{\\rtf1\\ansi\\ansicpg1252\\deff0{\\fonttbl{\\f0\\froman Times New Roman;}}\\fs24 "
        << rtfText(contractText) << "\\par}";
  }

  void attachOriginal() {
    cast_.dialogs.files = {logicPath(fromUtf8(original_.native()))};
    stage_.presses(u"ID_BAdjuntar");
  }

  // ---- frmModelo ----

  void onNewModel(const std::function<void()>& doing) {
    const QList<QListWidgetItem*> items = list().findItems(toQt(contract), Qt::MatchExactly);
    if (items.isEmpty()) return book_.fail(u"la ficha no enseña «" + Text(contract) + u"»");
    TourStage::clickItem(list(), list().row(items.first()));
    stage_.withForm(
        u"frmModelo", [&] { stage_.chooses(u"ID_CrearModelo", documentMenu); }, doing);
  }

  void create() {
    onNewModel([&] {
      book_.check(stage_.shown(u"txtNombre") == toQt(contract), u"se propone el nombre del documento");
      stage_.types(u"txtNotas", toQt(contractNotes));
      stage_.uses(
          QStringLiteral("elegir"), [](QDialog& dialog) { dialog.accept(); },
          [&] { stage_.clicks(u"cmdMateria"); });
      stage_.describe();
      stage_.picture("modelo-crear.png");
      stage_.clicks(u"cmdAceptar");
    });
    const Variant notes =
        cast_.witness.answer(u"SELECT Notas FROM Plantilla WHERE Nombre = '" + Text(contract) + u"'");
    book_.check(!notes.isNull() && notes.text() == contractNotes,
                u"la base de datos tiene el modelo «" + Text(contract) + u"» con sus notas");
    book_.check(contentOf(models_ / toUtf8(contract)) == contentOf(original_),
                u"su fichero es como el documento");
  }

  void createAgain() {
    onNewModel([&] {
      stage_.answers(QStringLiteral("Existe un modelo con dicho nombre."), QStringLiteral("Sí"),
                     "modelo-repetido.png", [&] { stage_.clicks(u"cmdAceptar"); });
      stage_.clicks(u"cmdCancelar");
    });
    const Variant count =
        cast_.witness.answer(u"SELECT Count(*) AS N FROM Plantilla WHERE Nombre = '" + Text(contract) + u"'");
    book_.check(count.toLong() == 1, u"sigue habiendo uno solo de ese nombre");
  }

  // ---- ListaModelos ----

  void attachModel() {
    const int before = list().count();
    cast_.dialogs.opened.clear();
    stage_.withForm(
        u"ListaModelos", [&] { stage_.chooses(u"ID_Modelo", u"ID_mnuAdjuntar"); },
        [&] {
          tellModels();
          stage_.picture("modelos.png");
          markApart();
          stage_.types(u"txtNotas", QStringLiteral("vivienda y garaje"));
          stage_.clicks(u"cmdSel");
          tellModels();
          stage_.picture("modelos-seleccion.png");
          book_.check(models().rowCount() == 1, u"la selección deja un modelo");
          stage_.clicks(u"cmdAceptar");
        });
    book_.check(list().count() == before + 1, u"la ficha enseña un documento más");
    const auto& opened = cast_.dialogs.opened;
    book_.check(opened.size() == 1, u"se abre la copia del modelo");
    if (opened.empty()) return;
    book_.line(u"Se abre " + opened[0].told);
    book_.check(contentOf(toUtf8(opened[0].path)) == contentOf(models_ / toUtf8(contract)),
                u"la copia es como el modelo");
  }

  // Two rows with one between them, by the keyboard alone.
  void markApart() {
    auto& grid = dynamic_cast<QTableView&>(stage_.drawn(u"grdPlantilla"));
    TourStage::press(grid, Qt::Key_Home);
    for (int i = 0; i < 2; ++i) TourStage::press(grid, Qt::Key_Down, Qt::ControlModifier);
    TourStage::press(grid, Qt::Key_Space);
    stage_.picture("modelos-marcados.png");
    const auto marked = [&](int row) {
      return grid.selectionModel()->isSelected(grid.model()->index(row, 1));
    };
    if (models().rowCount() > 2)
      book_.check(marked(0) && !marked(1) && marked(2), u"están marcadas la primera y la tercera fila");
  }

  void tellModels() {
    QApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    for (int row = 0; row < models().rowCount(); ++row) {
      QStringList cells;
      for (int column = 1; column < models().columnCount(); ++column)
        cells << models().index(row, column).data().toString();
      book_.line(u"  " + fromQt(cells.join(QStringLiteral(" · "))));
    }
  }

  const QAbstractItemModel& models() {
    return *dynamic_cast<QTableView&>(stage_.drawn(u"grdPlantilla")).model();
  }
  QListWidget& list() { return dynamic_cast<QListWidget&>(stage_.drawn(documentList)); }

  static std::string contentOf(const fs::path& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }

  const TourCast& cast_;
  TourBook& book_;
  TourStage& stage_;
  CardPage& page_;
  ListPane& pane_;
  const fs::path original_, models_;
  std::int32_t note_ = 0;
};

}  // namespace

void playModels(const TourCast& cast, CardPage& page) { ModelsChapter(cast, page).play(); }

}  // namespace ovalia::host
