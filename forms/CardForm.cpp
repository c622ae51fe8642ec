#include "forms/CardForm.h"

#include "forms/VisitTimes.h"
#include "platform/Platform.h"
#include "routines/Trap.h"

namespace ovalia::forms {

namespace {
constexpr int rightButton = 2;
constexpr double roomBelowSplitter = 130;
}  // namespace

std::uint16_t CardForm::eventsOf(const Control& control, std::uint16_t wanted, Text* field) const {
  for (const EventRow& row : design().events) {
    if (row.control != control.design().name || !(row.events & wanted)) continue;
    if (field) *field = row.field;
    return row.events & wanted;
  }
  return 0;
}

void CardForm::raiseCambio(Text field) {
  ControlRef active = ActiveControl();
  Cambio(active, field);
}

void CardForm::onLoad() { Load(); }
void CardForm::onUnload(bool& cancel) { UnLoad(cancel); }
void CardForm::onResize() { Form_Resize(); }

void CardForm::onKeyDown(int keyCode, int shift) {
  auto code = static_cast<std::int16_t>(keyCode);
  auto mask = static_cast<std::int16_t>(shift);
  KeyDown(code, mask);
}

void CardForm::onControl(Control& control, ControlEvent event) {
  Text field;
  switch (event) {
    case ControlEvent::Change:
      if (control.design().name == u"dtpFechaEnvio")
        this->control(u"dtpHoraEnvio")->setEnabled(!control.value().isNull());
      if (eventsOf(control, onChange, &field)) raiseCambio(field);
      if (!filling_ && eventsOf(control, onVisitTime)) linkVisitTimes(*this, control.design().name);
      break;
    case ControlEvent::Click:
      if (eventsOf(control, onClick, &field)) raiseCambio(field);
      if (eventsOf(control, onClickList)) VerLista();
      break;
    case ControlEvent::DblClick:
      if (eventsOf(control, onDblClickList)) VerLista();
      if (eventsOf(control, onItems) && itemPulsado_) {
        itemPulsado_ = false;
        Text group = u"Documentos", id = u"ID_Abrir";
        Menu(group, id);
      }
      break;
    case ControlEvent::GotFocus:
      if (eventsOf(control, onFocus)) {
        ControlRef active = ActiveControl();
        CogerFoco(active);
      }
      break;
    case ControlEvent::LostFocus:
      if (eventsOf(control, onLeave)) {
        ControlRef active = ActiveControl();
        bool ignored = false;
        Validar(active, ignored);
      }
      break;
    case ControlEvent::ShiftEnter:
      if (eventsOf(control, onShiftEnter)) VerLista();
      break;
    case ControlEvent::ItemClick:
      if (eventsOf(control, onItems)) itemPulsado_ = true;
      break;
    default:
      break;
  }
}

void CardForm::onValidate(Control& control, bool& cancel) {
  if (!eventsOf(control, onValidateHold)) return;
  ControlRef active = ActiveControl();
  Validar(active, cancel);
}

void CardForm::onTool(ActiveToolBars::Tool& tool) {
  Text group = tool.group, id = tool.id;
  Menu(group, id);
}

void CardForm::onToolAt(ActiveToolBars::Tool& tool, Point at) {
  procedure(design().toolName, [&] {
    if (tool.id == u"ID_BAdjuntar") toolbars().PopupMenu(u"ID_mnuAdjuntar", at);
  });
}

void CardForm::onMouseUp(ListView& list, int button) {
  if (!eventsOf(list, onItems)) return;
  if (button == rightButton) {
    const bool onItem = std::exchange(itemPulsado_, false);
    toolbars().PopupMenu(onItem ? u"ID_mnuLsvEnDoc" : u"ID_mnuLsv");
  }
  Platform::current().screen->yield();
}

void CardForm::onLabelEdit(ListView& list, TextView text) {
  if (!eventsOf(list, ovalia::forms::onLabelEdit)) return;
  Text edited(text);
  ActualizaDocs(edited);
}

void CardForm::onDragOver(Control& control, const ObjectRef& data, std::int32_t& effect) {
  if (!eventsOf(control, onDrag)) return;
  ObjectRef dragged = data;
  OLEDragOver(dragged, effect);
}

void CardForm::onDragDrop(Control& control, const ObjectRef& data) {
  if (!eventsOf(control, onDrag)) return;
  ObjectRef dropped = data;
  OLEDragDrop(dropped);
}

void CardForm::onDragOut(ListView& list, Text& path) {
  if (eventsOf(list, onDrag)) OLEStartDrag(path);
}

bool CardForm::BuscarElemento(std::int16_t modo, TextView criterio) {
  return procedureHandling(
      design().searchName, false,
      [&](bool& found) {
        Text criterion(criterio);
        BuscaElemento(modo, criterion, found);
        passFocusOn();  // the search is a handler of this form that lasts as long as its window
      },
      [](const Failure&, bool& found) {
        found = false;
        return false;
      });
}

void CardForm::Form_Resize() {
  constexpr int minimised = 1;
  procedure(design().resizeName, [&] {
    if (WindowState() == minimised) return;
    Control& splitter = *control(u"splitDocumentos");
    if (Height() > design().minimumHeight)
      splitter.setHeight(ScaleHeight() - (splitter.Top() + roomBelowSplitter));
    const double grown = Width() - design().minimumWidth;
    if (grown > 0) stretch(grown, 0);
  });
}

void CardForm::cmdCancelar_Click() {
  procedure(design().cancelName, [&] { Unload(); });
}

bool CardForm::callOwn(TextView member, Arguments arguments, Variant& result) {
  if (sameName(member, u"BuscarElemento")) {
    if (arguments.size() != 2) throw Failure(failure::wrongArguments);
    result = BuscarElemento(arguments[0].toInteger(), arguments[1].toText());
    return true;
  }
  if (sameName(member, u"Form_Resize")) return Form_Resize(), true;
  return false;
}

}  // namespace ovalia::forms
