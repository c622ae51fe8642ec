#pragma once

#include <span>

#include "platform/Text.h"

// Words from which the sample agency is made. Accents, apostrophes and bars are there on purpose: the
// component quotes them.
namespace ovalia::host::words {

inline constexpr TextView users[] = {u"Administrador", u"Álvaro Requena", u"Begoña Núñez",
                                     u"Íñigo Mendoza", u"José Luis Peña", u"Lucía Ferrándiz",
                                     u"Nuria Castaño", u"Óscar Güell"};
inline constexpr TextView posts[] = {u"Administración", u"Comercial", u"Comercial",  u"Comercial",
                                     u"Dirección",      u"Captación", u"Alquileres", u"Comercial"};

inline constexpr TextView givenNames[] = {u"María",     u"Antonio", u"Concepción", u"Andrés",  u"Begoña",
                                          u"Ramón",     u"Inés",    u"Joaquín",    u"Ángeles", u"Fermín",
                                          u"Rocío",     u"Germán",  u"Verónica",   u"Julián",  u"Nieves",
                                          u"Sebastián", u"Sofía",   u"Adrián",     u"Mónica",  u"Tomás"};
inline constexpr TextView surnames[] = {u"García",  u"Ibáñez",  u"Muñoz",    u"Peñalver", u"Ordóñez",
                                        u"Vázquez", u"Castaño", u"Núñez",    u"Martínez", u"Pérez",
                                        u"Giménez", u"Zúñiga",  u"Belén",    u"Domènech", u"Rubió",
                                        u"López",   u"Ruiz",    u"Escudero", u"Sáez",     u"Quiñones"};

// Clients that are no person with two surnames.
inline constexpr TextView otherClients[] = {u"O'Donnell, Patricia", u"Muebles Peña | Hijos",
                                            u"Comunidad \"Los Álamos\"", u"L'Hospital Vell, S.L."};

inline constexpr TextView agencies[] = {u"Costa Blanca Fincas",    u"Fincas D'Ors",
                                        u"Inmobiliaria Peñíscola", u"Levante | Hogar",
                                        u"Casas del Río Júcar",    u"Grupo Ensanche"};

inline constexpr TextView accesses[] = {u"Público", u"Privado", u"Sólo dirección", u"Comerciales",
                                        u"Administración"};
inline constexpr TextView categories[] = {u"Llaves",  u"Precio",      u"Documentación", u"Reparación",
                                          u"Urgente", u"Propietario", u"Hipoteca",      u"Tasación",
                                          u"Visita",  u"Año nuevo"};
inline constexpr TextView media[] = {u"Escaparate",      u"Las Provincias",   u"Portal web",
                                     u"Revista D'Hogar", u"Cartel en balcón", u"Buzoneo",
                                     u"Radio mañana"};

struct Subject {
  TextView name;
  TextView parts[3];
};
inline constexpr Subject subjects[] = {
    {u"Civil", {u"Arrendamientos", u"Herencias", u"Comunidades"}},
    {u"Fiscal", {u"Plusvalía", u"Transmisiones", u"IVA"}},
    {u"Urbanismo", {u"Licencias", u"Cédulas", u"Señalamientos"}},
    {u"Registral", {u"Notas simples", u"Cancelaciones", u"Inscripciones"}},
};

inline constexpr TextView flatFloors[] = {u"1º A", u"2º B", u"3º izda.", u"4º dcha.", u"5º, pta. 12"};
inline constexpr TextView topFloors[] = {u"ático", u"ático izda."};
inline constexpr TextView groundFloors[] = {u"bajo", u"bajo dcha."};
inline constexpr TextView cellars[] = {u"sótano 1", u"sótano 2"};

// What is sold, what the cheapest costs in thousands of euros, and how many thousands more the dearest does.
struct Home {
  TextView name;
  int thousands, more;
  int squareMetres;  // of the smallest; the largest has three times as many
  std::span<const TextView> floors;
  bool livedIn = true;
};
inline constexpr Home homes[] = {{u"Piso", 90, 260, 60, flatFloors},
                                 {u"Ático", 180, 320, 70, topFloors},
                                 {u"Chalé", 240, 500, 120, {}},
                                 {u"Local", 60, 300, 50, groundFloors},
                                 {u"Dúplex", 150, 250, 85, topFloors},
                                 {u"Estudio", 55, 80, 28, flatFloors},
                                 {u"Plaza de garaje", 9, 20, 10, cellars, false}};
inline constexpr TextView streets[] = {
    u"Calle Colón",        u"Avenida del Puerto",  u"Calle Cirilo Amorós",   u"Plaza de España",
    u"Calle Peñíscola",    u"Camino de Moncada",   u"Calle L'Eixample",      u"Avenida de Aragón",
    u"Calle Señor Ibáñez", u"Paseo de la Alameda", u"Calle Guillén Sorolla", u"Ronda de la Estación"};
struct Town {
  TextView postCode, name;
};
inline constexpr Town towns[] = {{u"46004", u"València"}, {u"46185", u"La Pobla de Vallbona"},
                                 {u"46370", u"Chiva"},    {u"12598", u"Peñíscola"},
                                 {u"46980", u"Paterna"},  {u"46900", u"Torrent"}};

inline constexpr TextView noteSubjects[] = {
    u"Llaves del ático",       u"Cambio de precio",        u"Falta la cédula de habitabilidad",
    u"Llamar al propietario",  u"Humedad en el baño",      u"El señor Ibáñez pide rebaja",
    u"Certificado energético", u"Copia de la escritura",   u"Cartel \"Se vende\" retirado",
    u"Presupuesto | pintura",  u"Contraseña de la alarma", u"Pendiente de L'Oficina Liquidadora"};
inline constexpr TextView visitSubjects[] = {u"Primera visita",     u"Segunda visita con la familia",
                                             u"Visita del perito",  u"Entrega de llaves",
                                             u"Firma de arras",     u"Revisión de la caldera",
                                             u"Reunión en notaría", u"Visita | medir habitaciones"};
inline constexpr TextView places[] = {u"En el inmueble", u"En la oficina",      u"Notaría de Dª. Ángela Ruiz",
                                      u"Café L'Art",     u"Portal de la finca", u"Banco | sucursal 12"};

inline constexpr TextView sentences[] = {u"El propietario acepta negociar hasta un cinco por ciento.",
                                         u"Hay que pedir al portero la llave del trastero.",
                                         u"La señora prefiere visitas por la mañana, antes de las doce.",
                                         u"Dice que \"lo pensará\" y que llamará el lunes.",
                                         u"Falta entregar: escritura | recibo del IBI | cédula.",
                                         u"D'Ors envió un correo con las fotografías.",
                                         u"La comunidad ha subido la cuota; ver el acta de la reunión.",
                                         u"Se ofrece plaza de garaje aparte.",
                                         u"El comprador necesita hipoteca y aún no tiene tasación.",
                                         u"Pintura y suelo en buen estado; cocina por reformar.",
                                         u"Ojo: el baño pequeño no tiene ventilación.",
                                         u"Volver a llamar después de las fiestas."};
inline constexpr TextView callSentences[] = {
    u"Pregunta por el precio y si admite perro.", u"Quiere visitarlo el sábado.",
    u"Busca con terraza; éste no le encaja.", u"Vio el cartel del balcón.",
    u"Llama desde Peñíscola, volverá a llamar."};
inline constexpr TextView caseTitles[] = {u"Herencia de la calle Colón", u"Reclamación de rentas",
                                          u"Compraventa de local",       u"División de finca",
                                          u"Cancelación de hipoteca",    u"Licencia de obra | cédula"};
inline constexpr TextView projects[] = {u"Residencial Los Álamos", u"Edificio Peñalba", u"Villas d'Orba"};

}  // namespace ovalia::host::words
