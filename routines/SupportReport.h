#pragma once

#include "platform/Text.h"

namespace ovalia {

// Where the support reports go.
inline constexpr TextView supportAddress = u"soporte@brenox.example";

// A text file that is being written line by line, from its beginning.
class OutputFile {
 public:
  explicit OutputFile(TextView path);  // what stood there is gone
  void print(TextView line);

 private:
  Text path_;
};

// Packs the text files of the component's temporary folder (the log among them), `adjunto` unless it is empty
// and, with `conCaptura`, a picture of the screen into "envio.zip" there, and mails it. With `conCaptura` the
// user is asked what happened; without an answer nothing is sent. The packer "ZipLibrary.CGZipFiles" and the
// mailer "Zandrel.CZandrel" are outside components. The files stay until the next report. A report that ends
// early, by a failure or because the last zip cannot be deleted, leaves the hourglass on.
//
// Each of these traps its failures and reports them under its own name; CapturarPantalla passes over them.
void EnviarDatosASoporte(TextView adjunto, bool conCaptura, TextView asunto, TextView cuerpo);

// A picture of the program's windows into the file `ruta`; none when that fails.
void CapturarPantalla(TextView ruta);

// Writes "system.txt" of the component's temporary folder anew: system, settings, paths, libraries.
void VolcarSystemaTxt();

// A line for each setting of a section, in their order.
void VolcarCadenasSystema(TextView seccion, OutputFile& fichero);

// A line for each file of a folder with its version and date, or one that says that there is no such folder.
void VolcarDirectorio(TextView ruta, OutputFile& fichero);

}  // namespace ovalia
