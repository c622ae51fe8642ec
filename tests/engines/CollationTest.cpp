#include "tests/engines/EngineFixture.h"

namespace ovalia::engines::test {
namespace {

class SpanishText : public EngineTest {
 protected:
  void SetUp() override { mine->Execute(u"DELETE FROM Plantilla"); }
  void add(TextView name) {
    const auto literal = replaceAll(name, u"'", u"''");
    mine->Execute(u"INSERT INTO Plantilla (Nombre) VALUES ('" + literal + u"')");
  }
  std::vector<Text> where(TextView condition) {
    return agency.column(u"SELECT Nombre FROM Plantilla WHERE " + Text(condition) + u" ORDER BY Nombre");
  }
};
INSTANTIATE_TEST_SUITE_P(On, SpanishText, ::testing::Values(sqliteEngine()),
                         [](const auto& info) { return info.param.name; });

TEST_P(SpanishText, is_sorted_by_the_language_without_case_nulls_first) {
  for (const TextView name : {u"zumo", u"Ñandú", u"nube", u"Ácido", u"oso", u"acido", u"ACTA", u"ñu", u""})
    add(name);
  mine->Execute(u"INSERT INTO Plantilla (Notas) VALUES ('sin nombre')");
  const std::vector<Text> rising{u"Null", u"",      u"acido", u"Ácido", u"ACTA",
                                 u"nube", u"Ñandú", u"ñu",    u"oso",   u"zumo"};
  EXPECT_EQ(agency.column(u"SELECT Nombre FROM Plantilla ORDER BY Nombre ASC"), rising);
  EXPECT_EQ(agency.column(u"SELECT Nombre FROM Plantilla ORDER BY Nombre DESC"),
            std::vector<Text>(rising.rbegin(), rising.rend()));
  const auto set = mine->OpenRecordset(u"SELECT IdPlantilla, Nombre FROM Plantilla ORDER BY Nombre");
  for (const Text& name : rising) {
    EXPECT_EQ(set->value(u"Nombre").isNull() ? u"Null" : set->value(u"Nombre").text(), name);
    set->MoveNext();
  }
}

struct Comparison {
  TextView condition;
  std::vector<Text> names;
};

TEST_P(SpanishText, is_compared_without_case_and_with_accents) {
  for (const TextView name : {u"Ñu", u"NU", u"ático", u"Atico", u"ΣΊΣΥΦΟΣ"}) add(name);
  const Comparison rows[] = {{u"Nombre = 'ñU'", {u"Ñu"}},
                             {u"Nombre = 'nu'", {u"NU"}},
                             {u"Nombre = 'ÁTICO'", {u"ático"}},
                             {u"Nombre = 'ATICO'", {u"Atico"}},
                             {u"Nombre = 'σίσυφος'", {u"ΣΊΣΥΦΟΣ"}},
                             {u"'ÑU' = Nombre", {u"Ñu"}},
                             {u"Nombre In ('ÑU', 'ATICO')", {u"Atico", u"Ñu"}},
                             {u"Nombre Between 'A' And 'B'", {u"Atico", u"ático"}},
                             {u"Nombre > 'nz' And Nombre < 'o'", {u"Ñu"}},
                             {u"Nombre <> 'nu' And Nombre <> 'ñu' And Nombre < 'zz'", {u"Atico", u"ático"}}};
  for (const Comparison& row : rows) EXPECT_EQ(where(row.condition), row.names) << toUtf8(row.condition);
}

TEST_P(SpanishText, is_compared_so_on_both_sides_of_a_join) {
  mine->Execute(u"UPDATE Cliente SET Alias = 'ÍÑIGO'");
  EXPECT_EQ(agency.one(u"SELECT Count(*) FROM Cliente INNER JOIN Usuario ON Cliente.Alias = Usuario.Nombre"),
            Variant(std::int32_t{1}));
}

TEST_P(SpanishText, of_a_host_that_chose_a_collation_is_compared_so_all_the_same) {
  mine->Execute(u"CREATE TABLE Zona (IdZona INTEGER PRIMARY KEY, Nombre TEXT COLLATE NOCASE)");
  mine->Execute(u"INSERT INTO Zona VALUES (1, 'Ñ')");
  EXPECT_EQ(agency.one(u"SELECT Count(*) FROM Zona WHERE Nombre = 'ñ'"), Variant(std::int32_t{1}));
}

TEST_P(SpanishText, meets_patterns_without_case_and_with_accents) {
  for (const TextView name : {u"Ático", u"atico", u"Peña", u"50% de pago", u"a_b", u"C3", u"[x]", u"Straße",
                              u"*", u"a-b", u"\U0001F600x"})
    add(name);
  const Comparison rows[] = {{u"Nombre Like 'ÁT*'", {u"Ático"}},
                             {u"Nombre Like '*TIC*'", {u"atico", u"Ático"}},
                             {u"Nombre Like '*Ñ*'", {u"Peña"}},
                             {u"Nombre Like '*n*a'", {}},
                             {u"Nombre Like '*%*'", {u"50% de pago"}},
                             {u"Nombre Like '*_*'", {u"a_b"}},
                             {u"Nombre Like '?#'", {u"C3"}},
                             {u"Nombre Like '##% de*go'", {u"50% de pago"}},
                             {u"Nombre Like '[[]x]'", {u"[x]"}},
                             {u"Nombre Like '[*]'", {u"*"}},
                             {u"Nombre Like '[a-c][_0-9]*'", {u"a_b", u"C3"}},
                             {u"Nombre Like 'a[!a-z]b'", {u"a_b", u"a-b"}},
                             {u"Nombre Like 'a[-]b'", {u"a-b"}},
                             {u"Nombre Like '?x'", {u"\U0001F600x"}},
                             {u"Nombre Like '*SSE'", {}},
                             {u"Nombre Like '[a'", {}},
                             {u"Nombre Like ''", {}},
                             {u"Nombre Like '*SS*'", {}},
                             {u"Nombre Like '*ß*'", {u"Straße"}},
                             {u"Nombre Like '*K*'", {}},
                             {u"Nombre Like '*ñA'", {u"Peña"}},
                             {u"Nombre Like 'pe?a'", {u"Peña"}},
                             {u"Nombre Like '*t*c*o'", {u"atico", u"Ático"}}};
  for (const Comparison& row : rows) EXPECT_EQ(where(row.condition), row.names) << toUtf8(row.condition);
  EXPECT_EQ(where(u"Nombre Like '*'").size(), 11u);
  EXPECT_EQ(where(u"Nombre Not Like '*t*'").size(), 8u);
}

TEST_P(SpanishText, meets_patterns_whatever_letter_stands_for_another_without_case) {
  for (const TextView name : {u"10 \u212A", u"clo\u017Fe", u"ΟΔΟΣ"}) add(name);
  EXPECT_EQ(where(u"Nombre Like '*k'").size(), 1u);
  EXPECT_EQ(where(u"Nombre Like '*S*'").size(), 1u);
  EXPECT_EQ(where(u"Nombre Like '*\u03C2'").size(), 1u);
}

TEST_P(SpanishText, never_meets_a_pattern_where_it_is_null) {
  mine->Execute(u"INSERT INTO Plantilla (Notas) VALUES ('x')");
  EXPECT_TRUE(where(u"Nombre Like '*'").empty());
  EXPECT_TRUE(where(u"Notas Like Null").empty());
}

}  // namespace
}  // namespace ovalia::engines::test
