#include "host/HostCard.h"

#include <algorithm>

namespace ovalia::host {

namespace {

constexpr int yes = 6, cancel = 2;

const FieldDesign& fieldDesign(const HostForm& form, TextView field) {
  return *std::ranges::find(form.fields, field, &FieldDesign::field);
}

// An emptied box of a number stands for none.
Variant storedValue(const FieldDesign& field, const Text& text) {
  const bool number = field.kind == FieldKind::Amount || field.kind == FieldKind::Number;
  if (number && trimBlanks(text).empty()) return Null;
  return text;
}

}  // namespace

HostCard::HostCard(const HostForm& form, Workplace& workplace, std::int32_t record)
    : form_(form), workplace_(workplace), record_(record) {
  rows_ = workplace.agency.database->OpenRecordset(cardQuery(form, record), dao::dbOpenDynaset);
  if (rows_->isEOF()) throw Failure(dao::failure::noCurrentRecord);
  for (const ListDesign& design : host::lists()) {
    if (design.form != form.form) continue;
    auto& list = *lists_.emplace_back(std::make_unique<AnnotationList>(design, workplace));
    if (list.annotations().kind != Kind::Llamada) list.open(record);
    if (design.grid == u"grdLlamada") followAdvertisement();
    list.visitPlace = [this] { return form_.place.empty() ? Text() : rows_->value(form_.place).text(); };
    list.showing = [this, &list](const std::function<void()>& card) { speak(list, card); };
  }
}

void HostCard::speak(AnnotationList& list, const std::function<void()>& card) {
  struct Before {
    AnnotationList*& place;
    AnnotationList* list;
    ~Before() { place = list; }
  } before{speaking_, speaking_};
  speaking_ = &list;
  card();
}

bool HostCard::parentIsElsewhere() const { return speaking_ && !speaking_->design().hangsOn.empty(); }

const HostForm& HostCard::parentForm() const { return parentIsElsewhere() ? speaking_->hangsOn() : form_; }

std::int32_t HostCard::parentRecord() const {
  if (!parentIsElsewhere()) return record_;
  const auto rows = speaking_->recordset();
  if (rows->AbsolutePosition() < 0) return 0;
  const Variant parent = rows->value(u"Id");
  return parent.isNull() ? 0 : parent.toLong();
}

dao::RecordsetRef HostCard::parentRows() const {
  if (!parentIsElsewhere()) return rows_;
  return workplace_.agency.database->OpenRecordset(cardQuery(parentForm(), parentRecord()),
                                                   dao::dbOpenSnapshot);
}

Text HostCard::caption() const { return Text(form_.caption) + u" " + rows_->value(form_.titleField).text(); }

std::int32_t HostCard::newNumber() const {
  const auto last = workplace_.agency.database->OpenRecordset(
      u"SELECT Max(" + Text(form_.key) + u") AS N FROM " + Text(form_.table), dao::dbOpenSnapshot);
  const Variant number = last->value(u"N");
  return number.isNull() ? 1 : number.toLong() + 1;
}

Text HostCard::shown(const FieldDesign& field) const {
  const auto edit = edits_.find(Text(field.field));
  return edit != edits_.end() ? edit->second : rows_->value(field.field).text();
}

void HostCard::userEdits(const FieldDesign& field, TextView text) {
  if (rows_->value(field.field).text() == text)
    edits_.erase(Text(field.field));
  else
    edits_[Text(field.field)] = text;
}

bool HostCard::canStore(const FieldDesign& field, TextView text) const {
  const Variant value = storedValue(field, Text(text));
  return value.isNull() || (field.kind != FieldKind::Amount && field.kind != FieldKind::Number) ||
         value.isNumeric();
}

bool HostCard::checkChanges() {
  for (const auto& [name, text] : edits_) {
    const FieldDesign& field = fieldDesign(form_, name);
    if (canStore(field, text)) continue;
    workplace_.dialogs.tell(u"Guardar", u"«" + text + u"» no es un número: corrija la casilla " +
                                            replaceAll(field.label, u"&", u"") + u".");
    return false;
  }
  return true;
}

bool HostCard::save() {
  if (edits_.empty()) return true;
  if (!checkChanges()) return false;
  try {
    rows_->Edit();
    for (const auto& [name, text] : edits_)
      rows_->setValue(name, storedValue(fieldDesign(form_, name), text));
    rows_->Update();
  } catch (const Failure& failure) {
    if (rows_->editing()) rows_->CancelUpdate();
    workplace_.dialogs.tell(u"Guardar", u"La ficha no se ha podido guardar. " + failure.description());
    return false;
  }
  edits_.clear();
  refreshed();
  return true;
}

void HostCard::undo() {
  edits_.clear();
  refreshed();
}

bool HostCard::settle() {
  if (edits_.empty()) return true;
  const int answer = workplace_.dialogs.yesNoCancel(
      u"Guardar", u"¿Desea guardar los cambios realizados en " + caption() + u"?");
  if (answer == cancel) return false;
  if (answer == yes) return save();
  undo();
  return true;
}

AnnotationList* HostCard::list(TextView grid) {
  for (const auto& list : lists_)
    if (sameName(list->design().grid, grid) || sameName(list->design().data, grid)) return list.get();
  return nullptr;
}

bool HostCard::followAdvertisement() {
  AnnotationList* advertisements = list(u"grdAnuncio");
  AnnotationList* calls = list(u"grdLlamada");
  if (!advertisements || !calls) return false;
  const std::int32_t key = advertisements->currentKey();
  if (calls->parent() == key) return false;
  calls->open(key);
  return true;
}

void HostCard::reload() {
  const auto rows = workplace_.agency.database->OpenRecordset(cardQuery(form_, record_), dao::dbOpenDynaset);
  if (rows->isEOF()) return gone();
  rows_ = rows;
  for (const auto& list : lists_) list->reload();
  refreshed();
}

}  // namespace ovalia::host
