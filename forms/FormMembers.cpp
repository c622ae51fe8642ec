#include <array>

#include "forms/Form.h"

namespace ovalia::forms {

namespace {

// The controls of a form as a late-bound collection: a name gives the control, for an array its first.
class ControlCollection : public Object {
 public:
  explicit ControlCollection(FormRef form) : form_(std::move(form)) {}

  Variant get(TextView member, Arguments arguments) override {
    if (sameName(member, u"Count")) return std::int32_t(form_->controls().size());
    if (!member.empty() && !sameName(member, u"Item")) throw Failure(failure::noSuchMember);
    if (arguments.size() != 1) throw Failure(failure::wrongArguments);
    if (arguments[0].type() == VarType::Text) return ObjectRef(form_->control(arguments[0].toText()));
    const std::int32_t position = arguments[0].toLong();
    if (position < 0 || position >= static_cast<std::int32_t>(form_->controls().size()))
      throw Failure(failure::noSuchControl);
    return ObjectRef(form_->controls()[static_cast<std::size_t>(position)]);
  }
  void put(TextView, const Variant&, Arguments) override { throw Failure(failure::noSuchMember); }
  Variant call(TextView, Arguments) override { throw Failure(failure::noSuchMember); }

 private:
  FormRef form_;
};

struct Member {
  TextView name;
  Variant (*get)(Form&);
  void (*put)(Form&, const Variant&);
};

const std::array<Member, 13> members{{
    {u"Name", [](Form& f) -> Variant { return f.Name(); }, nullptr},
    {u"Visible", [](Form& f) -> Variant { return f.Visible(); }, nullptr},
    {u"Caption", [](Form& f) -> Variant { return f.Caption(); },
     [](Form& f, const Variant& v) { f.setCaption(v.toText()); }},
    {u"KeyPreview", [](Form& f) -> Variant { return f.KeyPreview(); },
     [](Form& f, const Variant& v) { f.setKeyPreview(v.toBoolean()); }},
    {u"Controls", [](Form& f) -> Variant { return f.Controls(); }, nullptr},
    {u"ActiveControl", [](Form& f) -> Variant { return ObjectRef(f.ActiveControl()); }, nullptr},
    {u"Left", [](Form& f) -> Variant { return f.Left(); },
     [](Form& f, const Variant& v) { f.setLeft(v.toDouble()); }},
    {u"Top", [](Form& f) -> Variant { return f.Top(); },
     [](Form& f, const Variant& v) { f.setTop(v.toDouble()); }},
    {u"Width", [](Form& f) -> Variant { return f.Width(); },
     [](Form& f, const Variant& v) { f.setWidth(v.toDouble()); }},
    {u"Height", [](Form& f) -> Variant { return f.Height(); },
     [](Form& f, const Variant& v) { f.setHeight(v.toDouble()); }},
    {u"ScaleWidth", [](Form& f) -> Variant { return f.ScaleWidth(); }, nullptr},
    {u"ScaleHeight", [](Form& f) -> Variant { return f.ScaleHeight(); }, nullptr},
    {u"WindowState", [](Form& f) -> Variant { return std::int16_t(f.WindowState()); },
     [](Form& f, const Variant& v) { f.setWindowState(v.toLong()); }},
}};

const Member* memberOf(TextView name) {
  for (const Member& member : members)
    if (sameName(member.name, name)) return &member;
  return nullptr;
}

}  // namespace

ObjectRef Form::Controls() { return std::make_shared<ControlCollection>(shared_from_this()); }

Variant Form::get(TextView member, Arguments arguments) {
  if (const Member* known = memberOf(member)) {
    const Variant result = known->get(*this);
    if (arguments.empty()) return result;
    return result.toObject()->get(u"", arguments);
  }
  if (!member.empty())
    if (const ControlRef control = find(member, -1)) return ObjectRef(control);
  throw Failure(failure::noSuchMember);
}

void Form::put(TextView member, const Variant& value, Arguments) {
  const Member* known = memberOf(member);
  if (!known || !known->put) throw Failure(failure::noSuchMember);
  known->put(*this, value);
}

Variant Form::call(TextView member, Arguments arguments) {
  Variant result;
  if (callOwn(member, arguments, result)) return result;
  if (sameName(member, u"Show")) return Show(), result;
  if (sameName(member, u"Hide")) return Hide(), result;
  if (sameName(member, u"SetFocus")) return SetFocus(), result;
  throw Failure(failure::noSuchMember);
}

}  // namespace ovalia::forms
