#include "routines/Messages.h"

#include "platform/Platform.h"
#include "routines/ModuleValues.h"
#include "routines/Trap.h"

namespace ovalia {

std::int32_t MostrarMensaje(TextView mensaje, std::int32_t botones, TextView titulo) {
  return procedure(u"MostrarMensaje() de RutinasErr", 0, [&](std::int32_t& button) {
    bool& flag = moduleValues().MensajeEnCurso;
    const bool before = flag;
    flag = true;
    button = Platform::current().screen->messageBox(mensaje, botones, titulo);
    flag = before;
  });
}

Text PedirMensaje(TextView mensaje, TextView titulo, TextView defecto) {
  return procedure(u"PedirMensaje() de RutinasErr", Text{}, [&](Text& typed) {
    bool& flag = moduleValues().MensajeEnCurso;
    const bool before = flag;
    flag = true;
    typed = Platform::current().screen->inputBox(mensaje, titulo, defecto);
    flag = before;
  });
}

}  // namespace ovalia
