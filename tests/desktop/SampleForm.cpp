#include "tests/desktop/SampleForm.h"

#include <algorithm>
#include <array>

namespace ovalia::desktop {

namespace {

using enum forms::ControlType;
using namespace forms;

constexpr auto controls = std::to_array<ControlDesign>({
    {u"SSAtb", ActiveToolBars},
    {u"lblUno", Label, plain, u"Uno:", u"", 120, 120, 600, 240},
    {u"txtUno", TextBox, plain, u"", u"El primero", 750, 90, 1500, 315, 0, u"", u"lblUno"},
    {u"txtDos", TextBox, plain, u"", u"El segundo", 2400, 90, 1500, 315, 1},
    {u"cboLista", ComboBox, dropDownList, u"", u"Una lista", 120, 450, 1500, 315, 2},
    {u"cboLibre", ComboBox, plain, u"", u"Una lista libre", 1800, 450, 1500, 315, 3},
    {u"chkAviso", CheckBox, plain, u"Aviso", u"", 120, 840, 1500, 315, 4},
    {u"dtpFecha", DTPicker, plain, u"", u"Un día", 1800, 840, 1500, 315, 5},
    {u"dtpHora", DTPicker, timeOfDay, u"", u"Una hora", 3400, 840, 1200, 315, 6},
    {u"dtpEnvio", DTPicker, nullable, u"", u"Quizá un día", 4700, 840, 1600, 315, 7},
    {u"cmdLista", CommandButton, plain, u"&Lista", u"", 120, 1200, 1200, 315, 8},
    {u"fraMarco", Frame, plain, u"Marco", u"", 120, 1600, 3000, 800},
    {u"txtDentro", TextBox, plain, u"", u"Dentro", 120, 300, 1500, 315, 9, u"fraMarco"},
    {u"txtLeer", TextBox, readOnly, u"", u"Sólo leer", 3400, 1900, 1500, 315, 10},
    {u"ImgBell", Image, plain, u"", u"", 5400, 90, 240, 240},
    {u"fralinea1", Line, plain, u"", u"", 120, 2450, 6000, 30, -1, u"", u"", 0},
    {u"splitDocumentos", Splitter, plain, u"", u"", 120, 2500, 6000, 1500},
    {u"LsvDocu", ListView, labelEdit, u"Documentos", u"", 0, 0, 2200, 1500, 12, u"splitDocumentos"},
    {u"txtNotas", TextBox, multiLine, u"", u"Notas", 2200, 0, 3800, 1500, 11, u"splitDocumentos"},
    {u"txtOculto", TextBox, hidden, u"", u"Oculto", 5000, 1900, 900, 315, 13},
    {u"mnuA", Menu, hidden},
});

constexpr FormDesign sample{u"frmMuestra", u"Muestra", 6745,    5460,      controls, {}, {},
                            forms::nota,   u"Resize",  u"Tool", u"Search", u"Cancel"};

constexpr const char* eventNames[] = {"Change",      "Click",     "DblClick",   "GotFocus",
                                      "LostFocus",   "Validate",  "ShiftEnter", "OLEDragDrop",
                                      "OLEDragOver", "ItemClick", "MouseUp",    "AfterLabelEdit"};

std::string nameOf(const Control& control) { return " " + toUtf8(control.Name()); }

}  // namespace

SampleForm::SampleForm() : Form(sample) {}

int SampleForm::count(const std::string& entry) const {
  return static_cast<int>(std::count(log.begin(), log.end(), entry));
}

void SampleForm::note(const std::string& entry) {
  log.push_back(entry);
  if (on) on(entry);
}

void SampleForm::onUnload(bool& cancel) {
  note("Unload");
  cancel = staysOpen;
}
void SampleForm::onResize() { note("Resize"); }
void SampleForm::onKeyDown(int keyCode, int shift) {
  note("Key " + std::to_string(keyCode) + " " + std::to_string(shift));
}
void SampleForm::onControl(Control& control, ControlEvent event) {
  note(eventNames[static_cast<int>(event)] + nameOf(control));
}
void SampleForm::onValidate(Control& control, bool& cancel) {
  note("Validate" + nameOf(control));
  cancel = refuses && refuses(control);
}
void SampleForm::onTool(forms::ActiveToolBars::Tool& tool) { note("Tool " + toUtf8(tool.id)); }
void SampleForm::onToolAt(forms::ActiveToolBars::Tool& tool, Point at) {
  note("ToolAt " + toUtf8(tool.id));
  toolbars().PopupMenu(u"ID_mnuAdjuntar", at);
}
void SampleForm::onMouseUp(forms::ListView&, int button) { note("MouseUp " + std::to_string(button)); }
void SampleForm::onLabelEdit(forms::ListView&, TextView text) { note("Label " + toUtf8(text)); }
void SampleForm::onDragOver(Control& control, const ObjectRef&, std::int32_t& effect) {
  note("DragOver" + nameOf(control));
  effect = dragEffect;
}
void SampleForm::onDragDrop(Control& control, const ObjectRef& data) {
  const ObjectRef files = getMember(data, u"Files").toObject();
  for (std::int32_t i = 1; i <= getMember(files, u"Count").toLong(); ++i)
    dropped.push_back(getMember(data, u"Files", {i}).toText());
  note("Drop" + nameOf(control));
}
void SampleForm::onDragOut(forms::ListView& list, Text& path) {
  note("DragOut " + std::to_string(list.selectedIndex()));
  path = leaving;
}

}  // namespace ovalia::desktop
