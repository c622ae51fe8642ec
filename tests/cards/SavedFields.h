#pragma once

#include <gtest/gtest.h>

#include <algorithm>

#include "cards/CardToRecord.h"
#include "tests/cardkit/OpenCard.h"

namespace ovalia::kit {

// Tests of what a save writes into the second of three rows.
class SavedFieldsTest : public OpenCardTest {
 protected:
  // Opens a list of the kind, puts the values on the card and writes it.
  void save(TextView kind, std::initializer_list<std::pair<TextView, Variant>> values) {
    openOn(kind, [&] { write(values); });
  }

  void write(std::initializer_list<std::pair<TextView, Variant>> values) {
    change(values);
    database->opened.clear();
    EXPECT_TRUE(GrabaRegistro(instance));
    EXPECT_EQ(crs().updates, 1);
    EXPECT_FALSE(crs().editing());
  }

  bool lookedUp(TextView statement) const {
    return std::ranges::find(database->opened, statement) != database->opened.end();
  }

  Variant written(TextView name) { return at(2, name); }
};

}  // namespace ovalia::kit
