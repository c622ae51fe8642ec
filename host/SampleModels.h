#pragma once

#include "platform/Text.h"

// The models that the made-up agency begins with: documents without marks, completed by hand.
namespace ovalia::host::sample {

struct Model {
  TextView name, notes;
  int subject, part;  // keys, 0 for none
  TextView title, text;
};

inline constexpr Model models[] = {
    {u"Contrato de arras.rtf", u"Arras penitenciales, dos ejemplares", 1, 1, u"Contrato de arras",
     u"En ........................., a ..... de ........................ de 20.....\n"
     u"\n"
     u"Vendedor:\t......................................................................\n"
     u"Comprador:\t......................................................................\n"
     u"Inmueble:\t......................................................................\n"
     u"Precio:\t.............................. euros\n"
     u"Señal:\t.............................. euros\n"
     u"\n"
     u"1. El vendedor se obliga a vender el inmueble, libre de cargas y de ocupantes, y el comprador a "
     u"comprarlo por el precio indicado.\n"
     u"2. La señal se entrega en este acto como arras penitenciales y se descontará del precio.\n"
     u"3. Si se echa atrás el comprador, pierde la señal; si lo hace el vendedor, la devuelve doblada.\n"
     u"4. La escritura se firmará antes del ..... de ........................ de 20......\n"
     u"\n"
     u"Se firma por duplicado.\n"
     u"\n"
     u"El vendedor:\t\tEl comprador:\n"},
    {u"Encargo de venta.rtf", u"Con exclusiva de seis meses", 1, 0, u"Encargo de venta en exclusiva",
     u"Propietario:\t......................................................................\n"
     u"Documento:\t..............................\n"
     u"Teléfono:\t..............................\n"
     u"Inmueble:\t......................................................................\n"
     u"Precio:\t.............................. euros\n"
     u"\n"
     u"El propietario encarga a la agencia la venta del inmueble en exclusiva durante seis meses, que "
     u"empiezan el día de la firma. La agencia lo anuncia a su costa, acompaña las visitas y da cuenta de "
     u"ellas cada mes.\n"
     u"\n"
     u"Honorarios: el ...... % del precio de venta, más IVA, que se pagan al firmar la escritura.\n"
     u"\n"
     u"Fecha y firma del propietario:\n"},
    {u"Petición de nota simple.rtf", u"Al registro de la propiedad", 4, 10, u"Petición de nota simple",
     u"Al Registro de la Propiedad de ..............................\n"
     u"\n"
     u"Se solicita nota simple informativa de la finca siguiente:\n"
     u"\n"
     u"Finca número:\t..............................\n"
     u"Tomo, libro, folio:\t..............................\n"
     u"Dirección:\t......................................................................\n"
     u"Titular:\t......................................................................\n"
     u"\n"
     u"Motivo: comprobar la titularidad y las cargas antes de una compraventa.\n"
     u"\n"
     u"Fecha y firma del solicitante:\n"},
    {u"Recibí de llaves.rtf", u"", 0, 0, u"Recibí de llaves",
     u"He recibido de la agencia ...... juegos de llaves del inmueble de referencia ...................., "
     u"que devolveré antes del ..... de ........................ de 20......\n"
     u"\n"
     u"Nombre:\t......................................................................\n"
     u"Documento:\t..............................\n"
     u"Teléfono:\t..............................\n"
     u"\n"
     u"Fecha y firma:\n"},
};

}  // namespace ovalia::host::sample
