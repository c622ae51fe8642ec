#include "host/WordProcessor.h"

#include <memory>

#include "host/DocumentMarks.h"
#include "host/Printing.h"
#include "host/RtfTemplate.h"
#include "host/TemplateFailure.h"
#include "host/TemplateFile.h"
#include "platform/Platform.h"
#include "system/FileCopy.h"
#include "system/PassingFile.h"
#include "system/PathLookup.h"

namespace ovalia::host {

namespace fs = std::filesystem;

namespace {

constexpr int hourglass = 11;

Text shown(const fs::path& path) { return fromUtf8(path.native()); }

// The hourglass while another program works.
class Busy {
 public:
  Busy() { screen_.setMousePointer(hourglass); }
  ~Busy() { screen_.setMousePointer(before_); }
  Busy(const Busy&) = delete;
  Busy& operator=(const Busy&) = delete;

 private:
  Screen& screen_ = *Platform::current().screen;
  const int before_ = screen_.mousePointer();
};

struct Document {
  Workplace& workplace;
  const bool kept;  // else it is printed
  fs::path model = {};
  std::string content = {};  // of the template, as RTF
  fs::path file = {};        // where it is kept
  std::unique_ptr<PrintFile> print = {};

  TextView title() const { return kept ? u"Plantilla" : u"Imprimir"; }
  const fs::path& place() const { return kept ? file : print->path(); }
};

// The user is told of what fails in the work; whether nothing did.
template <class Work>
bool tried(Workplace& workplace, TextView title, Work&& work) {
  try {
    work();
    return true;
  } catch (const TemplateFailure& failure) {
    workplace.dialogs.tell(title, failure.message);
  } catch (...) {
    workplace.dialogs.tell(title, u"No se ha podido crear el documento. " + currentFailure().description());
  }
  return false;
}

fs::path templateFile(TextView model) {
  const auto found = system::locate(logicPath(model));
  if (!found) throw TemplateFailure(u"No existe la plantilla " + nativePath(model) + u".");
  return *found;
}

// A new file of the content at that path, of which it has hold from the first moment.
fs::path keptFile(TextView document, std::string_view content) {
  std::string path;
  try {
    path = system::writable(logicPath(document));
  } catch (const Failure&) {
    throw TemplateFailure(u"No existe la carpeta en la que debe guardarse el documento " +
                          nativePath(document) + u".");
  }
  const system::PassingFile whole;
  system::writeBytes(whole.path().native(), content);
  try {
    system::copyNew(whole.path().native(), path);
  } catch (const Failure& failure) {
    if (failure.number() != failure::fileAlreadyExists) throw;
    throw TemplateFailure(u"Ya existe el documento " + fromUtf8(path) + u", y no se reemplaza.");
  }
  return path;
}

// A template that cannot be filled shows itself before there is a file.
void checkMarks(std::string_view content) {
  filledRtf(content, [](TextView name) { return documentMark(name) ? std::optional(Text()) : std::nullopt; });
}

// The file has the whole of the text, or what it had before.
void putContent(const fs::path& file, std::string_view content) {
  const system::PassingFile whole;
  system::writeBytes(whole.path().native(), content);
  system::copyOver(whole.path().native(), file.native());
}

void open(const Document& document) {
  if (!document.workplace.dialogs.openFile(shown(document.file), shown(document.model.stem()) + u".rtf"))
    throw TemplateFailure(u"El documento está hecho, pero no hay ningún programa para abrir " +
                          shown(document.file) + u".");
}

void print(const Document& document) {
  host::print(document.workplace, *document.print, shown(document.model.stem()));
}

void finish(const Document& document, const Variant& marks, const Variant& texts) {
  const auto work = [&](auto&& step) {
    return tried(document.workplace, document.title(), [&] {
      const Busy busy;
      step();
    });
  };
  const bool filled =
      work([&] { putContent(document.place(), filledRtf(document.content, MarkTexts(marks, texts))); });
  if (filled) {
    work([&] { document.kept ? open(document) : print(document); });
  } else if (document.kept) {
    std::error_code ignored;
    fs::remove(document.file, ignored);
  }
}

ObjectRef objectOf(std::shared_ptr<Document> document) {
  auto object = std::make_shared<MemberTable>();
  object->property(u"Documento", [document](Arguments) -> Variant { return shown(document->place()); })
      .property(u"Plantilla", [document](Arguments) -> Variant { return shown(document->model); })
      .method(u"Rellenar", [document](Arguments arguments) -> Variant {
        if (arguments.size() != 2) throw Failure(failure::wrongArguments);
        finish(*document, arguments[0], arguments[1]);
        return {};
      });
  return object;
}

}  // namespace

ObjectRef newDocument(Workplace& workplace, TextView document, TextView model) {
  auto made = std::make_shared<Document>(Document{.workplace = workplace, .kept = !document.empty()});
  const bool done = tried(workplace, made->title(), [&] {
    const Busy busy;
    made->model = templateFile(model);
    made->content = templateAsRtf(made->model, letWindowsLive);
    checkMarks(made->content);
    if (made->kept)
      made->file = keptFile(document, made->content);
    else
      made->print = std::make_unique<PrintFile>();
  });
  return done ? objectOf(std::move(made)) : nullptr;
}

void fillDocument(const Variant& marks, const Variant& texts, const ObjectRef& document) {
  if (document) callMember(document, u"Rellenar", {marks, texts});
}

}  // namespace ovalia::host
