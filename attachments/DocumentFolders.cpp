#include "attachments/DocumentFolders.h"

#include "attachments/StoredPaths.h"
#include "platform/Platform.h"
#include "routines/FileHelpers.h"
#include "routines/Trap.h"

namespace ovalia {

namespace {

// Another desk may make the same folder between the look and the making.
void makeWhereMissing(TextView folder) {
  if (ExisteDirectorio(folder)) return;
  try {
    Platform::current().files->makeDirectory(folder);
  } catch (const Failure& failure) {
    if (failure.number() != failure::pathFileAccess || !ExisteDirectorio(folder)) throw;
  }
}

}  // namespace

Text numberedFolder(TextView digits) {
  if (digits.empty()) throw Failure(failure::outOfStackSpace);
  Text folder;
  for (const char16_t digit : digits.substr(0, digits.size() - 1))
    folder += join(u"Doc", Text(1, digit), u"\\");
  return folder + u"Doc0\\";
}

Text QuePath(TextView Id) {
  return procedure(u"QuePath de CNota", Text(), [&](Text& folder) { folder = numberedFolder(Id); });
}

Text CreaPathDoc(const Instance& nota, std::int32_t Id) {
  return procedure(u"CreaPathDoc de CNota", Text(), [&](Text& result) {
    const Text root = dataFolder(nota) + u"\\";
    makeWhereMissing(root);
    const Text folder = QuePath(toText(Id));
    for (auto end = folder.find(u'\\'); end != Text::npos; end = folder.find(u'\\', end + 1))
      makeWhereMissing(root + folder.substr(0, end + 1));
    result = folder;
  });
}

}  // namespace ovalia
