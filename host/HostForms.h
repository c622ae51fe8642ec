#pragma once

#include <span>

#include "platform/Text.h"

// The host's own forms as data: which table each shows, how, and what the component calls them.
namespace ovalia::host {

enum class FieldKind { Line, Amount, Number, Memo, Shown };  // Shown: not to be edited

struct FieldDesign {
  TextView control;  // name, as late binding finds it
  TextView field;    // of the form's query
  TextView label;    // with its mnemonic
  FieldKind kind;
  bool wide = false;  // over both halves of the card
};

struct ListColumn {
  TextView field;
  TextView heading;
  int characters;
};

struct HostForm {
  TextView form;      // "FichaInm"
  TextView listForm;  // "ListaInm"
  TextView table;
  TextView key;
  TextView header;         // what a card's title begins with
  TextView caption;        // "Inmueble"
  TextView listCaption;    // of the page, with its mnemonic
  TextView titleField;     // beside the caption
  TextView subtitleField;  // with it where one record is chosen among all
  TextView client;         // field with the client of the record; "" has none
  TextView place;          // field that says where a new visit takes place; "" has none
  TextView from;           // tables of both queries
  TextView extra;          // further columns of the card's query
  TextView searched;       // columns that the search looks at, separated by commas
  std::span<const FieldDesign> fields;
  std::span<const ListColumn> columns;
};

std::span<const HostForm> hostForms();
const HostForm& hostForm(TextView form);  // 3265 when there is none

// The one row of a card, an updatable dynaset: `Id`, the table's columns, and what they stand for.
Text cardQuery(const HostForm& form, std::int32_t record);

// The rows of the opening list that hold the text anywhere; all of them for "". `Id` is the key.
Text searchQuery(const HostForm& form, TextView wanted);

}  // namespace ovalia::host
