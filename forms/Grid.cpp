#include "forms/Grid.h"

#include <algorithm>

#include "forms/Form.h"
#include "routines/Messages.h"
#include "routines/Trap.h"

namespace ovalia::forms {

namespace {

constexpr int shiftKey = 1, ctrlKey = 2;

// Puts a recordset back where it stood. One that stood on no row stands behind its last one afterwards.
class Excursion {
 public:
  explicit Excursion(dao::Recordset& rows) : rows_(rows), position_(rows.AbsolutePosition()) {}
  ~Excursion() {
    if (position_ >= 0) {
      resumeNext([&] { to(position_); });
    } else {
      resumeNext([&] { rows_.MoveLast(); });
      resumeNext([&] { rows_.MoveNext(); });
    }
  }
  Excursion(const Excursion&) = delete;
  Excursion& operator=(const Excursion&) = delete;

  void to(std::int32_t position) {
    if (rows_.AbsolutePosition() != position) rows_.setAbsolutePosition(position);
  }

 private:
  dao::Recordset& rows_;
  std::int32_t position_;
};

const GridDesign& designOf(const Form& form, const ControlDesign& control) {
  const auto found = std::ranges::find(form.design().grids, control.name, &GridDesign::control);
  if (found == form.design().grids.end()) throw Failure(failure::noSuchControl);
  return *found;
}

}  // namespace

void DataControl::setRecordset(dao::RecordsetRef recordset) {
  recordset_ = std::move(recordset);
  for (const ControlRef& control : form().controls())
    if (auto* grid = dynamic_cast<Grid*>(control.get()); grid && grid->grid_.source == design().name)
      grid->rebound();
}

Grid::Grid(Form& form, const ControlDesign& design) : Control(form, design), grid_(designOf(form, design)) {
  for (const ColumnDesign& column : grid_.columns) headStyles_.push_back(column.headStyle);
}

dao::RecordsetRef Grid::recordset() const { return form().as<DataControl>(grid_.source)->Recordset(); }

dao::RecordsetRef Grid::bound() const {
  auto rows = recordset();
  if (!rows) throw Failure(failure::objectNotSet);
  return rows;
}

std::int32_t Grid::Rows() const {
  const auto rows = recordset();
  return rows ? rows->RecordCount() : 0;
}

std::int32_t Grid::currentRow() const {
  const auto rows = recordset();
  return rows ? rows->AbsolutePosition() : -1;
}

std::vector<Text> Grid::cellsHere(dao::Recordset& rows) const {
  std::vector<Text> cells;
  for (const ColumnDesign& column : grid_.columns)
    cells.push_back(rows.fields().contains(column.name) ? rows.value(column.name).text() : Text());
  return cells;
}

GridRow Grid::row(std::int32_t position) const {
  GridRow shown;
  shown.failure = resumeNext([&] {
    const auto rows = bound();
    Excursion excursion(*rows);
    excursion.to(position);
    shown.cells = cellsHere(*rows);
  });
  shown.cells.resize(grid_.columns.size());
  return shown;
}

Text Grid::CellText(TextView column, TextView bookmark) const {
  if (std::ranges::find(grid_.columns, column, &ColumnDesign::name) == grid_.columns.end())
    throw Failure(failure::elementNotFound);
  const auto rows = bound();
  const Excursion excursion(*rows);
  rows->setBookmark(bookmark);
  return rows->fields().contains(column) ? rows->value(column).text() : Text();
}

std::vector<std::int32_t> Grid::markedRows() const {
  std::vector<std::int32_t> places;
  if (marks_.empty()) return places;
  const auto rows = bound();
  const Excursion excursion(*rows);
  for (const Text& mark : marks_) {
    const bool there = resumeNext([&] { rows->setBookmark(mark); }) == 0;
    places.push_back(there ? rows->AbsolutePosition() : -1);
  }
  return places;
}

void Grid::tell(Property property) {
  if (redraw_) changed(property);
}

void Grid::removeMarks() {
  marks_.clear();
  tell(Property::Marks);
}

void Grid::addMark(Text bookmark) {
  marks_.push_back(std::move(bookmark));
  tell(Property::Marks);
}

void Grid::setHeadStyle(int column, TextView style) {
  TextView& held = headStyles_.at(static_cast<std::size_t>(column));
  if (held == style) return;
  held = style;
  tell(Property::Headings);
}

void Grid::rebound() {
  anchor_ = 0;
  marks_.clear();
  Update();
}

void Grid::Update() { tell(Property::Rows); }

void Grid::setRedraw(bool on) {
  if (redraw_ == on) return;
  redraw_ = on;
  tell(Property::Rows);
  tell(Property::Headings);
}

// Marks the row on which the recordset stands.
void Grid::toggle(std::int32_t position) {
  const std::vector<std::int32_t> places = markedRows();
  const auto marked = std::ranges::find(places, position);
  if (marked == places.end())
    marks_.push_back(recordset()->Bookmark());
  else
    marks_.erase(marks_.begin() + (marked - places.begin()));
}

void Grid::mark(std::int32_t position, int shift) {
  const auto rows = recordset();
  if (!(shift & shiftKey)) anchor_ = position;
  if (!(shift & ctrlKey)) marks_.clear();
  if (shift & shiftKey) {
    Excursion excursion(*rows);
    for (std::int32_t at = std::min(anchor_, position); at <= std::max(anchor_, position); ++at)
      resumeNext([&] {
        excursion.to(at);
        if (rows->AbsolutePosition() == at) marks_.push_back(rows->Bookmark());
      });
  } else {
    toggle(position);
  }
  tell(Property::Marks);
}

// Whether the row is the current one then.
bool Grid::goTo(std::int32_t position) {
  const auto rows = recordset();
  if (!takesFocus() || !form().moveFocus(*this)) return false;
  // The check of what was left may have put other rows under the pointer.
  if (rows != recordset() || position < 0 || position >= Rows()) return false;
  const std::int32_t failed = resumeNext([&] { rows->setAbsolutePosition(position); });
  if (failed != 0) tell(Property::CurrentRow);
  return failed == 0;
}

void Grid::userClicksRow(std::int32_t position, int shift) {
  form().userAction([&] {
    if (!goTo(position)) return;
    mark(position, shift);
    tell(Property::CurrentRow);
  });
}

void Grid::userMovesTo(std::int32_t position) {
  form().userAction([&] {
    if (goTo(position)) tell(Property::CurrentRow);
  });
}

void Grid::userClicksHeading(int column) {
  form().userAction([&] {
    if (takesFocus() && form().moveFocus(*this)) form().onHeadClick(*this, column);
  });
}

void Grid::userDeletes() {
  form().userAction([&] {
    if (!takesFocus() || !form().moveFocus(*this)) return;
    constexpr std::int32_t yesNoQuestion = 36, yes = 6;
    bool cancel = false, prompt = true;
    form().onBeforeDelete(*this, cancel, prompt);
    if (cancel || marks_.empty()) return;
    if (prompt && MostrarMensaje(u"¿Desea borrar las filas marcadas?", yesNoQuestion, u"") != yes) return;
    deleteMarked();
  });
}

void Grid::deleteMarked() {
  const auto rows = recordset();
  for (const Text& bookmark : std::exchange(marks_, {})) {
    rows->setBookmark(bookmark);
    rows->Delete();
  }
  if (rows->RecordCount() > 0) rows->MoveFirst();
  rebound();
}

}  // namespace ovalia::forms
