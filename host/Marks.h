#pragma once

#include "platform/Variant.h"

// The marks and their texts that the component hands over for a document or a mail: two collections, index
// for index from 0, which are looked through by the mark's name, for indexes differ from source to source.
namespace ovalia::host {

inline constexpr int lastMark = 60;

// The text of a mark; "" when the mark is not there.
Text markText(const Variant& marks, const Variant& values, TextView name);

}  // namespace ovalia::host
