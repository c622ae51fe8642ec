#pragma once

#include "engines/Catalog.h"
#include "engines/RecordFields.h"
#include "engines/Translator.h"

namespace ovalia::engines {

// What is known of a result's columns: from the tables they come from, else as the translation saw them.
std::vector<FieldInfo> resultFields(const std::vector<ResultColumn>& columns, const SelectShape* shape,
                                    Catalog& catalog);

}  // namespace ovalia::engines
