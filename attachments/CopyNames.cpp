#include "attachments/CopyNames.h"

#include <algorithm>
#include <utility>

#include "cards/Lookups.h"
#include "routines/SqlText.h"
#include "routines/Trap.h"

namespace ovalia {

namespace {

constexpr TextView copyMark = u"Copia";
constexpr TextView numberedMark = u"Copia(";

TextView from(TextView text, std::size_t start) { return text.substr(std::min(start, text.size())); }

bool isShown(const Instance& nota, TextView name) {
  const auto rows = database().OpenRecordset(
      join(u"SELECT NombreOrg FROM ", nota.nota.DocuAsoc, u" WHERE NombreOrg=", ComillaSQL(name)),
      dao::dbOpenSnapshot);
  const bool found = !rows->isEOF();
  rows->Close();
  return found;
}

}  // namespace

Text copyName(TextView name) {
  constexpr std::size_t lengthOfFirst = TextView(u"Copia de ").size();
  constexpr std::size_t lengthBehindNumber = TextView(u") de ").size();
  if (!name.starts_with(copyMark)) return join(u"Copia de ", name);
  if (!name.starts_with(numberedMark)) return join(u"Copia(2) de ", from(name, lengthOfFirst));
  const auto end = name.find(u')');
  if (end == TextView::npos) throw Failure(failure::badArgument);
  const double number = val(name.substr(numberedMark.size(), end - numberedMark.size()));
  return join(u"Copia(", number + 1, u") de ", from(name, end + lengthBehindNumber));
}

Text GenerarNombreCopia(const Instance& nota, TextView nombre) {
  return procedure(u"GenerarNombreCopia de CNota", Text(), [&](Text& result) {
    Text before(nombre), name = copyName(before);
    while (isShown(nota, name)) {
      before = std::exchange(name, copyName(name));
      if (name == before) throw Failure(failure::outOfStackSpace);
    }
    result = name;
  });
}

}  // namespace ovalia
