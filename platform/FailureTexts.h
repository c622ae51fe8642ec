#pragma once

#include <cstdint>

#include "platform/Failure.h"
#include "platform/Text.h"
#include "platform/dao.h"

namespace ovalia {

// What the user reads of a failure: what happened, then what to do about it.
struct FailureText {
  std::int32_t number;
  TextView text;
};

inline constexpr FailureText failureTexts[] = {
    {failure::badArgument,
     u"Un valor no es válido para esta operación. Revise los datos e inténtelo de nuevo."},
    {failure::overflow, u"El número es demasiado grande. Escriba uno menor."},
    {failure::outOfMemory, u"No hay memoria suficiente. Cierre otros programas e inténtelo de nuevo."},
    {failure::indexOutOfRange,
     u"El elemento pedido está fuera de la lista. Actualice la lista e inténtelo de nuevo."},
    {failure::typeMismatch, u"Un valor no es del tipo esperado. Revise los números y las fechas escritos."},
    {failure::outOfStackSpace,
     u"La operación se repite sin fin. Revise los datos de los que parte y avise a soporte."},
    {failure::internalError, u"Error interno del programa. Guarde lo que pueda y avise a soporte."},
    {failure::fileNotFound,
     u"No se encuentra el fichero. Compruebe el nombre y que no se ha movido o borrado."},
    {failure::fileAlreadyExists, u"El fichero ya existe. Elija otro nombre."},
    {failure::diskFull, u"El disco está lleno. Libere espacio e inténtelo de nuevo."},
    {failure::permissionDenied,
     u"Permiso denegado. Compruebe que el fichero no está abierto y que tiene permiso sobre la carpeta."},
    {failure::pathFileAccess,
     u"No se puede acceder a la ruta o al fichero. Compruebe que existe, que no está en uso y sus permisos."},
    {failure::pathNotFound,
     u"No se encuentra la ruta de acceso. Compruebe que la carpeta existe y está conectada."},
    {failure::objectNotSet,
     u"Falta un objeto necesario para la operación. Cierre la ficha y vuelva a abrirla."},
    {failure::invalidUseOfNull,
     u"Un dato está vacío y hace falta un valor. Complételo e inténtelo de nuevo."},
    {failure::notInList, u"El valor no está en la lista. Elija uno de los que ofrece."},
    {failure::alreadyShown, u"La ficha ya está abierta. Ciérrela antes de abrirla de nuevo."},
    {failure::classCannotBeCreated,
     u"No se puede crear el componente. Compruebe que está instalado o avise a soporte."},
    {failure::noSuchMember,
     u"El objeto no admite esta propiedad o método. Compruebe las versiones instaladas."},
    {failure::wrongArguments,
     u"El número de argumentos no es correcto. Compruebe las versiones de los componentes instalados."},
    {failure::noSuchControl,
     u"No existe el control pedido. Compruebe las versiones de los componentes instalados."},
    {failure::dialogCancelled, u"Se ha cancelado el cuadro de diálogo. Repita la operación si la necesita."},
    {failure::indexOutOfBounds, u"El elemento está fuera de los límites de la lista. Actualícela y repita."},
    {failure::elementNotFound, u"No se encuentra el elemento en la lista. Actualícela y repita."},
    {failure::keyNotUnique, u"Ya hay un elemento con esa clave en la lista. Actualícela y repita."},
    {dao::failure::updateWithoutEdit,
     u"Se ha intentado guardar sin empezar la modificación. Vuelva a la ficha y repita el cambio."},
    {dao::failure::noCurrentRecord,
     u"No hay ningún registro activo. Sitúese en un registro e inténtelo de nuevo."},
    {dao::failure::duplicateKey,
     u"Ya existe un registro con esos mismos datos clave. Cambie el valor repetido e inténtelo de nuevo."},
    {dao::failure::cannotOpen,
     u"No se puede abrir la base de datos. Compruebe su ruta y que está accesible."},
    {dao::failure::readOnly,
     u"Los datos son de sólo lectura. Compruebe sus permisos sobre la base de datos."},
    {dao::failure::commitWithoutBegin,
     u"Se ha cerrado una transacción que no estaba abierta. Repita la operación."},
    {dao::failure::unknownColumn,
     u"La consulta nombra una columna desconocida. Compruebe que la base de datos está actualizada."},
    {dao::failure::syntax,
     u"La consulta tiene un error de sintaxis. Revise los datos escritos o avise a soporte."},
    {dao::failure::criterionSyntax,
     u"El criterio de búsqueda tiene un error de sintaxis. Revíselo e inténtelo de nuevo."},
    {dao::failure::unknownTable,
     u"La consulta nombra una tabla desconocida. Compruebe que la base de datos está actualizada."},
    {dao::failure::insertSyntax,
     u"La instrucción de alta tiene un error de sintaxis. Revise los datos escritos o avise a soporte."},
    {dao::failure::updateSyntax,
     u"La instrucción de modificación tiene un error de sintaxis. Revise los datos escritos o avise a "
     u"soporte."},
    {dao::failure::tooLong, u"El texto es demasiado largo para el campo. Acórtelo e inténtelo de nuevo."},
    {dao::failure::recordDeleted,
     u"Otro usuario ha eliminado el registro. Actualice la lista para ver los que quedan."},
    {dao::failure::referenced, u"Hay otros registros que dependen de éste. Elimínelos o modifíquelos antes."},
    {dao::failure::missingRelated,
     u"Falta el registro relacionado que se necesita. Créelo antes o elija uno que exista."},
    {dao::failure::locked, u"Otro usuario está usando los datos. Espere un momento e inténtelo de nuevo."},
    {dao::failure::notInCollection,
     u"No existe el campo o la tabla que se pide. Compruebe que la base de datos está actualizada."},
    {dao::failure::required, u"Falta un dato obligatorio. Complételo e inténtelo de nuevo."},
    {dao::failure::zeroLength, u"El campo no admite un texto vacío. Escriba un valor."},
    {dao::failure::damaged,
     u"La base de datos está dañada o no es de este programa. Restaure una copia de seguridad."},
    {dao::failure::conversion,
     u"Un valor no se puede convertir al tipo del campo. Revise los números y las fechas escritos."},
    {dao::failure::cancelledByObject, u"Un objeto asociado ha cancelado la acción. Repítala si la necesita."},
};

}  // namespace ovalia
