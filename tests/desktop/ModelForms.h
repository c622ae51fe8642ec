#pragma once

#include <QHeaderView>
#include <QTableView>

#include "forms/Grid.h"
#include "forms/ModelForms.h"
#include "tests/desktop/Desk.h"
#include "tests/kit/FakeDatabase.h"
#include "tests/kit/FakeRecordset.h"

namespace ovalia::desktop {

// A form about models that notes what it is told ("Click cmdSel", "Heading 2", "Delete") and does nothing by
// itself, save to grow.
class NotingForm : public forms::Form {
 public:
  using Form::Form;

  std::vector<std::string> log;
  std::function<void(bool& cancel)> validating = [](bool&) {};
  std::function<void(forms::Grid&)> deleting = [](forms::Grid&) {};
  char16_t refusedSign = u'\0';

  using Form::load;

 protected:
  void onResize() override;
  void onControl(forms::Control& control, forms::ControlEvent event) override;
  void onValidate(forms::Control& control, bool& cancel) override;
  void onKeyPress(forms::Control& control, int& character) override;
  void onHeadClick(forms::Grid& grid, int column) override;
  void onBeforeDelete(forms::Grid& grid, bool& cancel, bool& prompt) override;
};

// The two forms about models, drawn. The list shows as many models as a test asks for: "Modelo 1.doc" and so
// on, the second with long notes of two lines.
class ModelForms : public DeskTest {
 protected:
  void fill(int count);
  void list(const std::function<void()>& actions);    // the list of models, shown
  void making(const std::function<void()>& actions);  // the form that makes one, shown

  forms::Grid& grid() { return *form->as<forms::Grid>(u"grdPlantilla"); }
  QTableView& view() { return *qobject_cast<QTableView*>(widget(*form, u"grdPlantilla")); }
  QString cell(int row, int column) { return view().model()->index(row, column).data().toString(); }
  QPoint at(int row) { return view().visualRect(view().model()->index(row, 1)).center(); }
  QPoint heading(int column) {
    const QHeaderView& heads = *view().horizontalHeader();
    return {heads.sectionViewportPosition(column) + heads.sectionSize(column) / 2, heads.height() / 2};
  }
  void clickRow(int row, Qt::KeyboardModifiers modifiers = {});
  void clickHeading(int column);

  // The rows that are drawn as marked, and the one that is drawn as the current.
  std::vector<int> marked();
  int current() { return view().currentIndex().row(); }

  int count(const std::string& entry) const;

  std::shared_ptr<kit::FakeDatabase> database = std::make_shared<kit::FakeDatabase>(here.faults);
  kit::FakeTableRef models = database->table(
      u"Lista",
      {{u"IdPlantilla", dao::dbLong}, {u"Nombre"}, {u"Notas", dao::dbMemo}, {u"Materia"}, {u"TipoMateria"}});
  std::shared_ptr<NotingForm> form;
};

}  // namespace ovalia::desktop
