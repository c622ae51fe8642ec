#pragma once

#include <cstdint>
#include <span>

#include "platform/Text.h"

// The data from which forms are made: rows of constexpr tables, one set a form. Places are in twips, relative
// to the container, at the form's minimum size.
namespace ovalia::forms {

enum class ControlType : std::uint8_t {
  Label,
  TextBox,
  ComboBox,
  CheckBox,
  DTPicker,
  CommandButton,
  Frame,
  Image,
  Line,
  Splitter,
  ListView,
  ActiveToolBars,
  ImageList,
  Menu,
  Grid,
  Data,
};

// The runtime's type name, as a type test on a control gives it: "TextBox", "ComboBox" ...
TextView typeName(ControlType type);

enum Style : std::uint16_t {
  plain = 0,
  dropDownList = 1,     // combo: no typing, the text is one of the list's
  multiLine = 2,        // text box: lines, and Tab leaves it
  readOnly = 4,         // text box
  timeOfDay = 8,        // picker: shows hh:mm:ss
  nullable = 16,        // picker: a check box, unticked is Null
  labelEdit = 32,       // list: F2 renames
  hidden = 64,          // not visible at first
  defaultButton = 128,  // button: Enter clicks it, but in a box of lines or on another button
  cancelButton = 256,   // button: Escape clicks it
};

struct ControlDesign {
  TextView name;
  ControlType type = ControlType::Label;
  std::uint16_t style = plain;
  TextView caption = {};
  TextView tip = {};
  int left = 0, top = 0, width = 0, height = 0;
  int tab = -1;             // place in the tab order; -1 is never reached by Tab
  TextView container = {};  // the frame or splitter that holds it; "" is the form
  TextView label = {};  // the label or button that names it to assistive software; "" takes its own caption
  int index = -1;       // place in a control array; -1 is no array
};

// What a control reports, after the model has changed.
enum class ControlEvent : std::uint8_t {
  Change,
  Click,
  DblClick,
  GotFocus,
  LostFocus,
  Validate,
  ShiftEnter,  // KeyDown of Enter with Shift
  OLEDragDrop,
  OLEDragOver,
  ItemClick,
  MouseUp,
  AfterLabelEdit,
};

// What becomes of a control's events on a card; a row holds the sum of those that its control raises.
enum EventSet : std::uint16_t {
  onChange = 1,          // Change -> Cambio with the field's name
  onClick = 2,           // Click -> Cambio with the field's name
  onFocus = 4,           // GotFocus -> CogerFoco
  onValidateHold = 8,    // Validate -> Validar; a refusal keeps the focus
  onLeave = 16,          // LostFocus -> Validar; a refusal is ignored
  onShiftEnter = 32,     // -> VerLista
  onClickList = 64,      // Click -> VerLista
  onDblClickList = 128,  // DblClick -> VerLista
  onDrag = 256,          // OLEDragOver and OLEDragDrop, each to its own
  onItems = 512,         // ItemClick, DblClick and MouseUp of the document list
  onLabelEdit = 1024,    // AfterLabelEdit -> ActualizaDocs
  onVisitTime = 2048,    // Change -> after Cambio, the rules that keep a visit's end behind its start
};
inline constexpr std::uint16_t textEvents = onChange | onFocus | onValidateHold;
inline constexpr std::uint16_t comboEvents = textEvents | onClick;
inline constexpr std::uint16_t dropDownEvents = onClick | onFocus | onValidateHold;
inline constexpr std::uint16_t checkEvents = onClick | onFocus | onLeave;

struct EventRow {
  TextView control;
  std::uint16_t events;
  TextView field = {};
};

enum class MovedProperty : std::uint8_t { Left, Width, Top, Height };

// While the form is larger than its minimum, the property is the constant plus what the form has grown: in
// width for the first two, in height for the others.
struct ResizeRow {
  TextView control;
  MovedProperty property;
  int constant;
  int index = -1;
};

// A column of a grid, by the order of the rows. It shows the field of its name; where the recordset has none
// its cells are empty.
struct ColumnDesign {
  TextView name;
  TextView heading = {};
  int width = 0;
  bool hidden = false;
  TextView headStyle = {};  // style set of the heading at first; "" is the plain one
};

// The style sets of headings: with an arrow upwards, downwards.
inline constexpr TextView styleAsc = u"StyleAsc";
inline constexpr TextView styleDesc = u"StyleDesc";

struct GridDesign {
  TextView control;
  TextView source;  // the data control whose recordset it shows
  std::span<const ColumnDesign> columns;
};

using FormMask = std::uint8_t;

// A tool is one thing with one state, wherever it stands on bars and menus. Where forms caption it
// differently it has a row for each caption.
struct ToolDesign {
  TextView id;
  TextView group;  // the category that goes with the id in the `Menu` event
  TextView caption;
  TextView tip;
  FormMask forms;
};

// A place on a bar or menu, in the order of the rows; an empty id is a separator.
struct MenuRow {
  TextView menu;
  TextView id;
  FormMask forms;
};

// The part of a form's Width and Height that its frame, menu and toolbar take: ScaleWidth and ScaleHeight are
// what is left for controls. A form without bars has the second height.
inline constexpr int frameWidth = 120;
inline constexpr int frameHeight = 1260;
inline constexpr int frameHeightWithoutBars = 420;

struct FormDesign {
  TextView name;
  TextView caption;
  int minimumWidth, minimumHeight;
  std::span<const ControlDesign> controls;
  std::span<const EventRow> events = {};  // of a card
  std::span<const ResizeRow> resizes = {};
  FormMask mask = 0;  // its bit in the tables of tools and menus

  // A card's literal names for the error report.
  TextView resizeName = {}, toolName = {}, searchName = {}, cancelName = {};

  // The size until the user's own is remembered; 0 is the minimum. The places in `controls` are those at the
  // minimum all the same.
  int width = 0, height = 0;

  int frame = frameHeight;  // the part of Height that is not for controls
  std::span<const GridDesign> grids = {};
};

}  // namespace ovalia::forms
