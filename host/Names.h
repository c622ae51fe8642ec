#pragma once

#include <optional>
#include <span>
#include <vector>

#include "platform/dao.h"

// Names of the agency's look-up tables: listing them, finding one, proposing the nearest.
namespace ovalia::host {

// The values of a text column in their order, without Null and empty ones. `from` is a table, a condition may
// follow it.
std::vector<Text> namesOf(dao::Database& database, TextView from, TextView column);

// The name as the table spells it; nothing when the table lacks it. Case does not matter, accents do.
std::optional<Text> spelling(dao::Database& database, TextView table, TextView column, TextView name);

// The name that differs least from what was typed, by letters without case and accents; nothing when none is
// near: more than a third of the letters would have to change, and none begins so.
std::optional<Text> nearest(std::span<const Text> names, TextView typed);

// Several values in one text, separated by commas; blanks around them do not count, nor do empty ones.
std::vector<Text> splitValues(TextView text);
Text joinValues(std::span<const Text> values);

}  // namespace ovalia::host
