#include "exchange/PassingMarks.h"

#include "exchange/AdditionalMarks.h"
#include "exchange/CardMarks.h"
#include "exchange/Marks.h"
#include "exchange/RecordMarks.h"
#include "routines/Trap.h"

namespace ovalia {

namespace {

// The grids of the host's forms, and the data control behind each.
constexpr struct {
  TextView grid, data;
} grids[] = {
    {u"grdNota", u"datNota"},       {u"grdVisita", u"datVisita"},  {u"grdAnuncio", u"datAnuncio"},
    {u"grdLlamada", u"datLlamada"}, {u"grdHistorico", u"datNota"},
};

dao::RecordsetRef listIn(const ObjectRef& form, TextView data) {
  const ObjectRef held = getMember(objectAt(form, {data}), u"Recordset").toObject();
  auto list = std::dynamic_pointer_cast<dao::Recordset>(held);
  if (held && !list) throw Failure(failure::typeMismatch);
  return list;
}

void marksOfGrid(Instance& nota, std::int32_t modo, Marks& marks) {
  const Text active = hostsActiveControl(nota);
  for (const auto& row : grids)
    if (row.grid == active)
      Datos_rsDlg(nota, listIn(objectAt(nota.nota.frmBase, {u"ActiveForm"}), row.data), marks, modo);
}

void pass(const Instance& nota, std::int32_t modo, const Marks& marks, ObjectRef& objW) {
  Variant names(marks.Marca), texts(marks.Campo);
  if (modo == paraAdjuntar || modo == paraImprimir) nota.nota.PasaDatosaDoc(names, texts, objW);
  if (modo == paraCorreo) nota.nota.PasaDatosEMail(names, texts);
}

}  // namespace

void Pasa_Datos_Dlg(Instance& nota, std::int32_t modo, ObjectRef& objW) {
  procedure(u"Pasa_Datos_Dlg de CNota", [&] {
    Marks marks;
    if (nota.dNota && nota.dNota->Visible()) {
      marksOfCard(nota, modo != paraAdjuntar, marks);
      addPropertyAndClient(nota, nota.crs(), marks);
    } else {
      marksOfGrid(nota, modo, marks);
    }
    pass(nota, modo, marks, objW);
  });
}

}  // namespace ovalia
