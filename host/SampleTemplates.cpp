#include "host/SampleTemplates.h"

#include "host/RtfTemplate.h"

namespace ovalia::host {

namespace {

constexpr TextView headOfProperty = u"Ref.: [Referencia]";

struct SampleTemplate {
  TextView folder, name, title, text;
  TextView head = headOfProperty;
};

constexpr TextView letterToOwner =
    u"[Propietario]\n"
    u"Teléfonos:\t[PropietarioTfno1]\t[PropietarioTfno2]\n"
    u"\n"
    u"[Fecha]\n"
    u"\n"
    u"Asunto: [Asunto]\n"
    u"\n"
    u"Estimado cliente:\n"
    u"\n"
    u"Le escribimos en relación con su inmueble de referencia [Referencia2], número [Numero], que tenemos "
    u"a la venta por [Precio] euros ([PrecioPts] pesetas).\n"
    u"\n"
    u"[Notas]\n"
    u"\n"
    u"Quedamos a su disposición para cualquier consulta.\n"
    u"\n"
    u"Atentamente,\n"
    u"[Autor]\n";

constexpr SampleTemplate templates[] = {
    {u"", u"Carta al propietario", u"", letterToOwner},
    {u"", u"Hoja del inmueble", u"Datos del inmueble",
     u"Referencia:\t[Referencia2]\n"
     u"Número y piso:\t[Numero]\n"
     u"Precio:\t[Precio] euros\n"
     u"En pesetas:\t[PrecioPts]\n"
     u"Gastos:\t[Gastos]\n"
     u"Notas:\t[NotasInm]\n"
     u"Propietario:\t[Propietario]\n"
     u"Teléfonos:\t[PropietarioTfno1]\t[PropietarioTfno2]\n"
     u"\n"
     u"A petición de [Autor], el [Fecha]: [Asunto]\n"},
    {u"Nota\\", u"Carta al propietario", u"", letterToOwner},
    {u"Nota\\", u"Nota interna", u"Nota interna",
     u"Asunto:\t[Asunto]\n"
     u"De:\t[Autor]\n"
     u"Fecha:\t[Fecha]\n"
     u"Acceso:\t[Acceso]\n"
     u"Categorías:\t[Categorias]\n"
     u"Inmueble:\t[Referencia2]\n"
     u"Adjuntos:\t[Adjunto]\n"
     u"\n"
     u"[Notas]\n"},
    {u"Visita\\", u"Hoja de visita", u"Hoja de visita",
     u"Visitante:\t[Cliente]\n"
     u"Teléfonos:\t[Tfno1]\t[Tfno2]\n"
     u"Comienzo:\t[Comienzo]\n"
     u"Fin:\t[Fin]\n"
     u"Lugar:\t[Ubicación]\n"
     u"Inmueble:\t[Referencia2], número [Numero]\n"
     u"Precio:\t[Precio] euros\n"
     u"Comercial:\t[Comercial]\n"
     u"Otra agencia:\t[Agencia]\n"
     u"Confirmada:\t[Confirmada]\n"
     u"\n"
     u"[Notas]\n"
     u"\n"
     u"El visitante declara haber visto el inmueble en compañía de [Comercial2].\n"
     u"\n"
     u"Firma de [Cliente2]:\n"},
    {u"Anuncio\\", u"Orden de anuncio", u"Orden de anuncio",
     u"Anuncio:\t[Asunto]\n"
     u"Primer día:\t[FechaInicio]\n"
     u"Días:\t[Dias]\n"
     u"Hay que enviarlo:\t[Enviar]\n"
     u"Enviado:\t[Enviada]\n"
     u"Inmueble:\t[Referencia2]\n"
     u"Precio:\t[Precio] euros\n"
     u"\n"
     u"Texto del anuncio:\n"
     u"[Notas]\n"
     u"\n"
     u"Lo ordena [Autor] el [Fecha].\n"},
    {u"Llamada\\", u"Parte de llamada", u"Parte de llamada",
     u"Asunto:\t[Asunto]\n"
     u"Atendida por:\t[Autor]\n"
     u"Fecha:\t[Fecha]\n"
     u"Llamada número:\t[Id]\n"
     u"\n"
     u"[Notas]\n",
     u""},
};

// All names of marks are of the code page of the document.
std::string bookmarkName(TextView mark) {
  constexpr char digits[] = "0123456789abcdef";
  std::string name;
  for (const char16_t c : mark) {
    if (c < 0x80)
      name += static_cast<char>(c);
    else
      name.append({'\\', '\'', digits[c >> 4 & 15], digits[c & 15]});
  }
  return name;
}

// The mark's name stands in its place until it is filled.
std::string bookmark(TextView mark) {
  const std::string name = bookmarkName(mark);
  return "{\\*\\bkmkstart " + name + "}[" + rtfText(mark) + "]{\\*\\bkmkend " + name + "}";
}

// The text with its marks.
std::string marked(TextView line) {
  std::string written;
  while (!line.empty()) {
    const auto open = std::min(line.find(u'['), line.size());
    written += rtfText(line.substr(0, open));
    line.remove_prefix(open);
    if (line.empty()) break;
    const auto close = line.find(u']');
    written += bookmark(line.substr(1, close - 1));
    line.remove_prefix(close + 1);
  }
  return written;
}

}  // namespace

std::string sampleDocument(TextView title, TextView text, TextView head) {
  std::string document =
      "{\\rtf1\\ansi\\ansicpg1252\\deff0\\deflang3082{\\fonttbl{\\f0\\froman Times New Roman;}{\\f1\\fswiss "
      "Arial;}}\r\n\\paperw11906\\paperh16838\\margl1418\\margr1418\\margt1418\\margb1418\r\n";
  if (!head.empty()) document += "{\\header\\pard\\qr\\f1\\fs18 " + marked(head) + "\\par}\r\n";
  document += "{\\footer\\pard\\qc\\f1\\fs18 {\\field{\\*\\fldinst PAGE}{\\fldrslt 1}}\\par}\r\n";
  if (!title.empty()) document += "\\pard\\sa240\\f1\\b\\fs32 " + rtfText(title) + "\\par\r\n";
  document += "\\pard\\sa60\\tx2268\\tx4253\\f0\\b0\\fs24\r\n";
  while (!text.empty()) {
    const auto end = text.find(u'\n');
    document += marked(text.substr(0, end)) + "\\par\r\n";
    text.remove_prefix(end + 1);
  }
  return document + "}\r\n";
}

std::vector<SampleFile> sampleTemplates() {
  std::vector<SampleFile> files;
  for (const SampleTemplate& row : templates)
    files.push_back({join(u"Plantillas\\", row.folder, row.name, u".dot"),
                     sampleDocument(row.title, row.text, row.head)});
  return files;
}

}  // namespace ovalia::host
