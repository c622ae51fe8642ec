#pragma once

#include <cstdint>
#include <span>

#include "host/Schema.h"

// The statements behind the lists of the host's cards: what the component gets as `crs`.
namespace ovalia::host {

struct GridColumn {
  TextView field;
  TextView heading;
  int characters;  // of width
};

// The columns that a grid of the kind shows.
std::span<const GridColumn> gridColumns(Kind kind);

// One list of annotations on one form of the host.
struct ListDesign {
  TextView form;       // name of the host's form
  TextView grid;       // grdNota, grdVisita, grdAnuncio, grdLlamada, grdHistorico
  TextView data;       // the data control of the grid
  TextView table;      // of annotations
  TextView caption;    // of the page, with its mnemonic
  TextView idColumn;   // the column that `Id` stands for and that a new row is hung on
  TextView condition;  // "%" is the parent's number
  bool mayCreate;
  TextView hangsOn = u"";  // the form of the records that its rows hang on, where these are others
};

std::span<const ListDesign> lists();
const ListDesign& list(TextView form, TextView grid);  // 3265 when there is none

// The SELECT of a list for one parent: an updatable dynaset with the key first, `Id` (but for calls),
// `IdAnota`, the columns of the kind and the names that its keys stand for. Newest first.
Text listQuery(const ListDesign& list, std::int32_t parent);

// The same over the whole table.
Text wholeTableQuery(const AnnotationTable& table);

// The one row of a key, with the same columns.
Text rowQuery(const AnnotationTable& table, std::int32_t key);

// A text literal; and a text to be found anywhere, with no character of it a wildcard.
Text literal(TextView text);
Text containing(TextView text);

}  // namespace ovalia::host
