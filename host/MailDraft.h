#pragma once

#include "desktop/MailMessage.h"
#include "host/Workplace.h"
#include "platform/Variant.h"

// A mail from the marks of an annotation.
namespace ovalia::host {

// Subject, text and attachments by the names of the marks; whoever works here as the sender.
desktop::MailMessage mailDraft(const Workplace& workplace, const Variant& marks, const Variant& values);

// The documents that two marks list in the same order: the names that they are shown by, with a point at the
// end, and the paths of their files. Both are separated by " , ", which names and folders can hold too: of
// the paths those that are files decide, of the names the extensions, which a stored file has from the name
// that it was attached by. Where that does not come out, files go by their own names.
std::vector<desktop::MailAttachment> listedDocuments(TextView names, TextView paths);

}  // namespace ovalia::host
