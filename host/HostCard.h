#pragma once

#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "host/AnnotationList.h"
#include "host/HostForms.h"

namespace ovalia::host {

// One record of the agency on a card of the host: its fields, its unsaved work, its lists of annotations.
// What draws it sets the functions below and follows them.
class HostCard {
 public:
  enum State { clean = 0, changedByUser = 2 };

  // Fails with 3021 when there is no such record.
  HostCard(const HostForm& form, Workplace& workplace, std::int32_t record);

  const HostForm& form() const { return form_; }
  std::int32_t record() const { return record_; }
  dao::RecordsetRef rows() const { return rows_; }
  Text caption() const;  // "Inmueble V-1001"

  // The record that the annotation on the screen hangs on: this one, or another's where one of its lists
  // shows annotations from elsewhere. Its form, its number (0 where a list stands on no row), and it as one
  // row.
  const HostForm& parentForm() const;
  std::int32_t parentRecord() const;
  dao::RecordsetRef parentRows() const;

  // The number that a further record of the table would get.
  std::int32_t newNumber() const;

  State state() const { return edits_.empty() ? clean : changedByUser; }
  Text shown(const FieldDesign& field) const;  // unsaved text, or the record's
  void userEdits(const FieldDesign& field, TextView text);

  // Whether all unsaved texts can be stored; if not the user is told which cannot.
  bool checkChanges();
  bool save();
  void undo();

  // Asks what to do with unsaved work, where there is any: true when the caller may go on.
  bool settle();

  std::vector<std::unique_ptr<AnnotationList>>& lists() { return lists_; }
  AnnotationList* list(TextView grid);  // null when the form has no such grid

  // Puts the list of calls on the advertisement on which the list of advertisements stands. True when that is
  // another one than before.
  bool followAdvertisement();

  // Reads record and lists again. Of a record that another user deleted `gone` is called and nothing changes.
  void reload();

  std::function<Text()> activeControl = [] { return Text(); };            // name; "" when there is none
  std::function<void()> refreshed = [] {};                                // record or lists were read again
  std::function<void()> gone = [] {};                                     // the record is no more
  std::function<void(AnnotationList&)> counted = [](AnnotationList&) {};  // its number of rows may differ
  std::function<std::vector<std::int32_t>(TextView grid)> marked = [](TextView) {
    return std::vector<std::int32_t>();
  };  // keys of the rows that the user has marked

 private:
  void speak(AnnotationList& list, const std::function<void()>& card);
  bool parentIsElsewhere() const;
  bool canStore(const FieldDesign& field, TextView text) const;

  const HostForm& form_;
  Workplace& workplace_;
  std::int32_t record_;
  dao::RecordsetRef rows_;
  std::map<Text, Text> edits_;  // by field
  std::vector<std::unique_ptr<AnnotationList>> lists_;
  AnnotationList* speaking_ = nullptr;  // the list that has a card on the screen
};

}  // namespace ovalia::host
