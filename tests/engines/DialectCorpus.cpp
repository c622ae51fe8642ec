#include "tests/engines/DialectCorpus.h"

namespace ovalia::engines::test {
namespace {

namespace f = dao::failure;

constexpr auto select = CorpusRow::Kind::Select;
constexpr auto execute = CorpusRow::Kind::Execute;
constexpr auto criterion = CorpusRow::Kind::Criterion;

// The clock stands in 2026. Day 38412.4166... is 1 March 2005 at ten.
const std::vector<CorpusRow> rows = {
    // Look-ups.
    {"S1", select, u"SELECT Nombre FROM Usuario WHERE IdUsuario = 1",
     u"SELECT Nombre FROM Usuario WHERE IdUsuario = 1", 1},
    {"S2", select, u"SELECT IdUsuario FROM Usuario WHERE Nombre = 'íñigo'",
     u"SELECT IdUsuario FROM Usuario WHERE Nombre COLLATE es = 'íñigo'", 1},
    {"S5", select, u"SELECT IdTipoAccNota FROM TipoAccNota WHERE Nombre = 'publica'",
     u"SELECT IdTipoAccNota FROM TipoAccNota WHERE Nombre COLLATE es = 'publica'", 0},
    {"S6", select, u"SELECT Nombre FROM Usuario WHERE Nombre = 'ANA'",
     u"SELECT Nombre FROM Usuario WHERE Nombre COLLATE es = 'ANA'", 1},
    {"S7", select, u"SELECT Tfno1 FROM Cliente WHERE Alias='Peña'",
     u"SELECT Tfno1 FROM Cliente WHERE Alias COLLATE es='Peña'", 1},
    {"S8", select, u"SELECT Tfno1 FROM Cliente WHERE IdCliente=1",
     u"SELECT Tfno1 FROM Cliente WHERE IdCliente=1", 1},
    {"S9", select, u"SELECT IdCliente FROM Cliente WHERE Alias = 'PEÑA'",
     u"SELECT IdCliente FROM Cliente WHERE Alias COLLATE es = 'PEÑA'", 1},
    {"S10", select, u"SELECT IdAgencia FROM Agencia WHERE Alias = 'O''Higgins'",
     u"SELECT IdAgencia FROM Agencia WHERE Alias COLLATE es = 'O''Higgins'", 0},
    {"S11", select, u"SELECT * FROM DocuNotaIP WHERE IdNota = 1",
     u"SELECT * FROM DocuNotaIP WHERE IdNota = 1", 1},
    {"S15", select, u"SELECT Id, NombreArch FROM DocuNotaIP WHERE Id = 120",
     u"SELECT Id, NombreArch FROM DocuNotaIP WHERE Id = 120", 1},
    {"S16", select, u"SELECT NombreOrg FROM DocuNotaIP WHERE NombreOrg='plano.doc'",
     u"SELECT NombreOrg FROM DocuNotaIP WHERE NombreOrg COLLATE es='plano.doc'", 1},
    {"S17", select, u"SELECT NombreOrg FROM DocuNotaIP WHERE NombreArch='4073F00.DOC'",
     u"SELECT NombreOrg FROM DocuNotaIP WHERE NombreArch COLLATE es='4073F00.DOC'", 1},
    {"S19", select, u"SELECT * FROM NotaIP", u"SELECT * FROM NotaIP", 4},
    {"S20", select,
     u"SELECT Max(IdDocu) AS N FROM DocuNotaIP WHERE Id = 120 AND IdNota = 1 AND NombreArch = '4073F00.doc'",
     u"SELECT Max(IdDocu) AS N FROM DocuNotaIP WHERE Id = 120 AND IdNota = 1 AND NombreArch COLLATE es = "
     u"'4073F00.doc'",
     1},
    {"S25", select, u"SELECT IdMateria FROM Materia WHERE Nombre = 'ventas'",
     u"SELECT IdMateria FROM Materia WHERE Nombre COLLATE es = 'ventas'", 1},
    {"S26", select, u"SELECT IdTipoMateria FROM TipoMateria WHERE Nombre = 'Oferta'",
     u"SELECT IdTipoMateria FROM TipoMateria WHERE Nombre COLLATE es = 'Oferta'", 1},
    {"S32", select, u"Select Count(IdMateria) As N From Materia  Where Nombre = 'Ventas'",
     u"Select Count(IdMateria) As N From Materia  Where Nombre COLLATE es = 'Ventas'", 1},
    {"S33", select,
     u"Select Count(IdTipoMateria) As N From TipoMateria  Where Nombre = 'Oferta' And IdMateria = 1",
     u"Select Count(IdTipoMateria) As N From TipoMateria  Where Nombre COLLATE es = 'Oferta' And IdMateria = "
     u"1",
     1},
    {"S34", select, u"SELECT NombreOrg, NombreArch FROM DocuNotaIP WHERE IdNota = 1",
     u"SELECT NombreOrg, NombreArch FROM DocuNotaIP WHERE IdNota = 1", 1},
    {"S35", select, u"SELECT NombreOrg, NombreArch FROM DocuAnuncioIP WHERE IdNota = 1",
     u"SELECT NombreOrg, NombreArch FROM DocuAnuncioIP WHERE IdNota = 1", 0},
    {"S36", select, u"SELECT * FROM Usuario WHERE IdUsuario = 2",
     u"SELECT * FROM Usuario WHERE IdUsuario = 2", 1},
    {"S36 with a Null", select, u"SELECT * FROM Usuario WHERE IdUsuario = ",
     u"SELECT * FROM Usuario WHERE IdUsuario =", 0, f::syntax},
    {"S37", select,
     u"SELECT IdPropietario, Numero, Piso, Referencia, GastosComu, Notas, Precio FROM Inmueble WHERE IdInm = "
     u"1",
     u"SELECT IdPropietario, Numero, Piso, Referencia, GastosComu, Notas, Precio FROM Inmueble WHERE IdInm = "
     u"1",
     1},
    {"S38", select, u"SELECT Alias FROM Cliente WHERE IdCliente = 1",
     u"SELECT Alias FROM Cliente WHERE IdCliente = 1", 1},
    {"S39", select, u"SELECT Tfno1, Tfno2 FROM Cliente WHERE IdCliente = 1",
     u"SELECT Tfno1, Tfno2 FROM Cliente WHERE IdCliente = 1", 1},
    {"S40", select, u"SELECT Nombre FROM Usuario  ORDER BY Nombre ASC;",
     u"SELECT Nombre FROM Usuario  ORDER BY Nombre COLLATE es ASC", 2},
    {"S40 with a key", select, u"SELECT Nombre, IdMateria FROM Materia  ORDER BY Nombre ASC;",
     u"SELECT Nombre, IdMateria FROM Materia  ORDER BY Nombre COLLATE es ASC", 2},

    // Models.
    {"S28", select,
     u"SELECT IdPlantilla, Plantilla.Nombre, Notas, Materia.Nombre As Materia, TipoMateria.Nombre As "
     u"TipoMateria FROM "
     u"((Plantilla LEFT JOIN Materia ON Plantilla.IdMateria = Materia.IdMateria)  LEFT JOIN TipoMateria ON "
     u"Plantilla.IdTipoMateria = TipoMateria.IdTipoMateria) ORDER BY Plantilla.Nombre ASC",
     u"SELECT IdPlantilla, Plantilla.Nombre, Notas, Materia.Nombre As Materia, TipoMateria.Nombre As "
     u"TipoMateria FROM "
     u"((Plantilla LEFT JOIN Materia ON Plantilla.IdMateria = Materia.IdMateria)  LEFT JOIN TipoMateria ON "
     u"Plantilla.IdTipoMateria = TipoMateria.IdTipoMateria) ORDER BY Plantilla.Nombre COLLATE es ASC",
     3},
    {"S28 W1 W2", select,
     u"SELECT IdPlantilla, Plantilla.Nombre FROM ((Plantilla LEFT JOIN Materia ON Plantilla.IdMateria = "
     u"Materia.IdMateria)  "
     u"LEFT JOIN TipoMateria ON Plantilla.IdTipoMateria = TipoMateria.IdTipoMateria) WHERE  "
     u"Plantilla.IdMateria = 1 AND "
     u"Plantilla.IdTipoMateria = 1 ORDER BY Materia.Nombre DESC",
     u"SELECT IdPlantilla, Plantilla.Nombre FROM ((Plantilla LEFT JOIN Materia ON Plantilla.IdMateria = "
     u"Materia.IdMateria)  "
     u"LEFT JOIN TipoMateria ON Plantilla.IdTipoMateria = TipoMateria.IdTipoMateria) WHERE  "
     u"Plantilla.IdMateria = 1 AND "
     u"Plantilla.IdTipoMateria = 1 ORDER BY Materia.Nombre COLLATE es DESC",
     1},
    {"S28 W3 O1 J19", select,
     u"SELECT IdPlantilla, Plantilla.Nombre, Notas, TipoMateria.Nombre As TipoMateria FROM ((Plantilla LEFT "
     u"JOIN Materia ON "
     u"Plantilla.IdMateria = Materia.IdMateria)  LEFT JOIN TipoMateria ON Plantilla.IdTipoMateria = "
     u"TipoMateria.IdTipoMateria) WHERE  IdTipoMateria = 1 ORDER BY TipoMateria.Nombre ASC",
     u"SELECT IdPlantilla, Plantilla.Nombre, Notas, TipoMateria.Nombre As TipoMateria FROM ((Plantilla LEFT "
     u"JOIN Materia ON "
     u"Plantilla.IdMateria = Materia.IdMateria)  LEFT JOIN TipoMateria ON Plantilla.IdTipoMateria = "
     u"TipoMateria.IdTipoMateria) WHERE  Plantilla.IdTipoMateria = 1 ORDER BY TipoMateria.Nombre COLLATE es "
     u"ASC",
     1},
    {"S28 W4 O1", select,
     u"SELECT IdPlantilla, Notas FROM ((Plantilla LEFT JOIN Materia ON Plantilla.IdMateria = "
     u"Materia.IdMateria)  LEFT JOIN "
     u"TipoMateria ON Plantilla.IdTipoMateria = TipoMateria.IdTipoMateria) WHERE Notas Like '*SEÑORA*' AND "
     u"Notas Like "
     u"'*tima*' ORDER BY Notas DESC",
     u"SELECT IdPlantilla, Notas FROM ((Plantilla LEFT JOIN Materia ON Plantilla.IdMateria = "
     u"Materia.IdMateria)  LEFT JOIN "
     u"TipoMateria ON Plantilla.IdTipoMateria = TipoMateria.IdTipoMateria) WHERE Notas Like '*SEÑORA*' AND "
     u"Notas Like "
     u"'*tima*' ORDER BY Notas COLLATE es DESC",
     1},
    {"S29", select, u"SELECT Nombre, Notas FROM Plantilla", u"SELECT Nombre, Notas FROM Plantilla", 3},
    {"S30", select, u"SELECT Nombre, Notas FROM Plantilla WHERE IdMateria = 2",
     u"SELECT Nombre, Notas FROM Plantilla WHERE IdMateria = 2", 1},
    {"S31", select, u"SELECT Nombre, Notas FROM Plantilla WHERE IdMateria = 1 AND IdTipoMateria = 1",
     u"SELECT Nombre, Notas FROM Plantilla WHERE IdMateria = 1 AND IdTipoMateria = 1", 1},

    // Written rows.
    {"S3", execute,
     u"INSERT INTO AnuncioIP (IdAnuncio, IdUsuario, FechaAlta) VALUES (7,1,#03/07/05 09:05:00#)",
     u"INSERT INTO AnuncioIP (IdAnuncio, IdUsuario, FechaAlta) VALUES (7,1,38418.37847222222)", 1},
    {"S4", execute,
     u"INSERT INTO NotaIP (IdInm, IdNotaIP, IdAgencia, NAgencia, IdComercial, IdUsuario, FechaAlta) VALUES "
     u"(120,500,1,2,1,1,#12/30/99 00:00:00#)",
     u"INSERT INTO NotaIP (IdInm, IdNotaIP, IdAgencia, NAgencia, IdComercial, IdUsuario, FechaAlta) VALUES "
     u"(120,500,1,2,1,1,36524.0)",
     1},
    {"S4 refused", execute,
     u"INSERT INTO NotaIP (IdInm, IdUsuario, FechaAlta) VALUES (120,99,#03/07/05 09:05:00#)",
     u"INSERT INTO NotaIP (IdInm, IdUsuario, FechaAlta) VALUES (120,99,38418.37847222222)", 0},
    {"S12", execute, u"DELETE * FROM DocuNotaIP WHERE IdDocu = 1", u"DELETE FROM DocuNotaIP WHERE IdDocu = 1",
     1},
    {"S13", execute, u"UPDATE NotaIP SET IdInm = 8, IdCliente=1 WHERE IdNotaIP = 4",
     u"UPDATE NotaIP SET IdInm = 8, IdCliente=1 WHERE IdNotaIP = 4", 1},
    {"S14", execute, u"UPDATE DocuNotaIP SET  NombreArch='4073F01.doc', Id=8 WHERE IdDocu = 1",
     u"UPDATE DocuNotaIP SET  NombreArch='4073F01.doc', Id=8 WHERE IdDocu = 1", 1},
    {"S18", execute,
     u"INSERT INTO DocuNotaIP (Id, IdAgencia, IdNota, NombreOrg, NombreArch) VALUES (120,1,1,'a' + chr(124) "
     u"+ 'b','x')",
     u"INSERT INTO DocuNotaIP (Id, IdAgencia, IdNota, NombreOrg, NombreArch) VALUES (120,1,1,'a|b','x')", 1},
    {"S21", execute, u"DELETE * FROM DocuNotaIP WHERE IdDocu = ", u"DELETE FROM DocuNotaIP WHERE IdDocu =", 0,
     f::syntax},
    {"S22", execute,
     u"INSERT INTO DocuNotaIP (IdDocu, Id, IdAgencia, IdNota, NombreOrg, NombreArch) VALUES "
     u"(9,120,1,1,'C:\\a\\b','x')",
     u"INSERT INTO DocuNotaIP (IdDocu, Id, IdAgencia, IdNota, NombreOrg, NombreArch) VALUES "
     u"(9,120,1,1,'C:\\a\\b','x')",
     1},
    {"S23", execute, u"DELETE * FROM DocuNotaIP WHERE NombreArch = '4073f00.DOC' AND IdNota = 1",
     u"DELETE FROM DocuNotaIP WHERE NombreArch COLLATE es = '4073f00.DOC' AND IdNota = 1", 1},
    {"S24", execute, u"UPDATE DocuNotaIP SET NombreOrg = 'Otro.doc' WHERE NombreArch = '4073F00.doc'",
     u"UPDATE DocuNotaIP SET NombreOrg = 'Otro.doc' WHERE NombreArch COLLATE es = '4073F00.doc'", 1},
    {"S27", execute,
     u"INSERT INTO Plantilla (Nombre,Notas,IdMateria,IdTipoMateria) VALUES ('Nueva', 'Dice: \"sí\"', 1, 1)",
     u"INSERT INTO Plantilla (Nombre,Notas,IdMateria,IdTipoMateria) VALUES ('Nueva', 'Dice: \"sí\"', 1, 1)",
     1},
    {"an insert that does not fit its columns", execute,
     u"INSERT INTO Plantilla (Nombre, Notas) VALUES ('x')",
     u"INSERT INTO Plantilla (Nombre, Notas) VALUES ('x')", 0, f::insertSyntax},
    {"an insert without a value", execute, u"INSERT INTO Plantilla (Nombre, IdMateria) VALUES ('x', )",
     u"INSERT INTO Plantilla (Nombre, IdMateria) VALUES ('x', )", 0, f::insertSyntax},
    {"an update without a value", execute, u"UPDATE Plantilla SET IdMateria =  WHERE IdPlantilla = 1",
     u"UPDATE Plantilla SET IdMateria =  WHERE IdPlantilla = 1", 0, f::updateSyntax},
    {"an unknown column written", execute, u"INSERT INTO Plantilla (Nada) VALUES (1)",
     u"INSERT INTO Plantilla (Nada) VALUES (1)", 0, f::unknownColumn},
    {"an unknown table written", execute, u"UPDATE Nada SET a = 1", u"UPDATE Nada SET a = 1", 0,
     f::unknownTable},
    {"a text too long for its column", execute,
     u"UPDATE NotaIP SET Codigo = '12345678901' WHERE IdNotaIP = 1",
     u"UPDATE NotaIP SET Codigo = '12345678901' WHERE IdNotaIP = 1", 0},
    {"a required column left out", execute, u"INSERT INTO Usuario (IdUsuario) VALUES (9)",
     u"INSERT INTO Usuario (IdUsuario) VALUES (9)", 0},
    {"a key that is there", execute, u"INSERT INTO Usuario (IdUsuario, Nombre) VALUES (1, 'x')",
     u"INSERT INTO Usuario (IdUsuario, Nombre) VALUES (1, 'x')", 0},
    {"a row that others refer to", execute, u"DELETE * FROM NotaIP WHERE IdNotaIP = 1",
     u"DELETE FROM NotaIP WHERE IdNotaIP = 1", 0},
    {"a text for a number", execute, u"UPDATE NotaIP SET IdInm = 'x' WHERE IdNotaIP = 1", u"", 0,
     f::conversion},
    {"a number in a text", execute, u"UPDATE NotaIP SET IdInm = '12', Nivel = 2.5 WHERE IdNotaIP = 1",
     u"UPDATE NotaIP SET IdInm = 12, Nivel = 2 WHERE IdNotaIP = 1", 1},
    {"a number out of range", execute, u"UPDATE NotaIP SET Nivel = 300", u"", 0, f::conversion},
    {"a date in a text", execute, u"UPDATE NotaIP SET FechaAlta = '7/3/2005' WHERE IdNotaIP = 1",
     u"UPDATE NotaIP SET FechaAlta = 38418.0 WHERE IdNotaIP = 1", 1},
    {"a qualified column written", execute,
     u"UPDATE NotaIP SET NotaIP.Asunto = 'x' WHERE NotaIP.IdNotaIP = 1",
     u"UPDATE NotaIP SET Asunto = 'x' WHERE NotaIP.IdNotaIP = 1", 1},
    {"rows from a select", execute,
     u"INSERT INTO Materia (Nombre) SELECT Nombre FROM Usuario WHERE Nombre = 'ana'",
     u"INSERT INTO Materia (Nombre) SELECT Nombre FROM Usuario WHERE Nombre COLLATE es = 'ana'", 1},
    {"DELETE of a table's star", execute, u"DELETE Materia.* FROM Materia WHERE IdMateria = 2",
     u"DELETE FROM Materia WHERE IdMateria = 2", 1},

    // Criteria over output names; their texts are parameters.
    {"F1", criterion, u"Id = 120 AND IdUsuario = 1 AND FechaAlta = #03/01/05 10:00:00#",
     u"IdInm = 120 AND NotaIP.IdUsuario = 1 AND FechaAlta BETWEEN 38412.41666088 AND 38412.41667245", 1},
    {"F3", criterion, u"IdAnota = 2", u"NotaIP.IdNotaIP = 2", 1},
    {"F4 Like", criterion, u"Asunto Like '*lla*'", u"Asunto Like ?1", 1},
    {"F4 text", criterion, u"usuario = \"ANA\"", u"Nombre COLLATE es = ?1", 2},
    {"F4 dates", criterion, u"FechaAlta >= #3/2/2005# And FechaAlta < #3/4/2005#",
     u"FechaAlta >= 38412.99999421 And FechaAlta < 38414.99999421", 2},
    {"F4 between dates", criterion, u"FechaAlta Between #3/1/05 10:00:00# And #3/3/05#",
     u"FechaAlta Between 38412.41666088 And 38414.00000579", 3},
    {"F4 joined texts", criterion, u"Asunto Like '*l' + chr(108) + 'a*' And 'x' & 'y' = 'xy'",
     u"Asunto Like ?1 And ?2 COLLATE es = ?3", 1},
    {"F4 Null", criterion, u"Usuario Is Null", u"Nombre Is Null", 1},
    {"F4 not Null", criterion, u"Not (Usuario Is Null) And Notas Is Not Null",
     u"Not (Nombre Is Null) And Notas Is Not Null", 1},
    {"F4 truth", criterion, u"Aviso = True", u"Aviso <> 0", 1},
    {"F4 truth as one", criterion, u"Aviso = 1 Or Aviso = -1", u"Aviso <> 0 Or Aviso <> 0", 1},
    {"F4 untruth", criterion, u"Aviso = False", u"Aviso = 0", 1},
    {"F4 brackets", criterion, u"([Asunto] <> 'llaves') And [Id] = 120",
     u"(Asunto COLLATE es <> ?1) And IdInm = 120", 2},
    {"F4 between texts", criterion, u"Codigo Between 'a2' And 'a3'", u"Codigo COLLATE es Between ?1 And ?2",
     2},
    {"F4 one of", criterion, u"Codigo In ('a1', 'a4')", u"Codigo COLLATE es In (?1, ?2)", 2},
    {"F4 an expression", criterion, u"Grito = 'LLAVES!'", u"(COALESCE(Asunto, '') || '!') COLLATE es = ?1",
     1},
    {"F4 a column of a table", criterion, u"NotaIP.IdInm = 7", u"NotaIP.IdInm = 7", 1},
    {"F4 nothing behind", criterion, u"Id = ", u"IdInm =", 0, f::criterionSyntax},
    {"F4 out of its parentheses", criterion, u"Id = 120) Or (Id = 7", u"", 0, f::criterionSyntax},
    {"F4 more opened than closed", criterion, u"(Id = 120", u"", 0, f::criterionSyntax},
    {"F4 unknown", criterion, u"Nada = 1", u"Nada = 1", 0, f::unknownColumn},
    {"F4 no end", criterion, u"Asunto = 'x", u"", 0, f::criterionSyntax},

    // Constructs.
    {"J1 century", select,
     u"SELECT IdNotaIP FROM NotaIP WHERE FechaAlta > #01/01/46# Or FechaAlta < #01/01/47#",
     u"SELECT IdNotaIP FROM NotaIP WHERE FechaAlta > 53328.00000579 Or FechaAlta < 17167.99999421", 0},
    {"J1 not day zero", select, u"SELECT IdNotaIP FROM NotaIP WHERE FechaAlta <> #12/30/99 00:00:00#",
     u"SELECT IdNotaIP FROM NotaIP WHERE FechaAlta NOT BETWEEN 36523.99999421 AND 36524.00000579", 4},
    {"J1 on the left", select, u"SELECT IdNotaIP FROM NotaIP WHERE #03/01/05 10:00:00# = FechaAlta",
     u"SELECT IdNotaIP FROM NotaIP WHERE FechaAlta BETWEEN 38412.41666088 AND 38412.41667245", 1},
    {"J1 no date", select, u"SELECT IdNotaIP FROM NotaIP WHERE FechaAlta = #31/31/05#", u"", 0, f::syntax},
    {"J3 wildcards", select,
     u"SELECT Codigo FROM NotaIP WHERE Codigo Like 'a[!1-2]' And Codigo Like '?#' And Codigo Not Like '*%*'",
     u"SELECT Codigo FROM NotaIP WHERE Codigo Like 'a[!1-2]' And Codigo Like '?#' And Codigo Not Like '*%*'",
     2},
    {"J4 in Like", select,
     u"SELECT IdPlantilla FROM Plantilla WHERE Notas Like '*a' + chr(124) + '' + chr(124) + 'b*'",
     u"SELECT IdPlantilla FROM Plantilla WHERE Notas Like '*a||b*'", 0},
    {"J4 alone", select, u"SELECT IdUsuario FROM Usuario WHERE Nombre = '' + chr(124) + ''",
     u"SELECT IdUsuario FROM Usuario WHERE Nombre COLLATE es = '|'", 0},
    {"J5 literals are not touched", select,
     u"SELECT IdUsuario FROM Usuario WHERE Nombre = 'DELETE * FROM x WHERE a = #1/1/05# AND b Like ''*''; "
     u"[c] chr(124) \\'",
     u"SELECT IdUsuario FROM Usuario WHERE Nombre COLLATE es = 'DELETE * FROM x WHERE a = #1/1/05# AND b "
     u"Like ''*''; [c] "
     u"chr(124) \\'",
     0},
    {"J7 keywords in any case", select, u"  select   nombre  from usuario   where idusuario=1 ;  ",
     u"select   nombre  from usuario   where idusuario=1", 1},
    {"J8 an alias named like a table", select,
     u"SELECT Plantilla.Nombre, Materia.Nombre As Materia FROM Plantilla LEFT JOIN Materia ON "
     u"Plantilla.IdMateria = "
     u"Materia.IdMateria ORDER BY Materia.Nombre DESC",
     u"SELECT Plantilla.Nombre, Materia.Nombre As Materia FROM Plantilla LEFT JOIN Materia ON "
     u"Plantilla.IdMateria = "
     u"Materia.IdMateria ORDER BY Materia.Nombre COLLATE es DESC",
     3},
    {"J13 brackets", select, u"SELECT [Nombre] FROM [Usuario] WHERE [IdUsuario] = 1",
     u"SELECT \"Nombre\" FROM \"Usuario\" WHERE \"IdUsuario\" = 1", 1},
    {"J14", select, u"SELECT Nombre FROM Usuario WHERE Nada = 1",
     u"SELECT Nombre FROM Usuario WHERE Nada = 1", 0, f::unknownColumn},
    {"J14 in brackets", select, u"SELECT [Nada] FROM Usuario", u"SELECT \"Nada\" FROM Usuario", 0,
     f::unknownColumn},
    {"an unknown table", select, u"SELECT Nombre FROM Nada", u"SELECT Nombre FROM Nada", 0, f::unknownTable},
    {"J16 truth of other sides", select,
     u"SELECT IdNotaIP FROM NotaIP WHERE True = Aviso Or 0 = Aviso Or Aviso <> True",
     u"SELECT IdNotaIP FROM NotaIP WHERE 0 <> Aviso Or 0 = Aviso Or Aviso = 0", 2},
    {"J18", select, u"SELECT Nombre FROM Usuario WHERE IdUsuario = AND Nombre = 'x'",
     u"SELECT Nombre FROM Usuario WHERE IdUsuario = AND Nombre COLLATE es = 'x'", 0, f::syntax},
    {"J19 in the list", select,
     u"SELECT Nombre FROM NotaIP, Usuario WHERE NotaIP.IdUsuario = Usuario.IdUsuario AND IdUsuario = 1",
     u"SELECT Nombre FROM NotaIP, Usuario WHERE NotaIP.IdUsuario = Usuario.IdUsuario AND NotaIP.IdUsuario = "
     u"1",
     2},
    {"no end of a literal", select, u"SELECT 'x FROM Usuario", u"", 0, f::syntax},

    // What hosts write.
    {"TOP", select, u"SELECT TOP 2 IdNotaIP FROM NotaIP ORDER BY IdNotaIP DESC",
     u"SELECT IdNotaIP FROM NotaIP ORDER BY IdNotaIP DESC LIMIT 2", 2},
    {"TOP behind joined texts", select, u"SELECT TOP 1 IdUsuario FROM Usuario WHERE Nombre <> 'x' + chr(124)",
     u"SELECT IdUsuario FROM Usuario WHERE Nombre COLLATE es <> 'x|' LIMIT 1", 1},
    {"joined texts on the left", select, u"SELECT IdUsuario FROM Usuario WHERE 'A' + 'NA' = Nombre",
     u"SELECT IdUsuario FROM Usuario WHERE 'ANA' COLLATE es = Nombre", 1},
    {"joined texts", select, u"SELECT Alias & ' ' & Tfno1 AS Linea FROM Cliente ORDER BY Alias & Tfno1",
     u"SELECT COALESCE(Alias, '') || ' ' || COALESCE(Tfno1, '') AS Linea FROM Cliente ORDER BY "
     u"COALESCE(Alias, '') || "
     u"COALESCE(Tfno1, '') COLLATE es",
     1},
    {"an order by position", select, u"SELECT IdUsuario, Nombre FROM Usuario ORDER BY 2, 1",
     u"SELECT IdUsuario, Nombre FROM Usuario ORDER BY 2 COLLATE es, 1", 2},
    {"groups", select, u"SELECT Alias, Count(*) AS N FROM Cliente GROUP BY Alias HAVING Alias <> 'x'",
     u"SELECT Alias, Count(*) AS N FROM Cliente GROUP BY Alias COLLATE es HAVING Alias COLLATE es <> 'x'", 1},
    {"DISTINCT", select, u"SELECT DISTINCT Alias, IdCliente FROM Cliente WHERE IdCliente > 0 ORDER BY Alias",
     u"SELECT Alias, IdCliente FROM Cliente WHERE IdCliente > 0 GROUP BY Alias COLLATE es, IdCliente ORDER "
     u"BY Alias COLLATE es",
     1},
    {"a subquery", select,
     u"SELECT Nombre FROM Usuario WHERE IdUsuario IN (SELECT IdUsuario FROM NotaIP WHERE Asunto = 'LLAVES')",
     u"SELECT Nombre FROM Usuario WHERE IdUsuario IN (SELECT IdUsuario FROM NotaIP WHERE Asunto COLLATE es = "
     u"'LLAVES')",
     1},
    {"a subquery that names its outside", select,
     u"SELECT Nombre FROM Usuario AS U WHERE Exists (SELECT * FROM NotaIP WHERE NotaIP.IdUsuario = "
     u"U.IdUsuario AND Nombre = 'ana')",
     u"SELECT Nombre FROM Usuario AS U WHERE Exists (SELECT * FROM NotaIP WHERE NotaIP.IdUsuario = "
     u"U.IdUsuario AND Nombre COLLATE "
     u"es = 'ana')",
     1},
    {"a union", select,
     u"SELECT Nombre FROM Usuario WHERE Nombre = 'ANA' UNION SELECT Alias FROM Cliente ORDER BY 1",
     u"SELECT Nombre FROM Usuario WHERE Nombre COLLATE es = 'ANA' UNION SELECT Alias FROM Cliente ORDER BY 1 "
     u"COLLATE es",
     2},
    {"a bang", select, u"SELECT Usuario!Nombre FROM Usuario", u"SELECT Usuario.Nombre FROM Usuario", 2},
    {"functions", select,
     u"SELECT Left(Nombre, 2) AS A, UCase(Nombre) AS B, Len(Nombre) AS C FROM Usuario WHERE LCase(Nombre) = "
     u"'ÍÑIGO'",
     u"SELECT jet_left(Nombre, 2) AS A, jet_ucase(Nombre) AS B, length(Nombre) AS C FROM Usuario WHERE "
     u"jet_lcase(Nombre) "
     u"COLLATE es = 'ÍÑIGO'",
     1},
    {"minus minus", select, u"SELECT 5--3 AS N FROM Usuario", u"SELECT 5- -3 AS N FROM Usuario", 2},
    {"no comment hides the rest", execute,
     u"DELETE * FROM Plantilla WHERE IdPlantilla = 1 /* AND Nombre = 'x'",
     u"DELETE FROM Plantilla WHERE IdPlantilla = 1 / * AND Nombre COLLATE es = 'x'", 0, f::syntax},
    {"nor one of two hyphens", execute, u"DELETE * FROM Plantilla WHERE IdPlantilla = 1 -- AND Nombre = 'x'",
     u"DELETE FROM Plantilla WHERE IdPlantilla = 1 - - AND Nombre COLLATE es = 'x'", 0, f::syntax},
    {"what is not known passes", select,
     u"SELECT CASE WHEN Nombre = 'ana' THEN 1 ELSE 0 END AS N FROM Usuario",
     u"SELECT CASE WHEN Nombre COLLATE es = 'ana' THEN 1 ELSE 0 END AS N FROM Usuario", 2},
    {"two statements", execute, u"DELETE FROM Plantilla; DELETE FROM Materia",
     u"DELETE FROM Plantilla; DELETE FROM Materia", 0, f::syntax},
};

}  // namespace

const std::vector<CorpusRow>& dialectCorpus() { return rows; }

}  // namespace ovalia::engines::test
