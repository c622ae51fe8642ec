#include "attachments/StoredNames.h"

#include <algorithm>

#include "attachments/DocumentFolders.h"
#include "attachments/StoredPaths.h"
#include "cards/Lookups.h"
#include "routines/TextHelpers.h"
#include "routines/Trap.h"

namespace ovalia {

namespace {

constexpr char16_t numberMark = u'F';
constexpr std::size_t extensionLength = 4;

std::int16_t after(std::int16_t number) { return Variant(std::int32_t(number) + 1).toInteger(); }

// Where no row has a number, and where there is no row at all, the first file is number 0.
std::int16_t nextNumber(const Instance& nota, std::int32_t parent) {
  const auto rows = database().OpenRecordset(
      join(u"SELECT Id, NombreArch FROM ", nota.nota.DocuAsoc, u" WHERE Id = ", parent), dao::dbOpenSnapshot);
  std::int16_t highest = -1;
  for (; !rows->isEOF(); rows->MoveNext())
    highest = std::max(highest, storedNumber(rows->value(u"NombreArch").text()).value_or(highest));
  return after(highest);
}

}  // namespace

Text lastFour(TextView name) {
  return Text(name.substr(name.size() < extensionLength ? 0 : name.size() - extensionLength));
}

bool isExtension(TextView text) { return text.size() == extensionLength && text.starts_with(u'.'); }

Text storedExtension(TextView ext) { return Text(isExtension(ext) ? ext : TextView(u".doc")); }

Text storedName(std::int32_t parent, std::int16_t number, TextView ext) {
  constexpr std::int16_t digits = 2;
  return join(parent, Text(1, numberMark), Padding(toText(number), digits), ext);
}

std::optional<std::int16_t> storedNumber(TextView name) {
  const auto mark = name.find(numberMark);
  if (mark == TextView::npos) return {};
  const auto point = name.find(u'.');
  if (point == TextView::npos || point < mark) throw Failure(failure::badArgument);
  return Variant(val(name.substr(mark + 1, point - mark - 1))).toInteger();
}

Text CreaNombreDoc(const Instance& nota, std::int32_t IdBase, Text& ext) {
  return procedure(u"CreaNombreDoc de CNota", Text(), [&](Text& result) {
    ext = storedExtension(ext);
    std::int16_t number = nextNumber(nota, IdBase);
    const Text folder = CreaPathDoc(nota, IdBase);
    Text name = storedName(IdBase, number, ext);
    // A name that no file can bear counts as free; copying to it will fail.
    while (!storedFile(nota, folder, name).empty()) name = storedName(IdBase, number = after(number), ext);
    result = name;
  });
}

}  // namespace ovalia
