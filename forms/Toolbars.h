#pragma once

#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "forms/Control.h"

namespace ovalia::forms {

struct Point {
  double x = 0, y = 0;  // twips, in the form
};

// Menu bar, toolbar and pop-up menus of a card. Each tool has one state wherever it stands. Neither bars nor
// menus take the focus.
class ActiveToolBars : public Control {
 public:
  ActiveToolBars(Form& form, const ControlDesign& design);

  // As a late-bound object: Enabled, Visible, Caption, ID, Category.
  class Tool : public Object {
   public:
    Text id, group, caption, tip;
    bool Enabled() const { return enabled_; }
    bool Visible() const { return visible_; }
    void setEnabled(bool enabled);
    void setVisible(bool visible);
    Variant get(TextView member, Arguments arguments = {}) override;
    void put(TextView member, const Variant& value, Arguments arguments = {}) override;
    Variant call(TextView member, Arguments arguments = {}) override;

   private:
    friend class ActiveToolBars;
    ActiveToolBars* owner_ = nullptr;
    bool enabled_ = true;
    bool visible_ = true;
  };

  std::shared_ptr<Tool> tool(TextView id);  // 35601 when the id is unknown
  const std::vector<std::shared_ptr<Tool>>& tools() const { return tools_; }

  // Ids in their order, "" for a separator. Bars: "Menu" and "Herramientas"; menus by the id of their tool.
  std::vector<Text> contents(TextView menu) const;
  bool isMenu(TextView id) const;

  void PopupMenu(TextView menu, std::optional<Point> at = {});  // 35601 when there is no such menu

  void userSelects(TextView id);    // `Menu`, of an enabled and visible tool
  void userOpensMenu(TextView id);  // reports the menus that want to be told, before they are displayed
  void userPressesArrow(TextView id, Point at);  // the arrow of a split button

 protected:
  bool getOwn(TextView member, Arguments arguments, Variant& result) override;
  bool callOwn(TextView member, Arguments arguments, Variant& result) override;

 private:
  std::vector<std::shared_ptr<Tool>> tools_;
};

// The tables that all cards share.
std::span<const ToolDesign> toolDesigns();
std::span<const MenuRow> menuRows();

}  // namespace ovalia::forms
