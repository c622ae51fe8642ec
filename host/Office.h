#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <span>
#include <string>

#include "platform/Text.h"

// LibreOffice, worked without a window: what the agency needs of documents and cannot do itself. It runs with
// a profile of its own, so that one that the user has open is not disturbed. What cannot be done is a
// TemplateFailure that says why.
namespace ovalia::host {

bool officeInstalled();

// What happens while it works: it takes some seconds.
using Meanwhile = std::function<void()>;

inline constexpr std::chrono::seconds officePatience{90};

// Writes the document as `format`, "rtf" or "pdf", to `target`, in place of what is there, which stays until
// the new one is whole.
void convertDocument(const std::filesystem::path& document, const std::string& format,
                     const std::filesystem::path& target, const Meanwhile& meanwhile = {},
                     std::chrono::milliseconds patience = officePatience);

// Writes each document as `format` into the folder, under its name, in place of what is there, all with one
// start of LibreOffice: that is what takes the time.
void convertDocuments(std::span<const std::filesystem::path> documents, const std::string& format,
                      const std::filesystem::path& folder, const Meanwhile& meanwhile = {},
                      std::chrono::milliseconds patience = officePatience);

// Prints it on the printer of that name.
void printDocument(const std::filesystem::path& document, const std::string& printer,
                   const Meanwhile& meanwhile = {});

// The first page of a document as a picture of some 600 x 850 points, PNG: a PDF as it is, of another the PDF
// that is then beside it, under its name. Needs pdftoppm.
void pictureOfDocument(const std::filesystem::path& document, const std::filesystem::path& picture);

// What can be read in a PDF, line by line as it stands there, UTF-8. Needs pdftotext.
std::string textOfPdf(const std::filesystem::path& pdf);

}  // namespace ovalia::host
