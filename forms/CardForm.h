#pragma once

#include "forms/Form.h"
#include "platform/Event.h"

namespace ovalia::forms {

// One of the four cards. It holds no logic of the business: every event of its controls becomes one of the
// events below, which carry the form's active control of that moment, not the control that raised them.
class CardForm : public Form {
 public:
  using Form::Form;

  Event<Text&> ActualizaDocs;         // new text of an item; frmNota only
  Event<Text&, Text&> Menu;           // category, tool id
  Event<ControlRef&, bool&> Validar;  // control, cancel
  Event<ControlRef&, Text&> Cambio;   // control, field name
  Event<ControlRef&> CogerFoco;
  Event<std::int16_t&, std::int16_t&> KeyDown;  // virtual-key code, shift mask
  Event<> Load;
  Event<bool&> UnLoad;
  Event<> VerLista;
  Event<std::int16_t&, Text&, bool&> BuscaElemento;  // mode 1 first, 2 next, 3 previous; criterion; found
  Event<ObjectRef&> OLEDragDrop;
  Event<ObjectRef&, std::int32_t&> OLEDragOver;
  Event<Text&>
      OLEStartDrag;  // path of the file that the selected item stands for; stays "" where there is none

  // The splitter takes the height there is, and the controls of the resize table what the form has grown.
  // Never below the minimum size.
  void Form_Resize();

  // Raises BuscaElemento; whether it found. A search that fails is reported and has found nothing.
  bool BuscarElemento(std::int16_t modo, TextView criterio);

  // Set by whoever fills the card from a record or blanks it, cleared at the end: rules between controls are
  // for what the user does.
  bool filling() const { return filling_; }
  void setFilling(bool filling) { filling_ = filling; }

 protected:
  // Kept for a button that the cards do not have; closing goes through the window and the tool.
  void cmdCancelar_Click();

  void onLoad() override;
  void onUnload(bool& cancel) override;
  void onResize() override;
  void onKeyDown(int keyCode, int shift) override;
  void onControl(Control& control, ControlEvent event) override;
  void onValidate(Control& control, bool& cancel) override;
  void onTool(ActiveToolBars::Tool& tool) override;
  void onToolAt(ActiveToolBars::Tool& tool, Point at) override;
  void onMouseUp(ListView& list, int button) override;
  void onLabelEdit(ListView& list, TextView text) override;
  void onDragOver(Control& control, const ObjectRef& data, std::int32_t& effect) override;
  void onDragDrop(Control& control, const ObjectRef& data) override;
  void onDragOut(ListView& list, Text& path) override;
  bool callOwn(TextView member, Arguments arguments, Variant& result) override;

 private:
  std::uint16_t eventsOf(const Control& control, std::uint16_t wanted, Text* field = nullptr) const;
  void raiseCambio(Text field);

  bool itemPulsado_ = false;
  bool filling_ = false;
};

// The designs of the four cards.
const FormDesign& frmNota();
const FormDesign& frmVisita();
const FormDesign& frmAnuncio();
const FormDesign& frmLlamada();

}  // namespace ovalia::forms
