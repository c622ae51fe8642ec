#pragma once

#include "forms/CardForm.h"

namespace ovalia {

// A card that is being filled from a record or blanked. Ends with the filling, also when that fails.
class Filling {
 public:
  explicit Filling(forms::CardForm& card) : card_(card), before_(card.filling()) { card_.setFilling(true); }
  ~Filling() { card_.setFilling(before_); }
  Filling(const Filling&) = delete;
  Filling& operator=(const Filling&) = delete;

 private:
  forms::CardForm& card_;
  bool before_;
};

}  // namespace ovalia
