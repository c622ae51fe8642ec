#include "platform/Object.h"

#include <gtest/gtest.h>

#include "platform/Variant.h"
#include "tests/platform/Show.h"

namespace ovalia {
namespace {

using test::failureOf;
using test::shown;

std::shared_ptr<MemberTable> table() { return std::make_shared<MemberTable>(); }

TEST(MemberTable, finds_members_without_regard_to_case) {
  const auto object = table();
  object->value(u"AppDirUser", u"\\srv").method(u"CargaRegistros", [](Arguments) { return Variant(7); });
  EXPECT_EQ(object->get(u"APPDIRUSER").toText(), u"\\srv");
  object->put(u"appdiruser", u"\\otra");
  EXPECT_EQ(object->get(u"AppDirUser").toText(), u"\\otra");
  EXPECT_EQ(object->call(u"cargaregistros").toLong(), 7);
  EXPECT_TRUE(object->has(u"cargaREGISTROS"));
  EXPECT_FALSE(object->has(u"CargaRegistro"));
}

TEST(MemberTable, a_missing_member_is_438_and_is_named) {
  const auto object = table();
  EXPECT_EQ(failureOf([&] { object->get(u"vClase"); }), 438);
  EXPECT_EQ(failureOf([&] { object->put(u"vClase", 1); }), 438);
  EXPECT_EQ(failureOf([&] { object->call(u"vClase"); }), 438);
  try {
    object->call(u"Ajuste_N_Notas");
  } catch (const Failure& failure) {
    EXPECT_NE(failure.description().find(u"Ajuste_N_Notas"), Text::npos);
  }
}

TEST(MemberTable, a_property_without_a_setter_cannot_be_written) {
  const auto object = table();
  object->property(u"Title", [](Arguments) { return Variant(u"Agencia"); });
  EXPECT_EQ(failureOf([&] { object->put(u"Title", u"Otra"); }), 438);
  EXPECT_EQ(object->get(u"Title").toText(), u"Agencia");
}

TEST(MemberTable, a_property_that_is_only_written_cannot_be_read) {
  const auto object = table();
  Text seen;
  object->property(u"Aviso", {}, [&](const Variant& value, Arguments) { seen = value.toText(); });
  object->put(u"Aviso", u"hola");
  EXPECT_EQ(seen, u"hola");
  EXPECT_EQ(failureOf([&] { object->get(u"Aviso"); }), 438);
}

TEST(MemberTable, a_late_binder_may_read_a_method_and_call_a_property) {
  const auto object = table();
  object->value(u"cEstado", std::int16_t(2)).method(u"ComprobarCambio", [](Arguments) {
    return Variant(true);
  });
  EXPECT_EQ(shown(object->get(u"ComprobarCambio")), "Boolean true");
  EXPECT_EQ(shown(object->call(u"cEstado")), "Integer 2");
}

TEST(MemberTable, a_callee_answers_through_its_arguments) {
  const auto object = table();
  object->method(u"MasDatos", [](Arguments arguments) {
    arguments[0] = join(arguments[0], u" y más");
    arguments[1] = 5;
    return Variant();
  });
  Variant arguments[] = {u"uno", Null};
  EXPECT_TRUE(object->call(u"MasDatos", arguments).isEmpty());
  EXPECT_EQ(arguments[0].toText(), u"uno y más");
  EXPECT_EQ(arguments[1].toLong(), 5);
}

TEST(MemberTable, getters_and_setters_take_arguments) {
  const auto object = table();
  std::map<Text, Text> fields;
  object->property(
      u"", [&](Arguments arguments) { return Variant(fields[arguments[0].toText()]); },
      [&](const Variant& value, Arguments arguments) { fields[arguments[0].toText()] = value.toText(); });
  Variant name[] = {u"Asunto"};
  object->put(u"", u"Llaves", name);
  EXPECT_EQ(object->get(u"", name).toText(), u"Llaves");
}

TEST(MemberTable, a_held_value_takes_no_arguments) {
  const auto object = table();
  object->value(u"Id", 3);
  Variant one[] = {1};
  EXPECT_EQ(failureOf([&] { object->get(u"Id", one); }), 450);
  EXPECT_EQ(failureOf([&] { object->put(u"Id", 4, one); }), 450);
  EXPECT_EQ(object->get(u"Id").toLong(), 3);
}

TEST(MemberTable, a_later_member_takes_the_place_of_an_earlier_one) {
  const auto object = table();
  object->value(u"Modo", 1).method(u"MODO", [](Arguments) { return Variant(2); });
  EXPECT_EQ(object->get(u"Modo").toLong(), 2);
  EXPECT_EQ(failureOf([&] { object->put(u"Modo", 3); }), 438);
}

TEST(MemberTable, a_method_may_replace_itself_while_it_runs) {
  const auto object = table();
  auto witness = std::make_shared<int>(1);
  MemberTable& members = *object;
  object->method(u"Paso", [&members, witness](Arguments) {
    members.method(u"Paso", [](Arguments) { return Variant(2); });
    return Variant(*witness);
  });
  EXPECT_EQ(object->call(u"Paso").toLong(), 1);
  EXPECT_EQ(object->call(u"Paso").toLong(), 2);
}

TEST(MemberTable, a_member_may_fail_with_a_number_of_its_own) {
  const auto object = table();
  object->method(u"Guardar", [](Arguments) -> Variant { throw Failure(3426); });
  EXPECT_EQ(failureOf([&] { object->call(u"Guardar"); }), 3426);
}

TEST(LateBinding, an_empty_reference_is_91) {
  EXPECT_EQ(failureOf([] { deref(ObjectRef()); }), 91);
  EXPECT_EQ(failureOf([] { getMember(ObjectRef(), u"Name"); }), 91);
  EXPECT_EQ(failureOf([] { putMember(ObjectRef(), u"Name", 1); }), 91);
  EXPECT_EQ(failureOf([] { callMember(ObjectRef(), u"Name"); }), 91);
}

TEST(LateBinding, conveniences_pass_copies_of_their_arguments) {
  const auto object = table();
  object->method(u"Suma", [](Arguments arguments) {
    arguments[0] = add(arguments[0], arguments[1]);
    return arguments[0];
  });
  const Variant two(2);
  EXPECT_EQ(callMember(object, u"Suma", {two, 3}).toLong(), 5);
  EXPECT_EQ(two.toLong(), 2);
  object->value(u"Tag", u"a");
  putMember(object, u"tag", u"b");
  EXPECT_EQ(getMember(object, u"TAG").toText(), u"b");
}

// Lets go of the reference it is reached by as soon as one of its members runs.
struct Leaving : Object {
  ObjectRef& reference;
  bool& gone;
  Leaving(ObjectRef& by, bool& whenGone) : reference(by), gone(whenGone) {}
  ~Leaving() override { gone = true; }
  bool leave() {
    bool& flag = gone;
    reference.reset();
    return flag;
  }
  Variant get(TextView, Arguments) override { return leave(); }
  void put(TextView, const Variant&, Arguments) override { EXPECT_FALSE(leave()); }
  Variant call(TextView, Arguments) override { return leave(); }
};

TEST(LateBinding, an_object_that_drops_its_last_reference_lives_until_its_member_ends) {
  ObjectRef reference;
  bool gone = false;
  const auto renew = [&] {
    EXPECT_FALSE(reference);
    gone = false;
    reference = std::make_shared<Leaving>(reference, gone);
  };
  renew();
  EXPECT_FALSE(getMember(reference, u"x").toBoolean());
  EXPECT_TRUE(gone);
  renew();
  EXPECT_FALSE(callMember(reference, u"x").toBoolean());
  EXPECT_TRUE(gone);
  renew();
  putMember(reference, u"x", 1);
  EXPECT_TRUE(gone);
}

TEST(ObjectAt, follows_members_from_object_to_object) {
  const auto inner = table(), form = table(), base = table();
  form->value(u"vClase", Variant(inner));
  base->value(u"ActiveForm", Variant(form));
  EXPECT_EQ(objectAt(base, {u"ActiveForm", u"vClase"}), inner);
  EXPECT_EQ(objectAt(base, {}), base);
}

TEST(ObjectAt, a_link_that_is_no_object_is_91) {
  const auto base = table();
  base->value(u"Nada", Variant(ObjectRef())).value(u"Numero", 5);
  EXPECT_EQ(failureOf([] { objectAt({}, {u"ActiveForm"}); }), 91);
  EXPECT_EQ(failureOf([&] { objectAt(base, {u"Nada", u"vClase"}); }), 91);
  EXPECT_EQ(failureOf([&] { objectAt(base, {u"Numero"}); }), 91);
  EXPECT_EQ(failureOf([&] { objectAt(base, {u"vClase"}); }), 438);
  EXPECT_EQ(objectAt(base, {u"Nada"}), nullptr);
}

}  // namespace
}  // namespace ovalia
