#include "host/TourDocuments.h"

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <algorithm>
#include <fstream>

#include "desktop/QtText.h"
#include "platform/Platform.h"

namespace ovalia::host {

using desktop::fromQt;
using desktop::toQt;
namespace fs = std::filesystem;

namespace {

constexpr TextView notesGrid = u"grdNota", documentList = u"LsvDocu";

struct Original {
  const char* name;
  std::string_view content;
};
constexpr std::string_view picture("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16);
constexpr std::string_view oldOffice("\xd0\xcf\x11\xe0\xa1\xb1\x1a\xe1", 8);
constexpr std::string_view archive("PK\5\6\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0", 22);
constexpr Original originals[] = {
    {"Contrato de arras.doc", oldOffice},
    {"Contrato de compraventa firmado ante notario el 3 de marzo (versión definitiva).docx",
     "Acordamos...\n"},
    {"Lectura de contadores.txt", "Agua: 1204\nLuz: 33871\n"},
    {"Recado del propietario.not", "Llame mañana\n"},
    {"Gastos de la comunidad 2023-2025.xls", oldOffice},
    {"Presentación para el comprador.ppt", oldOffice},
    {"Fachada desde la calle.jpg", picture},
    {"Fotos de la visita.zip", archive},
    {"Plano de l'àtic.pdf", "%PDF-1.4\n"},
};

struct ListMode {
  TextView tool;
  const char* picture;
};
constexpr ListMode modes[] = {{u"ID_IconosGrandes", "documentos-iconos-grandes.png"},
                              {u"ID_IconosPequenios", "documentos-iconos-pequenos.png"},
                              {u"ID_Lista", "documentos-lista.png"}};

class DocumentsChapter {
 public:
  DocumentsChapter(const TourCast& cast, CardPage& page)
      : cast_(cast),
        book_(cast.book),
        stage_(cast.stage),
        page_(page),
        pane_(*page.pane(notesGrid)),
        table_(pane_.list().annotations()),
        note_(cast.witness.newest(table_.name)),
        property_(page.card().record()) {}

  void play() {
    book_.chapter(u"Documentos de una nota");
    makeOriginals();
    page_.showPane(pane_);
    goToNote();
    step(u"Adjuntar ficheros de varias clases y ver la lista de tres maneras",
         [&] { onNote([&] { attach(); }); });
    step(u"Abrir cada documento con el programa de lo que contiene", [&] { onNote([&] { openAll(); }); });
    step(u"Cambiar el nombre con el que se muestra un documento", [&] { onNote([&] { rename(); }); });
    step(u"Quitar un documento", [&] { onNote([&] { remove(); }); });
    step(u"Mover la nota con sus documentos a otro inmueble", [&] { move(); });
  }

 private:
  void makeOriginals() {
    const fs::path folder = cast_.folder / "originales";
    fs::create_directories(folder);
    for (const Original& original : originals) {
      std::ofstream(folder / original.name, std::ios::binary) << original.content;
      files_.push_back(logicPath(fromUtf8((folder / original.name).native())));
    }
  }
  void goToNote() {
    QApplication::processEvents();
    pane_.grid().reload(note_);
  }

  void onNote(const std::function<void()>& doing) {
    stage_.withCard([&] { pane_.openCurrent(); },
                    [&] {
                      doing();
                      stage_.closes();
                    });
    goToNote();
  }

  // ---- the steps ----

  void attach() {
    cast_.dialogs.files = files_;
    stage_.presses(u"ID_BAdjuntar");
    book_.check(list().count() == int(files_.size()), u"la ficha enseña los " + toText(int(files_.size())));
    for (const ListMode& mode : modes) {
      stage_.chooses(mode.tool);
      stage_.picture(mode.picture);
    }
    tellShown();
  }

  void openAll() {
    auto& opened = cast_.dialogs.opened;
    opened.clear();
    for (int i = 0; i < list().count(); ++i) {
      TourStage::clickItem(list(), i);
      TourStage::press(list(), Qt::Key_Return);
    }
    for (const auto& document : opened) book_.line(u"Se abre " + document.told);
    book_.check(int(opened.size()) == list().count(), u"se abren todos");
  }

  void rename() {
    TourStage::clickItem(list(), 0);
    TourStage::press(list(), Qt::Key_F2);
    auto* editor = list().findChild<QLineEdit*>();
    if (!editor) return book_.fail(u"el nombre no se puede editar");
    stage_.picture("documentos-nombre.png");
    TourStage::type(*editor, QStringLiteral("Arras: señal de 3.000 €.doc"));
    TourStage::press(*editor, Qt::Key_Return);
    QApplication::processEvents();
    tellShown();
    book_.check(list().item(0)->text() == QStringLiteral("Arras: señal de 3.000 €.doc"),
                u"la ficha enseña el nombre nuevo");
  }

  void remove() {
    const int before = list().count();
    TourStage::clickItem(list(), 1);
    stage_.answers(QStringLiteral("El documento adjunto a la nota se borrará."), QStringLiteral("Sí"),
                   "documentos-quitar.png", [&] { TourStage::press(list(), Qt::Key_Delete); });
    tellShown();
    book_.check(list().count() == before - 1, u"la ficha enseña uno menos");
  }

  // To the record that comes first in the list.
  void move() {
    QAction* command = nullptr;
    for (QAction* action : cast_.window.findChildren<QAction*>())
      if (action->shortcut() == QKeySequence(Qt::CTRL | Qt::Key_M)) command = action;
    if (!command) return book_.fail(u"falta la orden de mover");
    stage_.uses(
        QStringLiteral("elegir"),
        [&](QDialog& dialog) {
          book_.line(u"Cuadro «" + fromQt(dialog.windowTitle()) + u"»");
          stage_.picture("mover.png");
          dialog.accept();
        },
        [&] { command->trigger(); });
    QApplication::processEvents();
    stage_.pictureOf(cast_.window, "movida.png");
    book_.check(!cast_.witness.has(table_.name, note_) || parentOfNote() != property_,
                u"la nota cuelga de otro inmueble");
  }

  // ---- what they are made of ----

  void step(TextView what, const std::function<void()>& doing) {
    book_.step(what);
    doing();
    tellHeld();
  }

  QListWidget& list() { return dynamic_cast<QListWidget&>(stage_.drawn(documentList)); }
  std::int32_t parentOfNote() {
    return Variant(cast_.witness.value(table_.name, note_, table_.parentColumn)).toLong();
  }

  void tellShown() {
    for (int i = 0; i < list().count(); ++i)
      book_.line(u"  " + toText(i + 1) + u". " + fromQt(list().item(i)->text()));
  }

  void tellHeld() {
    book_.line(u"En la base de datos: " +
               cast_.witness.row(table_.name, note_, {{table_.parentColumn, u"NArchivos"}}));
    for (const Text& row : cast_.witness.attachments(table_.attachments, note_)) book_.line(u"  " + row);
    book_.line(u"En el disco:");
    const Text own = toText(property_) + u"F", theirs = toText(parentOfNote()) + u"F";
    for (const Text& file : filesIn(cast_.window.agency().documents))
      if (const Text name = file.substr(file.rfind(u'/') + 1);
          name.starts_with(own) || name.starts_with(theirs))
        book_.line(u"  " + file);
    for (const Text& file : filesIn(cast_.folder / "papelera")) book_.line(u"  papelera: " + file);
  }

  // "Doc0/1F00.txt, 18 bytes", in the order of their paths.
  static std::vector<Text> filesIn(const fs::path& folder) {
    std::vector<Text> files;
    std::error_code none;
    for (const auto& entry : fs::recursive_directory_iterator(folder, none))
      if (entry.is_regular_file())
        files.push_back(fromUtf8(entry.path().lexically_relative(folder).generic_string()) + u", " +
                        toText(std::int32_t(entry.file_size())) + u" bytes");
    std::ranges::sort(files);
    return files;
  }

  const TourCast& cast_;
  TourBook& book_;
  TourStage& stage_;
  CardPage& page_;
  ListPane& pane_;
  const AnnotationTable& table_;
  const std::int32_t note_, property_;
  std::vector<Text> files_;
};

}  // namespace

void playDocuments(const TourCast& cast, CardPage& page) { DocumentsChapter(cast, page).play(); }

}  // namespace ovalia::host
