#pragma once

#include <span>

#include "instance/Instance.h"

namespace ovalia {

struct FillRow;

// Shows a field, or what it stands for, on a card. No trap.
using FillRule = void (*)(Instance& nota, forms::CardForm& card, const FillRow& row);

// One step of a fill: the control, the field it shows, how, and a second control where two show one field
// (the hour beside a date).
struct FillRow {
  TextView control;
  TextView field;
  FillRule rule;
  TextView second = {};
};

// The steps of a form in their order; none for a form that is no card.
std::span<const FillRow> fillTable(TextView form);

}  // namespace ovalia
