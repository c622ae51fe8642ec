#include "tests/engines/EngineFixture.h"

#include <unistd.h>

namespace ovalia::engines::test {
namespace {

constexpr TextView sqliteSchema[] = {
    u"CREATE TABLE Usuario (IdUsuario INTEGER PRIMARY KEY AUTOINCREMENT, Nombre VARCHAR(30) NOT NULL)",
    u"CREATE TABLE TipoAccNota (IdTipoAccNota INTEGER PRIMARY KEY AUTOINCREMENT, Nombre VARCHAR(30))",
    u"CREATE TABLE Cliente (IdCliente INTEGER PRIMARY KEY AUTOINCREMENT, Alias VARCHAR(40), Tfno1 "
    u"VARCHAR(20), "
    u"Tfno2 VARCHAR(20))",
    u"CREATE TABLE Agencia (IdAgencia INTEGER PRIMARY KEY AUTOINCREMENT, Alias VARCHAR(40))",
    u"CREATE TABLE NotaIP (IdNotaIP INTEGER PRIMARY KEY AUTOINCREMENT, IdInm INTEGER, "
    u"IdUsuario INTEGER REFERENCES Usuario, IdTipoAccNota INTEGER REFERENCES TipoAccNota, "
    u"IdCliente INTEGER, IdAgencia INTEGER, NAgencia INTEGER, IdComercial INTEGER, "
    u"Asunto VARCHAR(50), Notas MEMO TEXT, FechaAlta DATETIME, FechaActualizacion DATETIME, Aviso BOOLEAN, "
    u"Narchivos SMALLINT DEFAULT 0, Precio CURRENCY, Nivel BYTE, Peso DOUBLE, Codigo VARCHAR(10) UNIQUE)",
    u"CREATE INDEX NotaIP_IdInm ON NotaIP (IdInm)",
    u"CREATE TABLE AnuncioIP (IdAnuncioIP INTEGER PRIMARY KEY AUTOINCREMENT, IdAnuncio INTEGER, IdUsuario "
    u"INTEGER, "
    u"FechaAlta DATETIME)",
    u"CREATE TABLE DocuNotaIP (IdDocu INTEGER PRIMARY KEY AUTOINCREMENT, Id INTEGER, IdAgencia INTEGER, "
    u"IdNota INTEGER REFERENCES NotaIP, NombreOrg VARCHAR(255), NombreArch VARCHAR(40))",
    u"CREATE TABLE DocuAnuncioIP (IdDocu INTEGER PRIMARY KEY AUTOINCREMENT, Id INTEGER, IdAgencia INTEGER, "
    u"IdNota INTEGER, NombreOrg VARCHAR(255), NombreArch VARCHAR(40))",
    u"CREATE TABLE Materia (IdMateria INTEGER PRIMARY KEY AUTOINCREMENT, Nombre VARCHAR(40))",
    u"CREATE TABLE TipoMateria (IdTipoMateria INTEGER PRIMARY KEY AUTOINCREMENT, Nombre VARCHAR(40), "
    u"IdMateria INTEGER)",
    u"CREATE TABLE Plantilla (IdPlantilla INTEGER PRIMARY KEY AUTOINCREMENT, Nombre VARCHAR(40), Notas MEMO "
    u"TEXT, "
    u"IdMateria INTEGER, IdTipoMateria INTEGER)",
    u"CREATE TABLE Inmueble (IdInm INTEGER PRIMARY KEY AUTOINCREMENT, IdPropietario INTEGER, Numero TEXT, "
    u"Piso TEXT, "
    u"Referencia TEXT, GastosComu CURRENCY, Notas MEMO TEXT, Precio CURRENCY)",
};

constexpr TextView rows[] = {
    u"INSERT INTO Usuario (Nombre) VALUES ('Ana')",
    u"INSERT INTO Usuario (Nombre) VALUES ('Íñigo')",
    u"INSERT INTO TipoAccNota (Nombre) VALUES ('Pública')",
    u"INSERT INTO TipoAccNota (Nombre) VALUES ('Privada')",
    u"INSERT INTO Cliente (Alias, Tfno1, Tfno2) VALUES ('Peña', '944000001', '600000001')",
    u"INSERT INTO Agencia (Alias) VALUES ('Ribera')",
    u"INSERT INTO NotaIP (IdInm, IdUsuario, IdTipoAccNota, Asunto, Notas, FechaAlta, FechaActualizacion, "
    u"Aviso, Precio, "
    u"Nivel, Peso, Codigo) VALUES (120, 1, 1, 'Llaves', 'En la agencia', #03/01/05 10:00:00#, #03/01/05 "
    u"10:00:00#, "
    u"True, 150000.25, 3, 1.5, 'A1')",
    u"INSERT INTO NotaIP (IdInm, IdUsuario, IdTipoAccNota, Asunto, FechaAlta, FechaActualizacion, Aviso, "
    u"Codigo) "
    u"VALUES (120, 2, 2, 'Ático', #03/02/05 11:30:15#, #03/02/05 11:30:15#, False, 'A2')",
    u"INSERT INTO NotaIP (IdInm, Asunto, FechaAlta, Codigo) VALUES (120, 'Sin dueño', #03/03/05#, 'A3')",
    u"INSERT INTO NotaIP (IdInm, IdUsuario, Asunto, FechaAlta, Codigo) VALUES (7, 1, 'Otra', #03/04/05#, "
    u"'A4')",
    u"INSERT INTO DocuNotaIP (Id, IdAgencia, IdNota, NombreOrg, NombreArch) VALUES (120, 1, 1, 'Plano.doc', "
    u"'4073F00.doc')",
    u"INSERT INTO Materia (Nombre) VALUES ('Ventas')",
    u"INSERT INTO Materia (Nombre) VALUES ('Alquiler')",
    u"INSERT INTO TipoMateria (Nombre, IdMateria) VALUES ('Oferta', 1)",
    u"INSERT INTO Plantilla (Nombre, Notas, IdMateria, IdTipoMateria) VALUES ('Carta', 'Estimada señora', 1, "
    u"1)",
    u"INSERT INTO Plantilla (Nombre, Notas, IdMateria) VALUES ('aviso', 'Le avisamos', 2)",
    u"INSERT INTO Plantilla (Nombre) VALUES ('Ñapa')",
    u"INSERT INTO Inmueble (IdPropietario, Numero, Piso, Referencia, GastosComu, Notas, Precio) "
    u"VALUES (1, '4', '2B', 'R-1', 60.5, 'Luminoso', 210354.2378)",
};

class SqliteStore : public Store {
 public:
  dao::DatabaseRef connect(const OpenOptions& options) override {
    OpenOptions all = options;
    all.create = true;
    return open(fromUtf8((folder_ / "agencia año.db").string()), all);
  }
  std::vector<Text> schema() const override { return {std::begin(sqliteSchema), std::end(sqliteSchema)}; }

 private:
  TemporaryFolder folder_;
};

}  // namespace

TemporaryFolder::TemporaryFolder() {
  static int count = 0;
  path_ = std::filesystem::temp_directory_path() /
          ("prueba ñ " + std::to_string(::getpid()) + "-" + std::to_string(++count));
  std::filesystem::create_directories(path_);
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ignored);
  std::filesystem::remove_all(path_, ignored);
}

EngineUnderTest sqliteEngine() {
  return {"SQLite", [] { return std::make_unique<SqliteStore>(); }};
}

Agency::Agency(const EngineUnderTest& engine) {
  platform.clock = &clock;
  installed = std::make_unique<PlatformInstallation>(platform);
  store = engine.makeStore();
  mine = store->connect({});
  for (const Text& sql : store->schema()) mine->Execute(sql);
  for (const TextView sql : rows) {
    mine->Execute(sql);
    EXPECT_EQ(mine->RecordsAffected(), 1) << toUtf8(sql);
  }
  theirs = store->connect({.busyMilliseconds = 50});
}

dao::RecordsetRef Agency::notes() { return mine->OpenRecordset(notesOfProperty120); }

Variant Agency::one(TextView sql) {
  const auto set = mine->OpenRecordset(sql, dao::dbOpenSnapshot);
  return set->fields().at(0)->Value();
}

std::vector<Text> Agency::column(TextView sql) {
  std::vector<Text> values;
  const auto set = mine->OpenRecordset(sql, dao::dbOpenSnapshot);
  for (; !set->isEOF(); set->MoveNext()) {
    const Variant value = set->fields().at(0)->Value();
    values.push_back(value.isNull() ? u"Null" : value.text());
  }
  return values;
}

std::int32_t failureOf(const std::function<void()>& action) {
  try {
    action();
  } catch (const Failure& failure) {
    return failure.number();
  }
  return 0;
}

}  // namespace ovalia::engines::test

namespace ovalia {

void PrintTo(const Variant& value, std::ostream* out) {
  *out << "type " << static_cast<int>(value.type()) << " \""
       << (value.isNull() ? "Null" : toUtf8(value.text())) << "\"";
}

bool operator==(const Variant& a, const Variant& b) {
  if (a.type() != b.type()) return false;
  return a.isNull() || a.isEmpty() || compareEqual(a, b).toBoolean();
}

}  // namespace ovalia
