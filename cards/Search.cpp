#include "cards/Search.h"

#include <array>

#include "cards/RecordToCard.h"
#include "platform/Platform.h"
#include "routines/ModuleValues.h"
#include "routines/TextArray.h"
#include "routines/Trap.h"

namespace ovalia {

namespace {

constexpr int defaultPointer = 0, hourglass = 11;
constexpr std::size_t rowCount = 3, columnCount = 5;

// What can be searched: a row of labels, one of fields, one of types.
constexpr std::array<std::array<TextView, columnCount>, rowCount> searchFields{{
    {u"Asunto", u"Categorias", u"Fecha Alta", u"Fecha Actualización", u"Notas"},
    {u"Asunto", u"Categorias", u"FechaAlta", u"FechaActualizacion", u"Notas"},
    {u"Texto", u"Texto", u"Fecha", u"Fecha", u"Texto"},
}};

// Where a form's table differs. A call's last two columns lose their label only.
struct Cell {
  TextView form;
  std::size_t row, column;
  TextView text;
};

constexpr auto exceptions = std::to_array<Cell>({
    {u"frmAnuncio", 0, 0, u"Donde"},
    {u"frmAnuncio", 1, 0, u"Donde"},
    {u"frmAnuncio", 2, 0, u"Texto"},
    {u"frmLlamada", 0, 0, u"Fecha Alta"},
    {u"frmLlamada", 0, 1, u"Fecha Actualización"},
    {u"frmLlamada", 0, 2, u"Notas"},
    {u"frmLlamada", 0, 3, u""},
    {u"frmLlamada", 0, 4, u""},
    {u"frmLlamada", 1, 0, u"FechaAlta"},
    {u"frmLlamada", 1, 1, u"FechaActualizacion"},
    {u"frmLlamada", 1, 2, u"Notas"},
    {u"frmLlamada", 2, 0, u"Fecha"},
    {u"frmLlamada", 2, 1, u"Fecha"},
    {u"frmLlamada", 2, 2, u"Texto"},
});

ObjectRef searchFieldsOf(TextView form) {
  const auto fields = std::make_shared<TextArray>(std::initializer_list<std::size_t>{rowCount, columnCount});
  for (std::size_t row = 0; row < rowCount; ++row)
    for (std::size_t column = 0; column < columnCount; ++column)
      fields->at({row, column}) = searchFields[row][column];
  for (const Cell& cell : exceptions)
    if (cell.form == form) fields->at({cell.row, cell.column}) = cell.text;
  return fields;
}

// Whether the search may go on. A host's form that does not pass its own check is not asked about. Each step
// is of the form that is on top by then: the host may show another meanwhile.
bool hostAgrees(Instance& nota) {
  const auto onTop = [&] { return getMember(nota.nota.frmBase, u"ActiveForm").toObject(); };
  if (!onTop()) return true;
  const std::int32_t state = getMember(objectAt(onTop(), {u"vClase"}), u"cEstado").toLong();
  if (state != nueva && state != modificada) return true;
  if (!callMember(onTop(), u"ComprobarCambio").toBoolean()) return true;
  return callMember(objectAt(onTop(), {u"vClase"}), u"AvisoCambio", {u"Preguntar"}).toBoolean();
}

constexpr std::int16_t toFirst = 1, toNext = 2, toPrevious = 3;

void find(Instance& nota, std::int16_t modo, TextView criterio) {
  switch (modo) {
    case toFirst:
      return nota.crs().FindFirst(criterio);
    case toNext:
      return nota.crs().FindNext(criterio);
    case toPrevious:
      return nota.crs().FindPrevious(criterio);
    default:
      return;
  }
}

}  // namespace

void Buscar_Nota(Instance& nota) {
  procedure(u"Buscar_Nota de CNota", [&] {
    if (!hostAgrees(nota)) return;
    const ObjectRef fields = searchFieldsOf(nota.card().Name());
    const ObjectRef dialog = Platform::current().objects->create(u"Mosken.CMosken");
    putMember(dialog, u"ErrLogPath", moduleValues().ErrLogPath);
    putMember(dialog, u"VentanaJefa", nota.dNota);
    putMember(dialog, u"BuscarEn", fields);
    callMember(dialog, u"Mostrar");
  });
}

void CNota_BuscaElemento(Instance& nota, std::int16_t Modo, TextView Criterio, bool& Encontrado) {
  procedureHandling(
      u"CNota_BuscaElemento de CNota",
      [&] {
        Encontrado = false;
        if (nota.crs().isEOF() && nota.crs().isBOF()) return;
        if (Criterio.empty()) return;
        Screen& screen = *Platform::current().screen;
        screen.setMousePointer(hourglass);
        const std::int32_t start = nota.crs().value(u"IdAnota").toLong();
        find(nota, Modo, Criterio);
        if (nota.crs().NoMatch()) {
          nota.crs().MoveFirst();
          nota.crs().FindFirst(join(u"IdAnota = ", start));
        } else {
          Encontrado = true;
        }
        RefrescoFicha(nota, u"Guardar");
        screen.setMousePointer(defaultPointer);
      },
      [&](const Failure&) {
        Encontrado = false;
        return false;
      });
}

}  // namespace ovalia
