#include "engines/BaseRecordset.h"

namespace ovalia::engines {

BaseRecordset::BaseRecordset(std::shared_ptr<Database> database, Text sql)
    : database_(std::move(database)), sql_(std::move(sql)) {
  database_->opened(*this);
}

BaseRecordset::~BaseRecordset() { database_->released(*this); }

void BaseRecordset::checkOpen() const {
  if (closed_) throw databaseFailure(ovalia::failure::objectNotSet);
}

void BaseRecordset::setFields(FieldInfos infos) {
  if (fields_ && fields_->describes(infos)) return;
  auto fresh = std::make_unique<RecordFields>(*this, std::move(infos));
  if (fields_) retired_.push_back(std::move(fields_));
  for (const auto& retired : retired_) retired->giveWayTo(*fresh);
  fields_ = std::move(fresh);
}

dao::Fields& BaseRecordset::fields() {
  checkOpen();
  return *fields_;
}

void BaseRecordset::open() {
  place_ = 0;
  hole_ = false;
}

bool BaseRecordset::isBOF() const {
  checkOpen();
  return rows() == 0 || place_ < 0;
}

bool BaseRecordset::isEOF() const {
  checkOpen();
  return rows() == 0 || (!hole_ && place_ >= rows());
}

bool BaseRecordset::NoMatch() const {
  checkOpen();
  return noMatch_;
}

std::int32_t BaseRecordset::AbsolutePosition() const {
  checkOpen();
  return onRow() ? static_cast<std::int32_t>(place_) : -1;
}

void BaseRecordset::setAbsolutePosition(std::int32_t position) {
  checkOpen();
  if (position < 0 || position >= allRows()) throw databaseFailure(dao::failure::noCurrentRecord);
  goTo(position);
}

std::int32_t BaseRecordset::RecordCount() const {
  checkOpen();
  return static_cast<std::int32_t>(allRows());
}

void BaseRecordset::needRow() const {
  checkOpen();
  if (onRow()) return;
  throw databaseFailure(hole_ && rows() > 0 ? dao::failure::recordDeleted : dao::failure::noCurrentRecord);
}

void BaseRecordset::goTo(Place place) {
  dropEdit();
  place_ = place;
  hole_ = false;
  if (onRow()) arrive();
}

void BaseRecordset::MoveFirst() {
  checkOpen();
  if (rows() == 0) throw databaseFailure(dao::failure::noCurrentRecord);
  goTo(0);
}

void BaseRecordset::MoveLast() {
  checkOpen();
  if (rows() == 0) throw databaseFailure(dao::failure::noCurrentRecord);
  goTo(allRows() - 1);
}

void BaseRecordset::MoveNext() {
  if (isEOF()) throw databaseFailure(dao::failure::noCurrentRecord);
  goTo(hole_ ? place_ : place_ + 1);
}

void BaseRecordset::MovePrevious() {
  if (isBOF()) throw databaseFailure(dao::failure::noCurrentRecord);
  goTo(place_ - 1);
}

void BaseRecordset::rowTakenOut() { hole_ = true; }

void BaseRecordset::find(TextView criterion, Place from, Direction direction) {
  const Place found = search(criterion, from, direction);
  dropEdit();
  noMatch_ = found < 0;
  if (!noMatch_) goTo(found);
}

void BaseRecordset::FindFirst(TextView criterion) {
  checkOpen();
  find(criterion, 0, Direction::Forward);
}

void BaseRecordset::FindLast(TextView criterion) {
  checkOpen();
  find(criterion, allRows() - 1, Direction::Backward);
}

void BaseRecordset::FindNext(TextView criterion) {
  checkOpen();
  find(criterion, hole_ ? place_ : place_ + 1, Direction::Forward);
}

void BaseRecordset::FindPrevious(TextView criterion) {
  checkOpen();
  find(criterion, place_ - 1, Direction::Backward);
}

Text BaseRecordset::Bookmark() const {
  needRow();
  return nameOf(place_);
}

void BaseRecordset::setBookmark(TextView bookmark) {
  checkOpen();
  const Place place = placeOf(bookmark);
  if (place < 0) throw databaseFailure(dao::failure::recordDeleted);
  goTo(place);
}

void BaseRecordset::Requery() {
  checkOpen();
  dropEdit();
  reopen();
  open();
}

void BaseRecordset::Close() {
  checkOpen();
  shut();
}

void BaseRecordset::shut() {
  closed_ = true;
  forget();
}

}  // namespace ovalia::engines
