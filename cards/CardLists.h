#pragma once

#include "instance/Instance.h"

namespace ovalia {

// Opens the list of the control that the screen's focus is on, or that its button belongs to. Other controls
// do nothing. No trap.
void dNota_VerLista(Instance& nota);

// Each lets the host choose and writes the answer into its control as it stands and in every case: a host
// whose dialog was cancelled gives the old text back. The control is tracked as if it had taken the focus
// before, and has the focus afterwards. Failures are reported.
void ListaCategorias(Instance& nota);
void ListaMedioPubli(Instance& nota);
void ListaCliente(Instance& nota);  // and its telephone
void ListaAgencia(Instance& nota);
void ListaUsuario(Instance& nota);

// Here the answer counts only where the host says so; the list of access types is read again either way, and
// the text that was typed stays.
void ListaAcceso(Instance& nota);

}  // namespace ovalia
