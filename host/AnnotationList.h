#pragma once

#include <functional>
#include <memory>

#include "component/CNota.h"
#include "host/HostForms.h"
#include "host/Queries.h"
#include "host/Workplace.h"

namespace ovalia::host {

// One list of annotations of one parent: the dynaset behind a grid, and the component's object that shows its
// rows as cards. The recordset object stays the same from one opening to the next reload of the same parent,
// so that the component may hold it.
class AnnotationList {
 public:
  AnnotationList(const ListDesign& design, Workplace& workplace);

  const ListDesign& design() const { return design_; }
  const HostForm& hangsOn() const;  // the form of the records that its rows hang on
  const AnnotationTable& annotations() const { return annotationTable(design_.table); }

  // Stands on another parent; 0 is none and gives an empty list. Nothing is read before it is asked for.
  void open(std::int32_t parent);
  std::int32_t parent() const { return parent_; }
  Text query() const { return listQuery(design_, parent_); }

  dao::RecordsetRef recordset();

  // The same rows once more, for a grid that moves as it pleases.
  dao::RecordsetRef separateRecordset();

  std::int32_t count();

  // Reads the list again and goes back to the row it was on, where that is still there.
  void reload();

  std::int32_t currentKey();  // 0 without a current row
  bool goTo(std::int32_t key);

  bool mayCreate() const { return design_.mayCreate && parent_ != 0; }

  // The component's object, made at first use, on this list and its current row.
  CNota& nota();

  // Show the current row as a card, or a new one. Both return when the card has closed, on the row that it
  // showed last, or on the first where that is gone.
  void openCard();
  void createCard();

  // Makes notes of mails that the user chooses, reads the list again and gives the key of the last, 0 without
  // one. The list stays on its row, for its card may be open. A list that takes no mails says so.
  std::int32_t takeMails();

  // Runs what keeps a card of the list on the screen; who answers for the list's parents does so meanwhile.
  std::function<void(const std::function<void()>&)> showing = [](const std::function<void()>& card) {
    card();
  };

  // Called when rows may have changed: a card asked for a reload, or it closed.
  std::function<void()> changed = [] {};

  // Where a new visit takes place unless its user says otherwise.
  std::function<Text()> visitPlace = [] { return Text(); };

 private:
  const ListDesign& design_;
  Workplace& workplace_;
  std::int32_t parent_ = 0;
  dao::RecordsetRef rows_;
  std::unique_ptr<CNota> nota_;
};

}  // namespace ovalia::host
