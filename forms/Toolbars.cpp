#include "forms/Toolbars.h"

#include <algorithm>
#include <array>

#include "forms/Form.h"

namespace ovalia::forms {

namespace {

// Menus that report their id before they are displayed, so that what hangs on the moment can be set.
constexpr std::array<TextView, 3> reportedMenus{u"ID_mnuDocumentos", u"ID_mnuLsv", u"ID_mnuLsvEnDoc"};

bool reported(TextView menu) {
  return std::find(reportedMenus.begin(), reportedMenus.end(), menu) != reportedMenus.end();
}

}  // namespace

void ActiveToolBars::Tool::setEnabled(bool enabled) {
  if (enabled_ == enabled) return;
  enabled_ = enabled;
  if (FormView* view = owner_->form().view()) view->toolChanged(*owner_, id);
}

void ActiveToolBars::Tool::setVisible(bool visible) {
  if (visible_ == visible) return;
  visible_ = visible;
  if (FormView* view = owner_->form().view()) view->toolChanged(*owner_, id);
}

Variant ActiveToolBars::Tool::get(TextView member, Arguments) {
  if (sameName(member, u"Enabled")) return enabled_;
  if (sameName(member, u"Visible")) return visible_;
  if (sameName(member, u"ID")) return id;
  if (sameName(member, u"Category")) return group;
  if (sameName(member, u"Name") || sameName(member, u"Caption")) return caption;
  if (sameName(member, u"ToolTipText")) return tip;
  throw Failure(failure::noSuchMember);
}

void ActiveToolBars::Tool::put(TextView member, const Variant& value, Arguments) {
  if (sameName(member, u"Enabled")) return setEnabled(value.toBoolean());
  if (sameName(member, u"Visible")) return setVisible(value.toBoolean());
  throw Failure(failure::noSuchMember);
}

Variant ActiveToolBars::Tool::call(TextView, Arguments) { throw Failure(failure::noSuchMember); }

ActiveToolBars::ActiveToolBars(Form& form, const ControlDesign& design) : Control(form, design) {
  for (const ToolDesign& row : toolDesigns()) {
    if (!(row.forms & form.design().mask)) continue;
    auto tool = std::make_shared<Tool>();
    tool->id = row.id;
    tool->group = row.group;
    tool->caption = row.caption;
    tool->tip = row.tip;
    tool->owner_ = this;
    tools_.push_back(std::move(tool));
  }
}

std::shared_ptr<ActiveToolBars::Tool> ActiveToolBars::tool(TextView id) {
  for (const auto& tool : tools_)
    if (tool->id == id) return tool;
  throw Failure(failure::elementNotFound);
}

std::vector<Text> ActiveToolBars::contents(TextView menu) const {
  std::vector<Text> ids;
  for (const MenuRow& row : menuRows())
    if (row.menu == menu && (row.forms & form().design().mask)) ids.emplace_back(row.id);
  return ids;
}

bool ActiveToolBars::isMenu(TextView id) const { return !contents(id).empty(); }

void ActiveToolBars::PopupMenu(TextView menu, std::optional<Point> at) {
  if (!isMenu(menu)) throw Failure(failure::elementNotFound);
  if (reported(menu)) form().onTool(*tool(menu));
  if (FormView* view = form().view()) view->popupMenu(*this, menu, at);
}

void ActiveToolBars::userSelects(TextView id) {
  form().userAction([&] {
    const auto selected = tool(id);
    if (selected->Enabled() && selected->Visible()) form().onTool(*selected);
  });
}

void ActiveToolBars::userOpensMenu(TextView id) {
  form().userAction([&] {
    const auto opened = tool(id);
    if (reported(id) && opened->Enabled() && opened->Visible()) form().onTool(*opened);
  });
}

void ActiveToolBars::userPressesArrow(TextView id, Point at) {
  form().userAction([&] {
    const auto pressed = tool(id);
    if (pressed->Enabled() && pressed->Visible()) form().onToolAt(*pressed, at);
  });
}

bool ActiveToolBars::getOwn(TextView member, Arguments arguments, Variant& result) {
  if (!sameName(member, u"Tools")) return false;
  if (arguments.size() != 1) throw Failure(failure::wrongArguments);
  result = ObjectRef(tool(arguments[0].toText()));
  return true;
}

bool ActiveToolBars::callOwn(TextView member, Arguments arguments, Variant&) {
  if (!sameName(member, u"PopupMenu")) return false;
  if (arguments.size() != 1 && arguments.size() != 3) throw Failure(failure::wrongArguments);
  std::optional<Point> at;
  if (arguments.size() == 3) at = Point{arguments[1].toDouble(), arguments[2].toDouble()};
  PopupMenu(arguments[0].toText(), at);
  return true;
}

}  // namespace ovalia::forms
