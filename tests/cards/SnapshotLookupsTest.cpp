#include <gtest/gtest.h>

#include <set>
#include <utility>
#include <vector>

#include "cards/RecordToCard.h"
#include "cards/Saving.h"
#include "routines/ModuleValues.h"
#include "tests/cards/NewRows.h"

namespace ovalia {
namespace {

// The agency's database, and the type by which each statement is opened.
class Witness : public dao::Database {
 public:
  explicit Witness(dao::DatabaseRef database) : database_(std::move(database)) {}

  std::vector<std::pair<Text, dao::RecordsetType>> opened;

  dao::RecordsetRef OpenRecordset(TextView sql, dao::RecordsetType type) override {
    opened.emplace_back(sql, type);
    return database_->OpenRecordset(sql, type);
  }
  void Execute(TextView sql) override { database_->Execute(sql); }
  std::int32_t RecordsAffected() const override { return database_->RecordsAffected(); }
  std::shared_ptr<dao::TableDef> TableDefs(TextView name) override { return database_->TableDefs(name); }
  std::vector<Text> tableNames() override { return database_->tableNames(); }
  Text Name() const override { return database_->Name(); }
  void Close() override { database_->Close(); }

 private:
  dao::DatabaseRef database_;
};

class SnapshotLookups : public kit::NewRows {
 protected:
  void SetUp() override {
    NewRows::SetUp();
    moduleValues().cgDB = witness;
  }

  // The statements up to their literal, as they were opened while something was done.
  std::set<Text> openedAsSnapshot(const std::function<void()>& what) {
    witness->opened.clear();
    what();
    std::set<Text> statements;
    for (const auto& [sql, type] : witness->opened) {
      EXPECT_EQ(type, dao::dbOpenSnapshot) << toUtf8(sql);
      statements.insert(sql.substr(0, sql.find(u'=')));
    }
    return statements;
  }

  std::shared_ptr<Witness> witness = std::make_shared<Witness>(database);
};

TEST_F(SnapshotLookups, names_and_keys_are_looked_up_in_copies_that_nobody_writes_to) {
  const Text userByName = u"SELECT IdUsuario FROM Usuario WHERE Nombre ";
  givenNewRows(u"Visita");
  openCard([&] {
    EXPECT_EQ(openedAsSnapshot([&] { RefrescoFicha(instance, u""); }),
              (std::set<Text>{u"SELECT Nombre FROM Usuario WHERE IdUsuario ",
                              u"SELECT Tfno1 FROM Cliente WHERE IdCliente"}));
    EXPECT_EQ(openedAsSnapshot([&] { user.types(u"cboComercial", u"Ana Ruiz"); }),
              std::set<Text>{userByName});
    EXPECT_EQ(openedAsSnapshot([&] {
                user.types(u"cboAcceso", u"Correo");
                user.enters(u"txtNotas");
              }),
              (std::set<Text>{u"SELECT Nombre FROM Usuario WHERE Nombre ",
                              u"SELECT IdTipoAccNota FROM TipoAccNota WHERE Nombre "}));
    user.types(u"txtCliente", u"Eva Núñez");
    user.types(u"txtOtraAgencia", u"Fincas López");
    user.enters(u"txtNotas");
    EXPECT_EQ(openedAsSnapshot([&] { Guardar(instance, u"NoPreguntar"); }),
              (std::set<Text>{userByName, u"SELECT IdTipoAccNota FROM TipoAccNota WHERE Nombre ",
                              u"SELECT IdCliente FROM Cliente WHERE Alias ",
                              u"SELECT IdAgencia FROM Agencia WHERE Alias "}));
    EXPECT_EQ(openedAsSnapshot([&] { EXPECT_TRUE(Nuevo(instance)); }), std::set<Text>{userByName});
    putAway();
  });
}

}  // namespace
}  // namespace ovalia
