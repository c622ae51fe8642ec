#include "forms/Control.h"

#include <array>

#include "forms/Form.h"
#include "forms/Grid.h"
#include "forms/Toolbars.h"
#include "platform/Failure.h"

namespace ovalia::forms {

namespace {

struct TypeRow {
  ControlType type;
  TextView name;
  bool takesFocus;
};

constexpr std::array<TypeRow, 16> types{{
    {ControlType::Label, u"Label", false},
    {ControlType::TextBox, u"TextBox", true},
    {ControlType::ComboBox, u"ComboBox", true},
    {ControlType::CheckBox, u"CheckBox", true},
    {ControlType::DTPicker, u"DTPicker", true},
    {ControlType::CommandButton, u"CommandButton", true},
    {ControlType::Frame, u"Frame", false},
    {ControlType::Image, u"Image", false},
    {ControlType::Line, u"Frame", false},
    {ControlType::Splitter, u"SSSplitter", false},
    {ControlType::ListView, u"ListView", true},
    {ControlType::ActiveToolBars, u"SSActiveToolBars", false},
    {ControlType::ImageList, u"ImageList", false},
    {ControlType::Menu, u"Menu", false},
    {ControlType::Grid, u"SSDBGrid", true},
    {ControlType::Data, u"Data", false},
}};

const TypeRow& rowOf(ControlType type) { return types[static_cast<std::size_t>(type)]; }

// The members that every control has.
struct CommonMember {
  TextView name;
  Variant (*get)(const Control&);
  void (*put)(Control&, const Variant&);
};

const std::array<CommonMember, 11> commonMembers{{
    {u"Name", [](const Control& c) -> Variant { return c.Name(); }, nullptr},
    {u"Tag", [](const Control& c) -> Variant { return c.Tag; },
     [](Control& c, const Variant& v) { c.Tag = v.toText(); }},
    {u"Caption", [](const Control& c) -> Variant { return c.Caption(); },
     [](Control& c, const Variant& v) { c.setCaption(v.toText()); }},
    {u"ToolTipText", [](const Control& c) -> Variant { return c.design().tip; }, nullptr},
    {u"Enabled", [](const Control& c) -> Variant { return c.Enabled(); },
     [](Control& c, const Variant& v) { c.setEnabled(v.toBoolean()); }},
    {u"Visible", [](const Control& c) -> Variant { return c.Visible(); },
     [](Control& c, const Variant& v) { c.setVisible(v.toBoolean()); }},
    {u"Left", [](const Control& c) -> Variant { return c.Left(); },
     [](Control& c, const Variant& v) { c.setLeft(v.toDouble()); }},
    {u"Top", [](const Control& c) -> Variant { return c.Top(); },
     [](Control& c, const Variant& v) { c.setTop(v.toDouble()); }},
    {u"Width", [](const Control& c) -> Variant { return c.Width(); },
     [](Control& c, const Variant& v) { c.setWidth(v.toDouble()); }},
    {u"Height", [](const Control& c) -> Variant { return c.Height(); },
     [](Control& c, const Variant& v) { c.setHeight(v.toDouble()); }},
    {u"TabIndex", [](const Control& c) -> Variant { return std::int32_t(c.design().tab); }, nullptr},
}};

const CommonMember* commonMember(TextView name) {
  for (const CommonMember& member : commonMembers)
    if (sameName(member.name, name)) return &member;
  return nullptr;
}

}  // namespace

TextView typeName(ControlType type) { return rowOf(type).name; }

Control::Control(Form& form, const ControlDesign& design)
    : form_(form),
      design_(&design),
      caption_(design.caption),
      visible_(!(design.style & hidden)),
      left_(design.left),
      top_(design.top),
      width_(design.width),
      height_(design.height) {}

void Control::setCaption(TextView caption) {
  if (caption_ == caption) return;
  caption_ = caption;
  changed(Property::Caption);
}

void Control::setEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  changed(Property::Enabled);
  form_.releaseFocus();
}

void Control::setVisible(bool visible) {
  if (visible_ == visible) return;
  visible_ = visible;
  changed(Property::Visible);
  form_.releaseFocus();
}

void Control::setLeft(double twips) { place(left_, twips); }
void Control::setTop(double twips) { place(top_, twips); }
void Control::setWidth(double twips) { place(width_, twips); }
void Control::setHeight(double twips) { place(height_, twips); }

void Control::place(double& property, double twips) {
  if (property == twips) return;
  property = twips;
  changed(Property::Place);
}

Variant Control::value() const { throw Failure(failure::noSuchMember); }
void Control::setValue(const Variant&) { throw Failure(failure::noSuchMember); }

bool Control::takesFocus() const { return rowOf(type()).takesFocus && enabled_ && visible_; }

void Control::SetFocus() {
  if (!takesFocus()) throw Failure(failure::badArgument);
  form_.moveFocus(*this);
}

void Control::changed(Property property) {
  if (FormView* view = form_.view()) view->controlChanged(*this, property);
}

void Control::raise(ControlEvent event) { form_.onControl(*this, event); }

Variant Control::get(TextView member, Arguments arguments) {
  Variant result;
  if (getOwn(member, arguments, result)) return result;
  if (member.empty()) return value();
  if (const CommonMember* common = commonMember(member)) return common->get(*this);
  throw Failure(failure::noSuchMember);
}

void Control::put(TextView member, const Variant& newValue, Arguments arguments) {
  if (putOwn(member, newValue, arguments)) return;
  if (member.empty()) return setValue(newValue);
  const CommonMember* common = commonMember(member);
  if (!common || !common->put) throw Failure(failure::noSuchMember);
  common->put(*this, newValue);
}

Variant Control::call(TextView member, Arguments arguments) {
  Variant result;
  if (callOwn(member, arguments, result)) return result;
  if (sameName(member, u"SetFocus")) {
    SetFocus();
    return {};
  }
  throw Failure(failure::noSuchMember);
}

bool Control::getOwn(TextView, Arguments, Variant&) { return false; }
bool Control::putOwn(TextView, const Variant&, Arguments) { return false; }
bool Control::callOwn(TextView, Arguments, Variant&) { return false; }

ControlRef makeControl(Form& form, const ControlDesign& design) {
  switch (design.type) {
    case ControlType::TextBox:
      return std::make_shared<TextBox>(form, design);
    case ControlType::ComboBox:
      return std::make_shared<ComboBox>(form, design);
    case ControlType::CheckBox:
      return std::make_shared<CheckBox>(form, design);
    case ControlType::DTPicker:
      return std::make_shared<DTPicker>(form, design);
    case ControlType::CommandButton:
      return std::make_shared<CommandButton>(form, design);
    case ControlType::Splitter:
      return std::make_shared<Splitter>(form, design);
    case ControlType::ListView:
      return std::make_shared<ListView>(form, design);
    case ControlType::ActiveToolBars:
      return std::make_shared<ActiveToolBars>(form, design);
    case ControlType::Grid:
      return std::make_shared<Grid>(form, design);
    case ControlType::Data:
      return std::make_shared<DataControl>(form, design);
    default:
      return std::make_shared<Ornament>(form, design);
  }
}

}  // namespace ovalia::forms
