#pragma once

#include <string>
#include <vector>

#include "bench/QuietPlatform.h"
#include "cards/RecordToCard.h"
#include "component/EventRouting.h"
#include "engines/Open.h"
#include "host/Queries.h"
#include "instance/Kinds.h"
#include "routines/ModuleValues.h"

namespace ovalia::bench {

struct CardRow {
  const Kind& kind;
  TextView table, key;
  std::vector<std::string> lookups;  // by a number, that a fill makes beside reading the row

  TextView attachments() const { return host::annotationTable(table).attachments; }
};

inline const CardRow& notes() {
  static const CardRow row{*kindOf(u"Nota"), u"NotaIP", u"IdNota", {}};
  return row;
}

inline const CardRow& visits() {
  static const CardRow row{
      *kindOf(u"Visita"),
      u"VisitaIP",
      u"IdVisita",
      {"SELECT Tfno1 FROM Cliente WHERE IdCliente = ?1", "SELECT Nombre FROM Usuario WHERE IdUsuario = ?1"}};
  return row;
}

inline Text listOf(const CardRow& row) { return host::wholeTableQuery(host::annotationTable(row.table)); }

// A card filled from the first record of the whole table's list.
struct OpenCard {
  OpenCard(const std::string& file, const CardRow& row) {
    const auto database = engines::open(fromUtf8(file));
    moduleValues().cgDB = database;
    auto app = std::make_shared<MemberTable>();
    app->value(u"title", u"Ovalia");
    surface.cApp = app;
    surface.Tipo = row.kind.tipo;
    const auto users = database->OpenRecordset(u"SELECT Nombre FROM Usuario", dao::dbOpenSnapshot);
    surface.cUsuario = users->value(u"Nombre").text();
    surface.TipoAccNota = u"TipoAccNota";
    surface.DocuAsoc = row.attachments();
    surface.crs = database->OpenRecordset(listOf(row));
    nota.dNota = std::make_shared<forms::CardForm>(row.kind.design());
    connectCard(nota, *nota.dNota);
  }
  ~OpenCard() {
    nota.dNota.reset();
    moduleValues() = {};
  }
  dao::Recordset& list() { return *surface.crs; }

  // Fills the card and shows it in the window that there is.
  void show() {
    RefrescoFicha(nota, u"");
    nota.card().Show();
  }

  QuietPlatform platform;
  NotaSurface surface;
  Instance nota{surface};
};

}  // namespace ovalia::bench
