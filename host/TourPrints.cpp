#include "host/TourPrints.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>

#include "desktop/QtText.h"
#include "host/Office.h"
#include "host/TemplateFailure.h"
#include "platform/Platform.h"
#include "routines/TextHelpers.h"
#include "system/FileCopy.h"

namespace ovalia::host {

using desktop::fromQt;
using desktop::toQt;
namespace fs = std::filesystem;

namespace {

// Where a value comes from: "%T" is the annotation's table, "%K" its key, "%N" the key's value.
constexpr TextView annotation = u"%T WHERE %K = %N";
constexpr TextView author = u"Usuario WHERE IdUsuario IN (SELECT IdUsuario FROM %T WHERE %K = %N)";
constexpr TextView salesperson = u"Usuario WHERE IdUsuario IN (SELECT IdComercial FROM %T WHERE %K = %N)";
constexpr TextView visitor = u"Cliente WHERE IdCliente IN (SELECT IdCliente FROM %T WHERE %K = %N)";
constexpr TextView property = u"Inmueble WHERE IdInm IN (SELECT IdInm FROM %T WHERE %K = %N)";
constexpr TextView owner =
    u"Cliente WHERE IdCliente IN (SELECT IdPropietario FROM Inmueble WHERE IdInm IN (SELECT IdInm FROM %T "
    u"WHERE %K = %N))";

// A value that has to be on the page, behind that text. A date is written by the pattern.
struct Expected {
  TextView name, field, source, behind = {};
  TextView pattern = u"dd/MM/yy - hh:nn";
};
constexpr Expected ofNote[] = {{u"el asunto", u"Asunto", annotation, u"Asunto: "},
                               {u"la fecha", u"FechaAlta", annotation},
                               {u"las notas", u"Notas", annotation},
                               {u"el autor", u"Nombre", author, u"Atentamente, "},
                               {u"la referencia", u"Referencia", property, u"Ref.: "},
                               {u"el precio", u"Precio", property, u"a la venta por "},
                               {u"el propietario", u"Alias", owner},
                               {u"su teléfono", u"Tfno1", owner, u"Teléfonos: "}};
constexpr Expected ofVisit[] = {{u"el visitante", u"Alias", visitor, u"Visitante: "},
                                {u"su teléfono", u"Tfno1", visitor, u"Teléfonos: "},
                                {u"el comienzo", u"FechaComienzo", annotation, u"Comienzo: "},
                                {u"el fin", u"FechaFin", annotation, u"Fin: "},
                                {u"el lugar", u"Donde", annotation, u"Lugar: "},
                                {u"las notas", u"Notas", annotation},
                                {u"el comercial", u"Nombre", salesperson, u"Comercial: "},
                                {u"la referencia", u"Referencia", property, u"Inmueble: "},
                                {u"el precio", u"Precio", property, u"Precio: "}};
constexpr Expected ofAdvertisement[] = {
    {u"el medio", u"Donde", annotation, u"Anuncio: Anuncio en "},
    {u"el primer día", u"FechaInicio", annotation, u"Primer día: ", u"dd/MM/yy"},
    {u"los días", u"NDias", annotation, u"Días: "},
    {u"el envío", u"FechaEnvio", annotation, u"Enviado: "},
    {u"el texto", u"Notas", annotation, u"Texto del anuncio: "},
    {u"el autor", u"Nombre", author, u"Lo ordena "},
    {u"la referencia", u"Referencia", property, u"Inmueble: "},
    {u"el precio", u"Precio", property, u"Precio: "}};
constexpr Expected ofCall[] = {{u"la fecha", u"FechaAlta", annotation, u"Fecha: "},
                               {u"las notas", u"Notas", annotation},
                               {u"el autor", u"Nombre", author, u"Atendida por: "},
                               {u"el número", u"IdLlamada", annotation, u"Llamada número: "}};

enum class Destination { pdf, screen };
QString shownAs(Destination destination) {
  return destination == Destination::pdf ? QStringLiteral("Fichero PDF")
                                         : QStringLiteral("Documento nuevo en pantalla");
}

// What is printed of a kind.
struct Print {
  TextView grid;
  std::string file;  // what the names of its files end with
  TextView one;      // "la nota"
  const char* model;
  Destination destination;
  std::span<const Expected> values;
};
const Print prints[] = {
    {u"grdNota", "nota", u"la nota", "Carta al propietario", Destination::pdf, ofNote},
    {u"grdVisita", "visita", u"la visita", "Hoja de visita", Destination::screen, ofVisit},
    {u"grdAnuncio", "anuncio", u"el anuncio", "Orden de anuncio", Destination::screen, ofAdvertisement},
    {u"grdLlamada", "llamada", u"la llamada", "Parte de llamada", Destination::screen, ofCall},
};

// Blanks and line ends are where the page had room.
Text inOneLine(const Text& text) { return fromQt(toQt(text).simplified()); }

class PrintsChapter {
 public:
  PrintsChapter(const TourCast& cast, CardPage& page)
      : cast_(cast), book_(cast.book), stage_(cast.stage), page_(page) {}

  void play() {
    book_.chapter(u"Imprimir con las plantillas de cada clase");
    std::vector<std::int32_t> printed;
    for (const Print& print : prints) printed.push_back(play(print));
    book_.step(u"Ver lo impreso");
    try {
      if (!shown_.empty()) convertDocuments(shown_, "pdf", cast_.folder);
      for (std::size_t i = 0; i < printed.size(); ++i) look(prints[i], printed[i]);
    } catch (const TemplateFailure& failure) {
      book_.fail(failure.message);
    }
  }

 private:
  // Prints from the card on which its list is; gives the annotation's key.
  std::int32_t play(const Print& print) {
    book_.step(u"Imprimir " + Text(print.one) + u" desde su ficha con «" + fromUtf8(print.model) + u"»");
    ListPane& pane = *page_.pane(print.grid);
    page_.showPane(pane);
    QApplication::processEvents();
    const std::int32_t key = pane.grid().currentKey();
    cast_.dialogs.opened.clear();
    cast_.dialogs.target = logicPath(fromUtf8(file(print, ".pdf").native()));
    stage_.withCard([&] { pane.openCurrent(); },
                    [&] {
                      stage_.uses(
                          QStringLiteral("plantillas"), [&](QDialog& dialog) { choose(dialog, print); },
                          [&] { stage_.presses(u"ID_Imprimir"); });
                      stage_.closes();
                    });
    if (print.destination == Destination::screen) keep(print);
    return key;
  }

  void choose(QDialog& dialog, const Print& print) {
    book_.line(u"Cuadro «" + fromQt(dialog.windowTitle()) + u"»");
    auto* search = dialog.findChild<QLineEdit*>(QStringLiteral("buscar"));
    auto* list = dialog.findChild<QListWidget*>(QStringLiteral("lista"));
    auto* where = dialog.findChild<QComboBox*>(QStringLiteral("destino"));
    if (!search || !list || !where) return dialog.reject();
    for (int i = 0; i < list->count(); ++i) book_.line(u"  " + fromQt(list->item(i)->text()));
    TourStage::type(*search, QString::fromUtf8(print.model));
    if (list->count() != 1) {
      book_.fail(u"falta la plantilla");
      return dialog.reject();
    }
    where->setCurrentIndex(where->findText(shownAs(print.destination), Qt::MatchStartsWith));
    book_.line(u"Destino: " + fromQt(where->currentText()));
    stage_.picture("imprimir-" + print.file + ".png");
    TourStage::press(*search, Qt::Key_Return);
  }

  // The document that was shown is the user's from then on.
  void keep(const Print& print) {
    const auto& opened = cast_.dialogs.opened;
    book_.check(opened.size() == 1, u"se abre el documento");
    if (opened.empty()) return;
    book_.line(u"Se abre " + opened[0].told);
    shown_.push_back(file(print, ".rtf"));
    const fs::path made = toUtf8(opened[0].path);
    system::copyOver(made.native(), shown_.back().native());
    std::error_code ignored;
    fs::remove(made, ignored);
  }

  void look(const Print& print, std::int32_t key) {
    const fs::path pdf = file(print, ".pdf"), picture = file(print, ".png");
    pictureOfDocument(pdf, picture);
    book_.line(u"Imagen: " + fromUtf8(picture.filename().native()));
    const Text page = inOneLine(fromUtf8(textOfPdf(pdf)));
    const Text table(page_.pane(print.grid)->list().annotations().name);
    for (const Expected& expected : print.values) check(expected, table, key, page);
    book_.check(page.find(u'[') == Text::npos, u"no queda en ella ninguna marca sin rellenar");
  }

  void check(const Expected& expected, const Text& table, std::int32_t key, const Text& page) {
    const Text keyField(kindKey(annotationTable(table).kind));
    Text source(expected.source);
    for (const auto& [sign, value] : {std::pair(u"%T", table), {u"%K", keyField}, {u"%N", toText(key)}})
      source = replaceAll(source, sign, value);
    const Text held = written(cast_.witness.answer(u"SELECT " + Text(expected.field) + u" FROM " + source),
                              expected.pattern);
    if (held.empty()) return book_.line(u"En la base de datos no hay nada en " + Text(expected.name));
    book_.check(page.find(inOneLine(Text(expected.behind) + held)) != Text::npos,
                u"la hoja de " + table + u" " + toText(key) + u" tiene " + Text(expected.name) + u": «" +
                    inOneLine(held) + u"»");
  }

  static Text written(const Variant& value, TextView pattern) {
    if (value.isNull()) return {};
    if (value.type() == VarType::Date) return formatDate(value.toDate(), pattern, regionalNow());
    return value.type() == VarType::Currency ? FormatNum(value) : value.text();
  }

  fs::path file(const Print& print, const char* ending) const {
    return cast_.folder / ("impreso-" + print.file + ending);
  }

  const TourCast& cast_;
  TourBook& book_;
  TourStage& stage_;
  CardPage& page_;
  std::vector<fs::path> shown_;  // not PDF yet
};

}  // namespace

void playPrints(const TourCast& cast, CardPage& page) { PrintsChapter(cast, page).play(); }

}  // namespace ovalia::host
