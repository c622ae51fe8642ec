#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Shows the attachments of the current row in the card's list, and the list's pane only where there are some.
// Whether there are says the row's counter: at 0 or below, rows that exist stay unseen. A counter above 0
// without a row is put back to 0, a pending edit of the row being dropped; no other counter is corrected. A
// list whose annotations keep no attachments is left alone; at the end of `crs` the list is emptied and the
// pane stays as it is.
void RefrescoDocs(Instance& nota);

// Opens the pane of the list to the width it had when it was last visible, or closes it. The `Tag` of the
// splitter remembers that width, in twips; empty stands for 2200.
void CambiarVisibilidadLsvDocumentos(forms::CardForm& card, bool bVisible);

// The attachment that is selected in the list of the card in use: its key is the stored name. Failure 91 when
// none is.
forms::ListItem selectedAttachment(const Instance& nota);

}  // namespace ovalia
