#pragma once

#include "host/Workplace.h"
#include "platform/Variant.h"

// The agency's word processor: documents made from templates.
namespace ovalia::host {

// A new document from the template, at that path, or one that is only printed where the path is empty; both
// "\"-separated or in the system's form. An existing file is never replaced. Gives the document: an object
// with `Documento` and `Plantilla`, their paths in the system's form, and `Rellenar(Marca, Campo)`, which
// fills its bookmarks from the marks and their texts and then opens it or prints it. Null where there can be
// no such document: the user has been told why.
ObjectRef newDocument(Workplace& workplace, TextView document, TextView model);

// Fills the document and opens or prints it; nothing to do without one. Where it cannot be filled the user is
// told and no document is left.
void fillDocument(const Variant& marks, const Variant& texts, const ObjectRef& document);

}  // namespace ovalia::host
