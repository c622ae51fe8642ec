#include "tests/forms/FormTest.h"

#include <algorithm>

namespace ovalia::forms {

Card::Card(const FormDesign& design) : CardForm(design) {
  const auto handOver = [this](const ControlRef& control) {
    handedOver.push_back(control ? control->Name() : Text(u"-"));
  };
  Load.connect([this] { journal.push_back(u"Load"); });
  UnLoad.connect([this](bool&) { journal.push_back(u"UnLoad"); });
  Cambio.connect([this, handOver](ControlRef& control, Text& field) {
    journal.push_back(u"Cambio " + field);
    handOver(control);
  });
  CogerFoco.connect([this, handOver](ControlRef& control) {
    journal.push_back(u"CogerFoco");
    handOver(control);
  });
  Validar.connect([this, handOver](ControlRef& control, bool& cancel) {
    journal.push_back(u"Validar");
    handOver(control);
    if (control && std::ranges::count(refused, control->Name()) > 0) cancel = true;
  });
  KeyDown.connect([this](std::int16_t& code, std::int16_t& shift) {
    journal.push_back(u"KeyDown " + toText(code) + u" " + toText(shift));
  });
  Menu.connect([this](Text& category, Text& id) { journal.push_back(u"Menu " + category + u" " + id); });
  VerLista.connect([this] { journal.push_back(u"VerLista"); });
  ActualizaDocs.connect([this](Text& text) { journal.push_back(u"ActualizaDocs " + text); });
  OLEDragDrop.connect([this](ObjectRef&) { journal.push_back(u"OLEDragDrop"); });
  OLEDragOver.connect([this](ObjectRef&, std::int32_t& effect) {
    journal.push_back(u"OLEDragOver " + toText(effect));
    effect = 1;
  });
}

void FormTest::shown(const FormDesign& design, const std::function<void(Card&)>& script) {
  const auto card = made(design);
  desk.whileShown([&] { script(*card); });
  card->Show();
}

const std::vector<const FormDesign*>& allCardDesigns() {
  static const std::vector<const FormDesign*> all{&frmNota(), &frmVisita(), &frmAnuncio(), &frmLlamada()};
  return all;
}

}  // namespace ovalia::forms
