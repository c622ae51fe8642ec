#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>

#include "engines/Open.h"
#include "platform/Platform.h"

namespace ovalia::engines::test {

// An empty place for one test's database, and connections to it.
class Store {
 public:
  virtual ~Store() = default;
  virtual dao::DatabaseRef connect(const OpenOptions& options = {}) = 0;
  virtual std::vector<Text> schema() const = 0;  // the agency's tables, in the engine's own words
};

// A folder of its own, with a blank and letters beyond ASCII in its name; gone at the end.
class TemporaryFolder {
 public:
  TemporaryFolder();
  ~TemporaryFolder();
  std::filesystem::path operator/(const std::string& name) const { return path_ / name; }

 private:
  std::filesystem::path path_;
};

struct EngineUnderTest {
  std::string name;
  std::function<std::unique_ptr<Store>()> makeStore;
};
inline std::ostream& operator<<(std::ostream& out, const EngineUnderTest& engine) {
  return out << engine.name;
}

EngineUnderTest sqliteEngine();

class StandingClock : public Clock {
 public:
  Date present = *dateFrom({2026, 3, 7, 9, 5, 0});
  Date now() override { return present; }
};

// An agency's database with a few rows, two users at it, and a clock that stands still.
class Agency {
 public:
  explicit Agency(const EngineUnderTest& engine);

  StandingClock clock;
  Platform platform;
  std::unique_ptr<PlatformInstallation> installed;
  std::unique_ptr<Store> store;
  dao::DatabaseRef mine, theirs;

  // The list that the cards work on: three notes of property 120, oldest first.
  dao::RecordsetRef notes();

  Variant one(TextView sql);               // the first value of a select
  std::vector<Text> column(TextView sql);  // the first column's values as text; "Null" for a null
};

inline constexpr TextView notesOfProperty120 =
    u"SELECT NotaIP.IdNotaIP, NotaIP.IdInm AS Id, NotaIP.IdNotaIP AS IdAnota, NotaIP.IdUsuario, "
    u"Usuario.Nombre AS Usuario, Asunto, Notas, FechaAlta, FechaActualizacion, Aviso, Narchivos, "
    u"NotaIP.IdTipoAccNota, TipoAccNota.Nombre AS TipoAccNota, Precio, Nivel, Peso, Codigo "
    u"FROM (NotaIP LEFT JOIN Usuario ON NotaIP.IdUsuario = Usuario.IdUsuario) "
    u"LEFT JOIN TipoAccNota ON NotaIP.IdTipoAccNota = TipoAccNota.IdTipoAccNota "
    u"WHERE NotaIP.IdInm = 120 ORDER BY FechaAlta";

// The number of the failure that the action ends in; 0 when it ends well.
std::int32_t failureOf(const std::function<void()>& action);

class EngineTest : public ::testing::TestWithParam<EngineUnderTest> {
 protected:
  Agency agency{GetParam()};
  dao::DatabaseRef& mine = agency.mine;
  dao::DatabaseRef& theirs = agency.theirs;
};

}  // namespace ovalia::engines::test

namespace ovalia {
void PrintTo(const Variant& value, std::ostream* out);
bool operator==(const Variant& a, const Variant& b);  // same type and same value
}  // namespace ovalia
