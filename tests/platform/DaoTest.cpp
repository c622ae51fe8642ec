#include <gtest/gtest.h>

#include "platform/dao.h"
#include "tests/platform/Show.h"

namespace ovalia::dao {
namespace {

using test::failureOf;
using test::shown;

struct StoredField : Field {
  Text name;
  Variant value;
  StoredField(Text n, Variant v) : name(std::move(n)), value(std::move(v)) {}
  Text Name() const override { return name; }
  Text SourceTable() const override { return u"NotaIP"; }
  DataType Type() const override { return dbMemo; }
  std::int32_t Attributes() const override { return dbAutoIncrField; }
  Variant Value() const override { return value; }
  void setValue(const Variant& v) override { value = v; }
  std::shared_ptr<Database> database() const override { return {}; }
};

struct TwoFields : Fields {
  std::vector<std::shared_ptr<StoredField>> all = {std::make_shared<StoredField>(u"IdAnota", 4073),
                                                   std::make_shared<StoredField>(u"Asunto", u"Llaves")};
  std::size_t count() const override { return all.size(); }
  std::shared_ptr<Field> at(std::size_t position) override {
    if (position >= all.size()) throw Failure(failure::notInCollection);
    return all[position];
  }
  std::shared_ptr<Field> item(TextView name) override {
    for (const auto& field : all)
      if (sameName(field->name, name)) return field;
    throw Failure(failure::notInCollection);
  }
  bool contains(TextView name) override { return sameName(name, u"IdAnota") || sameName(name, u"Asunto"); }
};

// Writes down what it is told.
struct Journal : Recordset {
  TwoFields columns;
  std::string told;
  Text mark = u"m1";

  bool isBOF() const override { return true; }
  bool isEOF() const override { return false; }
  bool NoMatch() const override { return true; }
  std::int32_t AbsolutePosition() const override { return 3; }
  std::int32_t RecordCount() const override { return 12; }
  void MoveFirst() override { told += "MoveFirst "; }
  void MoveLast() override { told += "MoveLast "; }
  void MoveNext() override { told += "MoveNext "; }
  void MovePrevious() override { told += "MovePrevious "; }
  void FindFirst(TextView c) override { told += "FindFirst(" + toUtf8(c) + ") "; }
  void FindLast(TextView c) override { told += "FindLast(" + toUtf8(c) + ") "; }
  void FindNext(TextView c) override { told += "FindNext(" + toUtf8(c) + ") "; }
  void FindPrevious(TextView c) override { told += "FindPrevious(" + toUtf8(c) + ") "; }
  void Edit() override { told += "Edit "; }
  void Update(int type, bool force) override {
    told += "Update(" + std::to_string(type) + "," + shown(force) + ") ";
  }
  void CancelUpdate() override { told += "CancelUpdate "; }
  void Delete() override { told += "Delete "; }
  bool editing() const override { return false; }
  Text Bookmark() const override { return mark; }
  void setBookmark(TextView bookmark) override { mark = bookmark; }
  void Requery() override { told += "Requery "; }
  void Close() override { told += "Close "; }
  Fields& fields() override { return columns; }
};

class LateBoundRecordset : public testing::Test {
 protected:
  std::shared_ptr<Journal> journal = std::make_shared<Journal>();
  ObjectRef set = journal;
};

TEST_F(LateBoundRecordset, gives_its_state_by_name) {
  EXPECT_EQ(shown(getMember(set, u"bof")), "Boolean true");
  EXPECT_EQ(shown(getMember(set, u"EOF")), "Boolean false");
  EXPECT_EQ(shown(getMember(set, u"nomatch")), "Boolean true");
  EXPECT_EQ(shown(getMember(set, u"AbsolutePosition")), "Long 3");
  EXPECT_EQ(shown(getMember(set, u"RecordCount")), "Long 12");
  EXPECT_EQ(shown(getMember(set, u"Bookmark")), "'m1'");
  EXPECT_EQ(shown(callMember(set, u"RecordCount")), "Long 12");
}

TEST_F(LateBoundRecordset, runs_its_methods_by_name) {
  for (const TextView name : {u"movefirst", u"MoveLast", u"MoveNext", u"MovePrevious", u"Edit",
                              u"CancelUpdate", u"Delete", u"Requery", u"Close"})
    EXPECT_TRUE(callMember(set, name).isEmpty());
  EXPECT_EQ(journal->told,
            "MoveFirst MoveLast MoveNext MovePrevious Edit CancelUpdate Delete Requery Close ");
}

TEST_F(LateBoundRecordset, finds_by_a_criterion) {
  for (const TextView name : {u"FindFirst", u"FindLast", u"FindNext", u"FindPrevious"})
    callMember(set, name, {u"IdAnota = 1"});
  EXPECT_EQ(journal->told,
            "FindFirst(IdAnota = 1) FindLast(IdAnota = 1) FindNext(IdAnota = 1) FindPrevious(IdAnota = 1) ");
}

TEST_F(LateBoundRecordset, updates_regularly_unless_told_otherwise) {
  callMember(set, u"Update");
  callMember(set, u"Update", {1, false});
  callMember(set, u"Update", {4, true});
  EXPECT_EQ(journal->told, "Update(1,false) Update(1,false) Update(4,true) ");
}

TEST_F(LateBoundRecordset, gives_fields_by_name_and_position_as_default_member_and_through_fields) {
  EXPECT_EQ(getMember(set, u"", {u"asunto"}).toText(), u"Llaves");
  EXPECT_EQ(getMember(set, u"", {0}).toLong(), 4073);
  EXPECT_EQ(getMember(set, u"Fields", {u"IdAnota"}).toLong(), 4073);
  EXPECT_EQ(getMember(set, u"fields", {std::int16_t(1)}).toText(), u"Llaves");
  EXPECT_EQ(getMember(objectAt(set, {u"Fields"}), u"", {u"Asunto"}).toText(), u"Llaves");
}

TEST_F(LateBoundRecordset, assigns_fields_and_its_bookmark) {
  Variant name[] = {u"ASUNTO"}, position[] = {0};
  set->put(u"", u"Timbre", name);
  EXPECT_EQ(journal->columns.all[1]->value.toText(), u"Timbre");
  set->put(u"Fields", 7, position);
  EXPECT_EQ(journal->columns.all[0]->value.toLong(), 7);
  putMember(set, u"bookmark", u"m2");
  EXPECT_EQ(journal->mark, u"m2");
}

TEST_F(LateBoundRecordset, a_field_assigned_from_a_field_takes_its_value) {
  Variant name[] = {u"Asunto"};
  set->put(u"", getMember(set, u"", {u"IdAnota"}), name);
  EXPECT_EQ(shown(journal->columns.all[1]->value), "Long 4073");
}

TEST_F(LateBoundRecordset, refuses_unknown_members_fields_and_counts_of_arguments) {
  EXPECT_EQ(failureOf([&] { getMember(set, u"Seek"); }), 438);
  EXPECT_EQ(failureOf([&] { callMember(set, u"Seek"); }), 438);
  EXPECT_EQ(failureOf([&] { putMember(set, u"EOF", true); }), 438);
  EXPECT_EQ(failureOf([&] { getMember(set, u"", {u"Precio"}); }), 3265);
  EXPECT_EQ(failureOf([&] { getMember(set, u"", {2}); }), 3265);
  EXPECT_EQ(failureOf([&] { getMember(set, u"", {-1}); }), 3265);
  EXPECT_EQ(failureOf([&] { getMember(set, u"", {Null}); }), 94);
  EXPECT_EQ(failureOf([&] { getMember(set, u""); }), 450);
  EXPECT_EQ(failureOf([&] { getMember(set, u"", {0, 1}); }), 450);
  EXPECT_EQ(failureOf([&] { getMember(set, u"EOF", {1}); }), 450);
  EXPECT_EQ(failureOf([&] { callMember(set, u"MoveFirst", {1}); }), 450);
  EXPECT_EQ(failureOf([&] { callMember(set, u"FindFirst"); }), 450);
  EXPECT_EQ(failureOf([&] { callMember(set, u"Update", {1, false, 2}); }), 450);
  EXPECT_EQ(failureOf([&] { callMember(set, u"FindFirst", {Null}); }), 94);
  EXPECT_EQ(journal->told, "");
}

TEST_F(LateBoundRecordset, its_fields_keep_it_alive) {
  const std::weak_ptr<Journal> life = journal;
  ObjectRef fields = objectAt(set, {u"Fields"});
  set.reset();
  journal.reset();
  EXPECT_FALSE(life.expired());
  EXPECT_EQ(getMember(fields, u"Count").toLong(), 2);
  fields.reset();
  EXPECT_TRUE(life.expired());
}

TEST(LateBoundFields, give_count_and_items) {
  const auto fields = std::make_shared<TwoFields>();
  EXPECT_EQ(shown(getMember(fields, u"count")), "Long 2");
  EXPECT_EQ(getMember(fields, u"Item", {1}).toText(), u"Llaves");
  EXPECT_EQ(callMember(fields, u"Item", {u"IdAnota"}).toLong(), 4073);
  Variant name[] = {u"Asunto"};
  fields->put(u"Item", u"Timbre", name);
  EXPECT_EQ(fields->all[1]->value.toText(), u"Timbre");
  EXPECT_EQ(failureOf([&] { getMember(fields, u"Delete"); }), 438);
  EXPECT_EQ(failureOf([&] { putMember(fields, u"Count", 1); }), 438);
  EXPECT_EQ(failureOf([&] { getMember(fields, u"Count", {1}); }), 450);
}

TEST(LateBoundField, gives_its_value_as_default_member_and_its_properties) {
  const auto field = std::make_shared<StoredField>(u"Asunto", u"Llaves");
  EXPECT_EQ(Variant(ObjectRef(field)).toText(), u"Llaves");
  EXPECT_EQ(getMember(field, u"value").toText(), u"Llaves");
  EXPECT_EQ(getMember(field, u"Name").toText(), u"Asunto");
  EXPECT_EQ(getMember(field, u"SourceTable").toText(), u"NotaIP");
  EXPECT_EQ(shown(getMember(field, u"Type")), "Integer 12");
  EXPECT_EQ(shown(getMember(field, u"Attributes")), "Long 16");
  EXPECT_EQ(callMember(field, u"Name").toText(), u"Asunto");
}

TEST(LateBoundField, takes_a_value) {
  const auto field = std::make_shared<StoredField>(u"Asunto", u"Llaves");
  putMember(field, u"", Null);
  EXPECT_TRUE(field->value.isNull());
  putMember(field, u"VALUE", 5);
  EXPECT_EQ(field->value.toLong(), 5);
  EXPECT_EQ(failureOf([&] { putMember(field, u"Name", u"Otro"); }), 438);
  EXPECT_EQ(failureOf([&] { getMember(field, u"Size"); }), 438);
  EXPECT_EQ(failureOf([&] { getMember(field, u"Value", {1}); }), 450);
}

}  // namespace
}  // namespace ovalia::dao
