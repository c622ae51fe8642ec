#pragma once

#include <span>

#include "instance/Instance.h"

namespace ovalia {

struct SaveRow;

// Writes a field of the row that is being edited, or leaves it as it is. No trap.
using SaveRule = void (*)(Instance& nota, forms::CardForm& card, const SaveRow& row);

// The table in which the name on the card is looked up, its key and the column of the names.
struct NameTable {
  TextView table;
  TextView key;
  TextView name;
};

// One field that a save writes: the control it comes from, how, and what the rule needs besides: the hour
// beside a date, or the field with the name as the list has it; and where names are looked up.
struct SaveRow {
  TextView field;
  SaveRule rule;
  TextView control = {};
  TextView second = {};
  const NameTable* names = nullptr;
};

// The fields of a form in their order; none for a form that is no card.
std::span<const SaveRow> saveTable(TextView form);

// The fields that every card writes after its own.
std::span<const SaveRow> commonSaveTable();

}  // namespace ovalia
