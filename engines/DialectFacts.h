#pragma once

#include <optional>
#include <span>

#include "platform/Text.h"
#include "platform/Variant.h"
#include "platform/dao.h"

namespace ovalia::engines {

// A function of the Jet dialect and how the engine writes it.
struct FunctionFact {
  TextView jet;
  TextView engine;
  std::optional<dao::DataType> gives;  // the type of its result where it is always the same
};

// How an engine writes what differs between engines.
struct DialectFacts {
  // Put behind the left side of a comparison of texts and behind a sorted text, so that case does not count
  // and accents do.
  TextView collate;

  TextView like;                  // the word for a comparison with a pattern
  Text (*likePattern)(TextView);  // a constant pattern in the engine's form; null where it reads * ? # [ ]
  TextView join;                  // joins two texts
  TextView nul;                   // the character 0, which ends a statement; "" where texts cannot hold it
  TextView trueText, falseText;   // the constants
  bool numericBooleans;           // a Boolean column may hold -1 or 1 for true, so it is compared with 0
  Text (*date)(Date);             // a date literal
  bool datesByRange;              // dates are day counts, equal when they are within half a second
  TextView ascendingNulls;        // put behind a rising sort so that nulls come first; "" where they do
  TextView descendingNulls;       // behind a falling one so that they come last
  TextView parameter;             // what stands before the number of a parameter
  TextView sameOrBothNull;        // equality that holds between nulls
  TextView begin;                 // begins a transaction that is going to write
  bool checksLengths;             // the engine itself refuses a text that is too long for its column

  std::span<const FunctionFact> functions;
  std::span<const TextView> reserved;  // words that are no names unless quoted
};

}  // namespace ovalia::engines
