#include <algorithm>

#include "forms/Control.h"
#include "forms/Form.h"

namespace ovalia::forms {

namespace {

// One pane as a late-bound object: Panes(1).Width, Panes(1).Name.
class Pane : public Object {
 public:
  explicit Pane(std::shared_ptr<Splitter> splitter, bool first)
      : splitter_(std::move(splitter)), first_(first) {}

  Variant get(TextView member, Arguments) override {
    if (sameName(member, u"Name")) return first_ ? u"Pane A" : u"Pane B";
    if (!sameName(member, u"Width")) throw Failure(failure::noSuchMember);
    return first_ ? splitter_->PaneWidth() : splitter_->Width() - splitter_->PaneWidth();
  }
  void put(TextView member, const Variant& value, Arguments) override {
    if (!sameName(member, u"Width")) throw Failure(failure::noSuchMember);
    splitter_->setPaneWidth(first_ ? value.toDouble() : splitter_->Width() - value.toDouble());
  }
  Variant call(TextView, Arguments) override { throw Failure(failure::noSuchMember); }

 private:
  std::shared_ptr<Splitter> splitter_;
  bool first_;
};

}  // namespace

void Splitter::setPaneWidth(double twips) {
  const double width = std::clamp(twips, 0.0, std::max(0.0, Width()));
  if (width == paneWidth_) return;
  paneWidth_ = width;
  changed(Property::PaneWidth);
}

void Splitter::userDrags(double twips) {
  form().userAction([&] { setPaneWidth(twips); });
}

bool Splitter::getOwn(TextView member, Arguments arguments, Variant& result) {
  if (!sameName(member, u"Panes")) return false;
  if (arguments.size() != 1) throw Failure(failure::wrongArguments);
  const std::int32_t pane = arguments[0].toLong();
  if (pane != 1 && pane != 2) throw Failure(failure::indexOutOfBounds);
  auto self = std::dynamic_pointer_cast<Splitter>(form().control(Name()));
  result = ObjectRef(std::make_shared<Pane>(std::move(self), pane == 1));
  return true;
}

}  // namespace ovalia::forms
