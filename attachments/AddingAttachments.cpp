#include "attachments/AddingAttachments.h"

namespace ovalia {

void AdjuntarDocumento(Instance&, bool) {}

void PegarDePortapapeles(Instance&) {}

void dNota_OLEDragOver(Instance&, const ObjectRef&, std::int32_t&) {}

void dNota_OLEDragDrop(Instance&, const ObjectRef&) {}

}  // namespace ovalia
