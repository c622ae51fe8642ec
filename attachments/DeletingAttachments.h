#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Deletes an attachment of the current row by its stored name, after a question if `Preguntar`: first the
// file, by way of the recycle bin, then the counter falls by one, then the row goes; nothing is taken back. A
// visible card's list is filled again, also when the user declines. With a counter that is not above 0, or
// without a name, nothing is done and the result is true.
//
// False when the user declines or the file cannot be removed. A file that the bin did not take is told to the
// user and counts as removed, one that is missing or whose name no file can have too. Failures of any step:
// 53 and 75 go on at the next one where the file is gone, and end it with false where it is there, as 70
// does; the user is told. 76, a folder that cannot be reached, is reported and gives false, with nothing
// touched. Any other failure is reported, and the result stays true. What fails while the file is looked for
// after a 53 or a 75 goes to the caller.
bool BorrarDocNota(Instance& nota, TextView NArch, bool Preguntar);

// Asks whether the attachment selected on the card may be deleted, and deletes it; whether the caller may go
// on. Nobody calls it. A current row without attachments needs no question.
bool TestDocAsociado(Instance& nota);

}  // namespace ovalia
