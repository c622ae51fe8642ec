#pragma once

#include <filesystem>

#include "host/MainWindow.h"
#include "host/TourDialogs.h"

namespace ovalia::host {

// Plays through the program without a user: opens the first property, and from it, for each kind of
// annotation, looks at a card, changes and saves it, tries to save over another user's write, creates an
// annotation and searches one; then it works on the documents of a note, prints a card of each kind with a
// template, makes a model and attaches it, and writes a mail, which it does not send. It writes into the
// window's database. The folder gets the pictures
// ("agencia.png", "nota.png", "nota-cambiada.png", "nota-pregunta.png", "nota-rechazada.png",
// "nota-nueva.png", "nota-encontrada.png", "imprimir-nota.png", "impreso-nota.png" and so for "visita",
// "anuncio", "llamada"; "documentos-...png", "modelo...png", "correo.png"), the printed pages
// ("impreso-nota.pdf") and the transcript ("transcript.txt"), which says what the database held before and
// after each step. True when everything went as expected; what did not stands in the transcript behind
// "AVISO:".
bool playTour(MainWindow& window, TourDialogs& dialogs, const std::filesystem::path& folder);

// A copy of an agency's file and of its documents in the folder, for a tour to write into; the templates that
// the agency lacks are the sample's. StartFailure when it cannot be made.
std::filesystem::path copyForTour(const std::filesystem::path& database, const std::filesystem::path& folder);

}  // namespace ovalia::host
