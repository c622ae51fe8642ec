#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <unordered_set>
#include <vector>

#include "forms/Design.h"
#include "platform/Object.h"
#include "platform/Variant.h"

namespace ovalia::forms {

class Form;

// What of a control changed, for the view that draws it.
enum class Property : std::uint8_t {
  Value,  // text, tick, date, caption
  Caption,
  Enabled,
  Visible,
  Place,
  List,       // entries of a combo box
  Selection,  // selected text
  Items,      // of a list view
  SelectedItem,
  View,
  PaneWidth,
  BackColor,   // of a text box
  Rows,        // of a grid: other rows, or the same to be read again; current row and marks with them
  CurrentRow,  // of a grid
  Marks,       // of a grid: its marked rows
  Headings,    // of a grid: their style sets
};

// One control of a loaded form. It lives as long as the form's window; its state starts from the design at
// each load. As a late-bound object it has the members named below and its value as the default member; a
// member that its kind lacks is failure 438. Assigning a value from code raises Change or Click as the user's
// doing would, if the value really changes.
class Control : public Object {
 public:
  Control(Form& form, const ControlDesign& design);

  Form& form() const { return form_; }
  const ControlDesign& design() const { return *design_; }
  Text Name() const { return Text(design_->name); }
  ControlType type() const { return design_->type; }
  bool has(Style style) const { return design_->style & style; }

  Text Tag;

  const Text& Caption() const { return caption_; }
  void setCaption(TextView caption);
  bool Enabled() const { return enabled_; }
  void setEnabled(bool enabled);
  bool Visible() const { return visible_; }  // its own setting, whatever its parents show
  void setVisible(bool visible);
  double Left() const { return left_; }
  double Top() const { return top_; }
  double Width() const { return width_; }
  double Height() const { return height_; }
  void setLeft(double twips);
  void setTop(double twips);
  void setWidth(double twips);
  void setHeight(double twips);

  // The default member: text, tick, date, caption. 438 where the kind has none.
  virtual Variant value() const;
  virtual void setValue(const Variant& value);

  // Whether the focus can stand on it at this moment: an enabled, visible control of a kind that takes it.
  bool takesFocus() const;

  // Validate of the control that has the focus may keep it there. Failure 5 on one that cannot take it.
  void SetFocus();

  Variant get(TextView member, Arguments arguments = {}) override;
  void put(TextView member, const Variant& value, Arguments arguments = {}) override;
  Variant call(TextView member, Arguments arguments = {}) override;

 protected:
  // Members of the kind beyond those of all controls; false when the kind has no such member.
  virtual bool getOwn(TextView member, Arguments arguments, Variant& result);
  virtual bool putOwn(TextView member, const Variant& value, Arguments arguments);
  virtual bool callOwn(TextView member, Arguments arguments, Variant& result);

  void changed(Property property);
  void raise(ControlEvent event);

 private:
  void place(double& property, double twips);

  Form& form_;
  const ControlDesign* design_;
  Text caption_;
  bool enabled_ = true;
  bool visible_ = true;
  double left_, top_, width_, height_;
};

using ControlRef = std::shared_ptr<Control>;

// Colours as 0xBBGGRR; with the highest bit, the number of one of the system's own.
inline constexpr std::uint32_t windowBackground = 0x80000005;

class TextBox : public Control {
 public:
  using Control::Control;
  const Text& text() const { return text_; }
  void setText(TextView text);  // raises Change
  int SelStart() const { return selStart_; }
  int SelLength() const { return selLength_; }
  void setSelection(int start, int length);  // UTF-16 units, cut to the text
  std::uint32_t BackColor() const { return backColor_; }
  void setBackColor(std::uint32_t color);

  void userTypes(TextView text);            // the whole new text; nothing on a disabled or read-only box
  void userSelects(int start, int length);  // the view says what is selected now
  void userDoubleClicks();

  Variant value() const override { return text_; }
  void setValue(const Variant& value) override;

 protected:
  bool getOwn(TextView member, Arguments arguments, Variant& result) override;
  bool putOwn(TextView member, const Variant& value, Arguments arguments) override;

 private:
  Text text_;
  int selStart_ = 0, selLength_ = 0;
  std::uint32_t backColor_ = windowBackground;
};

class ComboBox : public Control {
 public:
  using Control::Control;
  struct Entry {
    Text text;
    std::int32_t data = 0;
  };
  const Text& text() const { return text_; }
  const std::vector<Entry>& entries() const { return entries_; }
  int ListIndex() const { return listIndex_; }  // -1 where the text is none of the entries

  // Editable: Change if it changes. Drop-down list: the entry of that name without regard to case, in the
  // list's spelling, and Click; 383 when there is none, and "" deselects.
  void setText(TextView text);
  void AddItem(TextView text);  // at the end
  void Clear();                 // the text of an editable combo stays
  void setItemData(int position, std::int32_t data);
  int NewIndex() const { return newIndex_; }

  void userTypes(TextView text);  // editable only; Change
  void userPicks(int position);   // Click

  Variant value() const override { return text_; }
  void setValue(const Variant& value) override;  // Null into a drop-down list is 94

 protected:
  bool getOwn(TextView member, Arguments arguments, Variant& result) override;
  bool putOwn(TextView member, const Variant& value, Arguments arguments) override;
  bool callOwn(TextView member, Arguments arguments, Variant& result) override;

 private:
  int find(TextView text) const;
  void selectEntry(int position);

  std::vector<Entry> entries_;
  Text text_;
  int listIndex_ = -1;
  int newIndex_ = -1;
};

class CheckBox : public Control {
 public:
  using Control::Control;
  int Value() const { return value_; }  // 0 or 1
  void setTick(int value);              // raises Click if it changes
  void userToggles();

  Variant value() const override { return std::int16_t(value_); }
  void setValue(const Variant& value) override;

 protected:
  bool getOwn(TextView member, Arguments arguments, Variant& result) override;
  bool putOwn(TextView member, const Variant& value, Arguments arguments) override;

 private:
  int value_ = 0;
};

// A date or a time of day. Day zero is "no date" and shows empty; Null exists only with a check box. A time
// picker keeps its whole value, the day part included.
class DTPicker : public Control {
 public:
  DTPicker(Form& form, const ControlDesign& design);

  const Variant& Value() const { return value_; }  // a Date, or Null

  // Texts convert by the regional settings (13 when they do not); raises Change if the value really changes.
  void setValue(const Variant& value) override;
  Variant value() const override { return value_; }

  // What "&" makes of it: day zero of a date picker is "30-12-99", a time its time, Null "".
  Text text() const;

  void userSets(const Variant& value);

 protected:
  bool getOwn(TextView member, Arguments arguments, Variant& result) override;
  bool putOwn(TextView member, const Variant& value, Arguments arguments) override;

 private:
  Variant value_ = Date{};
};

// Everything that only shows: labels, images, lines, frames, menu holders, image lists.
class Ornament : public Control {
 public:
  using Control::Control;
  Variant value() const override;
  void setValue(const Variant& value) override;  // of a label: its caption
};

class CommandButton : public Control {
 public:
  using Control::Control;
  void userClicks();  // takes the focus first; a refusal keeps the click from happening
};

// Two panes side by side; the first holds the list, the second the text.
class Splitter : public Control {
 public:
  using Control::Control;
  double PaneWidth() const { return paneWidth_; }  // of the first pane, in twips; 0 hides it
  void setPaneWidth(double twips);                 // cut to the room there is
  void userDrags(double twips);

 protected:
  bool getOwn(TextView member, Arguments arguments, Variant& result) override;

 private:
  double paneWidth_ = 2200;
};

struct ListItem {
  Text key;
  Text text;
  Text icon;  // key in the image lists: "doc", "txt", "not", "xls", "ppt", "jpg", "zip", "win"

  bool operator==(const ListItem&) const = default;
};

class ListView : public Control {
 public:
  using Control::Control;
  enum Views { lvwIcon = 0, lvwSmallIcon = 1, lvwList = 2 };

  const std::vector<ListItem>& items() const { return items_; }
  void Clear();
  void Add(ListItem item);                         // 35602 when the key is there already
  const ListItem& item(int index) const;           // from 1; 35600 out of bounds
  int selectedIndex() const { return selected_; }  // from 1; 0 is none
  void select(int index);
  int View() const { return view_; }
  void setView(int view);

  // Mouse and keyboard on the list; index 0 is the empty part.
  void userClicks(int index, int button);  // selects, ItemClick, MouseUp; 1 left, 2 right
  void userDoubleClicks(int index);
  void userSelects(int index);  // by keyboard
  void userEditsLabel(TextView text);
  Text userDragsOut(int index);  // selects; path of the file that leaves, "" where none may

 protected:
  bool getOwn(TextView member, Arguments arguments, Variant& result) override;
  bool putOwn(TextView member, const Variant& value, Arguments arguments) override;

 private:
  std::vector<ListItem> items_;
  std::unordered_set<Text> keys_;  // of items_: a folder of thousands is listed in one go
  int selected_ = 0;
  int view_ = lvwIcon;
};

// A control of the kind that the design names.
ControlRef makeControl(Form& form, const ControlDesign& design);

}  // namespace ovalia::forms
