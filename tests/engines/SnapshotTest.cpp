#include "tests/engines/EngineFixture.h"

namespace ovalia::engines::test {
namespace {

namespace f = dao::failure;

// A copy of more rows than are read at once.
class LongSnapshots : public EngineTest {
 protected:
  static constexpr std::int32_t rows = 3500;
  void SetUp() override {
    mine->Execute(u"DELETE FROM Cliente");
    mine->Execute(u"BEGIN");
    for (std::int32_t i = 1; i <= rows; ++i)
      mine->Execute(u"INSERT INTO Cliente (IdCliente, Alias) VALUES (" + toText(i) + u", 'Cliente " +
                    toText(i) + u"')");
    mine->Execute(u"COMMIT");
  }
  dao::RecordsetRef all(dao::Database& database) {
    return database.OpenRecordset(u"SELECT * FROM Cliente ORDER BY IdCliente", dao::dbOpenSnapshot);
  }
};
INSTANTIATE_TEST_SUITE_P(On, LongSnapshots, ::testing::Values(sqliteEngine()),
                         [](const auto& info) { return info.param.name; });

TEST_P(LongSnapshots, show_one_moment_whatever_others_write) {
  const auto set = all(*mine);
  EXPECT_EQ(set->value(u"IdCliente").toLong(), 1);
  theirs->Execute(u"UPDATE Cliente SET Alias = 'Otro'");
  theirs->Execute(u"DELETE FROM Cliente WHERE IdCliente > 100");
  std::int32_t count = 0;
  for (; !set->isEOF(); set->MoveNext()) {
    ++count;
    ASSERT_EQ(set->AbsolutePosition(), count - 1);
    ASSERT_EQ(set->value(u"Alias").text(), u"Cliente " + toText(count));
  }
  EXPECT_EQ(count, rows);
  EXPECT_EQ(agency.one(u"SELECT Count(*) FROM Cliente"), Variant(std::int32_t{100}))
      << "the connection goes on";
}

TEST_P(LongSnapshots, know_their_end_when_asked) {
  EXPECT_EQ(all(*mine)->RecordCount(), rows);
  const auto set = all(*mine);
  set->MoveLast();
  EXPECT_EQ(set->AbsolutePosition(), rows - 1);
  set->MoveNext();
  EXPECT_TRUE(set->isEOF());
  set->MovePrevious();
  EXPECT_EQ(set->value(u"IdCliente").toLong(), rows);
  const Text last = set->Bookmark();
  const auto other = all(*mine);
  other->setBookmark(last);
  EXPECT_EQ(other->value(u"IdCliente").toLong(), rows);
  other->setAbsolutePosition(1500);
  EXPECT_EQ(other->value(u"IdCliente").toLong(), 1501);
}

TEST_P(LongSnapshots, are_searched_to_their_end) {
  const auto set = all(*mine);
  set->FindFirst(u"Alias = 'CLIENTE 3333'");
  EXPECT_EQ(set->AbsolutePosition(), 3332);
  const auto backwards = all(*mine);
  backwards->FindLast(u"Alias Like 'cliente 3*'");
  EXPECT_EQ(backwards->AbsolutePosition(), rows - 1);
}

TEST_P(LongSnapshots, stop_no_other_user_from_writing) {
  const auto set = all(*mine);
  set->MoveNext();
  theirs->Execute(u"UPDATE Cliente SET Alias = 'x' WHERE IdCliente = 1");
  EXPECT_EQ(theirs->RecordsAffected(), 1);
  mine->Execute(u"UPDATE Cliente SET Alias = 'y' WHERE IdCliente = 1");
  EXPECT_EQ(mine->RecordsAffected(), 1);
}

TEST_P(LongSnapshots, show_what_their_own_transaction_has_not_committed) {
  mine->Execute(u"BEGIN");
  mine->Execute(u"UPDATE Cliente SET Alias = 'Sin confirmar'");
  const auto set = all(*mine);
  set->MoveLast();
  EXPECT_EQ(set->value(u"Alias").text(), u"Sin confirmar");
  mine->Execute(u"ROLLBACK");
}

TEST_P(LongSnapshots, without_an_order_come_in_that_of_their_keys) {
  mine->Execute(u"CREATE INDEX DocuNotaIP_Nombre ON DocuNotaIP (IdNota, NombreOrg, Id)");
  mine->Execute(u"INSERT INTO DocuNotaIP (IdNota, NombreOrg) VALUES (1, 'Carta.doc')");
  mine->Execute(u"INSERT INTO DocuNotaIP (IdNota, NombreOrg) VALUES (1, 'Anexo.doc')");
  EXPECT_EQ(agency.column(u"SELECT NombreOrg FROM DocuNotaIP WHERE IdNota = 1"),
            (std::vector<Text>{u"Plano.doc", u"Carta.doc", u"Anexo.doc"}));
  EXPECT_EQ(agency.column(u"SELECT TOP 2 NombreOrg FROM DocuNotaIP WHERE IdNota = 1"),
            (std::vector<Text>{u"Plano.doc", u"Carta.doc"}));
}

TEST_P(LongSnapshots, close_before_their_end) {
  const auto set = all(*mine);
  set->Close();
  const auto other = all(*mine);
  mine->Close();
  EXPECT_EQ(failureOf([&] { other->MoveNext(); }), ovalia::failure::objectNotSet);
}

}  // namespace
}  // namespace ovalia::engines::test
