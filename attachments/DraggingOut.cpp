#include "attachments/DraggingOut.h"

#include "attachments/AttachmentList.h"
#include "attachments/DocumentFolders.h"
#include "attachments/StoredPaths.h"
#include "routines/Trap.h"

namespace ovalia {

void dNota_OLEStartDrag(const Instance& nota, Text& ruta) {
  resumeNext([&] {
    const Text name = selectedAttachment(nota).key;
    const Text folder = numberedFolder(toText(nota.crs().value(u"Id").toLong()));
    if (isStored(nota, folder, name)) ruta = storedPath(nota, folder, name);
  });
}

}  // namespace ovalia
