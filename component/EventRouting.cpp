#include "component/EventRouting.h"

#include "attachments/AddingAttachments.h"
#include "attachments/AttachmentOperations.h"
#include "attachments/DraggingOut.h"
#include "cards/CardLists.h"
#include "cards/Closing.h"
#include "cards/EditTracking.h"
#include "cards/Navigation.h"
#include "cards/Search.h"
#include "cards/Validation.h"
#include "commands/CommandRouting.h"
#include "component/CardLoad.h"

namespace ovalia {

namespace {

// The check of a control that is being left, for all four cards: one that passes stops tracking, one that
// does not is kept.
void dlgNota_Validar(Instance& nota, const forms::ControlRef& control, bool& cancel) {
  if (ComprobarCambio(nota, true)) {
    if (control) control->Tag.clear();
  } else {
    cancel = true;
  }
}

}  // namespace

void connectCard(Instance& nota, forms::CardForm& card) {
  using forms::ControlRef;
  card.Load.connect([&] { dNota_Load(nota); });
  card.UnLoad.connect([&](bool& cancel) { dNota_UnLoad(nota, cancel); });
  card.Validar.connect([&](ControlRef& control, bool& cancel) { dlgNota_Validar(nota, control, cancel); });
  card.Cambio.connect([&](ControlRef& control, Text& campo) { dNota_Cambio(nota, control, campo); });
  card.CogerFoco.connect([&](ControlRef& control) { dNota_CogerFoco(nota, control); });
  card.KeyDown.connect(
      [&](std::int16_t& keyCode, std::int16_t& shift) { dNota_KeyDown(nota, keyCode, shift); });
  card.Menu.connect([&](Text& category, Text& id) { dNota_Menu(nota, category, id); });
  card.VerLista.connect([&] { dNota_VerLista(nota); });
  card.OLEDragDrop.connect([&](ObjectRef& data) { dNota_OLEDragDrop(nota, data); });
  card.OLEDragOver.connect(
      [&](ObjectRef& data, std::int32_t& effect) { dNota_OLEDragOver(nota, data, effect); });
  card.OLEStartDrag.connect([&](Text& path) { dNota_OLEStartDrag(nota, path); });
  card.BuscaElemento.connect([&](std::int16_t& modo, Text& criterio, bool& encontrado) {
    CNota_BuscaElemento(nota, modo, criterio, encontrado);
  });
  card.ActualizaDocs.connect([&](Text& texto) { dlgNota_ActualizaDocs(nota, texto); });
}

}  // namespace ovalia
