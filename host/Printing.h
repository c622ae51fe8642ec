#pragma once

#include "host/Workplace.h"
#include "system/PassingFile.h"

namespace ovalia::host {

// A document to be printed: a new file of the user's own. Those of earlier days that were shown are deleted.
class PrintFile : public system::PassingFile {
 public:
  PrintFile();
};

// Takes a finished document to where the user wanted the print when they chose the template: on the screen,
// where it is kept, on a printer or into a PDF file, for which they are asked; `title` is the name proposed.
// Without an office suite to print with it goes to the screen, and the user is told. TemplateFailure where it
// cannot be printed.
void print(Workplace& workplace, PrintFile& file, TextView title);

// Keeps the windows drawn while another program works.
void letWindowsLive();

}  // namespace ovalia::host
