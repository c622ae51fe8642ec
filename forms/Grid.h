#pragma once

#include <cstdint>
#include <vector>

#include "forms/Control.h"
#include "platform/dao.h"

namespace ovalia::forms {

// Holds the recordset that the grids bound to it show. The recordset may be moved and deleted from directly;
// whoever does tells the grid by `Update`.
class DataControl : public Control {
 public:
  using Control::Control;
  const dao::RecordsetRef& Recordset() const { return recordset_; }
  void setRecordset(dao::RecordsetRef recordset);  // the grids forget their marks

 private:
  dao::RecordsetRef recordset_;
};

// What a grid shows of a row.
struct GridRow {
  std::vector<Text> cells;   // by column, hidden ones too
  std::int32_t failure = 0;  // why the cells are empty: 3167 for a row that another user has deleted
};

// Shows the rows of a data control's recordset, none of which can be typed into. A row is read when it is
// asked for, and the recordset stands afterwards where it stood: its current row is the grid's. (One on no
// row at all then stands behind its last.) Rows and columns count from 0.
class Grid : public Control {
 public:
  Grid(Form& form, const ControlDesign& design);

  std::span<const ColumnDesign> columns() const { return grid_.columns; }
  std::int32_t Rows() const;        // 0 without a recordset
  std::int32_t currentRow() const;  // -1 where there is none
  GridRow row(std::int32_t position) const;

  // A cell of the row with that bookmark, "" where the recordset lacks the field. Failures: 35601 for an
  // unknown column, 3167 for a row that is gone.
  Text CellText(TextView column, TextView bookmark) const;

  // The marked rows, in the order in which they were marked: their bookmarks, and where they stand now (-1
  // for one that is gone). One row has several bookmarks in the course of time.
  const std::vector<Text>& SelBookmarks() const { return marks_; }
  std::vector<std::int32_t> markedRows() const;
  void removeMarks();
  void addMark(Text bookmark);

  TextView headStyle(int column) const { return headStyles_.at(static_cast<std::size_t>(column)); }
  void setHeadStyle(int column, TextView style);

  void Update();  // the rows or the current row are others than before
  bool Redraw() const { return redraw_; }
  void setRedraw(bool on);  // while it is off the view is told nothing; then all of it at once

  // A click on a row, or a step to it by the keyboard, makes it the current and the only marked one. With
  // Ctrl its mark changes and the others stay; with Shift all rows from the last one without it are marked.
  // The keyboard can also make a row the current one and leave the marks. A heading takes the focus before it
  // is reported. The Delete key deletes the marked rows, unless the form keeps it from doing so, after
  // asking, unless the form says not to.
  void userClicksRow(std::int32_t position, int shift = 0);
  void userMovesTo(std::int32_t position);
  void userClicksHeading(int column);
  void userDeletes();

 private:
  friend class DataControl;

  dao::RecordsetRef recordset() const;  // empty where there is none
  dao::RecordsetRef bound() const;      // 91 where there is none
  std::vector<Text> cellsHere(dao::Recordset& rows) const;
  void tell(Property property);
  void rebound();
  bool goTo(std::int32_t position);
  void mark(std::int32_t position, int shift);
  void toggle(std::int32_t position);
  void deleteMarked();

  const GridDesign& grid_;
  std::vector<Text> marks_;
  std::vector<TextView> headStyles_;
  std::int32_t anchor_ = 0;
  bool redraw_ = true;
};

// A grid's redraw is off as long as it lives.
class WithoutRedraw {
 public:
  explicit WithoutRedraw(Grid& grid) : grid_(grid) { grid_.setRedraw(false); }
  ~WithoutRedraw() { grid_.setRedraw(true); }
  WithoutRedraw(const WithoutRedraw&) = delete;
  WithoutRedraw& operator=(const WithoutRedraw&) = delete;

 private:
  Grid& grid_;
};

}  // namespace ovalia::forms
